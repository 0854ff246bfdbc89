#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/RunTimeError.h"
#include "data/SessionServer.h"
#include "server/core/Errors.h"
#include "tests/support/data/Sample.h"
#include "tests/support/data/SampleDatabase.h"

namespace server_test {

using Rows = std::vector<std::vector<std::wstring>>;

// The failure that a call ends in; fails the test when it does not fail.
template <class Call>
data::RunTimeError FailureOf(Call&& call) {
  try {
    std::forward<Call>(call)();
  } catch (const data::RunTimeError& error) {
    return error;
  }
  ADD_FAILURE() << "no run-time error was raised";
  return data::RunTimeError(0);
}

// The number of that failure.
template <class Call>
long NumberOf(Call&& call) {
  return FailureOf(std::forward<Call>(call)).Number();
}

// All rows of a statement, as text.
inline Rows ReadRows(data::Connection& connection, std::wstring_view statement, int columns) {
  Rows rows;
  const auto set = connection.OpenResultSet(statement);
  for (; !set->EndOfRows(); set->MoveNext()) {
    auto& row = rows.emplace_back();
    for (int i = 0; i < columns; ++i) row.push_back(set->Column(i).Text());
  }
  set->Close();
  return rows;
}

// A part of what the database of the engine under test says of a row that is there already.
inline std::wstring_view WordForDouble() {
  switch (test_support::EngineUnderTest()) {
    case test_support::TestEngine::kSqlite:
      return L"UNIQUE";
    case test_support::TestEngine::kPostgresql:
      return L"duplicate key";
    case test_support::TestEngine::kMariadb:
      return L"Duplicate entry";
  }
  return {};
}

// A session of Admin on the sample.
class OnSample : public ::testing::Test {
 protected:
  Rows Read(std::wstring_view statement, int columns) {
    return ReadRows(*connection_, statement, columns);
  }

  test_support::SampleDatabase sample_;
  std::unique_ptr<server::ReferenceServer> server_ = sample_.OpenServer();
  std::unique_ptr<data::Connection> connection_ = server_->DatabaseConnection();
};

}  // namespace server_test

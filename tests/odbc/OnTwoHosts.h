#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <memory>
#include <string>
#include <thread>

#include "data/RunTimeError.h"
#include "data/SessionServer.h"
#include "tests/support/data/SampleDatabase.h"
#include "tests/support/network/Forwarder.h"

namespace odbc_test {

// A session on the sample, reached by two networks of its own as if they led to two hosts.
class OnTwoHosts : public ::testing::Test {
 protected:
  static bool OnPostgresql() {
    return test_support::EngineUnderTest() == test_support::TestEngine::kPostgresql;
  }
  int ServerPort() const {
    const std::string& text = sample_.Source().odbc->connectionString;
    return std::stoi(text.substr(text.find("Port=") + 5));
  }
  // Rewrites the source's description.
  void Open(const std::string& lines = "", std::wstring_view user = L"Admin") {
    const std::string hosts = "127.0.0.1:" + std::to_string(first_.Port()) +
                              ", 127.0.0.1:" + std::to_string(second_.Port());
    std::ofstream(sample_.Home() / "sources" / "test.ini", std::ios::app)
        << "hosts = " << hosts << "\n"
        << lines;
    server_ = sample_.OpenServer(user);
    connection_ = server_->DatabaseConnection();
  }
  // How many rows a statement gives.
  int Rows(const std::wstring& statement) {
    int rows = 0;
    const auto set = connection_->OpenResultSet(statement);
    for (; !set->EndOfRows(); set->MoveNext()) ++rows;
    return rows;
  }
  // The number of the error that a call ends in; 0 where it ends in none.
  template <class Call>
  static long NumberOf(Call&& call) {
    try {
      call();
    } catch (const data::RunTimeError& error) {
      return error.Number();
    }
    return 0;
  }
  // Until the database server has a statement wait for somebody else's lock.
  bool SomebodyWaits() {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    test_support::RawDatabase raw = sample_.Raw();
    const char* const question =
        OnPostgresql()
            ? "select count(*) from pg_stat_activity where wait_event_type = 'Lock' and datname = "
              "current_database()"
            : "select count(*) from information_schema.processlist where db = database() and info "
              "like 'UPDATE QRUSER%' and time_ms > 200";
    while (raw.Number(question) == 0) {
      if (std::chrono::steady_clock::now() > deadline) return false;
      std::this_thread::yield();
    }
    return true;
  }

  test_support::SampleDatabase sample_;
  test_support::Forwarder first_{ServerPort()};
  test_support::Forwarder second_{ServerPort()};
  std::unique_ptr<server::ReferenceServer> server_;
  std::unique_ptr<data::Connection> connection_;
};

}  // namespace odbc_test

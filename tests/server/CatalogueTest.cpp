#include <gtest/gtest.h>

#include "data/MSQLStatement.h"
#include "tests/support/data/SampleDatabase.h"

namespace {

using Rows = std::vector<std::vector<std::wstring>>;

// Every statement that the program sends, run against the sample and compared with what the bare
// library reads from the same file.
class Catalogue : public ::testing::Test {
 protected:
  Rows Read(std::wstring_view statement, int columns) {
    Rows rows;
    const auto set = connection_->OpenResultSet(statement);
    for (; !set->EndOfRows(); set->MoveNext()) {
      auto& row = rows.emplace_back();
      for (int i = 0; i < columns; ++i) row.push_back(set->Column(i).Text());
    }
    set->Close();
    return rows;
  }

  test_support::SampleDatabase sample_;
  std::unique_ptr<server::ReferenceServer> server_ = sample_.OpenServer();
  std::unique_ptr<data::Connection> connection_ = server_->DatabaseConnection();
};

TEST_F(Catalogue, AllUsersAreTheLivingOnesByName) {
  const Rows rows = Read(data::SqlSelectAllUsers(), 3);
  EXPECT_EQ(rows.size(), 39U);
  EXPECT_EQ(rows.front(), (std::vector<std::wstring>{L"1", L"Admin", L"Administrateur principal"}));
}

}  // namespace

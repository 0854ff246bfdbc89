#include "ServerTest.h"
#include "data/MSQLStatement.h"

namespace {

using server_test::NumberOf;

using Transaction = server_test::OnSample;

TEST_F(Transaction, ReadsBetweenBeginAndEndSeeOneState) {
  connection_->BeginRead();
  const auto before = Read(data::SqlSelectAllUsers(), 3);
  test_support::RawDatabase other = sample_.Raw();
  other.Execute("pragma busy_timeout = 0");
  EXPECT_THROW(other.Execute("update qruser set name = 'x' where userid = 9"), std::runtime_error);
  EXPECT_EQ(Read(data::SqlSelectAllUsers(), 3), before);
  connection_->EndRead();
  other.Execute("update qruser set name = 'x' where userid = 9");
  EXPECT_NE(Read(data::SqlSelectAllUsers(), 3), before);
}

TEST_F(Transaction, CallsNestByCounting) {
  connection_->BeginRead();
  connection_->BeginRead();
  connection_->EndRead();
  Read(data::SqlSelectAllUsers(), 3);
  test_support::RawDatabase other = sample_.Raw();
  other.Execute("pragma busy_timeout = 0");
  EXPECT_THROW(other.Execute("delete from qruprm"), std::runtime_error);
  connection_->EndRead();
  other.Execute("delete from qruprm");
}

TEST_F(Transaction, EndWithoutBeginIsAnError) {
  EXPECT_EQ(NumberOf([&] { connection_->EndRead(); }), server::kReadNotBegun);
  connection_->BeginRead();
  connection_->EndRead();
  EXPECT_EQ(NumberOf([&] { connection_->EndRead(); }), server::kReadNotBegun);
}

TEST_F(Transaction, WritesInsideAreKept) {
  connection_->BeginRead();
  Read(data::SqlSelectUserGroups(9), 3);
  EXPECT_EQ(connection_->Execute(data::SqlDeleteUserPermissions(9)), 2);
  const std::int32_t id = server_->NewIdentifier(L"QRUSRN");
  connection_->EndRead();
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruprm where userid = 9"), 0);
  EXPECT_EQ(server_->NewIdentifier(L"QRUSRN"), id + 1);
}

TEST_F(Transaction, AReadIsEndedWithItsConnection) {
  connection_->BeginRead();
  connection_->BeginRead();
  Read(data::SqlSelectAllUsers(), 3);
  connection_.reset();
  sample_.Raw().Execute("pragma busy_timeout = 0; delete from qruprm");
}

TEST_F(Transaction, ConnectionsOfOneSessionShareTheirReads) {
  const auto second = server_->DatabaseConnection();
  connection_->BeginRead();
  second->BeginRead();
  connection_->EndRead();
  server_test::ReadRows(*second, data::SqlSelectAllUsers(), 3);
  test_support::RawDatabase other = sample_.Raw();
  other.Execute("pragma busy_timeout = 0");
  EXPECT_THROW(other.Execute("delete from qruprm"), std::runtime_error);
  EXPECT_EQ(NumberOf([&] { connection_->EndRead(); }), server::kReadNotBegun);
  second->EndRead();
  other.Execute("delete from qruprm");
}

TEST_F(Transaction, AReadScopeThatAnErrorLeavesEndsTheRead) {
  try {
    data::ReadScope scope(*connection_);
    Read(L"SELECT X FROM QRUSER", 1);
    scope.Finish();
    ADD_FAILURE();
  } catch (const data::RunTimeError& error) {
    EXPECT_EQ(error.Number(), server::kDatabaseError);
  }
  EXPECT_EQ(NumberOf([&] { connection_->EndRead(); }), server::kReadNotBegun);
}

}  // namespace

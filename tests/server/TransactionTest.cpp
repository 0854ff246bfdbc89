#include "ServerTest.h"
#include "data/MSQLStatement.h"
#include "data/ReadScope.h"

namespace server_test {
namespace {

using test_support::Sample;

class Transaction : public OnSample {
 protected:
  // Somebody else writes while this session reads: he is locked out of a file, and not seen where
  // the database keeps what is being read apart.
  static void WriteMeanwhile(test_support::RawDatabase& other, const std::string& sql) {
    other.Execute("pragma busy_timeout = 0");
    if (test_support::EngineUnderTest() == test_support::TestEngine::kSqlite) {
      EXPECT_THROW(other.Execute(sql), std::runtime_error);
    } else {
      other.Execute(sql);
    }
  }
};

TEST_F(Transaction, ReadsBetweenBeginAndEndSeeOneState) {
  const std::string change = "update qruser set name = 'x' where userid = 9";
  connection_->BeginRead();
  const auto before = Read(data::SqlSelectAllUsers(), 3);
  test_support::RawDatabase other = sample_.Raw();
  WriteMeanwhile(other, change);
  EXPECT_EQ(Read(data::SqlSelectAllUsers(), 3), before);
  connection_->EndRead();
  other.Execute(change);
  EXPECT_NE(Read(data::SqlSelectAllUsers(), 3), before);
}

TEST_F(Transaction, CallsNestByCounting) {
  connection_->BeginRead();
  connection_->BeginRead();
  connection_->EndRead();
  const auto before = Read(data::SqlSelectUserPermIds(Sample::kMartin), 1);
  test_support::RawDatabase other = sample_.Raw();
  WriteMeanwhile(other, "delete from qruprm");
  EXPECT_EQ(Read(data::SqlSelectUserPermIds(Sample::kMartin), 1), before);
  connection_->EndRead();
  other.Execute("delete from qruprm");
  EXPECT_TRUE(Read(data::SqlSelectUserPermIds(Sample::kMartin), 1).empty());
}

TEST_F(Transaction, EndWithoutBeginIsAnError) {
  EXPECT_EQ(NumberOf([&] { connection_->EndRead(); }), server::kReadNotBegun);
  connection_->BeginRead();
  connection_->EndRead();
  EXPECT_EQ(NumberOf([&] { connection_->EndRead(); }), server::kReadNotBegun);
}

TEST_F(Transaction, WritesInsideAreKept) {
  connection_->BeginRead();
  Read(data::SqlSelectUserGroups(Sample::kMartin), 3);
  EXPECT_EQ(connection_->Execute(data::SqlDeleteUserPermissions(Sample::kMartin)), 2);
  const std::int32_t id = server_->NewIdentifier(L"QRUSRN");
  connection_->EndRead();
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruprm where userid = 9"), 0);
  EXPECT_EQ(server_->NewIdentifier(L"QRUSRN"), id + 1);
}

TEST_F(Transaction, AWriteThatFailsInsideLeavesTheReadsAsTheyAre) {
  connection_->BeginRead();
  const auto before = Read(data::SqlSelectUserGroupIds(Sample::kMartin), 1);
  const auto set =
      connection_->OpenResultSet(data::SqlSelectMembership(Sample::kProduction, Sample::kMartin));
  set->AddNew();
  set->SetColumn(L"USERID", 9);
  set->SetColumn(L"GROUPID", 7);
  EXPECT_EQ(NumberOf([&] { set->Update(); }), server::kDatabaseError);
  EXPECT_EQ(Read(data::SqlSelectUserGroupIds(Sample::kMartin), 1), before);
  EXPECT_EQ(connection_->Execute(data::SqlDeleteUserPermissions(Sample::kMartin)), 2);
  connection_->EndRead();
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruprm where userid = 9"), 0);
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
  const auto before = ReadRows(*second, data::SqlSelectUserPermIds(Sample::kMartin), 1);
  test_support::RawDatabase other = sample_.Raw();
  WriteMeanwhile(other, "delete from qruprm");
  EXPECT_EQ(ReadRows(*second, data::SqlSelectUserPermIds(Sample::kMartin), 1), before);
  EXPECT_EQ(NumberOf([&] { connection_->EndRead(); }), server::kReadNotBegun);
  second->EndRead();
  other.Execute("delete from qruprm");
  EXPECT_TRUE(Read(data::SqlSelectUserPermIds(Sample::kMartin), 1).empty());
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
}  // namespace server_test

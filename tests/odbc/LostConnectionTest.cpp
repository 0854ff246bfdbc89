#include <chrono>
#include <thread>

#include "OnTwoHosts.h"
#include "data/MSQLStatement.h"
#include "server/core/Errors.h"
#include "server/core/sql/Query.h"

namespace odbc_test {
namespace {

using test_support::Forwarder;

class LostConnection : public odbc_test::OnTwoHosts {};

TEST_F(LostConnection, IsFoundAgainOnTheSameHost) {
  Open();
  second_.Cut();
  const int users = Rows(data::SqlSelectAllUsers());
  const int port = first_.Port();
  first_.Cut();
  const Forwarder again(ServerPort(), {}, port);
  EXPECT_EQ(Rows(data::SqlSelectAllUsers()), users);
  EXPECT_EQ(connection_->Execute(data::SqlDeleteUserPermissions(9)), 2);
}

TEST_F(LostConnection, IsFoundAgainOnTheNextHost) {
  Open();
  const int users = Rows(data::SqlSelectAllUsers());
  first_.Cut();
  EXPECT_EQ(Rows(data::SqlSelectAllUsers()), users);
}

TEST_F(LostConnection, IsFoundAgainBeforeAWriteThatWasNotSent) {
  Open();
  first_.Cut();
  EXPECT_EQ(connection_->Execute(data::SqlDeleteUserPermissions(9)), 2);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruprm where userid = 9"), 0);
}

TEST_F(LostConnection, IsFoundAgainBeforeAnIdentifierIsDrawn) {
  Open();
  const std::int32_t before = server_->NewIdentifier(L"QRUSRN");
  first_.Cut();
  EXPECT_EQ(server_->NewIdentifier(L"QRUSRN"), before + 1);
}

TEST_F(LostConnection, EndsAReadingTransactionAndIsFoundAgainAfterIt) {
  Open();
  const int users = Rows(data::SqlSelectAllUsers());
  connection_->BeginRead();
  EXPECT_EQ(Rows(data::SqlSelectAllUsers()), users);
  first_.Cut();
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(NumberOf([this] { Rows(data::SqlSelectAllUsers()); }), server::kDatabaseError);
  }
  EXPECT_EQ(NumberOf([this] { connection_->EndRead(); }), server::kDatabaseError);
  EXPECT_EQ(Rows(data::SqlSelectAllUsers()), users);
  connection_->BeginRead();
  EXPECT_EQ(Rows(data::SqlSelectAllUsers()), users);
  connection_->EndRead();
}

TEST_F(LostConnection, DuringAWriteIsToldAsSuch) {
  Open();
  const auto other = sample_.Engine();
  long number = 0;
  std::thread writer;
  {
    server::WriteTransaction transaction(*other);
    server::Run(*other, "UPDATE QRUSER SET FULLNAME = NAME WHERE USERID = 9");
    writer = std::thread([&] {
      number = NumberOf([this] { connection_->Execute(data::SqlMarkUserDeleted(L"Martin", 9)); });
    });
    EXPECT_TRUE(SomebodyWaits());
    first_.Cut();
    writer.join();
  }
  EXPECT_EQ(number, server::kWriteUncertain);
  EXPECT_GT(Rows(data::SqlSelectAllUsers()), 30);
}

TEST_F(LostConnection, WithoutAnyHostLeftIsToldAndFoundAgainLater) {
  Open();
  const int users = Rows(data::SqlSelectAllUsers());
  const int port = second_.Port();
  first_.Cut();
  second_.Cut();
  EXPECT_EQ(NumberOf([this] { Rows(data::SqlSelectAllUsers()); }), server::kDatabaseError);
  EXPECT_EQ(NumberOf([this] { connection_->Execute(data::SqlDeleteUserPermissions(9)); }),
            server::kDatabaseError);
  const Forwarder again(ServerPort(), {}, port);
  EXPECT_EQ(Rows(data::SqlSelectAllUsers()), users);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruprm where userid = 9"), 2);
}

TEST_F(LostConnection, AHostThatHangsGivesWayToTheNext) {
  first_.Hang();
  const auto start = std::chrono::steady_clock::now();
  Open("connect-time = 2\n");
  EXPECT_GT(Rows(data::SqlSelectAllUsers()), 30);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST_F(LostConnection, AStatementThatFailsLeavesTheReadingTransactionAsItIs) {
  // Whose session is not asked for a right, which the view that goes is part of.
  Open("", L"Petit");
  sample_.Raw().Execute("insert into qruprm (userid, permid) values (11, 3)");
  const std::int64_t links = sample_.Raw().Number("select count(*) from qruprm where userid = 11");
  connection_->BeginRead();
  EXPECT_EQ(Rows(data::SqlSelectUserPermRows(9)), 2);
  sample_.Raw().Execute("drop view qrusgpv");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(NumberOf([this] { Rows(data::SqlSelectInheritedPermissions(9)); }),
              server::kDatabaseError);
    sample_.Raw().Execute("delete from qruprm where userid = 9");
    EXPECT_EQ(Rows(data::SqlSelectUserPermRows(9)), 2);
  }
  EXPECT_EQ(connection_->Execute(data::SqlDeleteUserPermissions(11)), links);
  EXPECT_EQ(NumberOf([this] { Rows(data::SqlSelectInheritedPermissions(9)); }),
            server::kDatabaseError);
  connection_->EndRead();
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruprm where userid = 11"), 0);
}

}  // namespace
}  // namespace odbc_test

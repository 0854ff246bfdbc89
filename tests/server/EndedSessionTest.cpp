// A session that ends while a program works in it: the next write and the next reading transaction
// are refused with the session server's own message, and nothing is written.

#include "ServerTest.h"
#include "data/MSQLStatement.h"
#include "server/core/sessions/CommandLine.h"

namespace server_test {
namespace {

using test_support::Sample;

class EndedSession : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::wstring commandLine = sample_.CommandLine(L"Moreau");
    std::wstring sessionText;
    server_->ReadCommandLine(commandLine, sessionText, sessionId_);
    server_->OpenSession(sessionText, sessionId_);
    connection_ = server_->DatabaseConnection();
  }

  void CloseIt() {
    sample_.Raw().Execute("insert into qrausrx (sesid, closed) values (" +
                          std::to_string(sessionId_) + ", 1)");
    sample_.Raw().Execute("delete from qrausr where sesid = " + std::to_string(sessionId_));
  }

  // Every way in which a program writes, or begins to read, ends in this error.
  void ExpectAllRefused(long error) {
    const auto refused = [&](auto&& call) { EXPECT_EQ(FailureOf(call).Number(), error); };
    refused([&] { connection_->BeginRead(); });
    refused([&] { connection_->Execute(data::SqlDeleteUserMemberships(Sample::kMartin)); });
    refused([&] { connection_->Execute(data::SqlMarkUserDeleted(L"Martin", 9)); });
    refused([&] { server_->NewIdentifier(L"QRUSRN"); });
    const auto set = connection_->OpenResultSet(data::SqlSelectUser(Sample::kMartin));
    set->Edit();
    set->SetColumn(L"NAME", std::wstring(L"Autre"));
    refused([&] { set->Update(); });
    set->AddNew();
    set->SetColumn(L"USERID", 4711);
    set->SetColumn(L"NAME", std::wstring(L"Autre"));
    refused([&] { set->Update(); });
    EXPECT_EQ(sample_.Raw().Number("select count(*) from qrusgp where userid = 9"), 3);
    EXPECT_EQ(sample_.Raw().Text("select name from qruser where userid = 9"), "Martin");
    EXPECT_EQ(sample_.Raw().Number("select count(*) from qruser where userid = 4711"), 0);
  }

  test_support::SampleDatabase sample_;
  std::unique_ptr<server::ReferenceServer> server_ = sample_.MakeServer();
  std::unique_ptr<data::Connection> connection_;
  std::int32_t sessionId_ = 0;
};

TEST_F(EndedSession, WritesAsLongAsItIsOpen) {
  connection_->BeginRead();
  connection_->EndRead();
  EXPECT_EQ(connection_->Execute(data::SqlDeleteUserMemberships(Sample::kMartin)), 3);
}

TEST_F(EndedSession, IsRefusedOnceItWasClosed) {
  CloseIt();
  ExpectAllRefused(server::kSessionClosed);
  EXPECT_NE(FailureOf([&] { connection_->BeginRead(); }).Text().find(L"est fermée"),
            std::wstring::npos);
}

TEST_F(EndedSession, IsRefusedOnceItsUserWasDeleted) {
  sample_.Raw().Execute("update qruser set name = 'Moreau(2)', vflg = 'D' where userid = 2");
  ExpectAllRefused(server::kSessionUserGone);
}

TEST_F(EndedSession, IsRefusedOnceItsUserWasPutOutOfHisGroup) {
  sample_.Raw().Execute("delete from qrusgp where userid = 2 and groupid = 1");
  ExpectAllRefused(server::kSessionRightLost);
  EXPECT_NE(FailureOf([&] { connection_->BeginRead(); }).Text().find(L"n'a plus le droit"),
            std::wstring::npos);
}

TEST_F(EndedSession, IsRefusedOnceItsUsersGroupWasDeletedOrLostTheRight) {
  sample_.Raw().Execute("delete from qrgprm where groupid = 1 and permid = 1");
  ExpectAllRefused(server::kSessionRightLost);
  sample_.Raw().Execute("insert into qrgprm (groupid, permid) values (1, 1)");
  connection_->BeginRead();
  connection_->EndRead();
  sample_.Raw().Execute("update qrgroup set name = 'x(1)', vflg = 'D' where groupid = 1");
  ExpectAllRefused(server::kSessionRightLost);
}

// A save takes all memberships away and writes them again, those of the session's user too.
TEST_F(EndedSession, GoesOnWhereItTookItsOwnRightAway) {
  const auto memberships = connection_->OpenResultSet(data::SqlSelectUserMemberships(2));
  EXPECT_GT(connection_->Execute(data::SqlDeleteUserMemberships(2)), 0);
  memberships->AddNew();
  memberships->SetColumn(L"USERID", 2);
  memberships->SetColumn(L"GROUPID", 1);
  memberships->Update();
  connection_->BeginRead();
  connection_->EndRead();
  sample_.Raw().Execute("delete from qrusgp where userid = 2 and groupid = 1");
  ExpectAllRefused(server::kSessionRightLost);
}

TEST_F(EndedSession, NeedsNoRightThatItDidNotHaveWhenItWasOpened) {
  const auto other = sample_.OpenServer(L"Petit");
  EXPECT_EQ(other->GetRights() & 4, 0);
  EXPECT_EQ(other->DatabaseConnection()->Execute(data::SqlDeleteUserMemberships(Sample::kMartin)),
            3);
}

TEST_F(EndedSession, LeavesNoTransactionOpen) {
  CloseIt();
  EXPECT_THROW(connection_->BeginRead(), data::RunTimeError);
  sample_.Raw().Execute("update qruser set fullname = 'x' where userid = 9");
  EXPECT_EQ(connection_->OpenResultSet(data::SqlSelectUser(Sample::kMartin))->Column(2).Text(),
            L"x");
}

}  // namespace
}  // namespace server_test

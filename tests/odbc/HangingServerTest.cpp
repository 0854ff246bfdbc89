// A server that hangs: its host is there and takes what it is sent, and nobody answers.

#include <csignal>

#include "OnTwoHosts.h"
#include "data/MSQLStatement.h"
#include "server/core/Errors.h"
#include "server/core/sql/Query.h"

namespace {

using std::chrono::seconds;

class HangingServer : public odbc_test::OnTwoHosts {
 protected:
  HangingServer() { Open("connect-time = 2\nstatement-time = 1\n"); }
  ~HangingServer() override { first_.GoOn(); }

  // The time that was set, what drivers and the session server wait beyond it, and a slow machine.
  static constexpr seconds kPatience{30};
};

TEST_F(HangingServer, GivesWayToTheNextHost) {
  const int users = Rows(data::SqlSelectAllUsers());
  first_.Hang();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Rows(data::SqlSelectAllUsers()), users);
  EXPECT_LT(std::chrono::steady_clock::now() - start, kPatience);
  EXPECT_EQ(connection_->Execute(data::SqlDeleteUserPermissions(9)), 2);
}

TEST_F(HangingServer, LeavesItOpenWhetherAWriteWasDone) {
  const auto other = sample_.Engine();
  server::WriteTransaction transaction(*other);
  server::Run(*other, "UPDATE QRUSER SET FULLNAME = NAME WHERE USERID = 9");
  long number = 0;
  std::thread writer([&] {
    number = NumberOf([this] { connection_->Execute(data::SqlMarkUserDeleted(L"Martin", 9)); });
  });
  EXPECT_TRUE(SomebodyWaits());
  first_.Hang();
  writer.join();
  EXPECT_EQ(number, server::kWriteUncertain);
  transaction.Commit();
  EXPECT_GT(Rows(data::SqlSelectAllUsers()), 30);
}

TEST_F(HangingServer, EndsAReadingTransactionThatIsFoundAgainAfterIt) {
  connection_->BeginRead();
  const int users = Rows(data::SqlSelectAllUsers());
  first_.Hang();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(NumberOf([this] { Rows(data::SqlSelectAllGroups()); }), server::kDatabaseError);
  EXPECT_EQ(NumberOf([this] { Rows(data::SqlSelectAllGroups()); }), server::kDatabaseError);
  EXPECT_EQ(NumberOf([this] { connection_->EndRead(); }), server::kDatabaseError);
  EXPECT_EQ(Rows(data::SqlSelectAllUsers()), users);
  EXPECT_LT(std::chrono::steady_clock::now() - start, kPatience);
}

// PostgreSQL has a process for each connection, which alone is stopped here. What it was told is
// not lost on it: it does that as soon as it goes on, and the user was told to look.
TEST_F(HangingServer, ThatIsStoppedInsteadOfItsNetworkIsGivenUpToo) {
  if (!OnPostgresql()) return;  // whose server has one process for all tests
  const auto process = static_cast<pid_t>(sample_.Raw().Number(
      "select min(pid) from pg_stat_activity where datname = current_database() and pid <> "
      "pg_backend_pid()"));
  ASSERT_EQ(kill(process, SIGSTOP), 0);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(connection_->Execute(data::SqlDeleteUserPermissions(9)), 2);
  EXPECT_LT(std::chrono::steady_clock::now() - start, kPatience);
  EXPECT_EQ(kill(process, SIGCONT), 0);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruprm where userid = 9"), 0);
}

}  // namespace

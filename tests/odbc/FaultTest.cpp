// What goes wrong with a database server while a session is open: each has its plain message,
// nothing is half written, and the session goes on once things are right again.

#include <chrono>
#include <fstream>
#include <memory>

#include "OnServer.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/accounts/Crypto.h"
#include "server/core/accounts/Encoding.h"
#include "server/core/sql/Query.h"
#include "server/engines/Engines.h"

namespace odbc_test {
namespace {

using test_support::RawDatabase;

class DatabaseFault : public ::testing::Test {
 protected:
  static bool OnPostgresql() {
    return test_support::EngineUnderTest() == test_support::TestEngine::kPostgresql;
  }
  std::string DatabaseName() const {
    const std::string& text = sample_.Source().odbc->connectionString;
    return text.substr(text.find("Database=") + 9);
  }
  void Open(const std::string& lines = "") {
    std::ofstream(sample_.Home() / "sources" / "test.ini", std::ios::app) << lines;
    server_ = sample_.OpenServer();
    connection_ = server_->DatabaseConnection();
  }
  // The same as another user of the server.
  void OpenAs(const std::string& name, const std::string& password) {
    const std::wstring commandLine = sample_.CommandLine();
    std::string text = sample_.Source().odbc->connectionString;
    text.replace(text.find("Uid=vardex"), 10, "Uid=" + name);
    std::ofstream(sample_.Home() / "sources" / "test.ini", std::ios::app)
        << "odbc = " << text << "\n";
    std::ofstream(sample_.Home() / "keys" / "test.password") << password;
    server_ = sample_.MakeServer();
    std::wstring sessionText;
    std::int32_t sessionId = 0;
    server_->ReadCommandLine(commandLine, sessionText, sessionId);
    server_->OpenSession(sessionText, sessionId);
    connection_ = server_->DatabaseConnection();
  }
  // The text of the database error that a call ends in.
  template <class Call>
  static std::string TextOf(Call&& call) {
    try {
      call();
    } catch (const data::RunTimeError& error) {
      EXPECT_EQ(error.Number(), server::kDatabaseError);
      return data::ToUtf8(error.Text());
    }
    ADD_FAILURE() << "nothing went wrong";
    return {};
  }
  std::string TextOfWrite() {
    return TextOf([this] { connection_->Execute(data::SqlDeleteUserPermissions(9)); });
  }
  static bool Holds(const std::string& text, const std::string& piece) {
    return text.find(piece) != std::string::npos;
  }

  test_support::SampleDatabase sample_;
  std::unique_ptr<server::ReferenceServer> server_;
  std::unique_ptr<data::Connection> connection_;
};

TEST_F(DatabaseFault, APasswordThatWasChangedIsToldOnceTheConnectionIsLost) {
  const std::string name = "u" + server::ToHex(server::RandomBytes(6));
  const std::string account = OnPostgresql() ? name : name + "@'127.0.0.1'";
  const std::string secret = OnPostgresql() ? " password '" : " identified by '";
  RawDatabase raw = sample_.Raw();
  raw.Execute("create user " + account + secret + "First-2026'");
  if (OnPostgresql()) {
    raw.Execute("grant all on all tables in schema public to " + account);
  } else {
    raw.Execute("grant all on " + DatabaseName() + ".* to " + account);
  }
  OpenAs(name, "First-2026");
  raw.Execute("alter user " + account + secret + "Second-2026'");
  if (OnPostgresql()) {
    raw.Execute("select pg_terminate_backend(pid) from pg_stat_activity where usename = '" + name +
                "'");
  } else {
    raw.Execute("kill user " + account);
  }
  const std::string told = TextOfWrite();
  EXPECT_TRUE(Holds(told, OnPostgresql() ? "password authentication failed" : "Access denied"))
      << told;
  EXPECT_FALSE(Holds(told, "First-2026")) << told;
  EXPECT_EQ(raw.Number("select count(*) from qruprm where userid = 9"), 2);
  raw.Execute("alter user " + account + secret + "First-2026'");
  EXPECT_EQ(connection_->Execute(data::SqlDeleteUserPermissions(9)), 2);
}

TEST_F(DatabaseFault, ADatabaseThatWasDroppedIsToldByTheServer) {
  Open();
  const std::string name = DatabaseName();
  server::DataSource other = sample_.Source();
  std::string& text = other.odbc->connectionString;
  text.replace(text.find(name), name.size(), OnPostgresql() ? "postgres" : "mysql");
  RawDatabase(other).Execute("drop database " + name + (OnPostgresql() ? " with (force)" : ""));
  const std::string told = TextOfWrite();
  EXPECT_TRUE(Holds(told, OnPostgresql() ? "does not exist" : "doesn't exist") ||
              Holds(told, "No database selected"))
      << told;
}

TEST_F(DatabaseFault, ASchemaOfAnotherVersionIsToldByTheServerAndNothingIsWritten) {
  Open();
  sample_.Raw().Execute("alter table qrperm drop column rights");
  const std::string told = TextOfWrite();
  EXPECT_TRUE(Holds(told, OnPostgresql() ? "qrperm.rights does not exist" : "Unknown column"))
      << told;
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qruprm where userid = 9"), 2);
}

TEST_F(DatabaseFault, ATableThatIsLockedIsWaitedForAsLongAsAStatementMayTake) {
  Open("statement-time = 1\n");
  RawDatabase other = sample_.Raw();
  other.Execute(OnPostgresql() ? "begin; lock table qruprm in access exclusive mode"
                               : "lock tables qruprm write");
  const auto start = std::chrono::steady_clock::now();
  const std::string told = TextOfWrite();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  EXPECT_TRUE(Holds(told, OnPostgresql() ? "statement timeout" : "max_statement_time")) << told;
  other.Execute(OnPostgresql() ? "rollback" : "unlock tables");
  EXPECT_EQ(connection_->Execute(data::SqlDeleteUserPermissions(9)), 2);
}

}  // namespace
}  // namespace odbc_test

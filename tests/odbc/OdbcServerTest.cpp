#include <fstream>
#include <iterator>

#include "OnServer.h"
#include "data/Text.h"
#include "server/core/Errors.h"
#include "server/core/sessions/CommandLine.h"
#include "server/core/sessions/ReferenceServer.h"
#include "server/core/sql/Query.h"
#include "server/engines/Engines.h"
#include "server/engines/odbc/OdbcEngine.h"

namespace odbc_test {
namespace {

using test_support::ServerDatabase;
using test_support::TestEngine;

class Odbc : public OnServer {
 protected:
  server::OdbcTarget Target() const {
    server::OdbcTarget target;
    target.connectionString = database_.Description().connectionString;
    target.password = ServerDatabase::Password();
    return target;
  }
};

TEST_F(Odbc, TheToolTakesAnEmptyDatabaseToAnOpenSession) {
  ASSERT_EQ(Create(), 0) << errors_;
  ASSERT_EQ(Run({"fill-sample", "--source", "demo"}), 0) << errors_;
  ASSERT_EQ(Run({"open-session", "--source", "demo", "--user", "Admin", "--password-stdin"},
                "Vardex-2026\n"),
            0)
      << errors_;
  const auto session = server::ParseCommandLine(data::FromUtf8(out_));
  server::ReferenceServer server({server::OpenEngine, home_});
  server.OpenSession(server::FormatSessionText(session), session.sessionId);
  EXPECT_EQ(server.GetRights(), 7);
}

TEST_F(Odbc, ADatabaseThatHoldsASchemaIsLeftAsItIs) {
  ASSERT_EQ(Create(), 0) << errors_;
  ASSERT_EQ(Run({"fill-sample", "--source", "demo"}), 0) << errors_;
  EXPECT_EQ(Create("other"), 1);
  EXPECT_NE(errors_.find("the database is not empty: it holds QR"), std::string::npos) << errors_;
  EXPECT_EQ(Run({"list-sessions", "--source", "other"}), 1);
  EXPECT_EQ(errors_, "vardexctl: no such data source\n");
  EXPECT_EQ(
      Run({"open-session", "--source", "demo", "--user", "Admin", "--password", "Vardex-2026"}), 0)
      << errors_;
}

TEST_F(Odbc, AWrongPasswordIsToldByTheDriverAndShownToNobody) {
  const std::string wrong = "not-the-Password}1;";
  EXPECT_EQ(Run({"create-database", "--source", "demo", "--odbc",
                 database_.Description().connectionString, "--password-stdin"},
                wrong + "\n"),
            1);
  const bool postgresql = test_support::EngineUnderTest() == TestEngine::kPostgresql;
  EXPECT_TRUE(errors_.starts_with(postgresql ? "vardexctl: 08001: " : "vardexctl: 28000: "))
      << errors_;
  EXPECT_EQ(errors_.find(wrong), std::string::npos) << errors_;
  EXPECT_FALSE(std::filesystem::exists(home_ / "sources" / "demo.ini"));
}

TEST_F(Odbc, ThePasswordIsKeptForItsReadersAlone) {
  ASSERT_EQ(Create(), 0) << errors_;
  const std::filesystem::path file = home_ / "keys" / "demo.password";
  EXPECT_EQ(std::filesystem::status(file).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  std::ifstream description(home_ / "sources" / "demo.ini");
  const std::string text((std::istreambuf_iterator<char>(description)), {});
  EXPECT_EQ(text.find(ServerDatabase::Password()), std::string::npos) << text;
  std::filesystem::remove(file);
  EXPECT_EQ(Run({"list-sessions", "--source", "demo"}), 1);
  EXPECT_EQ(errors_,
            "vardexctl: the file with the database's password is missing or cannot be read or "
            "written\n");
}

TEST_F(Odbc, AStatementThatTakesTooLongIsEndedByTheDatabase) {
  server::OdbcTarget target = Target();
  target.statementTime = std::chrono::seconds(1);
  server::OdbcEngine engine(target);
  const bool postgresql = test_support::EngineUnderTest() == TestEngine::kPostgresql;
  const auto start = std::chrono::steady_clock::now();
  try {
    server::Run(engine, postgresql ? "SELECT pg_sleep(30)" : "SELECT SLEEP(30)");
    ADD_FAILURE() << "the statement was not ended";
  } catch (const data::RunTimeError& error) {
    EXPECT_EQ(error.Number(), server::kDatabaseError);
    EXPECT_NE(error.Text().find(postgresql ? L"57014" : L"max_statement_time"), std::wstring::npos);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST_F(Odbc, TextsOfEveryLengthComeBackWholeFromOneSet) {
  server::OdbcEngine engine(Target());
  engine.CreateSchema();
  server::Query insert(engine, "INSERT INTO QRUSER (USERID, NAME) VALUES (?, ?)");
  std::vector<std::string> names;
  for (const char* const letter : {"x", "ÿ", "€", "😀"}) {
    for (const int length : {0, 1, 63, 64, 127, 128, 255, 256, 257, 4000, 4001, 16000}) {
      std::string& name = names.emplace_back();
      for (int i = 0; i < length; ++i) name += letter;
      insert.Run(names.size(), name);
    }
  }
  server::Query select(engine, "SELECT USERID, NAME FROM QRUSER ORDER BY USERID");
  for (int round = 0; round < 2; ++round) {
    select.Bind();
    for (std::size_t i = 0; i < names.size(); ++i) {
      ASSERT_TRUE(select.Next()) << i;
      EXPECT_EQ(select.Number(0), static_cast<std::int64_t>(i + 1));
      EXPECT_EQ(select.Text(1), names[i]) << i;
    }
    EXPECT_FALSE(select.Next());
  }
}

TEST_F(Odbc, NamesAreTheSameOnlyLetterForLetter) {
  server::OdbcEngine engine(Target());
  engine.CreateSchema();
  server::Run(engine, "INSERT INTO QRUSER (USERID, NAME) VALUES (?, ?)", 1,
              std::string_view("Ève "));
  server::Query find(engine, "SELECT USERID FROM QRUSERV WHERE NAME = ?");
  EXPECT_TRUE(find.Bind(std::string_view("Ève ")).Next());
  for (const char* const name : {"Ève", "Eve ", "ève ", "Ève  ", " Ève "}) {
    EXPECT_FALSE(find.Bind(std::string_view(name)).Next()) << name;
  }
}

TEST_F(Odbc, AnUpdateCountsTheRowsThatItMeetsChangedOrNot) {
  server::OdbcEngine engine(Target());
  engine.CreateSchema();
  server::Run(engine, "INSERT INTO QRUSER (USERID, NAME) VALUES (1, 'a')");
  server::Query update(engine, "UPDATE QRUSER SET NAME = ? WHERE USERID = ?");
  update.Run(std::string_view("a"), 1);
  EXPECT_EQ(engine.RowsAffected(), 1);
  update.Run(std::string_view("a"), 2);
  EXPECT_EQ(engine.RowsAffected(), 0);
}

}  // namespace
}  // namespace odbc_test

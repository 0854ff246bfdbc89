#include <fstream>
#include <iterator>

#include "OnServer.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "server/core/accounts/Crypto.h"
#include "server/core/accounts/Encoding.h"
#include "server/core/sessions/CommandLine.h"
#include "server/engines/Engines.h"

namespace odbc_test {
namespace {

using test_support::RawDatabase;
using test_support::ServerDatabase;

class SourceCommand : public OnServer {
 protected:
  void SetUp() override {
    ASSERT_EQ(Create(), 0) << errors_;
    ASSERT_EQ(Run({"fill-sample", "--source", "demo"}), 0) << errors_;
  }
  std::string Trouble() {
    EXPECT_EQ(Run({"check", "--source", "demo"}), 1);
    EXPECT_EQ(out_, "");
    return errors_;
  }
  // Replaces a piece of the source's description.
  void Describe(const std::string& piece, const std::string& by) {
    const std::filesystem::path file = home_ / "sources" / "demo.ini";
    std::ifstream in(file);
    std::string text((std::istreambuf_iterator<char>(in)), {});
    const std::size_t place = text.find(piece);
    ASSERT_NE(place, std::string::npos) << text;
    text.replace(place, piece.size(), by);
    std::ofstream(file) << text;
  }
  void SetPassword(const std::string& password) {
    std::ofstream(home_ / "keys" / "demo.password") << password;
  }
  // The account of a new user of the database server, as GRANT has it.
  std::string AddServerUser(const std::string& name, const std::string& password) {
    if (OnPostgresql()) {
      Raw().Execute("create user " + name + " password '" + password + "'");
      return name;
    }
    Raw().Execute("create user " + name + "@'127.0.0.1' identified by '" + password + "'");
    return name + "@'127.0.0.1'";
  }
  void BecomeServerUser(const std::string& name, const std::string& password) {
    Describe("Uid=vardex", "Uid=" + name);
    SetPassword(password);
  }
};

TEST_F(SourceCommand, ASoundSourceIsInOrder) {
  EXPECT_EQ(Run({"check", "--source", "demo"}), 0) << errors_;
  EXPECT_EQ(out_, "data source demo is in order\n");
}

TEST_F(SourceCommand, AWrongPasswordIsToldAsSuch) {
  SetPassword("wrong-Secret-1");
  const std::string trouble = Trouble();
  EXPECT_TRUE(trouble.starts_with("vardexctl: the database refuses the user or the password: "))
      << trouble;
  EXPECT_EQ(trouble.find("wrong-Secret-1"), std::string::npos) << trouble;
}

TEST_F(SourceCommand, AServerThatIsNotThereIsToldAsSuch) {
  Describe("Port=", "Port=1;Ignored=");
  EXPECT_TRUE(Trouble().starts_with("vardexctl: the database cannot be reached: ")) << errors_;
}

TEST_F(SourceCommand, ADatabaseThatIsNotThereIsToldAsSuch) {
  Describe("Database=t", "Database=no_t");
  EXPECT_TRUE(Trouble().starts_with("vardexctl: the database does not exist: ")) << errors_;
}

TEST_F(SourceCommand, AMissingSchemaIsToldAsSuch) {
  Raw().Execute("drop table qrdisplay");
  EXPECT_TRUE(Trouble().starts_with("vardexctl: the database holds no schema, or only a part"))
      << errors_;
}

TEST_F(SourceCommand, ASchemaOfAnotherVersionIsToldAsSuch) {
  Raw().Execute("alter table qrdisplay drop column mapped");
  EXPECT_TRUE(Trouble().starts_with("vardexctl: the schema is of another version: ")) << errors_;
}

TEST_F(SourceCommand, AUserWithTheRightsPrintedDoesAllThatTheServerDoesAndNoMore) {
  const std::string name = "u" + server::ToHex(server::RandomBytes(6));
  const std::string account = AddServerUser(name, "Narrow-2026");
  ASSERT_EQ(Run({"grants", "--to", account}), 0) << errors_;
  Raw().Execute(out_.substr(0, out_.rfind(';')));
  BecomeServerUser(name, "Narrow-2026");
  EXPECT_EQ(Run({"check", "--source", "demo"}), 0) << errors_;
  ASSERT_EQ(OpenSession(), 0) << errors_;
  const auto session = server::ParseCommandLine(data::FromUtf8(out_));
  server::ReferenceServer server({server::OpenEngine, home_});
  server.OpenSession(server::FormatSessionText(session), session.sessionId);
  const auto connection = server.DatabaseConnection();
  EXPECT_EQ(connection->Execute(data::SqlDeleteUserPermissions(9)), 2);
  EXPECT_EQ(connection->Execute(data::SqlMarkUserDeleted(L"Martin", 9)), 1);
  EXPECT_GT(server.NewIdentifier(L"QRUSRN"), 40);
  RawDatabase narrow(server::DataSources(home_).Find("demo"));
  for (const char* const statement :
       {"delete from qruser where userid = 9", "update qrperm set rights = 7",
        "insert into qrperm (permid, name) values (99, 'x')", "drop table qrusgp",
        "delete from qrcounter", "create table qrmore (id integer)"}) {
    EXPECT_THROW(narrow.Execute(statement), std::runtime_error) << statement;
  }
}

TEST_F(SourceCommand, AMissingRightIsToldAsSuch) {
  const std::string name = "u" + server::ToHex(server::RandomBytes(6));
  const std::string account = AddServerUser(name, "Narrow-2026");
  Raw().Execute("grant select on qruser to " + account);
  BecomeServerUser(name, "Narrow-2026");
  EXPECT_TRUE(Trouble().starts_with("vardexctl: the database's user lacks a right")) << errors_;
}

// Everything that a copy takes along but the passwords, which have another key there.
std::vector<std::vector<std::string>> Contents(RawDatabase raw) {
  std::vector<std::vector<std::string>> rows;
  for (const char* const question : {"select userid, name, fullname, vflg from qruser order by 1",
                                     "select groupid, name, descr, vflg from qrgroup order by 1",
                                     "select permid, name, rights from qrperm order by 1",
                                     "select userid, groupid from qrusgp order by 1, 2",
                                     "select userid, permid from qruprm order by 1, 2",
                                     "select groupid, permid from qrgprm order by 1, 2",
                                     "select code, given, mapped from qrdisplay order by 2",
                                     "select name, lastvalue from qrcounter order by 2"}) {
    for (auto& row : raw.Rows(question)) rows.push_back(std::move(row));
  }
  return rows;
}

TEST_F(SourceCommand, AFileGrowsIntoADatabaseServerAndBack) {
  const std::string file = server::PathToUtf8(home_ / "small.db");
  ASSERT_EQ(Run({"create-database", "--source", "small", "--file", file}), 0) << errors_;
  ASSERT_EQ(Run({"copy", "--from", "demo", "--to", "small"}), 0) << errors_;
  EXPECT_EQ(Contents(Raw("small")), Contents(Raw()));
  EXPECT_EQ(OpenSession("small"), 0) << errors_;
  EXPECT_EQ(Run({"copy", "--from", "demo", "--to", "small"}), 1);
  EXPECT_EQ(errors_, "vardexctl: the database of small holds accounts already\n");

  const ServerDatabase other;
  ASSERT_EQ(Run({"create-database", "--source", "large", "--odbc",
                 other.Description().connectionString, "--password-stdin"},
                ServerDatabase::Password()),
            0)
      << errors_;
  ASSERT_EQ(Run({"copy", "--from", "small", "--to", "large"}), 0) << errors_;
  EXPECT_EQ(Contents(Raw("large")), Contents(Raw()));
  EXPECT_EQ(OpenSession("large"), 0) << errors_;
}

}  // namespace
}  // namespace odbc_test

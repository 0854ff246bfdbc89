#include "server/tool/Tool.h"

#include <sstream>

#include "ServerTest.h"
#include "data/Text.h"
#include "server/core/sessions/CommandLine.h"
#include "server/engines/Engines.h"

namespace server_test {
namespace {

// The tool with a folder of its own; output and errors of the last call are kept.
class Tool : public ::testing::Test {
 protected:
  ~Tool() override {
    std::error_code ignored;
    std::filesystem::remove_all(home_, ignored);
  }

  int Run(std::vector<std::string> words, const std::string& input = "") {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream errors;
    const int code = tool::RunTool(words, {home_, in, out, errors});
    out_ = out.str();
    errors_ = errors.str();
    return code;
  }
  std::string File(const std::string& name = "demo.db") const {
    return server::PathToUtf8(home_ / name);
  }
  void MakeSample() {
    ASSERT_EQ(Run({"create-database", "--source", "demo", "--file", File()}), 0) << errors_;
    ASSERT_EQ(Run({"fill-sample", "--source=demo"}), 0) << errors_;
  }
  int OpenSession(const std::string& user = "Admin", const std::string& password = "Vardex-2026") {
    return Run({"open-session", "--source", "demo", "--user", user, "--password", password});
  }
  test_support::RawDatabase Raw() const { return test_support::RawDatabase(home_ / "demo.db"); }

  std::filesystem::path home_ = test_support::MakeTestFolder();
  std::string out_;
  std::string errors_;
};

TEST_F(Tool, OpensASessionThatTheServerTakes) {
  MakeSample();
  ASSERT_EQ(OpenSession(), 0) << errors_;
  const auto session = server::ParseCommandLine(data::FromUtf8(out_));
  EXPECT_EQ(out_, server::FormatCommandLine(session) + "\n");
  server::ReferenceServer server({server::OpenEngine, home_});
  server.OpenSession(server::FormatSessionText(session), session.sessionId);
  EXPECT_EQ(server.GetRights(), 7);
}

TEST_F(Tool, CreatesNothingForAGroupThatNobodyKnows) {
  EXPECT_EQ(Run({"create-database", "--source", "demo", "--file", File(), "--administrators",
                 "no such group, I hope"}),
            1);
  EXPECT_EQ(errors_, "vardexctl: nobody knows a group no such group, I hope\n");
  EXPECT_FALSE(std::filesystem::exists(File()));
  EXPECT_FALSE(std::filesystem::exists(home_ / "keys"));
}

TEST_F(Tool, ReadsThePasswordFromItsInput) {
  MakeSample();
  const std::vector<std::string> words{"open-session", "--source", "demo",
                                       "--user",       "Admin",    "--password-stdin"};
  EXPECT_EQ(Run(words, "Vardex-2026\n"), 0);
  EXPECT_EQ(Run(words, "Vardex-2026\r\nmore\n"), 0);
  EXPECT_EQ(Run(words, "Vardex-2026"), 0);
  EXPECT_EQ(Run(words, ""), 1);
}

TEST_F(Tool, TellsNothingAboutWhyALoginIsRefused) {
  MakeSample();
  for (const auto& [user, password] :
       {std::pair("Admin", "vardex-2026"), std::pair("Admin", ""),
        std::pair("Personne", "Vardex-2026"), std::pair("Stagiaire", ""),
        std::pair("Garnier(17)", "Vardex-2026")}) {
    EXPECT_EQ(OpenSession(user, password), 1) << user;
    EXPECT_EQ(errors_, "vardexctl: wrong user or password\n");
    EXPECT_EQ(out_, "");
  }
  EXPECT_EQ(Raw().Number("select count(*) from qrausr"), 0);
}

TEST_F(Tool, ListsAndClosesSessions) {
  MakeSample();
  ASSERT_EQ(OpenSession(), 0);
  const auto session = server::ParseCommandLine(data::FromUtf8(out_));
  const std::string number = std::to_string(session.sessionId);
  ASSERT_EQ(Run({"list-sessions", "--source", "demo"}), 0);
  EXPECT_TRUE(out_.starts_with(number + "\tAdmin\t20")) << out_;
  EXPECT_EQ(Run({"close-session", "--source", "demo", "--session", number}), 0);
  EXPECT_EQ(Run({"list-sessions", "--source", "demo"}), 0);
  EXPECT_EQ(out_, "");
  EXPECT_EQ(Run({"close-session", "--source", "demo", "--session", number}), 1);
  EXPECT_EQ(errors_, "vardexctl: the session is closed already\n");
}

TEST_F(Tool, ClosesAllSessionsOfAUser) {
  MakeSample();
  ASSERT_EQ(OpenSession(), 0) << errors_;
  ASSERT_EQ(OpenSession(), 0) << errors_;
  ASSERT_EQ(OpenSession("Martin"), 0) << errors_;
  const std::vector<std::string> close{"close-session", "--source", "demo", "--user", "Admin"};
  EXPECT_EQ(Run(close), 0) << errors_;
  EXPECT_EQ(Run({"list-sessions", "--source", "demo"}), 0);
  EXPECT_NE(out_.find("\tMartin\t"), std::string::npos) << out_;
  EXPECT_EQ(out_.find("\tAdmin\t"), std::string::npos) << out_;
  EXPECT_EQ(Run(close), 1);
  EXPECT_EQ(errors_, "vardexctl: that user has no open session\n");
}

TEST_F(Tool, ReplacesADatabaseOnlyByForce) {
  MakeSample();
  const std::vector<std::string> again{"create-database", "--source", "demo", "--file", File()};
  EXPECT_EQ(Run(again), 1);
  EXPECT_NE(errors_.find("--force"), std::string::npos);
  EXPECT_EQ(Run({"create-database", "--source", "other", "--file", File()}), 1);
  EXPECT_EQ(Raw().Number("select count(*) from qruser"), 40);
  std::vector<std::string> forced = again;
  forced.emplace_back("--force");
  EXPECT_EQ(Run(forced), 0) << errors_;
  EXPECT_EQ(Raw().Number("select count(*) from qruser"), 0);
}

TEST_F(Tool, FillsAnEmptyDatabaseOnly) {
  MakeSample();
  EXPECT_EQ(Run({"fill-sample", "--source", "demo"}), 1);
  EXPECT_EQ(Run({"fill-generated", "--source", "demo", "--users", "10"}), 1);
  EXPECT_EQ(errors_, "vardexctl: the database holds accounts already\n");
  EXPECT_EQ(Raw().Number("select count(*) from qruser"), 40);
}

TEST_F(Tool, FillsADatabaseWithAsManyAccountsAsAskedFor) {
  ASSERT_EQ(Run({"create-database", "--source", "demo", "--file", File()}), 0);
  ASSERT_EQ(Run({"fill-generated", "--source", "demo", "--users", "300", "--groups", "10",
                 "--permissions", "25"}),
            0)
      << errors_;
  EXPECT_EQ(Raw().Number("select count(*) from qruser"), 300);
  EXPECT_EQ(Raw().Number("select count(*) from qrgroup"), 10);
  EXPECT_EQ(Raw().Number("select count(*) from qrperm"), 25);
  EXPECT_EQ(OpenSession(), 0) << errors_;
}

TEST_F(Tool, AddsAnAdministratorToAnEmptyDatabase) {
  ASSERT_EQ(Run({"create-database", "--source", "demo", "--file", File()}), 0);
  const std::vector<std::string> words{"add-admin",  "--source", "demo",        "--user",   "Zoé",
                                       "--password", "s3cret",   "--full-name", "Zoé Faure"};
  ASSERT_EQ(Run(words), 0) << errors_;
  EXPECT_EQ(Run(words), 1);
  EXPECT_EQ(errors_, "vardexctl: there is a user of that name already\n");
  ASSERT_EQ(OpenSession("Zoé", "s3cret"), 0) << errors_;
  const auto session = server::ParseCommandLine(data::FromUtf8(out_));
  server::ReferenceServer server({server::OpenEngine, home_});
  server.OpenSession(server::FormatSessionText(session), session.sessionId);
  EXPECT_EQ(server.GetRights(), 4);
  EXPECT_EQ(server.GetSessionUserText(), L"Zoé (Zoé Faure)");
  EXPECT_EQ(Raw().Number("select count(*) from qrgroup"), 2);
}

TEST_F(Tool, AddsAnAdministratorToTheGroupsThatAreThere) {
  MakeSample();
  ASSERT_EQ(Run({"add-admin", "--source", "demo", "--user", "Nouvel", "--password", "s3cret"}), 0);
  EXPECT_EQ(Raw().Number("select count(*) from qrgroup"), 12);
  EXPECT_EQ(Raw().Text("select group_concat(groupid) from qrusgp where userid = 41"), "1,2");
  EXPECT_EQ(Raw().Text("select coalesce(fullname, 'none') from qruser where userid = 41"), "none");
}

TEST_F(Tool, TellsInOneLineHowItIsMisused) {
  const std::vector<std::vector<std::string>> calls = {
      {},
      {"frob"},
      {"--version"},
      {"create-database"},
      {"create-database", "--source", "demo"},
      {"create-database", "--source", "demo", "--file"},
      {"create-database", "--source", "a/b", "--file", "x"},
      {"create-database", "--source", "demo", "--file", ""},
      {"create-database", "--source", "demo", "--file", "x", "--force=yes"},
      {"fill-sample", "--source", "demo", "extra"},
      {"fill-sample", "--source", "demo", "--source", "demo"},
      {"fill-generated", "--source", "demo"},
      {"fill-generated", "--source", "demo", "--users", "0"},
      {"fill-generated", "--source", "demo", "--users", "many"},
      {"fill-generated", "--source", "demo", "--users", "10x"},
      {"fill-generated", "--source", "demo", "--users", "99999999999"},
      {"fill-generated", "--source", "demo", "--users", "10", "--groups", "1"},
      {"open-session", "--source", "demo", "--user", "Admin"},
      {"open-session", "--source", "demo", "--user", "Admin", "--password", "x",
       "--password-stdin"},
      {"add-admin", "--source", "demo", "--user", "", "--password", "x"},
      {"add-admin", "--source", "demo", "--user", " x", "--password", "x"},
      {"add-admin", "--source", "demo", "--user", "x", "--password", ""},
      {"close-session", "--source", "demo", "--session", "x"},
      {"close-session", "--source", "demo"},
      {"close-session", "--source", "demo", "--session", "1", "--user", "Admin"},
      {"register", "demo"},
  };
  for (const auto& words : calls) {
    EXPECT_EQ(Run(words), 2) << errors_;
    EXPECT_TRUE(errors_.starts_with("vardexctl: ")) << errors_;
    EXPECT_EQ(errors_.find('\n'), errors_.size() - 1) << errors_;
    EXPECT_EQ(out_, "");
  }
}

TEST_F(Tool, TellsInOneLineWhatFailed) {
  EXPECT_EQ(Run({"list-sessions", "--source", "demo"}), 1);
  EXPECT_EQ(errors_, "vardexctl: no such data source\n");
  MakeSample();
  EXPECT_EQ(Run({"close-session", "--source", "demo", "--session", "1"}), 1);
  EXPECT_EQ(errors_, "vardexctl: no such session\n");
  std::filesystem::remove(home_ / "demo.db");
  EXPECT_EQ(Run({"list-sessions", "--source", "demo"}), 1);
  EXPECT_EQ(errors_, "vardexctl: unable to open database file\n");
}

TEST_F(Tool, ExplainsItself) {
  EXPECT_EQ(Run({"--help"}), 0);
  for (const char* const command :
       {"create-database", "fill-sample", "fill-generated", "add-admin", "open-session",
        "list-sessions", "close-session", "check", "copy", "grants", "register", "unregister"}) {
    EXPECT_NE(out_.find(command), std::string::npos) << command;
  }
}

TEST_F(Tool, RegistersOnlyWhereThereIsSomethingToRegister) {
  EXPECT_EQ(Run({"register"}), 1);
  EXPECT_EQ(Run({"unregister", "--user"}), 1);
}

}  // namespace
}  // namespace server_test

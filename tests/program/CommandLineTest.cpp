// Command lines that name no session the program could attach to.

#include "data/Text.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

// The session server's numbers and texts, as its users are promised them.
constexpr long kCommandLineEmpty = -2147220991;
constexpr long kCommandLineUnreadable = -2147220990;
constexpr long kSourceUnknown = -2147220989;
constexpr long kSessionUnknown = -2147220987;
constexpr long kSessionClosed = -2147220986;
constexpr long kTokenWrong = -2147220985;

class CommandLine : public ProgramTest {
 protected:
  void SetUp() override {
    session_ = SampleSession();
    bytes_ = FileBytes(Box().File());
  }

  void ExpectFormLoadReport(const std::wstring& commandLine, long number,
                            const std::wstring& text) {
    const driver::Process& process = Start(commandLine);
    ExpectReport(Report(L"Form Load", number, text));
    EXPECT_FALSE(FindMainWindow(process.Id()));
    ExpectExit(1);
    EXPECT_TRUE(bytes_ == FileBytes(Box().File())) << "the database was written to";
  }

  std::wstring session_;
  std::string bytes_;
};

TEST_F(CommandLine, NoCommandLineIsReported) {
  ExpectFormLoadReport(L"", kCommandLineEmpty,
                       L"La ligne de commande ne désigne aucune session. Attendu : /source:NOM "
                       L"/token:JETON /session:NUMÉRO.");
}

TEST_F(CommandLine, AnUnreadableCommandLineIsReported) {
  ExpectFormLoadReport(L"/source:test /session:12", kCommandLineUnreadable,
                       L"La ligne de commande de la session est illisible : /token manquant.");
}

TEST_F(CommandLine, ASessionThatIsNoNumberIsReported) {
  ExpectFormLoadReport(
      L"/source:test /token:" + ArgumentOf(session_, L"token") + L" /session:12a",
      kCommandLineUnreadable,
      L"La ligne de commande de la session est illisible : /session n'est pas un numéro.");
}

TEST_F(CommandLine, AnUnknownDataSourceIsReported) {
  ExpectFormLoadReport(L"/source:autre /token:" + ArgumentOf(session_, L"token") + L" /session:" +
                           ArgumentOf(session_, L"session"),
                       kSourceUnknown, L"La source de données « autre » n'existe pas.");
}

TEST_F(CommandLine, AnUnknownSessionIsReported) {
  const std::wstring known = ArgumentOf(session_, L"session");
  const std::wstring unknown = known == L"12" ? L"13" : L"12";
  ExpectFormLoadReport(
      L"/source:test /token:" + ArgumentOf(session_, L"token") + L" /session:" + unknown,
      kSessionUnknown, L"La session " + unknown + L" n'existe pas.");
}

TEST_F(CommandLine, AWrongTokenIsReported) {
  std::wstring token = ArgumentOf(session_, L"token");
  token.front() = token.front() == L'0' ? L'1' : L'0';
  const std::wstring number = ArgumentOf(session_, L"session");
  ExpectFormLoadReport(L"/source:test /token:" + token + L" /session:" + number, kTokenWrong,
                       L"Le jeton présenté n'est pas celui de la session " + number + L".");
}

TEST_F(CommandLine, AClosedSessionIsReported) {
  Box().CloseSession(session_);
  bytes_ = FileBytes(Box().File());
  ExpectFormLoadReport(session_, kSessionClosed,
                       L"La session " + ArgumentOf(session_, L"session") +
                           L" est fermée. Ouvrez une nouvelle session.");
}

TEST_F(CommandLine, OtherArgumentsAndQuotesDoNotDisturb) {
  const std::wstring session = L"/verbose \"/source:test\" /token:" +
                               ArgumentOf(session_, L"token") + L" autre /SESSION:" +
                               ArgumentOf(session_, L"session");
  const MainWindow window = Open(session);
  EXPECT_GT(window.Tree(kUsersTab).Count(), 1);
}

}  // namespace
}  // namespace program

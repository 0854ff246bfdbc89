#include <fstream>
#include <iterator>

#include "ServerTest.h"
#include "data/MSQLStatement.h"
#include "data/Text.h"
#include "server/core/sessions/CommandLine.h"
#include "server/core/sessions/Sessions.h"

namespace server_test {
namespace {

using server::SessionArguments;

class Session : public ::testing::Test {
 protected:
  SessionArguments Start(std::wstring_view user = L"Admin") {
    return server::ParseCommandLine(sample_.CommandLine(user));
  }
  void Open(server::ReferenceServer& server, const SessionArguments& session) {
    server.OpenSession(server::FormatSessionText(session), session.sessionId);
  }
  std::wstring OpeningFailure(const SessionArguments& session, long number) {
    const auto server = sample_.MakeServer();
    const data::RunTimeError failure = FailureOf([&] { Open(*server, session); });
    EXPECT_EQ(failure.Number(), number);
    return failure.Text();
  }

  test_support::SampleDatabase sample_;
};

TEST_F(Session, IsOpenedWithTheCommandLineThatTheToolPrints) {
  const auto server = sample_.MakeServer();
  std::wstring text;
  std::int32_t id = 0;
  server->ReadCommandLine(L"uadmin.exe " + sample_.CommandLine(), text, id);
  server->OpenSession(text, id);
  EXPECT_GT(id, 0);
  EXPECT_EQ(server->GetRights(), 7);
}

TEST_F(Session, StandsInTheTableOfActiveSessionsWhileItIsOpen) {
  const SessionArguments session = Start(L"Moreau");
  const std::string row =
      "select userid from qrausr where sesid = " + std::to_string(session.sessionId);
  EXPECT_EQ(sample_.Raw().Number(row), 2);
  const auto engine = sample_.Engine();
  server::CloseUserSession(*engine, session.sessionId);
  EXPECT_TRUE(sample_.Raw().Rows(row).empty());
}

TEST_F(Session, OfUsersWhoAreNoAdministratorsLacksTheRight) {
  EXPECT_EQ(sample_.OpenServer(L"Martin")->GetRights(), 3);
  EXPECT_EQ(sample_.OpenServer(L"Stagiaire")->GetRights(), 3);
  EXPECT_EQ(sample_.OpenServer(L"Moreau")->GetRights(), 7);
}

TEST_F(Session, RightsAreJoinedFromOwnPermissionsAndThoseOfLivingGroups) {
  test_support::RawDatabase raw = sample_.Raw();
  const auto server = sample_.OpenServer(L"Stagiaire");
  raw.Execute("delete from qrusgp where userid = 40");
  EXPECT_EQ(server->GetRights(), 0);
  raw.Execute("insert into qruprm values (40, 1)");
  EXPECT_EQ(server->GetRights(), 4);
  raw.Execute("insert into qrusgp values (40, 2)");
  EXPECT_EQ(server->GetRights(), 7);
  raw.Execute("delete from qruprm where userid = 40; update qrgroup set vflg='D' where groupid=2");
  EXPECT_EQ(server->GetRights(), 0);
}

TEST_F(Session, KeepsOnlyTheHashOfItsToken) {
  const SessionArguments session = Start();
  const auto server = sample_.MakeServer();
  Open(*server, session);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(sample_.Home())) {
    if (!entry.is_regular_file()) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    EXPECT_EQ(bytes.find(session.token), std::string::npos) << entry.path();
  }
  EXPECT_EQ(sample_.Raw().Number("select length(tokenhash) from qrausr"), 64);
}

TEST_F(Session, NumbersAndTokensAreDrawnAtRandom) {
  const auto engine = sample_.Engine();
  const server::OpenedSession first = server::OpenUserSession(*engine, 1);
  const server::OpenedSession second = server::OpenUserSession(*engine, 1);
  EXPECT_GT(first.sessionId, 0);
  EXPECT_GT(second.sessionId, 0);
  EXPECT_NE(first.sessionId, second.sessionId);
  EXPECT_NE(first.token, second.token);
  EXPECT_TRUE(server::IsToken(first.token));
}

TEST_F(Session, AnUnknownSourceIsNamed) {
  SessionArguments session = Start();
  session.source = "ailleurs";
  EXPECT_EQ(OpeningFailure(session, server::kSourceUnknown),
            L"La source de données « ailleurs » n'existe pas.");
}

TEST_F(Session, AnUnknownSessionIsNamed) {
  SessionArguments session = Start();
  session.sessionId = session.sessionId == 5 ? 6 : 5;
  const std::wstring text = OpeningFailure(session, server::kSessionUnknown);
  EXPECT_EQ(text, L"La session " + data::Decimal(session.sessionId) + L" n'existe pas.");
}

TEST_F(Session, AWrongTokenIsRefused) {
  SessionArguments session = Start();
  session.token[0] = session.token[0] == '0' ? '1' : '0';
  OpeningFailure(session, server::kTokenWrong);
  session.token = std::string(64, '0');
  OpeningFailure(session, server::kTokenWrong);
}

TEST_F(Session, TheTokenOfAnotherSessionIsRefused) {
  SessionArguments first = Start();
  const SessionArguments second = Start();
  first.token = second.token;
  OpeningFailure(first, server::kTokenWrong);
}

TEST_F(Session, AClosedSessionIsToldFromAnUnknownOne) {
  const SessionArguments session = Start();
  const auto engine = sample_.Engine();
  server::CloseUserSession(*engine, session.sessionId);
  EXPECT_NE(OpeningFailure(session, server::kSessionClosed).find(L"fermée"), std::wstring::npos);
  EXPECT_EQ(NumberOf([&] { server::CloseUserSession(*engine, session.sessionId); }),
            server::kSessionClosed);
  EXPECT_EQ(NumberOf([&] { server::CloseUserSession(*engine, 1); }), server::kSessionUnknown);
}

TEST_F(Session, ClosedSessionsAreForgottenInTheEnd) {
  sample_.Raw().Execute("insert into qrausrx values (1, 0)");
  const auto engine = sample_.Engine();
  server::CloseUserSession(*engine, Start().sessionId);
  EXPECT_EQ(sample_.Raw().Number("select count(*) from qrausrx"), 1);
}

TEST_F(Session, OfADeletedUserIsRefused) {
  const SessionArguments session = Start(L"Martin");
  sample_.Raw().Execute("update qruser set vflg = 'D' where userid = 9");
  OpeningFailure(session, server::kSessionUserGone);
}

TEST_F(Session, ACallBeforeOpenSessionIsAnError) {
  const auto server = sample_.MakeServer();
  EXPECT_EQ(NumberOf([&] { server->GetRights(); }), server::kNoSessionOpen);
  EXPECT_EQ(NumberOf([&] { server->SetMode(1); }), server::kNoSessionOpen);
  EXPECT_EQ(NumberOf([&] { server->GetSessionUserText(); }), server::kNoSessionOpen);
  EXPECT_EQ(NumberOf([&] { server->DatabaseConnection(); }), server::kNoSessionOpen);
  EXPECT_EQ(NumberOf([&] { server->NewIdentifier(L"QRUSRN"); }), server::kNoSessionOpen);
  EXPECT_EQ(NumberOf([&] { server->EncryptPassword(L"x", 1); }), server::kNoSessionOpen);
  EXPECT_EQ(NumberOf([&] { server->DecryptPassword(L"x", 1); }), server::kNoSessionOpen);
  EXPECT_EQ(NumberOf([&] { server->GetDisplayName(L"x", 104); }), server::kNoSessionOpen);
}

TEST_F(Session, IsOpenedOnce) {
  const SessionArguments session = Start();
  const auto server = sample_.MakeServer();
  Open(*server, session);
  EXPECT_EQ(NumberOf([&] { Open(*server, session); }), server::kSessionAlreadyOpen);
}

TEST_F(Session, AFailedOpeningLeavesTheServerReadyForAnother) {
  const SessionArguments session = Start();
  SessionArguments wrong = session;
  wrong.token = std::string(64, 'a');
  const auto server = sample_.MakeServer();
  EXPECT_EQ(NumberOf([&] { Open(*server, wrong); }), server::kTokenWrong);
  EXPECT_EQ(NumberOf([&] { server->GetRights(); }), server::kNoSessionOpen);
  Open(*server, session);
  EXPECT_EQ(server->GetRights(), 7);
}

TEST_F(Session, AnyModeIsAccepted) {
  const auto server = sample_.OpenServer();
  server->SetMode(1);
  server->SetMode(-5);
}

TEST_F(Session, TheUserTextIsNameAndFullName) {
  EXPECT_EQ(sample_.OpenServer()->GetSessionUserText(), L"Admin (Administrateur principal)");
  EXPECT_EQ(sample_.OpenServer(L"Stagiaire")->GetSessionUserText(), L"Stagiaire");
}

TEST_F(Session, TheServerGoesOnAfterItsConnectionIsReleased) {
  const auto server = sample_.OpenServer();
  server->DatabaseConnection().reset();
  EXPECT_EQ(server->GetRights(), 7);
  EXPECT_FALSE(server->DatabaseConnection()->OpenResultSet(data::SqlSelectAllUsers())->EndOfRows());
}

TEST_F(Session, AMissingKeyIsNamed) {
  const SessionArguments session = Start();
  std::filesystem::remove(sample_.Source().keyFile);
  const std::wstring text = OpeningFailure(session, server::kKeyFileUnreadable);
  EXPECT_NE(text.find(L"test.key"), std::wstring::npos);
}

TEST_F(Session, TheAboutBoxIsShownByWhoeverRunsTheServer) {
  std::wstring title;
  std::wstring text;
  sample_.SetShowAbout([&](const std::wstring& shownTitle, const std::wstring& shownText) {
    title = shownTitle;
    text = shownText;
  });
  sample_.MakeServer()->ShowAbout(L"uadmin.exe", 0, 0);
  EXPECT_EQ(title, L"Serveur de session Vardex");
  EXPECT_NE(text.find(L"version"), std::wstring::npos);
  EXPECT_NE(text.find(L"uadmin.exe"), std::wstring::npos);
}

TEST_F(Session, WithoutAnyoneToShowItTheAboutBoxStaysAway) {
  sample_.MakeServer()->ShowAbout(L"uadmin.exe", 0, 0);
}

}  // namespace
}  // namespace server_test

#include <random>

#include "ServerTest.h"
#include "data/Text.h"
#include "server/core/sessions/CommandLine.h"

namespace server_test {
namespace {

using server::ParseCommandLine;

const std::wstring kToken(64, L'b');

void ExpectDemo(std::wstring_view commandLine) {
  const server::SessionArguments found = ParseCommandLine(commandLine);
  EXPECT_EQ(found.source, "demo") << data::ToUtf8(commandLine);
  EXPECT_EQ(found.token, std::string(64, 'b')) << data::ToUtf8(commandLine);
  EXPECT_EQ(found.sessionId, 42) << data::ToUtf8(commandLine);
}

TEST(CommandLine, ArgumentsStandInAnyOrderCaseAndCompany) {
  ExpectDemo(L"/source:demo /token:" + kToken + L" /session:42");
  ExpectDemo(L"/session:42 /source:demo /token:" + kToken);
  ExpectDemo(L"  \t/SOURCE:demo   /Token:" + kToken + L"\t/session:42  ");
  ExpectDemo(L"\"C:\\Program Files\\uadmin.exe\" /source:demo /token:" + kToken +
             L" /session:42 /verbose file.txt");
  ExpectDemo(L"\"/source:demo\" /token:\"" + kToken + L"\" \"/session:42\"");
  ExpectDemo(L"/source:demo /token:" + kToken + L" /session:0000000042");
  ExpectDemo(L"/sources:x /tokens /sessio:9 /source:demo /token:" + kToken + L" /session:42");
}

TEST(CommandLine, WithoutAnyOfTheArgumentsNamesNoSession) {
  for (const wchar_t* const text : {L"", L"   ", L"uadmin.exe", L"/help -x source:demo", L"\""}) {
    EXPECT_EQ(NumberOf([&] { ParseCommandLine(text); }), server::kCommandLineEmpty);
  }
}

TEST(CommandLine, WhatIsMissingRepeatedOrMalformedIsNamed) {
  const std::wstring source = L"/source:demo ";
  const std::wstring token = L"/token:" + kToken + L" ";
  const std::wstring session = L"/session:42 ";
  const std::pair<std::wstring, std::wstring> cases[] = {
      {token + session, L"/source manquant"},
      {source + session, L"/token manquant"},
      {source + token, L"/session manquant"},
      {L"/source: " + token + session, L"/source manquant"},
      {source + token + L"/session:", L"/session manquant"},
      {source + source + token + session, L"/source répété"},
      {source + token + token + session, L"/token répété"},
      {source + token + session + L"/SESSION:42", L"/session répété"},
      {source + token + L"/session:12a", L"/session n'est pas un numéro"},
      {source + token + L"/session:-1", L"/session n'est pas un numéro"},
      {source + token + L"/session:2147483648", L"/session n'est pas un numéro"},
      {source + token + L"/session:99999999999999999999", L"/session n'est pas un numéro"},
      {source + token + L"/session:1 2", L""},
      {source + L"/token:abc " + session, L"/token n'est pas un jeton"},
      {source + L"/token:" + std::wstring(64, L'B') + L" " + session, L"/token n'est pas un jeton"},
      {source + L"/token:" + std::wstring(65, L'b') + L" " + session, L"/token n'est pas un jeton"},
      {L"/source:../x " + token + session, L"/source n'est pas un nom"},
      {L"/source:é " + token + session, L"/source n'est pas un nom"},
      {L"/source:" + std::wstring(65, L'a') + L" " + token + session, L"/source n'est pas un nom"},
  };
  for (const auto& [text, named] : cases) {
    if (named.empty()) {
      EXPECT_EQ(ParseCommandLine(text).sessionId, 1);
      continue;
    }
    const data::RunTimeError failure = FailureOf([&] { ParseCommandLine(text); });
    EXPECT_EQ(failure.Number(), server::kCommandLineUnreadable) << data::ToUtf8(text);
    EXPECT_NE(failure.Text().find(named), std::wstring::npos) << failure.what();
  }
}

TEST(CommandLine, IsReadBackAsItWasWritten) {
  const server::SessionArguments given{"demo-2", std::string(64, '7'), 2147483647};
  const auto found = ParseCommandLine(data::FromUtf8(server::FormatCommandLine(given)));
  EXPECT_EQ(found.source, given.source);
  EXPECT_EQ(found.token, given.token);
  EXPECT_EQ(found.sessionId, given.sessionId);
  const auto again = server::ParseSessionText(server::FormatSessionText(given), 7);
  EXPECT_EQ(again.source, given.source);
  EXPECT_EQ(again.token, given.token);
  EXPECT_EQ(again.sessionId, 7);
}

TEST(CommandLine, ASessionTextOfAnotherMakingIsRefused) {
  for (const wchar_t* const text : {L"", L"/", L"demo", L"demo/", L"demo/abc", L"../x/abc"}) {
    EXPECT_EQ(NumberOf([&] { server::ParseSessionText(text, 1); }), server::kCommandLineUnreadable);
  }
}

// Pieces of command lines in random sequence: whatever comes, the answer is a session or one of the
// two errors.
TEST(CommandLine, RandomTextsGiveASessionOrAnError) {
  const std::wstring pieces[] = {L"/source:", L"/token:", L"/session:",  L"demo", kToken,
                                 L"42",       L"\"",      L" ",          L"\t",   L"/",
                                 L":",        L"é",       L"=",          {L'\0'}, {L'\xD83D'},
                                 L"-1",       L"'",       L"99999999999"};
  std::mt19937 generator(7);
  int sessions = 0;
  for (int round = 0; round < 20000; ++round) {
    std::wstring text;
    for (unsigned i = generator() % 16; i > 0; --i) text += pieces[generator() % std::size(pieces)];
    try {
      ParseCommandLine(text);
      ++sessions;
    } catch (const data::RunTimeError& error) {
      EXPECT_TRUE(error.Number() == server::kCommandLineEmpty ||
                  error.Number() == server::kCommandLineUnreadable)
          << error.what();
    }
  }
  EXPECT_LT(sessions, 20000);
}

}  // namespace
}  // namespace server_test

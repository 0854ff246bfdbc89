#include "tests/program/ProgramTest.h"
#include "app/StringIds.h"

#include <algorithm>

#include "data/Text.h"
#include "tests/program/Outline.h"
#include "tests/program/Paths.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Failure.h"

namespace program {

ProgramTest::ProgramTest() {
  RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\User Administration\\Windows");
}

void ProgramTest::TearDown() {
  for (const auto& program : programs_) {
    if (!program->IsRunning()) continue;
    const auto prompt = driver::FindPrompt(program->Id());
    if (prompt) ADD_FAILURE() << "unannounced message box: " << data::ToUtf8(prompt->Text());
  }
  programs_.clear();
}

std::wstring ProgramTest::SampleSession() {
  sandbox_.CreateDatabase();
  sandbox_.FillSample();
  return sandbox_.OpenSession();
}

driver::Process& ProgramTest::Start(const std::wstring& commandLine,
                                    const std::filesystem::path& folder) {
  driver::Command command;
  command.program = folder / L"uadmin.exe";
  command.arguments = commandLine;
  command.environment = sandbox_.Environment();
  command.folder = sandbox_.Folder();
  programs_.push_back(std::make_unique<driver::Process>(command));
  return *programs_.back();
}

driver::Process& ProgramTest::Start(const std::wstring& commandLine) {
  return Start(commandLine, BinFolder());
}

MainWindow ProgramTest::Open(const std::wstring& commandLine) {
  const MainWindow window(Start(commandLine));
  window.AwaitStarted();
  return window;
}

void ProgramTest::ExpectReport(const driver::Process& process, const std::wstring& text) {
  const driver::PromptBox report = driver::AwaitPrompt(process.Id());
  EXPECT_EQ(data::ToUtf8(text), data::ToUtf8(report.Text()));
  EXPECT_EQ(data::ToUtf8(String(app::kTitle)), data::ToUtf8(report.Title()));
  EXPECT_EQ(std::vector<int>{IDOK}, report.Buttons());
  EXPECT_TRUE(report.HasIcon());
  report.Answer(IDOK);
}

void ProgramTest::ExpectQuestion(const std::wstring& text, int answer) {
  const driver::PromptBox box = driver::AwaitPrompt(Program().Id());
  EXPECT_EQ(data::ToUtf8(text), data::ToUtf8(box.Text()));
  EXPECT_EQ(data::ToUtf8(String(app::kTitle)), data::ToUtf8(box.Title()));
  EXPECT_EQ((std::vector<int>{IDYES, IDNO}), box.Buttons());
  EXPECT_EQ(IDNO, box.DefaultButton());
  EXPECT_TRUE(box.HasIcon());
  box.Answer(answer);
}

void ProgramTest::ExpectAccountAsStored(const MainWindow& window, Tab tab,
                                        const std::wstring& account) {
  Database database = Box().Database();
  const Outline stored = tab == kUsersTab ? ExpectedUsers(database) : ExpectedGroups(database);
  const auto expected = std::ranges::find(stored.children, account, &Outline::text);
  ASSERT_TRUE(expected != stored.children.end()) << data::ToUtf8(account);
  driver::TreeView tree = window.Tree(tab);
  const Outline shown = ReadOutline(tree, tree.Find({account}));
  EXPECT_EQ(Print(*expected), Print(shown));
  EXPECT_EQ("", data::ToUtf8(OutOfOrder(shown)));
}

void ProgramTest::ExpectAccountsAsStored(const MainWindow& window, Tab tab) {
  Database database = Box().Database();
  Outline stored = tab == kUsersTab ? ExpectedUsers(database) : ExpectedGroups(database);
  for (Outline& account : stored.children) account.children.clear();
  driver::TreeView tree = window.Tree(tab);
  Outline shown{tree.Root().text, {}};
  for (const driver::TreeNode& node : tree.KnownChildren(tree.Root().item)) {
    shown.children.push_back({node.text, {}});
  }
  EXPECT_EQ(Print(stored), Print(shown));
  EXPECT_EQ("", data::ToUtf8(OutOfOrder(shown)));
}

void ProgramTest::ExpectExit(const driver::Process& process, DWORD code) {
  driver::Await("the program to end", [&] {
    return !process.IsRunning() || driver::FindPrompt(process.Id()).has_value();
  });
  if (const auto prompt = driver::FindPrompt(process.Id())) {
    throw driver::Failure("unannounced message box: " + data::ToUtf8(prompt->Text()));
  }
  EXPECT_EQ(code, process.WaitForExit());
}

}  // namespace program

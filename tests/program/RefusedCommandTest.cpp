// Commands that the program, the database or their own user takes back.

#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Keyboard.h"
#include "tests/program/driver/Mouse.h"

namespace program {
namespace {

using Texts = std::vector<std::wstring>;

constexpr const wchar_t* kAdmin = L"Admin (Administrateur principal)";
constexpr const wchar_t* kAdministrators = L"Administrateurs (Contrôle total de l'application)";
constexpr const wchar_t* kEveryone = L"Tout le monde (Tous les utilisateurs)";

class RefusedCommand : public ProgramTest {
 protected:
  static void Select(const MainWindow& window, Tab tab, const Texts& path) {
    driver::TreeView tree = window.Tree(tab);
    tree.Select(tree.Find(path).item);
  }

  // The numbers of the buttons that are on, of those that change something.
  static std::vector<int> EnabledCommands(const MainWindow& window, Tab tab) {
    const std::vector<int> all = tab == kUsersTab ? std::vector<int>{IDC_CMD_USER,
                                                                     IDC_CMD_USER + 1,
                                                                     IDC_CMD_USER + 2,
                                                                     IDC_CMD_MEMBER_OF,
                                                                     IDC_CMD_MEMBER_OF + 1,
                                                                     IDC_CMD_USER_PERMISSION,
                                                                     IDC_CMD_USER_PERMISSION + 1}
                                                  : std::vector<int>{IDC_CMD_GROUP,
                                                                     IDC_CMD_GROUP + 1,
                                                                     IDC_CMD_GROUP + 2,
                                                                     IDC_CMD_MEMBER,
                                                                     IDC_CMD_MEMBER + 1,
                                                                     IDC_CMD_GROUP_PERMISSION,
                                                                     IDC_CMD_GROUP_PERMISSION + 1};
    std::vector<int> enabled;
    for (const int button : all) {
      if (window.IsEnabled(button)) enabled.push_back(button);
    }
    return enabled;
  }

  std::wstring DiscardQuestion() { return String(700) + L"\r\n" + String(701); }
};

TEST_F(RefusedCommand, AChangeIsThrownAwayOnlyByYes) {
  const MainWindow window = Open(SampleSession());
  const std::wstring before = Box().Database().Contents();
  Select(window, kUsersTab, {L"Blanc"});
  window.ClickOn(IDC_CMD_USER);
  const DialogWindow dialog(Program(), String(205));
  dialog.TabTo(IDC_TXT_FULL_NAME);
  dialog.Type(L"Louise Blanc");
  dialog.Key(VK_ESCAPE);
  {
    const driver::PromptBox box = driver::AwaitPrompt(Program().Id());
    EXPECT_EQ(data::ToUtf8(DiscardQuestion()), data::ToUtf8(box.Text()));
    driver::PressKey(box.Box(), VK_RETURN);  // which is No
    driver::Await("the question to close", [&] { return !box.Box().Exists(); });
  }
  EXPECT_TRUE(dialog.IsOpen());
  EXPECT_EQ(L"Louise Blanc", dialog.Box(IDC_TXT_FULL_NAME).Text());
  EXPECT_EQ(IDC_TXT_FULL_NAME, dialog.Focus());
  dialog.Form().Post(WM_SYSCOMMAND, SC_CLOSE);
  ExpectQuestion(DiscardQuestion(), IDNO);
  EXPECT_TRUE(dialog.IsOpen());
  dialog.ClickOn(IDC_CANCEL);
  ExpectQuestion(DiscardQuestion(), IDYES);
  dialog.AwaitClosed();
  window.AwaitUsable();
  EXPECT_FALSE(driver::FindPrompt(Program().Id())) << "it is asked once";
  EXPECT_EQ(before, Box().Database().Contents());
  EXPECT_EQ(L"Blanc", window.Tree(kUsersTab).Selected().text);
}

TEST_F(RefusedCommand, AQuotedNameCannotBeDeletedAndTheDatabaseSaysWhy) {
  constexpr const wchar_t* kQuoted = L"D'Angelo (Chiara D'Angelo)";
  const MainWindow window = Open(SampleSession());
  const std::wstring before = Box().Database().Contents();
  Select(window, kUsersTab, {kQuoted});
  window.ClickOn(IDC_CMD_USER + 1);
  ExpectQuestion(String(721), IDYES);
  const driver::PromptBox report = driver::AwaitPrompt(Program().Id());
  EXPECT_TRUE(report.Text().starts_with(L"DeleteRecord Error [")) << data::ToUtf8(report.Text());
  EXPECT_TRUE(report.Text().find(L"Angelo") != std::wstring::npos) << data::ToUtf8(report.Text());
  report.Answer(IDOK);
  window.AwaitUsable();
  EXPECT_EQ(before, Box().Database().Contents());
  EXPECT_EQ(kQuoted, window.Tree(kUsersTab).Selected().text);
  ExpectAccountsAsStored(window, kUsersTab);
}

TEST_F(RefusedCommand, NothingTakesAdminOutOfTheAdministrators) {
  const std::wstring session = SampleSession();
  const MainWindow window = Open(session);
  const std::wstring before = Box().Database().Contents();
  window.SelectTab(kGroupsTab);
  Select(window, kGroupsTab, {kAdministrators, String(309), kAdmin});
  window.ClickOn(IDC_CMD_MEMBER + 1);
  ExpectReport(String(1009) + L" '" + kAdmin + L"' " + String(1008));

  Select(window, kGroupsTab, {kAdministrators, String(309)});
  window.ClickOn(IDC_CMD_MEMBER);
  {
    const DialogWindow dialog(Program(), String(201) + kAdministrators);
    dialog.ClickOn(IDC_CMD_ADD_USER + 4);  // all out
    ExpectReport(String(1009) + L" 'Admin' " + String(1008));
    EXPECT_EQ(Texts{L"Admin"}, dialog.List(IDC_LIST_ADD_USER + 2).Texts());
    dialog.Key(VK_ESCAPE);
    ExpectQuestion(DiscardQuestion(), IDYES);
    dialog.AwaitClosed();
  }
  window.SelectTab(kUsersTab);
  Select(window, kUsersTab, {kAdmin});
  window.ClickOn(IDC_CMD_USER);
  {
    const DialogWindow dialog(Program(), String(205));
    EXPECT_FALSE(dialog.IsEnabled(IDC_TXT_USER_NAME));
    dialog.TabTo(IDC_LIST_USER + 1);
    driver::ListView groups = dialog.Checks(IDC_LIST_USER + 1);
    const int row = groups.Find(L"Administrateurs");
    driver::ClickAt(groups.Control(), groups.CheckPlace(row));
    ExpectReport(String(1009) + L" 'Administrateurs' " + String(1008));
    EXPECT_TRUE(groups.Row(row).checked);
    dialog.Key(VK_ESCAPE);
    ExpectQuestion(DiscardQuestion(), IDYES);
    dialog.AwaitClosed();
  }
  window.AwaitUsable();
  EXPECT_EQ(before, Box().Database().Contents());
}

TEST_F(RefusedCommand, TheButtonsOfProtectedAccountsAreOff) {
  const MainWindow window = Open(SampleSession());
  constexpr int kEdit = IDC_CMD_USER, kNew = IDC_CMD_USER + 2;
  Select(window, kUsersTab, {kAdmin});
  EXPECT_EQ((std::vector<int>{kEdit, kNew, IDC_CMD_MEMBER_OF, IDC_CMD_USER_PERMISSION}),
            EnabledCommands(window, kUsersTab));
  Select(window, kUsersTab, {kAdmin, String(304), kAdministrators});
  EXPECT_EQ((std::vector<int>{kEdit, kNew, IDC_CMD_MEMBER_OF}), EnabledCommands(window, kUsersTab));
  Select(window, kUsersTab, {L"Blanc", String(304), kEveryone});
  EXPECT_EQ((std::vector<int>{kEdit, kEdit + 1, kNew, IDC_CMD_MEMBER_OF}),
            EnabledCommands(window, kUsersTab));
  window.SelectTab(kGroupsTab);
  Select(window, kGroupsTab, {kAdministrators});
  EXPECT_EQ((std::vector<int>{IDC_CMD_GROUP, IDC_CMD_GROUP + 2, IDC_CMD_MEMBER}),
            EnabledCommands(window, kGroupsTab));
  Select(window, kGroupsTab, {kAdministrators, String(310)});
  EXPECT_EQ((std::vector<int>{IDC_CMD_GROUP, IDC_CMD_GROUP + 2}),
            EnabledCommands(window, kGroupsTab));
  Select(window, kGroupsTab, {kEveryone, String(309), L"Blanc"});
  EXPECT_EQ((std::vector<int>{IDC_CMD_GROUP, IDC_CMD_GROUP + 2, IDC_CMD_MEMBER}),
            EnabledCommands(window, kGroupsTab));
}

}  // namespace
}  // namespace program

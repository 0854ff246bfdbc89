// Commands that the program, the database or their own user takes back.

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Keyboard.h"
#include "tests/program/driver/Mouse.h"

namespace program {
namespace {

using Texts = std::vector<std::wstring>;

class RefusedCommand : public ProgramTest {
 protected:
  // The numbers of the buttons that are on, of those that change something.
  static std::vector<int> EnabledCommands(const MainWindow& window, Tab tab) {
    static const std::vector<int> ofUsers{kEditUserButton,
                                          kDeleteUserButton,
                                          kNewUserButton,
                                          kAssignGroupsButton,
                                          kRemoveGroupButton,
                                          kAssignUserPermissionsButton,
                                          kRemoveUserPermissionButton};
    static const std::vector<int> ofGroups{kEditGroupButton,
                                           kDeleteGroupButton,
                                           kNewGroupButton,
                                           kAssignMembersButton,
                                           kRemoveMemberButton,
                                           kAssignGroupPermissionsButton,
                                           kRemoveGroupPermissionButton};
    std::vector<int> enabled;
    for (const int button : tab == kUsersTab ? ofUsers : ofGroups) {
      if (window.IsEnabled(button)) enabled.push_back(button);
    }
    return enabled;
  }

  std::wstring DiscardQuestion() {
    return String(app::kDiscard1) + L"\r\n" + String(app::kDiscard2);
  }
};

TEST_F(RefusedCommand, AChangeIsThrownAwayOnlyByYes) {
  const MainWindow window = Open(SampleSession());
  const std::wstring before = Box().Database().Contents();
  window.Select(kUsersTab, {L"Blanc"});
  window.Click(kEditUserButton);
  const DialogWindow dialog(Program(), String(app::kEditUserTitle));
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
  dialog.Click(IDC_CANCEL);
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
  window.Select(kUsersTab, {kQuoted});
  window.Click(kDeleteUserButton);
  ExpectQuestion(String(app::kAskDeleteUser), IDYES);
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
  window.Select(kGroupsTab, {kAdministrators, String(app::kMembers), kAdmin});
  window.Click(kRemoveMemberButton);
  ExpectReport(String(app::kCannotRemoveUserFrom) + L" '" + kAdmin + L"' " +
               String(app::kTheGroup));

  window.Select(kGroupsTab, {kAdministrators, String(app::kMembers)});
  window.Click(kAssignMembersButton);
  {
    const DialogWindow dialog(Program(), String(app::kAddUsersTitle) + kAdministrators);
    dialog.Click(kMoveAllOutButton);
    ExpectReport(String(app::kCannotRemoveUserFrom) + L" 'Admin' " + String(app::kTheGroup));
    EXPECT_EQ(Texts{L"Admin"}, dialog.List(kInsideList).Texts());
    dialog.Key(VK_ESCAPE);
    ExpectQuestion(DiscardQuestion(), IDYES);
    dialog.AwaitClosed();
  }
  window.SelectTab(kUsersTab);
  window.Select(kUsersTab, {kAdmin});
  window.Click(kEditUserButton);
  {
    const DialogWindow dialog(Program(), String(app::kEditUserTitle));
    EXPECT_FALSE(dialog.IsEnabled(IDC_TXT_USER_NAME));
    dialog.TabTo(kGroupsOfUserList);
    driver::ListView groups = dialog.Checks(kGroupsOfUserList);
    const int row = groups.Find(L"Administrateurs");
    driver::ClickAt(groups.Control(), groups.CheckPlace(row));
    ExpectReport(String(app::kCannotRemoveUserFrom) + L" 'Administrateurs' " +
                 String(app::kTheGroup));
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
  window.Select(kUsersTab, {kAdmin});
  EXPECT_EQ((std::vector<int>{kEditUserButton, kNewUserButton, kAssignGroupsButton,
                              kAssignUserPermissionsButton}),
            EnabledCommands(window, kUsersTab));
  window.Select(kUsersTab, {kAdmin, String(app::kMemberOf), kAdministrators});
  EXPECT_EQ((std::vector<int>{kEditUserButton, kNewUserButton, kAssignGroupsButton}),
            EnabledCommands(window, kUsersTab));
  window.Select(kUsersTab, {L"Blanc", String(app::kMemberOf), kEveryone});
  EXPECT_EQ(
      (std::vector<int>{kEditUserButton, kDeleteUserButton, kNewUserButton, kAssignGroupsButton}),
      EnabledCommands(window, kUsersTab));
  window.SelectTab(kGroupsTab);
  window.Select(kGroupsTab, {kAdministrators});
  EXPECT_EQ((std::vector<int>{kEditGroupButton, kNewGroupButton, kAssignMembersButton}),
            EnabledCommands(window, kGroupsTab));
  window.Select(kGroupsTab, {kAdministrators, String(app::kGroupPermissions)});
  EXPECT_EQ((std::vector<int>{kEditGroupButton, kNewGroupButton}),
            EnabledCommands(window, kGroupsTab));
  window.Select(kGroupsTab, {kEveryone, String(app::kMembers), L"Blanc"});
  EXPECT_EQ((std::vector<int>{kEditGroupButton, kNewGroupButton, kAssignMembersButton}),
            EnabledCommands(window, kGroupsTab));
}

}  // namespace
}  // namespace program

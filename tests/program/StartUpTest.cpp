// What the window shows once it has started on the sample database.

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/Outline.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

using data::ToUtf8;

class StartUp : public ProgramTest {};

struct Captioned {
  int control;
  int text;
};

constexpr Captioned kUserCommands[] = {
    {kEditUserButton, app::kEdit},
    {kDeleteUserButton, app::kDelete},
    {kNewUserButton, app::kNew},
    {kAssignGroupsButton, app::kAssign},
    {kRemoveGroupButton, app::kRemove},
    {kAssignUserPermissionsButton, app::kAssign},
    {kRemoveUserPermissionButton, app::kRemove},
};
constexpr Captioned kGroupCommands[] = {
    {kEditGroupButton, app::kEdit},
    {kDeleteGroupButton, app::kDelete},
    {kNewGroupButton, app::kNew},
    {kAssignMembersButton, app::kAssign},
    {kRemoveMemberButton, app::kRemove},
    {kAssignGroupPermissionsButton, app::kAssign},
    {kRemoveGroupPermissionButton, app::kRemove},
};
constexpr Captioned kWindowCommands[] = {{kRefreshButton, app::kRefresh},
                                         {kExitButton, app::kExit},
                                         {IDC_CMD_ABOUT, app::kAbout},
                                         {IDC_HELP_BUTTON, app::kHelp}};

// All are there and on, or all off, but for one that is the other way round.
template <std::size_t Count>
void ExpectCommands(const MainWindow& window, const Captioned (&commands)[Count], bool enabled,
                    int exception = 0) {
  for (const Captioned& command : commands) {
    const driver::Window button = window.Control(command.control);
    EXPECT_EQ(ToUtf8(String(command.text)), ToUtf8(button.Text())) << command.control;
    EXPECT_TRUE(button.IsVisible()) << command.control;
    EXPECT_EQ(enabled != (command.control == exception), button.IsEnabled()) << command.control;
  }
}

TEST_F(StartUp, TheWindowAndItsTabsBearTheirCaptions) {
  const MainWindow window = Open(SampleSession());
  EXPECT_EQ(L"Admin Utilisateurs", window.Form().Text());
  EXPECT_EQ((std::vector<std::wstring>{L"Utilisateurs", L"Groupes"}), window.Tabs().Captions());
  EXPECT_EQ(0, window.Tabs().Selected());
}

TEST_F(StartUp, TheRootsAreSelectedAndOpen) {
  const MainWindow window = Open(SampleSession());
  for (const Tab tab : {kUsersTab, kGroupsTab}) {
    driver::TreeView tree = window.Tree(tab);
    const driver::TreeNode root = tree.Root();
    EXPECT_EQ(ToUtf8(String(tab == kUsersTab ? app::kUsers : app::kGroups)), ToUtf8(root.text));
    EXPECT_TRUE(root.selected);
    EXPECT_TRUE(root.expanded);
    EXPECT_EQ(root.item, tree.Selected().item);
    EXPECT_TRUE(tree.HasImages());
  }
}

TEST_F(StartUp, OnlyTheTreeOfTheChosenTabIsVisible) {
  const MainWindow window = Open(SampleSession());
  EXPECT_TRUE(window.Control(IDC_TREE_USERS).IsVisible());
  EXPECT_FALSE(window.Control(IDC_TREE_GROUPS).IsVisible());
  window.SelectTab(kGroupsTab);
  EXPECT_FALSE(window.Control(IDC_TREE_USERS).IsVisible());
  EXPECT_TRUE(window.Control(IDC_TREE_GROUPS).IsVisible());
}

TEST_F(StartUp, EveryCommandIsShownAndAtTheRootsOnlyNewAndTheWindowsOwnAreEnabled) {
  const MainWindow window = Open(SampleSession());
  ExpectCommands(window, kUserCommands, false, kNewUserButton);
  ExpectCommands(window, kWindowCommands, true);
  window.SelectTab(kGroupsTab);
  ExpectCommands(window, kGroupCommands, false, kNewGroupButton);
  ExpectCommands(window, kWindowCommands, true);
}

TEST_F(StartUp, TheFramesBearTheirCaptionsAndChangeWithTheTab) {
  constexpr Captioned kUserFrames[] = {{IDC_FRA_USER, app::kUsers},
                                       {IDC_FRA_MEMBER_OF, app::kMemberOf},
                                       {IDC_FRA_USER_PERMISSION, app::kUserPermissions}};
  constexpr Captioned kGroupFrames[] = {{IDC_FRA_GROUP, app::kGroups},
                                        {IDC_FRA_MEMBER, app::kMembers},
                                        {IDC_FRA_GROUP_PERMISSION, app::kGroupPermissions}};
  const MainWindow window = Open(SampleSession());
  ExpectCommands(window, kUserFrames, true);
  for (const Captioned& frame : kGroupFrames) {
    EXPECT_FALSE(window.Control(frame.control).IsVisible());
  }
  window.SelectTab(kGroupsTab);
  ExpectCommands(window, kGroupFrames, true);
  for (const Captioned& frame : kUserFrames) {
    EXPECT_FALSE(window.Control(frame.control).IsVisible());
  }
  for (const Captioned& command : kUserCommands) {
    EXPECT_FALSE(window.Control(command.control).IsVisible());
  }
}

TEST_F(StartUp, TheStatusLineTellsTheCounts) {
  const MainWindow window = Open(SampleSession());
  Database database = Box().Database();
  const std::wstring expected =
      String(app::kCounts, {database.Text(L"SELECT COUNT(*) FROM QRUSERV"),
                            database.Text(L"SELECT COUNT(*) FROM QRGROUPV"),
                            database.Text(L"SELECT COUNT(*) FROM QRPERM")});
  EXPECT_EQ(ToUtf8(expected), ToUtf8(window.Status()));
}

TEST_F(StartUp, TheControlIsToldOfTheAccountsAloneUntilOneIsOpened) {
  const MainWindow window = Open(SampleSession());
  Database database = Box().Database();
  EXPECT_EQ(1 + database.Number(L"SELECT COUNT(*) FROM QRUSERV"), window.Tree(kUsersTab).Count());
  EXPECT_EQ(1 + database.Number(L"SELECT COUNT(*) FROM QRGROUPV"), window.Tree(kGroupsTab).Count());
  driver::TreeView tree = window.Tree(kUsersTab);
  for (const driver::TreeNode& account : tree.KnownChildren(tree.Root().item)) {
    EXPECT_TRUE(account.hasChildren);
    EXPECT_FALSE(account.expanded);
  }
}

TEST_F(StartUp, TheKeyboardIsInTheUsersTree) {
  const MainWindow window = Open(SampleSession());
  driver::Await("the tree to have the keyboard",
                [&] { return driver::FocusIn(window.Form()).Id() == IDC_TREE_USERS; });
}

}  // namespace
}  // namespace program

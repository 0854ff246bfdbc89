// Every dialog used without a mouse.

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Keyboard.h"

namespace program {
namespace {

using Ids = std::vector<int>;
using Lines = std::vector<std::string>;
using Texts = std::vector<std::wstring>;

class DialogKeyboard : public ProgramTest {
 protected:
  // Moves the selection to a node as the arrow keys would, and the focus to its tree.
  static void GoTo(const MainWindow& window, Tab tab, const Texts& path) {
    window.Select(tab, path);
    window.TabTo(tab == kUsersTab ? IDC_TREE_USERS : IDC_TREE_GROUPS);
  }

  // Goes on by Tab to a button and presses it by the space bar.
  static void PressByKeys(const MainWindow& window, int button) {
    window.TabTo(button);
    window.Key(VK_SPACE);
  }

  // Leaves by Escape, which nothing has to be asked for.
  static void Leave(const DialogWindow& dialog, const MainWindow& window) {
    dialog.Key(VK_ESCAPE);
    dialog.AwaitClosed();
    window.AwaitUsable();
  }

  static void AwaitChecked(const DialogWindow& dialog, int list, int count) {
    driver::ListView checks = dialog.Checks(list);
    driver::Await("the boxes to be checked",
                  [&] { return static_cast<int>(checks.Checked().size()) == count; });
  }
};

TEST_F(DialogKeyboard, ANewUserIsMadeWithoutTheMouse) {
  const MainWindow window = Open(SampleSession());
  GoTo(window, kUsersTab, {});
  window.Key('N', {VK_MENU});
  const DialogWindow dialog(Program(), String(app::kNewUserTitle));
  EXPECT_EQ(IDC_TXT_USER_NAME, dialog.Focus());
  EXPECT_EQ(
      (Ids{IDC_TXT_FULL_NAME, IDC_TXT_PASSWORD, IDC_TXT_VERIFY, kGroupsOfUserList,
           kAllGroupsOfUserButton, kNoGroupOfUserButton, kPermissionsOfUserList,
           kAllPermissionsOfUserButton, IDC_OK, IDC_CANCEL, IDC_HELP_BUTTON, IDC_TXT_USER_NAME}),
      driver::WalkByTab(dialog.Form()));
  dialog.Type(L"Vidal");
  dialog.TabTo(IDC_TXT_PASSWORD);
  dialog.Type(L"secret-9");
  dialog.TabTo(IDC_TXT_VERIFY);
  dialog.Type(L"secret-9");
  dialog.Key('U', {VK_MENU});  // all groups
  AwaitChecked(dialog, kGroupsOfUserList, 12);
  dialog.Key('T', {VK_MENU});  // all permissions
  AwaitChecked(dialog, kPermissionsOfUserList, 30);
  dialog.Key('A', {VK_MENU});  // none of them
  AwaitChecked(dialog, kPermissionsOfUserList, 0);
  dialog.Key('C', {VK_MENU});  // no group but the one that nobody leaves
  ExpectReport(String(app::kCannotRemoveUserFrom) + L" 'Everyone' " + String(app::kTheGroup));
  AwaitChecked(dialog, kGroupsOfUserList, 1);
  dialog.TabTo(kPermissionsOfUserList);
  dialog.Toggle(L"Saisir une commande");
  dialog.Key(VK_RETURN);
  dialog.AwaitClosed();
  window.AwaitUsable();
  EXPECT_EQ((Lines{"Vidal|(null)|2|5"}),
            Box().Database().Lines(
                L"SELECT NAME, FULLNAME, GROUPID, PERMID FROM QRUSER, QRUSGP, QRUPRM WHERE NAME ="
                L" 'Vidal' AND QRUSGP.USERID = QRUSER.USERID AND QRUPRM.USERID = QRUSER.USERID"));
}

TEST_F(DialogKeyboard, AUserIsEditedWithoutTheMouse) {
  const MainWindow window = Open(SampleSession());
  GoTo(window, kUsersTab, {L"Blanc"});
  window.Key(VK_F2);
  const DialogWindow dialog(Program(), String(app::kEditUserTitle));
  EXPECT_EQ(IDC_TXT_USER_NAME, dialog.Focus());
  EXPECT_EQ((std::pair{0, 5}), dialog.Box(IDC_TXT_USER_NAME).Selection());
  EXPECT_EQ(
      (Ids{IDC_HELP_BUTTON, IDC_CANCEL, IDC_OK, kAllPermissionsOfUserButton, kPermissionsOfUserList,
           kNoGroupOfUserButton, kAllGroupsOfUserButton, kGroupsOfUserList, IDC_TXT_VERIFY,
           IDC_TXT_PASSWORD, IDC_TXT_FULL_NAME, IDC_TXT_USER_NAME}),
      driver::WalkByTab(dialog.Form(), {VK_SHIFT}));
  dialog.TabTo(IDC_TXT_FULL_NAME);
  dialog.Type(L"Louise Blanc");
  dialog.TabTo(kGroupsOfUserList);
  dialog.Toggle(L"Achats");
  dialog.Key(VK_RETURN);
  dialog.AwaitClosed();
  window.AwaitUsable();
  EXPECT_EQ((Lines{"Louise Blanc|2"}),
            Box().Database().Lines(L"SELECT FULLNAME, GROUPID FROM QRUSER, QRUSGP WHERE NAME ="
                                   L" 'Blanc' AND QRUSGP.USERID = QRUSER.USERID"));
  EXPECT_EQ(L"Blanc (Louise Blanc)", window.Tree(kUsersTab).Selected().text);
}

TEST_F(DialogKeyboard, ANewGroupIsMadeWithoutTheMouse) {
  const MainWindow window = Open(SampleSession());
  window.SelectTab(kGroupsTab);
  GoTo(window, kGroupsTab, {});
  window.Key('N', {VK_MENU});
  const DialogWindow dialog(Program(), String(app::kNewGroupTitle));
  EXPECT_EQ(IDC_TXT_GROUP_NAME, dialog.Focus());
  EXPECT_EQ((Ids{IDC_TXT_GROUP_DESC, kMembersOfGroupList, kAddMembersOfGroupButton,
                 kPermissionsOfGroupList, kAllPermissionsOfGroupButton, kNoPermissionOfGroupButton,
                 IDC_OK, IDC_CANCEL, IDC_HELP_BUTTON, IDC_TXT_GROUP_NAME}),
            driver::WalkByTab(dialog.Form()));
  dialog.Type(L"Accueil");
  dialog.Key('A', {VK_MENU});
  const DialogWindow chooser(Program(), String(app::kAddUsersTitle) + L"Accueil");
  EXPECT_EQ(kOutsideSearchBox, chooser.Focus());
  EXPECT_EQ((Ids{kOutsideList, kMoveInButton, kMoveAllInButton, kInsideSearchBox, kInsideList,
                 IDC_OK, IDC_CANCEL, IDC_HELP_BUTTON, kOutsideSearchBox}),
            driver::WalkByTab(chooser.Form()));
  chooser.Type(L"rou");
  chooser.TabTo(kMoveInButton);
  chooser.Key(VK_SPACE);
  const driver::ListBox chosen = chooser.List(kInsideList);
  driver::Await("somebody to be chosen", [&] { return chosen.Count() == 1; });
  EXPECT_EQ(L"Rousseau", chosen.Text(0));
  chooser.TabTo(IDC_OK);
  chooser.Key(VK_RETURN);
  chooser.AwaitClosed();
  dialog.Key('T', {VK_MENU});  // all permissions
  AwaitChecked(dialog, kPermissionsOfGroupList, 30);
  dialog.TabTo(IDC_TXT_GROUP_DESC);
  dialog.Key(VK_RETURN);
  dialog.AwaitClosed();
  window.AwaitUsable();
  EXPECT_EQ((Lines{"(null)|19|30"}),
            Box().Database().Lines(
                L"SELECT DESCR, USERID, COUNT(PERMID) FROM QRGROUP, QRUSGP, QRGPRM WHERE NAME ="
                L" 'Accueil' AND QRUSGP.GROUPID = QRGROUP.GROUPID"
                L" AND QRGPRM.GROUPID = QRGROUP.GROUPID GROUP BY USERID"));
}

TEST_F(DialogKeyboard, AGroupIsEditedWithoutTheMouse) {
  const MainWindow window = Open(SampleSession());
  window.SelectTab(kGroupsTab);
  GoTo(window, kGroupsTab, {L"Achats"});
  window.Key(VK_F2);
  const DialogWindow dialog(Program(), String(app::kEditGroupTitle));
  EXPECT_EQ(IDC_TXT_GROUP_NAME, dialog.Focus());
  dialog.TabTo(kMembersOfGroupList);
  const driver::ListBox members = dialog.List(kMembersOfGroupList);
  EXPECT_EQ((Texts{L"Blanc", L"Chevalier", L"D'Angelo"}), members.Texts());
  for (int row = 0; row < 3; ++row) dialog.Key(VK_DOWN);
  driver::Await("the last member to be selected", [&] { return members.IsSelected(2); });
  dialog.Key('R', {VK_MENU});
  driver::Await("the last member to be gone", [&] { return members.Count() == 2; });
  dialog.TabTo(kPermissionsOfGroupList);
  dialog.Toggle(L"Libérer un lot");
  dialog.Key(VK_RETURN);
  dialog.AwaitClosed();
  window.AwaitUsable();
  Database database = Box().Database();
  EXPECT_EQ((Lines{"20", "24"}),
            database.Lines(L"SELECT USERID FROM QRUSGP WHERE GROUPID = 9 ORDER BY 1"));
  EXPECT_EQ((Lines{"14", "21", "24", "25", "26", "27"}),
            database.Lines(L"SELECT PERMID FROM QRGPRM WHERE GROUPID = 9 ORDER BY 1"));
}

TEST_F(DialogKeyboard, GroupsAreAssignedWithoutTheMouse) {
  const MainWindow window = Open(SampleSession());
  GoTo(window, kUsersTab, {L"Blanc", String(app::kMemberOf)});
  PressByKeys(window, kAssignGroupsButton);
  const DialogWindow dialog(Program(), String(app::kChoicesTitle) + String(app::kGroups));
  EXPECT_EQ(IDC_LIST_LIST_ITEM, dialog.Focus());
  EXPECT_EQ((Ids{kCheckAllButton, kCheckNoneButton, IDC_OK, IDC_CANCEL, IDC_HELP_BUTTON,
                 IDC_LIST_LIST_ITEM}),
            driver::WalkByTab(dialog.Form()));
  dialog.Toggle(L"Qualité");
  dialog.Toggle(L"Direction");
  dialog.Key('T', {VK_MENU});
  AwaitChecked(dialog, IDC_LIST_LIST_ITEM, 10);
  dialog.Key('A', {VK_MENU});
  AwaitChecked(dialog, IDC_LIST_LIST_ITEM, 0);
  dialog.TabTo(IDC_LIST_LIST_ITEM);
  dialog.Toggle(L"Ventes");
  dialog.Key(VK_RETURN);
  dialog.AwaitClosed();
  window.AwaitUsable();
  EXPECT_EQ((Lines{"2", "9", "10"}),
            Box().Database().Lines(L"SELECT GROUPID FROM QRUSGP WHERE USERID = 20 ORDER BY 1"));
}

TEST_F(DialogKeyboard, MembersAreChosenWithoutTheMouseAndF1Helps) {
  const MainWindow window = Open(SampleSession());
  window.SelectTab(kGroupsTab);
  GoTo(window, kGroupsTab, {L"Achats", String(app::kMembers)});
  PressByKeys(window, kAssignMembersButton);
  const DialogWindow dialog(Program(), String(app::kAddUsersTitle) + L"Achats");
  EXPECT_EQ(kOutsideSearchBox, dialog.Focus());
  EXPECT_EQ(
      (Ids{kOutsideList, kMoveInButton, kMoveAllInButton, kMoveOutButton, kMoveAllOutButton,
           kInsideSearchBox, kInsideList, IDC_OK, IDC_CANCEL, IDC_HELP_BUTTON, kOutsideSearchBox}),
      driver::WalkByTab(dialog.Form()));
  dialog.Type(L"mu");
  const driver::ListBox others = dialog.List(kOutsideList);
  const driver::ListBox chosen = dialog.List(kInsideList);
  EXPECT_EQ((Texts{L"Müller"}), others.Selected());
  dialog.TabTo(kOutsideList);
  dialog.Key(VK_UP);
  dialog.Key(VK_DOWN, {VK_SHIFT});
  driver::Await("two to be selected", [&] { return others.Selected().size() == 2; });
  const Texts selected = others.Selected();
  dialog.TabTo(kMoveInButton);
  dialog.Key(VK_SPACE);
  driver::Await("both to be chosen", [&] { return chosen.Selected() == selected; });
  dialog.TabTo(kInsideSearchBox);
  dialog.Key(VK_RETURN);
  dialog.AwaitClosed();
  window.AwaitUsable();
  EXPECT_EQ(5, Box().Database().Number(L"SELECT COUNT(*) FROM QRUSGP WHERE GROUPID = 9"));

  GoTo(window, kGroupsTab, {L"Achats", String(app::kGroupPermissions)});
  PressByKeys(window, kAssignGroupPermissionsButton);
  const DialogWindow permissions(Program(), String(app::kChoicesTitle) + String(app::kPermissions));
  permissions.Key(VK_F1);
  // It is on view before it takes the keyboard, and until then Escape would be too early.
  driver::Await("the help viewer to take the keyboard", [this] {
    const auto viewers = driver::TopWindows(Program().Id(), [](const driver::Window& shown) {
      return shown.Class() == L"HH Parent" && shown.IsVisible();
    });
    return !viewers.empty() && GetForegroundWindow() == viewers.front().Handle();
  });
  Leave(permissions, window);
}

}  // namespace
}  // namespace program

// A group from its making to its end, by mouse and keyboard.

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Mouse.h"

namespace program {
namespace {

using Lines = std::vector<std::string>;

constexpr const wchar_t* kNewGroup = L"Entretien (Bâtiments et jardins)";
constexpr const wchar_t* kEditedGroup = L"Entretien (Bâtiments)";

class GroupLife : public ProgramTest {
 protected:
  std::wstring Id() { return Box().Database().Text(L"SELECT MAX(GROUPID) FROM QRGROUP"); }
  Lines Row() {
    return Box().Database().Lines(L"SELECT NAME, DESCR, VFLG FROM QRGROUP WHERE GROUPID = " + Id());
  }
  Lines Members() {
    return Box().Database().Lines(
        L"SELECT NAME FROM QRUSER WHERE USERID IN (SELECT USERID FROM QRUSGP WHERE GROUPID = " +
        Id() + L") ORDER BY NAME");
  }
  Lines Permissions() {
    return Box().Database().Lines(
        L"SELECT NAME FROM QRPERM WHERE PERMID IN (SELECT PERMID FROM QRGPRM WHERE GROUPID = " +
        Id() + L") ORDER BY PERMID");
  }

  // Moves users to the right, one by a double-click and one by the button, and confirms.
  void Choose(const std::wstring& group, const std::wstring& first, const std::wstring& letters,
              const std::wstring& second) {
    const DialogWindow chooser(Program(), String(app::kAddUsersTitle) + group);
    const driver::ListBox others = chooser.List(kOutsideList);
    const driver::ListBox chosen = chooser.List(kInsideList);
    driver::DoubleClickAt(others.Control(), others.Place(others.Find(first)));
    driver::Await("the first user to be chosen",
                  [&] { return chosen.Selected() == std::vector<std::wstring>{first}; });
    chooser.TabTo(kOutsideSearchBox);
    chooser.Type(letters);
    EXPECT_EQ(std::vector<std::wstring>{second}, others.Selected());
    chooser.Click(kMoveInButton);
    driver::Await("the second user to be chosen",
                  [&] { return chosen.Selected() == std::vector<std::wstring>{second}; });
    chooser.Click(IDC_OK);
    chooser.AwaitClosed();
  }

  void Create(const MainWindow& window) {
    window.Click(kNewGroupButton);
    const DialogWindow dialog(Program(), String(app::kNewGroupTitle));
    dialog.AwaitFocus(IDC_TXT_GROUP_NAME);
    dialog.Type(L"Entretien");
    dialog.TabTo(IDC_TXT_GROUP_DESC);
    dialog.Type(L"Bâtiments et jardins");
    dialog.Click(kAddMembersOfGroupButton);
    Choose(L"Entretien", L"Bernard", L"gir", L"Girard");
    EXPECT_EQ((std::vector<std::wstring>{L"Bernard", L"Girard"}),
              dialog.List(kMembersOfGroupList).Texts());
    dialog.TabTo(kPermissionsOfGroupList);
    dialog.Toggle(L"Consulter le stock");
    dialog.Key(VK_RETURN);
    dialog.AwaitClosed();
    window.AwaitUsable();
  }

  void Edit(const MainWindow& window) {
    window.Key(VK_F2);
    const DialogWindow dialog(Program(), String(app::kEditGroupTitle));
    dialog.TabTo(IDC_TXT_GROUP_DESC);
    dialog.Type(L"Bâtiments");
    const driver::ListBox members = dialog.List(kMembersOfGroupList);
    driver::ClickAt(members.Control(), members.Place(members.Find(L"Bernard")));
    dialog.Click(kTakeMemberOfGroupButton);
    driver::Await("Bernard to be gone",
                  [&] { return members.Texts() == std::vector<std::wstring>{L"Girard"}; });
    dialog.Click(IDC_OK);
    dialog.AwaitClosed();
    window.AwaitUsable();
  }

  void Remove(const MainWindow& window, const std::wstring& folder, const std::wstring& leaf,
              int button, int question) {
    window.ClickNode(kGroupsTab, {kEditedGroup, folder, leaf});
    window.Click(button);
    ExpectQuestion(String(question), IDYES);
    window.AwaitUsable();
  }
};

TEST_F(GroupLife, ItIsCreatedEditedGivenMembersAndPermissionsAndDeleted) {
  const MainWindow window = Open(SampleSession());
  window.ClickTab(kGroupsTab);
  Create(window);
  EXPECT_EQ((Lines{"Entretien|Bâtiments et jardins|"}), Row());
  EXPECT_EQ((Lines{"Bernard", "Girard"}), Members());
  EXPECT_EQ((Lines{"Consulter le stock"}), Permissions());
  EXPECT_EQ(kNewGroup, window.Tree(kGroupsTab).Selected().text);
  ExpectAccountsAsStored(window, kGroupsTab);
  ExpectAccountAsStored(window, kUsersTab, L"Girard (Noëlle Girard)");

  window.ClickNode(kGroupsTab, {kNewGroup});
  Edit(window);
  EXPECT_EQ((Lines{"Entretien|Bâtiments|"}), Row());
  EXPECT_EQ((Lines{"Girard"}), Members());
  ExpectAccountAsStored(window, kGroupsTab, kEditedGroup);
  ExpectAccountAsStored(window, kUsersTab, L"Bernard (Émilie Bernard)");

  window.ClickNode(kGroupsTab, {kEditedGroup, String(app::kMembers)});
  window.Click(kAssignMembersButton);
  Choose(kEditedGroup, L"Chevalier", L"dub", L"Dubois");
  window.AwaitUsable();
  EXPECT_EQ((Lines{"Chevalier", "Dubois", "Girard"}), Members());
  window.ClickNode(kGroupsTab, {kEditedGroup, String(app::kGroupPermissions)});
  window.Click(kAssignGroupPermissionsButton);
  {
    const DialogWindow dialog(Program(), String(app::kChoicesTitle) + String(app::kPermissions));
    dialog.AwaitFocus(IDC_LIST_LIST_ITEM);
    dialog.Toggle(L"Consulter les commandes");
    dialog.Key(VK_RETURN);
    dialog.AwaitClosed();
  }
  window.AwaitUsable();
  EXPECT_EQ((Lines{"Consulter les commandes", "Consulter le stock"}), Permissions());
  ExpectAccountAsStored(window, kGroupsTab, kEditedGroup);
  ExpectAccountAsStored(window, kUsersTab, L"Dubois (François Dubois)");

  Remove(window, String(app::kMembers), L"Dubois (François Dubois)", kRemoveMemberButton,
         app::kAskRemoveMember);
  EXPECT_EQ((Lines{"Chevalier", "Girard"}), Members());
  ExpectAccountAsStored(window, kUsersTab, L"Dubois (François Dubois)");
  Remove(window, String(app::kGroupPermissions), L"Consulter le stock",
         kRemoveGroupPermissionButton, app::kAskRemoveGroupPermission);
  EXPECT_EQ((Lines{"Consulter les commandes"}), Permissions());
  ExpectAccountAsStored(window, kGroupsTab, kEditedGroup);
  ExpectAccountAsStored(window, kUsersTab, L"Girard (Noëlle Girard)");

  window.ClickNode(kGroupsTab, {kEditedGroup});
  window.Click(kDeleteGroupButton);
  ExpectQuestion(String(app::kAskDeleteGroup), IDYES);
  window.AwaitUsable();
  EXPECT_EQ((Lines{data::ToUtf8(L"Entretien(" + Id() + L")|Bâtiments|D")}), Row());
  ExpectAccountsAsStored(window, kGroupsTab);
  ExpectAccountAsStored(window, kUsersTab, L"Girard (Noëlle Girard)");
}

}  // namespace
}  // namespace program

// A group from its making to its end, by mouse and keyboard.

#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Keyboard.h"
#include "tests/program/driver/Mouse.h"

namespace program {
namespace {

using Lines = std::vector<std::string>;

constexpr const wchar_t* kShown = L"Entretien (Bâtiments et jardins)";
constexpr const wchar_t* kEdited = L"Entretien (Bâtiments)";

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
    const DialogWindow chooser(Program(), String(201) + group);
    const driver::ListBox others = chooser.List(IDC_LIST_ADD_USER + 1);
    const driver::ListBox chosen = chooser.List(IDC_LIST_ADD_USER + 2);
    driver::DoubleClickAt(others.Control(), others.Place(others.Find(first)));
    driver::Await("the first user to be chosen",
                  [&] { return chosen.Selected() == std::vector<std::wstring>{first}; });
    chooser.TabTo(IDC_TXT_ADD_USER + 1);
    chooser.Type(letters);
    EXPECT_EQ(std::vector<std::wstring>{second}, others.Selected());
    chooser.ClickOn(IDC_CMD_ADD_USER + 1);
    driver::Await("the second user to be chosen",
                  [&] { return chosen.Selected() == std::vector<std::wstring>{second}; });
    chooser.ClickOn(IDC_OK);
    chooser.AwaitClosed();
  }

  void Create(const MainWindow& window) {
    window.ClickOn(IDC_CMD_GROUP + 2);
    const DialogWindow dialog(Program(), String(202));
    dialog.AwaitFocus(IDC_TXT_GROUP_NAME);
    dialog.Type(L"Entretien");
    dialog.TabTo(IDC_TXT_GROUP_DESC);
    dialog.Type(L"Bâtiments et jardins");
    dialog.ClickOn(IDC_CMD_GROUP_BTN + 11);
    Choose(L"Entretien", L"Bernard", L"gir", L"Girard");
    EXPECT_EQ((std::vector<std::wstring>{L"Bernard", L"Girard"}),
              dialog.List(IDC_LIST_GROUP + 1).Texts());
    dialog.TabTo(IDC_LIST_GROUP + 2);
    dialog.Toggle(L"Consulter le stock");
    dialog.Key(VK_RETURN);
    dialog.AwaitClosed();
    window.AwaitUsable();
  }

  void Edit(const MainWindow& window) {
    driver::PressKey(window.Form(), VK_F2);
    const DialogWindow dialog(Program(), String(203));
    dialog.TabTo(IDC_TXT_GROUP_DESC);
    dialog.Type(L"Bâtiments");
    const driver::ListBox members = dialog.List(IDC_LIST_GROUP + 1);
    driver::ClickAt(members.Control(), members.Place(members.Find(L"Bernard")));
    dialog.ClickOn(IDC_CMD_GROUP_BTN + 21);
    driver::Await("Bernard to be gone",
                  [&] { return members.Texts() == std::vector<std::wstring>{L"Girard"}; });
    dialog.ClickOn(IDC_OK);
    dialog.AwaitClosed();
    window.AwaitUsable();
  }

  void Remove(const MainWindow& window, const std::wstring& folder, const std::wstring& leaf,
              int button, int question) {
    window.ClickNode(kGroupsTab, {kEdited, folder, leaf});
    window.ClickOn(button);
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
  EXPECT_EQ(kShown, window.Tree(kGroupsTab).Selected().text);
  ExpectAccountsAsStored(window, kGroupsTab);
  ExpectAccountAsStored(window, kUsersTab, L"Girard (Noëlle Girard)");

  window.ClickNode(kGroupsTab, {kShown});
  Edit(window);
  EXPECT_EQ((Lines{"Entretien|Bâtiments|"}), Row());
  EXPECT_EQ((Lines{"Girard"}), Members());
  ExpectAccountAsStored(window, kGroupsTab, kEdited);
  ExpectAccountAsStored(window, kUsersTab, L"Bernard (Émilie Bernard)");

  window.ClickNode(kGroupsTab, {kEdited, String(309)});
  window.ClickOn(IDC_CMD_MEMBER);
  Choose(kEdited, L"Chevalier", L"dub", L"Dubois");
  window.AwaitUsable();
  EXPECT_EQ((Lines{"Chevalier", "Dubois", "Girard"}), Members());
  window.ClickNode(kGroupsTab, {kEdited, String(310)});
  window.ClickOn(IDC_CMD_GROUP_PERMISSION);
  {
    const DialogWindow dialog(Program(), String(206) + String(307));
    dialog.AwaitFocus(IDC_LIST_LIST_ITEM);
    dialog.Toggle(L"Consulter les commandes");
    dialog.Key(VK_RETURN);
    dialog.AwaitClosed();
  }
  window.AwaitUsable();
  EXPECT_EQ((Lines{"Consulter les commandes", "Consulter le stock"}), Permissions());
  ExpectAccountAsStored(window, kGroupsTab, kEdited);
  ExpectAccountAsStored(window, kUsersTab, L"Dubois (François Dubois)");

  Remove(window, String(309), L"Dubois (François Dubois)", IDC_CMD_MEMBER + 1, 731);
  EXPECT_EQ((Lines{"Chevalier", "Girard"}), Members());
  ExpectAccountAsStored(window, kUsersTab, L"Dubois (François Dubois)");
  Remove(window, String(310), L"Consulter le stock", IDC_CMD_GROUP_PERMISSION + 1, 730);
  EXPECT_EQ((Lines{"Consulter les commandes"}), Permissions());
  ExpectAccountAsStored(window, kGroupsTab, kEdited);
  ExpectAccountAsStored(window, kUsersTab, L"Girard (Noëlle Girard)");

  window.ClickNode(kGroupsTab, {kEdited});
  window.ClickOn(IDC_CMD_GROUP + 1);
  ExpectQuestion(String(720), IDYES);
  window.AwaitUsable();
  EXPECT_EQ((Lines{data::ToUtf8(L"Entretien(" + Id() + L")|Bâtiments|D")}), Row());
  ExpectAccountsAsStored(window, kGroupsTab);
  ExpectAccountAsStored(window, kUsersTab, L"Girard (Noëlle Girard)");
}

}  // namespace
}  // namespace program

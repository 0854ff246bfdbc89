// Where the keyboard is after the mouse was used: what a user types next must not surprise him.

#include "app/StringIds.h"
#include "data/Text.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"

namespace program {
namespace {

class FocusAfterCommand : public ProgramTest {
 protected:
  // Waits for the dialog that edits this user, and leaves it.
  void ExpectEditing(const std::wstring& name, const MainWindow& window) {
    const DialogWindow dialog(Program(), String(app::kEditUserTitle));
    EXPECT_EQ(name, dialog.Box(IDC_TXT_USER_NAME).Text());
    dialog.Key(VK_ESCAPE);
    dialog.AwaitClosed();
    window.AwaitUsable();
  }
};

TEST_F(FocusAfterCommand, EditingLeavesTheKeysToTheTree) {
  const MainWindow window = Open(SampleSession());
  window.ClickNode(kUsersTab, {kMartin});
  window.Click(kEditUserButton);
  ExpectEditing(L"Martin", window);
  window.AwaitFocus(IDC_TREE_USERS);
  window.Key(VK_F2);
  ExpectEditing(L"Martin", window);
  window.Key(VK_DELETE);
  ExpectQuestion(String(app::kAskDeleteUser), IDNO);
}

TEST_F(FocusAfterCommand, ALetterTypedThenPressesNoButton) {
  const MainWindow window = Open(SampleSession());
  window.ClickNode(kUsersTab, {kMartin});
  window.Click(kEditUserButton);
  ExpectEditing(L"Martin", window);
  window.AwaitFocus(IDC_TREE_USERS);
  window.Key('Q');  // of "Quitter"; no account begins so
  window.Key(VK_F2);
  ExpectEditing(L"Martin", window);
}

TEST_F(FocusAfterCommand, DeletingLeavesTheKeysToTheTree) {
  const MainWindow window = Open(SampleSession());
  window.ClickNode(kUsersTab, {kBlanc});
  window.Click(kDeleteUserButton);
  ExpectQuestion(String(app::kAskDeleteUser), IDYES);
  window.AwaitUsable();
  window.AwaitFocus(IDC_TREE_USERS);
}

TEST_F(FocusAfterCommand, AssigningLeavesTheKeysToTheTreeOfItsTab) {
  const MainWindow window = Open(SampleSession());
  window.ClickTab(kGroupsTab);
  window.ClickNode(kGroupsTab, {L"Achats", String(app::kMembers)});
  window.Click(kAssignMembersButton);
  {
    const DialogWindow dialog(Program(), String(app::kAddUsersTitle) + L"Achats");
    dialog.Key(VK_ESCAPE);
    dialog.AwaitClosed();
  }
  window.AwaitUsable();
  window.AwaitFocus(IDC_TREE_GROUPS);
  EXPECT_EQ(String(app::kMembers), window.Tree(kGroupsTab).Selected().text);
}

}  // namespace
}  // namespace program

// The commands that the trees offer where they are, what they copy, and what they tell about a
// permission.

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/DialogWindow.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/SampleTexts.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Clipboard.h"
#include "tests/program/driver/Mouse.h"
#include "tests/program/driver/PopupMenu.h"
#include "tests/program/driver/ToolTip.h"

namespace program {
namespace {

class ContextMenu : public ProgramTest {
 protected:
  void OpenMenuAt(const MainWindow& window, const std::vector<std::wstring>& path) {
    driver::TreeView tree = window.Tree(kUsersTab);
    driver::RightClickAt(tree.Control(), tree.Reveal(tree.Find(path).item));
    driver::AwaitMenu(Program().Id());
  }

  // Chooses the item that stands that many items below the top of the menu.
  void ChooseItem(const MainWindow& window, int steps) {
    for (int step = 0; step <= steps; ++step) window.Key(VK_DOWN);
    window.Key(VK_RETURN);
    driver::AwaitNoMenu(Program().Id());
  }
};

TEST_F(ContextMenu, ItsCommandsAreThoseOfTheButtons) {
  constexpr int kAssignPermission = 5;  // after Edit, Delete, New, Assign and Remove of groups
  const MainWindow window = Open(SampleSession());
  OpenMenuAt(window, {kMartin, String(app::kUserPermissions)});
  EXPECT_EQ(String(app::kUserPermissions), window.Tree(kUsersTab).Selected().text)
      << "the click has not selected";
  ChooseItem(window, kAssignPermission);
  {
    const DialogWindow dialog(Program(), String(app::kChoicesTitle) + String(app::kPermissions));
    dialog.Toggle(L"Libérer un lot");
    dialog.Key(VK_RETURN);
    dialog.AwaitClosed();
  }
  window.AwaitUsable();
  EXPECT_EQ((std::vector<std::string>{"14", "20", "21"}),
            Box().Database().Lines(L"SELECT PERMID FROM QRUPRM WHERE USERID = 9 ORDER BY 1"));

  window.Key(VK_F10, {VK_SHIFT});
  driver::AwaitMenu(Program().Id());
  window.Key('E');
  driver::AwaitNoMenu(Program().Id());
  {
    const DialogWindow dialog(Program(), String(app::kEditUserTitle));
    EXPECT_EQ(L"Martin", dialog.Box(IDC_TXT_USER_NAME).Text());
    dialog.Key(VK_ESCAPE);
    dialog.AwaitClosed();
  }
  window.AwaitUsable();
}

TEST_F(ContextMenu, WhatItsButtonDoesNotAllowIsNotDone) {
  const MainWindow window = Open(SampleSession());
  const std::wstring before = Box().Database().Contents();
  OpenMenuAt(window, {kAdmin});
  window.Key('S');  // Delete, which is off for this user
  window.Key(VK_ESCAPE);
  driver::AwaitNoMenu(Program().Id());
  window.Form().Send(WM_NULL);
  EXPECT_FALSE(driver::FindPrompt(Program().Id()));
  EXPECT_EQ(before, Box().Database().Contents());
}

TEST_F(ContextMenu, CopiesWhatStandsBelowANodeAsCtrlCDoes) {
  const std::wstring expected = String(app::kMemberOf) +
                                L"\r\n\tLaboratoire (Mesures et essais)\r\n" +
                                L"\tProduction (Ateliers d'Annecy et de Châteauroux)\r\n" +
                                L"\tTout le monde (Tous les utilisateurs)";
  const MainWindow window = Open(SampleSession());
  driver::ClearClipboard();
  window.ClickNode(kUsersTab, {kMartin, String(app::kMemberOf)});
  window.Key('C', {VK_CONTROL});
  driver::WaitUntil([&] { return !driver::ClipboardText().empty(); });
  EXPECT_EQ(data::ToUtf8(expected), data::ToUtf8(driver::ClipboardText()));

  driver::ClearClipboard();
  window.Key(VK_F10, {VK_SHIFT});
  driver::AwaitMenu(Program().Id());
  window.Key('C');
  driver::AwaitNoMenu(Program().Id());
  driver::WaitUntil([&] { return !driver::ClipboardText().empty(); });
  EXPECT_EQ(data::ToUtf8(expected), data::ToUtf8(driver::ClipboardText()));
}

class Why : public ProgramTest {};

TEST_F(Why, AStatusLineAndATipTellWhereAPermissionComesFrom) {
  const MainWindow window = Open(SampleSession());
  const std::wstring production = L"Production";
  window.ClickNode(kUsersTab, {kMartin, String(app::kAllPermissions), L"Consulter le stock"});
  EXPECT_EQ(data::ToUtf8(String(app::kDirectlyAndByGroup, {production})),
            data::ToUtf8(window.Status()));
  window.ClickNode(kUsersTab,
                   {kMartin, String(app::kAllPermissions), L"Lancer un ordre de fabrication"});
  EXPECT_EQ(data::ToUtf8(String(app::kByGroup, {production})), data::ToUtf8(window.Status()));
  window.ClickNode(kUsersTab, {kMartin});
  EXPECT_EQ(data::ToUtf8(String(app::kCounts, {L"39", L"12", L"30"})),
            data::ToUtf8(window.Status()));

  driver::TreeView tree = window.Tree(kUsersTab);
  const HTREEITEM item =
      tree.Find({kMartin, String(app::kAllPermissions), L"Solder un ordre de fabrication"}).item;
  driver::PointAt(tree.Control(), tree.Reveal(item));
  EXPECT_EQ(data::ToUtf8(String(app::kByGroup, {production})),
            data::ToUtf8(driver::AwaitTip(Program().Id()).Text()));
  EXPECT_EQ(kMartin, tree.Selected().text) << "looking is not selecting";
}

TEST_F(Why, ATipTellsWhyAButtonIsOff) {
  const MainWindow window = Open(SampleSession());
  window.ClickNode(kUsersTab, {kAdmin});
  const driver::Window button = window.Control(kDeleteUserButton);
  ASSERT_FALSE(button.IsEnabled());
  RECT place = {};
  GetClientRect(button.Handle(), &place);
  driver::PointAt(button, driver::Middle(place));
  EXPECT_EQ(data::ToUtf8(String(app::kMainAdministrator)),
            data::ToUtf8(driver::AwaitTip(Program().Id()).Text()));
  window.Key(VK_DELETE);
  driver::Await("the status line to tell it, too",
                [&] { return window.Status() == String(app::kMainAdministrator); });
}

}  // namespace
}  // namespace program

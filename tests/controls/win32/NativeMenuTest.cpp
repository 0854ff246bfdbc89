#include <utility>
#include <vector>

#include "controls/PopupMenu.h"
#include "controls/win32/FormPeer.h"
#include "tests/controls/TreeTest.h"
#include "tests/controls/win32/NativeTree.h"

namespace controls_test {
namespace {

using controls::MenuItem;

// The menus that the system shows.
class NativeMenu : public TreeTest {
 protected:
  NativeMenu() {
    desktop.system.answers.PopupMenu = nullptr;
    tree.ContextMenu = [this](controls::NodeId node) {
      for (const auto& [message, key] : keys) {
        PostMessageW(form.BackEnd().life.window, message, key, 1);
      }
      chosen = controls::ShowPopupMenu(tree, node, items);
    };
    form.ok.Click = [this] { events.push_back(L"ok"); };
    user.Select(tree, zoe);
    events.clear();
  }

  // The command numbers are those of controls of the form, which are not to be pressed by them.
  const std::vector<MenuItem> items = {{IDC_TEST_OK, L"&Editer...", true},
                                       {0, L"", true},
                                       {IDC_TEST_CANCEL, L"&Supprimer...", false},
                                       {IDC_TEST_MORE, L"&Nouveau...", true}};
  // What is pressed as soon as the menu stands there.
  std::vector<std::pair<UINT, WPARAM>> keys;
  int chosen = -1;
};

struct SeenMenu {
  HWND window = nullptr;
  RECT place = {};
};

SeenMenu seenMenu;

// Looks at the menu as soon as it stands there, and closes it.
void CALLBACK LookAtMenu(HWND form, UINT, UINT_PTR timer, DWORD) {
  HWND menu = FindWindowW(L"#32768", nullptr);
  if (!menu || !IsWindowVisible(menu)) return;
  seenMenu.window = menu;
  GetWindowRect(menu, &seenMenu.place);
  KillTimer(form, timer);
  PostMessageW(form, WM_KEYDOWN, VK_ESCAPE, 1);
}

TEST_F(NativeMenu, GivesTheCommandChosenAndPressesNothing) {
  keys = {{WM_KEYDOWN, VK_DOWN}, {WM_KEYDOWN, VK_RETURN}};
  user.RightClick(tree, zoe);
  EXPECT_EQ(chosen, IDC_TEST_OK);
  EXPECT_EQ(events, Events{});
}

TEST_F(NativeMenu, GivesNothingWhenItIsClosed) {
  keys = {{WM_KEYDOWN, VK_DOWN}, {WM_KEYDOWN, VK_ESCAPE}};
  user.RightClick(tree, zoe);
  EXPECT_EQ(chosen, 0);
}

TEST_F(NativeMenu, AnswersToMnemonics) {
  keys = {{WM_CHAR, L'n'}};
  user.PressMenuKey(tree);
  EXPECT_EQ(chosen, IDC_TEST_MORE);
}

TEST_F(NativeMenu, DoesNotGiveADisabledCommand) {
  keys = {{WM_CHAR, L's'}, {WM_KEYDOWN, VK_ESCAPE}};
  user.PressMenuKey(tree);
  EXPECT_EQ(chosen, 0);
}

TEST_F(NativeMenu, StandsBelowItsNodeWhenTheKeyboardAsks) {
  seenMenu = {};
  SetTimer(form.BackEnd().life.window, 1, USER_TIMER_MINIMUM, LookAtMenu);
  user.PressMenuKey(tree);
  ASSERT_TRUE(seenMenu.window);
  auto& peer = static_cast<controls::TreeViewPeer&>(tree.BackEnd());
  const RECT node = peer.ScreenPlace(zoe);
  EXPECT_EQ(seenMenu.place.left, node.left);
  EXPECT_GE(seenMenu.place.top, node.bottom);
  EXPECT_LE(seenMenu.place.top, node.bottom + 2);
}

TEST_F(NativeMenu, StandsWhereTheMouseAsks) {
  seenMenu = {};
  SetTimer(form.BackEnd().life.window, 1, USER_TIMER_MINIMUM, LookAtMenu);
  auto& peer = static_cast<controls::TreeViewPeer&>(tree.BackEnd());
  const RECT node = peer.ScreenPlace(adam);
  const POINT place = {node.left + 3, node.top + 3};
  SendMessageW(peer.window, WM_CONTEXTMENU, controls::AsWParam(peer.window),
               MAKELPARAM(place.x, place.y));
  EXPECT_EQ(tree.SelectedNode(), adam);
  ASSERT_TRUE(seenMenu.window);
  EXPECT_NEAR(seenMenu.place.left, place.x, 2);
  EXPECT_NEAR(seenMenu.place.top, place.y, 2);
}

TEST_F(NativeMenu, IsNotAskedForBesideTheNodes) {
  auto& peer = static_cast<controls::TreeViewPeer&>(tree.BackEnd());
  RECT client = {};
  GetClientRect(peer.window, &client);
  POINT place = {client.right - 2, client.bottom - 2};
  ASSERT_FALSE(peer.ItemAt(place));
  ClientToScreen(peer.window, &place);
  SendMessageW(peer.window, WM_CONTEXTMENU, controls::AsWParam(peer.window),
               MAKELPARAM(place.x, place.y));
  EXPECT_EQ(chosen, -1);
  EXPECT_EQ(tree.SelectedNode(), zoe);
}

TEST_F(NativeMenu, IsNotAskedForInTheMiddleOfAChange) {
  const controls::TreeView::Update update(tree);
  EXPECT_TRUE(user.Try().RightClick(tree, adam));
  EXPECT_EQ(chosen, -1);
  EXPECT_EQ(tree.SelectedNode(), zoe);
}

}  // namespace
}  // namespace controls_test

// The window used without a mouse.

#include <algorithm>
#include <utility>
#include <vector>

#include "app/StringIds.h"
#include "data/Text.h"
#include "resources/ResourceIds.h"
#include "tests/program/ControlIds.h"
#include "tests/program/ProgramTest.h"
#include "tests/program/Texts.h"
#include "tests/program/driver/Keyboard.h"

namespace program {
namespace {

class Keyboard : public ProgramTest {};

TEST_F(Keyboard, TheTabKeyWalksTheControlsInTheOrderTheyAreSeen) {
  const MainWindow window = Open(SampleSession());
  window.AwaitFocus(IDC_TREE_USERS);
  EXPECT_EQ((std::vector<int>{kNewUserButton, kRefreshButton, IDC_CMD_ABOUT, IDC_HELP_BUTTON,
                              kExitButton, IDC_TAB, IDC_FIND_USERS, IDC_TREE_USERS}),
            driver::WalkByTab(window.Form()));
}

TEST_F(Keyboard, ShiftAndTabWalkBack) {
  const MainWindow window = Open(SampleSession());
  window.AwaitFocus(IDC_TREE_USERS);
  EXPECT_EQ((std::vector<int>{IDC_FIND_USERS, IDC_TAB, kExitButton, IDC_HELP_BUTTON, IDC_CMD_ABOUT,
                              kRefreshButton, kNewUserButton, IDC_TREE_USERS}),
            driver::WalkByTab(window.Form(), {VK_SHIFT}));
}

TEST_F(Keyboard, AScreenReaderFindsTheNameOfATreeDirectlyBeforeIt) {
  const MainWindow window = Open(SampleSession());
  const std::vector<driver::Window> controls = window.Form().Children();
  for (const auto& [tree, name] :
       {std::pair{IDC_TREE_USERS, app::kUsersTreeName}, {IDC_TREE_GROUPS, app::kGroupsTreeName}}) {
    const auto found = std::ranges::find(controls, tree, &driver::Window::Id);
    ASSERT_TRUE(found != controls.end() && found != controls.begin());
    EXPECT_EQ(data::ToUtf8(String(name)), data::ToUtf8((found - 1)->Text()));
    EXPECT_FALSE((found - 1)->IsVisible());
  }
}

TEST_F(Keyboard, TheArrowKeysChangeTheTabAndTheTabKeyThenEntersItsBoxAndItsTree) {
  const MainWindow window = Open(SampleSession());
  window.AwaitFocus(IDC_TREE_USERS);
  window.Key(VK_TAB, {VK_SHIFT});
  window.AwaitFocus(IDC_FIND_USERS);
  window.Key(VK_TAB, {VK_SHIFT});
  window.AwaitFocus(IDC_TAB);
  window.Key(VK_RIGHT);
  driver::Await("the groups tree", [&] { return window.Control(IDC_TREE_GROUPS).IsVisible(); });
  window.Key(VK_TAB);
  window.AwaitFocus(IDC_FIND_GROUPS);
  window.Key(VK_TAB);
  window.AwaitFocus(IDC_TREE_GROUPS);
}

TEST_F(Keyboard, AnotherTabsTreeTakesTheFocusOfTheOneItReplaces) {
  const MainWindow window = Open(SampleSession());
  window.AwaitFocus(IDC_TREE_USERS);
  window.SelectTab(kGroupsTab);
  window.AwaitFocus(IDC_TREE_GROUPS);
  window.SelectTab(kUsersTab);
  window.AwaitFocus(IDC_TREE_USERS);
}

TEST_F(Keyboard, TheMnemonicOfRefreshReadsTheTreesAgain) {
  const MainWindow window = Open(SampleSession());
  driver::TreeView tree = window.Tree(kUsersTab);
  const int before = tree.Count();
  Box().Database().Run(L"INSERT INTO QRUSER (USERID, NAME) VALUES (60000, 'Nouveau')");
  window.Key('F', {VK_MENU});
  driver::Await("the new user", [&] { return tree.Count() == before + 1; });
}

}  // namespace
}  // namespace program

#include "controls/PopupMenu.h"
#include "tests/controls/TreeTest.h"

namespace controls_test {
namespace {

using controls::kNoNode;
using controls::MenuItem;

// Menus of a tree's nodes.
class TreeMenu : public TreeTest {
 protected:
  TreeMenu() {
    tree.ContextMenu = [this](controls::NodeId node) {
      Note(L"menu", node);
      chosen = controls::ShowPopupMenu(tree, node, items);
    };
  }

  const std::vector<MenuItem> items = {
      {1, L"&Editer...", true}, {0, L"", true}, {2, L"&Supprimer...", false}};
  int chosen = -1;
};

TEST_F(TreeMenu, IsAskedForByTheRightMouseButtonOnANodeThatIsSelectedFirst) {
  user.Select(tree, zoe);
  events.clear();
  user.ExpectMenu(1);
  user.RightClick(tree, martin);
  EXPECT_EQ(events, (Events{L"click Martin", L"menu Martin"}));
  EXPECT_EQ(tree.SelectedNode(), martin);
  EXPECT_EQ(chosen, 1);
}

TEST_F(TreeMenu, IsAskedForWithoutNodeClickOnTheNodeThatIsSelectedAlready) {
  user.Select(tree, zoe);
  events.clear();
  user.ExpectMenu(0);
  user.RightClick(tree, zoe);
  EXPECT_EQ(events, (Events{L"menu Zoé"}));
  EXPECT_EQ(chosen, 0);
}

TEST_F(TreeMenu, OpensTheWayToItsNode) {
  user.ExpectMenu(0);
  user.RightClick(tree, five);
  EXPECT_EQ(events, (Events{L"expand Utilisateurs", L"expand Adam", L"expand Membre du Groupe",
                            L"click Qualité", L"menu Qualité"}));
}

TEST_F(TreeMenu, GivesTheTreeTheFocus) {
  form.name.SetFocus();
  user.ExpectMenu(0);
  user.RightClick(tree, root);
  EXPECT_TRUE(tree.HasFocus());
}

TEST_F(TreeMenu, IsAskedForWithTheKeyboardForTheSelectedNode) {
  user.Select(tree, five);
  events.clear();
  user.ExpectMenu(1);
  user.PressMenuKey(tree);
  EXPECT_EQ(events, (Events{L"menu Qualité"}));
  EXPECT_EQ(chosen, 1);
}

TEST_F(TreeMenu, IsNotAskedForWithTheKeyboardWhereNothingIsSelected) {
  user.Focus(tree);
  ASSERT_EQ(tree.SelectedNode(), kNoNode);
  user.PressMenuKey(tree);
  EXPECT_EQ(events, Events{});
}

TEST_F(TreeMenu, ShowsItsLinesAsTheyAre) {
  user.ExpectMenu([](const std::vector<MenuItem>& shown) {
    EXPECT_EQ(shown.size(), 3U);
    EXPECT_EQ(shown[0].caption, L"&Editer...");
    EXPECT_TRUE(shown[0].enabled);
    EXPECT_EQ(shown[1].command, 0);
    EXPECT_EQ(shown[2].command, 2);
    EXPECT_FALSE(shown[2].enabled);
    return 0;
  });
  user.RightClick(tree, root);
}

TEST_F(TreeMenu, WithoutLinesIsNotShown) {
  tree.ContextMenu = [this](controls::NodeId node) {
    chosen = controls::ShowPopupMenu(tree, node, {});
  };
  user.RightClick(tree, root);
  EXPECT_EQ(chosen, 0);
}

TEST_F(TreeMenu, IsNotShownForANodeThatIsNoMore) {
  tree.Remove(martin);
  EXPECT_EQ(controls::ShowPopupMenu(tree, martin, items), 0);
}

TEST_F(TreeMenu, IsNotAskedForWhenNodeClickTakesTheNodeAway) {
  tree.NodeClick = [this](controls::NodeId node) { tree.Remove(node); };
  user.RightClick(tree, six);
  EXPECT_FALSE(tree.Nodes().Exists(six));
  EXPECT_EQ(chosen, -1);
}

TEST_F(TreeMenu, MayTakeItsNodeAway) {
  tree.ContextMenu = [this](controls::NodeId node) {
    if (controls::ShowPopupMenu(tree, node, items) == 1) tree.Remove(node);
  };
  user.ExpectMenu(1);
  user.RightClick(tree, zoe);
  EXPECT_FALSE(tree.Nodes().Exists(zoe));
  EXPECT_EQ(tree.SelectedNode(), adam);
}

TEST_F(TreeMenu, MayUnloadItsForm) {
  tree.ContextMenu = [this](controls::NodeId) { form.Unload(); };
  user.RightClick(tree, root);
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(TreeMenu, MayOpenAModalForm) {
  SmallForm dialog(desktop);
  dialog.ok.Click = [&] { dialog.Unload(); };
  tree.ContextMenu = [&](controls::NodeId node) {
    if (controls::ShowPopupMenu(tree, node, items) == 1) dialog.ShowModal(form);
  };
  user.ExpectMenu(1);
  user.ExpectModal([&](controls::Form&) { user.Click(dialog.ok); });
  user.RightClick(tree, root);
  EXPECT_TRUE(user.CanUse(tree));
}

TEST_F(TreeMenu, IsNotToBeHadOfADisabledTree) {
  user.Select(tree, root);
  tree.SetEnabled(false);
  EXPECT_FALSE(user.Try().RightClick(tree, root));
  EXPECT_FALSE(user.Try().PressMenuKey(tree));
  EXPECT_EQ(chosen, -1);
}

TEST_F(TreeMenu, IsLeftOutWhereTheFormHasNone) {
  tree.ContextMenu = nullptr;
  user.RightClick(tree, martin);
  user.PressMenuKey(tree);
  EXPECT_EQ(tree.SelectedNode(), martin);
}

TEST_F(TreeMenu, LetsAnEscapedErrorGoWhereOthersGo) {
  tree.ContextMenu = [](controls::NodeId) { throw 1; };
  user.RightClick(tree, root);
  EXPECT_EQ(escapedErrors, 1);
}

}  // namespace
}  // namespace controls_test

#include "tests/controls/TreeTest.h"

namespace controls_test {
namespace {

using controls::NodeId;

// A user who presses twice, or a key that leads elsewhere.
class TreeDoubleClick : public TreeTest {
 protected:
  TreeDoubleClick() {
    tree.DblClick = [this](NodeId node) { Note(L"twice", node); };
  }
};

TEST_F(TreeDoubleClick, IsRaisedAfterTheClickThatSelects) {
  user.Select(tree, folder);
  user.Expand(tree, folder);
  events.clear();
  user.DoubleClick(tree, five);
  EXPECT_EQ(events, (Events{L"click Qualité", L"twice Qualité"}));
  EXPECT_EQ(tree.SelectedNode(), five);
}

TEST_F(TreeDoubleClick, OpensAndClosesANodeThatHasChildrenFirst) {
  user.Select(tree, adam);
  events.clear();
  user.DoubleClick(tree, adam);
  EXPECT_EQ(events, (Events{L"expand Adam", L"twice Adam"}));
  events.clear();
  user.DoubleClick(tree, adam);
  EXPECT_EQ(events, (Events{L"collapse Adam", L"twice Adam"}));
}

TEST_F(TreeDoubleClick, MayLeadToAnotherNode) {
  tree.DblClick = [this](NodeId) { tree.SetSelectedNode(zoe); };
  user.DoubleClick(tree, five);
  EXPECT_EQ(tree.SelectedNode(), zoe);
}

TEST_F(TreeDoubleClick, MayTakeTheNodeAway) {
  tree.DblClick = [this](NodeId node) { tree.Remove(node); };
  user.DoubleClick(tree, five);
  EXPECT_FALSE(tree.Nodes().Exists(five));
  EXPECT_EQ(tree.SelectedNode(), six);
}

TEST_F(TreeDoubleClick, MayUnloadItsForm) {
  tree.DblClick = [this](NodeId) { form.Unload(); };
  user.DoubleClick(tree, five);
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(TreeDoubleClick, IsNotForADisabledTree) {
  user.Select(tree, five);
  events.clear();
  tree.SetEnabled(false);
  EXPECT_FALSE(user.Try().DoubleClick(tree, five));
  EXPECT_EQ(events, Events{});
}

// Where it leads is for the form to say.
TEST_F(TreeDoubleClick, TheBackspaceKeySelectsNothingByItself) {
  user.Select(tree, five);
  events.clear();
  std::vector<int> keys;
  form.OnKeyDown = [&keys](int key) { keys.push_back(key); };
  user.PressKey(form, controls::kKeyBack);
  user.PressCtrl(form, controls::kKeyBack);
  EXPECT_EQ(tree.SelectedNode(), five);
  EXPECT_EQ(events, Events{});
  EXPECT_EQ(keys,
            (std::vector<int>{controls::kKeyBack, controls::kKeyBack + controls::kKeyControl}));
}

TEST_F(TreeDoubleClick, BringingANodeIntoViewSelectsAndOpensNothing) {
  user.Select(tree, root);
  events.clear();
  tree.EnsureVisible(five);
  tree.EnsureVisible(martin);
  EXPECT_EQ(events, Events{});
  EXPECT_EQ(tree.SelectedNode(), root);
  EXPECT_FALSE(tree.Nodes().Expanded(adam));
}

}  // namespace
}  // namespace controls_test

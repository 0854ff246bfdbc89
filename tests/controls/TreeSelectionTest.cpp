#include "tests/controls/TreeTest.h"

namespace controls_test {
namespace {

using controls::kNoNode;

class TreeSelection : public TreeTest {};

TEST_F(TreeSelection, IsNothingAtFirst) {
  EXPECT_EQ(tree.SelectedNode(), kNoNode);
  user.Focus(tree);
  EXPECT_EQ(tree.SelectedNode(), kNoNode);
  EXPECT_EQ(events, Events{});
}

TEST_F(TreeSelection, RaisesNodeClickForTheUser) {
  tree.SetExpanded(root, true);
  events.clear();
  user.Select(tree, zoe);
  user.Select(tree, zoe);
  user.Select(tree, martin);
  EXPECT_EQ(tree.SelectedNode(), martin);
  EXPECT_EQ(events, (Events{L"click Zoé", L"click Martin"}));
}

TEST_F(TreeSelection, RaisesNoNodeClickForTheProgram) {
  tree.SetExpanded(root, true);
  events.clear();
  tree.SetSelectedNode(zoe);
  EXPECT_EQ(tree.SelectedNode(), zoe);
  tree.SetSelectedNode(kNoNode);
  EXPECT_EQ(tree.SelectedNode(), kNoNode);
  EXPECT_EQ(events, Events{});
}

TEST_F(TreeSelection, OpensTheWayForTheProgram) {
  tree.SetSelectedNode(six);
  EXPECT_EQ(tree.SelectedNode(), six);
  EXPECT_TRUE(tree.Nodes().Expanded(folder));
  EXPECT_EQ(events, (Events{L"expand Utilisateurs", L"expand Adam", L"expand Membre du Groupe"}));
}

TEST_F(TreeSelection, OpensTheWayForTheUser) {
  user.Select(tree, five);
  EXPECT_EQ(events, (Events{L"expand Utilisateurs", L"expand Adam", L"expand Membre du Groupe",
                            L"click Qualité"}));
}

TEST_F(TreeSelection, PassesToTheNextSiblingWhenItsNodeIsRemoved) {
  tree.SetSelectedNode(zoe);
  tree.Remove(zoe);
  EXPECT_EQ(tree.SelectedNode(), adam);
}

TEST_F(TreeSelection, PassesToThePreviousSiblingWhenThereIsNoNext) {
  tree.SetSelectedNode(martin);
  tree.Remove(martin);
  EXPECT_EQ(tree.SelectedNode(), adam);
}

TEST_F(TreeSelection, PassesToTheParentWhenThereIsNoSibling) {
  tree.SetSelectedNode(folder);
  tree.Remove(folder);
  EXPECT_EQ(tree.SelectedNode(), adam);
}

TEST_F(TreeSelection, IsNothingOnceTheLastNodeIsRemoved) {
  tree.SetSelectedNode(root);
  tree.Remove(root);
  EXPECT_EQ(tree.SelectedNode(), kNoNode);
}

TEST_F(TreeSelection, PassesOnWhenANodeAboveItIsRemoved) {
  tree.SetSelectedNode(six);
  events.clear();
  tree.Remove(adam);
  EXPECT_EQ(tree.SelectedNode(), martin);
  EXPECT_EQ(events, Events{});
}

TEST_F(TreeSelection, PassesToTheNodeWhoseChildrenAreRemoved) {
  tree.SetSelectedNode(six);
  tree.RemoveChildren(folder);
  EXPECT_EQ(tree.SelectedNode(), folder);
}

TEST_F(TreeSelection, StaysWhereItIsWhenOthersAreRemovedAndSorted) {
  tree.SetSelectedNode(adam);
  events.clear();
  {
    controls::TreeView::Update update(tree);
    tree.Remove(zoe);
    tree.RemoveChildren(adam);
    tree.SetSorted(root, true);
    tree.SetText(adam, L"Yves");
  }
  EXPECT_EQ(tree.SelectedNode(), adam);
  EXPECT_EQ(events, Events{});
}

TEST_F(TreeSelection, PassesToACollapsedNodeFromBelowItWithoutNodeClick) {
  tree.SetSelectedNode(six);
  events.clear();
  controls::NodeId selectedThen = kNoNode;
  tree.Collapse = [&](controls::NodeId node) {
    Note(L"collapse", node);
    selectedThen = tree.SelectedNode();
  };
  user.Collapse(tree, adam);
  EXPECT_EQ(tree.SelectedNode(), adam);
  EXPECT_EQ(selectedThen, adam);
  EXPECT_EQ(events, (Events{L"collapse Adam"}));
}

TEST_F(TreeSelection, PassesToANodeThatTheProgramCollapses) {
  tree.SetSelectedNode(six);
  events.clear();
  tree.SetExpanded(root, false);
  EXPECT_EQ(tree.SelectedNode(), root);
  EXPECT_EQ(events, (Events{L"collapse Utilisateurs"}));
}

TEST_F(TreeSelection, MayRemoveItsNodeFromNodeClick) {
  tree.NodeClick = [this](controls::NodeId node) { tree.Remove(node); };
  user.Select(tree, six);
  EXPECT_FALSE(tree.Nodes().Exists(six));
  EXPECT_EQ(tree.SelectedNode(), five);
}

TEST_F(TreeSelection, MayRebuildTheTreeFromNodeClick) {
  tree.NodeClick = [this](controls::NodeId) {
    controls::TreeView::Update update(tree);
    tree.Clear();
    root = tree.Add(kNoNode, kRootForm, 0, L"Groupes", 0);
    tree.SetSelectedNode(root);
  };
  user.Select(tree, six);
  EXPECT_EQ(tree.SelectedNode(), root);
  EXPECT_EQ(tree.Nodes().Count(), 1);
  EXPECT_EQ(Text(root), L"Groupes");
}

TEST_F(TreeSelection, TakesNothingFromTheUserWhileTheTreeIsDisabled) {
  tree.SetEnabled(false);
  EXPECT_FALSE(user.Try().Select(tree, zoe));
  EXPECT_FALSE(user.Try().Expand(tree, root));
  EXPECT_EQ(tree.SelectedNode(), kNoNode);
  EXPECT_EQ(events, Events{});
}

}  // namespace
}  // namespace controls_test

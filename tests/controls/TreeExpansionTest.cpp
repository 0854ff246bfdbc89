#include "tests/controls/TreeTest.h"

namespace controls_test {
namespace {

using controls::kNoNode;

class TreeExpansion : public TreeTest {};

TEST_F(TreeExpansion, IsReportedWhenItChanges) {
  tree.SetExpanded(root, true);
  tree.SetExpanded(root, true);
  tree.SetExpanded(root, false);
  tree.SetExpanded(root, false);
  EXPECT_EQ(events, (Events{L"expand Utilisateurs", L"collapse Utilisateurs"}));
}

TEST_F(TreeExpansion, IsReportedToTheUserToo) {
  user.Expand(tree, root);
  EXPECT_TRUE(tree.Nodes().Expanded(root));
  EXPECT_FALSE(user.Try().Expand(tree, root));
  user.Collapse(tree, root);
  EXPECT_FALSE(tree.Nodes().Expanded(root));
  EXPECT_FALSE(user.Try().Collapse(tree, root));
  EXPECT_EQ(events, (Events{L"expand Utilisateurs", L"collapse Utilisateurs"}));
}

TEST_F(TreeExpansion, OpensTheWayFirstForTheUser) {
  user.Expand(tree, folder);
  EXPECT_EQ(events, (Events{L"expand Utilisateurs", L"expand Adam", L"expand Membre du Groupe"}));
}

TEST_F(TreeExpansion, SelectsNothing) {
  user.Expand(tree, folder);
  EXPECT_EQ(tree.SelectedNode(), kNoNode);
  tree.SetSelectedNode(zoe);
  user.Collapse(tree, adam);
  EXPECT_EQ(tree.SelectedNode(), zoe);
}

TEST_F(TreeExpansion, IsNoGestureOnANodeWithoutChildren) {
  EXPECT_FALSE(user.Try().Expand(tree, zoe));
  EXPECT_FALSE(tree.Nodes().Expanded(zoe));
}

TEST_F(TreeExpansion, OfANodeWithoutChildrenShowsThoseItGets) {
  tree.SetExpanded(root, true);
  tree.SetExpanded(zoe, true);
  EXPECT_EQ(events, (Events{L"expand Utilisateurs", L"expand Zoé"}));
  const controls::NodeId added = tree.Add(zoe, kFolderForm, 0, L"Membre du Groupe", 2);
  EXPECT_TRUE(tree.Nodes().Expanded(zoe));
  events.clear();
  user.Select(tree, added);
  EXPECT_EQ(events, (Events{L"click Membre du Groupe"}));
}

TEST_F(TreeExpansion, LastsThroughARebuildOfTheChildren) {
  tree.SetSelectedNode(folder);
  tree.SetExpanded(folder, true);
  events.clear();
  {
    controls::TreeView::Update update(tree);
    tree.RemoveChildren(folder);
    five = tree.Add(folder, kLeafForm, 5, L"Qualité", 3);
  }
  EXPECT_TRUE(tree.Nodes().Expanded(folder));
  EXPECT_TRUE(tree.Nodes().Expanded(adam));
  EXPECT_EQ(tree.SelectedNode(), folder);
  user.Select(tree, five);
  EXPECT_EQ(events, (Events{L"click Qualité"}));
}

TEST_F(TreeExpansion, IsReportedAtOnceInsideAnUpdate) {
  controls::TreeView::Update update(tree);
  tree.Clear();
  root = tree.Add(kNoNode, kRootForm, 0, L"Groupes", 0);
  tree.Add(root, kUserForm, 1, L"Adam", 1);
  tree.SetSelectedNode(root);
  tree.SetExpanded(root, true);
  EXPECT_EQ(events, (Events{L"expand Groupes"}));
  EXPECT_TRUE(tree.Nodes().Expanded(root));
  EXPECT_EQ(tree.SelectedNode(), root);
}

TEST_F(TreeExpansion, MayAddChildrenFromExpand) {
  tree.Expand = [this](controls::NodeId node) { tree.Add(node, kUserForm, 99, L"Nouveau", 1); };
  user.Expand(tree, root);
  EXPECT_EQ(tree.Nodes().Children(root), 4);
  EXPECT_TRUE(tree.Nodes().Expanded(root));
}

TEST_F(TreeExpansion, MayChangeAnImageFromExpandAndCollapse) {
  tree.Expand = [this](controls::NodeId node) { tree.SetImage(node, 4); };
  tree.Collapse = [this](controls::NodeId node) { tree.SetImage(node, 2); };
  user.Expand(tree, folder);
  EXPECT_EQ(tree.Nodes().Image(folder), 4);
  user.Collapse(tree, folder);
  EXPECT_EQ(tree.Nodes().Image(folder), 2);
}

TEST_F(TreeExpansion, MayUnloadItsFormFromExpand) {
  tree.Expand = [this](controls::NodeId) { form.Unload(); };
  user.Expand(tree, root);
  EXPECT_FALSE(form.IsLoaded());
}

// A whole tree of accounts, as one batch fills it.
TEST_F(TreeExpansion, AndSelectionAnswerAtOnceInALargeTree) {
  constexpr int kUsers = 30000;
  {
    controls::TreeView::Update update(tree);
    tree.Clear();
    root = tree.Add(kNoNode, kRootForm, 0, L"Utilisateurs", 0);
    tree.SetSorted(root, true);
    const controls::TextRef folderText = tree.Share(L"Membre du Groupe");
    for (int i = kUsers; i > 0; --i) {
      const std::wstring number = std::to_wstring(i + 100000);
      const controls::NodeId account =
          tree.AddUnique(root, kUserForm, i, tree.Share(L"User " + number), 1);
      tree.AddUnique(account, kFolderForm, 0, folderText, 2);
    }
    tree.SetExpanded(root, true);
  }
  const controls::TreeNodes& nodes = tree.Nodes();
  EXPECT_EQ(nodes.Count(), 2 * kUsers + 1);
  const controls::NodeId last = nodes.ChildrenInOrder(root).back();
  EXPECT_EQ(nodes.Id(nodes.ChildrenInOrder(root).front()), 1);
  EXPECT_EQ(nodes.Id(last), kUsers);
  events.clear();
  user.Select(tree, nodes.ChildrenInOrder(last).front());
  EXPECT_EQ(events, (Events{L"expand User 130000", L"click Membre du Groupe"}));
  tree.SetText(last, L"Aaron");
  EXPECT_EQ(nodes.ChildrenInOrder(root).front(), last);
  tree.Remove(last);
  EXPECT_EQ(Text(tree.SelectedNode()), L"User 100001");
}

}  // namespace
}  // namespace controls_test

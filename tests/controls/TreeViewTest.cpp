#include "tests/controls/TreeTest.h"

namespace controls_test {
namespace {

using controls::kNoNode;
using controls::NodeId;

class TreeView : public TreeTest {};

TEST_F(TreeView, ComposesKeysFromTheParents) {
  EXPECT_EQ(tree.Nodes().Key(root), L"\\TRT ");
  EXPECT_EQ(tree.Nodes().Key(zoe), L"\\TUS \\U12");
  EXPECT_EQ(tree.Nodes().Key(folder), L"\\TMO \\U3 \\G");
  EXPECT_EQ(tree.Nodes().Key(six), L"\\TGU \\U3 \\G6");
}

TEST_F(TreeView, FindsNodesByTheirKeys) {
  EXPECT_EQ(tree.Nodes().Find(L"\\TRT "), root);
  EXPECT_EQ(tree.Nodes().Find(L"\\TGU \\U3 \\G6"), six);
  EXPECT_EQ(tree.Nodes().Find(L"\\TGU \\U3 \\G7"), kNoNode);
}

TEST_F(TreeView, GivesTheRootTheFirstIndexAndKeepsTheChildrenInTheOrderOfAdding) {
  EXPECT_EQ(root, NodeId{1});
  EXPECT_EQ(Children(root), (Events{L"Zoé", L"Adam", L"Martin"}));
  EXPECT_EQ(tree.Nodes().Children(root), 3);
  EXPECT_EQ(tree.Nodes().Count(), 7);
  EXPECT_EQ(tree.Nodes().Image(six), 3);
}

TEST_F(TreeView, AddsOneNodeOnlyForAKeyThatTheParentHasAlready) {
  EXPECT_EQ(tree.Add(folder, kLeafForm, 6, L"another text", 0), six);
  EXPECT_EQ(Text(six), L"Achats");
  EXPECT_EQ(tree.Add(kNoNode, kRootForm, 0, L"another root", 0), root);
  EXPECT_EQ(tree.Nodes().Count(), 7);
  EXPECT_NE(tree.Add(adam, kOtherFolderForm, 0, L"Droits Utilisateur", 2), folder);
}

TEST_F(TreeView, AddsManyNodesWithOneText) {
  controls::TreeView::Update update(tree);
  const controls::TextRef text = tree.Share(L"Lecture");
  const NodeId a = tree.AddUnique(folder, kLeafForm, 8, text, 3);
  const NodeId b = tree.AddUnique(folder, kLeafForm, 9, text, 3);
  EXPECT_EQ(Text(a), L"Lecture");
  EXPECT_EQ(tree.Nodes().TextOf(a), tree.Nodes().TextOf(b));
}

TEST_F(TreeView, PutsChildrenInOrderOnceTheirNodeIsSorted) {
  tree.SetSorted(root, true);
  EXPECT_EQ(Children(root), (Events{L"Adam", L"Martin", L"Zoé"}));
  EXPECT_TRUE(tree.Nodes().Sorted(root));
  EXPECT_EQ(Children(folder), (Events{L"Qualité", L"Achats"}));
}

TEST_F(TreeView, PutsALaterChildAndAChangedTextInOrder) {
  tree.SetSorted(root, true);
  tree.Add(root, kUserForm, 20, L"émile", 1);
  EXPECT_EQ(Children(root), (Events{L"Adam", L"émile", L"Martin", L"Zoé"}));
  tree.SetText(adam, L"Yves");
  EXPECT_EQ(Children(root), (Events{L"émile", L"Martin", L"Yves", L"Zoé"}));
  tree.SetText(zoe, L"Arthur");
  EXPECT_EQ(Children(root), (Events{L"Arthur", L"émile", L"Martin", L"Yves"}));
  EXPECT_EQ(tree.Nodes().Key(zoe), L"\\TUS \\U12");
}

TEST_F(TreeView, PutsChildrenInOrderAtTheEndOfTheOutermostUpdate) {
  {
    controls::TreeView::Update outer(tree);
    {
      controls::TreeView::Update inner(tree);
      tree.SetSorted(root, true);
      tree.SetText(martin, L"Aaron");
    }
    tree.Add(root, kUserForm, 20, L"Bruno", 1);
  }
  EXPECT_EQ(Children(root), (Events{L"Aaron", L"Adam", L"Bruno", L"Zoé"}));
}

TEST_F(TreeView, OrdersChildrenOfOneTextByTheirIndex) {
  tree.SetSorted(root, true);
  tree.SetText(martin, L"Zoé");
  EXPECT_EQ(tree.Nodes().ChildrenInOrder(root), (std::vector{adam, zoe, martin}));
}

TEST_F(TreeView, RemovesASubtree) {
  tree.Remove(adam);
  EXPECT_EQ(Children(root), (Events{L"Zoé", L"Martin"}));
  EXPECT_EQ(tree.Nodes().Count(), 3);
  EXPECT_FALSE(tree.Nodes().Exists(six));
  EXPECT_EQ(tree.Nodes().Find(L"\\TGU \\U3 \\G6"), kNoNode);
}

TEST_F(TreeView, RemovesTheChildrenOnly) {
  tree.RemoveChildren(adam);
  EXPECT_TRUE(tree.Nodes().Exists(adam));
  EXPECT_FALSE(tree.Nodes().HasChildren(adam));
  EXPECT_TRUE(tree.Nodes().ChildrenInOrder(adam).empty());
  EXPECT_EQ(tree.Nodes().Count(), 4);
  const NodeId again = tree.Add(adam, kFolderForm, 0, L"Membre du Groupe", 2);
  EXPECT_EQ(Children(adam), (Events{L"Membre du Groupe"}));
  EXPECT_EQ(tree.Nodes().Key(again), L"\\TMO \\U3 \\G");
}

TEST_F(TreeView, KeepsTheIndexesOfWhatLivesAndUsesFreedOnesAgain) {
  tree.Remove(zoe);
  EXPECT_EQ(Text(martin), L"Martin");
  EXPECT_EQ(tree.Add(root, kUserForm, 20, L"Bruno", 1), zoe);
  EXPECT_EQ(tree.Nodes().NextIndex(kNoNode), root);
}

TEST_F(TreeView, IsEmptyAfterClearAndStartsAgainAtTheFirstIndex) {
  tree.SetSelectedNode(six);
  tree.Clear();
  EXPECT_EQ(tree.Nodes().Count(), 0);
  EXPECT_EQ(tree.Nodes().Root(), kNoNode);
  EXPECT_EQ(tree.SelectedNode(), kNoNode);
  EXPECT_EQ(tree.Add(kNoNode, kRootForm, 0, L"Groupes", 0), NodeId{1});
}

TEST_F(TreeView, KeepsStoredNamesBesideTheTexts) {
  EXPECT_EQ(tree.Nodes().StoredName(adam), L"");
  tree.SetStoredName(adam, L"adam");
  tree.SetStoredName(zoe, L"zoe");
  EXPECT_EQ(tree.Nodes().StoredName(adam), L"adam");
  tree.Remove(zoe);
  EXPECT_EQ(tree.Nodes().StoredName(tree.Add(root, kUserForm, 20, L"Bruno", 1)), L"");
}

TEST_F(TreeView, JoinsTheTextsOfThePathByBackslashes) {
  EXPECT_EQ(tree.Nodes().FullPath(six), L"Utilisateurs\\Adam\\Membre du Groupe\\Achats");
  EXPECT_EQ(tree.Nodes().FullPath(root), L"Utilisateurs");
}

TEST_F(TreeView, ChangesImagesAndTexts) {
  tree.SetImage(six, 9);
  tree.SetText(six, L"d'Œuvre & Cie (50 %) \\ \x05D0");
  EXPECT_EQ(tree.Nodes().Image(six), 9);
  EXPECT_EQ(Text(six), L"d'Œuvre & Cie (50 %) \\ \x05D0");
  tree.SetText(six, std::wstring(4000, L'x'));
  EXPECT_EQ(Text(six).size(), 4000U);
}

TEST_F(TreeView, TellsParentsAndChildren) {
  const controls::TreeNodes& nodes = tree.Nodes();
  EXPECT_EQ(nodes.Parent(root), kNoNode);
  EXPECT_EQ(nodes.Parent(martin), root);
  EXPECT_EQ(nodes.ChildrenInOrder(kNoNode), std::vector{root});
  EXPECT_EQ(nodes.ChildrenInOrder(root), (std::vector{zoe, adam, martin}));
  EXPECT_TRUE(nodes.ChildrenInOrder(martin).empty());
}

TEST_F(TreeView, ForgetsTextsThatNoNodeShowsAtTheEndOfAnUpdate) {
  const auto rename = [this](int i) {
    controls::TreeView::Update update(tree);
    tree.SetText(zoe, L"Zoé " + std::to_wstring(i % 10));
  };
  rename(1);
  rename(2);
  const std::size_t before = tree.Nodes().TextBytes();
  for (int i = 3; i < 100; ++i) rename(i);
  EXPECT_EQ(tree.Nodes().TextBytes(), before);
  EXPECT_EQ(Text(zoe), L"Zoé 9");
}

TEST_F(TreeView, KeepsASharedTextThroughChangesOutsideOfAnUpdate) {
  const controls::TextRef shared = tree.Share(L"Direction");
  tree.SetText(zoe, L"Nadine");
  tree.Remove(martin);
  const NodeId node = tree.AddUnique(root, kUserForm, 40, shared, 1);
  EXPECT_EQ(Text(node), L"Direction");
}

TEST_F(TreeView, SurvivesTheEndOfAnUpdateAfterItsFormHasGone) {
  {
    controls::TreeView::Update update(tree);
    tree.SetSorted(root, true);
    form.Unload();
  }
  EXPECT_FALSE(form.IsLoaded());
}

}  // namespace
}  // namespace controls_test

#include <cstring>

#include "tests/controls/TreeTest.h"
#include "tests/controls/win32/MessageWatch.h"
#include "tests/controls/win32/NativeTree.h"

namespace controls_test {
namespace {

using controls::kNoNode;

// Where items are inserted: in front of all their siblings, or at a place that the native control
// has to look for among them, after one that is named or at the end.
class InsertedPlaces {
 public:
  explicit InsertedPlaces(HWND window)
      : watch_(window, TVM_INSERTITEMW, [this](WPARAM, LPARAM item) {
          const auto& native = controls::StructIn<const TVINSERTSTRUCTW>(item);
          ++(native.hInsertAfter == TVI_FIRST ? inFront_ : elsewhere_);
        }) {}

  int InFront() const { return inFront_; }
  int Elsewhere() const { return elsewhere_; }

 private:
  int inFront_ = 0;
  int elsewhere_ = 0;
  MessageWatch watch_;
};

class NativeTreeView : public TreeTest {
 protected:
  void ExpandFromOutside(controls::NodeId node, UINT action) {
    native.Send(TVM_EXPAND, action, controls::AsLParam(native.Find(node)));
  }

  void ExpectInView(controls::NodeId node) const {
    HTREEITEM item = native.Find(node);
    ASSERT_NE(item, nullptr);
    RECT line = {};
    std::memcpy(&line, &item, sizeof item);
    EXPECT_TRUE(native.Send(TVM_GETITEMRECT, FALSE, controls::AsLParam(&line)));
    RECT client = {};
    GetClientRect(native.Window(), &client);
    EXPECT_GE(line.top, 0);
    EXPECT_LE(line.bottom, client.bottom);
  }

  void AddMany() {
    controls::TreeView::Update update(tree);
    for (int i = 0; i < 200; ++i) tree.Add(root, kUserForm, 1000 + i, L"U" + std::to_wstring(i), 1);
  }

  NativeTree native{tree};
};

TEST_F(NativeTreeView, IsToldOfChildrenWhenTheyAreFirstShown) {
  EXPECT_EQ(native.Count(), 1);
  tree.SetExpanded(root, true);
  EXPECT_EQ(native.Count(), 4);
  EXPECT_EQ(native.Difference(), "");
  user.Expand(tree, folder);
  EXPECT_EQ(native.Count(), 7);
  EXPECT_EQ(native.Difference(), "");
}

TEST_F(NativeTreeView, OpensWhatWasExpandedBeforeItWasTold) {
  tree.SetExpanded(folder, true);
  tree.SetExpanded(adam, true);
  EXPECT_EQ(native.Count(), 1);
  tree.SetExpanded(root, true);
  EXPECT_EQ(native.Count(), 7);
  EXPECT_EQ(native.Difference(), "");
}

TEST_F(NativeTreeView, ShowsWhatWasUntilAnUpdateEnds) {
  tree.SetExpanded(root, true);
  {
    controls::TreeView::Update update(tree);
    tree.Remove(martin);
    tree.Add(root, kUserForm, 99, L"Nadia", 1);
    tree.SetText(zoe, L"Zoë");
    EXPECT_NE(native.Find(zoe), nullptr);
    EXPECT_EQ(native.Text(native.Find(zoe)), L"Zoé");
    EXPECT_EQ(native.Count(), 4);
  }
  EXPECT_EQ(native.Count(), 4);
  EXPECT_EQ(native.Text(native.Find(zoe)), L"Zoë");
  EXPECT_EQ(native.Difference(), "");
}

TEST_F(NativeTreeView, StaysHiddenWhenItIsBuiltAnew) {
  tree.SetVisible(false);
  tree.Clear();
  tree.SetExpanded(tree.Add(kNoNode, kRootForm, 0, L"Utilisateurs", 0), true);
  EXPECT_FALSE(IsWindowVisible(native.Window()));
  tree.SetVisible(true);
  EXPECT_TRUE(IsWindowVisible(native.Window()));
}

TEST_F(NativeTreeView, IsShownAgainAndToBePaintedAfterAChange) {
  tree.SetExpanded(root, true);
  form.Repaint();
  EXPECT_FALSE(GetUpdateRect(native.Window(), nullptr, FALSE));
  tree.Remove(martin);
  EXPECT_TRUE(IsWindowVisible(native.Window()));
  EXPECT_TRUE(GetUpdateRect(native.Window(), nullptr, FALSE));
}

// A tab that is chosen hides and shows several controls: none of it is painted meanwhile, and
// nothing of it is forgotten.
TEST_F(NativeTreeView, IsPaintedWhenItIsShownAgain) {
  tree.SetVisible(false);
  form.Repaint();
  tree.SetVisible(true);
  EXPECT_TRUE(GetUpdateRect(native.Window(), nullptr, FALSE));
  form.Repaint();
  EXPECT_FALSE(GetUpdateRect(native.Window(), nullptr, FALSE));
}

TEST_F(NativeTreeView, LosesTheButtonOfANodeWithoutChildren) {
  tree.SetExpanded(root, true);
  tree.SetExpanded(adam, true);
  tree.SetExpanded(folder, true);
  tree.RemoveChildren(folder);
  EXPECT_EQ(native.Difference(), "");
  tree.Add(folder, kLeafForm, 8, L"Ventes", 3);
  EXPECT_EQ(native.Difference(), "");
  EXPECT_TRUE(native.IsOpen(native.Find(folder)));
}

TEST_F(NativeTreeView, HoldsLongTextsOfAnyLetters) {
  const std::wstring text = std::wstring(3990, L'x') + L"\xD83D\xDE00\x05D0&\\";
  tree.SetExpanded(root, true);
  tree.SetText(zoe, text);
  EXPECT_EQ(native.Text(native.Find(zoe)), text);
  UpdateWindow(native.Window());
  EXPECT_EQ(native.Difference(), "");
}

TEST_F(NativeTreeView, MayBeExpandedByAnotherProgramAgainAndAgain) {
  for (int round = 0; round < 3; ++round) {
    events.clear();
    ExpandFromOutside(root, TVE_EXPAND);
    EXPECT_EQ(events, (Events{L"expand Utilisateurs"}));
    EXPECT_EQ(native.Count(), 4 + round);
    ExpandFromOutside(root, TVE_COLLAPSE);
    EXPECT_EQ(events, (Events{L"expand Utilisateurs", L"collapse Utilisateurs"}));
    EXPECT_FALSE(tree.Nodes().Expanded(root));
    tree.Add(root, kUserForm, 100 + round, L"Neuf", 1);
    EXPECT_EQ(native.Difference(), "");
  }
  ExpandFromOutside(root, TVE_TOGGLE);
  EXPECT_TRUE(tree.Nodes().Expanded(root));
  EXPECT_EQ(native.Difference(), "");
}

TEST_F(NativeTreeView, KeepsItsChildrenWhenAnotherProgramWantsThemForgotten) {
  tree.SetExpanded(root, true);
  ExpandFromOutside(root, TVE_COLLAPSE | TVE_COLLAPSERESET);
  EXPECT_EQ(native.Count(), 4);
  ExpandFromOutside(root, TVE_EXPAND);
  EXPECT_EQ(native.Difference(), "");
}

TEST_F(NativeTreeView, ReportsASelectionMadeByAnotherProgramAndNotItsOwn) {
  tree.SetExpanded(root, true);
  tree.SetSelectedNode(zoe);
  events.clear();
  native.Send(TVM_SELECTITEM, TVGN_CARET, controls::AsLParam(native.Find(martin)));
  EXPECT_EQ(events, (Events{L"click Martin"}));
  EXPECT_EQ(tree.SelectedNode(), martin);
}

TEST_F(NativeTreeView, SelectsNothingByGettingTheFocus) {
  tree.SetFocus();
  EXPECT_EQ(tree.SelectedNode(), kNoNode);
  EXPECT_EQ(native.Selected(), kNoNode);
  EXPECT_EQ(events, Events{});
  user.Select(tree, root);
  EXPECT_EQ(events, (Events{L"click Utilisateurs"}));
}

TEST_F(NativeTreeView, OpensOneLevelByTheKeyThatWouldOpenAll) {
  user.Select(tree, root);
  events.clear();
  user.PressKey(form, VK_MULTIPLY);
  EXPECT_EQ(events, (Events{L"expand Utilisateurs"}));
  EXPECT_EQ(native.Count(), 4);
}

TEST_F(NativeTreeView, KeepsTheTopLineWhenSomethingIsInsertedAboveIt) {
  {
    controls::TreeView::Update update(tree);
    for (int i = 0; i < 200; ++i) tree.Add(root, kUserForm, 1000 + i, L"U" + std::to_wstring(i), 1);
  }
  tree.SetExpanded(root, true);
  native.Send(TVM_SELECTITEM, TVGN_FIRSTVISIBLE, controls::AsLParam(native.Find(martin)));
  HTREEITEM top = native.Next(TVGN_FIRSTVISIBLE);
  EXPECT_EQ(native.NodeOf(top), martin);
  tree.SetSorted(root, true);
  EXPECT_EQ(native.NodeOf(native.Next(TVGN_FIRSTVISIBLE)), martin);
  tree.Add(root, kUserForm, 5000, L"Aaron", 1);
  EXPECT_EQ(native.NodeOf(native.Next(TVGN_FIRSTVISIBLE)), martin);
  EXPECT_EQ(native.Difference(), "");
}

TEST_F(NativeTreeView, BringsTheSelectedNodeIntoView) {
  {
    const controls::TreeView::Update update(tree);
    AddMany();
    tree.SetSelectedNode(tree.Nodes().ChildrenInOrder(root).back());
  }
  ExpectInView(tree.SelectedNode());
}

TEST_F(NativeTreeView, BringsAnotherNodeIntoViewWithoutSelectingIt) {
  AddMany();
  tree.SetSelectedNode(root);
  tree.SetExpanded(root, true);
  tree.EnsureVisible(tree.Nodes().ChildrenInOrder(root).back());
  ExpectInView(tree.Nodes().ChildrenInOrder(root).back());
  EXPECT_EQ(native.Selected(), root);
}

TEST_F(NativeTreeView, NamesNoSiblingAndNoEndWhereManyItemsAreInserted) {
  InsertedPlaces places(native.Window());
  AddMany();
  tree.SetExpanded(root, true);
  EXPECT_EQ(places.InFront(), 203);
  {
    controls::TreeView::Update update(tree);
    for (int i = 0; i < 100; ++i) tree.Add(root, kUserForm, 2000 + i, L"V" + std::to_wstring(i), 1);
  }
  EXPECT_EQ(places.InFront(), 303);
  EXPECT_EQ(places.Elsewhere(), 0);
  EXPECT_EQ(native.Difference(), "");
}

TEST_F(NativeTreeView, PutsFewNewItemsAfterTheirNeighbours) {
  AddMany();
  tree.SetExpanded(root, true);
  InsertedPlaces places(native.Window());
  tree.Add(root, kUserForm, 3000, L"U1000", 1);
  EXPECT_EQ(places.InFront(), 0);
  EXPECT_EQ(places.Elsewhere(), 1);
  EXPECT_EQ(native.Difference(), "");
}

TEST_F(NativeTreeView, TakesThirtyThousandAccounts) {
  constexpr int kAccounts = 30000;
  {
    controls::TreeView::Update update(tree);
    tree.Clear();
    root = tree.Add(kNoNode, kRootForm, 0, L"Utilisateurs", 0);
    tree.SetSorted(root, true);
    for (int i = 0; i < kAccounts; ++i) {
      const controls::NodeId account =
          tree.AddUnique(root, kUserForm, i, tree.Share(L"User " + std::to_wstring(i)), 1);
      tree.AddUnique(account, kFolderForm, 0, tree.Share(L"Membre du Groupe"), 2);
    }
    tree.SetSelectedNode(root);
    tree.SetExpanded(root, true);
  }
  EXPECT_EQ(native.Count(), kAccounts + 1);
  const controls::NodeId last = tree.Nodes().ChildrenInOrder(root).back();
  EXPECT_EQ(tree.Nodes().Text(last), L"User 9999");
  tree.SetText(last, L"A new name");
  EXPECT_EQ(tree.Nodes().ChildrenInOrder(root).front(), last);
  EXPECT_EQ(native.NodeOf(native.Next(TVGN_CHILD, native.Next(TVGN_ROOT))), last);
  tree.Remove(last);
  EXPECT_EQ(native.Count(), kAccounts);
}

}  // namespace
}  // namespace controls_test

// What the control makes of a tree that is rebuilt.

#include "tests/controls/TreeTest.h"
#include "tests/controls/win32/NativeTree.h"

namespace controls_test {
namespace {

using controls::kNoNode;

class RebuiltNativeTree : public TreeTest {
 protected:
  RebuiltNativeTree() { Build(kUsers); }

  void Build(int users, const std::wstring& start = L"User ") {
    controls::TreeView::Update update(tree);
    tree.Clear();
    root = tree.Add(kNoNode, kRootForm, 0, L"Utilisateurs", 0);
    for (int i = 0; i < users; ++i) {
      const controls::NodeId account = tree.Add(root, kUserForm, i, start + std::to_wstring(i), 1);
      tree.Add(account, kFolderForm, 0, L"Membre du Groupe", 2);
    }
    tree.SetSelectedNode(root);
    tree.SetExpanded(root, true);
  }

  std::vector<HTREEITEM> Items() const {
    std::vector<HTREEITEM> items = {native.Next(TVGN_ROOT)};
    HTREEITEM item = native.Next(TVGN_CHILD, items.front());
    for (; item; item = native.Next(TVGN_NEXT, item)) items.push_back(item);
    return items;
  }

  static constexpr int kUsers = 100;
  NativeTree native{tree};
};

TEST_F(RebuiltNativeTree, KeepsItsItemsAndShowsWhatTheyStandForNow) {
  const std::vector<HTREEITEM> before = Items();
  ASSERT_EQ(before.size(), kUsers + 1U);
  Build(kUsers);
  EXPECT_EQ(Items(), before);
  EXPECT_EQ(native.Difference(), "");
  Build(kUsers, L"Another ");
  EXPECT_EQ(Items(), before);
  EXPECT_EQ(native.Difference(), "");
}

// A refresh most often brings what is there already.
TEST_F(RebuiltNativeTree, IsPaintedOnlyWhenItLooksOtherwise) {
  form.Repaint();
  Build(kUsers);
  EXPECT_FALSE(GetUpdateRect(native.Window(), nullptr, FALSE));
  Build(kUsers, L"Another ");
  EXPECT_TRUE(GetUpdateRect(native.Window(), nullptr, FALSE));
  form.Repaint();
  Build(kUsers - 1, L"Another ");
  EXPECT_TRUE(GetUpdateRect(native.Window(), nullptr, FALSE));
}

// What was turned off for a change is on again for what comes after it.
TEST_F(RebuiltNativeTree, IsOnViewAndPaintsAfterARebuildOfEitherKind) {
  for (const wchar_t* start : {L"User ", L"Another "}) {
    Build(kUsers, start);
    EXPECT_TRUE(IsWindowVisible(native.Window()));
    form.Repaint();
    tree.SetText(tree.Nodes().ChildrenInOrder(root).front(), L"Zoë");
    EXPECT_TRUE(GetUpdateRect(native.Window(), nullptr, FALSE));
    form.Repaint();
  }
}

TEST_F(RebuiltNativeTree, TakesAsManyItemsAsItNeeds) {
  for (const int users : {kUsers - 30, 1, kUsers + 50, 0, kUsers}) {
    Build(users);
    EXPECT_EQ(native.Count(), users + 1);
    EXPECT_EQ(native.Difference(), "");
  }
}

TEST_F(RebuiltNativeTree, IsClosedBelowItsRoot) {
  const controls::NodeId account = tree.Nodes().ChildrenInOrder(root).front();
  tree.SetExpanded(account, true);
  tree.SetSelectedNode(tree.Nodes().ChildrenInOrder(account).front());
  ASSERT_EQ(native.Count(), kUsers + 2);
  Build(kUsers);
  EXPECT_EQ(native.Count(), kUsers + 1);
  EXPECT_EQ(native.Selected(), root);
  EXPECT_EQ(native.Difference(), "");
}

TEST_F(RebuiltNativeTree, IsShownFromItsStart) {
  tree.SetText(tree.Nodes().ChildrenInOrder(root).front(), std::wstring(300, L'm'));
  tree.SetSelectedNode(tree.Nodes().ChildrenInOrder(root).back());
  native.Send(WM_HSCROLL, SB_RIGHT, 0);
  ASSERT_NE(native.Next(TVGN_FIRSTVISIBLE), native.Next(TVGN_ROOT));
  Build(kUsers);
  EXPECT_EQ(native.Next(TVGN_FIRSTVISIBLE), native.Next(TVGN_ROOT));
  EXPECT_EQ(GetScrollPos(native.Window(), SB_HORZ), 0);
}

TEST_F(RebuiltNativeTree, MayBeBuiltTwiceBeforeItIsShown) {
  {
    controls::TreeView::Update update(tree);
    Build(kUsers - 1, L"Later ");
    Build(kUsers + 1, L"Latest ");
  }
  EXPECT_EQ(native.Count(), kUsers + 2);
  EXPECT_EQ(native.Difference(), "");
}

}  // namespace
}  // namespace controls_test

#include "controls/TreeNodes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace controls_test {
namespace {

using controls::KeyForm;
using controls::kNoNode;
using controls::NodeId;
using controls::TreeNodes;

constexpr KeyForm kRoot{L"\\TRT", L" "};
constexpr KeyForm kUser{L"\\TUS", L"\\U", true};
constexpr KeyForm kFolder{L"\\TMO", L" \\G"};
constexpr KeyForm kLeaf{L"\\TGU", L"", true};

class TreeNodesOf : public testing::Test {
 protected:
  NodeId Add(NodeId parent, const KeyForm& form, int id, const std::wstring& text) {
    return nodes.Add(parent, form, id, nodes.Share(text), 0);
  }
  std::wstring Children(NodeId parent) {
    std::wstring texts;
    NodeId previous = kNoNode;
    for (const NodeId child : nodes.ChildrenInOrder(parent)) {
      EXPECT_EQ(nodes.Previous(child), previous);
      EXPECT_EQ(nodes.Parent(child), parent);
      previous = child;
      texts += nodes.Text(child) + L" ";
    }
    if (previous != kNoNode) {
      EXPECT_EQ(nodes.Next(previous), kNoNode);
    }
    return texts;
  }

  TreeNodes nodes{[](std::wstring_view text) { return std::string(text.begin(), text.end()); }};
  const NodeId root = Add(kNoNode, kRoot, 0, L"root");
};

TEST_F(TreeNodesOf, NoNodeAtAllAnswersNothing) {
  nodes.Clear();
  EXPECT_EQ(nodes.Count(), 0);
  EXPECT_EQ(nodes.Root(), kNoNode);
  EXPECT_EQ(nodes.NextIndex(kNoNode), kNoNode);
  EXPECT_EQ(nodes.Find(L"\\TRT "), kNoNode);
  EXPECT_FALSE(nodes.Exists(NodeId{1}));
  EXPECT_FALSE(nodes.Exists(NodeId{0}));
  EXPECT_FALSE(nodes.Exists(kNoNode));
  EXPECT_TRUE(nodes.TakeReordered().empty());
}

TEST_F(TreeNodesOf, SeveralRootsKeepTheOrderInWhichTheyCame) {
  const NodeId second = Add(kNoNode, kRoot, 0, L"second");
  const NodeId third = Add(kNoNode, kRoot, 0, L"third");
  EXPECT_EQ(nodes.Root(), root);
  EXPECT_EQ(nodes.Next(root), second);
  EXPECT_EQ(nodes.ChildrenInOrder(kNoNode), (std::vector{root, second, third}));
  nodes.Remove(root);
  EXPECT_EQ(nodes.Root(), second);
  nodes.Remove(third);
  EXPECT_EQ(nodes.ChildrenInOrder(kNoNode), std::vector{second});
}

TEST_F(TreeNodesOf, IdsOfAnySizeAndSignGiveTheirDecimalText) {
  EXPECT_EQ(nodes.Key(Add(root, kUser, INT32_MAX, L"x")), L"\\TUS \\U2147483647");
  const NodeId lowest = Add(root, kUser, INT32_MIN, L"y");
  EXPECT_EQ(nodes.Key(lowest), L"\\TUS \\U-2147483648");
  EXPECT_EQ(nodes.Find(L"\\TUS \\U-2147483648"), lowest);
  const NodeId zero = Add(root, kUser, 0, L"z");
  EXPECT_EQ(nodes.Find(L"\\TUS \\U0"), zero);
}

TEST_F(TreeNodesOf, KeyFormsThatDifferInTheIdOnlyAreTwo) {
  const KeyForm bare{L"\\TUS", L"\\U"};
  const NodeId without = Add(root, bare, 5, L"x");
  const NodeId with = Add(root, kUser, 5, L"y");
  EXPECT_EQ(nodes.Key(without), L"\\TUS \\U");
  EXPECT_EQ(nodes.Key(with), L"\\TUS \\U5");
  EXPECT_EQ(nodes.FindChild(root, bare, 5), without);
  EXPECT_EQ(nodes.FindChild(root, kUser, 5), with);
}

TEST_F(TreeNodesOf, EqualKeyFormsInDifferentPlacesAreOne) {
  const std::wstring prefix = L"\\TUS";
  const std::wstring suffix = L"\\U";
  const NodeId user = Add(root, kUser, 5, L"x");
  EXPECT_EQ(nodes.FindChild(root, {prefix, suffix, true}, 5), user);
  EXPECT_EQ(nodes.FindChild(root, {prefix, suffix, true}, 6), kNoNode);
  EXPECT_EQ(nodes.FindChild(root, {L"\\TXX", suffix, true}, 5), kNoNode);
}

TEST_F(TreeNodesOf, KeysThatNoNodeHasAreNotFound) {
  const NodeId user = Add(root, kUser, 12, L"x");
  Add(user, kFolder, 0, L"folder");
  for (const wchar_t* key : {L"", L"\\T", L"\\TUS", L"\\TUS \\U", L"\\TUS \\U1", L"\\TUS \\U112",
                             L"\\TMO \\U12", L"\\TUS \\U12 \\G"}) {
    EXPECT_EQ(nodes.Find(key), kNoNode);
  }
  EXPECT_EQ(nodes.Find(L"\\TUS \\U12"), user);
}

TEST_F(TreeNodesOf, AnIdAtTheEndOfAnotherIsNotTakenForIt) {
  const NodeId user = Add(root, kUser, 112, L"x");
  const NodeId folder = Add(user, kFolder, 0, L"folder");
  const NodeId leaf = Add(folder, kLeaf, 15, L"leaf");
  Add(folder, kLeaf, 5, L"other leaf");
  EXPECT_EQ(nodes.Find(L"\\TGU \\U112 \\G15"), leaf);
  EXPECT_EQ(nodes.Find(L"\\TGU \\U12 \\G15"), kNoNode);
  EXPECT_EQ(nodes.Find(L"\\TGU \\U112 \\G115"), kNoNode);
  EXPECT_EQ(nodes.Find(L"\\TGU \\U112 \\G-15"), kNoNode);
  EXPECT_EQ(nodes.Find(L"\\TGU \\U112 \\G"), kNoNode);
  EXPECT_EQ(nodes.Find(L"\\TGUx \\U112 \\G15"), kNoNode);
  EXPECT_EQ(nodes.Find(L"\\TGU"), kNoNode);
}

TEST_F(TreeNodesOf, FreedIndexesAreUsedAgainTheLatestFirst) {
  const NodeId a = Add(root, kUser, 1, L"a");
  const NodeId b = Add(root, kUser, 2, L"b");
  nodes.Remove(a);
  nodes.Remove(b);
  EXPECT_EQ(Add(root, kUser, 3, L"c"), b);
  EXPECT_EQ(Add(root, kUser, 4, L"d"), a);
  EXPECT_EQ(Children(root), L"c d ");
}

TEST_F(TreeNodesOf, AFreedNodeLeavesNothingToTheNextOfItsIndex) {
  const NodeId a = Add(root, kUser, 1, L"a");
  nodes.SetStoredName(a, L"stored");
  nodes.SetExpanded(a, true);
  nodes.SetSorted(a, true);
  Add(a, kFolder, 0, L"folder");
  nodes.Remove(a);
  const NodeId b = Add(root, kUser, 2, L"b");
  const NodeId c = Add(root, kUser, 3, L"c");
  for (const NodeId node : {b, c}) {
    EXPECT_EQ(nodes.StoredName(node), L"");
    EXPECT_FALSE(nodes.Expanded(node));
    EXPECT_FALSE(nodes.Sorted(node));
    EXPECT_FALSE(nodes.HasChildren(node));
  }
  EXPECT_TRUE(nodes.TakeReordered().empty());
}

TEST_F(TreeNodesOf, AWaitingParentThatIsRemovedIsNotSorted) {
  const NodeId user = Add(root, kUser, 1, L"u");
  nodes.SetSorted(user, true);
  Add(user, kLeaf, 2, L"b");
  Add(user, kLeaf, 1, L"a");
  nodes.Remove(user);
  const NodeId other = Add(root, kUser, 2, L"v");
  nodes.SetSorted(other, true);
  Add(other, kLeaf, 2, L"d");
  Add(other, kLeaf, 1, L"c");
  EXPECT_EQ(nodes.TakeReordered(), std::vector<NodeId>{other});
  EXPECT_EQ(Children(other), L"c d ");
}

TEST_F(TreeNodesOf, ASortedParentArePutInOrderWhenSomebodyAsksForThem) {
  nodes.SetSorted(root, true);
  const NodeId c = Add(root, kUser, 1, L"c");
  const NodeId b = Add(root, kUser, 2, L"b");
  const NodeId a = Add(root, kUser, 3, L"a");
  EXPECT_EQ(nodes.AnyChild(root), c);
  EXPECT_EQ(nodes.OtherSibling(c), b);
  EXPECT_EQ(nodes.OtherSibling(b), a);
  EXPECT_EQ(nodes.OtherSibling(a), kNoNode);
  EXPECT_EQ(nodes.Next(a), b) << "from a child that was found some other way";
  EXPECT_EQ(Children(root), L"a b c ");
  const NodeId d = Add(root, kUser, 4, L"aa");
  EXPECT_EQ(nodes.Previous(d), a);
  nodes.SetText(d, nodes.Share(L"d"));
  EXPECT_EQ(nodes.Previous(d), c);
}

TEST_F(TreeNodesOf, AReaderIsToldTheOrderAndChangesNothing) {
  nodes.SetSorted(root, true);
  const NodeId b = Add(root, kUser, 1, L"b");
  const NodeId a = Add(root, kUser, 2, L"a");
  const TreeNodes& reader = nodes;
  EXPECT_EQ(reader.ChildrenInOrder(root), (std::vector{a, b}));
  EXPECT_EQ(reader.AnyChild(root), b);
  nodes.PutInOrder(root);
  EXPECT_EQ(reader.AnyChild(root), a);
  EXPECT_EQ(reader.ChildrenInOrder(root), (std::vector{a, b}));
}

TEST_F(TreeNodesOf, AParentThatIsNoLongerSortedKeepsItsOrder) {
  nodes.SetSorted(root, true);
  Add(root, kUser, 1, L"b");
  Add(root, kUser, 2, L"a");
  nodes.SetSorted(root, false);
  EXPECT_EQ(nodes.TakeReordered(), std::vector<NodeId>{root});
  Add(root, kUser, 3, L"0");
  EXPECT_TRUE(nodes.TakeReordered().empty());
  EXPECT_EQ(Children(root), L"a b 0 ");
  nodes.SetSorted(root, true);
  EXPECT_EQ(Children(root), L"0 a b ");
}

TEST_F(TreeNodesOf, AChangedTextMovesItsNodeEitherWay) {
  nodes.SetSorted(root, true);
  NodeId b = kNoNode;
  for (const wchar_t* text : {L"a", L"b", L"c", L"d", L"e"}) {
    const NodeId node = Add(root, kUser, text[0], text);
    if (*text == L'b') b = node;
  }
  nodes.TakeReordered();
  nodes.SetText(b, nodes.Share(L"dd"));
  EXPECT_EQ(nodes.TakeReordered(), std::vector<NodeId>{root});
  EXPECT_EQ(Children(root), L"a c d dd e ");
  nodes.SetText(b, nodes.Share(L"0"));
  nodes.TakeReordered();
  EXPECT_EQ(Children(root), L"0 a c d e ");
  nodes.SetText(b, nodes.Share(L"z"));
  nodes.TakeReordered();
  EXPECT_EQ(Children(root), L"a c d e z ");
  EXPECT_TRUE(nodes.TakeReordered().empty());
}

TEST_F(TreeNodesOf, OneTextAreOrderedByTheirIndex) {
  nodes.SetSorted(root, true);
  const NodeId a = Add(root, kUser, 1, L"same");
  const NodeId b = Add(root, kUser, 2, L"same");
  nodes.Remove(a);
  const NodeId again = Add(root, kUser, 3, L"same");
  nodes.TakeReordered();
  EXPECT_EQ(again, a);
  EXPECT_EQ(nodes.ChildrenInOrder(root), (std::vector{again, b}));
}

TEST_F(TreeNodesOf, ManyFoldersAreSortedTheSameByRankAsByKey) {
  std::vector<NodeId> folders;
  for (int f = 0; f < 500; ++f) {
    folders.push_back(Add(root, kUser, f, L"folder"));
    nodes.SetSorted(folders.back(), true);
    for (int i = 0; i < 20; ++i) {
      Add(folders.back(), kLeaf, i, std::wstring(1, static_cast<wchar_t>(L'a' + i * 7 % 20)));
    }
  }
  EXPECT_EQ(nodes.TakeReordered().size(), 500U);
  for (const NodeId folder : folders) {
    EXPECT_EQ(Children(folder), L"a b c d e f g h i j k l m n o p q r s t ");
  }
}

TEST_F(TreeNodesOf, TextsNoLongerShownGoWithTheSweep) {
  const NodeId user = Add(root, kUser, 1, L"text 0");
  const auto rename = [&](int i) {
    nodes.SetText(user, nodes.Share(L"text " + std::to_wstring(i % 10)));
    nodes.Sweep();
  };
  rename(1);
  rename(2);
  const std::size_t before = nodes.TextBytes();
  for (int i = 3; i < 1000; ++i) rename(i);
  EXPECT_EQ(nodes.Text(user), L"text 9");
  EXPECT_EQ(nodes.TextBytes(), before);
}

TEST_F(TreeNodesOf, ALeafTakesNoMoreThanFortyBytes) {
  constexpr int kLeaves = 200000;
  const controls::TextRef text = nodes.Share(L"Lecture");
  const std::size_t before = nodes.NodeBytes() + nodes.TextBytes();
  for (int i = 0; i < kLeaves; ++i) nodes.Add(root, kLeaf, i, text, 0);
  const std::size_t used = nodes.NodeBytes() + nodes.TextBytes() - before;
  EXPECT_LE(used / kLeaves, 40U);
}

TEST_F(TreeNodesOf, AClearedTreeKeepsItsRoomUntilTheSweep) {
  const controls::TextRef text = nodes.Share(L"Lecture");
  for (int i = 0; i < 100000; ++i) nodes.Add(root, kLeaf, i, text, 0);
  const std::size_t full = nodes.NodeBytes();
  nodes.Clear();
  EXPECT_EQ(nodes.NodeBytes(), full);
  Add(kNoNode, kRoot, 0, L"root");
  nodes.Sweep();
  EXPECT_LT(nodes.NodeBytes(), full / 5);
}

TEST_F(TreeNodesOf, ANodeInTheRoomOfAClearedTreeIsNew) {
  nodes.SetExpanded(root, true);
  nodes.SetStoredName(root, L"stored");
  nodes.SetSorted(Add(root, kUser, 1, L"user"), true);
  nodes.Clear();
  const NodeId again = Add(kNoNode, kRoot, 0, L"root");
  const NodeId user = Add(again, kUser, 2, L"another");
  EXPECT_EQ(again, root);
  EXPECT_EQ(nodes.Children(again), 1);
  EXPECT_FALSE(nodes.Expanded(again));
  EXPECT_EQ(nodes.StoredName(again), L"");
  EXPECT_FALSE(nodes.Sorted(user));
  EXPECT_FALSE(nodes.Exists(NodeId{IndexOf(user) + 1}));
}

TEST_F(TreeNodesOf, ManyWaitingFoldersAreRemovedWithoutDelay) {
  for (int i = 0; i < 60000; ++i) {
    const NodeId user = Add(root, kUser, i, L"user");
    nodes.SetSorted(user, true);
    Add(user, kFolder, 0, L"folder");
  }
  nodes.RemoveChildren(root);
  EXPECT_EQ(nodes.Count(), 1);
  EXPECT_TRUE(nodes.TakeReordered().empty());
}

}  // namespace
}  // namespace controls_test

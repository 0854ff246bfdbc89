#include <algorithm>
#include <memory>
#include <random>
#include <set>

#include "tests/controls/TreeTest.h"
#include "tests/support/controls/ShownContent.h"

namespace controls_test {
namespace {

using controls::kNoNode;
using controls::NodeId;
using test_support::ShownNode;
using test_support::ShownNodes;

// What is below a root, and out of view.
using Hidden = std::set<NodeId>;

// What a tree is to show of its nodes.
void Expect(const controls::TreeView& tree, NodeId parent, int level, const Hidden& hidden,
            std::vector<ShownNode>& lines) {
  const controls::TreeNodes& nodes = tree.Nodes();
  for (const NodeId node : nodes.ChildrenInOrder(parent)) {
    if (hidden.contains(node)) continue;
    bool hasButton = false;
    for (const NodeId child : nodes.ChildrenInOrder(node)) {
      hasButton |= !hidden.contains(child);
    }
    const bool open = hasButton && nodes.Expanded(node);
    lines.push_back(
        {level, nodes.Text(node), nodes.Image(node), node == tree.SelectedNode(), hasButton, open});
    if (open) Expect(tree, node, level + 1, hidden, lines);
  }
}

std::vector<ShownNode> Expected(const controls::TreeView& tree, const Hidden& hidden = {}) {
  std::vector<ShownNode> lines;
  Expect(tree, kNoNode, 0, hidden, lines);
  return lines;
}

class ShownTree : public TreeTest {};

TEST_F(ShownTree, IsTheRootAtFirst) {
  EXPECT_EQ(ShownNodes(tree),
            (std::vector<ShownNode>{{0, L"Utilisateurs", 0, false, true, false}}));
}

TEST_F(ShownTree, HasTheWayToTheSelectedNode) {
  tree.SetSorted(root, true);
  tree.SetSelectedNode(folder);
  EXPECT_EQ(ShownNodes(tree),
            (std::vector<ShownNode>{{0, L"Utilisateurs", 0, false, true, true},
                                    {1, L"Adam", 1, false, true, true},
                                    {2, L"Membre du Groupe", 2, true, true, false},
                                    {1, L"Martin", 1, false, false, false},
                                    {1, L"Zoé", 1, false, false, false}}));
}

TEST_F(ShownTree, KeepsTheNodesBelowAClosedOne) {
  tree.SetSelectedNode(six);
  tree.SetExpanded(adam, false);
  tree.SetText(six, L"Ventes");
  tree.Remove(five);
  tree.SetExpanded(adam, true);
  EXPECT_EQ(ShownNodes(tree), Expected(tree));
  EXPECT_EQ(ShownNodes(tree).size(), 6U);
}

// A long row of changes by the program and the user, alone and in batches; what is shown is at any
// time what the nodes say.
class RandomTree {
 public:
  RandomTree(controls::TreeView& tree, test_support::User& user, unsigned seed)
      : tree_(tree), user_(user), random_(seed) {
    tree_.SetFilter({});
    tree_.Clear();
    tree_.Add(kNoNode, kRootForm, 0, L"root", 0);
  }

  void Step() {
    if (Below(4) > 0) {
      Change();
    } else if (Below(3) == 0) {
      const controls::TreeView::Update update(tree_);
      for (int i = Below(30); i > 0; --i) Change();
    } else {
      Gesture();
    }
  }

  void Compare() {
    const Hidden hidden = HiddenNodes();
    ASSERT_EQ(ShownNodes(tree_), Expected(tree_, hidden));
    const NodeId selected = tree_.SelectedNode();
    const std::vector<ShownNode> lines = Expected(tree_, hidden);
    const bool shown = std::any_of(lines.begin(), lines.end(),
                                   [](const ShownNode& line) { return line.selected; });
    ASSERT_EQ(shown, selected != kNoNode);
  }

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  std::wstring AnyText() {
    return std::wstring(1 + Below(2), static_cast<wchar_t>(L'a' + Below(26)));
  }
  NodeId Any() {
    std::vector<NodeId> living;
    const controls::TreeNodes& nodes = tree_.Nodes();
    for (NodeId i = nodes.NextIndex(kNoNode); i != kNoNode; i = nodes.NextIndex(i)) {
      living.push_back(i);
    }
    return living[Below(static_cast<int>(living.size()))];
  }

  // By the letters of their texts, but for those that have been selected.
  Hidden HiddenNodes() const {
    Hidden hidden;
    const controls::TreeNodes& nodes = tree_.Nodes();
    for (const NodeId node : nodes.ChildrenInOrder(nodes.Root())) {
      const bool matches = nodes.Text(node).find(filter_) != std::wstring::npos;
      if (!matches && !kept_.contains(node)) hidden.insert(node);
    }
    return hidden;
  }

  void SetFilter() {
    filter_ =
        Below(3) == 0 ? std::wstring() : std::wstring(1, static_cast<wchar_t>(L'a' + Below(4)));
    tree_.SetFilter(filter_.empty() ? controls::TreeFilterRule{} : Containing(filter_));
    kept_.clear();
  }

  void KeepSelected() {
    const controls::TreeNodes& nodes = tree_.Nodes();
    std::erase_if(kept_, [&](NodeId node) { return !nodes.Exists(node); });
    for (NodeId node = tree_.SelectedNode(); node != kNoNode; node = nodes.Parent(node)) {
      if (nodes.Parent(node) == nodes.Root()) kept_.insert(node);
    }
  }

  void Change() {
    if (Below(20) == 0) SetFilter();
    KeepSelected();
    ChangeNodes();
    KeepSelected();
  }

  void ChangeNodes() {
    const NodeId node = Any();
    switch (Below(12)) {
      case 0:
        if (tree_.Nodes().Parent(node) != kNoNode) tree_.Remove(node);
        break;
      case 1:
        if (tree_.Nodes().Parent(node) != kNoNode) tree_.RemoveChildren(node);
        break;
      case 2:
        tree_.SetText(node, AnyText());
        break;
      case 3:
        tree_.SetImage(node, Below(7));
        break;
      case 4:
        tree_.SetSorted(node, Below(3) > 0);
        break;
      case 5:
        tree_.SetExpanded(node, Below(3) > 0);
        break;
      case 6:
        tree_.SetSelectedNode(Below(10) > 0 ? node : kNoNode);
        break;
      default:
        tree_.Add(node, kUserForm, Below(1000), AnyText(), Below(7));
    }
  }

  void Gesture() {
    const NodeId node = Any();
    const int kind = Below(3);
    if (kind == 0) user_.Try().Select(tree_, node);
    if (kind == 1) user_.Try().Expand(tree_, node);
    if (kind == 2) user_.Try().Collapse(tree_, node);
    KeepSelected();
  }

  controls::TreeView& tree_;
  test_support::User& user_;
  std::mt19937 random_;
  std::wstring filter_;
  std::set<NodeId> kept_;
};

TEST_F(ShownTree, IsWhatTheNodesSayAfterAnyChanges) {
  for (unsigned seed = 1; seed <= 6; ++seed) {
    SCOPED_TRACE(seed);
    RandomTree random(tree, user, seed);
    for (int step = 0; step < 250; ++step) {
      SCOPED_TRACE(step);
      random.Step();
      random.Compare();
      if (HasFailure()) return;
    }
  }
}

}  // namespace
}  // namespace controls_test

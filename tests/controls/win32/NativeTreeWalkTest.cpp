#include <random>

#include "tests/controls/TreeTest.h"
#include "tests/controls/win32/NativeTree.h"

namespace controls_test {
namespace {

using controls::kNoNode;
using controls::NodeId;

// Changes a tree at random, by the program, a user and another program.
class NativeTreeWalk : public TreeTest, public testing::WithParamInterface<unsigned> {
 protected:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }

  NodeId AnyNode() {
    const int count = tree.Nodes().Count();
    if (count == 0) return tree.Add(kNoNode, kRootForm, 0, L"Utilisateurs", 0);
    NodeId node = kNoNode;
    for (int steps = Below(count) + 1; steps > 0; --steps) node = tree.Nodes().NextIndex(node);
    return node;
  }

  std::wstring AnyText() { return L"Node " + std::to_wstring(Below(50)); }

  void ChangeFilter() {
    tree.SetFilter(Below(3) == 0 ? controls::TreeFilterRule{}
                                 : Containing(std::to_wstring(Below(12))));
  }

  void ChangeTree(NodeId node) {
    if (Below(12) == 0) return ChangeFilter();
    switch (Below(8)) {
      case 0:
        if (Below(10) == 0) return tree.Remove(node);
        return;
      case 1:
        return tree.RemoveChildren(node);
      case 2:
        return tree.SetText(node, AnyText());
      case 3:
        return tree.SetImage(node, Below(4));
      case 4:
        return tree.SetSorted(node, Below(2) == 0);
      case 5:
        return tree.SetExpanded(node, Below(3) != 0);
      case 6:
        return tree.SetSelectedNode(node);
      default:
        AddSome(node, Below(20) == 0 ? 100 : 3);
    }
  }

  void AddSome(NodeId parent, int count) {
    controls::TreeView::Update update(tree);
    for (int i = 0; i < count; ++i) {
      tree.Add(parent, kLeafForm, nextId++, AnyText(), Below(4));
    }
  }

  void ChangeFromOutside() {
    HTREEITEM item = native.Find(AnyNode());
    if (!item) return;
    const auto parameter = controls::AsLParam(item);
    if (Below(2) == 0) {
      native.Send(TVM_EXPAND, TVE_TOGGLE, parameter);
    } else {
      native.Send(TVM_SELECTITEM, TVGN_CARET, parameter);
    }
  }

  void Step() {
    if (Below(5) == 0) return ChangeFromOutside();
    if (Below(4) != 0) return ChangeTree(AnyNode());
    controls::TreeView::Update update(tree);
    for (int i = Below(6); i >= 0; --i) ChangeTree(AnyNode());
  }

  // All nodes added again in one update, as a refresh does: much is as before, and some is not.
  void Rebuild() {
    controls::TreeView::Update update(tree);
    tree.Clear();
    const NodeId top = tree.Add(kNoNode, kRootForm, 0, L"Utilisateurs", Below(2));
    tree.SetSorted(top, Below(3) != 0);
    for (int i = Below(10) == 0 ? 0 : 20 + Below(8); i > 0; --i) {
      const NodeId account = tree.Add(top, kUserForm, i, AnyText(), Below(8) == 0 ? 1 : 0);
      if (Below(4) != 0) AddSome(account, 2);
    }
    if (Below(20) == 0) tree.Add(kNoNode, kRootForm, 0, L"Groupes", 0);
    if (Below(3) != 0) tree.SetSelectedNode(AnyNode());
    if (Below(8) != 0) tree.SetExpanded(top, true);
  }

  NativeTree native{tree};
  std::mt19937 random{GetParam()};
  int nextId = 1000;
};

TEST_P(NativeTreeWalk, LeavesTheControlInStepWithTheNodes) {
  for (int step = 0; step < 400; ++step) {
    Step();
    ASSERT_EQ(native.Difference(), "") << "seed " << GetParam() << ", step " << step;
  }
}

TEST_P(NativeTreeWalk, LeavesTheControlInStepWithATreeThatIsRebuilt) {
  for (int step = 0; step < 200; ++step) {
    Rebuild();
    ASSERT_EQ(native.Difference(), "") << "seed " << GetParam() << ", tree " << step;
    for (int i = Below(4); i > 0; --i) Step();
    ASSERT_EQ(native.Difference(), "") << "seed " << GetParam() << ", after tree " << step;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, NativeTreeWalk, testing::Range(1U, 13U));

}  // namespace
}  // namespace controls_test

#include <random>

#include "tests/controls/TreeTest.h"
#include "tests/controls/win32/NativeTree.h"

namespace controls_test {
namespace {

using controls::kNoNode;

// Changes a tree at random, by the program, a user and another program.
class NativeTreeWalk : public TreeTest, public testing::WithParamInterface<unsigned> {
 protected:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }

  int AnyNode() {
    const int count = tree.Nodes().Count();
    if (count == 0) return tree.Add(kNoNode, kRootForm, 0, L"Utilisateurs", 0);
    int node = kNoNode;
    for (int steps = Below(count) + 1; steps > 0; --steps) node = tree.Nodes().NextIndex(node);
    return node;
  }

  std::wstring AnyText() { return L"Node " + std::to_wstring(Below(50)); }

  void ChangeTree(int node) {
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

  void AddSome(int parent, int count) {
    controls::TreeView::Update update(tree);
    for (int i = 0; i < count; ++i) {
      tree.Add(parent, kLeafForm, nextId++, AnyText(), Below(4));
    }
  }

  void ChangeFromOutside() {
    HTREEITEM item = native.Find(AnyNode());
    if (!item) return;
    const auto parameter = reinterpret_cast<LPARAM>(item);
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

INSTANTIATE_TEST_SUITE_P(Seeds, NativeTreeWalk, testing::Range(1U, 13U));

}  // namespace
}  // namespace controls_test

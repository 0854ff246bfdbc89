#include "tests/support/controls/ShownContent.h"

#include "controls/ListModel.h"
#include "controls/TreeModel.h"

namespace test_support {
namespace {

void Look(controls::TreeModel& tree, controls::NodeId parent, int level,
          std::vector<ShownNode>& shown) {
  const controls::TreeNodes& nodes = tree.Nodes();
  for (const controls::NodeId node : tree.ChildrenOnView(parent)) {
    const bool hasButton = tree.HasChildrenOnView(node);
    const bool open = hasButton && nodes.Expanded(node);
    shown.push_back(
        {level, nodes.Text(node), nodes.Image(node), node == tree.Selected(), hasButton, open});
    if (open) Look(tree, node, level + 1, shown);
  }
}

}  // namespace

std::vector<ShownNode> ShownNodes(const controls::TreeView& tree) {
  std::vector<ShownNode> shown;
  Look(controls::ModelOf(tree), controls::kNoNode, 0, shown);
  return shown;
}

std::vector<ShownItem> ShownItems(const controls::ListBox& list) {
  const controls::ListModel& model = controls::ModelOf(list);
  const bool several = model.Kind() == controls::ListBox::Kind::kMultiSelect;
  std::vector<ShownItem> shown;
  for (int i = 0; i < model.Count(); ++i) {
    shown.push_back({model.Text(i), model.Selected(i), !several && i == model.Index()});
  }
  return shown;
}

}  // namespace test_support

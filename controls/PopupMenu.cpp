#include "controls/PopupMenu.h"

#include "controls/Desktop.h"
#include "controls/Form.h"
#include "controls/TreeView.h"

namespace controls {

int ShowPopupMenu(TreeView& tree, NodeId node, const std::vector<MenuItem>& items) {
  if (!tree.Owner().IsVisible() || !tree.Nodes().Exists(node) || items.empty()) return 0;
  return tree.Owner().OwnerDesktop().PopupMenu(tree, node, items);
}

}  // namespace controls

#include "controls/PopupMenu.h"

#include "controls/Desktop.h"
#include "controls/Form.h"
#include "controls/TreeView.h"

namespace controls {

int ShowPopupMenu(TreeView& tree, int node, const std::vector<MenuItem>& items) {
  if (!tree.Owner().IsVisible() || !tree.Nodes().Exists(node) || items.empty()) return 0;
  const StandIns& instead = tree.Owner().OwnerDesktop().Instead;
  return instead.PopupMenu ? instead.PopupMenu(items) : 0;
}

}  // namespace controls

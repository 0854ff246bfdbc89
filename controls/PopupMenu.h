#pragma once

#include <string>
#include <vector>

#include "controls/NodeId.h"

namespace controls {

class TreeView;

// A line of a popup menu; a command of 0 makes it a separator.
struct MenuItem {
  int command = 0;
  std::wstring caption;
  bool enabled = true;
};

// Shows a menu for a node and waits for the user's choice: where the mouse was when it asked for it
// (inside TreeView::ContextMenu), else below the node. Returns the command chosen, 0 for none.
int ShowPopupMenu(TreeView& tree, NodeId node, const std::vector<MenuItem>& items);

}  // namespace controls

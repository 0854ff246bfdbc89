#pragma once

#include <vector>

#include "controls/win32/TreeControl.h"
#include "controls/win32/TreeItemMap.h"

namespace controls {

// The items of a native tree view whose nodes are gone and which may stand for others. A tree that
// is rebuilt looks much as it did, and an item that stays as it is costs nothing, while one that is
// deleted and inserted again is told of, measured and sorted in. So the root and its children keep
// their items, each of which then stands for the node in its place.
class ReusableItems {
 public:
  ReusableItems(const TreeModel& model, const TreeItemMap& map, TreeControl& control)
      : model_(model), nodes_(model.Nodes()), map_(map), control_(control) {}

  // All nodes are about to be removed, and the control shows exactly what they say: keeps the items
  // of an open root and its children.
  void Keep();
  // The kept items go with all the others, or are no more.
  void Forget() { items_.clear(); }
  // The control follows now. False where the new tree has no use for the kept items and all of them
  // are to go; else what had been opened below them is gone.
  bool Begin();
  // The item that stands in the node's place, which shows the node now; null where there is none.
  // Nodes are to be asked for in their order.
  HTREEITEM Take(NodeId node);
  void DeleteRest();

 private:
  // What an item shows.
  struct Item {
    HTREEITEM item = nullptr;
    NodeId node = kNoNode;
    TextRef text = 0;
    int image = 0;
    bool hasChildren = false;
    bool opened = false;  // the control has been told of children below it
  };

  Item ShownAs(NodeId node) const;

  const TreeModel& model_;
  const TreeNodes& nodes_;
  const TreeItemMap& map_;
  TreeControl& control_;
  std::vector<Item> items_;  // the next to be used last
};

}  // namespace controls

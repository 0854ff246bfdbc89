#pragma once

#include <unordered_set>
#include <vector>

#include "controls/TreeNodes.h"
#include "controls/win32/Handles.h"

namespace controls {

// What has happened to a tree's nodes since the native tree view was last brought in step.
struct TreeChanges {
  // An item that goes, or all that is below it.
  struct Removal {
    HTREEITEM item;
    bool childrenOnly;
  };

  // Whether there is more to show than texts and images.
  bool Structural() const {
    return cleared || !removals.empty() || !parents.empty() || !expansions.empty();
  }
  bool Any() const { return Structural() || !nodes.empty(); }

  bool cleared = false;  // all nodes have been removed, before anything of what follows
  // In the order in which they happened: what is above a removed item may be removed after it.
  std::vector<Removal> removals;
  std::unordered_set<NodeId> parents;  // have gained or lost children, or got another order of them
  std::unordered_set<NodeId> nodes;    // have another text or image
  std::unordered_set<NodeId> expansions;
};

}  // namespace controls

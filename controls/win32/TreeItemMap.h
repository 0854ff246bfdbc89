#pragma once

#include <unordered_map>
#include <vector>

#include "controls/TreeNodes.h"
#include "controls/win32/Handles.h"

namespace controls {

// Which item of the native tree view stands for which node, and of whose children the control has
// been told.
class TreeItemMap {
 public:
  explicit TreeItemMap(const TreeNodes& nodes) : nodes_(nodes) { Clear(); }

  bool Has(NodeId node) const { return items_.contains(node); }
  // Null where the control has not been told of the node.
  HTREEITEM ItemOf(NodeId node) const;
  void Set(NodeId node, HTREEITEM item) { items_[node] = item; }

  // Whether the control has been told of a node's children. Of the roots, the children of kNoNode,
  // it always has.
  bool IsTold(NodeId parent) const { return children_.contains(parent); }
  // Those children, in the order of the control; the control has been told of them.
  const std::vector<NodeId>& ChildrenOf(NodeId parent) const { return children_.at(parent); }
  void SetChildren(NodeId parent, std::vector<NodeId> children);
  // Takes out of the children of a node those that are gone.
  void DropRemoved(NodeId parent);

  // The node is about to be removed, or all below it: the index of one that goes may be given to
  // another one before the control follows.
  void Forget(NodeId node);
  void ForgetBelow(NodeId node);
  void Clear();

 private:
  const TreeNodes& nodes_;
  std::unordered_map<NodeId, HTREEITEM> items_;
  std::unordered_map<NodeId, std::vector<NodeId>> children_;
};

}  // namespace controls

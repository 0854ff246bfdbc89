#pragma once

#include <vector>

#include "controls/TreeModel.h"
#include "controls/win32/ReusableItems.h"
#include "controls/win32/TreeChanges.h"
#include "controls/win32/TreeControl.h"
#include "controls/win32/TreeItemMap.h"

namespace controls {

// Keeps the native tree view in step with a tree's nodes: it is told of the roots, and of the
// children of every node that has been expanded. Changes of the nodes are noted as they happen and
// brought to the control together, which is not painted meanwhile.
class TreeItems {
 public:
  explicit TreeItems(TreeModel& model) : model_(model), nodes_(model.Nodes()) {}
  TreeItems(const TreeItems&) = delete;
  TreeItems& operator=(const TreeItems&) = delete;

  void Attach(HWND window);
  void Detach() { Attach(nullptr); }

  // --- What happens to the nodes ---
  // A child of this parent, kNoNode for a root, has been added, or others are on view.
  void ChildrenChanged(NodeId parent);
  // The node, or all below it, is about to be removed.
  void Removing(NodeId node);
  void RemovingChildren(NodeId node);
  // All nodes are about to be removed.
  void Clearing();
  // Its text or image.
  void Changed(NodeId node);
  void ExpansionChanged(NodeId node);
  void Reordered(const std::vector<NodeId>& parents);

  // Brings all of that to the native control, keeping its scroll position, and its selection to the
  // node given. reveal brings that node into view.
  void Synchronise(NodeId selected, bool reveal);
  // Tells of the node's children, unless that has been done.
  void Fill(NodeId node);

  // Whether the native control is being changed from here: what it then reports is no user's doing.
  bool Busy() const { return busy_ > 0; }
  NodeId NodeOf(HTREEITEM item) const { return control_.NodeOf(item); }
  // Null where the native control has not been told of the node.
  HTREEITEM ItemOf(NodeId node) const { return map_.ItemOf(node); }
  HTREEITEM SelectedItem() const { return control_.Next(TVGN_CARET); }
  bool IsOpen(NodeId node) const { return control_.IsOpen(map_.ItemOf(node)); }

 private:
  class RedrawOff;

  void ApplyChanges(NodeId selected);
  NodeId TopThatStays() const;
  HTREEITEM ShownLine(NodeId node) const;
  void DeleteRemoved();
  void SynchroniseChildren(NodeId parent);
  void Withdraw(NodeId parent, std::size_t wanted);
  bool InOrder(const std::vector<NodeId>& told, const std::vector<NodeId>& wanted) const;
  // Tells of those of a node's children that the control does not know yet. wanted is all of them;
  // inOrder says whether those that it knows stand in that order.
  void Insert(NodeId parent, const std::vector<NodeId>& wanted, bool inOrder);
  std::vector<NodeId> NotYetTold(const std::vector<NodeId>& nodes) const;
  void InsertInPlace(NodeId parent, const std::vector<NodeId>& wanted);
  void InsertAfter(HTREEITEM previous, NodeId node, NodeId parent);
  void ApplyLook(NodeId node);
  void ApplyExpansion(NodeId node);

  TreeModel& model_;
  const TreeNodes& nodes_;
  TreeControl control_{model_};
  TreeItemMap map_{nodes_};
  TreeChanges changes_;
  ReusableItems reusable_{model_, map_, control_};
  int busy_ = 0;
};

}  // namespace controls

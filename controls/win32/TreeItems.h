#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "controls/TreeNodes.h"
#include "controls/win32/Handles.h"

namespace controls {

// What the native tree view has been told of a tree's nodes: the roots, and the children of every
// node that has been expanded. Changes of the nodes are noted as they happen and brought to the
// native control together, while it does not paint.
class TreeItems {
 public:
  explicit TreeItems(const TreeNodes& nodes) : nodes_(nodes) {}

  void Attach(HWND window);
  void Detach();

  // --- What happens to the nodes ---
  // A child of this parent, kNoNode for a root, has been added.
  void Added(NodeId parent);
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
  NodeId NodeOf(HTREEITEM item) const;
  // Null where the native control has not been told of the node.
  HTREEITEM ItemOf(NodeId node) const;
  HTREEITEM SelectedItem() const;
  bool IsOpen(NodeId node) const;
  // Gives back a selection that the native control has made by itself.
  void Reselect(NodeId selected);

 private:
  class RedrawOff;

  // An item whose node is gone and which may stand for another one. The node, the text and the rest
  // are what it shows.
  struct ReusableItem {
    HTREEITEM item = nullptr;
    NodeId node = kNoNode;
    TextRef text = 0;
    int image = 0;
    bool hasChildren = false;
    bool opened = false;  // the control has been told of children below it
  };

  // An item that goes, or all that is below it.
  struct Removal {
    HTREEITEM item;
    bool childrenOnly;
  };

  NodeId FirstChild(NodeId parent) const;
  bool Pending() const;
  void Forget(NodeId node);
  void ForgetBelow(NodeId node);
  void Forget();
  void KeepReusable();
  ReusableItem ShownAs(NodeId node) const;
  bool UseReusable();
  HTREEITEM TakeReusable(NodeId node);
  void DeleteReusable();
  void ShowFromTheStart() const;
  void DeleteRemoved();
  void DeleteChildren(HTREEITEM item) const;
  HTREEITEM TopThatStays() const;
  HTREEITEM ShownLine(HTREEITEM item) const;
  void SynchroniseChildren(NodeId parent);
  bool InOrder(const std::vector<NodeId>& told, const std::vector<NodeId>& wanted) const;
  void InsertInPlace(const std::vector<NodeId>& wanted);
  void Insert(NodeId node, HTREEITEM after);
  TVITEMW Shown(NodeId node, HTREEITEM item, UINT parts) const;
  void Refresh(NodeId node) const;
  void ShowExpansion(NodeId node);
  void Sort(NodeId parent, const std::vector<NodeId>& wanted) const;
  LRESULT Send(UINT number, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(window_, number, wParam, lParam);
  }

  const TreeNodes& nodes_;
  HWND window_ = nullptr;
  int busy_ = 0;
  std::unordered_map<NodeId, HTREEITEM> items_;
  std::unordered_map<NodeId, std::vector<NodeId>> filled_;  // the children told of, in native order
  // In the order in which they happened: what is above a removed item may be removed after it.
  std::vector<Removal> removals_;
  bool cleared_ = false;
  // The root and its children as they stood before all nodes were removed, the next to be used
  // last.
  std::vector<ReusableItem> reusable_;
  std::unordered_set<NodeId> changedParents_;
  std::unordered_set<NodeId> changedNodes_;
  std::unordered_set<NodeId> changedExpansions_;
};

}  // namespace controls

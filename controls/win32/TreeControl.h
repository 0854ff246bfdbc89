#pragma once

#include <vector>

#include "controls/TreeModel.h"
#include "controls/win32/Handles.h"
#include "controls/win32/TreeRedraw.h"

namespace controls {

// The native tree view's messages as calls. What an item shows is read from the nodes.
class TreeControl {
 public:
  // All that a user sees of an item.
  static constexpr UINT kLook = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN;

  explicit TreeControl(const TreeModel& model) : model_(model), nodes_(model.Nodes()) {}

  // The native window, null while there is none. Without one nothing may be called but this.
  void Attach(HWND window);
  HWND Window() const { return window_; }

  // The item that stands in a relation (TVGN_...) to another one; null where there is none.
  HTREEITEM Next(UINT relation, HTREEITEM item = nullptr) const;
  // kNoNode for a null item.
  NodeId NodeOf(HTREEITEM item) const;
  // False for a null item.
  bool IsOpen(HTREEITEM item) const;

  // A new item below another one, null for a root, after a sibling or at TVI_FIRST.
  HTREEITEM Insert(NodeId node, HTREEITEM parent, HTREEITEM after);
  // Has an item show parts (TVIF_...) of the node.
  void Change(HTREEITEM item, NodeId node, UINT parts);
  void SetOpen(HTREEITEM item, bool open);
  // For an item that has lost its children, which the control does not close.
  void MarkClosed(HTREEITEM item);
  // Puts the items below another one, null for the roots, into this order.
  void Sort(HTREEITEM parent, const std::vector<NodeId>& order);
  void Delete(HTREEITEM item);
  void DeleteChildren(HTREEITEM item);
  void DeleteAll() { Delete(TVI_ROOT); }

  // Between these two there is no painting from the first change of those above on.
  void BeginChanges() { redraw_.Begin(); }
  void EndChanges() { redraw_.End(); }

  // Null for none.
  void Select(HTREEITEM item) const;
  void Reveal(HTREEITEM item) const;
  // Makes the item the topmost line of the window, as far as that goes.
  void ScrollTo(HTREEITEM item) const;
  // Back to the first line and column, as a tree does whose items have all been inserted.
  void ScrollToStart() const;

 private:
  TVITEMW Shown(NodeId node, HTREEITEM item, UINT parts) const;
  LRESULT Send(UINT number, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(window_, number, wParam, lParam);
  }

  const TreeModel& model_;
  const TreeNodes& nodes_;
  HWND window_ = nullptr;
  TreeRedraw redraw_;
};

}  // namespace controls

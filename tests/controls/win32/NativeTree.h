#pragma once

#include <string>

#include "controls/win32/TreeViewPeer.h"

namespace controls_test {

// What another program sees of a tree view, read from the control itself.
class NativeTree {
 public:
  explicit NativeTree(const controls::TreeView& tree)
      : peer_(static_cast<controls::TreeViewPeer&>(tree.BackEnd())) {}

  HWND Window() const { return peer_.window; }
  int Count() const { return static_cast<int>(Send(TVM_GETCOUNT, 0, 0)); }
  HTREEITEM Next(UINT relation, HTREEITEM item = nullptr) const;
  // The control's item for a node, null where it has not been told of it.
  HTREEITEM Find(controls::NodeId node) const;
  controls::NodeId NodeOf(HTREEITEM item) const { return controls::NodeIn(Read(item).lParam); }
  std::wstring Text(HTREEITEM item) const;
  bool IsOpen(HTREEITEM item) const;
  controls::NodeId Selected() const;
  LRESULT Send(UINT number, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(peer_.window, number, wParam, lParam);
  }

  // Says where the control differs from the nodes; empty where it does not. A node's children are
  // all there in their order, or the control has not been told of them yet.
  std::string Difference() const;

 private:
  TVITEMW Read(HTREEITEM item) const;
  std::string Compare(HTREEITEM item, controls::NodeId node) const;
  std::string CompareChildren(HTREEITEM first, controls::NodeId parent) const;

  controls::TreeViewPeer& peer_;
};

}  // namespace controls_test

#pragma once

#include <string>

#include "controls/win32/Annotation.h"
#include "controls/win32/Handles.h"
#include "controls/win32/WindowProcedure.h"

namespace controls {

struct TreeViewPeer;

// What is said about a tree's nodes: in a tip under the mouse, and in the accessible description of
// the selected node. The tree view asks for the tip by itself (TVN_GETINFOTIP) where the system's
// one does; where it does not it is led to ask.
class TreeTips {
 public:
  explicit TreeTips(TreeViewPeer& tree) : tree_(tree) {}

  void Attach();
  void Detach();
  void SetWidth() const;

  // The tree view asks.
  void Answer(NMTVGETINFOTIPW& question) const;
  // What the mouse does over the tree view, before that handles it itself.
  void Mouse(const Message& message);
  // A notification of the tree view's tooltip; false where it is for the tree view itself.
  bool Notify(NMHDR& header);

  // The nodes have changed; the item under the mouse may be no more, and its tip goes.
  void Changed();
  // The selected node, or what can be said about it, may be another one now.
  void DescribeSoon();
  void Describe();

 private:
  void AddTool();
  void Hover(POINT place);
  bool IsClipped(HTREEITEM item) const;

  TreeViewPeer& tree_;
  HWND tooltip_ = nullptr;
  bool asksItself_ = true;
  HTREEITEM hovered_ = nullptr;
  std::wstring shown_;
  Annotation annotation_;
  bool describing_ = false;  // a message to do so is under way
};

}  // namespace controls

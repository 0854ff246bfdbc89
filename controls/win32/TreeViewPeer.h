#pragma once

#include <optional>

#include "controls/TreeView.h"
#include "controls/win32/ControlPeer.h"
#include "controls/win32/TreeItems.h"
#include "controls/win32/TreeTips.h"

namespace controls {

struct TreeViewPeer : Control::Peer {
  TreeViewPeer(Form& owner, int controlId);

  void Attached() override;
  void Detached() override;
  LRESULT Notify(NMHDR& header) override;
  LRESULT Handle(const Message& message) override;
  void DpiChanged() override;

  // A message of our own to the tree view: the selected node is to be described.
  static constexpr UINT kDescribe = WM_APP;

  void ShowImages() const;
  // Passes the selection on before the node and what is below it are removed.
  void LeaveNode(int node);
  // Passes a selection below a node that is closed on to it.
  void LeaveBelow(int node);
  // Notes that a node is open or closed now, and tells the form.
  void SetExpanded(int node, bool expanded);
  // Expands what stands above the node, the topmost first.
  void OpenWay(int node);
  // Once for a batch of changes: outside of one, after every change.
  void EndChange();
  // The same, but keeps texts that no node shows.
  void Follow();

  // --- What a user asks for (TreeViewInput.cpp) ---
  // The item at a point of the window, null where there is none.
  HTREEITEM ItemAt(POINT place) const;
  // Where an item's text stands in the window; nothing where the item is not on view.
  std::optional<RECT> TextPlace(HTREEITEM item) const;
  // Brings the node into view and says where on the screen that is.
  RECT ScreenPlace(int node) const;
  std::wstring AskTip(int node) const;
  TreeView& Tree() const { return static_cast<TreeView&>(*control); }

  TreeNodes nodes;
  TreeItems items;
  int selected = kNoNode;
  bool show = false;  // the selected node is to be brought into view
  int updates = 0;
  const ImageList* images = nullptr;
  std::optional<POINT> menuPlace;  // where on the screen the mouse has asked for a menu

 private:
  bool Refuses() const;
  void Select(HTREEITEM item) const;
  LRESULT PressRight(const Message& message);
  LRESULT AskForMenu(const Message& message);
  LRESULT SystemKey(const Message& message);
  LRESULT Key(const Message& message);
  LRESULT Character(const Message& message);
  LRESULT FocusMessage(const Message& message);
  LRESULT Expand(const Message& message);
  LRESULT Reach(const Message& message);
  void Chosen(int node);
  void Opened(int node, bool expanded);
  // --- How it is painted (TreeViewPaint.cpp) ---
  void Paint() const;
  bool IsFrameConcerned(WPARAM part) const;

  TreeTips tips_{*this};
};

}  // namespace controls

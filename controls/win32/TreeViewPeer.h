#pragma once

#include <optional>

#include "controls/TreeModel.h"
#include "controls/win32/ControlPeer.h"
#include "controls/win32/TreeItems.h"
#include "controls/win32/TreeTips.h"

namespace controls {

// A native tree view beside its model.
struct TreeViewPeer : Control::Peer, TreeModel::View {
  TreeViewPeer(Form& owner, int controlId);

  void Attached() override;
  void Detached() override;
  LRESULT Notify(NMHDR& header) override;
  LRESULT Handle(const Message& message) override;
  void DpiChanged() override;
  void BufferingChanged() override;

  // A message of our own to the tree view: the selected node is to be described.
  static constexpr UINT kDescribe = WM_APP;

  void ApplyImageList() const;

  // --- What the model tells ---
  void ChildrenChanged(NodeId parent) override { items.ChildrenChanged(parent); }
  void Removing(NodeId node) override { items.Removing(node); }
  void RemovingChildren(NodeId node) override { items.RemovingChildren(node); }
  void Clearing() override { items.Clearing(); }
  void Changed(NodeId node) override { items.Changed(node); }
  void ExpansionChanged(NodeId node) override { items.ExpansionChanged(node); }
  void Reordered(const std::vector<NodeId>& parents) override { items.Reordered(parents); }
  void Synchronise(NodeId selected, bool reveal) override;
  void EnsureVisible(NodeId node) override;

  // --- What a user asks for (TreeViewInput.cpp) ---
  // The item at a point of the window, null where there is none.
  HTREEITEM ItemAt(POINT place) const;
  // Where an item's text stands in the window; nothing where the item is not on view.
  std::optional<RECT> TextPlace(HTREEITEM item) const;
  // Brings the node into view and says where on the screen that is.
  RECT ScreenPlace(NodeId node) const;
  std::wstring AskTip(NodeId node) const;
  TreeView& Tree() const { return static_cast<TreeView&>(*control); }

  TreeModel model{this};
  TreeItems items{model};
  const ImageList* images = nullptr;
  std::optional<POINT> menuPlace;  // where on the screen the mouse has asked for a menu

 private:
  bool Refuses() const;
  void Select(HTREEITEM item) const;
  LRESULT DoubleClick(const Message& message);
  LRESULT PressRight(const Message& message);
  LRESULT AskForMenu(const Message& message);
  LRESULT SystemKey(const Message& message);
  LRESULT Key(const Message& message);
  LRESULT Character(const Message& message);
  LRESULT FocusMessage(const Message& message);
  LRESULT Expand(const Message& message);
  LRESULT Reach(const Message& message);
  void Opened(NodeId node, bool expanded);
  // --- How it is painted (TreeViewPaint.cpp) ---
  void Paint() const;
  void PaintBuffered(HDC target, const RECT& area) const;
  bool IsFrameConcerned(WPARAM part) const;

  TreeTips tips_{*this};
  bool takingFocus_ = false;
};

}  // namespace controls

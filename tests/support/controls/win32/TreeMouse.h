#pragma once

#include <optional>
#include <string>

#include "controls/win32/TreeViewPeer.h"
#include "tests/support/controls/win32/Input.h"

namespace test_support {

// The mouse over a tree view.
class TreeMouse {
 public:
  TreeMouse(controls::TreeViewPeer& tree, Input& input) : tree_(tree), input_(input) {}

  // Opens the closed nodes above the node, the topmost first.
  void OpenWay(controls::NodeId node);
  void ClickText(controls::NodeId node);
  // The second press of a double click.
  void ClickTextAgain(controls::NodeId node);
  void RightClickText(controls::NodeId node);
  // What the tree view shows when the mouse rests on the node, asked as it does.
  std::wstring AskTip(controls::NodeId node) const;
  // The button that opens and closes the node.
  void ClickButton(controls::NodeId node);

 private:
  // A point of a part of the node, brought into view; fails the test where there is none.
  std::optional<POINT> Place(controls::NodeId node, UINT part) const;
  HTREEITEM Find(controls::NodeId node) const;
  HTREEITEM Next(UINT relation, HTREEITEM item) const;

  controls::TreeViewPeer& tree_;
  Input& input_;
};

}  // namespace test_support

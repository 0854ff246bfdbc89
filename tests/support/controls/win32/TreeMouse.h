#pragma once

#include "controls/win32/TreeViewPeer.h"
#include "tests/support/controls/win32/Input.h"

namespace testing_support {

// The mouse over a tree view.
class TreeMouse {
 public:
  TreeMouse(controls::TreeViewPeer& tree, Input& input) : tree_(tree), input_(input) {}

  // Opens the closed nodes above the node, the topmost first.
  void OpenWay(int node);
  void ClickText(int node);
  // The button that opens and closes the node.
  void ClickButton(int node);

 private:
  void ClickOn(int node, UINT part);
  HTREEITEM Find(int node) const;
  HTREEITEM Next(UINT relation, HTREEITEM item) const;

  controls::TreeViewPeer& tree_;
  Input& input_;
};

}  // namespace testing_support

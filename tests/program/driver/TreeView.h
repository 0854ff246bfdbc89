#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/program/driver/RemoteMemory.h"
#include "tests/program/driver/Window.h"

namespace driver {

// What a tree control knows of a node.
struct TreeNode {
  HTREEITEM item = nullptr;
  std::wstring text;
  LPARAM data = 0;
  bool hasChildren = false;  // shows a button to open it
  bool expanded = false;
  bool selected = false;
  int image = -1;
  int selectedImage = -1;
};

// A tree control. Reading a node's children opens it first, as a user would have to.
class TreeView {
 public:
  explicit TreeView(const Window& window);

  const Window& Control() const { return window_; }
  // How many nodes the control has been told of.
  int Count() const;
  bool HasImages() const;

  TreeNode Root();
  TreeNode Selected();
  TreeNode Read(HTREEITEM item);
  HTREEITEM Parent(HTREEITEM item) const;
  std::vector<TreeNode> Children(HTREEITEM item) { return Children(Read(item)); }
  std::vector<TreeNode> Children(const TreeNode& node);
  // The children that the control has been told of, without opening the node.
  std::vector<TreeNode> KnownChildren(HTREEITEM item);
  // The node reached from the root by these texts, each a child of the one before. Throws a Failure
  // that says where the way ends.
  TreeNode Find(const std::vector<std::wstring>& path);

  void Expand(HTREEITEM item);
  void Collapse(HTREEITEM item);
  // Selects the node as an arrow key does.
  void Select(HTREEITEM item);
  // Brings a node into view and answers a place on its text, in the control's coordinates.
  POINT Reveal(HTREEITEM item);
  // The place of a node's text, in the control's coordinates; empty when it is out of view.
  RECT TextRectangle(HTREEITEM item);

 private:
  HTREEITEM Next(WPARAM which, HTREEITEM item) const;

  Window window_;
  RemoteMemory memory_;
};

}  // namespace driver

#include "tests/program/Outline.h"

#include <windows.h>

#include <algorithm>

#include "data/Text.h"

namespace program {

Outline ReadOutline(driver::TreeView& tree, const driver::TreeNode& node) {
  Outline outline{node.text, {}};
  for (const driver::TreeNode& child : tree.Children(node)) {
    outline.children.push_back(ReadOutline(tree, child));
  }
  return outline;
}

Outline ReadOutline(driver::TreeView& tree) {
  const driver::PaintingHeld held(tree.Control());
  return ReadOutline(tree, tree.Root());
}

int CountNodes(const Outline& outline) {
  int count = 1;
  for (const Outline& child : outline.children) count += CountNodes(child);
  return count;
}

std::string Print(const Outline& outline) {
  std::vector<std::string> children;
  for (const Outline& child : outline.children) children.push_back(Print(child));
  std::sort(children.begin(), children.end());
  std::string text = data::ToUtf8(outline.text) + "\n";
  for (const std::string& child : children) {
    for (std::size_t start = 0; start < child.size();) {
      const std::size_t end = child.find('\n', start) + 1;
      text += "  " + child.substr(start, end - start);
      start = end;
    }
  }
  return text;
}

std::wstring OutOfOrder(const Outline& outline) {
  const Outline* before = nullptr;
  for (const Outline& child : outline.children) {
    if (before != nullptr &&
        CompareStringEx(LOCALE_NAME_USER_DEFAULT, NORM_IGNORECASE | SORT_STRINGSORT,
                        before->text.c_str(), -1, child.text.c_str(), -1, nullptr, nullptr,
                        0) == CSTR_GREATER_THAN) {
      return child.text;
    }
    before = &child;
    if (const std::wstring deeper = OutOfOrder(child); !deeper.empty()) return deeper;
  }
  return {};
}

}  // namespace program

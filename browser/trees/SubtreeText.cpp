#include "browser/trees/SubtreeText.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace browser {
namespace {

using controls::NodeId;

bool IsBreak(wchar_t character) {
  return character == L'\r' || character == L'\n' || character == L'\t';
}

// The line of a node and those of all below it; as deep as the tree, which has four levels.
void AddLines(const controls::TreeNodes& nodes, NodeId node, std::size_t level,
              std::wstring& text) {
  if (level > 0) text += L"\r\n";
  text.append(level, L'\t');
  std::replace_copy_if(nodes.Text(node).begin(), nodes.Text(node).end(), std::back_inserter(text),
                       IsBreak, L' ');
  for (const NodeId child : nodes.ChildrenInOrder(node)) AddLines(nodes, child, level + 1, text);
}

}  // namespace

std::wstring SubtreeText(const controls::TreeNodes& nodes, controls::NodeId node) {
  std::wstring text;
  AddLines(nodes, node, 0, text);
  return text;
}

}  // namespace browser

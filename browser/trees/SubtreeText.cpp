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

// The node that follows in the order of reading, and how much deeper it stands; kNoNode after the
// last one below top.
NodeId NextInOrder(const controls::TreeNodes& nodes, NodeId node, NodeId top, int& level) {
  if (nodes.HasChildren(node)) {
    ++level;
    return nodes.FirstChild(node);
  }
  while (node != top && nodes.Next(node) == controls::kNoNode) {
    node = nodes.Parent(node);
    --level;
  }
  return node == top ? controls::kNoNode : nodes.Next(node);
}

}  // namespace

std::wstring SubtreeText(const controls::TreeNodes& nodes, NodeId node) {
  std::wstring text;
  int level = 0;
  for (NodeId line = node; line != controls::kNoNode;
       line = NextInOrder(nodes, line, node, level)) {
    if (line != node) text += L"\r\n";
    text.append(static_cast<std::size_t>(level), L'\t');
    std::replace_copy_if(nodes.Text(line).begin(), nodes.Text(line).end(), std::back_inserter(text),
                         IsBreak, L' ');
  }
  return text;
}

}  // namespace browser

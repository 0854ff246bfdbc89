#include "controls/win32/ReusableItems.h"

#include <algorithm>

namespace controls {

void ReusableItems::Keep() {
  const std::vector<NodeId>& roots = map_.ChildrenOf(kNoNode);
  if (roots.size() != 1 || !control_.IsOpen(map_.ItemOf(roots.front()))) return;
  if (!map_.IsTold(roots.front())) return;
  for (const NodeId child : map_.ChildrenOf(roots.front())) items_.push_back(ShownAs(child));
  std::reverse(items_.begin(), items_.end());
  items_.push_back(ShownAs(roots.front()));
  items_.back().opened = false;  // what is below it is here as well
}

ReusableItems::Item ReusableItems::ShownAs(NodeId node) const {
  return {map_.ItemOf(node),
          node,
          nodes_.TextOf(node),
          nodes_.Image(node),
          model_.HasChildrenOnView(node),
          map_.IsTold(node)};
}

bool ReusableItems::Begin() {
  const NodeId root = nodes_.Root();
  if (items_.empty() || root == kNoNode || nodes_.OtherSibling(root) != kNoNode ||
      !nodes_.Expanded(root) || !nodes_.HasChildren(root)) {
    items_.clear();
    return false;
  }
  for (const Item& old : items_) {
    if (old.opened) control_.Delete(old.item);
  }
  std::erase_if(items_, [](const Item& old) { return old.opened; });
  return true;
}

HTREEITEM ReusableItems::Take(NodeId node) {
  if (items_.empty()) return nullptr;
  const NodeId parent = nodes_.Parent(node);
  if (parent != kNoNode && parent != nodes_.Root()) return nullptr;
  const Item old = items_.back();
  items_.pop_back();
  UINT parts = 0;
  if (old.node != node) parts |= TVIF_PARAM;
  if (old.text != nodes_.TextOf(node)) parts |= TVIF_TEXT;
  if (old.image != nodes_.Image(node)) parts |= TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  if (old.hasChildren != model_.HasChildrenOnView(node)) parts |= TVIF_CHILDREN;
  if (parts != 0) control_.Change(old.item, node, parts);
  return old.item;
}

void ReusableItems::DeleteRest() {
  for (const Item& old : items_) control_.Delete(old.item);
  items_.clear();
}

}  // namespace controls

#include "controls/win32/TreeItemMap.h"

#include <utility>

namespace controls {

HTREEITEM TreeItemMap::ItemOf(NodeId node) const {
  const auto found = items_.find(node);
  return found == items_.end() ? nullptr : found->second;
}

void TreeItemMap::SetChildren(NodeId parent, std::vector<NodeId> children) {
  children_[parent] = std::move(children);
}

void TreeItemMap::DropRemoved(NodeId parent) {
  const auto found = children_.find(parent);
  if (found == children_.end()) return;
  std::erase_if(found->second,
                [&](NodeId child) { return !Has(child) || nodes_.Parent(child) != parent; });
}

void TreeItemMap::Forget(NodeId node) {
  items_.erase(node);
  ForgetBelow(node);
}

void TreeItemMap::ForgetBelow(NodeId node) {
  const auto found = children_.find(node);
  if (found == children_.end()) return;
  const std::vector<NodeId> children = std::move(found->second);
  children_.erase(found);
  for (const NodeId child : children) {
    if (nodes_.Exists(child) && nodes_.Parent(child) == node) Forget(child);
  }
}

void TreeItemMap::Clear() {
  items_.clear();
  children_.clear();
  children_[kNoNode];
}

}  // namespace controls

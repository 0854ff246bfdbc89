#include "controls/win32/TreeItems.h"

#include <utility>

namespace controls {

void TreeItems::Attach(HWND window) {
  window_ = window;
  Forget();
}

void TreeItems::Detach() {
  window_ = nullptr;
  Forget();
}

void TreeItems::Added(NodeId parent) {
  if (parent == kNoNode || items_.contains(parent)) changedParents_.insert(parent);
}

void TreeItems::Removing(NodeId node) {
  const auto found = items_.find(node);
  const NodeId parent = nodes_.Parent(node);
  if (found != items_.end()) removals_.push_back({found->second, false});
  if (parent == kNoNode || items_.contains(parent)) changedParents_.insert(parent);
  Forget(node);
}

// All at once, for each item alone would cost the control a search among all it has. What comes in
// their place is told of when it is shown.
void TreeItems::RemovingChildren(NodeId node) {
  const auto found = items_.find(node);
  if (found == items_.end()) return;
  changedParents_.insert(node);
  if (!filled_.contains(node)) return;
  removals_.push_back({found->second, true});
  ForgetBelow(node);
}

// The index of a node that goes may be given to another one before the native control follows.
void TreeItems::Forget(NodeId node) {
  items_.erase(node);
  ForgetBelow(node);
}

void TreeItems::ForgetBelow(NodeId node) {
  const auto found = filled_.find(node);
  if (found == filled_.end()) return;
  const std::vector<NodeId> children = std::move(found->second);
  filled_.erase(found);
  for (const NodeId child : children) {
    if (nodes_.Exists(child) && nodes_.Parent(child) == node) Forget(child);
  }
}

void TreeItems::Clearing() {
  if (!cleared_) KeepReusable();
  std::vector<ReusableItem> reusable = std::move(reusable_);
  Forget();
  reusable_ = std::move(reusable);
  cleared_ = true;
}

void TreeItems::Forget() {
  items_.clear();
  filled_.clear();
  filled_[kNoNode];
  removals_.clear();
  changedParents_.clear();
  changedNodes_.clear();
  changedExpansions_.clear();
  reusable_.clear();
  cleared_ = false;
}

void TreeItems::Changed(NodeId node) {
  if (items_.contains(node)) changedNodes_.insert(node);
}

void TreeItems::ExpansionChanged(NodeId node) {
  if (items_.contains(node)) changedExpansions_.insert(node);
}

void TreeItems::Reordered(const std::vector<NodeId>& parents) {
  for (const NodeId parent : parents) {
    if (filled_.contains(parent)) changedParents_.insert(parent);
  }
}

bool TreeItems::Pending() const {
  return cleared_ || !removals_.empty() || !changedParents_.empty() || !changedExpansions_.empty();
}

HTREEITEM TreeItems::ItemOf(NodeId node) const {
  const auto found = items_.find(node);
  return found == items_.end() ? nullptr : found->second;
}

NodeId TreeItems::FirstChild(NodeId parent) const {
  return parent == kNoNode ? nodes_.Root() : nodes_.FirstChild(parent);
}

NodeId TreeItems::NodeOf(HTREEITEM item) const {
  TVITEMW native = {};
  native.mask = TVIF_PARAM | TVIF_HANDLE;
  native.hItem = item;
  if (!item || !Send(TVM_GETITEMW, 0, AsLParam(&native))) return kNoNode;
  return NodeIn(native.lParam);
}

HTREEITEM TreeItems::SelectedItem() const {
  return HandleIn<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_CARET, 0));
}

bool TreeItems::IsOpen(NodeId node) const {
  const auto item = AsWParam(ItemOf(node));
  return item && (Send(TVM_GETITEMSTATE, item, TVIS_EXPANDED) & TVIS_EXPANDED);
}

}  // namespace controls

// A tree that is rebuilt looks much as it did, and an item that stays as it is costs nothing,
// while one that is deleted and inserted again is told of, measured and sorted in. So the root and
// its children keep their items, each of which then stands for the node in its place.

#include <algorithm>

#include "controls/win32/TreeItems.h"

namespace controls {

// Only where the control shows exactly what the nodes say, for that is what is compared later.
void TreeItems::KeepReusable() {
  if (!window_ || Pending() || !changedNodes_.empty()) return;
  const std::vector<NodeId>& roots = filled_[kNoNode];
  if (roots.size() != 1 || !IsOpen(roots.front())) return;
  const auto children = filled_.find(roots.front());
  if (children == filled_.end()) return;
  for (const NodeId child : children->second) reusable_.push_back(ShownAs(child));
  std::reverse(reusable_.begin(), reusable_.end());
  reusable_.push_back(ShownAs(roots.front()));
  reusable_.back().opened = false;  // what is below it is here as well
}

TreeItems::ReusableItem TreeItems::ShownAs(NodeId node) const {
  return {ItemOf(node),
          node,
          nodes_.TextOf(node),
          nodes_.Image(node),
          nodes_.HasChildren(node),
          filled_.contains(node)};
}

// False where all items are to go. What had been opened goes in any case.
bool TreeItems::UseReusable() {
  const NodeId root = nodes_.Root();
  if (reusable_.empty() || root == kNoNode || nodes_.Next(root) != kNoNode ||
      !nodes_.Expanded(root) || !nodes_.HasChildren(root)) {
    reusable_.clear();
    return false;
  }
  for (const ReusableItem& old : reusable_) {
    if (old.opened) Send(TVM_DELETEITEM, 0, AsLParam(old.item));
  }
  std::erase_if(reusable_, [](const ReusableItem& old) { return old.opened; });
  return true;
}

// The item that stands in the node's place, which shows the node now; null where there is none.
HTREEITEM TreeItems::TakeReusable(NodeId node) {
  if (reusable_.empty()) return nullptr;
  const NodeId parent = nodes_.Parent(node);
  if (parent != kNoNode && parent != nodes_.Root()) return nullptr;
  const ReusableItem old = reusable_.back();
  reusable_.pop_back();
  UINT parts = 0;
  if (old.node != node) parts |= TVIF_PARAM;
  if (old.text != nodes_.TextOf(node)) parts |= TVIF_TEXT;
  if (old.image != nodes_.Image(node)) parts |= TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  if (old.hasChildren != nodes_.HasChildren(node)) parts |= TVIF_CHILDREN;
  if (parts == 0) return old.item;
  const TVITEMW native = Shown(node, old.item, parts);
  Send(TVM_SETITEMW, 0, AsLParam(&native));
  return old.item;
}

void TreeItems::DeleteReusable() {
  for (const ReusableItem& old : reusable_) {
    Send(TVM_DELETEITEM, 0, AsLParam(old.item));
  }
  reusable_.clear();
}

// As a tree does whose items have all been inserted.
void TreeItems::ShowFromTheStart() const {
  const LRESULT first = Send(TVM_GETNEXTITEM, TVGN_ROOT, 0);
  if (Send(TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE, 0) != first) {
    Send(TVM_SELECTITEM, TVGN_FIRSTVISIBLE, first);
  }
  if (GetScrollPos(window_, SB_HORZ) != 0) Send(WM_HSCROLL, SB_LEFT, 0);
}

}  // namespace controls

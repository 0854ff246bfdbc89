// A tree that is built anew looks much as it did, and an item that stays as it is costs nothing,
// while one that is deleted and inserted again is told of, measured and sorted in. So the root and
// its children keep their items, each of which then stands for the node in its place.

#include <algorithm>

#include "controls/win32/TreeItems.h"

namespace controls {

// Only where the control shows exactly what the nodes say, for that is what is compared later.
void TreeItems::KeepSpares() {
  if (!window_ || Pending() || !changedNodes_.empty()) return;
  const std::vector<int>& roots = filled_[kNoNode];
  if (roots.size() != 1 || !IsOpen(roots.front())) return;
  const auto children = filled_.find(roots.front());
  if (children == filled_.end()) return;
  for (const int child : children->second) spares_.push_back(ShownAs(child));
  std::reverse(spares_.begin(), spares_.end());
  spares_.push_back(ShownAs(roots.front()));
  spares_.back().opened = false;  // what is below it is here as well
}

TreeItems::Spare TreeItems::ShownAs(int node) const {
  return {ItemOf(node),
          node,
          nodes_.TextOf(node),
          nodes_.Image(node),
          nodes_.HasChildren(node),
          filled_.contains(node)};
}

// False where all items are to go. What had been opened goes in any case.
bool TreeItems::UseSpares() {
  const int root = nodes_.Root();
  if (spares_.empty() || root == kNoNode || nodes_.Next(root) != kNoNode ||
      !nodes_.Expanded(root) || !nodes_.HasChildren(root)) {
    spares_.clear();
    return false;
  }
  for (const Spare& spare : spares_) {
    if (spare.opened) Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(spare.item));
  }
  std::erase_if(spares_, [](const Spare& spare) { return spare.opened; });
  return true;
}

// The item that stands in the node's place, which shows the node now; null where there is none.
HTREEITEM TreeItems::TakeSpare(int node) {
  if (spares_.empty()) return nullptr;
  const int parent = nodes_.Parent(node);
  if (parent != kNoNode && parent != nodes_.Root()) return nullptr;
  const Spare spare = spares_.back();
  spares_.pop_back();
  UINT parts = 0;
  if (spare.node != node) parts |= TVIF_PARAM;
  if (spare.text != nodes_.TextOf(node)) parts |= TVIF_TEXT;
  if (spare.image != nodes_.Image(node)) parts |= TVIF_IMAGE | TVIF_SELECTEDIMAGE;
  if (spare.hasChildren != nodes_.HasChildren(node)) parts |= TVIF_CHILDREN;
  if (parts == 0) return spare.item;
  const TVITEMW native = Shown(node, spare.item, parts);
  Send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&native));
  return spare.item;
}

void TreeItems::DeleteSpares() {
  for (const Spare& spare : spares_) {
    Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(spare.item));
  }
  spares_.clear();
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

// How the native tree view is brought in step with the nodes.

#include <algorithm>
#include <optional>

#include "controls/win32/ScrollBarFreeze.h"
#include "controls/win32/TreeItems.h"

namespace controls {
namespace {

// From this many new children on it is cheaper to put them at the end and have the control sort.
constexpr std::size_t kSortFrom = 64;

// All that a user sees of an item.
constexpr UINT kLook = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN;

// How far down the window a line is looked for that stays.
constexpr int kMostLines = 500;

using Ranks = std::unordered_map<NodeId, int>;

int CALLBACK CompareRanks(LPARAM a, LPARAM b, LPARAM ranks) {
  const auto& places = StructIn<const Ranks>(ranks);
  return places.at(NodeIn(a)) - places.at(NodeIn(b));
}

}  // namespace

// While it stands the native control does not paint: each change of its structure would otherwise
// cost a walk over all that stands below. Told so itself, it still has its scroll bars painted as
// they change; those are kept still as well, and painted at the end only if they are others then.
class TreeItems::RedrawOff {
 public:
  RedrawOff(TreeItems& items, bool structural) : items_(items) {
    if (items_.busy_++ > 0 || !structural) return;
    structural_ = true;
    bars_.emplace(items_.window_);
    items_.Send(WM_SETREDRAW, FALSE, 0);
  }
  ~RedrawOff() {
    --items_.busy_;
    if (!structural_) return;
    items_.Send(WM_SETREDRAW, TRUE, 0);
    const UINT frame = bars_->End() ? RDW_FRAME : 0;
    if (!bars_->Shown()) return;
    RedrawWindow(items_.window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | frame);
  }
  RedrawOff(const RedrawOff&) = delete;
  RedrawOff& operator=(const RedrawOff&) = delete;

 private:
  TreeItems& items_;
  bool structural_ = false;  // the outermost, and there is more to do than to select
  std::optional<ScrollBarFreeze> bars_;
};

void TreeItems::Synchronise(NodeId selected, bool reveal) {
  if (!window_) return;
  if (busy_ > 0) {
    // Texts may be swept before the next time, and what the reusable items show could not be told
    // any more.
    if (cleared_) reusable_.clear();
    return;
  }
  HTREEITEM top = nullptr;
  const bool rebuilt = cleared_;
  {
    const RedrawOff redrawOff(*this, Pending());
    top = TopThatStays();
    DeleteRemoved();
    const auto parents = std::exchange(changedParents_, {});
    for (const NodeId parent : parents) SynchroniseChildren(parent);
    for (const NodeId node : std::exchange(changedNodes_, {})) Refresh(node);
    for (const NodeId node : parents) ShowExpansion(node);
    for (const NodeId node : std::exchange(changedExpansions_, {})) ShowExpansion(node);
    DeleteReusable();
    Reselect(selected);
  }
  ++busy_;
  if (rebuilt) ShowFromTheStart();
  top = ShownLine(top);
  if (top && HandleIn<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE, 0)) != top) {
    Send(TVM_SELECTITEM, TVGN_FIRSTVISIBLE, AsLParam(top));
  }
  HTREEITEM item = ItemOf(selected);
  if (reveal && item) Send(TVM_ENSUREVISIBLE, 0, AsLParam(item));
  --busy_;
}

void TreeItems::Reselect(NodeId selected) {
  HTREEITEM item = ItemOf(selected);
  if (HandleIn<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_CARET, 0)) == item) return;
  ++busy_;
  Send(TVM_SELECTITEM, TVGN_CARET, AsLParam(item));
  --busy_;
}

// The topmost line of the window that will still be there.
HTREEITEM TreeItems::TopThatStays() const {
  if (cleared_ || !Pending()) return nullptr;
  auto line = HandleIn<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE, 0));
  for (int lines = 0; line && lines < kMostLines; ++lines) {
    if (ItemOf(NodeOf(line)) == line) return line;
    line = HandleIn<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, AsLParam(line)));
  }
  return nullptr;
}

// The item, or the closed one above it that stands in its place.
HTREEITEM TreeItems::ShownLine(HTREEITEM item) const {
  if (!item) return nullptr;
  NodeId shown = NodeOf(item);
  for (NodeId above = shown; above != kNoNode; above = nodes_.Parent(above)) {
    if (above != shown && !nodes_.Expanded(above)) shown = above;
  }
  return ItemOf(shown);
}

void TreeItems::DeleteRemoved() {
  if (std::exchange(cleared_, false) && !UseReusable()) {
    Send(TVM_DELETEITEM, 0, AsLParam(TVI_ROOT));
  }
  for (const Removal& removal : std::exchange(removals_, {})) {
    if (removal.childrenOnly) {
      DeleteChildren(removal.item);
    } else {
      Send(TVM_DELETEITEM, 0, AsLParam(removal.item));
    }
  }
  // Before anything is inserted, for a new child may have the index of one that has gone.
  for (const NodeId parent : changedParents_) {
    const auto found = filled_.find(parent);
    if (found == filled_.end()) continue;
    std::erase_if(found->second, [&](NodeId child) {
      return !items_.contains(child) || nodes_.Parent(child) != parent;
    });
  }
}

void TreeItems::DeleteChildren(HTREEITEM item) const {
  const auto above = AsLParam(item);
  // Closed first, which moves the control's own selection out of what goes.
  Send(TVM_EXPAND, TVE_COLLAPSE, above);
  Send(TVM_EXPAND, TVE_COLLAPSE | TVE_COLLAPSERESET, above);
  // The control may do that for an open item only.
  while (const LRESULT child = Send(TVM_GETNEXTITEM, TVGN_CHILD, above)) {
    Send(TVM_DELETEITEM, 0, child);
  }
}

void TreeItems::SynchroniseChildren(NodeId parent) {
  if (parent != kNoNode && !items_.contains(parent)) return;
  const auto found = filled_.find(parent);
  if (found != filled_.end()) {
    std::vector<NodeId> wanted;
    for (NodeId child = FirstChild(parent); child != kNoNode; child = nodes_.Next(child)) {
      wanted.push_back(child);
    }
    const std::vector<NodeId> told = std::move(found->second);
    const bool many = wanted.size() - told.size() >= kSortFrom && !told.empty();
    if (!many && InOrder(told, wanted)) {
      InsertInPlace(wanted);
    } else {
      for (const NodeId child : wanted) {
        if (!items_.contains(child)) Insert(child, TVI_LAST);
      }
      Sort(parent, wanted);
    }
    // Looked up again: an inserted child that is expanded has brought its own children.
    filled_[parent] = std::move(wanted);
  }
  if (parent != kNoNode) Refresh(parent);
}

// Whether the children told of stand as they should, but for new ones between them.
bool TreeItems::InOrder(const std::vector<NodeId>& told, const std::vector<NodeId>& wanted) const {
  auto next = told.begin();
  for (const NodeId child : wanted) {
    if (!items_.contains(child)) continue;
    if (next == told.end() || *next++ != child) return false;
  }
  return true;
}

void TreeItems::InsertInPlace(const std::vector<NodeId>& wanted) {
  // What follows the last child that the control knows is simply put at the end, which is cheap.
  std::size_t tail = wanted.size();
  while (tail > 0 && !items_.contains(wanted[tail - 1])) --tail;
  HTREEITEM previous = TVI_FIRST;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (!items_.contains(wanted[i])) Insert(wanted[i], i >= tail ? TVI_LAST : previous);
    previous = ItemOf(wanted[i]);
  }
}

void TreeItems::Insert(NodeId node, HTREEITEM after) {
  if (HTREEITEM reused = TakeReusable(node)) {
    items_[node] = reused;
    if (nodes_.Expanded(node)) ShowExpansion(node);
    return;
  }
  const NodeId parent = nodes_.Parent(node);
  TVINSERTSTRUCTW native = {};
  native.hParent = parent == kNoNode ? TVI_ROOT : ItemOf(parent);
  native.hInsertAfter = after;
  native.item = Shown(node, nullptr, kLook | TVIF_PARAM);
  items_[node] = HandleIn<HTREEITEM>(Send(TVM_INSERTITEMW, 0, AsLParam(&native)));
  if (nodes_.Expanded(node)) ShowExpansion(node);
}

// What the control is to be told of a node: the parts that the mask names.
TVITEMW TreeItems::Shown(NodeId node, HTREEITEM item, UINT parts) const {
  TVITEMW native = {};
  native.mask = parts | (item ? TVIF_HANDLE : 0);
  native.hItem = item;
  native.pszText = const_cast<wchar_t*>(nodes_.Text(node).c_str());
  native.iImage = native.iSelectedImage = nodes_.Image(node);
  native.cChildren = nodes_.HasChildren(node);
  native.lParam = AsLParam(node);
  return native;
}

void TreeItems::Refresh(NodeId node) const {
  HTREEITEM item = ItemOf(node);
  if (!item) return;
  const TVITEMW native = Shown(node, item, kLook);
  Send(TVM_SETITEMW, 0, AsLParam(&native));
}

void TreeItems::ShowExpansion(NodeId node) {
  HTREEITEM item = ItemOf(node);
  if (!item) return;
  const bool open = nodes_.Expanded(node) && nodes_.HasChildren(node);
  if (open) Fill(node);
  if (open == IsOpen(node)) return;
  const RedrawOff redrawOff(*this, true);
  if (nodes_.HasChildren(node)) {
    Send(TVM_EXPAND, open ? TVE_EXPAND : TVE_COLLAPSE, AsLParam(item));
    return;
  }
  // Without children the control does not close the item.
  TVITEMW native = {};
  native.mask = TVIF_HANDLE | TVIF_STATE;
  native.hItem = item;
  native.stateMask = TVIS_EXPANDED;
  Send(TVM_SETITEMW, 0, AsLParam(&native));
}

void TreeItems::Fill(NodeId node) {
  if (!items_.contains(node) || filled_.contains(node)) return;
  const RedrawOff redrawOff(*this, true);
  std::vector<NodeId> children;
  for (NodeId child = nodes_.FirstChild(node); child != kNoNode; child = nodes_.Next(child)) {
    Insert(child, TVI_LAST);
    children.push_back(child);
  }
  filled_[node] = std::move(children);
}

void TreeItems::Sort(NodeId parent, const std::vector<NodeId>& wanted) const {
  Ranks ranks;
  ranks.reserve(wanted.size());
  for (const NodeId child : wanted) ranks.emplace(child, static_cast<int>(ranks.size()));
  TVSORTCB sort = {};
  sort.hParent = parent == kNoNode ? TVI_ROOT : ItemOf(parent);
  sort.lpfnCompare = CompareRanks;
  sort.lParam = AsLParam(&ranks);
  Send(TVM_SORTCHILDRENCB, FALSE, AsLParam(&sort));
}

}  // namespace controls

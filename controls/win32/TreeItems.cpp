#include "controls/win32/TreeItems.h"

#include <utility>

namespace controls {
namespace {

// From this many new children on it is cheaper to put them in front and have the control sort.
constexpr std::size_t kSortFrom = 64;

// How far down the window a line is looked for that stays.
constexpr int kMostLines = 500;

}  // namespace

// While it stands the native control is being changed: what it reports is no user's doing, and what
// changes its structure is painted at the end.
class TreeItems::RedrawOff {
 public:
  RedrawOff(TreeItems& items, bool structural)
      : items_(items), outermost_(items.busy_++ == 0 && structural) {
    if (outermost_) items_.control_.BeginChanges();
  }
  ~RedrawOff() {
    --items_.busy_;
    if (outermost_) items_.control_.EndChanges();
  }
  RedrawOff(const RedrawOff&) = delete;
  RedrawOff& operator=(const RedrawOff&) = delete;

 private:
  TreeItems& items_;
  bool outermost_;  // and there is more to do than to select
};

void TreeItems::Attach(HWND window) {
  control_.Attach(window);
  map_.Clear();
  changes_ = {};
  reusable_.Forget();
}

void TreeItems::ChildrenChanged(NodeId parent) {
  if (parent == kNoNode || map_.Has(parent)) changes_.parents.insert(parent);
}

void TreeItems::Removing(NodeId node) {
  if (map_.Has(node)) changes_.removals.push_back({map_.ItemOf(node), false});
  ChildrenChanged(nodes_.Parent(node));
  map_.Forget(node);
}

// All at once, for each item alone would cost the control a search among all it has. What comes in
// their place is told of when it is shown.
void TreeItems::RemovingChildren(NodeId node) {
  if (!map_.Has(node)) return;
  changes_.parents.insert(node);
  if (!map_.IsTold(node)) return;
  changes_.removals.push_back({map_.ItemOf(node), true});
  map_.ForgetBelow(node);
}

void TreeItems::Clearing() {
  if (control_.Window() && !changes_.Any()) reusable_.Keep();
  map_.Clear();
  changes_ = {};
  changes_.cleared = true;
}

void TreeItems::Changed(NodeId node) {
  if (map_.Has(node)) changes_.nodes.insert(node);
}

void TreeItems::ExpansionChanged(NodeId node) {
  if (map_.Has(node)) changes_.expansions.insert(node);
}

void TreeItems::Reordered(const std::vector<NodeId>& parents) {
  for (const NodeId parent : parents) {
    if (map_.IsTold(parent)) changes_.parents.insert(parent);
  }
}

void TreeItems::Synchronise(NodeId selected, bool reveal) {
  if (!control_.Window()) return;
  if (busy_ > 0) {
    // Texts may be swept before the next time, and what the reusable items show could not be told
    // any more.
    if (changes_.cleared) reusable_.Forget();
    return;
  }
  const bool rebuilt = changes_.cleared;
  NodeId top = kNoNode;
  {
    const RedrawOff redrawOff(*this, changes_.Structural());
    top = TopThatStays();
    ApplyChanges(selected);
  }
  ++busy_;
  if (rebuilt) control_.ScrollToStart();
  if (HTREEITEM line = ShownLine(top)) control_.ScrollTo(line);
  HTREEITEM item = map_.ItemOf(selected);
  if (reveal && item) control_.Reveal(item);
  --busy_;
}

void TreeItems::ApplyChanges(NodeId selected) {
  DeleteRemoved();
  const auto parents = std::exchange(changes_.parents, {});
  for (const NodeId parent : parents) SynchroniseChildren(parent);
  for (const NodeId node : std::exchange(changes_.nodes, {})) ApplyLook(node);
  for (const NodeId node : parents) ApplyExpansion(node);
  for (const NodeId node : std::exchange(changes_.expansions, {})) ApplyExpansion(node);
  reusable_.DeleteRest();
  HTREEITEM item = map_.ItemOf(selected);
  if (control_.Next(TVGN_CARET) != item) control_.Select(item);
}

// The node of the topmost line of the window that will still be there.
NodeId TreeItems::TopThatStays() const {
  if (changes_.cleared || !changes_.Structural()) return kNoNode;
  HTREEITEM line = control_.Next(TVGN_FIRSTVISIBLE);
  for (int lines = 0; line && lines < kMostLines; ++lines) {
    const NodeId node = control_.NodeOf(line);
    if (map_.ItemOf(node) == line && model_.Filter().LetsThrough(node)) return node;
    line = control_.Next(TVGN_NEXTVISIBLE, line);
  }
  return kNoNode;
}

// The node's item, or that of the closed one above it that stands in its place.
HTREEITEM TreeItems::ShownLine(NodeId node) const {
  NodeId shown = node;
  for (NodeId above = shown; above != kNoNode; above = nodes_.Parent(above)) {
    if (above != shown && !nodes_.Expanded(above)) shown = above;
  }
  return map_.ItemOf(shown);
}

void TreeItems::DeleteRemoved() {
  if (std::exchange(changes_.cleared, false) && !reusable_.Begin()) control_.DeleteAll();
  for (const TreeChanges::Removal& removal : std::exchange(changes_.removals, {})) {
    if (removal.childrenOnly) {
      control_.DeleteChildren(removal.item);
    } else {
      control_.Delete(removal.item);
    }
  }
  // Before anything is inserted, for a new child may have the index of one that has gone.
  for (const NodeId parent : changes_.parents) map_.DropRemoved(parent);
}

void TreeItems::SynchroniseChildren(NodeId parent) {
  if (parent != kNoNode && !map_.Has(parent)) return;
  if (map_.IsTold(parent)) {
    std::vector<NodeId> wanted = model_.ChildrenOnView(parent);
    Withdraw(parent, wanted.size());
    Insert(parent, wanted, InOrder(map_.ChildrenOf(parent), wanted));
    map_.SetChildren(parent, std::move(wanted));
  }
  if (parent != kNoNode) ApplyLook(parent);
}

// Takes away the items of those children that are on view no longer. Where few stay, of those that
// are there or of those that come, all go at once and what stays is told of again: each item that
// goes alone costs a search among all, and many that come among others cost their sorting.
void TreeItems::Withdraw(NodeId parent, std::size_t wanted) {
  if (parent == kNoNode) return;
  std::vector<NodeId> staying;
  std::vector<NodeId> leaving;
  for (const NodeId child : map_.ChildrenOf(parent)) {
    (model_.Filter().LetsThrough(child) ? staying : leaving).push_back(child);
  }
  const bool fewStay = leaving.size() > staying.size() / 2;
  const bool manyCome = wanted > kSortFrom && wanted / 8 > staying.size();
  if (!fewStay && !manyCome && leaving.empty()) return;
  if (fewStay || manyCome) {
    control_.DeleteChildren(map_.ItemOf(parent));
    map_.ForgetBelow(parent);
    staying.clear();
  }
  for (const NodeId child : leaving) {
    if (HTREEITEM item = map_.ItemOf(child)) control_.Delete(item);
    map_.Forget(child);
  }
  map_.SetChildren(parent, std::move(staying));
}

// Whether the children told of stand as they should, but for new ones between them.
bool TreeItems::InOrder(const std::vector<NodeId>& told, const std::vector<NodeId>& wanted) const {
  auto next = told.begin();
  for (const NodeId child : wanted) {
    if (!map_.Has(child)) continue;
    if (next == told.end() || *next++ != child) return false;
  }
  return true;
}

// Of many new children none names a sibling, nor the end: the control would look for that place
// among all it has. From the last to the first, each goes in front of the others.
void TreeItems::Insert(NodeId parent, const std::vector<NodeId>& wanted, bool inOrder) {
  const std::vector<NodeId> missing = NotYetTold(wanted);
  std::vector<NodeId> added;
  for (const NodeId child : missing) {
    if (HTREEITEM item = reusable_.Take(child)) {
      map_.Set(child, item);
    } else {
      added.push_back(child);
    }
  }
  const bool beginning = added.size() == wanted.size();
  if (inOrder && !beginning && added.size() < kSortFrom) {
    InsertInPlace(parent, wanted);
  } else {
    for (auto child = added.rbegin(); child != added.rend(); ++child) {
      InsertAfter(TVI_FIRST, *child, parent);
    }
    if (!beginning) control_.Sort(map_.ItemOf(parent), wanted);
  }
  for (const NodeId child : missing) {
    if (nodes_.Expanded(child)) ApplyExpansion(child);
  }
}

// Those of the nodes that the control does not know, in their order.
std::vector<NodeId> TreeItems::NotYetTold(const std::vector<NodeId>& nodes) const {
  std::vector<NodeId> unknown;
  for (const NodeId node : nodes) {
    if (!map_.Has(node)) unknown.push_back(node);
  }
  return unknown;
}

void TreeItems::InsertInPlace(NodeId parent, const std::vector<NodeId>& wanted) {
  HTREEITEM previous = TVI_FIRST;
  for (const NodeId child : wanted) {
    if (!map_.Has(child)) InsertAfter(previous, child, parent);
    previous = map_.ItemOf(child);
  }
}

void TreeItems::InsertAfter(HTREEITEM previous, NodeId node, NodeId parent) {
  map_.Set(node, control_.Insert(node, map_.ItemOf(parent), previous));
}

void TreeItems::ApplyLook(NodeId node) {
  if (HTREEITEM item = map_.ItemOf(node)) control_.Change(item, node, TreeControl::kLook);
}

void TreeItems::ApplyExpansion(NodeId node) {
  HTREEITEM item = map_.ItemOf(node);
  if (!item) return;
  const bool open = nodes_.Expanded(node) && model_.HasChildrenOnView(node);
  if (open) Fill(node);
  if (open == control_.IsOpen(item)) return;
  const RedrawOff redrawOff(*this, true);
  if (model_.HasChildrenOnView(node)) {
    control_.SetOpen(item, open);
  } else {
    control_.MarkClosed(item);
  }
}

void TreeItems::Fill(NodeId node) {
  if (!map_.Has(node) || map_.IsTold(node)) return;
  const RedrawOff redrawOff(*this, true);
  std::vector<NodeId> children = model_.ChildrenOnView(node);
  Insert(node, children, true);
  map_.SetChildren(node, std::move(children));
}

}  // namespace controls

#include <algorithm>
#include <utility>

#include "controls/TreeNodes.h"

// How the children of a tree's nodes are kept in the order of their texts.
namespace controls {
namespace {

// Numbering all texts by their order pays where at least one in so many is looked at for the first
// time.
constexpr std::size_t kFewTexts = 4;

}  // namespace

void TreeNodes::SetSorted(NodeId node, bool sorted) {
  if (!sorted) InOrder(node);
  At(node).sorted = sorted;
  if (HasChildren(node)) MarkOrderPending(node);
}

void TreeNodes::MarkOrderPending(NodeId parent) {
  Node& above = At(parent);
  if (!above.sorted) return;
  above.orderPending = true;
  if (above.reordered) return;
  above.reordered = true;
  reordered_.push_back(parent);
}

std::vector<NodeId> TreeNodes::TakeReordered() {
  std::vector<NodeId> reordered;
  for (const NodeId node : std::exchange(reordered_, {})) {
    // It may have been removed since, and its index be used again.
    if (!At(node).reordered) continue;
    At(node).reordered = false;
    reordered.push_back(node);
  }
  return reordered;
}

void TreeNodes::SortChildren(NodeId parent) const {
  Linked(parent).orderPending = false;
  if (!HasChildren(parent)) return;
  if (WorthRanking(parent)) texts_.RankAll();
  if (texts_.Ranked()) {
    SortChildrenByRank(parent);
  } else {
    SortChildrenByKey(parent);
  }
}

bool TreeNodes::WorthRanking(NodeId parent) const {
  const std::size_t few = texts_.Count() / kFewTexts;
  return texts_.Unranked() > few && static_cast<std::size_t>(Children(parent)) > few;
}

// Nodes of one text are ordered by their index, so that the order never depends on the past.
bool TreeNodes::StandsBefore(NodeId a, NodeId b) const {
  const TextRef textA = At(a).text;
  const TextRef textB = At(b).text;
  return textA == textB ? a < b : texts_.Before(textA, textB);
}

// Plain numbers are sorted, and no text is looked at.
void TreeNodes::SortChildrenByRank(NodeId parent) const {
  ranked_.clear();
  for (NodeId child = At(parent).firstChild; child != kNoNode; child = At(child).next) {
    const std::uint64_t rank = texts_.Rank(At(child).text);
    ranked_.push_back(rank << 32 | static_cast<std::uint32_t>(IndexOf(child)));
  }
  if (std::is_sorted(ranked_.begin(), ranked_.end())) return;
  std::sort(ranked_.begin(), ranked_.end());
  ordered_.clear();
  for (const std::uint64_t entry : ranked_) {
    ordered_.push_back(NodeId{static_cast<int>(static_cast<std::uint32_t>(entry))});
  }
  Relink(parent);
}

// Most of the children stand in order already, after a change of a few as well as after a query
// that was ordered: only the others are sorted, and merged in.
void TreeNodes::SortChildrenByKey(NodeId parent) const {
  TakeMisplaced(parent);
  if (misplaced_.empty()) return;
  const auto before = [this](NodeId a, NodeId b) { return StandsBefore(a, b); };
  std::sort(misplaced_.begin(), misplaced_.end(), before);
  const auto inOrder = static_cast<std::ptrdiff_t>(ordered_.size());
  ordered_.insert(ordered_.end(), misplaced_.begin(), misplaced_.end());
  std::inplace_merge(ordered_.begin(), ordered_.begin() + inOrder, ordered_.end(), before);
  Relink(parent);
}

// Where two neighbours stand the wrong way round either may be the one that moved: both go.
void TreeNodes::TakeMisplaced(NodeId parent) const {
  ordered_.clear();
  misplaced_.clear();
  for (NodeId child = At(parent).firstChild; child != kNoNode; child = At(child).next) {
    if (ordered_.empty() || StandsBefore(ordered_.back(), child)) {
      ordered_.push_back(child);
      continue;
    }
    misplaced_.push_back(ordered_.back());
    misplaced_.push_back(child);
    ordered_.pop_back();
  }
}

void TreeNodes::Relink(NodeId parent) const {
  NodeId previous = kNoNode;
  for (const NodeId child : ordered_) {
    Linked(child).previous = previous;
    if (previous != kNoNode) Linked(previous).next = child;
    previous = child;
  }
  Linked(previous).next = kNoNode;
  Linked(parent).firstChild = ordered_.front();
  Linked(parent).lastChild = previous;
}

}  // namespace controls

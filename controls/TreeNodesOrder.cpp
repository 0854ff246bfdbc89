#include <algorithm>

#include "controls/TreeNodes.h"

// How the children of a tree's nodes are kept in the order of their texts.
namespace controls {
namespace {

// Numbering all texts by their order first pays when so many more children than texts wait.
constexpr std::size_t kChildrenPerText = 4;

}  // namespace

void TreeNodes::SetSorted(int node, bool sorted) {
  At(node).sorted = sorted;
  if (HasChildren(node)) MarkOrderPending(node);
}

void TreeNodes::MarkOrderPending(int parent) {
  Node& above = At(parent);
  if (!above.sorted || above.orderPending) return;
  above.orderPending = true;
  pending_.push_back(parent);
}

std::vector<int> TreeNodes::SortPending() {
  if (pending_.empty()) return {};
  const bool byRank = WorthRanking();
  if (byRank) texts_.RankAll();
  std::vector<int> sorted;
  for (const int parent : pending_) {
    // A node removed since, its index perhaps used again, or one noted twice.
    if (!At(parent).orderPending) continue;
    At(parent).orderPending = false;
    if (!At(parent).sorted) continue;
    if (byRank) {
      SortChildrenByRank(parent);
    } else {
      SortChildrenByKey(parent);
    }
    sorted.push_back(parent);
  }
  pending_.clear();
  return sorted;
}

bool TreeNodes::WorthRanking() const {
  if (texts_.Ranked()) return true;
  const std::size_t enough = kChildrenPerText * texts_.Count();
  std::size_t waiting = 0;
  for (const int parent : pending_) {
    if (!At(parent).orderPending) continue;
    for (int child = At(parent).firstChild; child != kNoNode; child = At(child).next) {
      if (++waiting > enough) return true;
    }
  }
  return false;
}

// Nodes of one text are ordered by their index, so that the order never depends on the past.
bool TreeNodes::StandsBefore(int a, int b) {
  const TextRef textA = At(a).text;
  const TextRef textB = At(b).text;
  return textA == textB ? a < b : texts_.Before(textA, textB);
}

// Whole trees are put in order this way: plain numbers are sorted, and no text is looked at.
void TreeNodes::SortChildrenByRank(int parent) {
  ranked_.clear();
  for (int child = At(parent).firstChild; child != kNoNode; child = At(child).next) {
    const std::uint64_t rank = texts_.Rank(At(child).text);
    ranked_.push_back(rank << 32 | static_cast<std::uint32_t>(child));
  }
  if (std::is_sorted(ranked_.begin(), ranked_.end())) return;
  std::sort(ranked_.begin(), ranked_.end());
  ordered_.clear();
  for (const std::uint64_t entry : ranked_) {
    ordered_.push_back(static_cast<int>(static_cast<std::uint32_t>(entry)));
  }
  Relink(parent);
}

// Most of the children stand in order already, after a change of a few as well as after a query
// that was ordered: only the others are sorted, and merged in.
void TreeNodes::SortChildrenByKey(int parent) {
  TakeMisplaced(parent);
  if (misplaced_.empty()) return;
  const auto before = [this](int a, int b) { return StandsBefore(a, b); };
  std::sort(misplaced_.begin(), misplaced_.end(), before);
  const auto inOrder = static_cast<std::ptrdiff_t>(ordered_.size());
  ordered_.insert(ordered_.end(), misplaced_.begin(), misplaced_.end());
  std::inplace_merge(ordered_.begin(), ordered_.begin() + inOrder, ordered_.end(), before);
  Relink(parent);
}

// Where two neighbours stand the wrong way round either may be the one that moved: both go.
void TreeNodes::TakeMisplaced(int parent) {
  ordered_.clear();
  misplaced_.clear();
  for (int child = At(parent).firstChild; child != kNoNode; child = At(child).next) {
    if (ordered_.empty() || StandsBefore(ordered_.back(), child)) {
      ordered_.push_back(child);
      continue;
    }
    misplaced_.push_back(ordered_.back());
    misplaced_.push_back(child);
    ordered_.pop_back();
  }
}

void TreeNodes::Relink(int parent) {
  int previous = kNoNode;
  for (const int child : ordered_) {
    At(child).previous = previous;
    if (previous != kNoNode) At(previous).next = child;
    previous = child;
  }
  At(previous).next = kNoNode;
  At(parent).firstChild = ordered_.front();
  At(parent).lastChild = previous;
}

}  // namespace controls

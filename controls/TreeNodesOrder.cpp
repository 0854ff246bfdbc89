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
    SortChildren(parent, byRank);
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
bool TreeNodes::StandsBefore(int a, int b, bool byRank) {
  const TextRef textA = At(a).text;
  const TextRef textB = At(b).text;
  if (textA == textB) return a < b;
  return byRank ? texts_.Rank(textA) < texts_.Rank(textB) : texts_.Before(textA, textB);
}

// Most of the children stand in order already, after a change of a few as well as after a query
// that was ordered: only the others are sorted, and merged in.
void TreeNodes::SortChildren(int parent, bool byRank) {
  TakeMisplaced(parent, byRank);
  if (misplaced_.empty()) return;
  const auto before = [this, byRank](int a, int b) { return StandsBefore(a, b, byRank); };
  std::sort(misplaced_.begin(), misplaced_.end(), before);
  const auto inOrder = static_cast<std::ptrdiff_t>(ordered_.size());
  ordered_.insert(ordered_.end(), misplaced_.begin(), misplaced_.end());
  std::inplace_merge(ordered_.begin(), ordered_.begin() + inOrder, ordered_.end(), before);
  Relink(parent);
}

// Where two neighbours stand the wrong way round either may be the one that moved: both go.
void TreeNodes::TakeMisplaced(int parent, bool byRank) {
  ordered_.clear();
  misplaced_.clear();
  for (int child = At(parent).firstChild; child != kNoNode; child = At(child).next) {
    if (ordered_.empty() || StandsBefore(ordered_.back(), child, byRank)) {
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

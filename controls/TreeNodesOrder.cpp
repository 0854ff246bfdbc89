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
  if (!sorted) PutInOrder(node);
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

void TreeNodes::PutInOrder(NodeId parent) {
  if (parent == kNoNode || !At(parent).orderPending) return;
  if (WorthRanking(parent)) texts_.RankAll();
  const std::vector<NodeId> children = ChildrenInOrder(parent);
  At(parent).orderPending = false;
  Relink(parent, children);
}

bool TreeNodes::WorthRanking(NodeId parent) const {
  const std::size_t few = texts_.Count() / kFewTexts;
  return texts_.Unranked() > few && static_cast<std::size_t>(Children(parent)) > few;
}

std::vector<NodeId> TreeNodes::ChildrenInOrder(NodeId parent) const {
  std::vector<NodeId> children = ChildrenAsLinked(parent);
  if (parent == kNoNode || !At(parent).orderPending) return children;
  if (texts_.Ranked()) {
    SortByRank(children);
  } else {
    SortByKey(children);
  }
  return children;
}

std::vector<NodeId> TreeNodes::ChildrenAsLinked(NodeId parent) const {
  std::vector<NodeId> children;
  NodeId child = parent == kNoNode ? firstRoot_ : AnyChild(parent);
  for (; child != kNoNode; child = OtherSibling(child)) children.push_back(child);
  return children;
}

// Nodes of one text are ordered by their index, so that the order never depends on the past.
bool TreeNodes::StandsBefore(NodeId a, NodeId b) const {
  const TextRef textA = At(a).text;
  const TextRef textB = At(b).text;
  return textA == textB ? a < b : texts_.Before(textA, textB);
}

// Plain numbers are sorted, each a rank above a node's index, and no text is looked at.
void TreeNodes::SortByRank(std::vector<NodeId>& children) const {
  std::vector<std::uint64_t> ranked;
  ranked.reserve(children.size());
  for (const NodeId child : children) {
    const std::uint64_t rank = texts_.Rank(At(child).text);
    ranked.push_back(rank << 32 | static_cast<std::uint32_t>(IndexOf(child)));
  }
  if (std::is_sorted(ranked.begin(), ranked.end())) return;
  std::sort(ranked.begin(), ranked.end());
  std::transform(ranked.begin(), ranked.end(), children.begin(), [](std::uint64_t entry) {
    return NodeId{static_cast<int>(static_cast<std::uint32_t>(entry))};
  });
}

// Most of the children stand in order already, after a change of a few as well as after a query
// that was ordered: only the others are sorted, and merged in.
void TreeNodes::SortByKey(std::vector<NodeId>& children) const {
  std::vector<NodeId> misplaced = TakeMisplaced(children);
  const auto before = [this](NodeId a, NodeId b) { return StandsBefore(a, b); };
  std::sort(misplaced.begin(), misplaced.end(), before);
  const auto inOrder = static_cast<std::ptrdiff_t>(children.size());
  children.insert(children.end(), misplaced.begin(), misplaced.end());
  std::inplace_merge(children.begin(), children.begin() + inOrder, children.end(), before);
}

// Where two neighbours stand the wrong way round either may be the one that moved: both go.
std::vector<NodeId> TreeNodes::TakeMisplaced(std::vector<NodeId>& children) const {
  std::vector<NodeId> ordered;
  std::vector<NodeId> misplaced;
  ordered.reserve(children.size());
  for (const NodeId child : children) {
    if (ordered.empty() || StandsBefore(ordered.back(), child)) {
      ordered.push_back(child);
      continue;
    }
    misplaced.push_back(ordered.back());
    misplaced.push_back(child);
    ordered.pop_back();
  }
  children = std::move(ordered);
  return misplaced;
}

void TreeNodes::Relink(NodeId parent, const std::vector<NodeId>& children) {
  NodeId previous = kNoNode;
  for (const NodeId child : children) {
    At(child).previous = previous;
    if (previous != kNoNode) At(previous).next = child;
    previous = child;
  }
  if (previous != kNoNode) At(previous).next = kNoNode;
  At(parent).firstChild = children.empty() ? kNoNode : children.front();
  At(parent).lastChild = previous;
}

}  // namespace controls

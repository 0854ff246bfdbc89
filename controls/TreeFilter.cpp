#include "controls/TreeFilter.h"

#include <utility>

namespace controls {

void TreeFilter::Set(TreeFilterRule rule) {
  rule_ = std::move(rule);
  ++ruleNumber_;
  kept_.clear();
  matchCount_ = kUnknown;
}

bool TreeFilter::IsEntry(NodeId node) const {
  const NodeId parent = nodes_.Parent(node);
  return parent != kNoNode && nodes_.Parent(parent) == kNoNode;
}

NodeId TreeFilter::EntryOf(NodeId node) const {
  while (node != kNoNode && !IsEntry(node)) node = nodes_.Parent(node);
  return node;
}

// The two names are joined by what no word has in it.
bool TreeFilter::Matches(NodeId entry) const {
  if (!IsSet()) return true;
  const auto [found, added] = texts_.try_emplace(entry);
  Text& text = found->second;
  if (added) text.folded = rule_.Fold(nodes_.Text(entry) + L'\n' + nodes_.StoredName(entry));
  if (text.asked != ruleNumber_) {
    text.asked = ruleNumber_;
    text.matches = rule_.Matches(text.folded);
  }
  return text.matches;
}

bool TreeFilter::LetsThrough(NodeId node) const {
  if (!IsSet()) return true;
  const NodeId entry = EntryOf(node);
  return entry == kNoNode || kept_.contains(entry) || Matches(entry);
}

int TreeFilter::MatchCount() const {
  if (matchCount_ != kUnknown) return matchCount_;
  matchCount_ = 0;
  for (NodeId root = nodes_.Root(); root != kNoNode; root = nodes_.OtherSibling(root)) {
    NodeId entry = nodes_.AnyChild(root);
    for (; entry != kNoNode; entry = nodes_.OtherSibling(entry)) matchCount_ += Matches(entry);
  }
  return matchCount_;
}

bool TreeFilter::Keep(NodeId node) {
  if (!IsSet()) return false;
  const NodeId entry = EntryOf(node);
  return entry != kNoNode && kept_.insert(entry).second && !Matches(entry);
}

void TreeFilter::TextChanged(NodeId node) {
  if (matchCount_ == kUnknown && texts_.empty()) return;
  if (!IsEntry(node)) return;
  texts_.erase(node);
  matchCount_ = kUnknown;
}

// The index of what goes may be given to another node.
void TreeFilter::Removing(NodeId node) {
  if (nodes_.Parent(node) == kNoNode) return Clearing();
  if (!IsEntry(node)) return;
  texts_.erase(node);
  kept_.erase(node);
  matchCount_ = kUnknown;
}

void TreeFilter::RemovingChildren(NodeId node) {
  if (nodes_.Parent(node) == kNoNode) Clearing();
}

void TreeFilter::Clearing() {
  texts_.clear();
  kept_.clear();
  matchCount_ = kUnknown;
}

}  // namespace controls

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "controls/TreeNodes.h"

namespace controls {

// How the texts of a tree are searched. Both functions are asked for thousands of nodes in a row.
struct TreeFilterRule {
  // A text in the form in which it is searched; made once and kept as long as the text stands.
  std::function<std::string(std::wstring_view text)> Fold;
  // Whether a folded text is let through. Without this function every text is.
  std::function<bool(std::string_view folded)> Matches;
};

// Which of a tree's nodes are on view while it is filtered. What stands directly below a root, an
// entry, is there when its text or its stored name is let through, or when it is kept; what is
// below an entry goes with it.
class TreeFilter {
 public:
  explicit TreeFilter(const TreeNodes& nodes) : nodes_(nodes) {}
  TreeFilter(const TreeFilter&) = delete;
  TreeFilter& operator=(const TreeFilter&) = delete;

  // A rule in the place of the one before it; no entry is kept any more.
  void Set(TreeFilterRule rule);
  bool IsSet() const { return rule_.Matches != nullptr; }

  // The entry that a node is or stands below; kNoNode for a root.
  NodeId EntryOf(NodeId node) const;
  // Whether the entry is let through; every one is without a rule.
  bool Matches(NodeId entry) const;
  // Whether a node is on view as far as the filter goes.
  bool LetsThrough(NodeId node) const;
  // How many entries match.
  int MatchCount() const;

  // Keeps the node's entry on view for as long as the rule stands. True when it was not on view.
  bool Keep(NodeId node);

  // --- What happens to the nodes ---
  // The node is new, or has another text or stored name.
  void TextChanged(NodeId node);
  // The node, all below it, or every node is about to be removed.
  void Removing(NodeId node);
  void RemovingChildren(NodeId node);
  void Clearing();

 private:
  struct Text {
    std::string folded;
    std::size_t asked = 0;  // the number of the rule that was asked last
    bool matches = false;
  };

  bool IsEntry(NodeId node) const;

  const TreeNodes& nodes_;
  TreeFilterRule rule_;
  std::size_t ruleNumber_ = 0;
  std::unordered_set<NodeId> kept_;
  // By entry; those of which nobody has asked yet are missing.
  mutable std::unordered_map<NodeId, Text> texts_;
  mutable int matchCount_ = kUnknown;
  static constexpr int kUnknown = -1;
};

}  // namespace controls

#pragma once

namespace controls {

// The index of a node in its tree, from 1; stable while the node lives. A type of its own, so that
// it cannot be taken for the identifier of an account, for a place in a list or for an image.
enum class NodeId : int {};

// No node: the parent of a root, the sibling after the last, a search without result.
constexpr NodeId kNoNode{-1};

constexpr int IndexOf(NodeId node) {
  return static_cast<int>(node);
}

}  // namespace controls

#include "controls/TreeNodes.h"

#include <algorithm>
#include <utility>

namespace controls {

TreeNodes::TreeNodes(std::function<std::string(std::wstring_view)> sortKey)
    : texts_(std::move(sortKey)) {}

NodeId TreeNodes::Add(NodeId parent, const KeyForm& keyForm, std::int32_t id, TextRef text,
                      int image) {
  const NodeId node = TakeIndex();
  Node& added = At(node);
  added.id = id;
  added.text = text;
  added.form = FormNumber(keyForm);
  added.image = static_cast<std::uint8_t>(image);
  added.alive = true;
  texts_.Hold(text);
  ++count_;
  Link(node, parent);
  return node;
}

NodeId TreeNodes::TakeIndex() {
  if (free_.empty()) {
    if (used_ >= static_cast<int>(blocks_.size()) * kBlock) {
      blocks_.push_back(std::make_unique<Node[]>(kBlock));
    }
    const NodeId added{used_++};
    At(added) = Node{};
    return added;
  }
  const NodeId node = free_.back();
  free_.pop_back();
  return node;
}

void TreeNodes::Link(NodeId node, NodeId parent) {
  NodeId& first = parent == kNoNode ? firstRoot_ : At(parent).firstChild;
  NodeId& last = parent == kNoNode ? lastRoot_ : At(parent).lastChild;
  At(node).parent = parent;
  At(node).previous = last;
  if (last != kNoNode) {
    At(last).next = node;
  } else {
    first = node;
  }
  last = node;
  if (parent != kNoNode) MarkOrderPending(parent);
}

void TreeNodes::Unlink(NodeId node) {
  const Node& gone = At(node);
  NodeId& first = gone.parent == kNoNode ? firstRoot_ : At(gone.parent).firstChild;
  NodeId& last = gone.parent == kNoNode ? lastRoot_ : At(gone.parent).lastChild;
  (gone.previous == kNoNode ? first : At(gone.previous).next) = gone.next;
  (gone.next == kNoNode ? last : At(gone.next).previous) = gone.previous;
}

void TreeNodes::Remove(NodeId node) {
  Unlink(node);
  FreeBelow(node);
  Free(node);
}

void TreeNodes::RemoveChildren(NodeId node) {
  FreeBelow(node);
  At(node).firstChild = kNoNode;
  At(node).lastChild = kNoNode;
}

void TreeNodes::FreeBelow(NodeId node) {
  for (NodeId child = At(node).firstChild; child != kNoNode;) {
    const NodeId next = At(child).next;
    FreeBelow(child);  // as deep as the tree, which the forms keep at four
    Free(child);
    child = next;
  }
}

void TreeNodes::Free(NodeId node) {
  Node& gone = At(node);
  texts_.Release(gone.text);
  if (gone.named) storedNames_.erase(node);
  gone = Node{};
  free_.push_back(node);
  --count_;
}

// The blocks stay: as a rule as many nodes are added again at once.
void TreeNodes::Clear() {
  used_ = 1;
  free_.clear();
  reordered_.clear();
  storedNames_.clear();
  texts_.ReleaseAll();
  count_ = 0;
  firstRoot_ = kNoNode;
  lastRoot_ = kNoNode;
}

void TreeNodes::Sweep() {
  texts_.Sweep();
  const std::size_t needed = (static_cast<std::size_t>(used_) + kBlock - 1) / kBlock;
  if (blocks_.size() > needed) blocks_.resize(needed);
}

bool TreeNodes::Exists(NodeId node) const {
  return IndexOf(node) > 0 && IndexOf(node) < used_ && At(node).alive;
}

NodeId TreeNodes::NextIndex(NodeId node) const {
  for (int i = std::max(IndexOf(node), 0) + 1; i < used_; ++i) {
    if (At(NodeId{i}).alive) return NodeId{i};
  }
  return kNoNode;
}

void TreeNodes::SetText(NodeId node, TextRef text) {
  texts_.Hold(text);
  texts_.Release(At(node).text);
  At(node).text = text;
  if (At(node).parent != kNoNode) MarkOrderPending(At(node).parent);
}

std::wstring TreeNodes::StoredName(NodeId node) const {
  if (!At(node).named) return {};
  return storedNames_.at(node);
}

void TreeNodes::SetStoredName(NodeId node, std::wstring_view name) {
  At(node).named = true;
  storedNames_[node] = name;
}

int TreeNodes::Children(NodeId node) const {
  int children = 0;
  for (NodeId child = At(node).firstChild; child != kNoNode; child = At(child).next) ++children;
  return children;
}

std::wstring TreeNodes::FullPath(NodeId node) const {
  if (At(node).parent == kNoNode) return Text(node);
  return FullPath(At(node).parent) + L'\\' + Text(node);
}

bool TreeNodes::IsBelow(NodeId node, NodeId ancestor) const {
  for (NodeId above = At(node).parent; above != kNoNode; above = At(above).parent) {
    if (above == ancestor) return true;
  }
  return false;
}

std::size_t TreeNodes::NodeBytes() const {
  const std::size_t indexes = free_.capacity() + reordered_.capacity();
  return blocks_.size() * kBlock * sizeof(Node) + indexes * sizeof(NodeId);
}

}  // namespace controls

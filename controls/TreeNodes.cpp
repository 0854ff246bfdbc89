#include "controls/TreeNodes.h"

#include <algorithm>
#include <utility>

namespace controls {

TreeNodes::TreeNodes(std::function<std::string(std::wstring_view)> sortKey)
    : texts_(std::move(sortKey)) {}

int TreeNodes::Add(int parent, const KeyForm& keyForm, std::int32_t id, TextRef text, int image) {
  const int node = TakeIndex();
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

int TreeNodes::TakeIndex() {
  if (free_.empty()) {
    if (used_ >= static_cast<int>(blocks_.size()) * kBlock) {
      blocks_.push_back(std::make_unique<Node[]>(kBlock));
    }
    At(used_) = Node{};
    return used_++;
  }
  const int node = free_.back();
  free_.pop_back();
  return node;
}

void TreeNodes::Link(int node, int parent) {
  int& first = parent == kNoNode ? firstRoot_ : At(parent).firstChild;
  int& last = parent == kNoNode ? lastRoot_ : At(parent).lastChild;
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

void TreeNodes::Unlink(int node) {
  const Node& gone = At(node);
  int& first = gone.parent == kNoNode ? firstRoot_ : At(gone.parent).firstChild;
  int& last = gone.parent == kNoNode ? lastRoot_ : At(gone.parent).lastChild;
  (gone.previous == kNoNode ? first : At(gone.previous).next) = gone.next;
  (gone.next == kNoNode ? last : At(gone.next).previous) = gone.previous;
}

void TreeNodes::Remove(int node) {
  Unlink(node);
  FreeBelow(node);
  Free(node);
}

void TreeNodes::RemoveChildren(int node) {
  FreeBelow(node);
  At(node).firstChild = kNoNode;
  At(node).lastChild = kNoNode;
}

void TreeNodes::FreeBelow(int node) {
  for (int child = At(node).firstChild; child != kNoNode;) {
    const int next = At(child).next;
    FreeBelow(child);  // as deep as the tree, which the forms keep at four
    Free(child);
    child = next;
  }
}

void TreeNodes::Free(int node) {
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

bool TreeNodes::Exists(int node) const {
  return node > 0 && node < used_ && At(node).alive;
}

int TreeNodes::NextIndex(int node) const {
  for (int i = std::max(node, 0) + 1; i < used_; ++i) {
    if (At(i).alive) return i;
  }
  return kNoNode;
}

void TreeNodes::SetText(int node, TextRef text) {
  texts_.Hold(text);
  texts_.Release(At(node).text);
  At(node).text = text;
  if (At(node).parent != kNoNode) MarkOrderPending(At(node).parent);
}

std::wstring TreeNodes::StoredName(int node) const {
  if (!At(node).named) return {};
  return storedNames_.at(node);
}

void TreeNodes::SetStoredName(int node, std::wstring_view name) {
  At(node).named = true;
  storedNames_[node] = name;
}

int TreeNodes::FirstSibling(int node) const {
  const int parent = At(node).parent;
  return parent == kNoNode ? firstRoot_ : FirstChild(parent);
}

int TreeNodes::LastSibling(int node) const {
  const int parent = At(node).parent;
  return parent == kNoNode ? lastRoot_ : LastChild(parent);
}

int TreeNodes::Children(int node) const {
  int children = 0;
  for (int child = At(node).firstChild; child != kNoNode; child = At(child).next) ++children;
  return children;
}

std::wstring TreeNodes::FullPath(int node) const {
  if (At(node).parent == kNoNode) return Text(node);
  return FullPath(At(node).parent) + L'\\' + Text(node);
}

bool TreeNodes::IsBelow(int node, int ancestor) const {
  for (int above = At(node).parent; above != kNoNode; above = At(above).parent) {
    if (above == ancestor) return true;
  }
  return false;
}

std::size_t TreeNodes::NodeBytes() const {
  const std::size_t indexes =
      free_.capacity() + reordered_.capacity() + ordered_.capacity() + misplaced_.capacity();
  return blocks_.size() * kBlock * sizeof(Node) + indexes * sizeof(int) +
         ranked_.capacity() * sizeof(std::uint64_t);
}

}  // namespace controls

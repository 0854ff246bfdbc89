#include "controls/TreeNodes.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <limits>
#include <utility>

namespace controls {
namespace {

constexpr std::size_t kPrefixLength = 4;

// From this many children on that wait for their order, ranking every text once is cheaper than
// comparing their sort keys again and again.
constexpr std::size_t kRankFrom = 4096;

}  // namespace

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
    if (used_ == static_cast<int>(blocks_.size()) * kBlock) {
      blocks_.push_back(std::make_unique<Node[]>(kBlock));
    }
    return used_++;
  }
  const int node = free_.back();
  free_.pop_back();
  return node;
}

std::uint8_t TreeNodes::FormNumber(const KeyForm& keyForm) {
  for (std::size_t i = 0; i < forms_.size(); ++i) {
    // Forms are constants: most calls name the very same characters.
    const bool same = forms_[i].prefix.data() == keyForm.prefix.data() &&
                      forms_[i].suffix.data() == keyForm.suffix.data();
    if (same || (forms_[i].prefix == keyForm.prefix && forms_[i].suffix == keyForm.suffix)) {
      return static_cast<std::uint8_t>(i);
    }
  }
  assert(forms_.size() < std::numeric_limits<std::uint8_t>::max());
  forms_.push_back(keyForm);
  return static_cast<std::uint8_t>(forms_.size() - 1);
}

void TreeNodes::Link(int node, int parent) {
  Node& added = At(node);
  added.parent = parent;
  if (parent == kNoNode) {
    added.next = roots_;
    if (roots_ != kNoNode) At(roots_).previous = node;
    roots_ = node;
    return;
  }
  Node& above = At(parent);
  added.previous = above.lastChild;
  if (above.lastChild != kNoNode) {
    At(above.lastChild).next = node;
  } else {
    above.firstChild = node;
  }
  above.lastChild = node;
  MarkOrderPending(parent);
}

void TreeNodes::Unlink(int node) {
  const Node& gone = At(node);
  if (gone.previous != kNoNode) {
    At(gone.previous).next = gone.next;
  } else if (gone.parent != kNoNode) {
    At(gone.parent).firstChild = gone.next;
  } else {
    roots_ = gone.next;
  }
  if (gone.next != kNoNode) {
    At(gone.next).previous = gone.previous;
  } else if (gone.parent != kNoNode) {
    At(gone.parent).lastChild = gone.previous;
  }
}

void TreeNodes::Remove(int node) {
  Unlink(node);
  FreeBelow(node);
  Free(node);
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
  if (gone.orderPending) pending_.erase(std::find(pending_.begin(), pending_.end(), node));
  gone = Node{};
  free_.push_back(node);
  --count_;
}

void TreeNodes::Clear() {
  blocks_.clear();
  used_ = 1;
  free_.clear();
  pending_.clear();
  storedNames_.clear();
  texts_.Clear();
  count_ = 0;
  roots_ = kNoNode;
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

int TreeNodes::Root() const {
  return roots_;
}

std::wstring TreeNodes::Key(int node) const {
  std::wstring key;
  ComposeKey(node, key);
  return key;
}

void TreeNodes::ComposeKey(int node, std::wstring& key) const {
  const Node& keyed = At(node);
  const KeyForm& form = forms_[keyed.form];
  if (keyed.parent == kNoNode) {
    key.assign(form.prefix);
  } else {
    ComposeKey(keyed.parent, key);
    key.replace(0, kPrefixLength, form.prefix);
  }
  key += form.suffix;
  if (form.hasId) key += std::to_wstring(keyed.id);
}

// A cheap look before a key is composed: the prefix and the id's digits must be there.
bool TreeNodes::MayHaveKey(int node, std::wstring_view key) const {
  const Node& keyed = At(node);
  const KeyForm& form = forms_[keyed.form];
  if (key.substr(0, kPrefixLength) != form.prefix) return false;
  if (!form.hasId) return true;
  return !key.empty() && key.back() == L'0' + std::abs(keyed.id % 10);
}

int TreeNodes::Find(std::wstring_view key) const {
  std::wstring candidate;
  for (int node = NextIndex(0); node != kNoNode; node = NextIndex(node)) {
    if (!MayHaveKey(node, key)) continue;
    ComposeKey(node, candidate);
    if (candidate == key) return node;
  }
  return kNoNode;
}

void TreeNodes::SetText(int node, TextRef text) {
  texts_.Hold(text);
  texts_.Release(At(node).text);
  At(node).text = text;
  if (At(node).parent != kNoNode) MarkOrderPending(At(node).parent);
}

void TreeNodes::SetSorted(int node, bool sorted) {
  At(node).sorted = sorted;
  if (sorted && At(node).firstChild != kNoNode) MarkOrderPending(node);
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
  return parent == kNoNode ? roots_ : At(parent).firstChild;
}

int TreeNodes::LastSibling(int node) const {
  const int parent = At(node).parent;
  if (parent != kNoNode) return At(parent).lastChild;
  int last = node;
  while (At(last).next != kNoNode) last = At(last).next;
  return last;
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

void TreeNodes::MarkOrderPending(int parent) {
  Node& above = At(parent);
  if (!above.sorted || above.orderPending) return;
  above.orderPending = true;
  pending_.push_back(parent);
}

std::vector<int> TreeNodes::SortPending() {
  std::size_t waiting = 0;
  for (const int parent : pending_) {
    for (int child = At(parent).firstChild; child != kNoNode && waiting < kRankFrom;
         child = At(child).next) {
      ++waiting;
    }
  }
  const bool byRank = waiting >= kRankFrom;
  if (byRank) texts_.RankAll();
  std::vector<int> sorted;
  sorted.swap(pending_);
  for (const int parent : sorted) {
    SortChildren(parent, byRank);
    At(parent).orderPending = false;
  }
  return sorted;
}

void TreeNodes::SortChildren(int parent, bool byRank) {
  scratch_.clear();
  for (int child = At(parent).firstChild; child != kNoNode; child = At(child).next) {
    scratch_.push_back(child);
  }
  if (scratch_.empty()) return;
  // Nodes of one text are ordered by their index, so that the order never depends on the past.
  const auto byRanks = [this](int a, int b) {
    const std::uint32_t rankA = texts_.Rank(At(a).text);
    const std::uint32_t rankB = texts_.Rank(At(b).text);
    return rankA != rankB ? rankA < rankB : a < b;
  };
  const auto byKeys = [this](int a, int b) {
    if (At(a).text == At(b).text) return a < b;
    return texts_.Before(At(a).text, At(b).text);
  };
  if (byRank) {
    std::sort(scratch_.begin(), scratch_.end(), byRanks);
  } else {
    std::sort(scratch_.begin(), scratch_.end(), byKeys);
  }
  int previous = kNoNode;
  for (const int child : scratch_) {
    At(child).previous = previous;
    if (previous != kNoNode) At(previous).next = child;
    previous = child;
  }
  At(scratch_.back()).next = kNoNode;
  At(parent).firstChild = scratch_.front();
  At(parent).lastChild = scratch_.back();
}

std::size_t TreeNodes::NodeBytes() const {
  return blocks_.size() * kBlock * sizeof(Node) + free_.capacity() * sizeof(int) +
         pending_.capacity() * sizeof(int) + scratch_.capacity() * sizeof(int);
}

}  // namespace controls

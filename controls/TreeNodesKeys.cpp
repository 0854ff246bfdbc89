#include <cstdlib>
#include <exception>
#include <limits>
#include <string>

#include "controls/TreeNodes.h"

// How the nodes of a tree get their keys and are found by them.
namespace controls {
namespace {

constexpr std::size_t kPrefixLength = 4;

// Forms are constants: most calls name the very same characters.
bool Same(std::wstring_view a, std::wstring_view b) {
  return a.size() == b.size() && (a.data() == b.data() || a == b);
}

bool Same(const KeyForm& a, const KeyForm& b) {
  return a.hasId == b.hasId && Same(a.prefix, b.prefix) && Same(a.suffix, b.suffix);
}

// Takes a number's decimal text off the end of a text; false when it does not stand there.
bool TakeDecimal(std::wstring_view& tail, std::int32_t number) {
  std::int64_t rest = std::abs(static_cast<std::int64_t>(number));
  do {
    if (tail.empty() || tail.back() != static_cast<wchar_t>(L'0' + rest % 10)) return false;
    tail.remove_suffix(1);
    rest /= 10;
  } while (rest > 0);
  if (number >= 0) return true;
  if (!tail.ends_with(L'-')) return false;
  tail.remove_suffix(1);
  return true;
}

}  // namespace

int TreeNodes::KnownForm(const KeyForm& keyForm) const {
  const int known = static_cast<int>(forms_.size());
  for (int i = 0; i < known; ++i) {
    if (Same(forms_[i], keyForm)) return i;
  }
  return -1;
}

std::uint8_t TreeNodes::FormNumber(const KeyForm& keyForm) {
  // One folder's leaves come in a row, by the hundred.
  if (lastForm_ < forms_.size() && Same(forms_[lastForm_], keyForm)) return lastForm_;
  const int known = KnownForm(keyForm);
  if (known >= 0) return lastForm_ = static_cast<std::uint8_t>(known);
  if (forms_.size() > std::numeric_limits<std::uint8_t>::max()) std::terminate();
  forms_.push_back(keyForm);
  return static_cast<std::uint8_t>(forms_.size() - 1);
}

NodeId TreeNodes::FindChild(NodeId parent, const KeyForm& keyForm, std::int32_t id) const {
  const int form = KnownForm(keyForm);
  if (form < 0) return kNoNode;
  NodeId child = parent == kNoNode ? firstRoot_ : At(parent).firstChild;
  while (child != kNoNode && (At(child).form != form || At(child).id != id)) child = At(child).next;
  return child;
}

std::wstring TreeNodes::Key(NodeId node) const {
  std::wstring key;
  ComposeKey(node, key);
  return key;
}

void TreeNodes::ComposeKey(NodeId node, std::wstring& key) const {
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

// Looks from the end of the key, where most nodes differ, up to the root, and composes nothing.
bool TreeNodes::HasTail(NodeId node, std::wstring_view tail) const {
  const Node& keyed = At(node);
  const KeyForm& form = forms_[keyed.form];
  if (form.hasId && !TakeDecimal(tail, keyed.id)) return false;
  if (!tail.ends_with(form.suffix)) return false;
  tail.remove_suffix(form.suffix.size());
  return keyed.parent == kNoNode ? tail.empty() : HasTail(keyed.parent, tail);
}

NodeId TreeNodes::Find(std::wstring_view key) const {
  if (key.size() < kPrefixLength) return kNoNode;
  const std::wstring_view tail = key.substr(kPrefixLength);
  std::vector<char> hasPrefix;
  for (const KeyForm& form : forms_) hasPrefix.push_back(key.starts_with(form.prefix) ? 1 : 0);
  for (int i = 1; i < used_; ++i) {
    const NodeId node{i};
    const Node& candidate = At(node);
    if (candidate.alive && hasPrefix[candidate.form] != 0 && HasTail(node, tail)) return node;
  }
  return kNoNode;
}

}  // namespace controls

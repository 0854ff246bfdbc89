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

}  // namespace

int TreeNodes::KnownForm(const KeyForm& keyForm) const {
  const int known = static_cast<int>(forms_.size());
  for (int i = 0; i < known; ++i) {
    if (Same(forms_[i], keyForm)) return i;
  }
  return -1;
}

std::uint8_t TreeNodes::FormNumber(const KeyForm& keyForm) {
  const int known = KnownForm(keyForm);
  if (known >= 0) return static_cast<std::uint8_t>(known);
  if (forms_.size() > std::numeric_limits<std::uint8_t>::max()) std::terminate();
  forms_.push_back(keyForm);
  return static_cast<std::uint8_t>(forms_.size() - 1);
}

int TreeNodes::FindChild(int parent, const KeyForm& keyForm, std::int32_t id) const {
  const int form = KnownForm(keyForm);
  if (form < 0) return kNoNode;
  int child = parent == kNoNode ? firstRoot_ : At(parent).firstChild;
  while (child != kNoNode && (At(child).form != form || At(child).id != id)) child = At(child).next;
  return child;
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

// A cheap look before a key is composed: the prefix and the id's last digit must be there.
bool TreeNodes::MayHaveKey(int node, std::wstring_view key) const {
  const Node& keyed = At(node);
  const KeyForm& form = forms_[keyed.form];
  if (key.substr(0, kPrefixLength) != form.prefix) return false;
  return !form.hasId || key.back() == L'0' + std::abs(keyed.id % 10);
}

int TreeNodes::Find(std::wstring_view key) const {
  if (key.empty()) return kNoNode;
  std::wstring candidate;
  for (int node = NextIndex(0); node != kNoNode; node = NextIndex(node)) {
    if (!MayHaveKey(node, key)) continue;
    ComposeKey(node, candidate);
    if (candidate == key) return node;
  }
  return kNoNode;
}

}  // namespace controls

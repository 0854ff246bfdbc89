#include "tests/support/walk/WantedLists.h"

#include <algorithm>
#include <set>

#include "controls/SortKey.h"
#include "tests/support/keys/Keys.h"

namespace test_support {
namespace {

bool IsOneOf(const std::wstring& tag, std::initializer_list<const wchar_t*> tags) {
  return std::ranges::find(tags, tag) != tags.end();
}

std::wstring Trimmed(std::wstring text) {
  text.erase(0, std::min(text.find_first_not_of(L' '), text.size()));
  text.erase(text.find_last_not_of(L' ') + 1);
  return text;
}

// Where what is added to a name begins in a text. A stored name with a bracket in it has none.
std::size_t BracketIn(const WantedTrees& trees, int tree, std::int32_t account) {
  const std::wstring text = trees.Text(tree, account);
  const bool inName = trees.StoredName(tree, account).find(L'(') != std::wstring::npos;
  return inName ? text.size() : std::min(text.find(L'('), text.size());
}

std::wstring Joined(const std::vector<std::wstring>& names) {
  std::wstring text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) text += i + 1 == names.size() ? L" et " : L", ";
    text += names[i];
  }
  return text;
}

}  // namespace

std::wstring WantedLists::NameOf(int tree, std::int32_t account) const {
  return Trimmed(trees_.Text(tree, account).substr(0, BracketIn(trees_, tree, account)));
}

WantedRow WantedLists::UserRow(std::int32_t user) const {
  std::wstring addition = trees_.Text(kUsersTree, user);
  const std::size_t bracket = BracketIn(trees_, kUsersTree, user);
  addition.erase(0, std::min(bracket + 1, addition.size()));
  if (addition.ends_with(L')')) addition.pop_back();
  return {{NameOf(kUsersTree, user), addition}, user};
}

// The groups are named in the order of the user's own folder of them.
std::wstring WantedLists::SourceOf(std::int32_t user, std::int32_t permission) const {
  const bool direct = Lists(kUsersTree, user, kOwnFolder, permission);
  std::vector<std::pair<std::string, std::wstring>> groups;
  for (const auto& [group, text] : trees_.Leaves(kUsersTree, user, kGroupsFolder)) {
    if (!trees_.Has(kGroupsTree, group)) continue;
    if (!Lists(kGroupsTree, group, kGroupPermissionsFolder, permission)) continue;
    groups.emplace_back(controls::SortKey(text), NameOf(kGroupsTree, group));
  }
  std::ranges::stable_sort(groups, {}, &std::pair<std::string, std::wstring>::first);
  std::vector<std::wstring> names;
  for (const auto& [key, name] : groups) names.push_back(name);
  if (names.empty()) {
    return direct ? L"Accordée directement" : L"Origine inconnue : cliquez sur Rafraîchir.";
  }
  const std::wstring by = names.size() == 1 ? L"par le groupe " : L"par les groupes ";
  return (direct ? L"Accordée directement et " + by : L"P" + by.substr(1)) + Joined(names);
}

std::optional<std::int32_t> WantedLists::GroupOf(const Target& at) const {
  const bool isLeaf = at.tag == L"GU";
  if (!isLeaf && !IsOneOf(at.tag, {L"GR", L"MS", L"UG", L"GP", L"PG"})) return std::nullopt;
  const std::int32_t group = isLeaf ? at.leaf : at.account;
  return trees_.Has(kGroupsTree, group) ? std::optional(group) : std::nullopt;
}

std::optional<std::int32_t> WantedLists::UserOf(const Target& at) const {
  const bool isLeaf = at.tag == L"UG";
  if (!isLeaf && !IsOneOf(at.tag, {L"US", L"MO", L"GU", L"UP", L"PU", L"AP", L"PA"})) {
    return std::nullopt;
  }
  const std::int32_t user = isLeaf ? at.leaf : at.account;
  return trees_.Has(kUsersTree, user) ? std::optional(user) : std::nullopt;
}

bool WantedLists::Answers(ListCommand command, const Target& at) const {
  switch (command) {
    case ListCommand::kHolders:
      return IsOneOf(at.tag, {L"PU", L"PA", L"PG"});
    case ListCommand::kMembers:
      return GroupOf(at).has_value();
    case ListCommand::kCompare:
      return UserOf(at).has_value();
    case ListCommand::kJournal:
      break;
  }
  return true;
}

WantedRows WantedLists::Holders(std::int32_t permission) const {
  WantedRows rows;
  for (const std::int32_t user : trees_.Accounts(kUsersTree)) {
    if (!Lists(kUsersTree, user, kAllFolder, permission)) continue;
    rows.push_back(UserRow(user));
    rows.back().texts.push_back(SourceOf(user, permission));
  }
  return rows;
}

WantedRows WantedLists::Members(std::int32_t group) const {
  WantedRows rows;
  for (const std::int32_t user : trees_.Accounts(kUsersTree)) {
    if (!Lists(kUsersTree, user, kGroupsFolder, group)) continue;
    int beyond = 0;
    for (const auto& [permission, text] : trees_.Leaves(kUsersTree, user, kAllFolder)) {
      beyond += !Lists(kGroupsTree, group, kGroupPermissionsFolder, permission);
    }
    rows.push_back(UserRow(user));
    rows.back().texts.push_back(std::to_wstring(beyond));
  }
  return rows;
}

WantedRows WantedLists::UsersBut(std::int32_t user) const {
  WantedRows rows;
  for (const std::int32_t other : trees_.Accounts(kUsersTree)) {
    if (other != user) rows.push_back(UserRow(other));
  }
  return rows;
}

WantedRows WantedLists::Comparison(std::int32_t one, std::int32_t other) const {
  WantedTrees::Texts permissions = trees_.Leaves(kUsersTree, one, kAllFolder);
  permissions.merge(trees_.Leaves(kUsersTree, other, kAllFolder));
  WantedRows rows;
  for (const auto& [permission, text] : permissions) {
    const auto origin = [&, id = permission](std::int32_t user) {
      return Lists(kUsersTree, user, kAllFolder, id) ? SourceOf(user, id) : std::wstring();
    };
    const std::wstring first = origin(one);
    const std::wstring second = origin(other);
    std::wstring who = L"Les deux";
    if (second.empty()) who = NameOf(kUsersTree, one) + L" seulement";
    if (first.empty()) who = NameOf(kUsersTree, other) + L" seulement";
    rows.push_back({{text, who, first, second}});
  }
  return rows;
}

}  // namespace test_support

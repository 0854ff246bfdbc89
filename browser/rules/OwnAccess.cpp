#include "browser/rules/OwnAccess.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "app/StringIds.h"
#include "browser/rules/TreeKeys.h"
#include "controls/SortKey.h"
#include "data/ProtectedId.h"

namespace browser {
namespace {

using controls::kNoNode;
using controls::NodeId;

constexpr std::wstring_view kBetweenWords = L" -'.,:;/()";

std::vector<std::wstring_view> Words(std::wstring_view text) {
  std::vector<std::wstring_view> words;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(kBetweenWords), text.size());
    if (end > 0) words.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return words;
}

bool Begins(std::wstring_view word, std::wstring_view beginning) {
  return word.size() >= beginning.size() &&
         controls::SortKey(word.substr(0, beginning.size())) == controls::SortKey(beginning);
}

// Whether each word of the title begins a word of the name: "Administration des utilisateurs" is
// named as "Admin Utilisateurs" is.
bool IsNamedAs(std::wstring_view name, std::wstring_view title) {
  const std::vector<std::wstring_view> words = Words(name);
  return std::ranges::all_of(Words(title), [&](std::wstring_view wanted) {
    return std::ranges::any_of(words,
                               [wanted](std::wstring_view word) { return Begins(word, wanted); });
  });
}

}  // namespace

OwnAccess::OwnAccess(const app::mGlobal& global, const controls::TreeNodes& users,
                     const controls::TreeNodes& groups, const ProtectedAccounts& accounts)
    : permissions_(users, groups), userId_(accounts.currentUserId) {
  const NodeId root = users.Root();
  const NodeId user = root == kNoNode ? kNoNode : users.FindChild(root, kUserKey, userId_);
  if (userId_ == 0 || user == kNoNode) return;
  for (const std::int32_t permission : permissions_.OwnOf(user)) holdings_.own.insert(permission);
  for (const std::int32_t group : permissions_.GroupsOf(user)) {
    holdings_.groups[group] = GivenBy(group);
  }
  FindGivers(global, users, user, accounts);
}

OwnAccess::Ids OwnAccess::GivenBy(std::int32_t groupId) const {
  const std::vector<std::int32_t> given = permissions_.GivenBy(groupId);
  return Ids(given.begin(), given.end());
}

// What everybody has makes no administrator.
void OwnAccess::FindGivers(const app::mGlobal& global, const controls::TreeNodes& users,
                           NodeId user, const ProtectedAccounts& accounts) {
  const std::wstring title = global.LoadResString(app::kTitle);
  const Ids administrators = GivenBy(accounts.administratorsGroupId);
  const Ids everybody = GivenBy(accounts.everyoneGroupId);
  Ids shared;
  for (const HeldPermission& held : permissions_.PermissionsOf(user)) {
    if (!held.source.direct && held.source.groups.empty()) continue;
    if (IsNamedAs(users.Text(held.leaf), title)) givers_.insert(held.permission);
    if (administrators.contains(held.permission) && !everybody.contains(held.permission)) {
      shared.insert(held.permission);
    }
  }
  if (givers_.empty()) givers_ = shared;
}

bool OwnAccess::IsLost(const Holdings& left) const {
  const auto lacks = [&](std::int32_t permission) {
    return !left.own.contains(permission) &&
           std::ranges::none_of(left.groups, [permission](const auto& group) {
             return group.second.contains(permission);
           });
  };
  return !givers_.empty() && std::ranges::all_of(givers_, lacks);
}

bool OwnAccess::EndsWithoutMembership(std::int32_t userId, std::int32_t groupId) const {
  return data::IsProtectedId(userId_, userId) && EndsWithoutGroup(groupId);
}

bool OwnAccess::EndsWithoutUserPermission(std::int32_t userId, std::int32_t permission) const {
  if (!data::IsProtectedId(userId_, userId)) return false;
  Holdings left = holdings_;
  left.own.erase(permission);
  return IsLost(left);
}

bool OwnAccess::EndsWithoutGroupPermission(std::int32_t groupId, std::int32_t permission) const {
  if (!IsMember(groupId)) return false;
  Holdings left = holdings_;
  left.groups[groupId].erase(permission);
  return IsLost(left);
}

bool OwnAccess::EndsWithoutGroup(std::int32_t groupId) const {
  Holdings left = holdings_;
  return left.groups.erase(groupId) > 0 && IsLost(left);
}

bool OwnAccess::EndsWithUser(std::int32_t userId, const std::vector<std::int32_t>& groups,
                             const std::vector<std::int32_t>& permissions) const {
  if (!data::IsProtectedId(userId_, userId)) return false;
  Holdings left;
  left.own.insert(permissions.begin(), permissions.end());
  for (const std::int32_t group : groups) left.groups[group] = GivenBy(group);
  return IsLost(left);
}

bool OwnAccess::EndsWithGroup(std::int32_t groupId, const std::vector<std::int32_t>& members,
                              const std::vector<std::int32_t>& permissions) const {
  if (!IsMember(groupId)) return false;
  Holdings left = holdings_;
  if (std::ranges::find(members, userId_) == members.end()) {
    left.groups.erase(groupId);
  } else {
    left.groups[groupId] = Ids(permissions.begin(), permissions.end());
  }
  return IsLost(left);
}

}  // namespace browser

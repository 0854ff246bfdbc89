#include "browser/rules/PermissionOrigin.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "app/StringIds.h"
#include "browser/rules/TreeKeys.h"
#include "data/Text.h"

namespace browser {
namespace {

using controls::kNoNode;
using controls::NodeId;
using controls::TreeNodes;

// The account's folder of this kind; kNoNode when it has none.
NodeId Folder(const TreeNodes& nodes, NodeId account, const controls::KeyForm& keyForm) {
  return nodes.FindChild(account, keyForm, 0);
}

bool Lists(const TreeNodes& nodes, NodeId account, const controls::KeyForm& folder,
           const controls::KeyForm& leaf, std::int32_t id) {
  const NodeId node = Folder(nodes, account, folder);
  return node != kNoNode && nodes.FindChild(node, leaf, id) != kNoNode;
}

// The group's name as it is shown, without the description: the text before the parentheses, unless
// the name itself has some.
std::wstring NameOf(const TreeNodes& groups, NodeId group) {
  const std::wstring& text = groups.Text(group);
  if (groups.StoredName(group).find(L'(') != std::wstring::npos) return text;
  const std::wstring_view whole = text;
  return std::wstring(data::Trim(whole.substr(0, whole.find(L'('))));
}

// The names of the user's groups that hold the permission.
std::vector<std::wstring> GivingGroups(const TreeNodes& users, const TreeNodes& groups, NodeId user,
                                       std::int32_t permission) {
  std::vector<std::wstring> names;
  const NodeId folder = Folder(users, user, kMemberOfKey);
  if (folder == kNoNode) return names;
  for (NodeId leaf = users.FirstChild(folder); leaf != kNoNode; leaf = users.Next(leaf)) {
    const NodeId group = groups.FindChild(groups.Root(), kGroupKey, users.Id(leaf));
    if (group != kNoNode &&
        Lists(groups, group, kGroupPermissionsKey, kGroupPermissionKey, permission)) {
      names.push_back(NameOf(groups, group));
    }
  }
  return names;
}

std::wstring Joined(const app::mGlobal& global, const std::vector<std::wstring>& names) {
  std::wstring text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) {
      text += global.LoadResString(i + 1 < names.size() ? app::kNameSeparator : app::kLastNameAnd);
    }
    text += names[i];
  }
  return text;
}

int Pattern(bool direct, std::size_t groups) {
  if (groups == 0) return direct ? app::kGrantedDirectly : app::kOriginUnknown;
  if (groups == 1) return direct ? app::kDirectlyAndByGroup : app::kByGroup;
  return direct ? app::kDirectlyAndByGroups : app::kByGroups;
}

}  // namespace

std::wstring PermissionOrigin(const app::mGlobal& global, const TreeNodes& users,
                              const TreeNodes& groups, controls::NodeId node) {
  if (!users.Exists(node) || users.FormOf(node).prefix != kAnyPermissionKey.prefix) return {};
  const NodeId user = users.Parent(users.Parent(node));
  const std::int32_t permission = users.Id(node);
  const bool direct = Lists(users, user, kUserPermissionsKey, kUserPermissionKey, permission);
  const std::vector<std::wstring> names = GivingGroups(users, groups, user, permission);
  return app::FillIn(global.LoadResString(Pattern(direct, names.size())), {Joined(global, names)});
}

}  // namespace browser

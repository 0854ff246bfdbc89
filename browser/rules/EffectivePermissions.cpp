#include "browser/rules/EffectivePermissions.h"

#include <algorithm>

#include "browser/rules/TreeKeys.h"

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

std::vector<std::int32_t> GrantedBy(const TreeNodes& groups, NodeId group) {
  std::vector<std::int32_t> permissions;
  const NodeId folder = Folder(groups, group, kGroupPermissionsKey);
  if (folder == kNoNode) return permissions;
  for (NodeId leaf = groups.AnyChild(folder); leaf != kNoNode; leaf = groups.OtherSibling(leaf)) {
    permissions.push_back(groups.Id(leaf));
  }
  std::ranges::sort(permissions);
  return permissions;
}

}  // namespace

EffectivePermissions::EffectivePermissions(const TreeNodes& users, const TreeNodes& groups)
    : users_(users) {
  const NodeId root = groups.Root();
  if (root == kNoNode) return;
  for (NodeId group = groups.AnyChild(root); group != kNoNode; group = groups.OtherSibling(group)) {
    groups_.emplace(groups.Id(group), Group{group, GrantedBy(groups, group)});
  }
}

std::vector<const EffectivePermissions::Group*> EffectivePermissions::GroupsOf(NodeId user) const {
  std::vector<const Group*> found;
  const NodeId folder = Folder(users_, user, kMemberOfKey);
  if (folder == kNoNode) return found;
  for (NodeId leaf = users_.FirstChild(folder); leaf != kNoNode; leaf = users_.Next(leaf)) {
    const auto group = groups_.find(users_.Id(leaf));
    if (group != groups_.end()) found.push_back(&group->second);
  }
  return found;
}

bool EffectivePermissions::Has(NodeId user, std::int32_t permission) const {
  return Lists(users_, user, kAllPermissionsKey, kAnyPermissionKey, permission);
}

PermissionSource EffectivePermissions::SourceOf(NodeId user, std::int32_t permission) const {
  PermissionSource source;
  source.direct = Lists(users_, user, kUserPermissionsKey, kUserPermissionKey, permission);
  for (const Group* group : GroupsOf(user)) {
    if (std::ranges::binary_search(group->permissions, permission)) {
      source.groups.push_back(group->node);
    }
  }
  return source;
}

std::vector<HeldPermission> EffectivePermissions::PermissionsOf(NodeId user) const {
  std::vector<HeldPermission> all;
  const NodeId folder = Folder(users_, user, kAllPermissionsKey);
  if (folder == kNoNode) return all;
  for (NodeId leaf = users_.FirstChild(folder); leaf != kNoNode; leaf = users_.Next(leaf)) {
    const std::int32_t permission = users_.Id(leaf);
    all.push_back({leaf, permission, SourceOf(user, permission)});
  }
  return all;
}

std::vector<PermissionHolder> EffectivePermissions::HoldersOf(std::int32_t permission) const {
  std::vector<PermissionHolder> holders;
  const NodeId root = users_.Root();
  if (root == kNoNode) return holders;
  for (NodeId user = users_.FirstChild(root); user != kNoNode; user = users_.Next(user)) {
    if (Has(user, permission)) holders.push_back({user, SourceOf(user, permission)});
  }
  return holders;
}

}  // namespace browser

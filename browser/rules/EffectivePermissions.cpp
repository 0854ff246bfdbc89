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

// The identifiers that the leaves of an account's folder stand for, in no order: nobody may ever
// ask how the leaves of most folders stand.
std::vector<std::int32_t> LeavesOf(const TreeNodes& nodes, NodeId account,
                                   const controls::KeyForm& keyForm) {
  std::vector<std::int32_t> ids;
  const NodeId folder = Folder(nodes, account, keyForm);
  if (folder == kNoNode) return ids;
  for (NodeId leaf = nodes.AnyChild(folder); leaf != kNoNode; leaf = nodes.OtherSibling(leaf)) {
    ids.push_back(nodes.Id(leaf));
  }
  return ids;
}

std::vector<std::int32_t> GrantedBy(const TreeNodes& groups, NodeId group) {
  std::vector<std::int32_t> permissions = LeavesOf(groups, group, kGroupPermissionsKey);
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

std::vector<std::int32_t> EffectivePermissions::GroupsOf(NodeId user) const {
  std::vector<std::int32_t> ids;
  const NodeId folder = Folder(users_, user, kMemberOfKey);
  if (folder == kNoNode) return ids;
  for (const NodeId leaf : users_.ChildrenInOrder(folder)) {
    ids.push_back(users_.Id(leaf));
  }
  return ids;
}

std::vector<std::int32_t> EffectivePermissions::OwnOf(NodeId user) const {
  return LeavesOf(users_, user, kUserPermissionsKey);
}

std::vector<std::int32_t> EffectivePermissions::GivenBy(std::int32_t groupId) const {
  const auto group = groups_.find(groupId);
  return group == groups_.end() ? std::vector<std::int32_t>() : group->second.permissions;
}

bool EffectivePermissions::Has(NodeId user, std::int32_t permission) const {
  return Lists(users_, user, kAllPermissionsKey, kAnyPermissionKey, permission);
}

bool EffectivePermissions::Gives(const Group& group, std::int32_t permission) {
  return std::ranges::binary_search(group.permissions, permission);
}

// The groups of most users are in no order yet: they are put in order for those alone who have a
// permission from several.
PermissionSource EffectivePermissions::SourceOf(NodeId user, std::int32_t permission) const {
  PermissionSource source;
  source.direct = Lists(users_, user, kUserPermissionsKey, kUserPermissionKey, permission);
  const auto add = [&](std::int32_t id) {
    const auto group = groups_.find(id);
    if (group != groups_.end() && Gives(group->second, permission)) {
      source.groups.push_back(group->second.node);
    }
  };
  for (const std::int32_t id : LeavesOf(users_, user, kMemberOfKey)) add(id);
  if (source.groups.size() < 2) return source;
  source.groups.clear();
  for (const std::int32_t id : GroupsOf(user)) add(id);
  return source;
}

void EffectivePermissions::ForEachOf(
    NodeId user, const std::function<void(const HeldPermission& held)>& see) const {
  const NodeId folder = Folder(users_, user, kAllPermissionsKey);
  if (folder == kNoNode) return;
  std::vector<std::int32_t> own = OwnOf(user);
  std::ranges::sort(own);
  std::vector<const Group*> givers;
  for (const std::int32_t id : GroupsOf(user)) {
    const auto group = groups_.find(id);
    if (group != groups_.end()) givers.push_back(&group->second);
  }
  HeldPermission held;
  for (const NodeId leaf : users_.ChildrenInOrder(folder)) {
    held.leaf = leaf;
    held.permission = users_.Id(leaf);
    held.source.direct = std::ranges::binary_search(own, held.permission);
    held.source.groups.clear();
    for (const Group* group : givers) {
      if (std::ranges::binary_search(group->permissions, held.permission)) {
        held.source.groups.push_back(group->node);
      }
    }
    see(held);
  }
}

std::vector<HeldPermission> EffectivePermissions::PermissionsOf(NodeId user) const {
  std::vector<HeldPermission> all;
  ForEachOf(user, [&](const HeldPermission& held) { all.push_back(held); });
  return all;
}

std::vector<PermissionHolder> EffectivePermissions::HoldersOf(std::int32_t permission) const {
  std::vector<PermissionHolder> holders;
  const NodeId root = users_.Root();
  if (root == kNoNode) return holders;
  for (const NodeId user : users_.ChildrenInOrder(root)) {
    if (Has(user, permission)) holders.push_back({user, SourceOf(user, permission)});
  }
  return holders;
}

std::vector<NodeId> EffectivePermissions::MembersOf(std::int32_t groupId) const {
  std::vector<NodeId> members;
  const NodeId root = users_.Root();
  if (root == kNoNode) return members;
  for (const NodeId user : users_.ChildrenInOrder(root)) {
    if (Lists(users_, user, kMemberOfKey, kUserGroupKey, groupId)) members.push_back(user);
  }
  return members;
}

std::vector<NodeId> EffectivePermissions::Beyond(NodeId user, std::int32_t groupId) const {
  std::vector<NodeId> leaves;
  const auto group = groups_.find(groupId);
  const NodeId folder = Folder(users_, user, kAllPermissionsKey);
  if (folder == kNoNode) return leaves;
  for (NodeId leaf = users_.AnyChild(folder); leaf != kNoNode; leaf = users_.OtherSibling(leaf)) {
    const bool given = group != groups_.end() && Gives(group->second, users_.Id(leaf));
    if (!given) leaves.push_back(leaf);
  }
  return leaves;
}

}  // namespace browser

#pragma once

#include <cstdint>
#include <functional>
#include <unordered_map>
#include <vector>

#include "controls/TreeNodes.h"

namespace browser {

// Where a user has a permission from. Neither is set where the trees do not tell, being out of step
// with each other until the next refresh.
struct PermissionSource {
  bool direct = false;                   // the user holds it himself
  std::vector<controls::NodeId> groups;  // his groups that give it, in the order of his folder
};

// A user who has a permission.
struct PermissionHolder {
  controls::NodeId user = controls::kNoNode;
  PermissionSource source;
};

// A permission that a user has.
struct HeldPermission {
  controls::NodeId leaf = controls::kNoNode;  // in his folder of all permissions
  std::int32_t permission = 0;
  PermissionSource source;
};

// Who has what, and why, as the two trees tell it: nothing is asked of the database. What a user
// has is what his folder of all permissions lists. Made for one question or one series of them; it
// knows the groups as they were when it was made.
class EffectivePermissions {
 public:
  // Both outlive it.
  EffectivePermissions(const controls::TreeNodes& users, const controls::TreeNodes& groups);

  // user is an account node of the users tree. Also for a permission that he does not have.
  PermissionSource SourceOf(controls::NodeId user, std::int32_t permission) const;
  bool Has(controls::NodeId user, std::int32_t permission) const;
  // All that a user has, in the order of his folder. see may keep nothing of what it is shown. This
  // is the way for a walk over all users.
  void ForEachOf(controls::NodeId user,
                 const std::function<void(const HeldPermission& held)>& see) const;
  std::vector<HeldPermission> PermissionsOf(controls::NodeId user) const;
  // What he holds himself, in no order, and the groups that he is in, in that of his folder; by
  // identifier.
  std::vector<std::int32_t> OwnOf(controls::NodeId user) const;
  std::vector<std::int32_t> GroupsOf(controls::NodeId user) const;
  // What a group gives, in ascending order; nothing where there is no such group.
  std::vector<std::int32_t> GivenBy(std::int32_t groupId) const;
  // The users who have a permission, in the order of the tree.
  std::vector<PermissionHolder> HoldersOf(std::int32_t permission) const;
  // The users who are in a group, in the order of the tree.
  std::vector<controls::NodeId> MembersOf(std::int32_t groupId) const;
  // What a user has and a group does not give: leaves of his folder of all permissions, in no
  // order.
  std::vector<controls::NodeId> Beyond(controls::NodeId user, std::int32_t groupId) const;

 private:
  struct Group {
    controls::NodeId node = controls::kNoNode;
    std::vector<std::int32_t> permissions;  // in ascending order
  };

  static bool Gives(const Group& group, std::int32_t permission);

  const controls::TreeNodes& users_;
  std::unordered_map<std::int32_t, Group> groups_;  // by identifier
};

}  // namespace browser

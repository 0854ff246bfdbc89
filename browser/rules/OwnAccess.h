#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <vector>

#include "app/mGlobal.h"
#include "browser/rules/EffectivePermissions.h"
#include "browser/rules/ProtectedAccounts.h"
#include "controls/TreeNodes.h"

namespace browser {

// Whether a command would take from the session's user his last way to the right to administer
// users, so that the program refuses him when he next starts it.
//
// The trees know permissions, not the rights that the session server makes of them. The permission
// in question is taken to be the one that is named as the program is; where the user has none of
// that name, all that he has in common with "Administrators" and that not everybody has. It is lost
// when nothing of it is left, from wherever it came.
class OwnAccess {
 public:
  OwnAccess(const app::mGlobal& global, const controls::TreeNodes& users,
            const controls::TreeNodes& groups, const ProtectedAccounts& accounts);

  // It would be lost if this link were taken away, or this group or all of its members.
  bool EndsWithoutMembership(std::int32_t userId, std::int32_t groupId) const;
  bool EndsWithoutUserPermission(std::int32_t userId, std::int32_t permission) const;
  bool EndsWithoutGroupPermission(std::int32_t groupId, std::int32_t permission) const;
  bool EndsWithoutGroup(std::int32_t groupId) const;
  // It would be lost if the account were saved so.
  bool EndsWithUser(std::int32_t userId, const std::vector<std::int32_t>& groups,
                    const std::vector<std::int32_t>& permissions) const;
  bool EndsWithGroup(std::int32_t groupId, const std::vector<std::int32_t>& members,
                     const std::vector<std::int32_t>& permissions) const;

 private:
  using Ids = std::set<std::int32_t>;
  // What the session's user has, and from where.
  struct Holdings {
    Ids own;
    std::map<std::int32_t, Ids> groups;  // what each of his groups gives
  };

  Ids GivenBy(std::int32_t groupId) const;
  void FindGivers(const app::mGlobal& global, const controls::TreeNodes& users,
                  controls::NodeId user, const ProtectedAccounts& accounts);
  bool IsLost(const Holdings& left) const;
  bool IsMember(std::int32_t groupId) const { return holdings_.groups.contains(groupId); }

  EffectivePermissions permissions_;
  std::int32_t userId_;
  Holdings holdings_;
  Ids givers_;  // the permissions of which one gives the right
};

}  // namespace browser

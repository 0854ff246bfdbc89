#include "browser/rules/ProtectedAccounts.h"

#include "data/ProtectedId.h"

namespace browser {

bool ProtectedAccounts::IsProtectedUser(std::int32_t userId) const {
  return data::IsProtectedId(currentUserId, userId) || data::IsProtectedId(adminUserId, userId);
}

bool ProtectedAccounts::IsProtectedGroup(std::int32_t groupId) const {
  return data::IsProtectedId(administratorsGroupId, groupId) ||
         data::IsProtectedId(everyoneGroupId, groupId);
}

}  // namespace browser

#include "browser/rules/Protection.h"

#include "app/StringIds.h"
#include "data/ProtectedId.h"

namespace browser {

UserProtection ProtectUser(const ProtectedAccounts& accounts, std::int32_t userId,
                           std::int32_t groupId) {
  UserProtection off;
  // Nobody leaves "Everyone", and nobody deletes the account he works under.
  if (data::IsProtectedId(accounts.everyoneGroupId, groupId)) {
    off.membership = {app::kEverybodyIsMember};
  }
  if (data::IsProtectedId(accounts.currentUserId, userId)) off.account = {app::kOwnUser};
  if (data::IsProtectedId(accounts.adminUserId, userId)) {
    off.account = {app::kMainAdministrator};
    if (data::IsProtectedId(accounts.administratorsGroupId, groupId)) {
      off.membership = {app::kMainAdministratorStays};
    }
    off.administrator = true;
  }
  return off;
}

GroupProtection ProtectGroup(const ProtectedAccounts& accounts, std::int32_t groupId,
                             std::wstring_view text) {
  GroupProtection off;
  if (data::IsProtectedId(accounts.administratorsGroupId, groupId)) {
    off.account = {app::kNeededGroup};
    if (text == L"Admin") off.member = {app::kMainAdministratorStays};
    off.admin = true;
    off.permissions = {app::kAdministratorsPermissions};
  }
  if (data::IsProtectedId(accounts.everyoneGroupId, groupId)) {
    off.account = {app::kNeededGroup};
    off.member = {app::kEverybodyIsMember};
  }
  return off;
}

// Nobody leaves "Everyone", and Admin does not leave "Administrators".
MemberRemoval ProtectMember(const ProtectedAccounts& accounts, std::int32_t groupId,
                            std::int32_t userId) {
  if (data::IsProtectedId(accounts.everyoneGroupId, groupId)) return MemberRemoval::kRefused;
  const bool admin = data::IsProtectedId(accounts.administratorsGroupId, groupId) &&
                     data::IsProtectedId(accounts.adminUserId, userId);
  return admin ? MemberRemoval::kTold : MemberRemoval::kAllowed;
}

}  // namespace browser

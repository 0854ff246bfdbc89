#include "browser/TreeContext.h"

#include "app/StringIds.h"
#include "data/ProtectedId.h"

namespace browser {

TreeCaptions TreeCaptions::Load(const app::mGlobal& global) {
  TreeCaptions captions;
  captions.usersRoot = global.LoadResString(app::kUsers);
  captions.groupsRoot = global.LoadResString(app::kGroups);
  captions.memberOfCaption = global.LoadResString(app::kMemberOf);
  captions.userPermissionsCaption = global.LoadResString(app::kUserPermissions);
  captions.allPermissionsCaption = global.LoadResString(app::kAllPermissions);
  captions.membersCaption = global.LoadResString(app::kMembers);
  captions.groupPermissionsCaption = global.LoadResString(app::kGroupPermissions);
  return captions;
}

bool ProtectedAccounts::IsProtectedUser(std::int32_t userId) const {
  return data::IsProtectedId(currentUserId, userId) || data::IsProtectedId(adminUserId, userId);
}

bool ProtectedAccounts::IsProtectedGroup(std::int32_t groupId) const {
  return data::IsProtectedId(administratorsGroupId, groupId) ||
         data::IsProtectedId(everyoneGroupId, groupId);
}

}  // namespace browser

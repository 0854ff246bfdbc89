#include "browser/trees/TreeContext.h"

#include "app/StringIds.h"

namespace browser {

TreeCaptions TreeCaptions::Load(const app::mGlobal& global) {
  TreeCaptions captions;
  captions.memberOfCaption = global.LoadResString(app::kMemberOf);
  captions.userPermissionsCaption = global.LoadResString(app::kUserPermissions);
  captions.allPermissionsCaption = global.LoadResString(app::kAllPermissions);
  captions.membersCaption = global.LoadResString(app::kMembers);
  captions.groupPermissionsCaption = global.LoadResString(app::kGroupPermissions);
  return captions;
}

}  // namespace browser

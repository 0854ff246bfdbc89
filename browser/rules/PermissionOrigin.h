#pragma once

#include <string>

#include "app/mGlobal.h"
#include "controls/TreeNodes.h"

namespace browser {

// Where a permission in a user's folder of all permissions comes from: the groups that give it, by
// name, and the user himself where he holds it directly. Empty for any other node of the users
// tree. Known from the trees alone, nothing is asked of the database: it is as old as they are.
std::wstring PermissionOrigin(const app::mGlobal& global, const controls::TreeNodes& users,
                              const controls::TreeNodes& groups, controls::NodeId node);

}  // namespace browser

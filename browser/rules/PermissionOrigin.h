#pragma once

#include <string>

#include "app/mGlobal.h"
#include "browser/rules/EffectivePermissions.h"
#include "controls/TreeNodes.h"

namespace browser {

// A source in words: directly, by which groups, or both; that it is unknown where it has neither.
std::wstring SourceText(const app::mGlobal& global, const controls::TreeNodes& groups,
                        const PermissionSource& source);

// Where a permission in a user's folder of all permissions comes from: the groups that give it, by
// name, and the user himself where he holds it directly. Empty for any other node of the users
// tree. Known from the trees alone, nothing is asked of the database: it is as old as they are.
std::wstring PermissionOrigin(const app::mGlobal& global, const controls::TreeNodes& users,
                              const controls::TreeNodes& groups, controls::NodeId node);

}  // namespace browser

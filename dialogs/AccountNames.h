#pragma once

#include <cstdint>
#include <string_view>

#include "app/mGlobal.h"
#include "controls/TreeNodes.h"

// Whether a name that an administrator has typed is taken. Uniqueness is decided against the tree
// on screen, not against the database: what somebody else has added since the last refresh is not
// seen.
namespace dialogs {

// Whether another user has the name, as it is shown before the first "(" or as it is stored,
// whatever its case; then the administrator is told. userId is that of the user being edited, whose
// own name is no duplicate; -1 makes every user count.
bool IsDuplicateUser(const app::mGlobal& global, const controls::TreeNodes& usersTree,
                     std::wstring_view name, std::int32_t userId);

// The same for groups.
bool IsDuplicateGroup(const app::mGlobal& global, const controls::TreeNodes& groupsTree,
                      std::wstring_view name, std::int32_t groupId);

// Whether the name is exactly one of the two names that the product reserves for groups.
bool IsReservedGroupName(std::wstring_view name);

}  // namespace dialogs

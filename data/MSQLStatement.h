#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Every statement that the program sends. A builder returns the finished text and checks nothing:
// identifiers go in as plain decimal text, names between single quotes exactly as they are passed.
// The blanks of each text are part of it; session servers and their logs know the texts as they
// stand.
namespace data {

// Users.
std::wstring SqlSelectAllUsers();
std::wstring SqlSelectUser(std::int32_t userId);
std::wstring SqlSelectGroupUsers(std::int32_t groupId);
// Soft delete: the row is flagged and renamed to name(userId), which frees the name.
std::wstring SqlMarkUserDeleted(std::wstring_view name, std::int32_t userId);

// Groups.
std::wstring SqlSelectAllGroups();
std::wstring SqlSelectGroup(std::int32_t groupId);
std::wstring SqlSelectUserGroups(std::int32_t userId);
// Soft delete, as for users.
std::wstring SqlMarkGroupDeleted(std::wstring_view name, std::int32_t groupId);

// Memberships.
std::wstring SqlSelectUserGroupIds(std::int32_t userId);
std::wstring SqlSelectGroupMemberships(std::int32_t groupId);
std::wstring SqlSelectUserMemberships(std::int32_t userId);
std::wstring SqlSelectMembership(std::int32_t groupId, std::int32_t userId);
std::wstring SqlDeleteMembership(std::int32_t groupId, std::int32_t userId);
std::wstring SqlDeleteUserMemberships(std::int32_t userId);
std::wstring SqlDeleteGroupMemberships(std::int32_t groupId);
// The same deletion as the add-users dialog writes it: the number is converted with a place for its
// sign, so that two blanks stand before an identifier that is not negative.
std::wstring SqlDeleteAllGroupUsers(std::int32_t groupId);

// Permissions of users.
std::wstring SqlSelectUserPermIds(std::int32_t userId);
std::wstring SqlSelectUserPermRows(std::int32_t userId);
std::wstring SqlSelectUserPermission(std::int32_t userId, std::int32_t permId);
std::wstring SqlSelectUserPermissionNames(std::int32_t userId);
// The permissions that a user has through his groups.
std::wstring SqlSelectInheritedPermissions(std::int32_t userId);
std::wstring SqlDeleteUserPermission(std::int32_t userId, std::int32_t permId);
std::wstring SqlDeleteUserPermissions(std::int32_t userId);

// Permissions of groups, and the catalogue of permissions.
std::wstring SqlSelectGroupPermIds(std::int32_t groupId);
std::wstring SqlSelectGroupPermRows(std::int32_t groupId);
std::wstring SqlSelectGroupPermission(std::int32_t groupId, std::int32_t permId);
std::wstring SqlSelectGroupPermissionNames(std::int32_t groupId);
std::wstring SqlSelectAllPermissions();
std::wstring SqlDeleteGroupPermission(std::int32_t groupId, std::int32_t permId);
std::wstring SqlDeleteGroupPermissions(std::int32_t groupId);

// Lookups of the start-up and of the user dialog. The protected names are looked up in the tables,
// not in the views.
std::wstring SqlSelectSessionUser(std::int32_t sessionId);
std::wstring SqlSelectAdminUser();
std::wstring SqlSelectProtectedGroups();
std::wstring SqlSelectGroupByName(std::wstring_view name);

}  // namespace data

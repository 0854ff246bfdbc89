#pragma once

#include "resources/ResourceIds.h"

namespace program {

// The program's controls that come in arrays, each by a name of its own; the resources name the
// first of an array alone. Beside these the tests use the resources' names.
enum ControlId : int {
  kEditUserButton = IDC_CMD_USER,
  kDeleteUserButton,
  kNewUserButton,
  kAssignGroupsButton = IDC_CMD_MEMBER_OF,
  kRemoveGroupButton,
  kAssignUserPermissionsButton = IDC_CMD_USER_PERMISSION,
  kRemoveUserPermissionButton,
  kEditGroupButton = IDC_CMD_GROUP,
  kDeleteGroupButton,
  kNewGroupButton,
  kAssignMembersButton = IDC_CMD_MEMBER,
  kRemoveMemberButton,
  kAssignGroupPermissionsButton = IDC_CMD_GROUP_PERMISSION,
  kRemoveGroupPermissionButton,
  kRefreshButton = IDC_CMD_BTN,
  kExitButton,

  // In the dialogs for a user.
  kGroupsOfUserList = IDC_LIST_USER + 1,
  kPermissionsOfUserList = IDC_LIST_USER + 2,
  kAllGroupsOfUserButton = IDC_CMD_USER_BTN + 11,
  kNoGroupOfUserButton = IDC_CMD_USER_BTN + 21,
  kAllPermissionsOfUserButton = IDC_CMD_USER_BTN + 12,
  kNoPermissionOfUserButton = IDC_CMD_USER_BTN + 22,

  // In the dialogs for a group.
  kMembersOfGroupList = IDC_LIST_GROUP + 1,
  kPermissionsOfGroupList = IDC_LIST_GROUP + 2,
  kAddMembersOfGroupButton = IDC_CMD_GROUP_BTN + 11,
  kTakeMemberOfGroupButton = IDC_CMD_GROUP_BTN + 21,
  kAllPermissionsOfGroupButton = IDC_CMD_GROUP_BTN + 12,
  kNoPermissionOfGroupButton = IDC_CMD_GROUP_BTN + 22,

  // In the dialog that adds users to a group: those outside it on the left, those inside on the
  // right.
  kOutsideSearchBox = IDC_TXT_ADD_USER + 1,
  kInsideSearchBox = IDC_TXT_ADD_USER + 2,
  kOutsideList = IDC_LIST_ADD_USER + 1,
  kInsideList = IDC_LIST_ADD_USER + 2,
  kMoveInButton = IDC_CMD_ADD_USER + 1,
  kMoveAllInButton = IDC_CMD_ADD_USER + 2,
  kMoveOutButton = IDC_CMD_ADD_USER + 3,
  kMoveAllOutButton = IDC_CMD_ADD_USER + 4,

  // In the check list that stands alone.
  kCheckAllButton = IDC_CMD_LIST_ITEM,
  kCheckNoneButton,
};

}  // namespace program

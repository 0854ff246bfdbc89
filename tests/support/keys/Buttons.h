#pragma once

// The buttons and lists that come in arrays, by the numbers that the product gives them.
namespace test_support {

// Of the frames beside a tree.
enum AccountButton { kEditButton = 0, kDeleteButton = 1, kNewButton = 2 };
enum LinkButton { kAssignButton = 0, kRemoveButton = 1 };

// Of the main window itself.
enum WindowButton { kRefreshButton = 0, kExitButton = 1 };

// Of the dialogs for a user and for a group.
enum EditingButton {
  kAllGroupsButton = 11,
  kNoGroupButton = 21,
  kAssignMembersButton = 11,
  kRemoveMemberButton = 21,
  kAllPermissionsButton = 12,
  kNoPermissionButton = 22,
};

// Of the dialog that adds users to a group: those that are marked, or all.
enum MoveButton {
  kAddMarkedButton = 1,
  kAddAllButton = 2,
  kTakeMarkedButton = 3,
  kTakeAllButton = 4,
};

// Of the check list that stands alone.
enum ChooserButton { kCheckAllButton = 0, kCheckNoneButton = 1 };

// The two lists of a dialog.
enum DialogList {
  kGroupsList = 1,
  kMembersList = 1,
  kPermissionsList = 2,
  kOutsideList = 1,  // the users that are not in the group
  kInsideList = 2,
};

}  // namespace test_support

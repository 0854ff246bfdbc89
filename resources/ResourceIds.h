// Numbers of the program's resources, for the resource compiler and the forms alike: defines only.
#pragma once

// Icons: the program's own, then the images of the trees.
#define IDI_PROGRAM 1
#define IDI_FOLDER_CLOSED 11
#define IDI_FOLDER_OPEN 12
#define IDI_USER 13
#define IDI_USER_PROTECTED 14
#define IDI_GROUP 15
#define IDI_GROUP_PROTECTED 16
#define IDI_PERMISSION 17
#define IDI_PERMISSION_INHERITED 18

// Dialog templates.
#define IDD_USER_GROUP_PERM 100
#define IDD_NEW_USER 101
#define IDD_EDIT_USER 102
#define IDD_NEW_GROUP 103
#define IDD_EDIT_GROUP 104
#define IDD_ADD_USER_IN_GROUP 105
#define IDD_LIST_ITEM 106
#define IDD_LIST 107

// Controls that several windows share.
#define IDC_HELP_BUTTON 900
#define IDC_OK 1
#define IDC_CANCEL 2

// Controls of the main window.
#define IDC_TAB 1000
#define IDC_TREE_USERS 1001
#define IDC_TREE_GROUPS 1002
#define IDC_LBL_TREE_USERS 1003
#define IDC_LBL_TREE_GROUPS 1004
#define IDC_FIND_USERS 1005
#define IDC_FIND_GROUPS 1006
#define IDC_FRA_USER 1010
#define IDC_CMD_USER 1011  // and the two after it: Edit, Delete, New
#define IDC_FRA_MEMBER_OF 1020
#define IDC_CMD_MEMBER_OF 1021  // and the one after it: Assign, Remove
#define IDC_FRA_USER_PERMISSION 1030
#define IDC_CMD_USER_PERMISSION 1031  // Assign, Remove
#define IDC_FRA_GROUP 1040
#define IDC_CMD_GROUP 1041  // Edit, Delete, New
#define IDC_FRA_MEMBER 1050
#define IDC_CMD_MEMBER 1051  // Assign, Remove
#define IDC_FRA_GROUP_PERMISSION 1060
#define IDC_CMD_GROUP_PERMISSION 1061  // Assign, Remove
#define IDC_CMD_BTN 1070               // Refresh, Exit
#define IDC_CMD_ABOUT 1072
#define IDC_STATUS 1080
#define IDC_SESSION 1081

// Controls of the user dialogs.
#define IDC_LBL_USER_NAME 1101
#define IDC_TXT_USER_NAME 1102
#define IDC_LBL_FULL_NAME 1103
#define IDC_TXT_FULL_NAME 1104
#define IDC_LBL_PASSWORD 1105
#define IDC_TXT_PASSWORD 1106
#define IDC_LBL_CONFIRM_PASSWORD 1107
#define IDC_TXT_VERIFY 1108
#define IDC_FRA_GROUPS_OF_USER 1109
#define IDC_FRA_PERMISSIONS_OF_USER 1110
#define IDC_LIST_USER 1120     // + 1 groups, + 2 permissions
#define IDC_CMD_USER_BTN 1130  // + 11 and + 12 check all, + 21 and + 22 uncheck all

// Controls of the group dialogs.
#define IDC_LBL_GROUP_NAME 1201
#define IDC_TXT_GROUP_NAME 1202
#define IDC_LBL_GROUP_DESC 1203
#define IDC_TXT_GROUP_DESC 1204
#define IDC_FRA_MEMBERS 1205
#define IDC_FRA_PERMISSIONS_OF_GROUP 1206
#define IDC_LIST_GROUP 1210     // + 1 members, + 2 permissions
#define IDC_CMD_GROUP_BTN 1220  // + 11 Assign, + 12 All, + 21 Remove, + 22 None

// Controls of the add-users dialog.
#define IDC_LBL_ADD_USER 1300   // + 1 to + 4, the steps
#define IDC_TXT_ADD_USER 1310   // + 1 and + 2, as the lists
#define IDC_LIST_ADD_USER 1320  // + 1 users outside the group, + 2 members
#define IDC_CMD_ADD_USER 1330   // + 1 to + 4: > >> < <<
#define IDC_FRA_AVAILABLE_USER 1340
#define IDC_FRA_SELECTED_USERS 1341

// Controls of the checklist chooser.
#define IDC_LBL_LIST_ITEM 1401
#define IDC_FRA_LIST_ITEM 1402
#define IDC_LIST_LIST_ITEM 1403
#define IDC_CMD_LIST_ITEM 1404  // All, and the one after it: None

// Controls of the list window.
#define IDC_LBL_LIST 1501
#define IDC_TXT_FILTER 1502
#define IDC_LBL_COUNT 1503
#define IDC_LIST_ROWS 1504
#define IDC_LBL_NOTICE 1505
#define IDC_SAVE_AS 1506

// The numbers of the test forms and their controls, for the compiler and the resource compiler.
#pragma once

#define IDD_TEST_FORM 9001
#define IDD_SMALL_FORM 9002
#define IDD_LARGE_FORM 9003
#define IDD_LIST_FORM 9004

#define IDC_TEST_LABEL 1001
#define IDC_TEST_NAME 1002
#define IDC_TEST_PASSWORD 1003
#define IDC_TEST_FRAME 1004
#define IDC_TEST_FRAMED_BOX 1005
#define IDC_TEST_FRAMED_BUTTON 1006
#define IDC_TEST_PLAIN_LIST 1007
#define IDC_TEST_MULTI_LIST 1008
#define IDC_TEST_CHECK_LIST 1009
#define IDC_TEST_TABS 1010
#define IDC_TEST_TREE 1011
#define IDC_TEST_OK 1012
#define IDC_TEST_CANCEL 1013
#define IDC_TEST_MORE 1014
#define IDC_TEST_LIST_VIEW 1015

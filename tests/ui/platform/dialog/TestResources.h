// Numbers of the test program's own resources.
#pragma once

#define IDD_TEST_DIALOG 101
#define IDD_TEST_VISIBLE 102
#define IDD_TEST_CHILD 103
#define IDD_TEST_PLAIN_FORM 104

#define IDC_TEST_EDIT 1001
#define IDC_TEST_BUTTON 1002
#define IDC_TEST_STATIC 1003
#define IDC_TEST_LIST 1004

#define IDB_TEST_STRIP 200
#define IDB_TEST_COLOR_TABLE 201

#define IDS_TEST_FIRST 15
#define IDS_TEST_SECOND 16
#define IDS_TEST_EMPTY_BLOCK 40000

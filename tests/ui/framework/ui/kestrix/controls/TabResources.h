// Numbers of the tab tests' own resources.
#pragma once

#define IDS_TAB_FIRST 30
#define IDS_TAB_SECOND 31
#define IDS_TAB_THIRD 32
#define IDS_TAB_MISSING 47000

#define IDD_TAB_FIRST 301
#define IDD_TAB_SECOND 302
#define IDD_TAB_MISSING 303

#define IDC_TAB_EDIT 1001

#define IDB_TAB_NORMAL 401
#define IDB_TAB_CHOSEN 402
#define IDB_TAB_MISSING 403

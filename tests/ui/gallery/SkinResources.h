// Numbers of Skin.rc. Plain macros, since the resource compiler reads them too.
#pragma once

#define IDD_SKIN_TEST 1
#define IDD_SKIN_PAGE 2
#define IDD_SKIN_GALLERY 3

#define IDB_SKIN_PICTURE 1
#define IDB_SKIN_INDEXED 2

#define IDC_SKIN_TEXT 101
#define IDC_SKIN_EDIT 102
#define IDC_SKIN_BUTTON 103
#define IDC_SKIN_CHECK 104
#define IDC_SKIN_GROUP 105
#define IDC_SKIN_TRACK 106
#define IDC_SKIN_LIST 107

// Names of the texts of the report, of the dialogs for settings and deletion and of searches, as resource.h has those
// of the rest.
#pragma once

// Texts: settings and deletion
#define IDS_SETTINGS_HEADING 619
#define IDS_KEEP_7_DAYS 68
#define IDS_KEEP_14_DAYS 69
#define IDS_KEEP_30_DAYS 70
#define IDS_KEEP_45_DAYS 71
#define IDS_KEEP_60_DAYS 72
#define IDS_DELETE_HEADING 620
#define IDS_DELETE_QUESTION 66
#define IDS_DELETE_SIZE 67

// Texts: where a search has ended
#define IDS_SEARCH_NOTHING 840
#define IDS_SEARCH_NO_OTHER 841
#define IDS_SEARCH_FROM_TOP 842
#define IDS_SEARCH_FROM_BOTTOM 843

// Texts: the report page
#define IDS_REPORT_PAGE_TITLE 576
#define IDS_REPORT_VIRUS 321
#define IDS_REPORT_SUSPICIOUS_BLOCKED 322
#define IDS_REPORT_SUSPICIOUS_ALLOWED 323
#define IDS_REPORT_SPYWARE_DETECTED 815
#define IDS_REPORT_SPYWARE_OTHER 816
#define IDS_REPORT_WEB 326
#define IDS_REPORT_DATA_PREVENTION 327
#define IDS_REPORT_NO_DATA 575
#define IDS_REPORT_X_TITLE 73
#define IDS_REPORT_Y_TITLE 74
#define IDS_REPORT_TICK 75
#define IDS_REPORT_TICK_SHIFT 773

#pragma once

// Identifiers shared by quarnel.rc and the code. The resource compiler knows no constants but
// macros. The status lines of a run, 42154 to 42178, have theirs in status_texts.h.

#define IDD_ABOUT 100
#define IDS_ABOUT 101
#define IDD_MAIN 102
#define IDI_MAIN 128
#define IDM_MAIN 129

// Command of the system menu; the system keeps the lower four bits for itself.
#define ID_ABOUT 16

#define IDC_CURRENT_INPUT 1001
#define IDC_STATUS_LIST 1002

#define ID_FILE_OPEN_INPUT 32771
#define ID_FILE_CREATE_INPUT 32772
#define ID_FILE_LOAD_INPUT 32773
#define ID_FILE_VIEW_LOG 32774
#define ID_FILE_VIEW_RESULTS 32775

// What the shell answers when it cannot open a file.
#define IDS_OPEN_OUT_OF_MEMORY 42133
#define IDS_OPEN_NOT_FOUND 42134
#define IDS_OPEN_DDE 42135
#define IDS_OPEN_DENIED 42136
#define IDS_OPEN_SHARING 42137
#define IDS_OPEN_NO_ASSOCIATION 42138
#define IDS_OPEN_UNKNOWN 42139

#define IDS_NO_INPUT_FILE 42179
#define IDS_NO_LOG_FILE 42180
#define IDS_INPUT_FILTER 42182
#define IDS_OVERWRITE_INPUT 42183
#define IDS_NO_RESULT_FILE 42184
#define IDS_NONE_SELECTED 42185

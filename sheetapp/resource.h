#pragma once

// Identifiers shared by quarnel_sheet.rc and the code; those of texts that both programs have are
// in desktop/resource.h.

#define IDD_SHEET 200
#define IDI_SHEET 201

#define IDC_INPUT_LABEL 2001
#define IDC_INPUT 2002
#define IDC_CHOOSE 2003
#define IDC_HEADLINE 2004
#define IDC_LINES 2005
#define IDC_PROGRESS 2006
#define IDC_ELAPSED 2007
#define IDC_OPEN_SHEET 2008
#define IDC_OPEN_RESULTS 2009
#define IDC_OPEN_LOG 2010
#define IDC_AGAIN 2011
#define IDC_OPEN_INPUT 2012
#define IDC_RUN_ANYWAY 2013

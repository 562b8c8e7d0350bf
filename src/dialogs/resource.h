// The ids of the dialogs' resources.
#pragma once

// Templates.
#define IDD_LAYER_PAGE 106
#define IDD_SIZE 2001
#define IDD_LINE_PAGE 2002

// Controls.
#define IDC_STATIC -1
#define IDC_ROWS 1003   // both pages
#define IDC_SCALE 1009  // size dialog
#define IDC_WIDTH 1010
#define IDC_HEIGHT 1011

// Strings: the sheet's caption and the rows of the line type page.
#define IDS_SELECTION 101
#define IDS_SOLID 110
#define IDS_DOTTED 111
#define IDS_DASHED 112
#define IDS_CHAIN 113
#define IDS_DOUBLE_CHAIN 114

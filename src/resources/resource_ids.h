// Numbers of the module's resources and controls, for the resource compiler and the code alike.
#pragma once

#define IDR_TOOL_BAR 21373  // tool bar resource and its bitmap
#define IDB_MENU_IMAGES 21620
#define IDC_CURSOR_COPY 21617       // hot spot 11, 8
#define IDC_CURSOR_HAND 21618       // hot spot 6, 0
#define IDC_CURSOR_FORBIDDEN 21619  // hot spot 17, 15

// Commands of the library window's tool bar.
#define ID_DRAW_MODE 21622
#define ID_PREVIOUS_PAGE 21623
#define ID_NEXT_PAGE 21624
#define ID_GRID 21625
#define ID_AUXILIARY_BAR 21626
#define ID_EDIT_MODE 21627

// Commands of the slide grid's menu.
#define ID_SLIDE_DELETE 21613
#define ID_SLIDE_COPY 21614
#define ID_SLIDE_PASTE 21615
#define ID_SLIDE_ENLARGE 21616

// The dialog of one circuit.
#define IDD_CIRCUIT 21372
#define IDC_CIRCUIT_HELP 21292
#define IDC_PICKER_NEXT_PAGE 21630
#define IDC_PICKER_PREVIOUS_PAGE 21628
#define IDC_PICKER_REFRESH 21629
#define IDC_CIRCUIT_FRAME 21631
#define IDC_PICKER_GRID 21632

// What the icon bar says and is told: its flags, the commands of its menu, and the message by which
// it reports to itself what the mouse or an editor did.
#pragma once

#include <cstdint>

// Flags of a bar, set when it is made. Bit 2 has no use.
constexpr unsigned BARF_SMALLICON = 0x1;  // small icons; set by SetIconView alone
constexpr unsigned BARF_RENAMEFOLDER = 0x4;
constexpr unsigned BARF_RENAMEITEM = 0x8;
constexpr unsigned BARF_DELETEFOLDER = 0x10;
constexpr unsigned BARF_DELETEITEM = 0x20;
constexpr unsigned BARF_ADDFOLDER = 0x40;
constexpr unsigned BARF_DRAGITEM = 0x80;
constexpr unsigned BARF_ANIMATE = 0x100;      // folders slide open
constexpr unsigned BARF_SELECTFRAME = 0x200;  // a sunken frame marks the selected item
constexpr unsigned BARF_ADDITEM = 0x400;
constexpr unsigned BARF_CUT = 0x800;  // offered when all three of these are set
constexpr unsigned BARF_PASTE = 0x1000;
constexpr unsigned BARF_COPY = 0x2000;
constexpr unsigned BARF_ENLARGE = 0x4000;
constexpr unsigned BARF_REDUCE = 0x8000;

// The library window's bar.
constexpr unsigned kLibraryBarFlags = 0x5FC;

// Commands of the bar's menu. Enlarge, reduce, cut, copy and paste have no action.
constexpr unsigned ID_BAR_SMALL_ICONS = 21634;
constexpr unsigned ID_BAR_LARGE_ICONS = 21635;
constexpr unsigned ID_BAR_RENAME = 21636;
constexpr unsigned ID_BAR_DELETE = 21637;
constexpr unsigned ID_BAR_NEW = 21638;
constexpr unsigned ID_BAR_ENLARGE = 21639;
constexpr unsigned ID_BAR_REDUCE = 21640;
constexpr unsigned ID_BAR_CUT = 21641;
constexpr unsigned ID_BAR_COPY = 21642;
constexpr unsigned ID_BAR_PASTE = 21643;
constexpr unsigned ID_BAR_ADD = 21644;

// The bar's message to itself, sent. wParam is one of the codes.
constexpr unsigned BARM_NOTIFY = 2024;
constexpr unsigned BARN_ITEMCLICK = 2025;      // item index
constexpr unsigned BARN_ITEMRENAME = 2026;     // CGfxGroupEdit*
constexpr unsigned BARN_FOLDERRENAME = 2027;   // CGfxGroupEdit*
constexpr unsigned BARN_ITEMMOVE = 2028;       // BarMoveInfo*; 1 when the item may move, else 0
constexpr unsigned BARN_FOLDERCHANGED = 2029;  // folder index

// An item of the open folder and the gap that it is to stand in: before the item that has the index
// target now, the item count meaning behind the last.
struct BarMoveInfo {
  std::int32_t source;
  std::int32_t target;
};

// Timers of the bar.
constexpr unsigned kHoverTimer = 1;
constexpr unsigned kArrowTimer = 2;
constexpr unsigned kJumpTimer = 3;
constexpr unsigned kHoverPeriod = 100;  // milliseconds
constexpr unsigned kArrowPeriod = 300;

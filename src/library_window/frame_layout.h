// The library window's numbers: widths of its two columns, its tool bar's strip, pages, and the
// grids that its list offers. Pixels; pages count from 1, slots from 0.
#pragma once

#include <cstdint>

#include "platform/framework_shapes.h"

// The icon bar's column, with the gap beside it.
constexpr std::int32_t kBarColumn = 120;
// The tool bar's strip; the window's client area is never narrower, nor lower than its height.
constexpr std::int32_t kToolBarStrip = 252;
constexpr std::int32_t kLeastClientHeight = 250;

struct PaneSizes {
  SIZE grid;
  SIZE bar;
};
// The panes of a client area, with the bar or without it.
PaneSizes CalcPaneSizes(SIZE client, bool barHidden);

// The window's rectangle as it was stored; edges stay within 32 bits.
RECT storedWindow(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height);
// The same where it can be taken hold of: a window whose caption lies off the screen, or that is
// larger than the numbers of a screen make sense of, is moved onto it and cut to its size.
RECT reachableWindow(const RECT& window, const RECT& screen);

// The window after its bar was shown or hidden: the grid keeps its width, the right edge moves.
RECT withBarToggled(RECT window, bool nowHidden);

// The strip at the right end of the dock bar, two pixels taller than that at either edge.
RECT toolBarStrip(const RECT& dockBar);

// The least size that the window can be given, its frame included.
SIZE leastWindowSize(const RECT& window, const RECT& client);

// So many pages further; at the limits of 32 bits it stays.
std::int32_t pageAfter(std::int32_t page, int by);
bool hasPreviousPage(std::int32_t page);
bool hasNextPage(std::int32_t page, int rows, int columns, int slides);
// The page that shows the slot.
std::int32_t pageOfSlot(std::int32_t slot, int rows, int columns);

struct Grid {
  int rows;
  int columns;
  friend bool operator==(const Grid&, const Grid&) = default;
};
constexpr const wchar_t* kGridTexts[] = {L"1×3", L"2×6", L"3×9", L"4×12"};

constexpr int kNoGridItem = -1;
// The list's item when the window opens, by rows alone; none for other numbers of rows.
int shownGridItem(int rows);
// The item that a choice is compared with: by rows alone, and the last item for all other numbers.
// So "3×9" can't be chosen while a page has three rows of six.
int comparedGridItem(int rows);
// What an item stands for; the first item's grid for anything that is no item.
Grid gridOfItem(int item);

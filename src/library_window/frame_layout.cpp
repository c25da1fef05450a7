#include "library_window/frame_layout.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace {

constexpr Grid kGrids[] = {{1, 3}, {2, 6}, {3, 9}, {4, 12}};
static_assert(std::size(kGrids) == std::size(kGridTexts));

// What must be seen of the caption.
constexpr std::int32_t kCaptionGripWidth = 48;
constexpr std::int32_t kCaptionGripHeight = 16;

std::int32_t saturated(std::int64_t value) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(
      value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

bool canBeGripped(const RECT& window, const RECT& screen) {
  const std::int64_t seen =
      std::int64_t{std::min(window.right, screen.right)} - std::max(window.left, screen.left);
  return seen >= kCaptionGripWidth && window.top >= screen.top &&
         window.top <= screen.bottom - kCaptionGripHeight && window.bottom >= window.top;
}

// An edge pair of that length within the limits, near where it was.
std::pair<std::int32_t, std::int32_t> within(std::int64_t from, std::int64_t to, std::int64_t least,
                                             std::int64_t most) {
  const std::int64_t length = std::clamp<std::int64_t>(to - from, 0, most - least);
  const std::int64_t start = std::clamp(from, least, most - length);
  return {saturated(start), saturated(start + length)};
}

std::int64_t cellsOf(int rows, int columns) {
  return std::max<std::int64_t>(std::int64_t{rows} * columns, 1);
}

}  // namespace

// The bar's height has no effect, since the splitter has one row.
PaneSizes CalcPaneSizes(SIZE client, bool barHidden) {
  if (barHidden) return {client, {0, 0}};
  PaneSizes sizes{client, client};
  sizes.grid.cx = std::max<decltype(client.cx)>(client.cx - kBarColumn, 0);
  sizes.bar.cx = kBarColumn;
  sizes.grid.cy = sizes.bar.cy = client.cy / 2;
  return sizes;
}

RECT storedWindow(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) {
  return {x, y, saturated(std::int64_t{x} + width), saturated(std::int64_t{y} + height)};
}

RECT reachableWindow(const RECT& window, const RECT& screen) {
  if (canBeGripped(window, screen)) return window;
  const auto [left, right] = within(window.left, window.right, screen.left, screen.right);
  const auto [top, bottom] = within(window.top, window.bottom, screen.top, screen.bottom);
  return {left, top, right, bottom};
}

RECT withBarToggled(RECT window, bool nowHidden) {
  window.right += nowHidden ? -kBarColumn : kBarColumn;
  return window;
}

RECT toolBarStrip(const RECT& dockBar) {
  return {dockBar.right - kToolBarStrip, dockBar.top - 2, dockBar.right, dockBar.bottom + 2};
}

SIZE leastWindowSize(const RECT& window, const RECT& client) {
  SIZE least;
  least.cx = (window.right - window.left) - (client.right - client.left) + kToolBarStrip;
  least.cy = (window.bottom - window.top) - (client.bottom - client.top) + kLeastClientHeight;
  return least;
}

std::int32_t pageAfter(std::int32_t page, int by) { return saturated(std::int64_t{page} + by); }

bool hasPreviousPage(std::int32_t page) { return page != 1; }

bool hasNextPage(std::int32_t page, int rows, int columns, int slides) {
  return page * cellsOf(rows, columns) < slides;
}

std::int32_t pageOfSlot(std::int32_t slot, int rows, int columns) {
  return static_cast<std::int32_t>(slot / cellsOf(rows, columns) + 1);
}

int shownGridItem(int rows) { return rows >= 1 && rows <= 4 ? rows - 1 : kNoGridItem; }

int comparedGridItem(int rows) { return rows >= 1 && rows <= 3 ? rows - 1 : 3; }

Grid gridOfItem(int item) {
  return item >= 0 && item < static_cast<int>(std::size(kGrids)) ? kGrids[item] : kGrids[0];
}

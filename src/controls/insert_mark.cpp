#include "controls/insert_mark.h"

namespace {

constexpr int kRows = 4;

// Rows of a wedge at both ends, going down (1) or up (-1). At the right the fourth row is a line
// without length above and none below.
void addWedges(std::vector<MarkLine>& lines, const RECT& rect, int direction) {
  for (int row = 1; row <= kRows; ++row) {
    const auto y = rect.top + direction * row;
    lines.push_back({{rect.left, y}, {rect.left + 9 - 2 * row, y}});
  }
  for (int row = 1; row < kRows; ++row) {
    const auto y = rect.top + direction * row;
    lines.push_back({{rect.right - 1, y}, {rect.right - 9 + 2 * row, y}});
  }
  if (direction < 0) {
    lines.push_back({{rect.right - 1, rect.top - kRows}, {rect.right - 1, rect.top - kRows}});
  }
}

}  // namespace

InsertMark GetInsertMarkRect(const BarLayout& layout, const BarFolders& folders,
                             const BarView& view, int index) {
  const int count = folders.folder(view.currentFolder).GetItemCount();
  const bool before = index < count;
  const RECT cell = layout.GetItemCellRect(view.currentFolder, before ? index : index - 1);
  const auto y = before ? cell.top - 4 : cell.bottom + 6;
  RECT rect = layout.GetInsideRect();
  rect.left += 2;
  rect.right -= 2;
  const auto place = [&rect](auto top, auto bottom) {
    rect.top = top;
    rect.bottom = bottom;
    return rect;
  };
  if (index == 0) return {place(y + 2, y + 7), InsertMarkKind::First};
  if (!before) return {place(y, y + 5), InsertMarkKind::Last};
  const int lower = view.small ? 8 : 0;
  return {place(y - 9 + lower, y + lower), InsertMarkKind::Between};
}

RECT markedArea(const InsertMark& mark) {
  RECT area = mark.rect;
  if (mark.kind != InsertMarkKind::First) area.top -= kRows;
  area.bottom = area.top + (mark.kind == InsertMarkKind::Between ? 2 * kRows + 1 : kRows + 1);
  return area;
}

std::vector<MarkLine> markLines(const InsertMark& mark) {
  const RECT& rect = mark.rect;
  std::vector<MarkLine> lines{{{rect.left, rect.top}, {rect.right, rect.top}}};
  if (mark.kind != InsertMarkKind::Last) addWedges(lines, rect, 1);
  if (mark.kind != InsertMarkKind::First) addWedges(lines, rect, -1);
  return lines;
}

#include "controls/bar_layout.h"

#include <algorithm>

namespace {

int width(const RECT& rect) { return static_cast<int>(rect.right - rect.left); }

SIZE size(int cx, int cy) {
  SIZE result;
  result.cx = cx;
  result.cy = cy;
  return result;
}

RECT rectangle(int left, int top, int right, int bottom) { return {left, top, right, bottom}; }

}  // namespace

RECT BarLayout::GetInsideRect() const {
  RECT inside = view_.client;
  const int count = folders_.GetFolderCount();
  if (count == 0) return inside;
  inside.top += kFolderHeight * (view_.currentFolder + 1) - 1;
  inside.bottom -= (count - view_.currentFolder - 1) * kFolderHeight;
  return inside;
}

// The topmost header begins a pixel above the client area.
bool BarLayout::GetFolderRect(int index, RECT& rect) const {
  const int count = folders_.GetFolderCount();
  if (index < 0 || index >= count) return false;
  rect = view_.client;
  if (index <= view_.currentFolder) {
    rect.top = view_.client.top + index * kFolderHeight - 1;
  } else {
    rect.top = view_.client.bottom - (count - index) * kFolderHeight;
  }
  rect.bottom = rect.top + kFolderHeight;
  return true;
}

SIZE BarLayout::iconSize(int folder, int index) const {
  const int image = folders_.folder(folder).item(index).image;
  return image >= 0 ? measure_.icon(folder, image, view_.small) : SIZE{};
}

SIZE BarLayout::labelSize(int folder, int index) const {
  const auto& text = folders_.folder(folder).item(index).text;
  if (!text) return SIZE{};
  return view_.small ? measure_.line(*text) : measure_.wrapped(*text, width(GetInsideRect()));
}

SIZE BarLayout::wholeSize(int folder, int index) const {
  if (folder != measuredFolder_) {
    wholeSizes_.assign(static_cast<std::size_t>(folders_.folder(folder).GetItemCount()), {});
    measuredFolder_ = folder;
  }
  const auto at = static_cast<std::size_t>(index);
  if (index < 0 || at >= wholeSizes_.size()) return measured(folder, index);  // throws
  if (!wholeSizes_[at]) wholeSizes_[at] = measured(folder, index);
  return *wholeSizes_[at];
}

SIZE BarLayout::measured(int folder, int index) const {
  const SIZE icon = iconSize(folder, index);
  const SIZE label = labelSize(folder, index);
  if (view_.small) {
    return size(static_cast<int>(icon.cx + label.cx) + kSmallLabelGap,
                static_cast<int>(std::max(icon.cy, label.cy)));
  }
  return size(static_cast<int>(std::max(icon.cx, label.cx)),
              static_cast<int>(icon.cy + label.cy) + kLargeLabelGap + kLargeSpacing);
}

BarLayout::Walk BarLayout::walkTo(int folder, int index) const {
  const int top = static_cast<int>(GetInsideRect().top);
  Walk walk{top, 0};
  for (int i = 0; i < index; ++i) {
    walk.y += static_cast<int>(wholeSize(folder, i).cy) + spacing();
    if (i == view_.firstItem - 1) walk.scroll = walk.y - top;
  }
  return walk;
}

// In the small view the right edge doesn't follow the margin: it is meant.
RECT BarLayout::GetItemCellRect(int folder, int index) const {
  const RECT inside = GetInsideRect();
  const Walk walk = walkTo(folder, index);
  const SIZE whole = wholeSize(folder, index);
  const int top = walk.y - walk.scroll + kTopMargin;
  RECT cell = inside;
  if (view_.small) {
    cell.left = inside.left + kLeftMargin;
    cell.right = inside.left + whole.cx;
  }
  cell.top = top;
  cell.bottom = top + whole.cy;
  return cell;
}

RECT BarLayout::GetItemIconRect(int folder, int index) const {
  const RECT inside = GetInsideRect();
  const Walk walk = walkTo(folder, index);
  const SIZE icon = iconSize(folder, index);
  const int y = walk.y + spacing() - walk.scroll;
  RECT rect;
  if (view_.small) {
    rect.left = inside.left + kLeftMargin + 2;
    rect.top = y - kTopMargin;
    rect.bottom = rect.top + icon.cy;
  } else {
    rect.left = inside.left + (width(inside) - static_cast<int>(icon.cx)) / 2;
    rect.top = y - 3;  // a pixel taller than the icon
    rect.bottom = y + icon.cy - 2;
  }
  rect.right = rect.left + icon.cx;
  return rect;
}

// In the small view the scroll position isn't taken off; the label's editor stands elsewhere there.
RECT BarLayout::GetItemLabelRect(int folder, int index) const {
  const RECT inside = GetInsideRect();
  const Walk walk = walkTo(folder, index);
  const SIZE whole = wholeSize(folder, index);
  const int y = walk.y + spacing();
  RECT rect;
  if (view_.small) {
    rect.left = inside.left + kLeftMargin + 2;
    rect.top = y + kTopMargin - 5;
    rect.bottom = rect.top + whole.cy;
  } else {
    rect.left = inside.left + (width(inside) - static_cast<int>(whole.cx)) / 2;
    rect.bottom = y + whole.cy - 2 - walk.scroll - kLargeSpacing;
    rect.top = rect.bottom - labelSize(folder, index).cy;
  }
  rect.right = rect.left + whole.cx;
  return rect;
}

VisibleItems BarLayout::GetVisibleItems(int folder) const {
  const CBarFolder* shown = folders_.find(folder);
  if (!shown || shown->GetItemCount() == 0) return {view_.firstItem, 0};
  const auto bottom = GetInsideRect().bottom;
  VisibleItems visible{view_.firstItem, view_.firstItem - 1};
  for (int i = view_.firstItem; i < shown->GetItemCount(); ++i) {
    if (GetItemCellRect(folder, i).bottom > bottom) break;
    visible.last = i;
  }
  return visible;
}

BarHit BarLayout::HitTestBar(const POINT& point, int& index) const {
  if (view_.upShown && holds(view_.up, point)) return BarHit::UpArrow;
  if (view_.downShown && holds(view_.down, point)) return BarHit::DownArrow;
  for (int i = 0; i < folders_.GetFolderCount(); ++i) {
    RECT header{};
    GetFolderRect(i, header);
    if (!holds(header, point)) continue;
    index = i;
    return BarHit::Folder;
  }
  const CBarFolder* open = folders_.find(view_.currentFolder);
  index = open ? open->GetItemCount() : 0;
  return open ? hitItem(*open, point, index) : BarHit::Nothing;
}

// Icon and label with the gap between them in the large view, the whole cell in the small one.
BarHit BarLayout::hitItem(const CBarFolder& folder, const POINT& point, int& index) const {
  const auto bottom = GetInsideRect().bottom;
  for (int i = view_.firstItem; i < folder.GetItemCount(); ++i) {
    RECT parts[2];
    int count = 0;
    if (view_.small) {
      parts[count++] = GetItemCellRect(view_.currentFolder, i);
    } else {
      parts[count++] = GetItemIconRect(view_.currentFolder, i);
      parts[count] = GetItemLabelRect(view_.currentFolder, i);
      parts[count++].top -= kLargeLabelGap;
    }
    for (const RECT& part : {parts[0], parts[count - 1]}) {
      if (holds(part, point)) {
        index = i;
        return BarHit::Item;
      }
      if (part.top > bottom) return BarHit::Nothing;
    }
  }
  return BarHit::Nothing;
}

RECT BarLayout::upArrow(int side) const {
  const RECT inside = GetInsideRect();
  const int left = static_cast<int>(inside.right) - kArrowMargin - side;
  const int top = static_cast<int>(inside.top) + kArrowMargin;
  return rectangle(left, top, left + side, top + side);
}

RECT BarLayout::downArrow(int side) const {
  const RECT inside = GetInsideRect();
  const int left = static_cast<int>(inside.right) - kArrowMargin - side;
  const int top = static_cast<int>(inside.bottom) - kArrowMargin - side;
  return rectangle(left, top, left + side, top + side);
}

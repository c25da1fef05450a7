#include "controls/item_jump.h"

std::optional<POINT> ItemJump::tick() {
  constexpr int kLastStep = 10;
  if (++step_ > kLastStep) step_ = -1;
  switch (step_) {
    case 0: return POINT{-1, 1};
    case 2: return POINT{1, 1};
    case 1:
    case 3: return POINT{0, 0};
    default: return std::nullopt;
  }
}

std::optional<POINT> restingIcon(const BarLayout& layout, const BarFolders& folders,
                                 const BarView& view, int item) {
  if (item < 0 || item >= folders.GetFolderCount()) return std::nullopt;
  const CBarFolder* open = folders.find(view.currentFolder);
  if (!open || item >= open->GetItemCount() || item < view.firstItem) return std::nullopt;
  const RECT inside = layout.GetInsideRect();
  const RECT cell = layout.GetItemCellRect(view.currentFolder, item);
  if (cell.bottom >= inside.bottom || cell.top <= inside.top) return std::nullopt;
  const SIZE icon = layout.iconSize(view.currentFolder, item);
  if (view.small) return POINT{cell.left + 2, cell.top + (cell.bottom - cell.top - icon.cy) / 2};
  return POINT{cell.left + (cell.right - cell.left - icon.cx) / 2, cell.top};
}

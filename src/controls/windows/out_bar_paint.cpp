// The bar's drawing: headers, items, hover frames, arrows, the insert mark.
#include <utility>

#include "controls/windows/gdi_scope.h"
#include "controls/windows/gfx_out_bar_ctrl.h"
#include "platform/framework_image_list.h"
#include "platform/framework_window_dc.h"

namespace {

constexpr UINT kHeaderText = DT_CENTER | DT_VCENTER | DT_SINGLELINE;

// From the left end of a header's bottom to the right, and up its right side.
void corner(CDC& dc, const CRect& rect, int inset, COLORREF colour) {
  CPen pen(PS_SOLID, 1, colour);
  const SelectedObject selected(dc, pen.GetSafeHandle());
  dc.MoveTo(rect.left + inset, rect.bottom - 1 - inset);
  dc.LineTo(rect.right - 1 - inset, rect.bottom - 1 - inset);
  dc.LineTo(rect.right - 1 - inset, rect.top + inset);
}

void line(CDC& dc, int x1, int y, int x2, COLORREF colour) {
  CPen pen(PS_SOLID, 1, colour);
  const SelectedObject selected(dc, pen.GetSafeHandle());
  dc.MoveTo(x1, y);
  dc.LineTo(x2, y);
}

}  // namespace

void CGfxOutBarCtrl::OnPaint() {
  CPaintDC dc(this);
  CRect client;
  GetClientRect(client);
  MemoryPicture memory(dc, client.Width(), client.Height());
  paintInto(memory.dc);
  dc.BitBlt(client.left, client.top, client.Width(), client.Height(), &memory.dc, 0, 0, SRCCOPY);
  // The frames that were drawn on the window come back.
  if (hover_.folder >= 0) HighlightFolder(std::exchange(hover_.folder, -1));
  if (hover_.item >= 0) HighlightItem(std::exchange(hover_.item, -1), hover_.itemPressed);
}

void CGfxOutBarCtrl::paintInto(CDC& dc) {
  const BarLayout layout = this->layout();
  const CRect inside = layout.GetInsideRect();
  const CBarFolder* open = openFolder();
  const bool list = !open || !open->child;
  if (list) dc.FillSolidRect(inside, colours_.background);
  for (int i = 0; i < GetFolderCount(); ++i) {
    CRect header;
    layout.GetFolderRect(i, *header);
    DrawFolderHeader(dc, i, header, false);
  }
  if (!list) return;
  const VisibleItems visible = layout.GetVisibleItems(view_.currentFolder);
  const int side = ::GetSystemMetrics(SM_CXVSCROLL);
  view_.up = layout.upArrow(side);
  view_.down = layout.downArrow(side);
  const int count = open ? open->GetItemCount() : 0;
  paintArrow(dc, arrow(BarHit::UpArrow), visible.first >= 1);
  paintArrow(dc, arrow(BarHit::DownArrow), visible.last < count - 1);
  if (open) drawItems(dc, layout, view_.currentFolder, inside);
}

// Items are not drawn over it.
void CGfxOutBarCtrl::paintArrow(CDC& dc, Arrow arrow, bool show) {
  arrow.shown = show;
  if (!show) return;
  dc.DrawFrameControl(&arrow.rect, DFC_SCROLL, arrow.pressed ? arrow.pushed : arrow.normal);
  dc.ExcludeClipRect(&arrow.rect);
}

void CGfxOutBarCtrl::DrawFolderHeader(CDC& dc, int folder, RECT rect, bool pressed) {
  CRect face = rect;
  line(dc, face.left + (pressed ? 1 : 0), face.top, face.right, colours_.frame);
  face.top += 1;
  if (pressed) {
    dc.Draw3dRect(face, colours_.darkShadow, colours_.highlight);
    face.InflateRect(-1, -1);
    dc.Draw3dRect(face, colours_.frame, colours_.face);
  } else {
    dc.Draw3dRect(face, colours_.highlight, colours_.frame);
  }
  face.InflateRect(-1, -1);
  dc.FillSolidRect(face, colours_.face);
  const SelectedObject font(dc, ::GetStockObject(DEFAULT_GUI_FONT));
  const int mode = dc.SetBkMode(TRANSPARENT);
  dc.DrawText(CString(folders_.folder(folder).name), face, kHeaderText);
  dc.SetBkMode(mode);
}

void CGfxOutBarCtrl::DrawBarItem(CDC& dc, int folder, RECT rect, int item, bool iconOnly) {
  const CImageList* images = folders_.GetFolderImageList(folder, view_.small);
  if (!images) return;
  const SavedContext saved(dc);
  const BarLayout layout = this->layout();
  const CBarItem& shown = folders_.folder(folder).item(item);
  const SIZE icon = layout.iconSize(folder, item);
  CRect place = rect;
  dc.SelectStockObject(DEFAULT_GUI_FONT);
  dc.SetTextColor(colours_.text);
  dc.SetBkMode(TRANSPARENT);
  const CString label(shown.text.value_or(L""));
  if (view_.small) {
    const CPoint at(place.left + 2, place.top + (place.Height() - icon.cy) / 2);
    if (shown.image >= 0) images->Draw(dc, shown.image, at, ILD_NORMAL);
    if (!iconOnly) dc.TextOut(place.left + icon.cx + kSmallLabelGap, place.top, label);
  } else {
    const CPoint at(place.left + (place.Width() - icon.cx) / 2, place.top);
    if (shown.image >= 0) images->Draw(dc, shown.image, at, ILD_NORMAL);
    place.top += icon.cy + kLargeLabelGap;
    if (!iconOnly) dc.DrawText(label, place, DT_CENTER | DT_WORDBREAK);
  }
  if ((flags_ & BARF_SELECTFRAME) != 0 && item == selectedItem_) {
    iconFrame(dc, folder, item, colours_.darkShadow, colours_.face);
  }
}

void CGfxOutBarCtrl::DrawFolderItems(CDC& dc, int folder, const RECT& rect) {
  drawItems(dc, layout(), folder, rect);
}

void CGfxOutBarCtrl::drawItems(CDC& dc, const BarLayout& layout, int folder, const RECT& rect) {
  const SavedContext saved(dc);
  const CRect inside = layout.GetInsideRect();
  dc.IntersectClipRect(inside);
  for (int i = view_.firstItem; i < folders_.folder(folder).GetItemCount(); ++i) {
    const CRect cell = layout.GetItemCellRect(folder, i);
    if (cell.top > rect.bottom) break;
    DrawBarItem(dc, folder, cell, i, false);
  }
}

// --- hover ---

bool CGfxOutBarCtrl::focusIsInside() const {
  const HWND focus = ::GetFocus();
  return focus && ::IsChild(m_hWnd, focus);
}

void CGfxOutBarCtrl::folderLines(CDC& dc, const RECT& header, COLORREF outer, COLORREF inner) {
  corner(dc, header, 0, outer);
  corner(dc, header, 1, inner);
}

void CGfxOutBarCtrl::HighlightFolder(int folder) {
  if (focusIsInside()) return;
  const auto change = hover_.moveFolder(folder);
  if (!change) return;
  CClientDC dc(this);
  const BarLayout layout = this->layout();
  CRect header;
  if (layout.GetFolderRect(change->erase, *header)) {
    folderLines(dc, header, colours_.frame, colours_.face);
  }
  if (layout.GetFolderRect(change->draw, *header)) {
    folderLines(dc, header, colours_.darkShadow, colours_.frame);
  }
}

bool CGfxOutBarCtrl::plain(int item) const {
  return item == selectedItem_ && (itemInterval_ > 0 || (flags_ & BARF_SELECTFRAME) != 0);
}

void CGfxOutBarCtrl::iconFrame(CDC& dc, int folder, int item, COLORREF topLeft,
                               COLORREF bottomRight) {
  CRect icon = layout().GetItemIconRect(folder, item);
  icon.InflateRect(1, 1);
  dc.Draw3dRect(icon, topLeft, bottomRight);
}

void CGfxOutBarCtrl::HighlightItem(int item, bool pressed) {
  if (focusIsInside()) return;
  const auto change = hover_.moveItem(item, pressed, plain(item));
  if (!change || !openFolder()) return;
  CClientDC dc(this);
  dc.IntersectClipRect(inside());
  if (IsValidItem(change->erase)) {
    iconFrame(dc, view_.currentFolder, change->erase, colours_.background, colours_.background);
  }
  if (!IsValidItem(change->draw)) return;
  iconFrame(dc, view_.currentFolder, change->draw, pressed ? colours_.darkShadow : colours_.face,
            pressed ? colours_.face : colours_.darkShadow);
}

// --- the selected item's jump ---

void CGfxOutBarCtrl::DrawItemOffset(int dx, int dy, int item) {
  const BarLayout layout = this->layout();
  const auto rest = restingIcon(layout, folders_, view_, item);
  if (!rest) return;
  const int folder = view_.currentFolder;
  const CImageList* images = folders_.GetFolderImageList(folder, view_.small);
  const int image = folders_.folder(folder).item(item).image;
  if (!images || image < 0) return;
  const SIZE icon = layout.iconSize(folder, item);
  CClientDC dc(this);
  dc.FillSolidRect(CRect(rest->x - 1, rest->y - 1, rest->x + icon.cx + 2, rest->y + icon.cy + 2),
                   colours_.background);
  images->Draw(dc, image, CPoint(rest->x + dx, rest->y + dy), ILD_NORMAL);
}

// --- the mark of a drag ---

void CGfxOutBarCtrl::DrawInsertMark(CDC& dc, int target) {
  if (target == insertMark_) return;
  const BarLayout layout = this->layout();
  if (insertMark_ >= 0) {
    const RECT area = markedArea(GetInsertMarkRect(layout, folders_, view_, insertMark_));
    InvalidateRect(&area);
    UpdateWindow();
  }
  insertMark_ = target;
  if (target < 0) return;
  const SelectedObject pen(dc, ::GetStockObject(BLACK_PEN));
  for (const MarkLine& mark : markLines(GetInsertMarkRect(layout, folders_, view_, target))) {
    dc.MoveTo(mark.from.x, mark.from.y);
    dc.LineTo(mark.to.x, mark.to.y);
  }
}

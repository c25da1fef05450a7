// The bar's mouse: hover, presses with a loop of their own, the menu.
#include "controls/bar_menu.h"
#include "controls/windows/gdi_scope.h"
#include "controls/windows/gfx_out_bar_ctrl.h"
#include "controls/windows/gfx_popup_menu.h"
#include "controls/windows/mouse_loop.h"
#include "platform/framework_window_dc.h"
#include "resources/resource_ids.h"

CGfxOutBarCtrl::Hit CGfxOutBarCtrl::hitTest(const POINT& point) {
  Hit hit{BarHit::Nothing, -1};
  hit.code = layout().HitTestBar(point, hit.index);
  return hit;
}

void CGfxOutBarCtrl::OnMouseMove(UINT flags, CPoint point) {
  const Hit hit = hitTest(point);
  if (hit.code != BarHit::Folder && hover_.folder >= 0) HighlightFolder(-1);
  if (hit.code != BarHit::Item && hover_.item >= 0) HighlightItem(-1, false);
  if (hit.code == BarHit::Folder) HighlightFolder(hit.index);
  if (hit.code == BarHit::Item) HighlightItem(hit.index, false);
  if (hit.code == BarHit::Folder || hit.code == BarHit::Item) SetTimer(kHoverTimer, kHoverPeriod);
  CWnd::OnMouseMove(flags, point);
}

// The frames go when the mouse has left the window.
void CGfxOutBarCtrl::OnTimer(UINT_PTR id) {
  if (id == kHoverTimer) {
    CPoint pointer;
    CRect client;
    ::GetCursorPos(&pointer);
    ScreenToClient(&pointer);
    GetClientRect(client);
    if (!client.PtInRect(pointer)) {
      HighlightFolder(-1);
      HighlightItem(-1, false);
      KillTimer(kHoverTimer);
    }
  }
  if (id == kJumpTimer && selectedItem_ != -1) {
    if (const auto at = jump_.tick()) {
      DrawItemOffset(static_cast<int>(at->x), static_cast<int>(at->y), selectedItem_);
    }
  }
  CWnd::OnTimer(id);
}

BOOL CGfxOutBarCtrl::OnSetCursor(CWnd* window, UINT hit, UINT message) {
  const DWORD position = ::GetMessagePos();
  CPoint point(static_cast<LPARAM>(position));
  ScreenToClient(&point);
  if (hitTest(point).code != BarHit::Folder) return CWnd::OnSetCursor(window, hit, message);
  ::SetCursor(hand_);
  return TRUE;
}

void CGfxOutBarCtrl::OnLButtonDown(UINT flags, CPoint point) {
  const HWND window = m_hWnd;
  if (::GetFocus() != window) SetFocus();
  const Hit hit = hitTest(point);
  if (hit.code != BarHit::Item) hover_.item = -1;
  switch (hit.code) {
    case BarHit::Folder: pressFolder(hit.index); break;
    case BarHit::Item: pressItem(hit.index); break;
    case BarHit::UpArrow:
    case BarHit::DownArrow: pressArrow(hit.code); break;
    case BarHit::Nothing: break;
  }
  if (::IsWindow(window)) CWnd::OnLButtonDown(flags, point);
}

// --- a header ---

void CGfxOutBarCtrl::pressFolder(int index) {
  const HWND window = m_hWnd;
  MouseLoop loop(window);
  if (!loop.begun()) return;
  CRect rect;
  layout().GetFolderRect(index, *rect);
  const auto draw = [&](bool pressed) {
    CClientDC dc(this);
    DrawFolderHeader(dc, index, rect, pressed);
  };
  HeldButton held;
  draw(true);
  MSG message;
  bool released = false;
  while (!released && loop.next(message)) {
    const Hit hit = message.message == WM_MOUSEMOVE ? hitTest(CPoint(message.lParam)) : Hit{};
    switch (message.message) {
      case WM_MOUSEMOVE:
        if (held.moved(hit.code == BarHit::Folder && hit.index == index)) draw(held.pressed());
        break;
      case WM_LBUTTONUP: released = true; break;
      case WM_KEYDOWN:
        if (message.wParam != VK_ESCAPE) break;
        [[fallthrough]];
      default: ::DispatchMessageW(&message);
    }
  }
  if (!::IsWindow(window)) return;
  if (held.pressed()) draw(false);
  if (released) {
    const Hit hit = hitTest(CPoint(message.lParam));
    if (const auto folder = folderToOpen(hit.code, hit.index, view_.currentFolder)) {
      SelectFolder(*folder);
    }
  }
  if (held.pressed()) InvalidateRect(rect, FALSE);
}

// --- an item ---

void CGfxOutBarCtrl::pressItem(int index) {
  const HWND window = m_hWnd;
  MouseLoop loop(window);
  if (!loop.begun()) return;
  insertMark_ = -1;
  ItemPress press(index, (flags_ & BARF_DRAGITEM) != 0);
  HCURSOR cursor = ::GetCursor();
  HighlightItem(index, true);
  MSG message;
  bool released = false;
  while (!released && loop.next(message)) {
    switch (message.message) {
      case WM_SETCURSOR: ::SetCursor(cursor); break;
      case WM_MOUSEMOVE: itemMoved(press, CPoint(message.lParam), cursor); break;
      case WM_LBUTTONUP: released = true; break;
      default: ::DispatchMessageW(&message);
    }
  }
  if (!::IsWindow(window)) return;
  if (press.drawn()) {
    HighlightItem(-1, false);
    press.frameGone();
  }
  if (released) itemReleased(press, CPoint(message.lParam));
  if (!::IsWindow(window)) return;
  if (press.dragging()) Invalidate();
  hover_.itemPressed = false;
}

DragPoint CGfxOutBarCtrl::dragPoint(CPoint point) {
  const Hit hit = hitTest(point);
  const BarLayout layout = this->layout();
  const int count = GetCurrentItemCount();
  const auto last = layout.GetItemCellRect(view_.currentFolder, count - 1);
  return {hit.code,
          hit.index,
          static_cast<int>(point.y),
          static_cast<int>(last.bottom),
          static_cast<int>(layout.GetInsideRect().bottom),
          count};
}

void CGfxOutBarCtrl::itemMoved(ItemPress& press, CPoint point, HCURSOR& cursor) {
  if (press.dragging()) {
    const auto gap = dragGap(dragPoint(point));
    CClientDC dc(this);
    DrawInsertMark(dc, gap.value_or(-1));
    cursor = gap ? drag_ : noDrop_;
    ::SetCursor(cursor);
    return;
  }
  const Hit hit = hitTest(point);
  const ItemPressChange change = press.moved(hit.code, hit.index);
  if (change == ItemPressChange::None) return;
  const bool sunken = change != ItemPressChange::Rise;
  HighlightItem(press.item(), sunken);
  hover_.itemPressed = sunken;
  if (change != ItemPressChange::StartDrag) return;
  cursor = drag_;
  ::SetCursor(cursor);
}

void CGfxOutBarCtrl::itemReleased(ItemPress& press, CPoint point) {
  if (press.dragging()) return dropItem(press, dragPoint(point));
  const Hit hit = hitTest(point);
  if (press.clicked(hit.code, hit.index)) clickItem(press.item());
}

void CGfxOutBarCtrl::dropItem(const ItemPress& press, const DragPoint& point) {
  const auto gap = dropGap(point, press.item());
  if (!gap) return;
  const BarMoveInfo move{press.item(), *gap};
  if (notify(BARN_ITEMMOVE, reinterpret_cast<LPARAM>(&move)) == 0) return;
  folders_.folder(view_.currentFolder).moveItem(move.source, move.target);
}

void CGfxOutBarCtrl::invalidateSelection() {
  if ((flags_ & BARF_SELECTFRAME) == 0 || selectedItem_ < 0) return;
  CRect icon = layout().GetItemIconRect(view_.currentFolder, selectedItem_);
  icon.InflateRect(1, 1);
  InvalidateRect(icon);
}

void CGfxOutBarCtrl::clickItem(int index) {
  if (itemInterval_ > 0 && index != selectedItem_ && selectedItem_ >= 0) {
    DrawItemOffset(0, 0, selectedItem_);  // at rest
  }
  invalidateSelection();
  selectedItem_ = index;
  invalidateSelection();
  notify(BARN_ITEMCLICK, index);
}

// --- an arrow ---

CGfxOutBarCtrl::Arrow CGfxOutBarCtrl::arrow(BarHit code) {
  if (code == BarHit::UpArrow) {
    return {code, view_.upShown, upPressed_, view_.up, DFCS_SCROLLUP, DFCS_SCROLLUP | DFCS_PUSHED};
  }
  return {code,       view_.downShown, downPressed_,
          view_.down, DFCS_SCROLLDOWN, DFCS_SCROLLDOWN | DFCS_PUSHED};
}

void CGfxOutBarCtrl::drawArrow(const Arrow& arrow, bool pushed) {
  CClientDC dc(this);
  dc.DrawFrameControl(&arrow.rect, DFC_SCROLL, pushed ? arrow.pushed : arrow.normal);
}

bool CGfxOutBarCtrl::scroll(BarHit code) {
  const BarLayout layout = this->layout();
  const auto bottom = layout.GetInsideRect().bottom;
  const int count = openFolder() ? openFolder()->GetItemCount() : 0;
  const auto last =
      count > 0 ? layout.GetItemCellRect(view_.currentFolder, count - 1).bottom : bottom;
  const auto first =
      scrolled(code, view_.firstItem, static_cast<int>(last), static_cast<int>(bottom));
  if (!first) return false;
  view_.firstItem = *first;
  InvalidateRect(inside());
  return true;
}

void CGfxOutBarCtrl::pressArrow(BarHit code) {
  const HWND window = m_hWnd;
  MouseLoop loop(window);
  if (!loop.begun()) return;
  const Arrow arrow = this->arrow(code);
  HeldButton held;
  drawArrow(arrow, true);
  SetTimer(kArrowTimer, kArrowPeriod);
  const bool clicked = trackArrow(loop, arrow, held);
  if (!::IsWindow(window)) return;
  if (held.pressed()) drawArrow(arrow, false);
  if (clicked) scroll(code);
  KillTimer(kArrowTimer);
  arrow.shown = arrow.pressed = false;
  InvalidateRect(inside());
}

// True when the button was released on the arrow; false elsewhere, and when the list came to its
// end or the capture went.
bool CGfxOutBarCtrl::trackArrow(MouseLoop& loop, const Arrow& arrow, HeldButton& held) {
  MSG message;
  while (loop.next(message)) {
    const bool tick =
        message.message == WM_TIMER && message.wParam == kArrowTimer && message.hwnd == m_hWnd;
    const bool swallowed = message.message == WM_KEYDOWN && message.wParam != VK_ESCAPE;
    if (message.message == WM_LBUTTONUP) {
      return CRect(arrow.rect).PtInRect(CPoint(message.lParam)) != FALSE;
    }
    if (message.message == WM_MOUSEMOVE) {
      arrowMoved(arrow, held, CPoint(message.lParam));
    } else if (tick && held.pressed()) {
      if (!arrowTick(arrow, message.pt)) return false;
    } else if (!swallowed) {
      ::DispatchMessageW(&message);
    }
  }
  return false;
}

void CGfxOutBarCtrl::arrowMoved(const Arrow& arrow, HeldButton& held, CPoint point) {
  if (!held.moved(CRect(arrow.rect).PtInRect(point))) return;
  drawArrow(arrow, held.pressed());
  arrow.shown = arrow.pressed = held.pressed();
}

// False when that arrow has reached its end.
bool CGfxOutBarCtrl::arrowTick(const Arrow& arrow, CPoint screen) {
  ScreenToClient(&screen);
  arrow.pressed = CRect(arrow.rect).PtInRect(screen) != FALSE;
  return !arrow.pressed || scroll(arrow.code);
}

// --- the menu ---

void CGfxOutBarCtrl::OnRButtonDown(UINT flags, CPoint point) {
  const HWND window = m_hWnd;
  context_ = hitTest(point);
  CGfxPopupMenu menu;
  menu.CreatePopupMenu();
  for (const BarMenuEntry& entry : barMenuEntries(context_.code, context_.index, flags_)) {
    menu.AppendMenu(entry.command == 0 ? MF_SEPARATOR : MF_STRING, entry.command, entry.text);
  }
  menu.LoadMenuImages(IDB_MENU_IMAGES);  // without images the entries show their texts
  menu.RemapMenu(&menu);
  menu.UpdateMenuState(&menu, this);
  CPoint screen = point;
  ClientToScreen(&screen);
  menu.TrackPopupMenu(TPM_RIGHTBUTTON, screen.x, screen.y, this);
  menu.DestroyMenu();
  if (::IsWindow(window)) CWnd::OnRButtonDown(flags, point);
}

#include "controls/windows/gfx_group_edit.h"

#include "controls/label_edit_box.h"
#include "controls/windows/gdi_scope.h"
#include "platform/framework_window_dc.h"

BEGIN_MESSAGE_MAP(CGfxGroupEdit, CEdit)
ON_WM_CREATE()
ON_WM_CHAR()
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

int CGfxGroupEdit::OnCreate(CREATESTRUCTW* create) {
  if (CEdit::OnCreate(create) == -1) return -1;
  SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)), TRUE);
  return 0;
}

// Whatever the message is: one that carries these numbers closes the box, and it is meant.
BOOL CGfxGroupEdit::PreTranslateMessage(MSG* message) {
  if (message->wParam != VK_RETURN && message->wParam != VK_ESCAPE) {
    return CEdit::PreTranslateMessage(message);
  }
  if (message->wParam == VK_ESCAPE) cancelled_ = true;
  PostMessage(WM_CLOSE);
  return TRUE;
}

void CGfxGroupEdit::OnChar(UINT key, UINT repeat, UINT flags) {
  if (notification == BARN_FOLDERRENAME) return CEdit::OnChar(key, repeat, flags);
  if (key == VK_ESCAPE || key == VK_RETURN) {
    if (key == VK_ESCAPE) cancelled_ = true;
    if (CWnd* parent = GetParent()) parent->SetFocus();
    return;
  }
  CEdit::OnChar(key, repeat, flags);
  grow();
}

void CGfxGroupEdit::grow() {
  CWnd* parent = GetParent();
  CRect box;
  GetClientRect(box);
  ClientToScreen(static_cast<RECT*>(box));
  parent->ScreenToClient(static_cast<RECT*>(box));
  CRect within;
  parent->GetClientRect(within);
  CString now;
  GetWindowText(now);
  CWindowDC dc(this);
  // The bar has no font of its own; the context's then measures.
  const SelectedObject font(dc, reinterpret_cast<HGDIOBJ>(parent->SendMessage(WM_GETFONT)));
  CRect measured = box;
  measured.bottom = measured.top;
  if (noWrap_) {
    dc.DrawText(now, measured, DT_CALCRECT);
    const RECT grown = lineBox(box, within, measured.Width());
    MoveWindow(&grown);
    return;
  }
  dc.DrawText(now, measured, DT_CALCRECT | DT_WORDBREAK | DT_CENTER);
  const auto grown = wrappedBox(box, within, {measured.Width(), measured.Height()});
  if (grown) MoveWindow(&*grown);
}

void CGfxGroupEdit::OnKillFocus(CWnd* next) {
  CEdit::OnKillFocus(next);
  PostMessage(WM_CLOSE);
  if (cancelled_) return;
  GetWindowText(text);
  if (text.IsEmpty()) return;
  GetOwner()->SendMessage(BARM_NOTIFY, notification, reinterpret_cast<LPARAM>(this));
}

void CGfxGroupEdit::PostNcDestroy() {
  CEdit::PostNcDestroy();
  delete this;
}

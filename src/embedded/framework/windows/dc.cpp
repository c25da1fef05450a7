// Device contexts: handle, state, co-ordinates, clipping. Drawing stands in dc_drawing.cpp.
#include "embedded/framework/windows/handle_map.h"
#include "embedded/framework/windows/temporary.h"
#include "platform/framework_dc.h"

namespace {

framework::HandleMap<CDC, HDC>& contexts() {
  static framework::HandleMap<CDC, HDC> map;
  [[maybe_unused]] static const bool registered = framework::addTemporaryKind(
      [] { contexts().deleteTemporary([](CDC& dc) { dc.m_hDC = nullptr; }); });
  return map;
}

}  // namespace

IMPLEMENT_DYNCREATE(CDC, CObject)

CDC::~CDC() { CDC::Release(); }

void CDC::Release() { DeleteDC(); }

BOOL CDC::Attach(HDC dc) {
  if (!dc || m_hDC) return FALSE;
  m_hDC = dc;
  contexts().add(dc, this);
  return TRUE;
}

HDC CDC::Detach() {
  const HDC dc = m_hDC;
  if (dc) contexts().remove(dc);
  m_hDC = nullptr;
  return dc;
}

BOOL CDC::CreateCompatibleDC(CDC* dc) {
  return Attach(::CreateCompatibleDC(dc ? dc->m_hDC : nullptr));
}

BOOL CDC::DeleteDC() {
  const HDC dc = Detach();
  return dc ? ::DeleteDC(dc) : FALSE;
}

CDC* CDC::FromHandle(HDC dc) {
  return contexts().find<CDC>(dc, [](CDC& object, HDC assigned) { object.m_hDC = assigned; });
}

int CDC::GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hDC, index); }

// --- state ---

int CDC::SaveDC() { return ::SaveDC(m_hDC); }
BOOL CDC::RestoreDC(int saved) { return ::RestoreDC(m_hDC, saved); }

CPen* CDC::SelectObject(CPen* pen) {
  return CPen::FromHandle(static_cast<HPEN>(::SelectObject(m_hDC, pen->m_hObject)));
}
CBrush* CDC::SelectObject(CBrush* brush) {
  return CBrush::FromHandle(static_cast<HBRUSH>(::SelectObject(m_hDC, brush->m_hObject)));
}
CFont* CDC::SelectObject(CFont* font) {
  return CFont::FromHandle(static_cast<HFONT>(::SelectObject(m_hDC, font->m_hObject)));
}
CBitmap* CDC::SelectObject(CBitmap* bitmap) {
  return CBitmap::FromHandle(static_cast<HBITMAP>(::SelectObject(m_hDC, bitmap->m_hObject)));
}
int CDC::SelectObject(CRgn* region) { return SelectClipRgn(region); }
CGdiObject* CDC::SelectStockObject(int index) {
  return CGdiObject::FromHandle(::SelectObject(m_hDC, ::GetStockObject(index)));
}

COLORREF CDC::SetTextColor(COLORREF colour) { return ::SetTextColor(m_hDC, colour); }
COLORREF CDC::GetTextColor() const { return ::GetTextColor(m_hDC); }
COLORREF CDC::SetBkColor(COLORREF colour) { return ::SetBkColor(m_hDC, colour); }
COLORREF CDC::GetBkColor() const { return ::GetBkColor(m_hDC); }
int CDC::SetBkMode(int mode) { return ::SetBkMode(m_hDC, mode); }
int CDC::GetBkMode() const { return ::GetBkMode(m_hDC); }
int CDC::SetROP2(int mode) { return ::SetROP2(m_hDC, mode); }
UINT CDC::SetTextAlign(UINT flags) { return ::SetTextAlign(m_hDC, flags); }
int CDC::SetStretchBltMode(int mode) { return ::SetStretchBltMode(m_hDC, mode); }

// --- co-ordinates ---

int CDC::SetMapMode(int mode) { return ::SetMapMode(m_hDC, mode); }
POINT CDC::SetViewportOrg(int x, int y) {
  POINT old{};
  ::SetViewportOrgEx(m_hDC, x, y, &old);
  return old;
}
POINT CDC::GetViewportOrg() const {
  POINT origin{};
  ::GetViewportOrgEx(m_hDC, &origin);
  return origin;
}
POINT CDC::SetWindowOrg(int x, int y) {
  POINT old{};
  ::SetWindowOrgEx(m_hDC, x, y, &old);
  return old;
}
void CDC::DPtoLP(POINT* points, int count) const { ::DPtoLP(m_hDC, points, count); }
void CDC::LPtoDP(POINT* points, int count) const { ::LPtoDP(m_hDC, points, count); }

// --- clipping ---

int CDC::GetClipBox(RECT* rect) const { return ::GetClipBox(m_hDC, rect); }
int CDC::SelectClipRgn(CRgn* region) {
  return ::SelectClipRgn(m_hDC, region ? static_cast<HRGN>(*region) : nullptr);
}
int CDC::ExcludeClipRect(const RECT* rect) {
  return ::ExcludeClipRect(m_hDC, rect->left, rect->top, rect->right, rect->bottom);
}
int CDC::IntersectClipRect(const RECT* rect) {
  return ::IntersectClipRect(m_hDC, rect->left, rect->top, rect->right, rect->bottom);
}
BOOL CDC::RectVisible(const RECT* rect) const { return ::RectVisible(m_hDC, rect); }

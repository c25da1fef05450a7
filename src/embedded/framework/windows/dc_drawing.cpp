// Drawing on device contexts.
#include "platform/framework_dc.h"

namespace {

HBRUSH handleOf(const CBrush* brush) { return brush ? static_cast<HBRUSH>(*brush) : nullptr; }

}  // namespace

// --- lines and areas ---

POINT CDC::MoveTo(int x, int y) {
  POINT old{};
  ::MoveToEx(m_hDC, x, y, &old);
  return old;
}
BOOL CDC::LineTo(int x, int y) { return ::LineTo(m_hDC, x, y); }
BOOL CDC::Polyline(const POINT* points, int count) { return ::Polyline(m_hDC, points, count); }
BOOL CDC::PolyPolyline(const POINT* points, const DWORD* counts, int lines) {
  return ::PolyPolyline(m_hDC, points, counts, static_cast<DWORD>(lines));
}
BOOL CDC::Polygon(const POINT* points, int count) { return ::Polygon(m_hDC, points, count); }
BOOL CDC::Rectangle(const RECT* rect) {
  return ::Rectangle(m_hDC, rect->left, rect->top, rect->right, rect->bottom);
}
BOOL CDC::Ellipse(const RECT* rect) {
  return ::Ellipse(m_hDC, rect->left, rect->top, rect->right, rect->bottom);
}
void CDC::FillRect(const RECT* rect, CBrush* brush) { ::FillRect(m_hDC, rect, handleOf(brush)); }
void CDC::FrameRect(const RECT* rect, CBrush* brush) { ::FrameRect(m_hDC, rect, handleOf(brush)); }
void CDC::InvertRect(const RECT* rect) { ::InvertRect(m_hDC, rect); }

void CDC::FillSolidRect(const RECT* rect, COLORREF colour) {
  const COLORREF old = SetBkColor(colour);
  ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, rect, nullptr, 0, nullptr);
  SetBkColor(old);
}
void CDC::FillSolidRect(int x, int y, int width, int height, COLORREF colour) {
  const RECT rect = {x, y, x + width, y + height};
  FillSolidRect(&rect, colour);
}

void CDC::Draw3dRect(int x, int y, int width, int height, COLORREF topLeft, COLORREF bottomRight) {
  FillSolidRect(x, y, width - 1, 1, topLeft);
  FillSolidRect(x, y, 1, height - 1, topLeft);
  FillSolidRect(x + width - 1, y, 1, height, bottomRight);
  FillSolidRect(x, y + height - 1, width, 1, bottomRight);
}
void CDC::Draw3dRect(const RECT* rect, COLORREF topLeft, COLORREF bottomRight) {
  Draw3dRect(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, topLeft,
             bottomRight);
}

BOOL CDC::DrawEdge(const RECT* rect, UINT edge, UINT flags) {
  RECT changed = *rect;
  return ::DrawEdge(m_hDC, &changed, edge, flags);
}
BOOL CDC::DrawFrameControl(const RECT* rect, UINT type, UINT state) {
  RECT changed = *rect;
  return ::DrawFrameControl(m_hDC, &changed, type, state);
}
void CDC::DrawFocusRect(const RECT* rect) { ::DrawFocusRect(m_hDC, rect); }

// --- pixels ---

BOOL CDC::PatBlt(int x, int y, int width, int height, DWORD operation) {
  return ::PatBlt(m_hDC, x, y, width, height, operation);
}
BOOL CDC::BitBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY,
                 DWORD operation) {
  return ::BitBlt(m_hDC, x, y, width, height, source->m_hDC, sourceX, sourceY, operation);
}
BOOL CDC::StretchBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY,
                     int sourceWidth, int sourceHeight, DWORD operation) {
  return ::StretchBlt(m_hDC, x, y, width, height, source->m_hDC, sourceX, sourceY, sourceWidth,
                      sourceHeight, operation);
}
COLORREF CDC::GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
COLORREF CDC::SetPixel(int x, int y, COLORREF colour) { return ::SetPixel(m_hDC, x, y, colour); }

// --- text ---

BOOL CDC::TextOut(int x, int y, const CString& text) {
  return ::TextOutW(m_hDC, x, y, text, text.GetLength());
}
int CDC::DrawText(const CString& text, RECT* rect, UINT format) {
  return ::DrawTextW(m_hDC, text, text.GetLength(), rect, format);
}
SIZE CDC::GetTextExtent(const CString& text) const {
  SIZE size{};
  ::GetTextExtentPoint32W(m_hDC, text, text.GetLength(), &size);
  return size;
}
BOOL CDC::GetTextMetrics(TEXTMETRICW* metrics) const { return ::GetTextMetricsW(m_hDC, metrics); }

#include "programs/desktop/windows/drawing_view.h"

#include "platform/framework_frame.h"
#include "platform/framework_window_dc.h"

BEGIN_MESSAGE_MAP(DrawingView, CView)
ON_WM_ERASEBKGND()
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_WM_SETCURSOR()
ON_WM_MOUSEMOVE()
ON_MESSAGE(WM_MOUSELEAVE, OnMouseLeave)
ON_WM_LBUTTONDOWN()
ON_WM_RBUTTONDOWN()
ON_WM_MBUTTONDOWN()
ON_WM_MBUTTONUP()
ON_WM_MBUTTONDBLCLK()
ON_WM_MOUSEWHEEL()
ON_WM_CAPTURECHANGED()
END_MESSAGE_MAP()

namespace {

desktop::Pixel pixelOf(const POINT& point) { return {point.x, point.y}; }

}  // namespace

DrawingView::~DrawingView() {
  if (stock_) ::SelectObject(memory_.m_hDC, stock_);
  if (bitmap_) ::DeleteObject(bitmap_);
}

// Pixels that the overlay draws into and the system shows.
bool DrawingView::MakeBitmap(int width, int height) {
  if (!memory_.m_hDC && !memory_.CreateCompatibleDC(nullptr)) return false;
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* pixels = nullptr;
  const HBITMAP made =
      ::CreateDIBSection(memory_.m_hDC, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
  if (!made) return false;
  const HGDIOBJ before = ::SelectObject(memory_.m_hDC, made);
  if (!stock_) stock_ = before;
  if (bitmap_) ::DeleteObject(bitmap_);
  bitmap_ = made;
  overlay_.setMemory(static_cast<std::uint32_t*>(pixels), width, height);
  return true;
}

void DrawingView::OnSize(UINT, int width, int height) {
  if (width < 1 || height < 1) return;
  desktop_.screen.resize(width, height);
  if (!MakeBitmap(width, height)) return;
  desktop_.refreshScreen();
  ::GdiFlush();
  overlay_.redraw(desktop_.screen.bitmap(), desktop_.pointer.overlay());
  Invalidate(FALSE);
}

void DrawingView::Refresh() {
  if (!bitmap_) return;
  const bool redrawn = desktop_.refreshScreen();
  ::GdiFlush();  // the system may still be reading
  if (redrawn) {
    overlay_.redraw(desktop_.screen.bitmap(), desktop_.pointer.overlay());
    Invalidate(FALSE);
    UpdateWindow();
  } else {
    ShowParts(overlay_.replace(desktop_.screen.bitmap(), desktop_.pointer.overlay()));
  }
}

void DrawingView::ShowParts(const std::vector<desktop::PixelRect>& parts) {
  if (parts.empty()) return;
  CClientDC dc(this);
  for (const desktop::PixelRect& part : parts) {
    dc.BitBlt(part.left, part.top, part.right - part.left, part.bottom - part.top, &memory_,
              part.left, part.top, SRCCOPY);
  }
}

void DrawingView::OnDraw(CDC* dc) {
  CRect area;
  GetClientRect(area);
  dc->BitBlt(0, 0, area.right, area.bottom, &memory_, 0, 0, SRCCOPY);
}

// --- input

// Keys are the command line's.
void DrawingView::OnSetFocus(CWnd*) { GetParentFrame()->SetFocus(); }

BOOL DrawingView::OnSetCursor(CWnd*, UINT hit, UINT) {
  if (hit != HTCLIENT) return static_cast<BOOL>(Default());
  ::SetCursor(nullptr);  // the crosshair stands for it
  return TRUE;
}

void DrawingView::OnMouseMove(UINT, CPoint point) {
  if (!tracksLeaving_) {
    TRACKMOUSEEVENT leaving = {sizeof leaving, TME_LEAVE, m_hWnd, 0};
    tracksLeaving_ = ::TrackMouseEvent(&leaving) != 0;
  }
  desktop_.pointer.moveTo(pixelOf(point));
  Refresh();
}

LRESULT DrawingView::OnMouseLeave(WPARAM, LPARAM) {
  tracksLeaving_ = false;
  desktop_.pointer.leave();
  Refresh();
  return 0;
}

void DrawingView::OnLButtonDown(UINT, CPoint point) { desktop_.pointer.leftClick(pixelOf(point)); }

// As Enter.
void DrawingView::OnRButtonDown(UINT, CPoint) {
  if (!desktop_.session.line.hasInput()) desktop_.session.line.type("\n");
}

void DrawingView::OnMButtonDown(UINT, CPoint point) {
  SetCapture();
  desktop_.pointer.startPan(pixelOf(point));
}

void DrawingView::OnMButtonUp(UINT, CPoint) {
  if (desktop_.pointer.panning()) ::ReleaseCapture();
}

void DrawingView::OnMButtonDblClk(UINT, CPoint) {
  desktop_.pointer.endPan();
  constexpr double kMargin = 1.02;
  desktop_.session.view.showBox(desktop_.session.index().extents(), kMargin);
}

BOOL DrawingView::OnMouseWheel(UINT, short delta, CPoint point) {
  ScreenToClient(&point);
  desktop_.pointer.wheel(pixelOf(point), delta / static_cast<double>(WHEEL_DELTA));
  return TRUE;
}

void DrawingView::OnCaptureChanged(CWnd*) { desktop_.pointer.endPan(); }

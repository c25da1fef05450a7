#include "library_window/windows/slide_preview.h"

#include <vector>

#include "library_window/grid_layout.h"
#include "platform/framework_resources.h"
#include "platform/framework_window_dc.h"
#include "platform/slide_store.h"

IMPLEMENT_DYNAMIC(CZhlkSldWnd, CFrameWnd)

BEGIN_MESSAGE_MAP(CZhlkSldWnd, CFrameWnd)
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_WM_NCLBUTTONDOWN()
ON_WM_NCLBUTTONUP()
ON_WM_NCRBUTTONDOWN()
ON_WM_NCRBUTTONUP()
END_MESSAGE_MAP()

int CZhlkSldWnd::CreatePreview(DWORD style, CWnd* view) {
  CRect over;
  view->GetParentFrame()->GetWindowRect(over);
  const wchar_t* windowClass =
      AfxRegisterWndClass(CS_VREDRAW | CS_HREDRAW | CS_PARENTDC, nullptr,
                          static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
  // A preview without a window has deleted itself.
  if (Create(windowClass, slideName, style, over, view)) ShowWindow(SW_SHOW);
  return 0;
}

// The preview reads the library's file for itself and leaves the store's reader alone.
void CZhlkSldWnd::OnPaint() {
  CPaintDC dc(this);
  CSlbMan library;
  CGraph graph;
  graph.dc = &dc;
  library.OnOpenDocument(libraryPath);
  CRect client;
  GetClientRect(client);
  const std::uint32_t size = library.GetSlideSize(slideName);
  std::vector<char> bytes(size);
  if (size == 0 || !library.GetSlideData(slideName, bytes.data())) return;
  const RECT box = previewBox({client.Width(), client.Height()});
  graph.Draw(bytes.data(), size, box.right - box.left, box.bottom - box.top, box.left, box.top, 0,
             0);
}

void CZhlkSldWnd::OnLButtonDown(UINT, CPoint) {
  Default();
  DestroyWindow();
}
void CZhlkSldWnd::OnLButtonUp(UINT, CPoint) {
  Default();
  DestroyWindow();
}
void CZhlkSldWnd::OnRButtonDown(UINT, CPoint) {
  Default();
  DestroyWindow();
}
void CZhlkSldWnd::OnRButtonUp(UINT, CPoint) {
  Default();
  DestroyWindow();
}

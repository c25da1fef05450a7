// The slide from one open folder to another.
#include "controls/folder_slide.h"
#include "controls/pause.h"
#include "controls/windows/gdi_scope.h"
#include "controls/windows/gfx_out_bar_ctrl.h"
#include "platform/framework_window_dc.h"

// The folder's list or child window, from that row of the picture on.
void CGfxOutBarCtrl::paintContents(CDC& dc, int folder, const RECT& inside, int top) {
  const SavedContext saved(dc);
  CWnd* child = GetFolderChild(folder);
  if (!child) {
    dc.SetViewportOrg(-inside.left, top - inside.top);
    DrawFolderItems(dc, folder, inside);
    return;
  }
  dc.SetViewportOrg(0, top);
  const bool hidden = !child->IsWindowVisible();
  child->ShowWindow(SW_SHOW);
  const auto context = reinterpret_cast<WPARAM>(dc.GetSafeHdc());
  child->SendMessage(WM_ERASEBKGND, context);
  child->SendMessage(WM_PAINT, context);
  if (hidden) child->ShowWindow(SW_HIDE);
}

// Blocks the thread on purpose: nothing else may repaint the bar meanwhile.
void CGfxOutBarCtrl::AnimateFolderChange(int from, int to) {
  const BarLayout layout = this->layout();
  const CRect inside = layout.GetInsideRect();
  CRect header;
  if (!layout.GetFolderRect(from, *header) || inside.Width() <= 0 || inside.Height() <= 0) return;
  const int high = header.Height();
  CClientDC dc(this);
  MemoryPicture closing(dc, inside.Width(), inside.Height() + 2 * high);
  MemoryPicture opening(dc, inside.Width(), inside.Height() + 2 * high);
  // The header travels with the folder that lies lower.
  const auto paint = [&](CDC& picture, int folder, bool withHeader) {
    picture.FillSolidRect(CRect(0, 0, inside.Width(), inside.Height() + 2 * high),
                          colours_.background);
    if (withHeader) DrawFolderHeader(picture, folder, CRect(0, 0, inside.Width(), high), false);
    paintContents(picture, folder, inside, withHeader ? high : 0);
  };
  paint(closing.dc, from, to <= from);
  paint(opening.dc, to, to > from);
  for (const SlideStep& step : folderSlide(layout, from, to)) {
    for (const SlideCopy& copy : step.copies) {
      if (copy.height <= 0) continue;
      dc.BitBlt(inside.left, copy.y, inside.Width(), copy.height,
                copy.second ? &opening.dc : &closing.dc, 0, copy.sourceRow, SRCCOPY);
    }
    ::GdiFlush();  // each step is to be seen
    pauseFor(folderDelay_);
  }
}

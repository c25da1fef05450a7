#include "controls/windows/screen_measure.h"

#include "controls/windows/gdi_scope.h"
#include "platform/framework_image_list.h"
#include "platform/framework_window_dc.h"

SIZE ScreenMeasure::icon(int folder, int image, bool smallView) const {
  const CImageList* list = folders_.GetFolderImageList(folder, smallView);
  IMAGEINFO info{};
  if (!list || !list->GetImageInfo(image, &info)) return {};
  return {info.rcImage.right - info.rcImage.left, info.rcImage.bottom - info.rcImage.top};
}

SIZE ScreenMeasure::line(const std::wstring& text) const {
  CClientDC dc(&bar_);
  const SelectedObject font(dc, ::GetStockObject(DEFAULT_GUI_FONT));
  return dc.GetTextExtent(CString(text));
}

SIZE ScreenMeasure::wrapped(const std::wstring& text, int width) const {
  CClientDC dc(&bar_);
  const SelectedObject font(dc, ::GetStockObject(DEFAULT_GUI_FONT));
  CRect rect(0, 0, width, 0);
  dc.DrawText(CString(text), rect, DT_CALCRECT | DT_WORDBREAK | DT_CENTER);
  return {rect.Width(), rect.Height()};
}

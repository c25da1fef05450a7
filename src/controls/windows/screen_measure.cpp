#include "controls/windows/screen_measure.h"

#include "platform/framework_image_list.h"
#include "platform/framework_window_dc.h"

SIZE ScreenMeasure::icon(int folder, int image, bool smallView) const {
  const CImageList* list = folders_.GetFolderImageList(folder, smallView);
  IMAGEINFO info{};
  if (!list || !list->GetImageInfo(image, &info)) return {};
  return {info.rcImage.right - info.rcImage.left, info.rcImage.bottom - info.rcImage.top};
}

CDC& ScreenMeasure::context() const {
  if (!context_.GetSafeHdc()) {
    CClientDC client(&bar_);
    context_.CreateCompatibleDC(&client);
    context_.SelectStockObject(DEFAULT_GUI_FONT);
  }
  return context_;
}

SIZE ScreenMeasure::line(const std::wstring& text) const {
  return context().GetTextExtent(CString(text));
}

SIZE ScreenMeasure::wrapped(const std::wstring& text, int width) const {
  CRect rect(0, 0, width, 0);
  context().DrawText(CString(text), rect, DT_CALCRECT | DT_WORDBREAK | DT_CENTER);
  return {rect.Width(), rect.Height()};
}

// CSlideLibraryData: slides as bitmaps for image lists.
#include <windows.h>

#include <memory>

#include "embedded/base/colour_table.h"
#include "embedded/slide_store/pixel_canvas.h"
#include "embedded/slide_store/slide.h"
#include "embedded/slide_store/slide_library_data.h"
#include "embedded/slide_store/slide_painter.h"
#include "platform/framework_gdi.h"

using slide_store::Pixels;

namespace {

constexpr int kLargestSide = 16384;

// In the screen's colours; null when the system has no room for it.
CBitmap* bitmapOf(const Pixels& pixels) {
  BITMAPINFO info{};
  info.bmiHeader = {
      sizeof(BITMAPINFOHEADER), pixels.width, -pixels.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HDC screen = ::GetDC(nullptr);
  const HBITMAP handle = ::CreateDIBitmap(screen, &info.bmiHeader, CBM_INIT, pixels.data.data(),
                                          &info, DIB_RGB_COLORS);
  ::ReleaseDC(nullptr, screen);
  auto bitmap = std::make_unique<CBitmap>();
  return handle && bitmap->Attach(handle) ? bitmap.release() : nullptr;
}

base::Rgb rgbOf(std::uint32_t colour) {
  return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

}  // namespace

CBitmap* CSlideLibraryData::MakeBitMapFromIndex(std::uint16_t index, int width, int height,
                                                std::uint32_t colour) {
  const std::string_view slide = state_->slide(index);
  const auto fits = [](int side) { return side >= 1 && side <= kLargestSide; };
  if (!fits(width) || !fits(height) || !slide_store::readSlideHeader(slide).ok()) return nullptr;
  Pixels pixels(width, height, rgbOf(colour));
  const auto canvas = slide_store::makePixelCanvas(pixels, 0, 0, width, height);
  const base::Box2 box{{0, 0}, {width - 1.0, height - 1.0}};
  static_cast<void>(slide_store::paintSlide(slide, box, {base::screenColour, 1}, *canvas));
  return bitmapOf(pixels);
}

// CSlideLibraryData: slides as bitmaps for image lists.
#include <memory>

#include "embedded/slide_store/slide_library_data.h"
#include "embedded/slide_store/windows/slide_on_dc.h"
#include "platform/framework_dc.h"

namespace {

constexpr int kLargestSide = 16384;

// A bitmap in the screen's colours; null when the system has no room for it.
std::unique_ptr<CBitmap> screenBitmap(int width, int height) {
  const HDC screen = ::GetDC(nullptr);
  const HBITMAP handle = ::CreateCompatibleBitmap(screen, width, height);
  ::ReleaseDC(nullptr, screen);
  auto bitmap = std::make_unique<CBitmap>();
  return handle && bitmap->Attach(handle) ? std::move(bitmap) : nullptr;
}

}  // namespace

CBitmap* CSlideLibraryData::MakeBitMapFromIndex(std::uint16_t index, int width, int height,
                                                std::uint32_t colour) {
  const std::string_view slide = state_->slide(index);
  const auto fits = [](int side) { return side >= 1 && side <= kLargestSide; };
  if (slide.empty() || !fits(width) || !fits(height)) return nullptr;
  std::unique_ptr<CBitmap> bitmap = screenBitmap(width, height);
  CDC memory;
  if (!bitmap || !memory.CreateCompatibleDC(nullptr)) return nullptr;
  CBitmap* const old = memory.SelectObject(bitmap.get());
  memory.FillSolidRect(0, 0, width, height, colour);
  const bool drawn = slide_store::drawSlide(memory.GetSafeHdc(), slide, 0, 0, width, height);
  memory.SelectObject(old);
  return drawn ? bitmap.release() : nullptr;
}

// Bitmaps through the system's device contexts, which know no smooth edges: the picture is drawn
// several times as large and each pixel is the mean of those that it stands for.
#include <windows.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "embedded/drafting/plot/bitmap_canvas.h"
#include "embedded/drafting/plot/png_file.h"

namespace drafting {
namespace {

using base::Point2;

constexpr int kFinest = 4;                  // drawn pixels to a side of one
constexpr double kMostDrawn = 128'000'000;  // drawn pixels in all, four bytes each
constexpr double kFarthest = 1 << 26;       // what the system's coordinates take

COLORREF systemColour(base::Rgb c) { return RGB(c.red, c.green, c.blue); }

int finenessOf(int width, int height) {
  const double pixels = static_cast<double>(width) * height;
  int fineness = kFinest;
  while (fineness > 1 && pixels * fineness * fineness > kMostDrawn) --fineness;
  return fineness;
}

class GdiBitmapCanvas : public BitmapCanvas {
 public:
  GdiBitmapCanvas(int width, int height, base::Rgb background)
      : width_(width), height_(height), fineness_(finenessOf(width, height)) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width * fineness_;
    info.bmiHeader.biHeight = -height * fineness_;  // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    dc_ = ::CreateCompatibleDC(nullptr);
    void* bits = nullptr;
    bitmap_ = ::CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap_) return;
    drawn_ = static_cast<const std::uint32_t*>(bits);
    old_ = ::SelectObject(dc_, bitmap_);
    ::SetPolyFillMode(dc_, WINDING);
    const RECT all{0, 0, width * fineness_, height * fineness_};
    ::SetDCBrushColor(dc_, systemColour(background));
    ::FillRect(dc_, &all, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
  }
  ~GdiBitmapCanvas() override {
    if (old_) ::SelectObject(dc_, old_);
    if (pen_) {
      ::SelectObject(dc_, ::GetStockObject(NULL_PEN));
      ::DeleteObject(pen_);
    }
    if (bitmap_) ::DeleteObject(bitmap_);
    if (dc_) ::DeleteDC(dc_);
  }
  GdiBitmapCanvas(const GdiBitmapCanvas&) = delete;
  GdiBitmapCanvas& operator=(const GdiBitmapCanvas&) = delete;

  bool ready() const { return drawn_ != nullptr; }

  void stroke(std::span<const Point2> points, base::Rgb colour, double width) override {
    if (points.empty()) return;
    choosePen(colour, width);
    toDrawn(points);
    if (places_.size() == 1) places_.push_back(places_[0]);
    ::Polyline(dc_, places_.data(), static_cast<int>(places_.size()));
  }

  void fill(std::span<const Point2> outline, base::Rgb colour) override {
    toDrawn(outline);
    ::SetDCBrushColor(dc_, systemColour(colour));
    const HGDIOBJ brush = ::SelectObject(dc_, ::GetStockObject(DC_BRUSH));
    const HGDIOBJ pen = ::SelectObject(dc_, ::GetStockObject(NULL_PEN));
    ::Polygon(dc_, places_.data(), static_cast<int>(places_.size()));
    ::SelectObject(dc_, pen);
    ::SelectObject(dc_, brush);
  }

  base::Result<std::string> finish() override {
    ::GdiFlush();
    std::vector<std::uint32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    for (int y = 0; y < height_; ++y) {
      for (int x = 0; x < width_; ++x) pixels.push_back(meanOf(x, y));
    }
    return makePng(width_, height_, pixels);
  }

 private:
  // Round ends and joints; a pen stays until another is asked for.
  void choosePen(base::Rgb colour, double width) {
    if (pen_ && colour == penColour_ && width == penWidth_) return;
    const LOGBRUSH brush{BS_SOLID, systemColour(colour), 0};
    const auto drawn = static_cast<DWORD>(std::max(1L, std::lround(width * fineness_)));
    const HPEN pen = ::ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                                    drawn, &brush, 0, nullptr);
    if (!pen) return;
    ::SelectObject(dc_, pen);
    if (pen_) ::DeleteObject(pen_);
    pen_ = pen;
    penColour_ = colour;
    penWidth_ = width;
  }

  void toDrawn(std::span<const Point2> points) {
    const auto place = [this](double v) {
      return static_cast<LONG>(std::lround(std::clamp(v * fineness_, -kFarthest, kFarthest)));
    };
    places_.resize(points.size());
    std::transform(points.begin(), points.end(), places_.begin(), [&](Point2 p) {
      return POINT{place(p.x), place(height_ - p.y)};
    });
  }

  std::uint32_t meanOf(int x, int y) const {
    std::uint32_t red = 0, green = 0, blue = 0;
    for (int i = 0; i < fineness_; ++i) {
      const std::size_t row = static_cast<std::size_t>(y * fineness_ + i) *
                              static_cast<std::size_t>(width_ * fineness_);
      const std::uint32_t* first = drawn_ + row + static_cast<std::size_t>(x * fineness_);
      for (int j = 0; j < fineness_; ++j) {
        red += first[j] >> 16 & 0xFF;
        green += first[j] >> 8 & 0xFF;
        blue += first[j] & 0xFF;
      }
    }
    const auto count = static_cast<std::uint32_t>(fineness_ * fineness_);
    return (red / count) << 16 | (green / count) << 8 | blue / count;
  }

  int width_, height_, fineness_;
  HDC dc_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ old_ = nullptr;
  const std::uint32_t* drawn_ = nullptr;
  HPEN pen_ = nullptr;
  base::Rgb penColour_;
  double penWidth_ = 0;
  std::vector<POINT> places_;
};

}  // namespace

base::Result<std::unique_ptr<BitmapCanvas>> BitmapCanvas::make(int width, int height,
                                                               base::Rgb background) {
  auto canvas = std::make_unique<GdiBitmapCanvas>(width, height, background);
  if (!canvas->ready()) return base::Status::failure("the system has no memory for a bitmap");
  return std::unique_ptr<BitmapCanvas>(std::move(canvas));
}

}  // namespace drafting

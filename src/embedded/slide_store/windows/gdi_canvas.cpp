#include "embedded/slide_store/windows/gdi_canvas.h"

#include <algorithm>
#include <cmath>

namespace slide_store {

namespace {

COLORREF systemColour(base::Rgb c) { return RGB(c.red, c.green, c.blue); }

}  // namespace

GdiCanvas::GdiCanvas(HDC dc, int left, int top, int width, int height)
    : dc_(dc), saved_(::SaveDC(dc)), left_(left), top_(top), high_(height - 1.0) {
  ::IntersectClipRect(dc_, left, top, left + width, top + height);
  ::SetROP2(dc_, R2_COPYPEN);
  ::SetPolyFillMode(dc_, WINDING);
  ::SelectObject(dc_, ::GetStockObject(DC_PEN));
  ::SelectObject(dc_, ::GetStockObject(DC_BRUSH));
}

GdiCanvas::~GdiCanvas() { ::RestoreDC(dc_, saved_); }

void GdiCanvas::toPixels(std::span<const base::Point2> points) {
  pixels_.resize(points.size());
  std::transform(points.begin(), points.end(), pixels_.begin(), [this](base::Point2 p) {
    return POINT{left_ + static_cast<LONG>(std::lround(p.x)),
                 top_ + static_cast<LONG>(std::lround(high_ - p.y))};
  });
}

// The system leaves a line's last pixel out.
void GdiCanvas::stroke(std::span<const base::Point2> points, base::Rgb colour, double) {
  if (points.empty()) return;
  toPixels(points);
  ::SetDCPenColor(dc_, systemColour(colour));
  ::Polyline(dc_, pixels_.data(), static_cast<int>(pixels_.size()));
  ::SetPixelV(dc_, pixels_.back().x, pixels_.back().y, systemColour(colour));
}

void GdiCanvas::fill(std::span<const base::Point2> outline, base::Rgb colour) {
  toPixels(outline);
  ::SetDCPenColor(dc_, systemColour(colour));
  ::SetDCBrushColor(dc_, systemColour(colour));
  ::Polygon(dc_, pixels_.data(), static_cast<int>(pixels_.size()));
}

}  // namespace slide_store

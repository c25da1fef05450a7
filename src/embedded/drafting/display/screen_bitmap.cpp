#include "embedded/drafting/display/screen_bitmap.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace drafting {
namespace {

std::uint32_t pixelOf(base::Rgb colour) {
  return static_cast<std::uint32_t>(colour.red) << 16 |
         static_cast<std::uint32_t>(colour.green) << 8 | colour.blue;
}

}  // namespace

ScreenBitmap::ScreenBitmap(int width, int height)
    : width_(std::max(width, 1)),
      height_(std::max(height, 1)),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

void ScreenBitmap::clear(base::Rgb colour) {
  std::fill(pixels_.begin(), pixels_.end(), pixelOf(colour));
}

base::Rgb ScreenBitmap::at(int x, int y) const {
  const std::uint32_t pixel = pixels_[placeOf(x, y)];
  return {static_cast<std::uint8_t>(pixel >> 16), static_cast<std::uint8_t>(pixel >> 8),
          static_cast<std::uint8_t>(pixel)};
}

void ScreenBitmap::stroke(std::span<const Point2> points, base::Rgb colour, double width) {
  constexpr double kWide = 2;
  if (points.empty()) return;
  colour_ = pixelOf(colour);
  if (points.size() == 1) return line(points[0], points[0]);
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (width >= kWide) {
      wideLine(points[i - 1], points[i], width);
    } else {
      line(points[i - 1], points[i]);
    }
  }
}

// To the bitmap's pixels, y upwards; false if nothing is left. What is no number is left out.
bool ScreenBitmap::clip(Point2& from, Point2& to) const {
  double start = 0, end = 1;
  const Point2 way = to - from;
  const auto cut = [&](double at, double step, double size) {
    if (step == 0) return at >= 0 && at < size;
    double low = -at / step, high = (size - 1e-6 - at) / step;
    if (low > high) std::swap(low, high);
    start = std::max(start, low);
    end = std::min(end, high);
    return start <= end;
  };
  if (!cut(from.x, way.x, width_) || !cut(from.y, way.y, height_)) return false;
  const Point2 first = from;
  from = first + way * start;
  to = first + way * end;
  // Ends far away leave nothing of the digits that count here.
  const auto tidy = [this](Point2& p) {
    p = {std::clamp(p.x, 0.0, width_ - 1e-6), std::clamp(p.y, 0.0, height_ - 1e-6)};
    return !std::isnan(p.x) && !std::isnan(p.y);
  };
  return tidy(from) && tidy(to);
}

void ScreenBitmap::line(Point2 from, Point2 to) {
  if (!clip(from, to)) return;
  const auto column = [this](double x) { return std::clamp(static_cast<int>(x), 0, width_ - 1); };
  const auto row = [this](double y) {
    return height_ - 1 - std::clamp(static_cast<int>(y), 0, height_ - 1);
  };
  int x = column(from.x), y = row(from.y);
  const int endX = column(to.x), endY = row(to.y);
  const int dx = std::abs(endX - x), dy = -std::abs(endY - y);
  const int stepX = x < endX ? 1 : -1, stepY = y < endY ? 1 : -1;
  for (int error = dx + dy;;) {
    put(x, y);
    if (x == endX && y == endY) return;
    const int twice = 2 * error;
    if (twice >= dy) {
      error += dy;
      x += stepX;
    }
    if (twice <= dx) {
      error += dx;
      y += stepY;
    }
  }
}

void ScreenBitmap::wideLine(Point2 from, Point2 to, double width) {
  const Point2 way = to - from;
  const double size = length(way);
  const Point2 along = size > 0 ? way * (width / 2 / size) : Point2{width / 2, 0};
  const Point2 aside{-along.y, along.x};
  const Point2 corners[] = {from - along + aside, to + along + aside, to + along - aside,
                            from - along - aside};
  const std::uint32_t colour = colour_;
  fill(corners, {static_cast<std::uint8_t>(colour >> 16), static_cast<std::uint8_t>(colour >> 8),
                 static_cast<std::uint8_t>(colour)});
}

void ScreenBitmap::span(int y, double left, double right) {
  const int from = static_cast<int>(std::clamp(std::ceil(left - 0.5), 0.0, width_ * 1.0));
  const int to = static_cast<int>(std::clamp(std::ceil(right - 0.5), 0.0, width_ * 1.0));
  const auto row = pixels_.begin() + static_cast<std::ptrdiff_t>(placeOf(0, height_ - 1 - y));
  std::fill(row + from, row + std::max(from, to), colour_);
}

// Line by line, through the middles of pixels. The outline is drawn too, so that nothing thin
// disappears.
void ScreenBitmap::fill(std::span<const Point2> outline, base::Rgb colour) {
  if (outline.empty()) return;
  colour_ = pixelOf(colour);
  base::Box2 box;
  for (const Point2 point : outline) box.add(point);
  for (std::size_t i = 0; i < outline.size(); ++i) {
    line(outline[i], outline[(i + 1) % outline.size()]);
  }
  if (!(box.height() > 1 && box.width() > 1)) return;
  const int first = static_cast<int>(std::clamp(std::floor(box.min.y), 0.0, height_ * 1.0));
  const int last = static_cast<int>(std::clamp(std::ceil(box.max.y), 0.0, height_ * 1.0));
  for (int y = first; y < last; ++y) {
    const double middle = y + 0.5;
    crossings_.clear();
    for (std::size_t i = 0; i < outline.size(); ++i) {
      const Point2 a = outline[i], b = outline[(i + 1) % outline.size()];
      if ((a.y <= middle) == (b.y <= middle)) continue;
      const double x = a.x + (b.x - a.x) * (middle - a.y) / (b.y - a.y);
      if (!std::isnan(x)) crossings_.push_back({x, a.y <= middle ? 1 : -1});
    }
    std::sort(crossings_.begin(), crossings_.end(),
              [](const Crossing& l, const Crossing& r) { return l.x < r.x; });
    int winding = 0;
    for (std::size_t i = 0; i + 1 < crossings_.size(); ++i) {
      winding += crossings_[i].winding;
      if (winding != 0) span(y, crossings_[i].x, crossings_[i + 1].x);
    }
  }
}

}  // namespace drafting

#include "programs/desktop/overlay.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace desktop {

void Overlay::setMemory(std::uint32_t* pixels, int width, int height) {
  pixels_ = pixels;
  width_ = width;
  height_ = height;
  lines_.clear();
}

void Overlay::redraw(const drafting::ScreenBitmap& picture, std::vector<OverlayLine> lines) {
  restore(picture, {0, 0, width_, height_});
  lines_ = std::move(lines);
  for (const OverlayLine& line : lines_) draw(line);
}

std::vector<PixelRect> Overlay::replace(const drafting::ScreenBitmap& picture,
                                        std::vector<OverlayLine> lines) {
  std::vector<PixelRect> strips;
  for (const OverlayLine& line : lines_) addStrips(line, strips);
  for (const PixelRect& strip : strips) restore(picture, strip);
  lines_ = std::move(lines);
  for (const OverlayLine& line : lines_) {
    addStrips(line, strips);
    draw(line);
  }
  return strips;
}

void Overlay::restore(const drafting::ScreenBitmap& picture, const PixelRect& part) {
  const int right = std::min(part.right, picture.width());
  const int bottom = std::min(part.bottom, picture.height());
  if (part.left >= right) return;
  for (int y = part.top; y < bottom; ++y) {
    const auto row = static_cast<std::size_t>(y);
    const std::uint32_t* from =
        picture.pixels().data() + row * static_cast<std::size_t>(picture.width()) + part.left;
    std::copy(from, from + (right - part.left),
              pixels_ + row * static_cast<std::size_t>(width_) + part.left);
  }
}

// Cuts the line to the area; false if nothing of it is left.
bool Overlay::clip(Point2& from, Point2& to) const {
  double first = 0, last = 1;
  const Point2 start = from, step = to - from;
  const auto cut = [&](double along, double room) {  // along * t <= room
    if (along == 0) return room >= 0;
    const double t = room / along;
    if (along < 0) first = std::max(first, t);
    if (along > 0) last = std::min(last, t);
    return first <= last;
  };
  if (!std::isfinite(step.x) || !std::isfinite(step.y)) return false;
  if (!cut(-step.x, start.x) || !cut(step.x, width_ - 1 - start.x)) return false;
  if (!cut(-step.y, start.y) || !cut(step.y, height_ - 1 - start.y)) return false;
  from = start + step * first;
  to = start + step * last;
  return true;
}

namespace {

int steps(Point2 from, Point2 to) {
  return static_cast<int>(std::lround(std::max(std::abs(to.x - from.x), std::abs(to.y - from.y))));
}

}  // namespace

void Overlay::draw(const OverlayLine& line) {
  constexpr int kDash = 4;  // pixels
  Point2 from = line.from, to = line.to;
  if (!clip(from, to)) return;
  const int count = steps(from, to);
  for (int i = 0; i <= count; ++i) {
    if (line.dashed && i / kDash % 2 == 1) continue;
    const Point2 at = count == 0 ? from : from + (to - from) * (i / static_cast<double>(count));
    const long x = std::clamp(std::lround(at.x), 0L, width_ - 1L);
    const long y = std::clamp(std::lround(at.y), 0L, height_ - 1L);
    pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
            static_cast<std::size_t>(x)] = line.colour;
  }
}

// Narrow pieces, so that a slanting line costs little more than its own pixels.
void Overlay::addStrips(const OverlayLine& line, std::vector<PixelRect>& strips) const {
  constexpr int kPiece = 32;  // pixels
  Point2 from = line.from, to = line.to;
  if (!clip(from, to)) return;
  const bool straight = std::abs(from.x - to.x) < 1 || std::abs(from.y - to.y) < 1;
  const int pieces = straight ? 1 : 1 + steps(from, to) / kPiece;
  for (int i = 0; i < pieces; ++i) {
    const Point2 a = from + (to - from) * (i / static_cast<double>(pieces));
    const Point2 b = from + (to - from) * ((i + 1) / static_cast<double>(pieces));
    const auto low = [](double u, double v) {
      return std::max(static_cast<int>(std::floor(std::min(u, v))), 0);
    };
    const auto high = [](double u, double v, int most) {
      return std::min(static_cast<int>(std::ceil(std::max(u, v))) + 1, most);
    };
    strips.push_back(
        {low(a.x, b.x), low(a.y, b.y), high(a.x, b.x, width_), high(a.y, b.y, height_)});
  }
}

void addRectangle(std::vector<OverlayLine>& lines, Point2 a, Point2 b, const OverlayLine& style) {
  const Point2 corners[] = {a, {b.x, a.y}, b, {a.x, b.y}, a};
  for (int i = 0; i < 4; ++i) {
    OverlayLine line = style;
    line.from = corners[i];
    line.to = corners[i + 1];
    lines.push_back(line);
  }
}

}  // namespace desktop

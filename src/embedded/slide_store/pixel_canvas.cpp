#include "embedded/slide_store/pixel_canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "embedded/slide_store/polygon.h"
#include "embedded/slide_store/slide.h"

namespace slide_store {

namespace {

constexpr double kFarthest = 1 << 22;  // what clipping takes

std::uint32_t packed(base::Rgb c) {
  return std::uint32_t{c.red} << 16 | std::uint32_t{c.green} << 8 | c.blue;
}

int whole(double v) {
  return static_cast<int>(std::floor(std::clamp(v, -kFarthest, kFarthest) + 0.5));
}

class PixelCanvas : public base::Canvas {
 public:
  PixelCanvas(Pixels& pixels, int left, int top, int width, int height)
      : pixels_(pixels),
        left_(std::max(left, 0)),
        top_(std::max(top, 0)),
        shift_{left - left_, top - top_},
        high_(height - 1.0),
        last_{std::min(left + width, pixels.width) - left_ - 1,
              std::min(top + height, pixels.height) - top_ - 1} {}

  void stroke(std::span<const base::Point2> points, base::Rgb colour, double width) override;
  void fill(std::span<const base::Point2> outline, base::Rgb colour) override;

 private:
  void toDots(std::span<const base::Point2> points);
  void line(SlidePoint from, SlidePoint to, std::uint32_t colour);
  void fillRow(int y, std::uint32_t colour);
  // `p` in pixels of the drawn part, y downwards.
  std::uint32_t& pixel(SlidePoint p) {
    return pixels_.data[pixels_.index(left_ + p.x, top_ + p.y)];
  }

  struct Crossing {
    double x;
    int winding;
  };
  Pixels& pixels_;
  int left_, top_;    // of the drawn part
  SlidePoint shift_;  // of the box's own corner against it
  double high_;       // of the box's highest pixel
  SlidePoint last_;   // lower right pixel of the drawn part
  std::vector<SlidePoint> dots_;
  std::vector<Crossing> crossings_;
};

void PixelCanvas::toDots(std::span<const base::Point2> points) {
  dots_.resize(points.size());
  std::transform(points.begin(), points.end(), dots_.begin(), [this](base::Point2 p) {
    return SlidePoint{whole(p.x) + shift_.x, whole(high_ - p.y) + shift_.y};
  });
}

void PixelCanvas::stroke(std::span<const base::Point2> points, base::Rgb colour, double) {
  toDots(points);
  if (dots_.size() == 1) dots_.push_back(dots_[0]);
  for (std::size_t i = 1; i < dots_.size(); ++i) line(dots_[i - 1], dots_[i], packed(colour));
}

// One pixel a step along the longer way, the other way carried in fractions.
void PixelCanvas::line(SlidePoint from, SlidePoint to, std::uint32_t colour) {
  if (last_.x < 0 || last_.y < 0 || !clipLine(from, to, last_)) return;
  const int dx = to.x - from.x;
  const int dy = to.y - from.y;
  const int steps = std::max(std::abs(dx), std::abs(dy));
  const bool flat = std::abs(dx) >= std::abs(dy);
  const int across = flat ? dy : dx;
  for (int i = 0; i <= steps; ++i) {
    // Rounded to the nearest; halves away from the start.
    const int off = steps == 0 ? 0 : (2 * std::abs(across) * i + steps) / (2 * steps);
    const int side = across < 0 ? -off : off;
    const int along = (flat ? dx : dy) < 0 ? -i : i;
    pixel(flat ? SlidePoint{from.x + along, from.y + side}
               : SlidePoint{from.x + side, from.y + along}) = colour;
  }
}

void PixelCanvas::fill(std::span<const base::Point2> outline, base::Rgb colour) {
  if (outline.empty()) return;
  toDots(outline);
  const auto [lowest, highest] = std::minmax_element(
      dots_.begin(), dots_.end(), [](SlidePoint a, SlidePoint b) { return a.y < b.y; });
  const int end = std::min(highest->y, last_.y);
  for (int y = std::max(lowest->y, 0); y <= end; ++y) fillRow(y, packed(colour));
  for (std::size_t i = 0; i < dots_.size(); ++i) {
    line(dots_[i], dots_[(i + 1) % dots_.size()], packed(colour));
  }
}

// What lies between crossings whose windings add up to something.
void PixelCanvas::fillRow(int y, std::uint32_t colour) {
  crossings_.clear();
  for (std::size_t i = 0; i < dots_.size(); ++i) {
    const SlidePoint a = dots_[i];
    const SlidePoint b = dots_[(i + 1) % dots_.size()];
    if ((a.y <= y) == (b.y <= y)) continue;
    const double x = a.x + static_cast<double>(y - a.y) * (b.x - a.x) / (b.y - a.y);
    crossings_.push_back({x, a.y <= y ? 1 : -1});
  }
  std::sort(crossings_.begin(), crossings_.end(),
            [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
  int winding = 0;
  for (std::size_t i = 0; i + 1 < crossings_.size(); ++i) {
    winding += crossings_[i].winding;
    if (winding == 0) continue;
    const int from = std::max(static_cast<int>(std::ceil(crossings_[i].x)), 0);
    const int to = std::min(static_cast<int>(std::floor(crossings_[i + 1].x)), last_.x);
    for (int x = from; x <= to; ++x) pixel({x, y}) = colour;
  }
}

}  // namespace

Pixels::Pixels(int width, int height, base::Rgb background)
    : width(width),
      height(height),
      data(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), packed(background)) {
}

std::unique_ptr<base::Canvas> makePixelCanvas(Pixels& pixels, int left, int top, int width,
                                              int height) {
  return std::make_unique<PixelCanvas>(pixels, left, top, width, height);
}

}  // namespace slide_store

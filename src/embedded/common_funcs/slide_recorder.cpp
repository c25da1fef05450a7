#include "embedded/common_funcs/slide_recorder.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "embedded/slide_store/slide_writer.h"

namespace common_funcs {

namespace {

using base::Box2;
using base::Point2;
using slide_store::SlidePoint;

constexpr double kCurveError = 0.2;    // dots
constexpr double kFarthest = 1 << 22;  // what the writer takes

// What lies half way between two dots goes up or right, whatever the last digits are: a vertical
// line stays one.
SlidePoint dot(Point2 p) {
  constexpr double kSlack = 1e-6;
  const auto whole = [](double v) {
    return static_cast<int>(std::floor(std::clamp(v, -kFarthest, kFarthest) + 0.5 + kSlack));
  };
  return {whole(p.x), whole(p.y)};
}

// The part of the line in the picture with a dot around it; what comes from far away keeps its
// direction.
std::optional<std::pair<Point2, Point2>> clipped(Point2 from, Point2 to, Point2 high) {
  double first = 0;
  double last = 1;
  const auto cut = [&](double start, double way, double most) {
    if (way == 0) return start >= -1 && start <= most + 1;
    const double a = (-1 - start) / way;
    const double b = (most + 1 - start) / way;
    first = std::max(first, std::min(a, b));
    last = std::min(last, std::max(a, b));
    return first <= last;
  };
  const Point2 way = to - from;
  if (!cut(from.x, way.x, high.x) || !cut(from.y, way.y, high.y)) return std::nullopt;
  return std::pair{from + way * first, from + way * last};
}

class Recorder {
 public:
  Recorder(const Box2& window, SlideSize size)
      : high_{size.width - 1.0, size.height - 1.0},
        map_(base::Affine2::scaling(high_.x / window.width(), high_.y / window.height()) *
             base::Affine2::translation({-window.min.x, -window.min.y})),
        writer_(size.width - 1, size.height - 1) {}

  void stroke(std::span<const Point2> points, std::uint8_t colour) {
    if (points.size() == 1) return segment(points[0], points[0], colour);
    bool drawn = false;
    for (std::size_t i = 1; i < points.size(); ++i) {
      // Pieces within one dot draw nothing of their own, save where all of the stroke is one.
      const Point2 from = map_(points[i - 1]);
      const Point2 to = map_(points[i]);
      if (dot(from) == dot(to) && (drawn || i + 1 < points.size())) continue;
      writeClipped(from, to, colour);
      drawn = true;
    }
  }

  void area(std::span<const Point2> outline, std::uint8_t colour) {
    std::vector<SlidePoint> corners(outline.size());
    std::transform(outline.begin(), outline.end(), corners.begin(),
                   [&](Point2 p) { return dot(map_(p)); });
    writer_.fill(corners, colour);
  }

  std::string finish() { return writer_.finish(); }

 private:
  void segment(Point2 from, Point2 to, std::uint8_t colour) {
    writeClipped(map_(from), map_(to), colour);
  }
  void writeClipped(Point2 from, Point2 to, std::uint8_t colour) {
    const auto inside = clipped(from, to, high_);
    if (inside) writer_.line(dot(inside->first), dot(inside->second), colour);
  }

  Point2 high_;
  base::Affine2 map_;
  slide_store::SlideWriter writer_;
};

}  // namespace

Box2 windowAround(const Box2& extents, SlideSize size, double part) {
  const Point2 high{size.width - 1.0, size.height - 1.0};
  const Point2 middle = extents.empty() ? Point2{} : extents.centre();
  const double tighter = std::max(extents.width() / high.x, extents.height() / high.y);
  const double unitsPerDot = tighter > 0 ? tighter / part : 1;
  const Point2 half = high * (unitsPerDot / 2);
  Box2 window;
  window.add(middle - half);
  window.add(middle + half);
  return window;
}

std::string recordSlide(const drafting::Database& database, const Box2& window, SlideSize size,
                        const drafting::TextFont* font) {
  drafting::DisplayOptions options;
  options.font = font;
  options.tolerance = kCurveError * std::min(window.width() / (size.width - 1),
                                             window.height() / (size.height - 1));
  const auto list = drafting::DisplayList::of(database, options);
  Recorder recorder(window, size);
  for (const auto& item : list.items()) {
    const auto colour = static_cast<std::uint8_t>(item.colour);
    if (item.kind == drafting::DisplayList::Kind::Stroke) {
      recorder.stroke(list.points(item), colour);
    } else if (item.kind == drafting::DisplayList::Kind::Area) {
      recorder.area(list.points(item), colour);
    }
  }
  return recorder.finish();
}

}  // namespace common_funcs

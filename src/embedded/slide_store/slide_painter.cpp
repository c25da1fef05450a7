#include "embedded/slide_store/slide_painter.h"

#include <algorithm>
#include <vector>

#include "embedded/slide_store/slide.h"

namespace slide_store {

namespace {

using base::Point2;

// Lines that follow each other become one stroke, so that their joints are joined.
class Painter : public SlideVisitor {
 public:
  Painter(const SlideHeader& header, const base::Box2& box, const SlidePaint& paint,
          base::Canvas& canvas)
      : map_(base::Affine2::translation(box.min) *
             base::Affine2::scaling(box.width() / std::max(header.highX, 1),
                                    box.height() / std::max(header.highY, 1))),
        paint_(paint),
        canvas_(canvas) {}

  void line(SlidePoint from, SlidePoint to, std::uint8_t colour) override {
    if (path_.empty() || colour != colour_ || (from != end_ && to != end_)) {
      flush();
      colour_ = colour;
      path_.push_back(mapped(from));
    } else if (to == end_) {
      std::swap(from, to);
    }
    end_ = to;
    path_.push_back(mapped(to));
  }

  void fill(std::span<const SlidePoint> corners, std::uint8_t colour) override {
    flush();
    std::vector<Point2> outline(corners.size());
    std::transform(corners.begin(), corners.end(), outline.begin(),
                   [this](SlidePoint p) { return mapped(p); });
    canvas_.fill(outline, paint_.colours(colour));
  }

  void flush() {
    if (!path_.empty()) canvas_.stroke(path_, paint_.colours(colour_), paint_.penWidth);
    path_.clear();
  }

 private:
  Point2 mapped(SlidePoint p) const {
    return map_({static_cast<double>(p.x), static_cast<double>(p.y)});
  }

  base::Affine2 map_;
  const SlidePaint& paint_;
  base::Canvas& canvas_;
  std::vector<Point2> path_;
  SlidePoint end_;
  std::uint8_t colour_ = 0;
};

}  // namespace

base::Status paintSlide(std::string_view slide, const base::Box2& box, const SlidePaint& paint,
                        base::Canvas& canvas) {
  const auto header = readSlideHeader(slide);
  if (!header.ok()) return header.status();
  Painter painter(*header, box, paint, canvas);
  const auto read = readSlideRecords(slide, *header, painter);
  painter.flush();
  return read.ok() ? base::Status() : read.status();
}

base::Box2 proportionalBox(std::string_view slide, const base::Box2& box) {
  const auto header = readSlideHeader(slide);
  if (!header.ok() || !(header->aspect > 0)) return box;
  const double width = std::min(box.width(), box.height() * header->aspect);
  const Point2 half = Point2{width, width / header->aspect} * 0.5;
  base::Box2 inner;
  inner.add(box.centre() - half);
  inner.add(box.centre() + half);
  return inner;
}

}  // namespace slide_store

#include "embedded/drafting/dxf/polyline_parts.h"

#include <algorithm>

namespace drafting {

PolylineParts::PolylineParts(std::unique_ptr<LwPolyline> line, GroupSection groups)
    : line_(std::move(line)) {
  constexpr int kInSpaceOrMesh = 8 | 16 | 64;
  groups.enter("AcDb2dPolyline");
  const int flags = groups.integer(70, 0);
  isFlat_ = (flags & kInSpaceOrMesh) == 0;
  line_->closed = (flags & 1) != 0;
  line_->continuousPattern = (flags & 128) != 0;
  line_->elevation = groups.point(10, {}).z;
  line_->thickness = groups.real(39, 0);
  line_->normal = groups.point(210, kZAxis);
  usual_ = {groups.real(40, 0), groups.real(41, 0)};
}

void PolylineParts::addVertex(GroupSection groups) {
  constexpr int kSplineFrame = 16;
  groups.enter("AcDb2dVertex");
  if ((groups.integer(70, 0) & kSplineFrame) != 0) return;
  const Point3 point = groups.point(10, {});
  line_->points.push_back({point.x, point.y});
  line_->bulges.push_back(groups.real(42, 0));
  line_->widths.push_back({groups.real(40, usual_.start), groups.real(41, usual_.end)});
}

// One width for all becomes the constant width.
std::unique_ptr<LwPolyline> PolylineParts::finish() {
  const auto straight = [](double bulge) { return bulge == 0; };
  if (std::all_of(line_->bulges.begin(), line_->bulges.end(), straight)) line_->bulges.clear();
  const double first = line_->widths.empty() ? 0 : line_->widths.front().start;
  const auto usual = [first](const LwPolyline::Width& width) {
    return width.start == first && width.end == first;
  };
  if (std::all_of(line_->widths.begin(), line_->widths.end(), usual)) {
    line_->widths.clear();
    line_->constantWidth = first;
  }
  return std::move(line_);
}

}  // namespace drafting

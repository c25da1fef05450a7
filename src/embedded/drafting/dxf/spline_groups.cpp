// A SPLINE as DXF groups: 70 flags, 71 degree, 72 73 74 numbers of knots, control and fit points,
// 42 43 44 tolerances, 12 and 13 tangents, then 40 knots, 41 weights, 10 control points, 11 fit
// points; 210 the normal of a planar one. Readers want control points: a spline that is drawn
// through its fit points gets them here, and loses them again when it is read.
#include "embedded/drafting/database/fit_curve.h"
#include "embedded/drafting/dxf/group_reader.h"
#include "embedded/drafting/dxf/group_writer.h"

namespace drafting {
namespace {

constexpr int kClosed = 1, kPeriodic = 2, kRational = 4, kPlanar = 8;

// Takes a coordinate of a list of points whose x has that code; y and z come 10 and 20 behind it.
void takePoint(std::vector<Point3>& points, int code, const Group& group) {
  const double value = GroupSection::realOf(group);
  if (group.code == code) points.push_back({value, 0, 0});
  if (points.empty()) return;
  if (group.code == code + 10) points.back().y = value;
  if (group.code == code + 20) points.back().z = value;
}

}  // namespace

void GroupReader::spline(Spline& spline) {
  const int flags = groups_.integer(70, 0);
  spline.closed = (flags & kClosed) != 0;
  spline.periodic = (flags & kPeriodic) != 0;
  spline.rational = (flags & kRational) != 0;
  spline.otherFlags = static_cast<std::int16_t>(flags & ~(kClosed | kPeriodic | kRational));
  spline.degree = groups_.integer(71, spline.degree);
  normal(210, spline.normal);
  real("", 42, spline.knotTolerance);
  real("", 43, spline.controlTolerance);
  real("", 44, spline.fitTolerance);
  point("", 12, spline.startTangent);
  point("", 13, spline.endTangent);
  for (const Group& group : groups_) {
    if (group.code == 40) spline.knots.push_back(GroupSection::realOf(group));
    if (group.code == 41) spline.weights.push_back(GroupSection::realOf(group));
    takePoint(spline.controls, 10, group);
    takePoint(spline.fitPoints, 11, group);
  }
  if (!spline.weights.empty()) spline.weights.resize(spline.controls.size(), 1);
  if (!followsFitPoints(spline)) return;
  spline.controls.clear();
  spline.knots.clear();
}

void GroupWriter::spline(const Spline& stored) {
  const Spline spline = withControls(stored);
  const int flags = (spline.closed ? kClosed : 0) | (spline.periodic ? kPeriodic : 0) |
                    (spline.rational ? kRational : 0) | spline.otherFlags;
  if (flags & kPlanar) sink_.point(210, spline.normal);
  sink_.integer(70, flags);
  sink_.integer(71, spline.degree);
  size(72, spline.knots.size());
  size(73, spline.controls.size());
  size(74, spline.fitPoints.size());
  sink_.real(42, spline.knotTolerance);
  sink_.real(43, spline.controlTolerance);
  if (!spline.fitPoints.empty()) {
    sink_.real(44, spline.fitTolerance);
    if (!(spline.startTangent == Point3{})) sink_.point(12, spline.startTangent);
    if (!(spline.endTangent == Point3{})) sink_.point(13, spline.endTangent);
  }
  for (const double knot : spline.knots) sink_.real(40, knot);
  for (const double weight : spline.weights) sink_.real(41, weight);
  for (const Point3& control : spline.controls) sink_.point(10, control);
  for (const Point3& fitPoint : spline.fitPoints) sink_.point(11, fitPoint);
}

}  // namespace drafting

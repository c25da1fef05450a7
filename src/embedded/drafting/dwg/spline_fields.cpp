// A SPLINE in a DWG.
//   BL what it is drawn by, BL degree, then
//     2, fit points      BD fit tolerance, 3BD start and end tangent, BL points, 3BD each
//     1, control points  B rational, B closed, B periodic, BD knot tolerance, BD control tolerance,
//                        BL knots, BL points, B has weights, BD knots, each point: 3BD, BD weight
// A file has one of the two, an image of the journal both, and what only DXF knows behind them.
#include "embedded/drafting/dwg/field_reader.h"
#include "embedded/drafting/dwg/field_writer.h"

namespace drafting {
namespace {

constexpr unsigned kByControls = 1, kByFitPoints = 2, kBoth = 3;

unsigned drawnBy(const Spline& spline) {
  return spline.controls.empty() && !spline.fitPoints.empty() ? kByFitPoints : kByControls;
}

}  // namespace

// --- reading

void FieldReader::spline(Spline& spline) {
  const unsigned drawnBy = data.longInteger();
  if (drawnBy < kByControls || drawnBy > (isImage() ? kBoth : kByFitPoints)) return fail();
  spline.degree = static_cast<std::int32_t>(data.longInteger());
  if (drawnBy & kByFitPoints) splineFitPoints(spline);
  if (drawnBy & kByControls) splineControls(spline);
  if (!isImage()) return;
  integer("", 0, spline.otherFlags);
  spline.normal = data.point();
}

void FieldReader::splineFitPoints(Spline& spline) {
  spline.fitTolerance = data.real();
  spline.startTangent = data.point();
  spline.endTangent = data.point();
  items(spline.fitPoints, data.longInteger(), 6, [this](Point3& point) { point = data.point(); });
}

void FieldReader::splineControls(Spline& spline) {
  spline.rational = data.bit();
  spline.closed = data.bit();
  spline.periodic = data.bit();
  spline.knotTolerance = data.real();
  spline.controlTolerance = data.real();
  const std::size_t knots = data.longInteger(), controls = data.longInteger();
  const bool hasWeights = data.bit();
  items(spline.knots, knots, 2, [this](double& knot) { knot = data.real(); });
  spline.weights.clear();
  items(spline.controls, controls, 6, [&](Point3& control) {
    control = data.point();
    if (hasWeights) spline.weights.push_back(data.real());
  });
}

// --- writing

void FieldWriter::spline(const Spline& spline) {
  const unsigned by = isImage() ? kBoth : drawnBy(spline);
  data.longInteger(by);
  data.longInteger(static_cast<std::uint32_t>(spline.degree));
  if (by & kByFitPoints) splineFitPoints(spline);
  if (by & kByControls) splineControls(spline);
  if (!isImage()) return;
  integer("", 0, spline.otherFlags);
  data.point(spline.normal);
}

void FieldWriter::splineFitPoints(const Spline& spline) {
  data.real(spline.fitTolerance);
  data.point(spline.startTangent);
  data.point(spline.endTangent);
  listSize(spline.fitPoints.size());
  for (const Point3& point : spline.fitPoints) data.point(point);
}

void FieldWriter::splineControls(const Spline& spline) {
  data.bit(spline.rational);
  data.bit(spline.closed);
  data.bit(spline.periodic);
  data.real(spline.knotTolerance);
  data.real(spline.controlTolerance);
  listSize(spline.knots.size());
  listSize(spline.controls.size());
  data.bit(!spline.weights.empty());
  for (const double knot : spline.knots) data.real(knot);
  for (std::size_t i = 0; i < spline.controls.size(); ++i) {
    data.point(spline.controls[i]);
    if (!spline.weights.empty()) data.real(i < spline.weights.size() ? spline.weights[i] : 1);
  }
}

}  // namespace drafting

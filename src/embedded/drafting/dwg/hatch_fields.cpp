// The parts of a HATCH in a DWG.
//   paths    BL count; each: BL flags; then of a polyline
//              B has bulges, B closed, BL points; each: 2RD point, BD bulge if there are bulges
//            and of any other path
//              BL edges; each: RC form, then
//                line     2RD start, 2RD end
//                arc      2RD centre, BD radius, BD start and end angle, B counter-clockwise
//                ellipse  2RD centre, 2RD major axis, BD ratio, BD angles, B counter-clockwise
//                spline   BL degree, B rational, B periodic, BL knots, BL points, BD knots,
//                         each point: 2RD, BD weight if rational
//            and at its end BL number of sources, which are references
//   lines    unless solid: BD angle, BD scale, B double, BS count; each: BD angle, 2BD base,
//            2BD offset, BS dashes, BD each
//   seeds    BD size of a pixel if a path is derived; BL count, 2RD each
#include "embedded/drafting/dwg/field_reader.h"
#include "embedded/drafting/dwg/field_writer.h"

namespace drafting {

using Form = Hatch::Edge::Form;

// --- reading

void FieldReader::hatchPaths(Hatch& hatch) {
  items(hatch.paths, data.longInteger(), 8, [this](Hatch::Path& path) {
    path.flags = data.longInteger();
    if (path.isPolyline()) {
      hatchPolyline(path);
    } else {
      items(path.edges, data.longInteger(), 32, [this](Hatch::Edge& edge) { hatchEdge(edge); });
    }
    const std::size_t sources = data.longInteger();
    if (!references.holds(sources, 8)) return fail();
    path.sources.resize(sources);
    for (Handle& source : path.sources) source = reference();
  });
}

void FieldReader::hatchPolyline(Hatch::Path& path) {
  const bool hasBulges = data.bit();
  path.closed = data.bit();
  const std::size_t n = data.longInteger();
  items(path.points, n, 128, [&](Point2& point) {
    point = data.flat();
    if (hasBulges) path.bulges.push_back(data.real());
  });
}

void FieldReader::hatchEdge(Hatch::Edge& edge) {
  edge.form = static_cast<Form>(data.rawByte());
  switch (edge.form) {
    case Form::Line:
      edge.first = data.flat();
      edge.second = data.flat();
      return;
    case Form::Arc:
    case Form::Ellipse:
      edge.first = data.flat();
      if (edge.form == Form::Ellipse) edge.second = data.flat();
      edge.size = data.real();
      edge.startAngle = data.real();
      edge.endAngle = data.real();
      edge.counterClockwise = data.bit();
      return;
    case Form::Spline: return hatchSpline(edge);
  }
  fail();
}

void FieldReader::hatchSpline(Hatch::Edge& edge) {
  edge.degree = static_cast<std::int32_t>(data.longInteger());
  edge.rational = data.bit();
  edge.periodic = data.bit();
  const std::size_t knots = data.longInteger(), controls = data.longInteger();
  items(edge.knots, knots, 2, [this](double& knot) { knot = data.real(); });
  items(edge.controls, controls, 128, [&](Point2& control) {
    control = data.flat();
    if (edge.rational) edge.weights.push_back(data.real());
  });
}

void FieldReader::hatchLines(Hatch& hatch) {
  hatch.lines.clear();
  if (hatch.solid) return;
  hatch.angle = data.real();
  hatch.scale = data.real();
  hatch.isDouble = data.bit();
  items(hatch.lines, count(), 12, [this](Hatch::PatternLine& line) {
    line.angle = data.real();
    for (double* value : {&line.base.x, &line.base.y, &line.offset.x, &line.offset.y}) {
      *value = data.real();
    }
    items(line.dashes, count(), 2, [this](double& dash) { dash = data.real(); });
  });
}

void FieldReader::hatchSeeds(Hatch& hatch) {
  if (hatch.hasDerivedPath()) hatch.pixelSize = data.real();
  items(hatch.seeds, data.longInteger(), 128, [this](Point2& seed) { seed = data.flat(); });
}

// --- writing

void FieldWriter::hatchPaths(const Hatch& hatch) {
  listSize(hatch.paths.size());
  for (const Hatch::Path& path : hatch.paths) {
    data.longInteger(path.flags);
    if (path.isPolyline()) {
      hatchPolyline(path);
    } else {
      listSize(path.edges.size());
      for (const Hatch::Edge& edge : path.edges) hatchEdge(edge);
    }
    listSize(path.sources.size());
    for (const Handle source : path.sources) references.reference(kSoftPointer, source);
  }
}

void FieldWriter::hatchPolyline(const Hatch::Path& path) {
  const bool hasBulges = !path.bulges.empty();
  data.bit(hasBulges);
  data.bit(path.closed);
  listSize(path.points.size());
  for (std::size_t i = 0; i < path.points.size(); ++i) {
    data.flat(path.points[i]);
    if (hasBulges) data.real(i < path.bulges.size() ? path.bulges[i] : 0);
  }
}

void FieldWriter::hatchEdge(const Hatch::Edge& edge) {
  data.rawByte(static_cast<unsigned>(edge.form));
  if (edge.form == Form::Spline) return hatchSpline(edge);
  data.flat(edge.first);
  if (edge.form != Form::Arc) data.flat(edge.second);
  if (edge.form == Form::Line) return;
  data.real(edge.size);
  data.real(edge.startAngle);
  data.real(edge.endAngle);
  data.bit(edge.counterClockwise);
}

void FieldWriter::hatchSpline(const Hatch::Edge& edge) {
  data.longInteger(static_cast<std::uint32_t>(edge.degree));
  data.bit(edge.rational);
  data.bit(edge.periodic);
  listSize(edge.knots.size());
  listSize(edge.controls.size());
  for (const double knot : edge.knots) data.real(knot);
  for (std::size_t i = 0; i < edge.controls.size(); ++i) {
    data.flat(edge.controls[i]);
    if (edge.rational) data.real(i < edge.weights.size() ? edge.weights[i] : 1);
  }
}

void FieldWriter::hatchLines(const Hatch& hatch) {
  if (hatch.solid) return;
  data.real(hatch.angle);
  data.real(hatch.scale);
  data.bit(hatch.isDouble);
  count(hatch.lines.size());
  for (const Hatch::PatternLine& line : hatch.lines) {
    for (const double value :
         {line.angle, line.base.x, line.base.y, line.offset.x, line.offset.y}) {
      data.real(value);
    }
    count(line.dashes.size());
    for (const double dash : line.dashes) data.real(dash);
  }
}

void FieldWriter::hatchSeeds(const Hatch& hatch) {
  if (hatch.hasDerivedPath()) data.real(hatch.pixelSize);
  listSize(hatch.seeds.size());
  for (const Point2& seed : hatch.seeds) data.flat(seed);
}

}  // namespace drafting

#include "embedded/drafting/dxf/light_polyline.h"

#include <algorithm>

namespace drafting {
namespace {

constexpr int kFitted = 2 | 4;

void copyCommon(const Entity& from, Entity& to) {
  to.handle = from.handle;
  to.owner = from.owner;
  to.extension = from.extension;
  to.reactors = from.reactors;
  to.xdata = from.xdata;
  to.layer = from.layer;
  to.linetype = from.linetype;
  to.plotStyle = from.plotStyle;
  to.linetypeScale = from.linetypeScale;
  to.colour = from.colour;
  to.lineweight = from.lineweight;
  to.invisible = from.invisible;
}

// One width for all becomes the constant width; bulges that are all 0 go.
void simplify(LwPolyline& line) {
  const auto straight = [](double bulge) { return bulge == 0; };
  if (std::all_of(line.bulges.begin(), line.bulges.end(), straight)) line.bulges.clear();
  const double first = line.widths.empty() ? 0 : line.widths.front().start;
  const auto usual = [first](const LwPolyline::Width& width) {
    return width.start == first && width.end == first;
  };
  if (!std::all_of(line.widths.begin(), line.widths.end(), usual)) return;
  line.widths.clear();
  line.constantWidth = first;
}

}  // namespace

std::unique_ptr<LwPolyline> lightPolyline(const Database& database, const Polyline& polyline) {
  if (polyline.form != Polyline::Form::Flat || (polyline.flags & kFitted) != 0) return nullptr;
  auto line = std::make_unique<LwPolyline>();
  copyCommon(polyline, *line);
  line->closed = (polyline.flags & 1) != 0;
  line->continuousPattern = (polyline.flags & 128) != 0;
  line->elevation = polyline.elevation;
  line->thickness = polyline.thickness;
  line->normal = polyline.normal;
  for (const Handle handle : polyline.vertices) {
    const auto* vertex = database.find<Vertex>(handle);
    if (!vertex || !vertex->xdata.empty() || vertex->extension != 0) return nullptr;
    line->points.push_back({vertex->position.x, vertex->position.y});
    line->bulges.push_back(vertex->bulge);
    line->widths.push_back({vertex->startWidth, vertex->endWidth});
  }
  simplify(*line);
  return line;
}

}  // namespace drafting

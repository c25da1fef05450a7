#include "embedded/drafting/dxf/light_polyline.h"

#include <algorithm>

#include "embedded/drafting/database/old_polylines.h"

namespace drafting {
namespace {

constexpr int kFitted = 2 | 4;

// What makes it the same object in the drawing.
void takePlace(const Entity& from, Entity& to) {
  to.handle = from.handle;
  to.owner = from.owner;
  to.extension = from.extension;
  to.reactors = from.reactors;
  to.xdata = from.xdata;
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
  for (const Handle handle : polyline.vertices) {
    const auto* vertex = database.find<Vertex>(handle);
    if (!vertex || !vertex->xdata.empty() || vertex->extension != 0) return nullptr;
  }
  auto line = std::make_unique<LwPolyline>(flatPolyline(database, polyline));
  takePlace(polyline, *line);
  simplify(*line);
  return line;
}

}  // namespace drafting

// Xentsl: picking one entity by a point on its picture, or the newest one by the keyword "Last".
#include <algorithm>
#include <cmath>
#include <limits>

#include "embedded/drafting/commands/selection_filter.h"
#include "embedded/drafting/display/display_list.h"
#include "embedded/drafting/host/host_state.h"
#include "platform/common_funcs.h"

using base::Point2;
using drafting::DisplayList;
using drafting::Entity;
using drafting::Handle;
using drafting::Session;

namespace {

constexpr int kMissed = 7;  // values of ERRNO
constexpr int kEntered = 52;
constexpr double kAperture = 0.01;  // of the drawing's larger side, to each side of the point

double distanceToSegment(Point2 p, Point2 a, Point2 b) {
  const Point2 along = b - a;
  const double length2 = along.x * along.x + along.y * along.y;
  double t = 0;
  if (length2 > 0) t = ((p.x - a.x) * along.x + (p.y - a.y) * along.y) / length2;
  t = std::clamp(t, 0.0, 1.0);
  return std::hypot(p.x - a.x - t * along.x, p.y - a.y - t * along.y);
}

// From the point to what is drawn; infinite for nothing. Areas count by their edges.
double distanceTo(const DisplayList& picture, Point2 point) {
  double nearest = std::numeric_limits<double>::infinity();
  for (const DisplayList::Item& item : picture.items()) {
    if (item.kind == DisplayList::Kind::Label) continue;
    const auto points = picture.points(item);
    for (std::size_t i = 0; i < points.size(); ++i) {
      const Point2 before = points[i == 0 ? 0 : i - 1];
      nearest = std::min(nearest, distanceToSegment(point, before, points[i]));
    }
  }
  return nearest;
}

// The entity nearest to the point, within the aperture; 0 for none.
Handle hit(const drafting::Database& database, const drafting::Selection& candidates,
           Point2 point) {
  const base::Box2 extents = DisplayList::of(database).bounds();
  double best = kAperture * std::max(extents.width(), extents.height());
  Handle found = 0;
  for (const Handle handle : candidates) {
    const auto* entity = database.find<Entity>(handle);
    const double distance = distanceTo(DisplayList::of(database, *entity), point);
    if (distance > best) continue;
    best = distance;
    found = handle;
  }
  return found;
}

Handle named(const drafting::Database& database, const drafting::Selection& candidates,
             const drafting::Answer& answer) {
  if (!answer.isKeyword("Last")) return hit(database, candidates, {answer.point.x, answer.point.y});
  const Handle last = database.lastEntity();
  return std::find(candidates.begin(), candidates.end(), last) == candidates.end() ? 0 : last;
}

int failed(Session& session, int reason) {
  session.variables.put("ERRNO", reason);
  return RTERROR;
}

}  // namespace

int Xentsl(const wchar_t* prompt, const resbuf* filter, ads_name entity, ads_point point) {
  Session& session = Session::active();
  drafting::setName(entity, 0, 0);
  const drafting::Answer answer = session.line.ask(
      {.kind = drafting::Ask::Point, .message = drafting::utf8(prompt), .keywords = "Last"});
  if (answer.cancelled()) return RTCAN;
  if (answer.entered()) return failed(session, kEntered);
  const drafting::Database& database = session.database();
  const drafting::Selection candidates = selectAll(database, drafting::filterOf(filter));
  const Handle found = session.faults.fails("Xentsl") ? 0 : named(database, candidates, answer);
  if (found == 0) return failed(session, kMissed);
  drafting::setName(entity, found, drafting::kEntityMark);
  point[0] = answer.point.x;
  point[1] = answer.point.y;
  point[2] = answer.point.z;
  return RTNORM;
}

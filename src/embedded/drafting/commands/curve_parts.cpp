#include "embedded/drafting/commands/curve_parts.h"

#include <algorithm>
#include <cmath>

#include "embedded/drafting/commands/entity_copies.h"
#include "embedded/drafting/database/visit.h"

namespace drafting {
namespace {

constexpr double kSamePlace = 1e-9;
using base::kFullTurn;
using base::wrappedAngle;

bool liesFlat(const Entity& entity) {
  return visit(entity, []<class T>(const T& one) {
    if constexpr (requires { one.normal; }) {
      return one.normal.x == 0 && one.normal.y == 0 && one.normal.z > 0;
    } else {
      return true;
    }
  });
}

template <class T>
std::unique_ptr<T> copyOf(const Entity& entity) {
  return std::unique_ptr<T>(static_cast<T*>(plainCopy(entity).release()));
}

std::unique_ptr<Entity> arcOf(const Entity& like, const Piece& piece) {
  auto arc = std::make_unique<Arc>();
  if (like.kind == Kind::Arc) {
    arc = copyOf<Arc>(like);
  } else {
    const auto& circle = static_cast<const Circle&>(like);
    arc->xdata = circle.xdata;
    arc->copyLook(circle);
    arc->thickness = circle.thickness;
    arc->centre = circle.centre;
    arc->radius = circle.radius;
  }
  arc->startAngle = wrappedAngle(piece.start);
  arc->endAngle = wrappedAngle(piece.start + piece.sweep);
  return arc;
}

std::unique_ptr<Entity> lineOf(const Line& like, Point3 from, Point3 to) {
  auto line = copyOf<Line>(like);
  line->start = from;
  line->end = to;
  return line;
}

}  // namespace

std::optional<CurveParts> CurveParts::of(const Database& database, const Entity& entity) {
  const bool known = entity.kind == Kind::Line || entity.kind == Kind::Arc ||
                     entity.kind == Kind::Circle || entity.kind == Kind::LwPolyline;
  if (!known || !liesFlat(entity)) return {};
  auto pieces = piecesOf(database, entity).pieces;
  if (pieces.empty()) return {};
  const bool closed =
      entity.kind == Kind::Circle ||
      (entity.kind == Kind::LwPolyline && static_cast<const LwPolyline&>(entity).closed);
  return CurveParts(entity, std::move(pieces), closed);
}

double CurveParts::closest(Point2 point) const {
  double best = 0, distance = -1;
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    const Point2 at = pieces_[i].closest(point);
    const double away = base::distance(at, point);
    if (distance >= 0 && away >= distance) continue;
    distance = away;
    best = static_cast<double>(i) + std::clamp(pieces_[i].where(at), 0.0, 1.0);
  }
  return best;
}

std::vector<double> CurveParts::cuts(const std::vector<Piece>& edges) const {
  std::vector<double> found;
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    for (const Piece& edge : edges) {
      for (const Point2 point : crossings(pieces_[i], edge)) {
        if (holdsPoint(edge, point) && holdsPoint(pieces_[i], point))
          found.push_back(static_cast<double>(i) + std::clamp(pieces_[i].where(point), 0.0, 1.0));
      }
    }
  }
  std::sort(found.begin(), found.end());
  const auto same = [](double a, double b) { return b - a < kSamePlace; };
  found.erase(std::unique(found.begin(), found.end(), same), found.end());
  return found;
}

std::unique_ptr<Entity> CurveParts::part(double from, double to) const {
  if (!closed_ && to - from < kSamePlace) return nullptr;
  const Piece& piece = pieces_.front();
  switch (entity_->kind) {
    case Kind::Line: {
      const auto& line = static_cast<const Line&>(*entity_);
      const Point3 way = line.end - line.start;
      return lineOf(line, line.start + way * from, line.start + way * to);
    }
    case Kind::Arc:
    case Kind::Circle: {
      const double length = to > from ? to - from : to - from + 1;
      return arcOf(*entity_, Piece::arc(piece.centre, piece.radius,
                                        piece.start + piece.sweep * from, piece.sweep * length));
    }
    default: return polylinePart(from, to);
  }
}

std::unique_ptr<Entity> CurveParts::polylinePart(double from, double to) const {
  const auto& whole = static_cast<const LwPolyline&>(*entity_);
  auto out = copyOf<LwPolyline>(whole);
  out->points.clear();
  out->bulges.clear();
  out->widths.clear();
  out->closed = false;
  if (to <= from) to += end();
  double at = from;
  Point2 last;
  while (to - at > kSamePlace) {
    const double floor = std::floor(at + kSamePlace);
    const auto i = static_cast<std::size_t>(floor) % pieces_.size();
    const double t = std::max(0.0, at - floor), u = std::min(1.0, to - floor);
    const Piece& piece = pieces_[i];
    out->points.push_back(piece.at(t));
    out->bulges.push_back(piece.bulgeBetween(t, u));
    if (i < whole.widths.size()) {
      const auto [start, end] = whole.widths[i];
      out->widths.push_back({start + (end - start) * t, start + (end - start) * u});
    }
    last = piece.at(u);
    at = floor + u;
  }
  if (out->points.empty()) return nullptr;
  out->points.push_back(last);
  out->bulges.push_back(0);
  if (!out->widths.empty()) out->widths.push_back({});
  if (whole.bulges.empty()) out->bulges.clear();
  return out;
}

std::optional<Point2> CurveParts::reach(const std::vector<Piece>& edges, bool atStart) const {
  if (closed_) return {};
  const Piece& piece = atStart ? pieces_.front() : pieces_.back();
  const double full = piece.round ? kFullTurn / std::abs(piece.sweep) : 0;
  std::optional<Point2> best;
  double nearest = 0;
  for (const Piece& edge : edges) {
    for (const Point2 point : crossings(piece, edge)) {
      if (!holdsPoint(edge, point)) continue;
      double beyond = piece.where(point) - 1;  // in lengths of the piece
      if (atStart) beyond = piece.round ? full - beyond - 1 : -beyond - 1;
      if (beyond <= kSamePlace || (piece.round && beyond >= full - 1 - kSamePlace)) continue;
      if (best && beyond >= nearest) continue;
      best = point;
      nearest = beyond;
    }
  }
  return best;
}

std::unique_ptr<Entity> CurveParts::lengthened(Point2 to, bool atStart) const {
  if (entity_->kind == Kind::Line) {
    const auto& line = static_cast<const Line&>(*entity_);
    const Point3 at{to.x, to.y, atStart ? line.start.z : line.end.z};
    return atStart ? lineOf(line, at, line.end) : lineOf(line, line.start, at);
  }
  const Piece& piece = atStart ? pieces_.front() : pieces_.back();
  const double angle = base::angleOf(to - piece.centre);
  const double way = piece.sweep < 0 ? -1 : 1;
  const double sweep = atStart ? wrappedAngle(way * (piece.start + piece.sweep - angle))
                               : wrappedAngle(way * (angle - piece.start));
  if (entity_->kind == Kind::Arc) {
    return arcOf(*entity_, Piece::arc(piece.centre, piece.radius, atStart ? angle : piece.start,
                                      way * sweep));
  }
  auto polyline = copyOf<LwPolyline>(*entity_);
  (atStart ? polyline->points.front() : polyline->points.back()) = to;
  if (piece.round) {
    const std::size_t i = atStart ? 0 : polyline->points.size() - 2;
    polyline->bulges[i] = std::tan(way * sweep / 4);
  }
  return polyline;
}

}  // namespace drafting

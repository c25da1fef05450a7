#include "embedded/drafting/picking/snaps.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "embedded/base/text.h"
#include "embedded/drafting/picking/picker.h"
#include "embedded/drafting/picking/pieces.h"

namespace drafting {
namespace {

struct Name {
  std::string_view shortest, name;
  int mode;
};
constexpr Name kNames[] = {
    {"END", "ENDPOINT", kSnapEnd},        {"MID", "MIDPOINT", kSnapMiddle},
    {"CEN", "CENTER", kSnapCentre},       {"NOD", "NODE", kSnapNode},
    {"QUA", "QUADRANT", kSnapQuadrant},   {"INT", "INTERSECTION", kSnapIntersection},
    {"INS", "INSERTION", kSnapInsertion}, {"PER", "PERPENDICULAR", kSnapPerpendicular},
    {"TAN", "TANGENT", kSnapTangent},     {"NEA", "NEAREST", kSnapNearest},
    {"QUI", "QUICK", kSnapQuick},         {"NON", "NONE", 0}};

std::optional<int> modeOf(std::string_view typed) {
  if (!typed.empty() && typed.front() == '_') typed.remove_prefix(1);
  for (const Name& row : kNames) {
    if (typed.size() >= row.shortest.size() && typed.size() <= row.name.size() &&
        base::equalsNoCase(typed, row.name.substr(0, typed.size())))
      return row.mode;
  }
  return {};
}

// Pieces of one drawing can meet in very many places.
constexpr std::size_t kMostCrossed = 300;

class Snapper {
 public:
  explicit Snapper(const SnapQuery& query) : query_(query) {}

  // `shown`: something of it is seen in the aperture; otherwise only centres are looked for.
  void take(const EntityPieces& entity, bool shown) {
    if (!shown) {
      for (const Piece& piece : entity.pieces) {
        if (piece.round) offerNearby(kSnapCentre, piece.centre);
      }
      return;
    }
    for (const Point2 point : entity.insertions) offer(kSnapInsertion, point);
    for (const Point2 point : entity.nodes) offerNearby(kSnapNode, point);
    for (const Piece& piece : entity.pieces) take(piece);
  }

  std::optional<Point2> best() {
    if (query_.modes & kSnapIntersection) offerCrossings();
    if (!best_ && (query_.modes & kSnapNearest)) {
      for (const Piece& piece : hit_) offer(kSnapNearest, piece.closest(query_.point));
    }
    return best_;
  }

 private:
  void take(const Piece& piece) {
    if (!inAperture(piece.closest(query_.point))) return;
    if (piece.round) offer(kSnapCentre, piece.centre);
    hit_.push_back(piece);
    if (!piece.full()) {
      offer(kSnapEnd, piece.from);
      offer(kSnapEnd, piece.to);
      offer(kSnapMiddle, piece.at(0.5));
    }
    if (piece.round) offerQuadrants(piece);
    if (!query_.base) return;
    if (query_.modes & kSnapPerpendicular) offerAll(kSnapPerpendicular, feet(piece, *query_.base));
    if (query_.modes & kSnapTangent) {
      for (const Point2 point : tangentPoints(piece, *query_.base)) {
        if (holdsPoint(piece, point)) offer(kSnapTangent, point);
      }
    }
  }

  void offerQuadrants(const Piece& piece) {
    for (int i = 0; i < 4; ++i) {
      const Point2 point = base::polar(piece.centre, i * base::kPi / 2, piece.radius);
      if (holdsPoint(piece, point)) offer(kSnapQuadrant, point);
    }
  }

  void offerCrossings() {
    const std::size_t count = std::min(hit_.size(), kMostCrossed);
    for (std::size_t i = 0; i < count; ++i) {
      for (std::size_t k = i + 1; k < count; ++k) {
        for (const Point2 point : crossings(hit_[i], hit_[k])) {
          if (holdsPoint(hit_[i], point) && holdsPoint(hit_[k], point))
            offerNearby(kSnapIntersection, point);
        }
      }
    }
  }

  bool inAperture(Point2 point) const {
    return std::abs(point.x - query_.point.x) <= query_.reach &&
           std::abs(point.y - query_.point.y) <= query_.reach;
  }

  void offerAll(int mode, const std::vector<Point2>& points) {
    for (const Point2 point : points) offer(mode, point);
  }
  void offerNearby(int mode, Point2 point) {
    if (inAperture(point)) offer(mode, point);
  }
  void offer(int mode, Point2 point) {
    if (!(query_.modes & mode)) return;
    if (best_ && base::distance(*best_, query_.point) <= base::distance(point, query_.point))
      return;
    best_ = point;
  }

  const SnapQuery& query_;
  std::vector<Piece> hit_;
  std::optional<Point2> best_;
};

}  // namespace

std::optional<int> parseSnapModes(std::string_view typed) {
  if (typed.empty()) return {};
  int modes = 0;
  while (true) {
    const std::size_t comma = typed.find(',');
    const auto mode = modeOf(typed.substr(0, comma));
    if (!mode) return {};
    modes |= *mode;
    if (comma == std::string_view::npos) return modes;
    typed.remove_prefix(comma + 1);
  }
}

std::optional<Point2> snapPoint(const Database& database, EntityIndex& index,
                                const SnapQuery& query) {
  Snapper snapper(query);
  const Point2 half{query.reach, query.reach};
  const Region aperture = Region::box(query.point - half, query.point + half);
  for (const Handle handle : entitiesCrossing(database, index, aperture)) {
    snapper.take(piecesOf(database, *database.find<Entity>(handle)), true);
  }
  if (query.modes & kSnapCentre) {  // a centre is also meant where nothing is drawn
    std::vector<Handle> around;
    index.visit(aperture.bounds(), [&](Handle handle, const Box2&) { around.push_back(handle); });
    for (const Handle handle : around)
      snapper.take(piecesOf(database, *database.find<Entity>(handle)), false);
  }
  return snapper.best();
}

}  // namespace drafting

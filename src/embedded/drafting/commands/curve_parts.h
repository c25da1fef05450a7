// Lines, arcs, circles and polylines as one way from a start to an end: cut and lengthened. The
// place on the way is the number of the piece and the part of it.
#pragma once

#include <memory>
#include <optional>

#include "embedded/drafting/picking/pieces.h"

namespace drafting {

class CurveParts {
 public:
  // Nothing for kinds that can't be cut, and for what doesn't lie flat.
  static std::optional<CurveParts> of(const Database& database, const Entity& entity);

  bool closed() const { return closed_; }
  double end() const { return static_cast<double>(pieces_.size()); }
  double closest(Point2 point) const;
  // Where the edges cross the way, in order, each place once.
  std::vector<double> cuts(const std::vector<Piece>& edges) const;

  // A copy of the entity from one place to another; on a closed way `to` may lie before `from`.
  // Null if nothing is left.
  std::unique_ptr<Entity> part(double from, double to) const;

  // The nearest point of the edges on the lengthened start or end of an open way.
  std::optional<Point2> reach(const std::vector<Piece>& edges, bool atStart) const;
  // A copy that begins or ends there instead.
  std::unique_ptr<Entity> lengthened(Point2 to, bool atStart) const;

 private:
  CurveParts(const Entity& entity, std::vector<Piece> pieces, bool closed)
      : entity_(&entity), pieces_(std::move(pieces)), closed_(closed) {}
  std::unique_ptr<Entity> polylinePart(double from, double to) const;

  const Entity* entity_;
  std::vector<Piece> pieces_;
  bool closed_ = false;
};

}  // namespace drafting

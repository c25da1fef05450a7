// Pieces: the geometry of entities as parts of lines and circles, seen from above. Snapping,
// trimming and extending reckon with them.
#pragma once

#include <optional>
#include <vector>

#include "embedded/drafting/database/database.h"

namespace drafting {

struct Piece {
  bool round = false;
  Point2 from, to;  // its ends; equal for a full circle
  Point2 centre;    // of a round one, and the rest too
  double radius = 0;
  double start = 0;  // angle of `from` at the centre
  double sweep = 0;  // positive: counter-clockwise; a full turn for a circle

  static Piece line(Point2 from, Point2 to);
  static Piece arc(Point2 centre, double radius, double start, double sweep);
  // From `from` to `to` by the tangent of a quarter of the arc's angle; 0 is straight.
  static Piece bulge(Point2 from, Point2 to, double bulge);

  bool full() const;  // a whole circle
  double length() const;
  Point2 at(double t) const;  // from 0 to 1
  // Where a point of the piece's line or circle stands: 0 to 1 on the piece, otherwise before or
  // behind it. On a circle never below 0.
  double where(Point2 point) const;
  Point2 closest(Point2 point) const;
  double bulgeBetween(double t, double u) const;  // of its part from t to u
};

// Where the lines or circles that the pieces are parts of meet; equal ones don't.
std::vector<Point2> crossings(const Piece& a, const Piece& b);

// Whether a point of the piece's line or circle lies on the piece, by a hair more or less.
bool holdsPoint(const Piece& piece, Point2 point);

// The feet of the perpendiculars, and the points of the tangents, from a point onto the whole line
// or circle.
std::vector<Point2> feet(const Piece& piece, Point2 from);
std::vector<Point2> tangentPoints(const Piece& piece, Point2 from);

// The pieces of an entity in their order, and points that it is placed by. What can't be had as
// lines and circles comes as short lines (ellipses, circles seen from aside).
struct EntityPieces {
  std::vector<Piece> pieces;
  std::vector<Point2> insertions;  // of texts, blocks, attributes
  std::vector<Point2> nodes;       // points
};
EntityPieces piecesOf(const Database& database, const Entity& entity);

}  // namespace drafting

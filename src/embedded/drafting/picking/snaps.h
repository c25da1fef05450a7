// Object snaps: the exact point of the drawing that a pick near it means.
#pragma once

#include <optional>
#include <string_view>

#include "embedded/drafting/picking/entity_index.h"

namespace drafting {

// Bits of OSMODE.
enum SnapMode : int {
  kSnapEnd = 1,
  kSnapMiddle = 2,
  kSnapCentre = 4,
  kSnapNode = 8,
  kSnapQuadrant = 16,
  kSnapIntersection = 32,
  kSnapInsertion = 64,
  kSnapPerpendicular = 128,
  kSnapTangent = 256,
  kSnapNearest = 512,
  kSnapQuick = 1024,
  kSnapOff = 16384,  // the running ones don't count
};

// The modes of a list of names as they are typed at a prompt ("END", "end,int"; "NON" is 0);
// nothing if one of them is none.
std::optional<int> parseSnapModes(std::string_view typed);

struct SnapQuery {
  int modes = 0;
  Point2 point;
  double reach = 0;                 // half the side of the aperture
  std::optional<Point2> base = {};  // where a line to the point comes from (perpendicular, tangent)
};

// The point nearest to the picked one, of all the modes; "nearest" counts only where nothing else
// is found. Nothing if there is none in the aperture.
std::optional<Point2> snapPoint(const Database& database, EntityIndex& index,
                                const SnapQuery& query);

}  // namespace drafting

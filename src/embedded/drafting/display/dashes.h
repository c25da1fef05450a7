// Linetypes: a way cut into the dashes of a pattern.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "embedded/drafting/database/tables.h"

namespace drafting {

// A point of a way, with half of the line's width there.
struct Station {
  Point2 point;
  double half = 0;
};

struct DashPattern {
  std::vector<double> dashes;  // as a linetype has them: above 0 a dash, 0 a dot, below 0 a gap
  double length = 0;           // of one repeat

  bool isContinuous() const { return dashes.empty(); }
  // Patterns that nobody could draw (nothing to repeat, no numbers) are continuous ones.
  void set(const Linetype& linetype, double scale);
  void clear() { dashes.clear(); }
};

// Calls `put` with each dash of the way, a dot as one station. The way begins and ends with a part
// of the pattern's first dash, at least half of it; one that is shorter than the pattern, or would
// take too many dashes, is one dash. The stations given to `put` are good during the call.
void cutIntoDashes(std::span<const Station> way, const DashPattern& pattern,
                   const std::function<void(std::span<const Station>)>& put);

}  // namespace drafting

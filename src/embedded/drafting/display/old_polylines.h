// Polylines of the old form as what is drawn of them.
#pragma once

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/display/curves.h"

namespace drafting {

// A flat one as a polyline of the new form, without the frame that its curve was fitted to.
LwPolyline flatPolyline(const Database& database, const Polyline& polyline);

// A line in space, or the edges of a mesh or polyface, as ways seen from above.
std::vector<Path> spacePaths(const Database& database, const Polyline& polyline);

}  // namespace drafting

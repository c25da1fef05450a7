// Polylines of the old form as what is drawn of them.
#pragma once

#include "embedded/drafting/database/database.h"

namespace drafting {

// Its vertices but those of the frame that its curve was fitted to.
std::vector<const Vertex*> shownVertices(const Database& database, const Polyline& polyline);

// A flat one as a polyline of the new form of its shown vertices; not yet in a drawing, with the
// look of the old one and without its extended data.
LwPolyline flatPolyline(const Database& database, const Polyline& polyline);

// A line in space, or the edges of a mesh or polyface, as ways seen from above.
std::vector<std::vector<Point2>> spacePaths(const Database& database, const Polyline& polyline);

}  // namespace drafting

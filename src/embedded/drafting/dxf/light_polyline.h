// What old files have as a POLYLINE with its VERTEX entities, as one LWPOLYLINE.
#pragma once

#include <memory>

#include "embedded/drafting/database/database.h"

namespace drafting {

// The polyline with the points of its vertices; null where an LWPOLYLINE would lack something: in
// space, meshes, fitted curves, vertices with extended data.
std::unique_ptr<LwPolyline> lightPolyline(const Database& database, const Polyline& polyline);

}  // namespace drafting

// A parts list as a table in the drawing: lines and texts on a layer of its own.
#pragma once

#include "programs/vornik/parts_list.h"

namespace vornik {

inline constexpr const char* kPartsLayer = "设备表";

// Draws the table with its upper left corner at `corner`, in drawing units. Its sizes are those of
// a sheet: texts 3.5 mm high, `scale` drawing units to a millimetre. One step to take back.
void drawPartsTable(drafting::Database& database, const std::vector<Part>& parts,
                    base::Point2 corner, double scale);

// Right of all that the drawing shows, at its upper edge.
base::Point2 placeForTable(const drafting::Database& database, double scale);

}  // namespace vornik

// What a pick box, a window or a fence selects, by the strokes and areas as they are shown: blocks
// through their content, texts by their letters.
#pragma once

#include "embedded/drafting/picking/entity_index.h"
#include "embedded/drafting/picking/region.h"

namespace drafting {

// Of the entities that show within `reach` of the point in both directions the newest; 0 if none.
Handle entityAt(const Database& database, EntityIndex& index, Point2 point, double reach);

// All of these, newest first.
std::vector<Handle> entitiesAt(const Database& database, EntityIndex& index, Point2 point,
                               double reach);

// In creation order. Inside: what lies wholly within the region; crossing: what reaches into it or
// over it as well.
std::vector<Handle> entitiesInside(const Database& database, EntityIndex& index,
                                   const Region& region);
std::vector<Handle> entitiesCrossing(const Database& database, EntityIndex& index,
                                     const Region& region);

}  // namespace drafting

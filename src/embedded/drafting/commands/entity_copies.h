// Entities with all that belongs to them: copied, mapped.
#pragma once

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/database/transform.h"

namespace drafting {

// The entity alone, not yet in a drawing: without its attributes, dictionary and reactors.
std::unique_ptr<Entity> plainCopy(const Entity& entity);

// A copy at the end of the same block, its attributes and extended data included; 0 if the entity
// isn't understood and so can't be copied.
Handle copyEntity(Database& database, Handle handle);

// How members are transformed: vertices in the plane of their polyline, as it was.
TransformOptions memberOptions(const Entity& holder, TransformOptions options);

// The entity and its attributes; false, and nothing changed, if it can't be mapped so.
bool transformWithParts(Database& database, Handle handle, const Map3& map,
                        const TransformOptions& options = {});

}  // namespace drafting

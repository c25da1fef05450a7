// Moving entities. Handles and chains stay; the journal is the caller's.
#pragma once

#include "embedded/drafting/database/entities.h"

namespace drafting {

// What isn't understood stays where it is: false then.
bool moveEntity(Entity& entity, const Point3& by);

}  // namespace drafting

// Which objects of a drawing a DXF file can hold: those of known kinds whose owner it can hold too.
#pragma once

#include "embedded/drafting/database/database.h"

namespace drafting {

bool dxfHolds(const Database& database, Handle handle);

}  // namespace drafting

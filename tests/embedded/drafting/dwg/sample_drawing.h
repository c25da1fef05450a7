// A drawing that holds every kind with fields away from their initial values, and the comparison of
// two drawings object by object.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "embedded/drafting/database/database.h"

namespace drafting {

std::unique_ptr<Database> makeSampleDrawing();

// Expects the same objects (by handle, with all fields, in the same chains), the same drawing
// variables, classes and code page in both, and returns whether it is so. DXF has no table of
// viewport headers: its control object is left out of the comparison on demand.
bool expectSameDrawing(const Database& a, const Database& b, bool withViewportHeaders = true);

// A message that ASSERT can show; readers' messages are failures here.
std::unique_ptr<Database> reread(const Database& database);

}  // namespace drafting

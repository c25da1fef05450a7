// An entity in a line of text, for tests to compare.
#pragma once

#include <string>
#include <vector>

#include "embedded/drafting/database/database.h"

namespace test {

// "LINE 0,0 10,5", "INSERT A01 0,0 scale 2,2,2 [SCALE=1]", and behind it, where they aren't the
// usual ones, " on LAYER", " colour 3", " {APP 1000:text}".
std::string describe(const drafting::Database& database, const drafting::Entity& entity);
std::vector<std::string> describeModelSpace(const drafting::Database& database);

}  // namespace test

// Slides of the sample library's drawings.
#pragma once

#include <string>
#include <string_view>

#include "embedded/drafting/database/database.h"

namespace samples {

// Exactly the symbol's cell, so that the wires of neighbouring cells meet where slides stand side
// by side: x -3 to 3 (a three-wide symbol's -9 to 9), y -8 to 0. Its middle is a dot.
std::string symbolSlide(const drafting::Database& drawing, std::string_view name);

// An auxiliary symbol's, twice as wide as high as the icons are.
std::string iconSlide(const drafting::Database& drawing);

}  // namespace samples

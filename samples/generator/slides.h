// Slides of the sample library's drawings.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "embedded/base/status.h"
#include "embedded/drafting/database/database.h"

namespace samples {

// Exactly the symbol's cell, so that the wires of neighbouring cells meet where slides stand side
// by side: x -3 to 3 (a three-wide symbol's -9 to 9), y -8 to 0. Its middle is a dot.
std::string symbolSlide(const drafting::Database& drawing, std::string_view name);

// An auxiliary symbol's, twice as wide as high as the icons are.
std::string iconSlide(const drafting::Database& drawing);

using Slides = std::vector<std::pair<std::string, std::string>>;  // name, bytes

// Puts them into the slide library. Whatever slides it has else stay.
base::Status saveSlides(const std::filesystem::path& path, const Slides& slides);

}  // namespace samples

// Puts the shape fonts into an install, and beside them what their licences ask for.
#pragma once

#include <filesystem>

#include "embedded/base/status.h"

namespace samples {

// english.wzk and chinese.wzk are the fonts that the program carries; fonts.txt tells where they
// come from and what was changed, ARPHICPL.TXT is the licence of the Chinese one.
base::Status installFonts(const std::filesystem::path& folder);

}  // namespace samples

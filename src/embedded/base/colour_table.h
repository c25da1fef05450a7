// The host's colour table: indices 0 to 255 as the screen shows them on black.
#pragma once

#include "embedded/base/canvas.h"

namespace base {

// 0 and 7 are white; an index that there isn't is too.
Rgb screenColour(int index);

}  // namespace base

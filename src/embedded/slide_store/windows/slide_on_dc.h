// A slide in a box of pixels on a device context.
#pragma once

#include <windows.h>

#include <string_view>

namespace slide_store {

// False when it is no slide; a damaged one is drawn up to its damage.
bool drawSlide(HDC dc, std::string_view slide, int left, int top, int width, int height);

}  // namespace slide_store

// PNG files of pictures in memory.
// Format: W3C Recommendation "Portable Network Graphics", second edition.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace drafting {

// The file of a picture whose pixels stand in rows from the top, a pixel as 00RRGGBB hex. Both
// sides are above 0.
std::string makePng(int width, int height, std::span<const std::uint32_t> pixels);

}  // namespace drafting

// Base 64 with the standard alphabet and padding.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace common_funcs {

std::string toBase64(const std::vector<std::uint8_t>& bytes);
// Nothing for a text that toBase64 wouldn't write.
std::optional<std::vector<std::uint8_t>> fromBase64(std::string_view text);

}  // namespace common_funcs

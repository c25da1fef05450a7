// DXF groups kept as bytes: what a DXF file says of an object of a kind that isn't understood. Each
// group is its code (2 bytes), the length of its value (4 bytes, low byte first) and the value.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace drafting {

void packGroup(std::string& packed, int code, std::string_view value);

// Takes the first group off `packed`; false if there is none.
bool takeGroup(std::string_view& packed, int& code, std::string_view& value);

// Value of the first group of that code; "" if there is none.
std::string_view packedValue(std::string_view packed, int code);

}  // namespace drafting

// The host's palette as a table of bytes.
#include <array>

#include "embedded/base/colour_table.h"
#include "platform/common_funcs.h"

namespace {

std::array<std::uint8_t, 3 * kHostColours> makeTable() {
  std::array<std::uint8_t, 3 * kHostColours> table{};
  auto channel = table.begin();
  for (int index = 0; index < kHostColours; ++index) {
    const base::Rgb colour = base::screenColour(index);
    for (const std::uint8_t part : {colour.red, colour.green, colour.blue}) *channel++ = part;
  }
  return table;
}

const std::array<std::uint8_t, 3 * kHostColours> kTable = makeTable();

}  // namespace

const std::uint8_t* const lpszRGBData = kTable.data();

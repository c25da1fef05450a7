// Eight bytes a step: table k holds the effect of a byte that is followed by k further bytes.
#include "embedded/base/crc.h"

#include <array>

namespace base {

namespace {

using Table = std::array<std::uint16_t, 256>;
using Tables = std::array<Table, 8>;

constexpr std::uint16_t step(std::uint16_t crc) {
  return static_cast<std::uint16_t>(crc & 1 ? crc >> 1 ^ 0xA001 : crc >> 1);
}

constexpr Tables makeTables() {
  Tables tables{};
  for (unsigned byte = 0; byte < 256; ++byte) {
    auto crc = static_cast<std::uint16_t>(byte);
    for (int bit = 0; bit < 8; ++bit) crc = step(crc);
    tables[0][byte] = crc;
  }
  for (std::size_t k = 1; k < tables.size(); ++k)
    for (unsigned byte = 0; byte < 256; ++byte) {
      const std::uint16_t before = tables[k - 1][byte];
      tables[k][byte] = static_cast<std::uint16_t>(before >> 8 ^ tables[0][before & 0xFF]);
    }
  return tables;
}

constexpr Tables kTables = makeTables();
static_assert(kTables[0][1] == 0xC0C1 && kTables[0][255] == 0x4040);

}  // namespace

std::uint16_t crc16(const void* data, std::size_t size, std::uint16_t crc) {
  const auto* at = static_cast<const unsigned char*>(data);
  for (; size >= 8; at += 8, size -= 8)
    crc = static_cast<std::uint16_t>(kTables[7][(crc ^ at[0]) & 0xFF] ^
                                     kTables[6][(crc >> 8 ^ at[1]) & 0xFF] ^ kTables[5][at[2]] ^
                                     kTables[4][at[3]] ^ kTables[3][at[4]] ^ kTables[2][at[5]] ^
                                     kTables[1][at[6]] ^ kTables[0][at[7]]);
  for (; size > 0; ++at, --size)
    crc = static_cast<std::uint16_t>(crc >> 8 ^ kTables[0][(crc ^ *at) & 0xFF]);
  return crc;
}

}  // namespace base

// The 16-bit checksum of drawings: reflected CRC, polynomial A001, no final inversion.
#pragma once

#include <cstddef>
#include <cstdint>

namespace base {

// Every checksum of a drawing starts with this value.
inline constexpr std::uint16_t kDrawingCrcSeed = 0xC0C1;

// Checksum of `size` bytes at `data`, continuing from `crc`: crc16(b, crc16(a)) is that of a and b.
std::uint16_t crc16(const void* data, std::size_t size, std::uint16_t crc = kDrawingCrcSeed);

}  // namespace base

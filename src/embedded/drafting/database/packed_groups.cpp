#include "embedded/drafting/database/packed_groups.h"

namespace drafting {
namespace {

constexpr std::size_t kHead = 6;

void putLow(std::string& out, std::uint64_t value, int bytes) {
  for (; bytes > 0; --bytes, value >>= 8) out += static_cast<char>(value & 0xFF);
}

std::uint32_t low(std::string_view bytes, std::size_t at, std::size_t count) {
  std::uint32_t value = 0;
  for (std::size_t i = count; i > 0; --i) {
    value = value << 8 | static_cast<unsigned char>(bytes[at + i - 1]);
  }
  return value;
}

}  // namespace

void packGroup(std::string& packed, int code, std::string_view value) {
  putLow(packed, static_cast<std::uint16_t>(code), 2);
  putLow(packed, value.size(), 4);
  packed += value;
}

bool takeGroup(std::string_view& packed, int& code, std::string_view& value) {
  if (packed.size() < kHead) return false;
  code = static_cast<std::int16_t>(low(packed, 0, 2));
  const std::size_t size = low(packed, 2, 4);
  value = packed.substr(kHead, size);
  packed.remove_prefix(kHead + value.size());
  return true;
}

std::string_view packedValue(std::string_view packed, int code) {
  int found = 0;
  std::string_view value;
  while (takeGroup(packed, found, value)) {
    if (found == code) return value;
  }
  return {};
}

}  // namespace drafting

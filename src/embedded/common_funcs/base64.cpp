// Base 64.
#include "embedded/common_funcs/base64.h"

#include <algorithm>

namespace common_funcs {

namespace {
constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
}

std::string toBase64(const std::vector<std::uint8_t>& bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
    std::uint32_t group = 0;
    for (std::size_t j = 0; j < 3; ++j) group = group << 8 | (j < count ? bytes[i + j] : 0u);
    for (std::size_t j = 0; j < 4; ++j) {
      text += j <= count ? kAlphabet[group >> (18 - 6 * j) & 63] : '=';
    }
  }
  return text;
}

std::optional<std::vector<std::uint8_t>> fromBase64(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  std::vector<std::uint8_t> bytes;
  const std::size_t digits = std::min(text.find('='), text.size());
  std::uint32_t group = 0;
  for (std::size_t i = 0; i < digits; ++i) {
    const std::size_t digit = kAlphabet.find(text[i]);
    if (digit == std::string_view::npos) return std::nullopt;
    group = (group << 6 | static_cast<std::uint32_t>(digit)) & 0xFFFFFF;
    // After the second, third and fourth digit of four another byte is whole.
    if (i % 4 != 0) bytes.push_back(static_cast<std::uint8_t>(group >> (6 - i % 4 * 2)));
  }
  // Comparing with the writer's text settles padding and spare bits.
  if (toBase64(bytes) != text) return std::nullopt;
  return bytes;
}

}  // namespace common_funcs

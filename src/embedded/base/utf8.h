// Decoding of single UTF-8 and wide characters and the search for runs of ASCII, shared by the text
// files of this folder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace base {

inline constexpr char32_t kReplacement = 0xFFFD;

constexpr bool isHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
constexpr bool isLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }
constexpr char32_t joinSurrogates(char32_t high, char32_t low) {
  return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}
constexpr char16_t highSurrogate(char32_t c) {
  return static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
}
constexpr char16_t lowSurrogate(char32_t c) {
  return static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
}

// Number of ASCII bytes from `from` on.
inline std::size_t asciiRun(std::string_view text, std::size_t from) {
  std::size_t at = from;
  for (; at + 8 <= text.size(); at += 8) {
    std::uint64_t eight;
    std::memcpy(&eight, text.data() + at, 8);
    if (eight & 0x8080808080808080u) break;
  }
  while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80) ++at;
  return at - from;
}

struct Decoded {
  char32_t character;
  std::size_t length;  // bytes or wide characters taken, at least 1
  bool valid = true;
};

// The character that starts at `at`. A malformed one is U+FFFD with length 1 and not valid. The
// three-byte forms of surrogates are accepted.
inline Decoded decodeUtf8(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) -> char32_t {
    return at + i < text.size() ? static_cast<unsigned char>(text[at + i]) : 0;
  };
  const auto tail = [&](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
  const char32_t lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  if (lead >= 0xC2 && lead <= 0xDF && tail(1)) return {(lead & 0x1F) << 6 | (byte(1) & 0x3F), 2};
  if (lead >= 0xE0 && lead <= 0xEF && tail(1) && tail(2)) {
    const char32_t c = (lead & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
    if (c >= 0x800) return {c, 3};
  }
  if (lead >= 0xF0 && lead <= 0xF4 && tail(1) && tail(2) && tail(3)) {
    const char32_t c =
        (lead & 0x07) << 18 | (byte(1) & 0x3F) << 12 | (byte(2) & 0x3F) << 6 | (byte(3) & 0x3F);
    if (c >= 0x10000 && c <= 0x10FFFF) return {c, 4};
  }
  return {kReplacement, 1, false};
}

// The character that starts at `at`; two surrogates that belong together count as one character.
inline Decoded decodeWide(std::wstring_view text, std::size_t at) {
  const auto c = static_cast<char32_t>(text[at]);
  if (isHighSurrogate(c) && at + 1 < text.size()) {
    const auto low = static_cast<char32_t>(text[at + 1]);
    if (isLowSurrogate(low)) return {joinSurrogates(c, low), 2};
  }
  if (c > 0x10FFFF) return {kReplacement, 1, false};
  return {c, 1};
}

}  // namespace base

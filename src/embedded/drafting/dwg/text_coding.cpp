#include "embedded/drafting/dwg/text_coding.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "embedded/base/text.h"

namespace drafting {
namespace {

// The four hexadecimal digits at `at`; -1 if they aren't there.
int hexAt(std::string_view text, std::size_t at) {
  if (at + 4 > text.size()) return -1;
  unsigned value = 0;
  const auto [end, error] = std::from_chars(text.data() + at, text.data() + at + 4, value, 16);
  return error == std::errc() && end == text.data() + at + 4 ? static_cast<int>(value) : -1;
}

constexpr std::size_t kUnicodeLength = 7;  // \U+XXXX
constexpr std::size_t kDoubleLength = 8;   // \M+nXXXX

bool escapeAt(std::string_view text, std::size_t at, char letter) {
  return text.size() - at >= kUnicodeLength && text[at] == '\\' && (text[at + 1] | 32) == letter &&
         text[at + 2] == '+';
}

// Appends the character of a \U+ escape at `at`; returns its length, 0 if there is none.
std::size_t decodeUnicode(std::string_view text, std::size_t at, std::string& out) {
  if (!escapeAt(text, at, 'u')) return 0;
  const int unit = hexAt(text, at + 3);
  if (unit < 0) return 0;
  if (unit < 0xD800 || unit > 0xDFFF) {
    base::appendUtf8(out, static_cast<char32_t>(unit));
    return kUnicodeLength;
  }
  const std::size_t second = at + kUnicodeLength;
  if (unit > 0xDBFF || second >= text.size() || !escapeAt(text, second, 'u')) return 0;
  const int low = hexAt(text, second + 3);
  if (low < 0xDC00 || low > 0xDFFF) return 0;
  base::appendUtf8(out, static_cast<char32_t>(0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00)));
  return 2 * kUnicodeLength;
}

// The same for \M+n, whose n names one of five double-byte pages.
std::size_t decodeDouble(std::string_view text, std::size_t at, std::string& out) {
  constexpr std::array<int, 5> kPages{932, 950, 949, 1361, 936};
  if (!escapeAt(text, at, 'm') || text[at + 3] < '1' || text[at + 3] > '5') return 0;
  const int page = kPages[static_cast<std::size_t>(text[at + 3] - '1')];
  const int code = hexAt(text, at + 4);
  if (code < 0x100 || page != 936) return 0;  // the other pages' tables aren't here: stays as it is
  const std::array<char, 2> bytes{static_cast<char>(code >> 8), static_cast<char>(code)};
  const std::string character = base::utf8FromCodePage({bytes.data(), bytes.size()}, page);
  if (base::codePageFromUtf8(character, page).size() != 2 || character.size() > 4) return 0;
  out += character;
  return kDoubleLength;
}

}  // namespace

bool isAscii(std::string_view text) {
  std::size_t i = 0;
  for (; i + 8 <= text.size(); i += 8) {
    std::uint64_t word;
    std::memcpy(&word, text.data() + i, 8);
    if (word & 0x8080808080808080u) return false;
  }
  for (; i < text.size(); ++i) {
    if (static_cast<unsigned char>(text[i]) >= 0x80) return false;
  }
  return true;
}

std::string decodeText(std::string_view bytes, int codePage) {
  if (codePage == kPlainUtf8) return std::string(bytes);
  if (!bytes.empty() && bytes.back() == '\0') bytes.remove_suffix(1);
  return decodeEscapes(isAscii(bytes) ? std::string(bytes)
                                      : base::utf8FromCodePage(bytes, codePage));
}

std::string decodeEscapes(std::string text) {
  if (text.find('\\') == std::string::npos) return text;
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t length = decodeUnicode(text, at, out);
    if (length == 0) length = decodeDouble(text, at, out);
    if (length == 0) out += text[at];
    at += length == 0 ? 1 : length;
  }
  return out;
}

std::string encodeText(std::string_view utf8, int codePage) {
  if (codePage == kPlainUtf8 || isAscii(utf8)) return std::string(utf8);
  return base::codePageFromUtf8(utf8, codePage, base::Unmappable::unicodeEscape);
}

}  // namespace drafting

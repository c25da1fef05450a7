#include "programs/vornik/json.h"

#include <cmath>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"
#include "embedded/base/utf8.h"

namespace vornik {
namespace {

constexpr char kDigits[] = "0123456789abcdef";

void appendEscape(std::string& out, char32_t unit) {
  out += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) out += kDigits[unit >> shift & 15];
}

}  // namespace

std::string jsonText(std::string_view utf8) {
  std::string out = "\"";
  for (std::size_t at = 0; at < utf8.size();) {
    const base::Decoded decoded = base::decodeUtf8(utf8, at);
    const char32_t c = decoded.character;
    if (c == '"' || c == '\\') {
      out += '\\';
      out += static_cast<char>(c);
    } else if (c == '\n') {
      out += "\\n";
    } else if (c < 0x20 || base::isHighSurrogate(c) || base::isLowSurrogate(c)) {
      appendEscape(out, c);
    } else if (decoded.valid) {
      out.append(utf8.substr(at, decoded.length));
    } else {
      base::appendUtf8(out, base::kReplacement);
    }
    at += decoded.length;
  }
  return out + '"';
}

std::string jsonNumber(double value) {
  return std::isfinite(value) ? base::formatShortest(value) : "null";
}

}  // namespace vornik

// Numbers read and written through <charconv>, which knows no locale.
#include "embedded/base/numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

#include "embedded/base/text.h"

namespace base {

namespace {

template <class Char>
constexpr bool isSpace(Char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

template <class Char>
constexpr bool isDigit(Char c) {
  return c >= '0' && c <= '9';
}

template <class Char>
constexpr bool isHexDigit(Char c) {
  return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

template <class Char>
int readInt(std::basic_string_view<Char> text) {
  std::size_t at = 0;
  while (at < text.size() && isSpace(text[at])) ++at;
  bool negative = false;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) negative = text[at++] == '-';
  constexpr std::int64_t kLimit = std::int64_t{1} << 31;
  std::int64_t value = 0;
  for (; at < text.size() && isDigit(text[at]); ++at)
    value = std::min(kLimit, value * 10 + static_cast<std::int64_t>(text[at] - '0'));
  value = negative ? -value : std::min(value, kLimit - 1);
  return static_cast<int>(value);
}

// Walks over the characters of one number and finds its extent.
template <class Char>
class NumberScanner {
 public:
  explicit NumberScanner(std::basic_string_view<Char> text) : text_(text) {}

  ParsedDouble scan() {
    while (isSpace(peek())) ++at_;
    if (peek() == '+' || peek() == '-') negative_ = text_[at_++] == '-';
    if (word("infinity") || word("inf")) return result(std::numeric_limits<double>::infinity());
    if (word("nan")) {
      skipNanCharacters();
      return result(std::numeric_limits<double>::quiet_NaN());
    }
    if (peek() == '0' && (peek(1) | 0x20) == 'x' &&
        (isHexDigit(peek(2)) || (peek(2) == '.' && isHexDigit(peek(3))))) {
      at_ += 2;
      return number(std::chars_format::hex);
    }
    return number(std::chars_format::general);
  }

 private:
  char peek(std::size_t ahead = 0) const {
    if (at_ + ahead >= text_.size()) return 0;
    const auto c = static_cast<char32_t>(text_[at_ + ahead]);
    return c < 0x80 ? static_cast<char>(c) : '\x7F';
  }

  bool word(std::string_view expected) {
    for (std::size_t i = 0; i < expected.size(); ++i)
      if ((peek(i) | 0x20) != expected[i]) return false;
    at_ += expected.size();
    return true;
  }

  // "(letters, digits, underscores)" belongs to the NaN only when it is closed.
  void skipNanCharacters() {
    if (peek() != '(') return;
    std::size_t ahead = 1;
    while (isDigit(peek(ahead)) || peek(ahead) == '_' ||
           ((peek(ahead) | 0x20) >= 'a' && (peek(ahead) | 0x20) <= 'z'))
      ++ahead;
    if (peek(ahead) == ')') at_ += ahead + 1;
  }

  // Digits with at most one point, then an exponent if it has digits.
  ParsedDouble number(std::chars_format format) {
    const bool hex = format == std::chars_format::hex;
    bool digits = false;
    bool point = false;
    for (;; ++at_) {
      const char c = peek();
      if (c == '.' && !point)
        point = true;
      else if (hex ? isHexDigit(c) : isDigit(c))
        digits = true;
      else
        break;
      take(c);
    }
    if (!digits) return {};
    takeExponent(hex ? 'p' : 'e');
    return result(convert(format));
  }

  void take(char c) {
    digits_ += c;
    if (c == '.') {
      afterPoint_ = true;
    } else if (c != '0' || significant_) {
      significant_ = true;
      if (!afterPoint_) ++magnitude_;
    } else if (afterPoint_) {
      --magnitude_;
    }
  }

  void takeExponent(char letter) {
    if ((peek() | 0x20) != letter) return;
    std::size_t ahead = 1;
    const bool minus = peek(ahead) == '-';
    if (minus || peek(ahead) == '+') ++ahead;
    if (!isDigit(peek(ahead))) return;
    digits_ += letter;
    if (minus) digits_ += '-';
    for (; isDigit(peek(ahead)); ++ahead) {
      digits_ += peek(ahead);
      exponent_ = std::min(exponent_ * 10 + (peek(ahead) - '0'), kHugeExponent);
    }
    if (minus) exponent_ = -exponent_;
    at_ += ahead;
  }

  double convert(std::chars_format format) const {
    if (!significant_) return 0;
    double value = 0;
    const auto parsed =
        std::from_chars(digits_.data(), digits_.data() + digits_.size(), value, format);
    if (parsed.ec != std::errc::result_out_of_range) return value;
    const std::int64_t digitWeight = format == std::chars_format::hex ? 4 : 1;
    return magnitude_ * digitWeight + exponent_ > 0 ? std::numeric_limits<double>::infinity() : 0.0;
  }

  ParsedDouble result(double magnitude) const { return {negative_ ? -magnitude : magnitude, at_}; }

  static constexpr std::int64_t kHugeExponent = std::int64_t{1} << 50;

  std::basic_string_view<Char> text_;
  std::size_t at_ = 0;
  bool negative_ = false;
  std::string digits_;
  bool significant_ = false;
  bool afterPoint_ = false;
  std::int64_t magnitude_ = 0;  // digits before the point, less the zeros that follow it
  std::int64_t exponent_ = 0;
};

// Room for the longest double in %f (309 digits before the point) and its decimals.
template <class... Format>
std::string format(double value, Format... arguments) {
  std::array<char, 512> small;
  auto written = std::to_chars(small.data(), small.data() + small.size(), value, arguments...);
  if (written.ec == std::errc()) return {small.data(), written.ptr};
  std::string large(2048, '\0');
  for (;;) {
    written = std::to_chars(large.data(), large.data() + large.size(), value, arguments...);
    if (written.ec == std::errc()) break;
    large.resize(large.size() * 2);
  }
  large.resize(static_cast<std::size_t>(written.ptr - large.data()));
  return large;
}

}  // namespace

int wtoi(std::wstring_view text) { return readInt(text); }
int atoi(std::string_view text) { return readInt(text); }

ParsedDouble parseDouble(std::wstring_view text) { return NumberScanner<wchar_t>(text).scan(); }
ParsedDouble parseDouble(std::string_view text) { return NumberScanner<char>(text).scan(); }

std::string formatG(double value, int precision) {
  return format(value, std::chars_format::general, precision);
}

std::string formatF(double value, int precision) {
  return format(value, std::chars_format::fixed, precision);
}

std::string formatShortest(double value) { return format(value); }

std::string formatInt(long long value, int width) {
  std::array<char, 24> digits;
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  std::string text(digits.data(), written.ptr);
  const std::size_t sign = value < 0 ? 1 : 0;
  const auto wanted = static_cast<std::size_t>(std::max(width, 0));
  if (text.size() < wanted) text.insert(sign, wanted - text.size(), '0');
  return text;
}

std::string formatHex(std::uint64_t value) {
  std::array<char, 16> digits;
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16);
  return capitals({digits.data(), written.ptr});
}

}  // namespace base

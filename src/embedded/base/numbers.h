// Reading and writing of numbers as C does it in the "C" locale, whatever the locale is, with the
// same result on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace base {

// Leading white space, a sign, digits; 0 without digits; stops at the 32-bit limits.
int wtoi(std::wstring_view text);
int atoi(std::string_view text);

// A number at the start of a text, and how many characters it took (0: there is none).
struct ParsedDouble {
  double value = 0;
  std::size_t length = 0;
};

// C99's strtod: leading white space, sign, decimal or hexadecimal digits, exponent, "inf",
// "infinity", "nan" and "nan(...)" without regard to case. Too large gives an infinity, too small
// 0.
ParsedDouble parseDouble(std::wstring_view text);
ParsedDouble parseDouble(std::string_view text);

// printf's %.{precision}g and %.{precision}f.
std::string formatG(double value, int precision = 6);
std::string formatF(double value, int precision = 6);

// The fewest digits that read back as the same value: "0.1", "1e+30".
std::string formatShortest(double value);

// Decimal digits, at least `width` of them ("%02d" is formatInt(n, 2)); a sign counts as one.
std::string formatInt(long long value, int width = 0);

// Upper-case hexadecimal digits without leading zeros.
std::string formatHex(std::uint64_t value);

}  // namespace base

#include "embedded/drafting/plot/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace drafting {
namespace {

constexpr double kLargest = 1e9;

void appendDecimals(std::string& out, double value, int decimals) {
  const double unit = decimals == 3 ? 1000 : 1000000;
  const auto bounded = std::isnan(value) ? 0 : std::clamp(value, -kLargest, kLargest);
  const long long whole = std::llround(bounded * unit);
  const long long size = std::llabs(whole);
  const auto step = static_cast<long long>(unit);
  if (whole < 0) out += '-';
  char digits[24];
  out.append(digits, std::to_chars(digits, std::end(digits), size / step).ptr);
  long long rest = size % step;
  if (rest == 0) return;
  for (int i = decimals; i-- > 0; rest /= 10) digits[i] = static_cast<char>('0' + rest % 10);
  int length = decimals;
  while (digits[length - 1] == '0') --length;
  out.append(1, '.').append(digits, static_cast<std::size_t>(length));
}

}  // namespace

void appendNumber(std::string& out, double value) { appendDecimals(out, value, 3); }
void appendFactor(std::string& out, double value) { appendDecimals(out, value, 6); }

}  // namespace drafting

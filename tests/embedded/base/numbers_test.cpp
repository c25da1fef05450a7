#include "embedded/base/numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <random>

namespace {

using base::parseDouble;
using base::wtoi;

TEST(Wtoi, ReadsWhatCReads) {
  EXPECT_EQ(wtoi(L"12"), 12);
  EXPECT_EQ(wtoi(L" \t\n\v\f\r-7x"), -7);
  EXPECT_EQ(wtoi(L"+5"), 5);
  EXPECT_EQ(wtoi(L""), 0);
  EXPECT_EQ(wtoi(L"abc"), 0);
  EXPECT_EQ(wtoi(L"- 5"), 0);
  EXPECT_EQ(wtoi(L"+-5"), 0);
  EXPECT_EQ(wtoi(L"0x10"), 0);
  EXPECT_EQ(wtoi(L"007.9"), 7);
  EXPECT_EQ(base::atoi(" 42 "), 42);
}

TEST(Wtoi, StopsAtTheLimitsOf32Bits) {
  EXPECT_EQ(wtoi(L"2147483647"), 2147483647);
  EXPECT_EQ(wtoi(L"2147483648"), 2147483647);
  EXPECT_EQ(wtoi(L"-2147483648"), std::numeric_limits<int>::min());
  EXPECT_EQ(wtoi(L"-99999999999999999999999999"), std::numeric_limits<int>::min());
  EXPECT_EQ(wtoi(L"99999999999999999999999999"), 2147483647);
}

TEST(Wtoi, OnlyAsciiDigitsAndBlanksCount) {
  EXPECT_EQ(wtoi(L"１２"), 0);
  EXPECT_EQ(wtoi(L"\u3000"
                 L"12"),
            0);
}

struct Reading {
  const char* text;
  double value;
  std::size_t length;
};

class ParseDouble : public testing::TestWithParam<Reading> {};

TEST_P(ParseDouble, TakesTheLongestNumber) {
  const Reading& expected = GetParam();
  const std::string text = expected.text;
  const base::ParsedDouble narrow = parseDouble(text);
  const base::ParsedDouble wide = parseDouble(std::wstring(text.begin(), text.end()));
  EXPECT_EQ(narrow.length, expected.length);
  EXPECT_EQ(wide.length, expected.length);
  if (std::isnan(expected.value)) {
    EXPECT_TRUE(std::isnan(narrow.value) && std::isnan(wide.value));
  } else {
    EXPECT_EQ(narrow.value, expected.value);
    EXPECT_EQ(wide.value, expected.value);
    EXPECT_EQ(std::signbit(narrow.value), std::signbit(expected.value));
  }
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(
    C99, ParseDouble,
    testing::Values(
        Reading{"1.5", 1.5, 3}, Reading{"  -2.25abc", -2.25, 7}, Reading{"+.5", .5, 3},
        Reading{"5.", 5, 2}, Reading{"1e3", 1000, 3}, Reading{"1E+06", 1e6, 5}, Reading{"1e", 1, 1},
        Reading{"1e+", 1, 1}, Reading{"1e+x", 1, 1}, Reading{"1.2.3", 1.2, 3}, Reading{".", 0, 0},
        Reading{"", 0, 0}, Reading{"-", 0, 0}, Reading{"e5", 0, 0}, Reading{"- 1", 0, 0},
        Reading{"-0", -0.0, 2}, Reading{"1,5", 1, 1}, Reading{"inf", kInfinity, 3},
        Reading{"-INFINITY", -kInfinity, 9}, Reading{"infinit", kInfinity, 3}, Reading{"in", 0, 0},
        Reading{"NaN", kNaN, 3}, Reading{"nan(a_1)x", kNaN, 8}, Reading{"nan(a", kNaN, 3},
        Reading{"0x10", 16, 4}, Reading{"0x1.8p1", 3, 7}, Reading{"0x.8", .5, 4},
        Reading{"0x1p-2q", .25, 6}, Reading{"0x", 0, 1}, Reading{"0xg", 0, 1}, Reading{"0x.", 0, 1},
        Reading{"0x1p", 1, 3}, Reading{"1e400", kInfinity, 5}, Reading{"-1e400", -kInfinity, 6},
        Reading{"1e-400", 0, 6}, Reading{"-1e-400", -0.0, 7},
        Reading{"1e99999999999999999999999", kInfinity, 25},
        Reading{"0e99999999999999999999999", 0, 25}, Reading{"1e-99999999999999999999999", 0, 26},
        Reading{"0x1p99999", kInfinity, 9},
        Reading{"4.9406564584124654e-324", 4.9406564584124654e-324, 23},
        Reading{"2.2250738585072011e-308", 2.2250738585072011e-308, 23},
        Reading{"1.7976931348623157e308", 1.7976931348623157e308, 22}, Reading{"0.1", 0.1, 3},
        Reading{"9007199254740993", 9007199254740992.0, 16},
        Reading{"123456789012345678901234567890", 123456789012345678901234567890.0, 30}));

TEST(ParseDoubleExtremes, LongRunsOfZerosDoNotMisleadIt) {
  const std::string zeros(400, '0');
  EXPECT_EQ(parseDouble("0." + zeros + "1e401").value, 1.0);
  EXPECT_EQ(parseDouble("0." + zeros + "1").value, 0.0);
  EXPECT_EQ(parseDouble("1" + zeros).value, kInfinity);
  EXPECT_EQ(parseDouble("1" + zeros + "e-400").value, 1.0);
  EXPECT_EQ(parseDouble(zeros + "7").value, 7.0);
}

TEST(ParseDoubleExtremes, OnlyAsciiCharactersAreNumbers) {
  EXPECT_EQ(parseDouble(L"１").length, 0u);
  EXPECT_EQ(parseDouble(L"1\u0661").length, 1u);
}

TEST(Format, GIsPrintfs) {
  EXPECT_EQ(base::formatG(0), "0");
  EXPECT_EQ(base::formatG(-0.0), "-0");
  EXPECT_EQ(base::formatG(1e6), "1e+06");
  EXPECT_EQ(base::formatG(999999.5), "1e+06");
  EXPECT_EQ(base::formatG(123456), "123456");
  EXPECT_EQ(base::formatG(0.0001), "0.0001");
  EXPECT_EQ(base::formatG(0.00001), "1e-05");
  EXPECT_EQ(base::formatG(100000.5, 7), "100000.5");
  EXPECT_EQ(base::formatG(1.0 / 3, 16), "0.3333333333333333");
  EXPECT_EQ(base::formatG(1e-300), "1e-300");
  EXPECT_EQ(base::formatG(kInfinity), "inf");
  EXPECT_EQ(base::formatG(-kInfinity), "-inf");
}

TEST(Format, FIsPrintfs) {
  EXPECT_EQ(base::formatF(1.5), "1.500000");
  EXPECT_EQ(base::formatF(2.5, 0), "2");
  EXPECT_EQ(base::formatF(0.125, 2), "0.12");
  EXPECT_EQ(base::formatF(-1234.5678, 3), "-1234.568");
  EXPECT_EQ(base::formatF(1e300, 2).size(), 304u);
  EXPECT_EQ(base::formatF(1, 600).size(), 602u);
}

TEST(Format, ShortestReadsBackAsTheSameValue) {
  EXPECT_EQ(base::formatShortest(0.1), "0.1");
  EXPECT_EQ(base::formatShortest(1e30), "1e+30");
  EXPECT_EQ(base::formatShortest(100), "100");
  std::mt19937_64 random(1);
  for (int run = 0; run < 2000; ++run) {
    const double value =
        std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 600) - 300);
    const std::string text = base::formatShortest(value);
    EXPECT_EQ(parseDouble(text).value, value) << text;
    EXPECT_EQ(parseDouble(text).length, text.size());
  }
}

TEST(Format, AgreesWithPrintf) {
  std::mt19937_64 random(2);
  for (int run = 0; run < 2000; ++run) {
    const double value =
        std::ldexp(static_cast<double>(random()) - 9e18, static_cast<int>(random() % 120) - 90);
    const int precision = static_cast<int>(random() % 17);
    char expected[512];
    std::snprintf(expected, sizeof expected, "%.*g", precision, value);
    EXPECT_EQ(base::formatG(value, precision), expected);
    std::snprintf(expected, sizeof expected, "%.*f", precision, value);
    EXPECT_EQ(base::formatF(value, precision), expected);
  }
}

TEST(Format, IntegersArePaddedWithZeros) {
  EXPECT_EQ(base::formatInt(5, 2), "05");
  EXPECT_EQ(base::formatInt(123, 2), "123");
  EXPECT_EQ(base::formatInt(-5, 3), "-05");
  EXPECT_EQ(base::formatInt(std::numeric_limits<long long>::min()), "-9223372036854775808");
}

}  // namespace

// Formatting: the same text on every system and in every locale.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

#include "platform/framework_text.h"

namespace {

template <typename... Arguments>
std::wstring format(const wchar_t* pattern, Arguments... arguments) {
  CString text;
  text.Format(pattern, arguments...);
  return text.wide();
}

TEST(Format, WideTextsAndCharacters) {
  EXPECT_EQ(format(L"<%s|%5s|%-5s|%.2s>", L"空", L"ab", L"ab", L"abc"), L"<空|   ab|ab   |ab>");
  EXPECT_EQ(format(L"%c%c", L'主', L'x'), L"主x");
  EXPECT_EQ(format(L"%S", "utf-8 \xE7\xA9\xBA"), L"utf-8 空");
  EXPECT_EQ(format(L"%ls%hs", L"a", L"b"), L"ab");
  EXPECT_EQ(format(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)");
}

TEST(Format, Integers) {
  EXPECT_EQ(format(L"%d %i %u", -7, 8, 9u), L"-7 8 9");
  EXPECT_EQ(format(L"[%5d][%-5d][%05d][%+d][% d]", 42, 42, -42, 42, 42),
            L"[   42][42   ][-0042][+42][ 42]");
  EXPECT_EQ(format(L"%x %X %#x %o", 255, 255, 255, 8), L"ff FF 0xff 10");
  EXPECT_EQ(format(L"%#04d", 7), L"0007");
  EXPECT_EQ(format(L"%.3d|%.0d|%6.3d", 5, 0, 5), L"005||   005");
  EXPECT_EQ(format(L"%d", std::numeric_limits<int>::min()), L"-2147483648");
}

TEST(Format, Sizes) {
  EXPECT_EQ(format(L"%lld", std::numeric_limits<long long>::min()), L"-9223372036854775808");
  EXPECT_EQ(format(L"%I64d", 1LL << 40), L"1099511627776");
  EXPECT_EQ(format(L"%ld %lu", -1L, 2UL), L"-1 2");
  EXPECT_EQ(format(L"%zu", sizeof(char)), L"1");
  EXPECT_EQ(format(L"%hd", 3), L"3");
}

TEST(Format, Doubles) {
  EXPECT_EQ(format(L"%f %.2f %.0f", 1.5, 2.345, 0.5), L"1.500000 2.35 0");
  EXPECT_EQ(format(L"%g %g %g", 100.0, 1e6, 0.0001), L"100 1e+06 0.0001");
  EXPECT_EQ(format(L"%e", 12345.678), L"1.234568e+04");
  EXPECT_EQ(format(L"%8.3f|%-8.3f|%08.3f|%+g", 1.5, 1.5, -1.5, 2.0),
            L"   1.500|1.500   |-001.500|+2");
  EXPECT_EQ(format(L"%g %G", -0.0, 1e-10), L"-0 1E-10");
  EXPECT_EQ(format(L"%.0f", 1e300).size(), 301u);
}

TEST(Format, NumbersThatAreNone) {
  EXPECT_EQ(format(L"%g %f", std::numeric_limits<double>::infinity(), -INFINITY), L"inf -inf");
  EXPECT_EQ(format(L"%05g", std::numeric_limits<double>::infinity()), L"  inf");
}

TEST(Format, StarsTakeArguments) {
  EXPECT_EQ(format(L"[%*d][%-*d][%*d]", 4, 1, 4, 2, -4, 3), L"[   1][2   ][3   ]");
  EXPECT_EQ(format(L"[%.*f]", 1, 1.25), L"[1.2]");
}

TEST(Format, PercentAndUnfinishedDirectives) {
  EXPECT_EQ(format(L"100%%"), L"100%");
  EXPECT_EQ(format(L"end%"), L"end");
  EXPECT_EQ(format(L"%y"), L"y");
}

TEST(Format, RunawayWidthsAreBounded) { EXPECT_EQ(format(L"%999999999d", 1).size(), 65536u); }

TEST(Format, IgnoresTheLocale) {
  for (const char* name : {"de_DE.UTF-8", "German_Germany"}) std::setlocale(LC_ALL, name);
  EXPECT_EQ(format(L"%.1f %g", 1.5, 0.25), L"1.5 0.25");
  std::setlocale(LC_ALL, "C");
}

TEST(Format, AppendsAndFormatsFromItself) {
  CString text = L"a";
  text.AppendFormat(L"%d", 1);
  text.Format(L"%s!", text.GetString());
  EXPECT_EQ(text, L"a1!");
}

}  // namespace

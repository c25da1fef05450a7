#include "embedded/drafting/dwg/text_coding.h"

#include <gtest/gtest.h>

namespace drafting {
namespace {

using namespace std::string_literals;

TEST(DrawingText, OneClosingZeroIsTakenOff) {
  EXPECT_EQ(decodeText("abc\0"s, 1252), "abc");
  EXPECT_EQ(decodeText("abc\0\0"s, 1252), "abc\0"s);
  EXPECT_EQ(decodeText("\0"s, 936), "");
  EXPECT_EQ(decodeText("", 936), "");
}

TEST(DrawingText, EscapesBecomeTheirCharacters) {
  EXPECT_EQ(decodeText("a\\U+56FEb", 1252), "a图b");
  EXPECT_EQ(decodeText("\\u+56fe", 1252), "图");
  EXPECT_EQ(decodeText("\\U+D83D\\U+DE00", 1252), "😀");
  EXPECT_EQ(decodeText("\\M+5CDBC", 1252), "图");
}

TEST(DrawingText, WhatIsNoEscapeStays) {
  for (const char* text : {"\\U+56F", "\\U+", "\\", "\\U+56FX", "C:\\Users", "\\M+1CDBC", "\\M+5zz",
                           "\\U+D83D", "\\U+DE00", "\\U+D83D\\U+D83D", "\\P\\U56FE"}) {
    EXPECT_EQ(decodeText(text, 1252), text);
  }
}

TEST(DrawingText, ATrailByteMayBeABackslash) {
  const std::string bytes = "\x81\x5CU+0041"s;  // one character, then "U+0041"
  EXPECT_EQ(decodeText(bytes, 936), "乗U+0041");
  EXPECT_EQ(encodeText("乗U+0041", 936), bytes);
}

TEST(DrawingText, CharactersOutsideTheCodePageAreEscaped) {
  EXPECT_EQ(encodeText("é图", 1252), "\xE9\\U+56FE");
  EXPECT_EQ(encodeText("😀", 936), "\\U+D83D\\U+DE00");
  EXPECT_EQ(decodeText(encodeText("a😀图é", 936), 936), "a😀图é");
}

TEST(DrawingText, EveryByteSurvives) {
  for (const int page : {936, 1250, 1251, 1252}) {
    for (int a = 1; a < 256; ++a) {
      for (int b = 1; b < 256; ++b) {
        const std::string bytes{static_cast<char>(a), static_cast<char>(b)};
        ASSERT_EQ(encodeText(decodeText(bytes, page), page), bytes) << page << " " << a << " " << b;
      }
    }
  }
}

TEST(DrawingText, PlainTextIsLeftAlone) {
  EXPECT_EQ(decodeText("\\U+56FE\0"s, kPlainUtf8), "\\U+56FE\0"s);
  EXPECT_EQ(encodeText("图", kPlainUtf8), "图");
}

}  // namespace
}  // namespace drafting

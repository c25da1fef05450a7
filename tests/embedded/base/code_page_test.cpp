#include <gtest/gtest.h>

#include <random>

#include "embedded/base/text.h"

namespace {

using base::ansiFromWide;
using base::codePageFromUtf8;
using base::Unmappable;
using base::utf8FromCodePage;
using base::wideFromAnsi;

TEST(Ansi, ChineseTextRoundTrips) {
  const std::string bytes = "\xB8\xF4\xC0\xEB\xBF\xAA\xB9\xD8";  // 隔离开关
  EXPECT_EQ(wideFromAnsi(bytes), L"隔离开关");
  EXPECT_EQ(ansiFromWide(L"隔离开关"), bytes);
  EXPECT_EQ(base::ansiFromUtf8(base::utf8FromWide(L"A隔1")),
            "A\xB8\xF4"
            "1");
}

TEST(Ansi, TheEuroSignIsByte80) {
  EXPECT_EQ(wideFromAnsi("\x80"), L"€");
  EXPECT_EQ(ansiFromWide(L"€"), "\x80");
}

TEST(Ansi, PunctuationIsMicrosofts) {
  EXPECT_EQ(wideFromAnsi("\xA1\xA4\xA1\xAA\xA8\x44"), L"\u00B7\u2014\u2015");
}

TEST(Ansi, TheUsersOwnCharactersFillThePrivateArea) {
  EXPECT_EQ(wideFromAnsi("\xAA\xA1\xAF\xFE"), L"\uE000\uE233");
  EXPECT_EQ(wideFromAnsi("\xF8\xA1\xFE\xFE"), L"\uE234\uE4C5");
  EXPECT_EQ(wideFromAnsi("\xA1\x40\xA1\x7E\xA1\x80\xA7\xA0"), L"\uE4C6\uE504\uE505\uE765");
  EXPECT_EQ(ansiFromWide(L"\uE000\uE504\uE505\uE765"), "\xAA\xA1\xA1\x7E\xA1\x80\xA7\xA0");
}

TEST(Ansi, WhatCannotBeMappedBecomesAQuestionMark) {
  EXPECT_EQ(ansiFromWide(L"aéb"),
            "a\xA8\xA6"
            "b");  // é is in the page, as a pinyin letter
  EXPECT_EQ(ansiFromWide(L"añb"), "a?b");
  EXPECT_EQ(ansiFromWide(L"\uFFFD"), "?");
  EXPECT_EQ(wideFromAnsi("a\xFF"
                         "b\x81"),
            L"a?b?");
  EXPECT_EQ(wideFromAnsi("\x81 "), L"? ");
}

TEST(Ansi, ATrailByteThatLooksLikeABackslashBelongsToItsCharacter) {
  EXPECT_EQ(wideFromAnsi("\x81\x5C\\"), L"乗\\");
  EXPECT_EQ(ansiFromWide(L"乗\\"), "\x81\x5C\\");
}

TEST(CodePage, SingleBytePagesDecodeTheirLetters) {
  EXPECT_EQ(utf8FromCodePage("\xC0\xFF", 1251), base::utf8FromWide(L"Ая"));
  EXPECT_EQ(utf8FromCodePage("\xA3\xB3", 1250), base::utf8FromWide(L"Łł"));
  EXPECT_EQ(utf8FromCodePage("\xE9\x80", 1252), base::utf8FromWide(L"é€"));
}

TEST(CodePage, AnUnknownPageIsReadAs1252) {
  EXPECT_EQ(utf8FromCodePage("\xE9", 874), base::utf8FromWide(L"é"));
  EXPECT_EQ(codePageFromUtf8(base::utf8FromWide(L"é"), 0), "\xE9");
}

TEST(CodePage, AnUndecodableByteIsCarried) {
  EXPECT_EQ(utf8FromCodePage("a\xFFz", 936), "a\xED\xB3\xBFz");
  EXPECT_EQ(codePageFromUtf8("a\xED\xB3\xBFz", 936), "a\xFFz");
  EXPECT_EQ(utf8FromCodePage("\x81", 1252), "\xED\xB2\x81");
}

TEST(CodePage, CharactersOutsideThePageTakeTheChosenForm) {
  const std::string text = base::utf8FromWide(L"a隔😀");
  EXPECT_EQ(codePageFromUtf8(text, 1252), "a??");
  EXPECT_EQ(codePageFromUtf8(text, 1252, Unmappable::unicodeEscape), "a\\U+9694\\U+D83D\\U+DE00");
  EXPECT_EQ(codePageFromUtf8(text, 936, Unmappable::unicodeEscape), "a\xB8\xF4\\U+D83D\\U+DE00");
}

TEST(CodePage, AppendingKeepsWhatIsThere) {
  std::string out = "x";
  base::appendUtf8FromCodePage(out, "\xC0", 1251);
  EXPECT_EQ(out, "xА");
  std::string bytes = "y";
  base::appendCodePageFromUtf8(bytes, out, 1251);
  EXPECT_EQ(bytes, "yx\xC0");
}

class EveryCodePage : public testing::TestWithParam<int> {};

TEST_P(EveryCodePage, NoSequenceOfBytesIsLost) {
  std::mt19937 random(936);
  for (int run = 0; run < 3000; ++run) {
    std::string bytes(random() % 24, '\0');
    for (char& byte : bytes)
      byte = static_cast<char>(random() % 3 ? random() : 0x20 + random() % 0x60);
    const std::string text = utf8FromCodePage(bytes, GetParam());
    EXPECT_TRUE(base::isUtf8(text));
    EXPECT_EQ(codePageFromUtf8(text, GetParam()), bytes);
  }
}

TEST_P(EveryCodePage, EveryPairOfBytesRoundTrips) {
  for (int first = 0; first < 256; ++first)
    for (int second = 0; second < 256; ++second) {
      const std::string bytes = {static_cast<char>(first), static_cast<char>(second)};
      ASSERT_EQ(codePageFromUtf8(utf8FromCodePage(bytes, GetParam()), GetParam()), bytes)
          << first << ' ' << second;
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, EveryCodePage, testing::Values(936, 1250, 1251, 1252));

}  // namespace

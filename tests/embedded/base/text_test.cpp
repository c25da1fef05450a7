#include "embedded/base/text.h"

#include <gtest/gtest.h>

namespace {

using base::utf8FromWide;
using base::wideFromUtf8;

TEST(Utf8, RoundTripsCharactersOfEveryLength) {
  const std::string text = "A\xC3\xA9\xE9\x9A\x94\xF0\x9F\x98\x80z";  // A é 隔 😀 z
  EXPECT_EQ(utf8FromWide(wideFromUtf8(text)), text);
  EXPECT_EQ(wideFromUtf8(text), L"A\u00E9\u9694\U0001F600z");
}

TEST(Utf8, AsciiOfEveryLengthIsKept) {
  std::string text;
  for (int length = 0; length < 40; ++length) {
    EXPECT_EQ(utf8FromWide(wideFromUtf8(text)), text);
    text += static_cast<char>('a' + length % 26);
  }
}

TEST(Utf8, ASurrogatePairOfWideTextBecomesOneCharacter) {
  const std::wstring pair = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
  EXPECT_EQ(utf8FromWide(pair), "\xF0\x9F\x98\x80");
}

TEST(Utf8, TwoThreeByteFormsThatMakeAPairAreOneCharacter) {
  const std::wstring wide = base::wideFromUtf8("a\xED\xAB\xAB\xED\xB4\xABz");
  EXPECT_EQ(wide, base::wideFromUtf8("a\xF3\x8A\xB4\xABz"));
  EXPECT_EQ(base::wideFromUtf8(base::utf8FromWide(wide)), wide);
}

TEST(Utf8, LoneSurrogatesSurvive) {
  const std::wstring lone = {L'a', static_cast<wchar_t>(0xDCB0), L'b',
                             static_cast<wchar_t>(0xD83D)};
  EXPECT_EQ(utf8FromWide(lone),
            "a\xED\xB2\xB0"
            "b\xED\xA0\xBD");
  EXPECT_EQ(wideFromUtf8(utf8FromWide(lone)), lone);
}

TEST(Utf8, EveryMalformedByteBecomesOneReplacement) {
  EXPECT_EQ(wideFromUtf8("a\xFF\x80z"), L"a\uFFFD\uFFFDz");
  EXPECT_EQ(wideFromUtf8("\xC0\x80"), L"\uFFFD\uFFFD");            // overlong
  EXPECT_EQ(wideFromUtf8("\xE9\x9A"), L"\uFFFD\uFFFD");            // cut
  EXPECT_EQ(wideFromUtf8("\xF4\x90\x80\x80").size(), 4u);          // beyond the last character
  EXPECT_EQ(wideFromUtf8("\xE0\x80\x80"), L"\uFFFD\uFFFD\uFFFD");  // overlong
}

TEST(Utf8, NulIsACharacterLikeOthers) {
  const std::wstring text(L"a\0b", 3);
  EXPECT_EQ(utf8FromWide(text), std::string("a\0b", 3));
  EXPECT_EQ(wideFromUtf8(std::string_view("a\0b", 3)), text);
}

TEST(Utf8, ValidityIsTheAbsenceOfMalformedBytes) {
  EXPECT_TRUE(base::isUtf8(""));
  EXPECT_TRUE(base::isUtf8("0123456789 \xE9\x9A\x94 \xED\xB2\xB0"));
  EXPECT_FALSE(base::isUtf8("0123456789\x80"));
  EXPECT_FALSE(base::isUtf8("\xE9\x9A"));
}

TEST(LetterCase, CapitalsOfAsciiLettersOnly) {
  EXPECT_EQ(base::capitals("az{`AZ09é_"), "AZ{`AZ09é_");
}

struct CasePair {
  const wchar_t* upper;
  const wchar_t* lower;
};

class LetterCase : public testing::TestWithParam<CasePair> {};

TEST_P(LetterCase, CapitalsFoldToSmallLetters) {
  EXPECT_EQ(base::lowerCase(std::wstring_view(GetParam().upper)), GetParam().lower);
  EXPECT_EQ(base::lowerCase(utf8FromWide(GetParam().upper)), utf8FromWide(GetParam().lower));
  EXPECT_EQ(base::lowerCase(std::wstring_view(GetParam().lower)), GetParam().lower);
  EXPECT_TRUE(base::equalsNoCase(std::wstring_view(GetParam().upper), GetParam().lower));
  EXPECT_TRUE(base::equalsNoCase(utf8FromWide(GetParam().upper), utf8FromWide(GetParam().lower)));
}

INSTANTIATE_TEST_SUITE_P(Scripts, LetterCase,
                         testing::Values(CasePair{L"AZ[09", L"az[09"},
                                         CasePair{L"ÀÖØÞ×ß", L"àöøþ×ß"},
                                         CasePair{L"ĀŁŹŻŸ", L"āłźżÿ"},
                                         CasePair{L"ΑΣΩΆΈΌΏ", L"ασωάέόώ"},
                                         CasePair{L"АЯЁЏҐ", L"аяёџґ"}, CasePair{L"ＡＺ", L"ａｚ"},
                                         CasePair{L"ǍǙ", L"ǎǚ"}, CasePair{L"隔离", L"隔离"}));

TEST(LetterCase, DifferentTextsDiffer) {
  EXPECT_FALSE(base::equalsNoCase(std::wstring_view(L"abc"), L"abd"));
  EXPECT_FALSE(base::equalsNoCase(std::wstring_view(L"abc"), L"ab"));
  EXPECT_FALSE(base::equalsNoCase(std::string_view("ab"), "abc"));
  EXPECT_FALSE(base::equalsNoCase(std::string_view("\xFF"), "\xFE"));
  EXPECT_TRUE(base::equalsNoCase(std::string_view("A\xFF"), "a\xFF"));
}

TEST(Trim, TakesAsciiWhiteSpaceFromTheEnds) {
  EXPECT_EQ(base::trim(std::wstring_view(L" \t\r\n\v\f a b \n")), L"a b");
  EXPECT_EQ(base::trimLeft(std::wstring_view(L"  a ")), L"a ");
  EXPECT_EQ(base::trimRight(std::wstring_view(L"  a ")), L"  a");
  EXPECT_EQ(base::trim(std::string_view("  x ")), "x");
  EXPECT_EQ(base::trimLeft(std::string_view("  x ")), "x ");
  EXPECT_EQ(base::trimRight(std::string_view("  x ")), "  x");
  EXPECT_EQ(base::trim(std::wstring_view(L"   ")), L"");
}

TEST(Trim, KeepsTheWideBlank) {
  EXPECT_EQ(base::trim(std::wstring_view(L"\u3000a\u00A0")), L"\u3000a\u00A0");
}

}  // namespace

// The row reader: the format, each message, and rows that are written carelessly.
#include "engine/row_reader.h"

#include <gtest/gtest.h>

namespace {

const std::wstring kExample =
    LR"(("05" "A01" "DW15-1600 3P" 0 10 0 "B12" "" 30 -20 90 "&&&&" 0 10 30 10 30 10 30 -20 )"
    LR"("TEXT" "QF1" 1 3 5 2 0 "KM1" 3 2.5 35 -18 90))";

const wchar_t* const kWrongContent = L"\n行内容错误";
const wchar_t* const kFormat1 = L"\n数据格式错误1";
const wchar_t* const kFormat2 = L"\n数据格式错误2";
const wchar_t* const kFormat3 = L"\n数据格式错误3";
const wchar_t* const kNoData = L"\n数据文件中该数据行无数据!";

using Names = std::vector<std::wstring>;
using Points = std::vector<RowPoint>;
using Numbers = std::vector<double>;

CircuitRow read(const std::wstring& row) {
  const RowReading reading = readRow(row);
  EXPECT_EQ(reading.message, L"");
  return reading.row;
}

std::wstring messageOf(const std::wstring& row) { return readRow(row).message; }

// A row with one block and the given lines and texts.
std::wstring withTail(const std::wstring& tail) {
  return LR"(("05" "A01" "" 0 10 0 "&&&&")" + tail + L")";
}

TEST(RowReader, ReadsBlocksLinesAndTexts) {
  const CircuitRow row = read(kExample);
  EXPECT_EQ(row.names, (Names{L"A01", L"B12"}));
  EXPECT_EQ(row.specifications, (Names{L"DW15-1600 3P", L""}));
  EXPECT_EQ(row.points, (Points{{0, 10}, {30, -20}}));
  EXPECT_EQ(row.angles, (Numbers{0, 90}));
  EXPECT_EQ(row.starts, (Points{{0, 10}, {30, 10}}));
  EXPECT_EQ(row.ends, (Points{{30, 10}, {30, -20}}));
  EXPECT_EQ(row.texts, (Names{L"QF1", L"KM1"}));
  EXPECT_EQ(row.colours, (std::vector<std::int32_t>{1, 3}));
  EXPECT_EQ(row.heights, (Numbers{3, 2.5}));
  EXPECT_EQ(row.textPoints, (Points{{5, 2}, {35, -18}}));
  EXPECT_EQ(row.textAngles, (Numbers{0, 90}));
}

TEST(RowReader, EmptyRowHoldsNoData) { EXPECT_EQ(messageOf(L""), kNoData); }

TEST(RowReader, WithoutSeparatorTheBeginningIsReadAsLines) {
  EXPECT_EQ(messageOf(LR"(("05" "A01" "" 0 10 0))"), kFormat3);
  EXPECT_EQ(messageOf(LR"(("05" "A01" "" 0))"), kNoData);
}

TEST(RowReader, RowMustStartWithParenthesis) {
  EXPECT_EQ(messageOf(LR"(x("05" "A01" "" 0 10 0 "&&&&"))"), kWrongContent);
  EXPECT_EQ(messageOf(LR"(  ("05" "A01" "" 0 10 0 "&&&&"))"), L"");
}

TEST(RowReader, LetterAtTheStartIsSeenOnlyBeforeALaterSeparator) {
  EXPECT_EQ(messageOf(L"x \"&&&&\""), kWrongContent);
  EXPECT_EQ(messageOf(L"x&&&&"), kNoData);  // separator at 1: no block pass
  EXPECT_EQ(messageOf(L"xyz"), kNoData);
}

TEST(RowReader, SeparatorStraightAfterTheNumberHoldsNoData) {
  EXPECT_EQ(messageOf(LR"(("05" "&&&&"))"), kNoData);
}

TEST(RowReader, TwoBlanksAfterNumberShiftEveryField) {
  EXPECT_EQ(messageOf(LR"(("05"  "A01" "" 0 10 0 "&&&&" 0 0 1 1))"), kFormat1);
}

TEST(RowReader, TwoBlanksBeforeQuotedFieldLeaveTheQuoteIn) {
  const CircuitRow row = read(LR"(("05" "A01"  "" 0 10 0 "&&&&"))");
  EXPECT_EQ(row.names, Names{L"A01"});
  EXPECT_EQ(row.specifications, Names{L"\""});
}

TEST(RowReader, TwoBlanksBeforeNumberDoNoHarm) {
  const CircuitRow row = read(LR"(("05" "A01" ""  3   10  7 "&&&&"  0  1  2  3))");
  EXPECT_EQ(row.points, (Points{{3, 10}}));
  EXPECT_EQ(row.angles, Numbers{7});
  EXPECT_EQ(row.ends, (Points{{2, 3}}));
}

TEST(RowReader, ParenthesisInSpecificationDropsTheTexts) {
  EXPECT_EQ(messageOf(LR"row(("05" "A01" "3P)" 0 10 0 "&&&&" 0 0 1 1 "TEXT" "QF1" 1 3 5 2 0))row"),
            kFormat3);
}

TEST(RowReader, TextWordInSpecificationMovesTheTextPart) {
  const CircuitRow row =
      read(LR"(("05" "A01" "TEXT 3P" 0 10 0 "&&&&" 0 0 1 1 "TEXT" "QF1" 1 3 5 2 0))");
  EXPECT_EQ(row.names, Names{L"A01"});
  EXPECT_TRUE(row.starts.empty());
  // Behind the word's blank: 3P" 0 10 0 "&&&&" 0, then 0 1 1 "TEXT" "QF1" 1, then 3 5 2 0.
  EXPECT_EQ(row.texts, (Names{L"P", L"", L""}));
}

TEST(RowReader, TextOfTwoWordsShiftsTheFieldsBehindIt) {
  const CircuitRow row = read(withTail(LR"( "TEXT" "two words" 1 3 5 2 0)"));
  EXPECT_EQ(row.texts, (Names{L"tw", L""}));
  EXPECT_EQ(row.colours, (std::vector<std::int32_t>{0}));
  EXPECT_EQ(row.heights, Numbers{1});
}

TEST(RowReader, UnquotedSeparatorAfterOneBlankLosesTheAngle) {
  EXPECT_EQ(messageOf(L"(\"05\" \"A01\" \"\" 0 10 0 &&&& 0 0 1 1)"), kFormat2);
  EXPECT_EQ(messageOf(L"(\"05\" \"A01\" \"\" 0 10 0  &&&& 0 0 1 1)"), L"");
}

TEST(RowReader, BareNamesAreReadLikeQuotedOnes) {
  const CircuitRow row = read(LR"(("05" A01 xx 0 10 0 "&&&&" 0 0 1 1))");
  EXPECT_EQ(row.names, Names{L"A01"});
  EXPECT_EQ(row.specifications, Names{L"xx"});
}

TEST(RowReader, CountsOfFieldsDecideTheMessage) {
  const auto blocks = [](const std::wstring& fields) {
    return LR"(("05" "A01" "" 1 2 3 )" + fields + LR"("&&&&"))";
  };
  EXPECT_EQ(messageOf(blocks(L"\"B\" ")), kFormat1);
  EXPECT_EQ(messageOf(blocks(L"\"B\" \"\" ")), kFormat1);
  EXPECT_EQ(messageOf(blocks(L"\"B\" \"\" 1 ")), kFormat1);
  EXPECT_EQ(messageOf(blocks(L"\"B\" \"\" 1 2 ")), kFormat2);
  EXPECT_EQ(messageOf(blocks(L"\"B\" \"\" 1 2 3 ")), L"");
  EXPECT_EQ(messageOf(withTail(L" 1 2")), kFormat3);
  EXPECT_EQ(messageOf(withTail(L" 1 2 3")), kFormat3);
}

TEST(RowReader, FirstWrongCountGivesTheMessage) {
  EXPECT_EQ(messageOf(LR"(("05" "A01" "" 1 "&&&&" 1 2))"), kFormat1);
  EXPECT_EQ(messageOf(LR"(("05" "A01" "" 1 2 "&&&&" 1 2))"), kFormat2);
  EXPECT_EQ(messageOf(LR"(("05" "&&&&" 1 2))"), kFormat3);
}

TEST(RowReader, NumberMayHoldABlankInQuotes) {
  EXPECT_EQ(read(LR"(("0 5" "A01" "" 0 10 0 "&&&&"))").names, Names{L"A01"});
}

TEST(RowReader, BlankBeforeTheParenthesisEndsNoField) {
  const CircuitRow row = read(withTail(LR"( 0 0 1 1 "TEXT" "QF1" 1 3 5 2 0 )"));
  EXPECT_EQ(row.ends.size(), 1u);
  EXPECT_EQ(row.texts, Names{L"QF1"});
}

TEST(RowReader, ParenthesisStraightAfterTheTextMarkerIsAnEmptyText) {
  const CircuitRow row = read(withTail(LR"( "TEXT")"));
  EXPECT_EQ(row.texts, Names{L""});
  EXPECT_TRUE(row.colours.empty());
}

TEST(RowReader, LoneXOfALineIsDropped) {
  const CircuitRow row = read(withTail(L" 1 2 3 4 5"));
  EXPECT_EQ(row.starts, (Points{{1, 2}}));
  EXPECT_EQ(row.ends, (Points{{3, 4}}));
}

TEST(RowReader, SpecificationsAreTrimmedOfAsciiWhiteSpace) {
  const CircuitRow row = read(L"(\"05\" \"A01\" \" \t3P\u3000 \" 0 10 0 \"&&&&\")");
  EXPECT_EQ(row.specifications, Names{L"3P\u3000"});  // a wide blank is text
}

TEST(RowReader, OnlyTheBlankSeparates) {
  const CircuitRow row = read(L"(\"05\" \"A\t01\" \"\" 0 10 0 \"&&&&\")");
  EXPECT_EQ(row.names, Names{L"A\t01"});
}

TEST(RowReader, NumbersAreReadAsTheCLibraryReadsThem) {
  const CircuitRow row = read(LR"(("05" "A01" "" 1e2 -.5 0x10 "B" "" 2.5mm x 1,5 "&&&&"))");
  EXPECT_EQ(row.points, (Points{{100, -0.5}, {2.5, 0}}));
  EXPECT_EQ(row.angles, (Numbers{16, 1}));
}

TEST(RowReader, ColourStopsAtTheLimits) {
  const CircuitRow row =
      read(withTail(LR"( "TEXT" "A" 99999999999 1 0 0 0 "B" -99999999999 1 0 0 0)"));
  EXPECT_EQ(row.colours, (std::vector<std::int32_t>{2147483647, -2147483647 - 1}));
}

TEST(RowReader, TextTokenOfOneCharacterIsAnEmptyText) {
  const CircuitRow row = read(withTail(LR"( "TEXT" x 1 3 5 2 0 xy 1 3 5 2 0 xyz 1 3 5 2 0)"));
  EXPECT_EQ(row.texts, (Names{L"", L"", L"y"}));
}

TEST(RowReader, RowEndingInsideATextLeavesListsUnequal) {
  const CircuitRow row = read(withTail(LR"( "TEXT" "QF1" 1 3 5 2 0 "KM1" 3)"));
  EXPECT_EQ(row.texts.size(), 2u);
  EXPECT_EQ(row.colours.size(), 2u);
  EXPECT_EQ(row.heights.size(), 1u);
  EXPECT_EQ(row.textAngles.size(), 1u);
}

TEST(RowReader, RowThatIsNeverClosedHasNoTexts) {
  const RowReading reading = readRow(LR"(("05" "A01" "" 0 10 0 "&&&&" 0 0 1 1 "TEXT" "QF1" 1 3)");
  EXPECT_TRUE(reading.row.texts.empty());
}

TEST(RowReader, FirstParenthesisEndsTheRow) {
  const CircuitRow row = read(withTail(L" 0 0 1 1") + L" 5 5 6 6)");
  EXPECT_EQ(row.starts.size(), 1u);
}

}  // namespace

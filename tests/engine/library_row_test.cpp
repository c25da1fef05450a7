// The library's reading of a row, where it differs from placing's.
#include <gtest/gtest.h>

#include "engine/row_reader.h"

namespace {

const wchar_t* const kWrongContent = L"\n 行内容错误!";
const wchar_t* const kFormat3 = L"\n数据格式错误3";
const wchar_t* const kNoData = L"\n数据文件中该数据行无数据!";

using Names = std::vector<std::wstring>;
using Points = std::vector<RowPoint>;

LibraryRowReading read(const std::wstring& row) {
  LibraryRowReading reading = readLibraryRow(row);
  EXPECT_EQ(reading.message, L"");
  return reading;
}
std::wstring messageOf(const std::wstring& row) { return readLibraryRow(row).message; }
std::wstring numberOf(const std::wstring& row) {
  return readLibraryRow(row).number.value_or(L"(none)");
}

TEST(LibraryRow, ReadsWhatPlacingReads) {
  const std::wstring row =
      LR"(("05" "A01" "DW15-1600 3P" 0 10 0 "B12" "" 30 -20 90.50 "&&&&" 0 10 30 10 "TEXT" )"
      LR"("QF1" 1 3 5 2 0))";
  const LibraryRowReading reading = read(row);
  const CircuitRow placed = readRow(row).row;
  EXPECT_EQ(reading.number, L"05");
  EXPECT_EQ(reading.row.names, placed.names);
  EXPECT_EQ(reading.row.specifications, placed.specifications);
  EXPECT_EQ(reading.row.points, placed.points);
  EXPECT_EQ(reading.row.angles, placed.angles);
  EXPECT_EQ(reading.row.angleTexts, (Names{L"0", L"90.50"}));
  EXPECT_EQ(reading.row.starts, placed.starts);
  EXPECT_EQ(reading.row.ends, placed.ends);
  EXPECT_EQ(reading.row.texts, placed.texts);
  EXPECT_EQ(reading.row.heights, placed.heights);
}

TEST(LibraryRow, WithoutABlankIsRefused) {
  EXPECT_EQ(messageOf(L""), kWrongContent);
  EXPECT_EQ(messageOf(LR"(("05"))"), kWrongContent);
  EXPECT_EQ(numberOf(LR"(("05"))"), L"(none)");
  EXPECT_EQ(messageOf(LR"(("05" )"), kNoData);
}

TEST(LibraryRow, NumberIsWhatStandsBeforeTheFirstBlank) {
  EXPECT_EQ(numberOf(LR"(("05" x)"), L"05");
  EXPECT_EQ(numberOf(LR"(("" x)"), L"");
  EXPECT_EQ(numberOf(L" x"), L"");
  EXPECT_EQ(numberOf(L"(\" x"), L"");
  EXPECT_EQ(numberOf(L"abcdef x"), L"cde");  // whatever the characters are
}

TEST(LibraryRow, FirstCharacterMayBeAny) {
  const std::wstring tail = LR"("05" "A01" "" 0 10 0 "&&&&"))";
  EXPECT_EQ(read(L"x" + tail).row.names, (Names{L"A01"}));
  EXPECT_NE(readRow(L"x" + tail).message, L"");
}

TEST(LibraryRow, BlankInsideTheNumbersQuotesEndsIt) {
  // The quote behind it then opens the first field, up to the next quote.
  const std::wstring row = LR"(("0 5" "A01" "" 0 10 0 "&&&&"))";
  EXPECT_EQ(numberOf(row), L"");
  EXPECT_NE(readLibraryRow(row).row.names, (Names{L"A01"}));
  EXPECT_EQ(readRow(row).row.names, (Names{L"A01"}));
}

TEST(LibraryRow, MarkersInTheNumberDoNotCount) {
  const LibraryRowReading reading = read(LR"-(("&&&&TEXT)" "A01" "" 0 10 0 "&&&&" 1 2 3 4))-");
  EXPECT_EQ(reading.number, L"&&&&TEXT)");
  EXPECT_EQ(reading.row.starts, (Points{{1, 2}}));
}

TEST(LibraryRow, WithoutTextsTheLinesRunToTheParenthesis) {
  const CircuitRow row = read(LR"(("05" "A01" "" 0 10 0 "&&&&" 1 2 3 4))").row;
  EXPECT_EQ(row.ends, (Points{{3, 4}}));
  EXPECT_TRUE(row.texts.empty());
}

TEST(LibraryRow, WithoutSeparatorThereAreNoBlocks) {
  EXPECT_EQ(messageOf(LR"(("05" "A01" "" 0))"), kFormat3);
  EXPECT_EQ(messageOf(LR"(("05" "A01" "" 0 10 0 "B12" "" 0))"), kNoData);
  EXPECT_EQ(messageOf(LR"(("05" "A01" "" 0 10 0))"), kNoData);
  EXPECT_EQ(messageOf(LR"(("05" "A01" "" 0 10 0 "B12"))"), kFormat3);
}

TEST(LibraryRow, BlanksSplitTextsAndNoSpecifications) {
  const CircuitRow row =
      read(LR"(("05" "A01" "CM1 63 25A" 0 10 0 "&&&&" "TEXT" "two words" 1 3 5 2 0))").row;
  EXPECT_EQ(row.specifications, (Names{L"CM1 63 25A"}));
  // A token loses its first and last character, quotes or not; the last 0 begins another text.
  EXPECT_EQ(row.texts, (Names{L"tw", L""}));
  EXPECT_EQ(row.colours, (std::vector<std::int32_t>{0}));
}

TEST(LibraryRow, TwoBlanksBeforeANumberDoNoHarm) {
  const CircuitRow row = read(LR"(("05" "A01" ""  0  10 0 "&&&&" 1  2  3 4))").row;
  EXPECT_EQ(row.points, (Points{{0, 10}}));
  EXPECT_EQ(row.ends, (Points{{3, 4}}));
}

}  // namespace

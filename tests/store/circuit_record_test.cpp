// One circuit's tree: elements with their defaults, the row that is built of it, symbols by name.
#include "store/circuit_record.h"

#include "store/circuit_fixture.h"

namespace {

using Place = std::vector<int>;

class CircuitRecord : public test::CircuitFixture {
 protected:
  int read(std::uint16_t index, std::uint16_t kind) {
    return record_->ReadElement(index, element_, kind);
  }
  std::wstring find(const wchar_t* symbol, int mode) {
    CString path = L"untouched";
    found_ = record_->FindSymbolFile(symbol, path, mode);
    return path.wide();
  }
  ZhlkElement element_;
  int found_ = -1;
};

TEST_F(CircuitRecord, EmptyTreeHasNoElements) {
  EXPECT_EQ(record_->GetBlockCount(), 0);
  EXPECT_EQ(record_->GetLineCount(), 0);
  EXPECT_EQ(record_->GetTextCount(), 0);
  for (const std::uint16_t kind : {kBlockElement, kTextElement, kLineElement}) {
    EXPECT_EQ(read(0, kind), 0);
    EXPECT_EQ(element_.kind, 0);
  }
}

TEST_F(CircuitRecord, NewRecordHoldsNothing) {
  EXPECT_TRUE(record_->name.IsEmpty() && record_->number.IsEmpty() && record_->row.IsEmpty());
  EXPECT_TRUE(record_->slide.empty());
  EXPECT_EQ(test::takeTranscript(), L"");  // no symbol library, and not a word about it
}

TEST_F(CircuitRecord, CountsAreCutTo16Bits) {
  put({{L"块", L"65537"}, {L"线", L"40000"}, {L"文字", L"many"}});
  EXPECT_EQ(record_->GetBlockCount(), 1);
  EXPECT_EQ(record_->GetLineCount(), 40000 - 65536);
  EXPECT_EQ(record_->GetTextCount(), 0);
  EXPECT_EQ(read(0, kLineElement), 0);
}

TEST_F(CircuitRecord, MissingBlockReadsAsEmptyCellOf30By30) {
  put({{L"块", L"2"}});
  element_.slide.Add(7);
  element_.specification = L"left over";
  ASSERT_EQ(read(1, kBlockElement), 1);
  EXPECT_EQ(element_.kind, kBlockElement);
  EXPECT_EQ(element_.index, 1);
  EXPECT_EQ(element_.blockName.wide(), L"F002");
  EXPECT_EQ(element_.slide.GetSize(), 0);
  EXPECT_EQ(element_.specification.wide(), L"");
  EXPECT_EQ(edges(element_.symbolRect), (Place{0, 0, 30, 30}));
  EXPECT_EQ(edges(element_.specificationRect), (Place{0, 0, 30, 30}));
  EXPECT_EQ(read(2, kBlockElement), 0);
}

TEST_F(CircuitRecord, ReadsABlock) {
  put({{L"块", L"1"},
       {L"块\\0\\块名", L"ZHL1003"},
       {L"块\\0\\块名\\left", L"-12"},
       {L"块\\0\\块名\\top", L"40"},
       {L"块\\0\\块名\\right", L"12px"},
       {L"块\\0\\块名\\bottom", L"99999999999"},
       {L"块\\0\\型号规格", L"CM1-63/3302 25A"},
       {L"块\\0\\型号规格\\right", L"77"}});
  const std::uint8_t slide[] = {1, 0, 2};
  record_->tree.SetSubValueForByteW(L"块\\0\\Sld", 3, slide);
  ASSERT_EQ(read(0, kBlockElement), 1);
  EXPECT_EQ(element_.blockName.wide(), L"ZHL1003");
  EXPECT_EQ(asText(element_.slide), std::string("\1\0\2", 3));
  EXPECT_EQ(edges(element_.symbolRect), (Place{-12, 40, 12, 2147483647}));
  EXPECT_EQ(element_.specification.wide(), L"CM1-63/3302 25A");
  EXPECT_EQ(edges(element_.specificationRect), (Place{0, 0, 77, 30}));
}

TEST_F(CircuitRecord, TextUnderTheSlidesKeyIsNoSlide) {
  put({{L"块", L"1"}, {L"块\\0\\Sld", L"text"}});
  ASSERT_EQ(read(0, kBlockElement), 1);
  EXPECT_EQ(element_.slide.GetSize(), 0);
}

TEST_F(CircuitRecord, ReadsATextWithItsDefaults) {
  put({{L"文字", L"2"}, {L"文字\\0\\文字", L"电动机"}, {L"文字\\0\\点4\\y", L"9"}});
  element_.corners[0] = {5, 5};
  ASSERT_EQ(read(0, kTextElement), 1);
  EXPECT_EQ(element_.text.wide(), L"电动机");
  EXPECT_EQ(element_.colour, 1);
  EXPECT_EQ(element_.textHeight, 3);
  EXPECT_EQ(element_.textAngle, 0);
  EXPECT_EQ(place(element_.corners[0]), (Place{0, 0}));
  EXPECT_EQ(place(element_.corners[3]), (Place{0, 9}));
  put({{L"文字\\1\\文字", L"x"},
       {L"文字\\1\\颜色", L"4"},
       {L"文字\\1\\字高", L"2.500000"},
       {L"文字\\1\\角度", L"90.5"},
       {L"文字\\1\\点2\\x", L"-3"}});
  ASSERT_EQ(read(1, kTextElement), 1);
  EXPECT_EQ(element_.colour, 4);
  EXPECT_EQ(element_.textHeight, 2.5);
  EXPECT_EQ(element_.textAngle, 90.5);
  EXPECT_EQ(place(element_.corners[1]), (Place{-3, 0}));
}

TEST_F(CircuitRecord, EmptyTextGives0WithKindAndIndexSet) {
  put({{L"文字", L"3"}, {L"文字\\2\\文字", L""}, {L"文字\\2\\颜色", L"4"}});
  element_.colour = 77;
  element_.corners[0] = {5, 6};
  element_.text = L"before";
  EXPECT_EQ(read(2, kTextElement), 0);
  EXPECT_EQ(element_.kind, kTextElement);
  EXPECT_EQ(element_.index, 2);
  EXPECT_EQ(element_.colour, 77);
  EXPECT_EQ(place(element_.corners[0]), (Place{5, 6}));
  EXPECT_EQ(element_.text.wide(), L"before");
}

TEST_F(CircuitRecord, ReadsALineInPixels) {
  put({{L"线", L"1"},
       {L"线\\0\\起点\\x", L"-6.250000"},
       {L"线\\0\\屏幕起点\\x", L"100"},
       {L"线\\0\\屏幕起点\\y", L"35"},
       {L"线\\0\\屏幕终点\\y", L"40"}});
  ASSERT_EQ(read(0, kLineElement), 1);
  EXPECT_EQ(place(element_.lineStart), (Place{100, 35}));
  EXPECT_EQ(place(element_.lineEnd), (Place{0, 40}));
}

TEST_F(CircuitRecord, UnknownKindReadsNothingAndGives1) {
  EXPECT_EQ(read(9, 4), 1);
  EXPECT_EQ(element_.kind, 0);
  EXPECT_EQ(element_.index, 0);
}

TEST_F(CircuitRecord, BuildsTheWholeRow) {
  record_->number = L"05";
  put({{L"块", L"2"},
       {L"块\\0\\块名", L"ZHL1031"},
       {L"块\\0\\型号规格", L"TMY-4X80X8"},
       {L"块\\0\\插入点\\x", L"0.000000"},
       {L"块\\0\\插入点\\y", L"-8.000000"},
       {L"块\\0\\角度", L"90.0"},
       {L"线", L"1"},
       {L"线\\0\\起点\\x", L"1.000000"},
       {L"线\\0\\起点\\y", L"2.000000"},
       {L"线\\0\\终点\\x", L"3.000000"},
       {L"文字", L"2"},
       {L"文字\\0\\文字", L"主用"},
       {L"文字\\0\\颜色", L"4"},
       {L"文字\\0\\字高", L"2.500000"},
       {L"文字\\0\\插入点\\y", L"-14.000000"}});
  EXPECT_EQ(builtRow(),
            L"(\"05\" \"ZHL1031\" \"TMY-4X80X8\" 0.000000 -8.000000 90.0 \"F002\" \"\" 0 0 0"
            L" \"&&&&\" 1.000000 2.000000 3.000000 0"
            L" \"TEXT\" \"主用\" 4 2.500000 0 -14.000000 0 \"\" 1 3 0 0 0)");
}

TEST_F(CircuitRecord, WithoutLinesOrTextsTheirMarkersAreLeftOut) {
  EXPECT_EQ(builtRow(), L"(\"\")");
  put({{L"块", L"1"}});
  EXPECT_EQ(builtRow(), L"(\"\" \"F002\" \"\" 0 0 0)");
  put({{L"文字", L"1"}});
  EXPECT_EQ(builtRow(), L"(\"\" \"F002\" \"\" 0 0 0 \"TEXT\" \"\" 1 3 0 0 0)");
}

TEST_F(CircuitRecord, CoveredCellsAreLeftOutAndOnlyInCapitals) {
  put({{L"块", L"3"},
       {L"块\\0\\块名", L"NULL"},
       {L"块\\1\\块名", L"ZHL3001"},
       {L"块\\2\\块名", L"null"}});
  EXPECT_EQ(builtRow(), L"(\"\" \"ZHL3001\" \"\" 0 0 0 \"null\" \"\" 0 0 0)");
}

TEST_F(CircuitRecord, PixelsAreTruncatedBehindTheSum) {
  record_->origin = {10, 15};
  POINT pixel{};
  record_->DrawingToScreen(0, 0, pixel);
  EXPECT_EQ(place(pixel), (Place{10, 15}));
  record_->DrawingToScreen(-0.1, -8, pixel);
  EXPECT_EQ(place(pixel), (Place{9, 35}));
  record_->DrawingToScreen(-2.6, 6.1, pixel);  // -0.4 and -0.25
  EXPECT_EQ(place(pixel), (Place{0, 0}));
  record_->DrawingToScreen(1e300, std::numeric_limits<double>::quiet_NaN(), pixel);
  EXPECT_EQ(place(pixel), (Place{2147483647, 0}));
}

TEST_F(CircuitRecord, SymbolIsFoundWithItsFolder) {
  putIndex("F002    0001ZHL1003 0012");
  EXPECT_EQ(find(L"zhl1003", kSymbolDrawing), symbolPath(L"dqbl0012\\zhl1003.dwg"));
  EXPECT_EQ(found_, 1);
  EXPECT_EQ(find(L"ZHL1003", 7), symbolPath(L"dqbl0012\\ZHL1003.dwg"));
  EXPECT_EQ(find(L"F002", kSymbolSlides), symbolPath(L"dqbl0001\\dqbl0001.slb"));
}

TEST_F(CircuitRecord, SymbolNamesCompareWhole) {
  putIndex("ZHL1003 0012ZHL100310013LONGNAME0014");
  EXPECT_EQ(find(L"ZHL100", kSymbolDrawing), L"untouched");
  EXPECT_EQ(found_, 0);
  EXPECT_EQ(find(L"ZHL10031", kSymbolSlides), symbolPath(L"dqbl0013\\dqbl0013.slb"));
  // No record holds more than 8 characters.
  EXPECT_EQ(find(L"LONGNAMES", kSymbolDrawing), L"untouched");
}

TEST_F(CircuitRecord, FirstOfTwoRecordsWins) {
  putIndex("F002    0001f002    0002");
  EXPECT_EQ(find(L"F002", kSymbolSlides), symbolPath(L"dqbl0001\\dqbl0001.slb"));
}

TEST_F(CircuitRecord, FoldersNumberIsTakenUncut) {
  putIndex("F002    7   ");
  EXPECT_EQ(find(L"F002", kSymbolSlides), symbolPath(L"dqbl7   \\dqbl7   .slb"));
}

TEST_F(CircuitRecord, LengthsOfRecordsCountBytes) {
  putIndex(ansiFromWide(L"断路器  0003ZHL1003 0012"));
  EXPECT_EQ(find(L"断路器", kSymbolDrawing), symbolPath(L"dqbl0003\\断路器.dwg"));
  EXPECT_EQ(find(L"ZHL1003", kSymbolSlides), symbolPath(L"dqbl0012\\dqbl0012.slb"));
}

TEST_F(CircuitRecord, PartOfARecordIsNone) {
  putIndex("F002    0001ZHL1003 001");
  EXPECT_EQ(find(L"ZHL1003", kSymbolDrawing), L"untouched");
}

TEST_F(CircuitRecord, WithoutALibraryNothingIsFound) {
  EXPECT_EQ(find(L"F002", kSymbolSlides), L"untouched");
  WriteInformation(L"Dwglib", L"Dwgdir", L"", 1);
  open();
  EXPECT_EQ(find(L"", kSymbolSlides), L"untouched");
  EXPECT_EQ(found_, 0);
}

TEST_F(CircuitRecord, LoadsTheSymbolsSlide) {
  putIndex("F002    0001ZHL1003 0001");
  putSlide(L"F002", 40);
  const std::string slide = putSlide(L"ZHL1003", 300);
  CString symbol = L"zhl1003";
  CByteArray bytes;
  bytes.Add(1);
  record_->LoadSymbolSlide(symbol, bytes);
  EXPECT_EQ(asText(bytes), slide);
  EXPECT_EQ(symbol.wide(), L"zhl1003");
}

TEST_F(CircuitRecord, UnknownSymbolShowsTheEmptyCell) {
  putIndex("F002    0001");
  const std::string slide = putSlide(L"F002", 40);
  CString symbol = L"ZHL9999";
  CByteArray bytes;
  record_->LoadSymbolSlide(symbol, bytes);
  EXPECT_EQ(asText(bytes), slide);
  EXPECT_EQ(symbol.wide(), L"F002");
}

TEST_F(CircuitRecord, WithoutASlideThereAreNoBytes) {
  CByteArray bytes;
  bytes.Add(1);
  CString symbol = L"ZHL9999";
  record_->LoadSymbolSlide(symbol, bytes);  // not even the empty cell is known
  EXPECT_EQ(bytes.GetSize(), 0);
  EXPECT_EQ(symbol.wide(), L"F002");
  putIndex("ZHL1003 0001");  // known, but there is no library
  symbol = L"ZHL1003";
  bytes.Add(1);
  record_->LoadSymbolSlide(symbol, bytes);
  EXPECT_EQ(bytes.GetSize(), 0);
  EXPECT_EQ(symbol.wide(), L"ZHL1003");
}

TEST_F(CircuitRecord, SlideAbove32767BytesIsLoadedWhole) {
  putIndex("ZHL1003 0001");
  const std::string slide = putSlide(L"ZHL1003", 40000);
  CString symbol = L"ZHL1003";
  CByteArray bytes;
  record_->LoadSymbolSlide(symbol, bytes);
  EXPECT_EQ(asText(bytes), slide);
}

}  // namespace

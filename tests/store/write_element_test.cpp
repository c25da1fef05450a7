// Finding the block under a pixel, and writing blocks and texts back into the circuit's tree.
#include "store/circuit_fixture.h"

namespace {

using Place = std::vector<int>;

class WriteElement : public test::CircuitFixture {
 protected:
  WriteElement() {
    putIndex("F002    0001ZHL1003 0001");
    emptySlide_ = putSlide(L"F002", 3);
    breakerSlide_ = putSlide(L"ZHL1003", 4);
    record_->origin = {200, 15};
  }

  void putBlock(int index, const std::wstring& symbol, const RECT& cell) {
    const std::wstring key = L"块\\" + std::to_wstring(index) + L"\\块名";
    put({{L"块", std::to_wstring(index + 1)},
         {key, symbol},
         {key + L"\\left", std::to_wstring(cell.left)},
         {key + L"\\top", std::to_wstring(cell.top)},
         {key + L"\\right", std::to_wstring(cell.right)},
         {key + L"\\bottom", std::to_wstring(cell.bottom)}});
  }
  int hit(std::int32_t x, std::int32_t y) { return record_->HitBlock({x, y}, element_); }
  ZhlkElement block(std::uint16_t index, const wchar_t* symbol) {
    ZhlkElement block;
    block.kind = kBlockElement;
    block.index = index;
    block.blockName = symbol;
    block.symbolRect = {188, 40, 212, 60};
    block.specification = L"25A";
    return block;
  }
  std::string slideOf(std::uint16_t index) {
    ZhlkElement read;
    record_->ReadElement(index, read, kBlockElement);
    return asText(read.slide);
  }

  ZhlkElement element_;
  std::string emptySlide_;
  std::string breakerSlide_;
};

TEST_F(WriteElement, NoBlocksNoHit) {
  put({{L"块", L"0"}});
  element_.blockName = L"before";
  EXPECT_EQ(hit(0, 0), 0);
  EXPECT_EQ(element_.blockName.wide(), L"before");
}

TEST_F(WriteElement, RightAndBottomEdgeLieOutside) {
  putBlock(0, L"A", {10, 20, 34, 40});
  EXPECT_EQ(hit(10, 20), 1);
  EXPECT_EQ(hit(33, 39), 1);
  EXPECT_EQ(hit(34, 30), 0);
  EXPECT_EQ(hit(20, 40), 0);
  EXPECT_EQ(hit(9, 30), 0);
  EXPECT_EQ(hit(20, 19), 0);
}

TEST_F(WriteElement, FirstBlockWinsWhereRectanglesOverlap) {
  putBlock(0, L"NULL", {0, 0, 24, 20});
  putBlock(1, L"ZHL3001", {0, 0, 72, 20});
  ASSERT_EQ(hit(5, 5), 1);
  EXPECT_EQ(element_.blockName.wide(), L"NULL");
  ASSERT_EQ(hit(30, 5), 1);
  EXPECT_EQ(element_.index, 1);
}

TEST_F(WriteElement, MissHoldsTheLastBlock) {
  putBlock(0, L"A", {0, 0, 24, 20});
  putBlock(1, L"B", {24, 0, 48, 20});
  EXPECT_EQ(hit(100, 100), 0);
  EXPECT_EQ(element_.blockName.wide(), L"B");
}

TEST_F(WriteElement, AppendsAtTheCellOfItsRectangle) {
  ZhlkElement added = block(0, L"ZHL1003");
  ASSERT_EQ(record_->WriteElement(added), 1);
  EXPECT_EQ(value(L"块"), L"1");
  EXPECT_EQ(value(L"块\\0"), L"(none)");  // no mark, and no rectangle for its model
  EXPECT_EQ(value(L"块\\0\\型号规格\\left"), L"(none)");
  EXPECT_EQ(value(L"块\\0\\块名"), L"ZHL1003");
  EXPECT_EQ(value(L"块\\0\\插入点\\x"), L"0.000000");
  EXPECT_EQ(value(L"块\\0\\插入点\\y"), L"-10.000000");
  EXPECT_EQ(value(L"块\\0\\角度"), L"0");
  EXPECT_EQ(value(L"块\\0\\块名\\bottom"), L"60");
  EXPECT_EQ(value(L"块\\0\\型号规格"), L"25A");
  EXPECT_EQ(slideOf(0), breakerSlide_);
}

TEST_F(WriteElement, ExistingBlockKeepsItsPlace) {
  put({{L"块", L"1"}, {L"块\\0\\插入点\\x", L"3.5"}, {L"块\\0\\角度", L"90"}});
  ZhlkElement changed = block(0, L"ZHL1003");
  ASSERT_EQ(record_->WriteElement(changed), 1);
  EXPECT_EQ(value(L"块"), L"1");
  EXPECT_EQ(value(L"块\\0\\插入点\\x"), L"3.5");
  EXPECT_EQ(value(L"块\\0\\角度"), L"90");
}

TEST_F(WriteElement, IndexBeyondTheEndIsRefused) {
  ZhlkElement beyond = block(1, L"ZHL1003");
  EXPECT_EQ(record_->WriteElement(beyond), 0);
  EXPECT_EQ(value(L"块"), L"(none)");
  EXPECT_EQ(value(L"块\\1\\块名"), L"(none)");
}

TEST_F(WriteElement, UnknownSymbolKeepsItsNameInTheTreeWithTheEmptyCellsSlide) {
  ZhlkElement unknown = block(0, L"NOSUCH");
  ASSERT_EQ(record_->WriteElement(unknown), 1);
  EXPECT_EQ(value(L"块\\0\\块名"), L"NOSUCH");
  EXPECT_EQ(unknown.blockName.wide(), L"F002");
  EXPECT_EQ(slideOf(0), emptySlide_);
}

TEST_F(WriteElement, CoveredCellKeepsTheSlideItHad) {
  ZhlkElement cell = block(0, L"ZHL1003");
  record_->WriteElement(cell);
  cell.blockName = L"NULL";
  ASSERT_EQ(record_->WriteElement(cell), 1);
  EXPECT_EQ(value(L"块\\0\\块名"), L"NULL");
  EXPECT_EQ(slideOf(0), breakerSlide_);
}

TEST_F(WriteElement, CoveredCellIsMatchedExactly) {
  ZhlkElement cell = block(0, L"null");
  ASSERT_EQ(record_->WriteElement(cell), 1);
  EXPECT_EQ(cell.blockName.wide(), L"F002");  // sought as a symbol
}

TEST_F(WriteElement, SlideBeyondTheTreesLengthReadsBackAsNone) {
  putSlide(L"ZHL1003", 32768);
  ZhlkElement cell = block(0, L"ZHL1003");
  ASSERT_EQ(record_->WriteElement(cell), 1);
  EXPECT_EQ(cell.slide.GetSize(), 32768);
  EXPECT_EQ(slideOf(0), "");
}

TEST_F(WriteElement, TextGetsCornersInDrawingUnits) {
  put({{L"文字", L"1"},
       {L"文字\\0\\文字", L"old"},
       {L"文字\\0\\插入点\\x", L"10"},
       {L"文字\\0\\插入点\\y", L"-2.5"},
       {L"文字\\0\\点1\\x", L"240"},
       {L"文字\\0\\字高", L"7"}});
  ZhlkElement text;
  text.kind = kTextElement;
  text.text = L"1AA";
  text.textHeight = 2;
  ASSERT_EQ(record_->WriteElement(text), 1);
  EXPECT_EQ(value(L"文字\\0\\文字"), L"1AA");
  EXPECT_EQ(value(L"文字\\0\\点1\\x"), L"240");
  EXPECT_EQ(value(L"文字\\0\\点2\\x"), L"16.000000");
  EXPECT_EQ(value(L"文字\\0\\点2\\y"), L"-2.500000");
  EXPECT_EQ(value(L"文字\\0\\点3\\x"), L"16.000000");
  EXPECT_EQ(value(L"文字\\0\\点3\\y"), L"-0.500000");
  EXPECT_EQ(value(L"文字\\0\\点4\\x"), L"10.000000");
  EXPECT_EQ(value(L"文字\\0\\点4\\y"), L"-0.500000");
  EXPECT_EQ(value(L"文字\\0\\字高"), L"7");
}

TEST_F(WriteElement, UprightTextRunsUpwards) {
  put({{L"文字", L"1"}});
  ZhlkElement text;
  text.kind = kTextElement;
  text.text = L"AB";
  text.textHeight = 3;
  text.textAngle = 90;
  ASSERT_EQ(record_->WriteElement(text), 1);
  EXPECT_EQ(value(L"文字\\0\\点2\\y"), L"6.000000");
  EXPECT_EQ(value(L"文字\\0\\点4\\x"), L"-3.000000");
}

TEST_F(WriteElement, TextBeyondTheCountIsRefused) {
  ZhlkElement text;
  text.kind = kTextElement;
  text.text = L"x";
  EXPECT_EQ(record_->WriteElement(text), 0);
  EXPECT_EQ(value(L"文字\\0\\文字"), L"(none)");
}

TEST_F(WriteElement, OtherKindsWriteNothing) {
  ZhlkElement line;
  line.kind = kLineElement;
  line.lineEnd = {5, 5};
  EXPECT_EQ(record_->WriteElement(line), 1);
  line.kind = 0;
  EXPECT_EQ(record_->WriteElement(line), 1);
  int nodes = 0;
  record_->tree.visit([&](const std::wstring&, const CQuillDpNode&) { ++nodes; });
  EXPECT_EQ(nodes, 0);
}

}  // namespace

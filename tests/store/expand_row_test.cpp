// A row expanded into a record's tree.
#include <algorithm>

#include "platform/framework_messages.h"
#include "store/circuit_fixture.h"

namespace {

class ExpandRow : public test::CircuitFixture {
 protected:
  ExpandRow() {
    setMessageBoxHandler([this](const MessageBoxCall& call) {
      EXPECT_EQ(call.caption, L"回路编辑");
      EXPECT_EQ(call.style, kMessageOk);
      EXPECT_EQ(call.owner, nullptr);
      messages_.push_back(call.text);
      return kMessageAnswerOk;
    });
  }
  ~ExpandRow() override { setMessageBoxHandler({}); }

  void load(const std::wstring& row) { record_->Load(row, L"主回路&05"); }
  std::vector<std::wstring> values(const std::wstring& key,
                                   const std::vector<std::wstring>& names) const {
    std::vector<std::wstring> texts(names.size());
    std::transform(names.begin(), names.end(), texts.begin(), [&](const std::wstring& name) {
      return value(std::wstring(key).append(L"\\").append(name));
    });
    return texts;
  }
  std::vector<std::wstring> cell(const std::wstring& key) const {
    return values(key, {L"left", L"top", L"right", L"bottom"});
  }
  int widthOfCell(const std::wstring& symbol) {
    open();
    load(L"(\"05\" \"" + symbol + L"\" \"\" 0 0 0 \"&&&&\")");
    ZhlkElement element;
    record_->ReadElement(0, element, kBlockElement);
    return static_cast<int>(element.symbolRect.right - element.symbolRect.left);
  }
  bool treeIsEmpty() const {
    bool empty = true;
    record_->tree.visit([&](const std::wstring&, const CQuillDpNode&) { empty = false; });
    return empty;
  }

  std::vector<std::wstring> messages_;
};

using Texts = std::vector<std::wstring>;

TEST_F(ExpandRow, FillsTheTree) {
  putIndex("ZHL1003 0001F002    0001");
  const std::string slide = putSlide(L"ZHL1003", 50);
  record_->frame = {0, 0, 300, 0};
  load(
      LR"(("05" "ZHL1003" "CM1-63 25A" 0 -8 90.0 "F002" "" 6.25 -16 0 "&&&&" 0 -8 0 -10 )"
      LR"("TEXT" "QF1" 2 2.5 -10 -22 0))");
  EXPECT_TRUE(messages_.empty());
  EXPECT_EQ(record_->number.wide(), L"05");
  EXPECT_EQ(record_->name.wide(), L"主回路&05");
  EXPECT_EQ(record_->scrollSize.cx, 85);  // (6.25 + 15) * 4
  EXPECT_EQ(record_->scrollSize.cy, 45);  // (8 + 10) * 2.5: from -16 to -8
  EXPECT_EQ(place(record_->origin), (std::vector<int>{150, 15}));
  EXPECT_EQ(value(L"块"), L"2");
  EXPECT_EQ(value(L"块\\0"), L"1");
  EXPECT_EQ(value(L"块\\0\\块名"), L"ZHL1003");
  EXPECT_EQ(value(L"块\\0\\型号规格"), L"CM1-63 25A");
  EXPECT_EQ(values(L"块\\0", {L"插入点\\x", L"插入点\\y", L"角度"}),
            (Texts{L"0.000000", L"-8.000000", L"90.0"}));
  EXPECT_EQ(cell(L"块\\0\\块名"), (Texts{L"138", L"35", L"162", L"55"}));
  EXPECT_EQ(cell(L"块\\0\\型号规格"), (Texts{L"162", L"35", L"227", L"55"}));
  ZhlkElement block;
  ASSERT_EQ(record_->ReadElement(0, block, kBlockElement), 1);
  EXPECT_EQ(asText(block.slide), slide);
  EXPECT_EQ(value(L"线"), L"1");
  EXPECT_EQ(value(L"线\\0"), L"3");
  EXPECT_EQ(values(L"线\\0", {L"起点\\x", L"起点\\y", L"终点\\x", L"终点\\y"}),
            (Texts{L"0.000000", L"-8.000000", L"0.000000", L"-10.000000"}));
  EXPECT_EQ(values(L"线\\0", {L"屏幕起点\\x", L"屏幕起点\\y", L"屏幕终点\\x", L"屏幕终点\\y"}),
            (Texts{L"150", L"35", L"150", L"40"}));
  EXPECT_EQ(value(L"文字"), L"1");
  EXPECT_EQ(value(L"文字\\0"), L"2");
  EXPECT_EQ(values(L"文字\\0", {L"文字", L"颜色", L"字高", L"角度", L"插入点\\x", L"插入点\\y"}),
            (Texts{L"QF1", L"2", L"2.500000", L"0.000000", L"-10.000000", L"-22.000000"}));
  EXPECT_EQ(values(L"文字\\0", {L"点1\\x", L"点1\\y", L"点2\\x", L"点2\\y"}),
            (Texts{L"110", L"70", L"140", L"70"}));  // three characters of 2.5
  EXPECT_EQ(values(L"文字\\0", {L"点3\\x", L"点3\\y", L"点4\\x", L"点4\\y"}),
            (Texts{L"140", L"63", L"110", L"63"}));
}

TEST_F(ExpandRow, TheTreeFoldsBackIntoTheRow) {
  load(LR"(("05" "A" "x y" 0 -8 90.0 "&&&&" 0 -8 1 -10 "TEXT" "QF1" 2 2.5 -10 -22 0))");
  EXPECT_EQ(builtRow(),
            LR"(("05" "A" "x y" 0.000000 -8.000000 90.0 "&&&&" )"
            LR"(0.000000 -8.000000 1.000000 -10.000000 )"
            LR"("TEXT" "QF1" 2 2.500000 -10.000000 -22.000000 0.000000))");
}

TEST_F(ExpandRow, ARowBuiltWithoutLinesCannotBeExpandedAgain) {
  put({{L"块", L"1"}});
  const std::wstring row = builtRow();
  open();
  load(row);
  EXPECT_EQ(messages_, (Texts{L"\n数据文件中该数据行无数据!"}));
  EXPECT_TRUE(treeIsEmpty());
}

TEST_F(ExpandRow, NumberOfTheRecordStays) {
  record_->number = L"17";
  load(LR"(("05" "A" "" 0 0 0 "&&&&"))");
  EXPECT_EQ(record_->number.wide(), L"17");
}

TEST_F(ExpandRow, EmptyRowGivesTheFirstMessageAndLeavesTheTreeEmpty) {
  load(L"");
  EXPECT_EQ(messages_, (Texts{L"\n 行内容错误!"}));
  EXPECT_TRUE(treeIsEmpty());
  EXPECT_EQ(record_->scrollSize.cx, 0);
}

TEST_F(ExpandRow, DrawingRightOfZeroKeepsTheRoomOnItsLeft) {
  load(LR"(("05" "A" "" 100 50 0 "&&&&" 100 50 110 60))");
  EXPECT_EQ(record_->scrollSize.cx, (110 + 15) * 4);
  EXPECT_EQ(record_->scrollSize.cy, 200);  // from -10 to 60
  EXPECT_EQ(record_->origin.x, 250);       // half of the scroll width, as there is no frame
}

TEST_F(ExpandRow, ThreeWideSymbolsTakeThreeCells) {
  putIndex("F002    0001ZHL3001 0001AZHL3   0001ZHL1003 0001");
  EXPECT_EQ(widthOfCell(L"ZHL3001"), 72);
  EXPECT_EQ(widthOfCell(L"zhl3001"), 72);
  EXPECT_EQ(widthOfCell(L"AZHL3"), 24);
  EXPECT_EQ(widthOfCell(L"ZHL1003"), 24);
  EXPECT_EQ(widthOfCell(L"ZHL3999"), 24);  // unknown, and shown as an empty cell
}

TEST_F(ExpandRow, UnknownSymbolKeepsItsNameAndShowsTheEmptyCell) {
  putIndex("F002    0001");
  const std::string slide = putSlide(L"F002", 40);
  load(LR"(("05" "ZHL9999" "" 0 0 0 "&&&&"))");
  ZhlkElement block;
  ASSERT_EQ(record_->ReadElement(0, block, kBlockElement), 1);
  EXPECT_EQ(block.blockName.wide(), L"ZHL9999");
  EXPECT_EQ(asText(block.slide), slide);
  EXPECT_TRUE(messages_.empty());
  EXPECT_NE(builtRow().find(L"ZHL9999"), std::wstring::npos);
}

TEST_F(ExpandRow, SlideAbove32767BytesReadsBackAsNone) {
  putIndex("ZHL1003 0001ZHL1004 0001");
  putSlide(L"ZHL1003", 32768);
  const std::string largest = putSlide(L"ZHL1004", 32767);
  load(LR"(("05" "ZHL1003" "" 0 0 0 "ZHL1004" "" 0 0 0 "&&&&"))");
  ZhlkElement block;
  ASSERT_EQ(record_->ReadElement(0, block, kBlockElement), 1);
  EXPECT_EQ(block.slide.GetSize(), 0);
  ASSERT_EQ(record_->ReadElement(1, block, kBlockElement), 1);
  EXPECT_EQ(asText(block.slide), largest);
}

TEST_F(ExpandRow, TextCutOffByTheRowsEndIsFilledUp) {
  load(LR"(("05" "A" "" 0 0 0 "&&&&" "TEXT" "QF1" 2 ))");
  EXPECT_TRUE(messages_.empty());
  EXPECT_EQ(values(L"文字\\0", {L"文字", L"颜色", L"字高", L"插入点\\x"}),
            (Texts{L"QF1", L"2", L"0.000000", L"0.000000"}));
}

TEST_F(ExpandRow, TextsTurnWithTheirAngle) {
  record_->frame = {0, 0, 200, 0};
  load(LR"(("05" "A" "" 0 0 0 "&&&&" "TEXT" "AB" 1 10 0 0 90))");
  EXPECT_EQ(values(L"文字\\0", {L"点1\\x", L"点1\\y"}), (Texts{L"100", L"15"}));
  EXPECT_EQ(values(L"文字\\0", {L"点2\\y", L"点3\\x", L"点4\\x"}), (Texts{L"-35", L"60", L"60"}));
}

TEST_F(ExpandRow, HugeNumbersStayWithinPixels) {
  load(LR"(("05" "A" "" 1e300 -1e300 0 "&&&&" nan 0 inf 0))");
  EXPECT_EQ(record_->scrollSize.cx, 2147483647);
  EXPECT_EQ(value(L"块\\0\\块名\\right"), L"2147483647");
  EXPECT_EQ(value(L"块\\0\\块名\\bottom"), L"2147483647");
}

}  // namespace

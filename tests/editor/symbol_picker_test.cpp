// The picker's state: what its tables leave it in, its pages, and what a click picks.
#include "editor/symbol_picker.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "platform/framework_runtime.h"
#include "support/install.h"
#include "support/raises.h"

namespace {

constexpr RECT kArea{10, 20, 250, 260};  // 240 by 240

class Picker : public testing::Test {
 protected:
  Picker() { picker_.emplace(test::Install::wide(install_.symbols())); }

  void putGroups(const std::wstring& text) {
    test::writeBytes(install_.symbols() / "t-sywj.dat", ansiFromWide(text));
  }
  // Symbols S0, S1, ... of the picker's group, shown side by side.
  void putSymbols(int count, int side = 6) {
    putGroups(L"其它 dqbl0009 4 0\n常用主回路符号 dqbl0001 " + std::to_wstring(side) + L" 0\n");
    std::wstring lines;
    for (int i = 0; i < count; ++i) lines += L"S" + std::to_wstring(i) + L" a b c 1 2 3 4 5\r\n";
    std::filesystem::create_directories(install_.symbols() / "dqbl0001");
    test::writeBytes(install_.symbols() / "dqbl0001" / "dqbl0001.IDX", ansiFromWide(lines));
  }
  std::wstring load(int page = 0, int selection = 0) { return picker_->load(page, selection); }
  std::wstring pickAt(int x, int y) {
    return picker_->pick({x, y}, kArea) ? picker_->current().wide() : L"(nothing)";
  }

  test::Install install_;
  std::optional<SymbolPicker> picker_;
};

TEST_F(Picker, ShowsTheGroupsSymbols) {
  putSymbols(40);
  EXPECT_EQ(load(), L"");
  EXPECT_EQ(picker_->side(), 6);
  EXPECT_EQ(picker_->current().wide(), L"S0");
  EXPECT_EQ(picker_->firstOnPage(), 0);
  EXPECT_EQ(picker_->endOnPage(), 36);
  EXPECT_TRUE(picker_->slidePath().ends_with(L"\\dqbl0001\\dqbl0001.SLB"));
}

TEST_F(Picker, KeptPositionIsTakenUp) {
  putSymbols(40);
  load(1, 37);
  EXPECT_EQ(picker_->current().wide(), L"S37");
  EXPECT_EQ(picker_->firstOnPage(), 36);
  EXPECT_EQ(picker_->endOnPage(), 40);
  EXPECT_TRUE(picker_->isMarkShown());
}

TEST_F(Picker, SelectionBeyondTheTableIsTheEmptyCell) {
  putSymbols(40);
  load(0, 40);
  EXPECT_EQ(picker_->current().wide(), L"F002");
}

TEST_F(Picker, NegativeSelectionIsRefused) {
  putSymbols(40);
  test::expectInvalidArgument([&] { load(0, -1); });
}

TEST_F(Picker, WithoutAGroupTableItIsEmptyAndSilent) {
  EXPECT_EQ(load(3, 5), L"");
  EXPECT_EQ(picker_->selection(), kNoSymbol);
  EXPECT_EQ(picker_->side(), 6);
  EXPECT_EQ(picker_->page(), 0);
  EXPECT_FALSE(picker_->hasSymbols());
  EXPECT_FALSE(picker_->canGoBack() || picker_->canGoOn());
  EXPECT_FALSE(picker_->turnPage(1));
  EXPECT_EQ(picker_->current().wide(), L"NULL");
}

TEST_F(Picker, EmptyGroupTableIsAnError) {
  putGroups(L"常用主回路符号 dqbl0001 6\n");
  EXPECT_EQ(load(), L"索引文件错误!");
  EXPECT_EQ(picker_->current().wide(), L"NULL");
  EXPECT_EQ(picker_->slidePath(), L"");
}

TEST_F(Picker, MissingGroupIsTold) {
  putGroups(L"常用主回路 dqbl0001 6 0\n");
  EXPECT_EQ(load(), L"未建立\"常用主回路符号\"索引项\n请先建立该项!");
  EXPECT_EQ(picker_->current().wide(), L"NULL");
  EXPECT_EQ(picker_->side(), 1);
}

TEST_F(Picker, MissingSymbolTableEndsAsANegativeSelectionDoes) {
  putGroups(L"常用主回路符号 dqbl0001 4 0\n");
  test::expectInvalidArgument([&] { load(2, 7); });
  EXPECT_EQ(picker_->selection(), kNoSymbol);
  EXPECT_EQ(picker_->side(), 6);
  EXPECT_EQ(picker_->page(), 0);
  EXPECT_FALSE(picker_->hasSymbols());
  EXPECT_EQ(picker_->current().wide(), L"NULL");
}

TEST_F(Picker, EmptySymbolTableIsNoMistake) {
  putSymbols(0);
  EXPECT_EQ(load(), L"");
  EXPECT_EQ(picker_->current().wide(), L"F002");
  EXPECT_FALSE(picker_->canGoOn());
}

TEST_F(Picker, LastPageOf37SymbolsIsPage1) {
  putSymbols(37);
  load();
  EXPECT_FALSE(picker_->canGoBack());
  EXPECT_TRUE(picker_->canGoOn());
  EXPECT_TRUE(picker_->turnPage(1));
  EXPECT_EQ(picker_->page(), 1);
  EXPECT_TRUE(picker_->canGoBack());
  EXPECT_FALSE(picker_->canGoOn());
}

TEST_F(Picker, FullPageIsTheLast) {
  putSymbols(36);
  load();
  EXPECT_FALSE(picker_->canGoOn());
}

TEST_F(Picker, PagesHaveNoBoundOfTheirOwn) {
  putSymbols(5);
  load(-1);
  EXPECT_TRUE(picker_->turnPage(-1));
  EXPECT_EQ(picker_->page(), -2);
  EXPECT_EQ(picker_->firstOnPage(), 0);
  EXPECT_LE(picker_->endOnPage(), 0);
  load(2147483647);
  EXPECT_TRUE(picker_->turnPage(1));
  EXPECT_EQ(picker_->page(), 2147483647);
}

TEST_F(Picker, MarkShowsOnItsPageAndOneCellBehind) {
  putSymbols(100);
  load(1, 36);
  EXPECT_TRUE(picker_->isMarkShown());
  load(1, 72);
  EXPECT_TRUE(picker_->isMarkShown());
  load(1, 73);
  EXPECT_FALSE(picker_->isMarkShown());
  load(1, 35);
  EXPECT_FALSE(picker_->isMarkShown());
}

TEST_F(Picker, PicksTheSymbolUnderThePoint) {
  putSymbols(40);
  load();
  EXPECT_EQ(pickAt(11, 21), L"S0");
  EXPECT_EQ(pickAt(49, 59), L"S0");
  EXPECT_EQ(pickAt(50, 21), L"S1");
  EXPECT_EQ(pickAt(11, 60), L"S6");
  picker_->turnPage(1);
  EXPECT_EQ(pickAt(135, 21), L"S39");
  EXPECT_EQ(picker_->selection(), 39);
}

TEST_F(Picker, CellBeyondTheLastSymbolIsTheEmptyCellAndIsMarked) {
  putSymbols(3);
  load();
  EXPECT_EQ(pickAt(240, 250), L"F002");
  EXPECT_EQ(picker_->selection(), 35);
  EXPECT_TRUE(picker_->isMarkShown());
}

TEST_F(Picker, EdgeOfTheAreaPicksNothing) {
  putSymbols(40);
  load(0, 2);
  for (const auto& [x, y] : {std::pair(10, 100), {250, 100}, {100, 20}, {100, 260}, {0, 0}}) {
    EXPECT_EQ(pickAt(x, y), L"(nothing)");
  }
  EXPECT_EQ(picker_->selection(), 2);
}

TEST_F(Picker, BoxesStandSideBySide) {
  putSymbols(40);
  load(1);
  const RECT box = picker_->boxOf(43, kArea);
  EXPECT_EQ(box.left, 10 + 40);
  EXPECT_EQ(box.top, 20 + 40);
  EXPECT_EQ(box.right, box.left + 40);
  EXPECT_EQ(box.bottom, box.top + 40);
}

TEST_F(Picker, OddSidesCountAs1AndHugeOnesFit) {
  putSymbols(5, 0);
  load();
  EXPECT_EQ(picker_->side(), 1);
  EXPECT_EQ(pickAt(200, 200), L"S0");
  putSymbols(5, 2147483647);
  load();
  EXPECT_EQ(pickAt(11, 21), L"F002");  // cells of a pixel, and so the second line's second one
  EXPECT_EQ(picker_->endOnPage(), 5);
}

TEST_F(Picker, RefreshReadsTheTablesAnew) {
  putSymbols(3);
  load(0, 2);
  putSymbols(40, 4);
  bool painted = false;
  EXPECT_EQ(picker_->refresh(painted), L"");
  EXPECT_TRUE(painted);
  EXPECT_EQ(picker_->side(), 4);
  EXPECT_EQ(picker_->current().wide(), L"S2");
}

TEST_F(Picker, RefreshWithoutAGroupTablePaintsNothing) {
  putSymbols(3);
  load(0, 2);
  std::filesystem::remove(install_.symbols() / "t-sywj.dat");
  bool painted = true;
  EXPECT_EQ(picker_->refresh(painted), L"");
  EXPECT_FALSE(painted);
  EXPECT_EQ(picker_->selection(), kNoSymbol);
  EXPECT_EQ(picker_->side(), 6);
}

TEST_F(Picker, RefreshWithAMessagePaintsNothing) {
  putSymbols(3);
  load();
  putGroups(L"");
  bool painted = true;
  EXPECT_EQ(picker_->refresh(painted), L"索引文件错误!");
  EXPECT_FALSE(painted);
}

}  // namespace

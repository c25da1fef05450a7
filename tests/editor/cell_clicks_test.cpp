// Left and right clicks on the edit view's cells, case by case.
#include "editor/cell_clicks.h"

#include "editor/click_fixture.h"

namespace {

using Place = std::vector<int>;

class CellClicks : public test::ClickFixture {
 protected:
  // A record opened anew from the row that the tree makes.
  void reopen() {
    CString row;
    record_->BuildRow(row);
    open();
    record_->frame = {0, 0, 300, 400};
    record_->Load(row, L"主回路&05");
  }
  Place around(const POINT& middle, int halfWidth) const {
    return {static_cast<int>(middle.x) - halfWidth, static_cast<int>(middle.y) - 10,
            static_cast<int>(middle.x) + halfWidth, static_cast<int>(middle.y) + 10};
  }
};

TEST_F(CellClicks, OutsideEveryBlockChangesNothing) {
  const std::wstring before = builtRow();
  EXPECT_EQ(leftClick({0, 0}, L"F002"), Place{});
  EXPECT_EQ(rightClick({0, 0}), Place{});
  EXPECT_EQ(builtRow(), before);
}

TEST_F(CellClicks, SingleForSingleKeepsTheSpecification) {
  EXPECT_EQ(leftClick(middle(4), L"ZHL1007"), edges(element(4).symbolRect));
  EXPECT_EQ(name(4), L"ZHL1007");
  EXPECT_EQ(specification(4), L"25A");
}

TEST_F(CellClicks, PickIsStoredInCapitals) {
  leftClick(middle(4), L"zhl1007");
  EXPECT_EQ(name(4), L"ZHL1007");
}

TEST_F(CellClicks, EmptyPickClearsNameAndSpecification) {
  leftClick(middle(4), L"空");
  EXPECT_EQ(name(4), L"F002");
  EXPECT_EQ(specification(4), L"");
  leftClick(middle(5), L"f002");
  EXPECT_EQ(name(5), L"F002");
  EXPECT_EQ(specification(5), L"");
}

TEST_F(CellClicks, PickOfACoveredCellTakesTheCellOutOfTheRow) {
  leftClick(middle(4), L"NULL");
  EXPECT_EQ(name(4), L"NULL");
  EXPECT_EQ(specification(4), L"25A");
  reopen();
  EXPECT_EQ(record_->GetBlockCount(), 41);
}

TEST_F(CellClicks, RightClickEmptiesTheCell) {
  EXPECT_EQ(rightClick(middle(4)), edges(element(4).symbolRect));
  EXPECT_EQ(name(4), L"F002");
  EXPECT_EQ(specification(4), L"");
  put({{L"块\\4\\型号规格", L"left over"}});
  rightClick(middle(4));
  EXPECT_EQ(name(4), L"F002");
  EXPECT_EQ(specification(4), L"");
}

TEST_F(CellClicks, WideOnTheMiddleCoversBothSides) {
  const POINT centre = middle(cell(2, 1));
  EXPECT_EQ(leftClick(centre, L"zhl3001"), around(centre, 36));
  EXPECT_EQ(name(cell(2, 0)), L"NULL");
  EXPECT_EQ(name(cell(2, 1)), L"ZHL3001");
  EXPECT_EQ(name(cell(2, 2)), L"NULL");
  EXPECT_EQ(edges(element(cell(2, 1)).symbolRect), around(centre, 36));
  EXPECT_EQ(specification(cell(2, 1)), L"25A");
  EXPECT_EQ(specification(cell(2, 0)), L"25A");
}

TEST_F(CellClicks, WideOnASideCellIsCentredOnePixelOff) {
  const POINT centre = middle(cell(2, 1));
  const POINT left = middle(cell(2, 0));
  EXPECT_EQ(leftClick(left, L"ZHL3001"), around({centre.x - 1, centre.y}, 36));
  EXPECT_EQ(name(cell(2, 1)), L"ZHL3001");
  const POINT lower = middle(cell(3, 1));
  EXPECT_EQ(leftClick(middle(cell(3, 2)), L"ZHL3001"), around({lower.x + 1, lower.y}, 36));
  EXPECT_EQ(name(cell(3, 0)), L"NULL");
  EXPECT_EQ(name(cell(3, 1)), L"ZHL3001");
  EXPECT_EQ(name(cell(3, 2)), L"NULL");
}

TEST_F(CellClicks, WideForWideKeepsTheRectangle) {
  const POINT centre = middle(cell(2, 1));
  leftClick(middle(cell(2, 0)), L"ZHL3001");
  EXPECT_EQ(leftClick(centre, L"ZHL3002"), around({centre.x - 1, centre.y}, 36));
  EXPECT_EQ(name(cell(2, 1)), L"ZHL3002");
  EXPECT_EQ(specification(cell(2, 1)), L"25A");
}

TEST_F(CellClicks, SingleOnWideFillsAllThreeCells) {
  const POINT centre = middle(cell(2, 1));
  leftClick(centre, L"ZHL3001");
  EXPECT_EQ(leftClick(centre, L"ZHL1007"), around(centre, 36));
  for (int column = 0; column < 3; ++column) {
    EXPECT_EQ(name(cell(2, column)), L"ZHL1007");
    EXPECT_EQ(specification(cell(2, column)), L"");
    EXPECT_EQ(edges(element(cell(2, column)).symbolRect),
              around({centre.x + 24 * (column - 1), centre.y}, 12));
  }
  EXPECT_EQ(record_->GetBlockCount(), 42);
}

TEST_F(CellClicks, RightClickSplitsAWideSymbolIntoEmptyCells) {
  const POINT centre = middle(cell(2, 1));
  leftClick(centre, L"ZHL3001");
  EXPECT_EQ(rightClick(centre), around(centre, 36));
  for (int column = 0; column < 3; ++column) {
    EXPECT_EQ(name(cell(2, column)), L"F002");
    EXPECT_EQ(specification(cell(2, column)), L"");
  }
}

TEST_F(CellClicks, StoredWideSymbolSplitsIntoAppendedCells) {
  leftClick(middle(cell(2, 1)), L"ZHL3001");
  reopen();
  ASSERT_EQ(record_->GetBlockCount(), 40);
  const std::uint16_t wide = 6;
  ASSERT_EQ(name(wide), L"ZHL3001");
  rightClick(middle(wide));
  ASSERT_EQ(record_->GetBlockCount(), 42);
  EXPECT_EQ(value(L"块\\40\\插入点\\x"), L"-6.250000");
  EXPECT_EQ(value(L"块\\40\\插入点\\y"), L"-17.500000");
  EXPECT_EQ(value(L"块\\41\\插入点\\x"), L"6.250000");
  EXPECT_EQ(name(40), L"F002");
  EXPECT_EQ(name(41), L"F002");
}

TEST_F(CellClicks, CoveredCellOutsideTheWideRectangleIsASingleOne) {
  leftClick(middle(cell(2, 0)), L"ZHL3001");
  const RECT wide = element(cell(2, 1)).symbolRect;
  const RECT covered = element(cell(2, 2)).symbolRect;
  const POINT beyond{covered.right - 1, middle(cell(2, 2)).y};
  ASSERT_GE(beyond.x, wide.right);
  leftClick(beyond, L"ZHL1007");
  EXPECT_EQ(name(cell(2, 2)), L"ZHL1007");
  EXPECT_EQ(name(cell(2, 1)), L"ZHL3001");
}

TEST_F(CellClicks, BottomRowTakesNoWideSymbol) {
  const std::uint16_t bottom = cell(13, 1);
  put({{L"块\\40\\块名\\bottom", L"400"}});
  for (const auto& [top, refused] :
       {std::pair(303, false), {304, true}, {314, true}, {324, true}, {325, false}}) {
    put({{L"块\\40\\块名\\top", std::to_wstring(top)}, {L"块\\40\\块名", L"ZHL1003"}});
    const std::wstring before = builtRow();
    const RECT now = element(bottom).symbolRect;
    const Place changed = leftClick({now.left + 12, 390}, L"ZHL3001");
    EXPECT_EQ(changed.empty(), refused) << top;
    EXPECT_EQ(builtRow() == before, refused) << top;
    put({{L"块\\40\\块名\\bottom", L"400"},
         {L"块\\40\\块名\\left", std::to_wstring(now.left)},
         {L"块\\40\\块名\\right", std::to_wstring(now.right)}});
  }
}

TEST_F(CellClicks, LonelyCellWidensOverTheLastBlock) {
  put({{L"块", L"1"}});
  const POINT centre = middle(0);
  EXPECT_EQ(leftClick(centre, L"ZHL3001"), around({centre.x - 24, centre.y}, 36));
  EXPECT_EQ(name(0), L"ZHL3001");
  EXPECT_EQ(record_->GetBlockCount(), 1);
}

TEST_F(CellClicks, RectanglesAtThePixelsLimitsStayWithinNumbers) {
  put({{L"块", L"1"},
       {L"块\\0\\块名\\left", L"-2147483648"},
       {L"块\\0\\块名\\top", L"-2147483648"},
       {L"块\\0\\块名\\right", L"2147483647"},
       {L"块\\0\\块名\\bottom", L"-2147483000"}});
  leftClick({2147483646, -2147483647}, L"ZHL3001");
  EXPECT_EQ(name(0), L"ZHL3001");
  rightClick({0, -2147483647});
  EXPECT_EQ(record_->GetBlockCount(), 1);
}

}  // namespace

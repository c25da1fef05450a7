// The lattice of cells: from rectangles in the edit view to columns and rows of the drawing.
#include "store/cell_lattice.h"

#include <array>

#include "store/circuit_fixture.h"

namespace {

constexpr double kRowValues[] = {0,   -10,   -17.5, -25, -32.5, -42.5, -50,
                                 -60, -67.5, -77.5, -85, -92.5, -100,  -120.28};

double snapped(double y) {
  SnapRow(y);
  return y;
}

class CellLattice : public test::CircuitFixture {
 protected:
  std::pair<double, double> cellOf(const RECT& rectangle) const {
    std::pair<double, double> cell;
    record_->ScreenToCell(rectangle, cell.first, cell.second);
    return cell;
  }
  // The column of a rectangle whose middle lies so many pixels right of the origin.
  double columnAt(int pixels) const {
    const auto x = static_cast<std::int32_t>(record_->origin.x + pixels);
    return cellOf({x - kCellHalfWidth, 15, x + kCellHalfWidth, 35}).first;
  }
};

TEST_F(CellLattice, RowsTakeTheirRangeWithBothEnds) {
  const std::array<double, 3> ranges[] = {
      {-5, 5, 0},        {-13, -6, -10},       {-20, -14, -17.5}, {-27, -21, -25},
      {-35, -28, -32.5}, {-45, -37, -42.5},    {-53, -46, -50},   {-63, -55, -60},
      {-70, -65, -67.5}, {-82, -73, -77.5},    {-88, -83, -85},   {-96, -89, -92.5},
      {-103, -97, -100}, {-130, -110, -120.28}};
  for (const auto& [least, most, row] : ranges) {
    EXPECT_EQ(snapped(least), row);
    EXPECT_EQ(snapped(most), row);
    EXPECT_EQ(snapped((least + most) / 2), row);
  }
  EXPECT_EQ(snapped(-121), -120.28);
}

TEST_F(CellLattice, BetweenTheRowsNothingSnaps) {
  for (const double y : {-5.2, -5.5, -13.5, -36.0, -54.0, -64.0, -71.5, -105.0, 5.01, -130.01}) {
    EXPECT_EQ(snapped(y), y);
  }
}

TEST_F(CellLattice, ColumnsAreWholeUnitsFromTheOrigin) {
  record_->origin = {200, 15};
  const std::pair<int, double> columns[] = {
      {0, 0},      {12, 0},  {13, 0},  {14, 0},      {15, 0},      {16, 6.25},   {25, 6.25},
      {400, 6.25}, {-12, 0}, {-15, 0}, {-16, -6.25}, {-25, -6.25}, {-400, -6.25}};
  for (const auto& [pixels, x] : columns) EXPECT_EQ(columnAt(pixels), x) << pixels;
}

TEST_F(CellLattice, EachCellsRectangleLeadsBackToTheCell) {
  record_->origin = {173, 15};
  for (const double x : {-6.25, 0.0, 6.25}) {
    for (const double y : kRowValues) {
      POINT place{};
      record_->DrawingToScreen(x, y, place);
      const auto cell = cellOf(
          {place.x - kCellHalfWidth, place.y, place.x + kCellHalfWidth, place.y + kCellHeight});
      EXPECT_EQ(cell, std::pair(x, y));
    }
  }
}

TEST_F(CellLattice, RectanglesAtThePixelsLimitsStayWithinNumbers) {
  record_->origin = {2147483647, 2147483647};
  EXPECT_EQ(cellOf({-2147483647, -2147483647, -2147483647, 0}).first, -6.25);
  EXPECT_EQ(cellOf({2147483647, 0, -2147483647, 0}).first, -6.25);
}

TEST_F(CellLattice, OddWidthsAreCutTowardsTheLeft) {
  EXPECT_EQ(centreOf({0, 0, 25, 21}).x, 12);
  EXPECT_EQ(centreOf({-25, 0, 0, 21}).x, -13);
  EXPECT_EQ(centreOf({10, 4, 5, 1}).x, 8);  // inverted: halves go towards the first edge
  EXPECT_EQ(centreOf({0, 0, 25, 21}).y, 10);
}

TEST_F(CellLattice, WideSymbolsBeginWithTheirMark) {
  EXPECT_TRUE(isWideSymbol(L"ZHL3001"));
  EXPECT_TRUE(isWideSymbol(L"zhl3"));
  EXPECT_FALSE(isWideSymbol(L"AZHL3"));
  EXPECT_FALSE(isWideSymbol(L""));
}

}  // namespace

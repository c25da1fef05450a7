// Columns and rows of the lattice.
#include "store/cell_lattice.h"

#include "store/circuit_record.h"
#include "store/pixels.h"

namespace {

constexpr double kColumnStep = 6.25;
constexpr int kPixelsToUnitX = 4;

// Both ends belong to the row. The gaps between the rows are meant, and so is the last row's value.
struct SnapRange {
  double least;
  double most;
  double row;
};

constexpr SnapRange kRows[] = {
    {-5, 5, 0},        {-13, -6, -10},        {-20, -14, -17.5}, {-27, -21, -25},
    {-35, -28, -32.5}, {-45, -37, -42.5},     {-53, -46, -50},   {-63, -55, -60},
    {-70, -65, -67.5}, {-82, -73, -77.5},     {-88, -83, -85},   {-96, -89, -92.5},
    {-103, -97, -100}, {-130, -110, -120.28},
};

double snappedColumn(double x) {
  constexpr double kHalfStep = kColumnStep / 2;
  if (x >= -kHalfStep && x <= kHalfStep) return 0;
  return x < 0 ? -kColumnStep : kColumnStep;
}

}  // namespace

bool isWideSymbol(const CString& symbol) {
  CString capitals = symbol;
  return capitals.MakeUpper().Find(L"ZHL3") == 0;
}

// Inverted rectangles have a middle too; sums are taken where they can't overflow.
POINT centreOf(const RECT& rectangle) {
  const auto middle = [](std::int64_t from, std::int64_t to) {
    return static_cast<std::int32_t>(from + (to - from) / 2);
  };
  return {middle(rectangle.left, rectangle.right), middle(rectangle.top, rectangle.bottom)};
}

void SnapRow(double& y) {
  for (const SnapRange& range : kRows) {
    if (y < range.least || y > range.most) continue;
    y = range.row;
    return;
  }
}

// Whole units of x: the division is one of integers.
void CZhlkCircuitRecord::ScreenToCell(const RECT& rectangle, double& x, double& y) const {
  const std::int64_t fromOrigin = std::int64_t{centreOf(rectangle).x} - origin.x;
  const std::int64_t wholeUnits = fromOrigin / kPixelsToUnitX;
  x = snappedColumn(static_cast<double>(wholeUnits));
  y = static_cast<double>(std::int64_t{origin.y} - rectangle.top) / kPixelsPerUnitY;
  SnapRow(y);
}

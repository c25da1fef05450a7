// A record with a circuit of all 42 cells of the lattice, in reading order.
#pragma once

#include <array>

#include "editor/cell_clicks.h"
#include "store/circuit_fixture.h"

namespace test {

class ClickFixture : public CircuitFixture {
 protected:
  static constexpr std::array<const wchar_t*, 3> kColumns{L"-6.25", L"0", L"6.25"};
  static constexpr std::array<const wchar_t*, 14> kRows{
      L"0",   L"-10",   L"-17.5", L"-25", L"-32.5", L"-42.5", L"-50",
      L"-60", L"-67.5", L"-77.5", L"-85", L"-92.5", L"-100",  L"-120.28"};

  ClickFixture() {
    putIndex("F002    0001ZHL1003 0001ZHL30010001");
    record_->frame = {0, 0, 300, 400};
    record_->Load(fullRow().c_str(), L"主回路&05");
  }

  static std::wstring fullRow() {
    std::wstring row = L"(\"05\"";
    for (const wchar_t* y : kRows) {
      for (const wchar_t* x : kColumns) {
        row += std::wstring(L" \"ZHL1003\" \"25A\" ") + x + L" " + y + L" 0";
      }
    }
    return row + L" \"&&&&\" 0 0 0 -120)";
  }

  static std::uint16_t cell(int row, int column) {
    return static_cast<std::uint16_t>(row * 3 + column);
  }
  ZhlkElement element(std::uint16_t index) const {
    ZhlkElement element;
    EXPECT_EQ(record_->ReadElement(index, element, kBlockElement), 1) << index;
    return element;
  }
  // The middle of the block's rectangle.
  POINT middle(std::uint16_t index) const {
    const RECT cell = element(index).symbolRect;
    return {(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
  }
  std::vector<int> leftClick(const POINT& point, const wchar_t* pick) {
    return edgesOf(placeSymbol(*record_, point, pick));
  }
  std::vector<int> rightClick(const POINT& point) { return edgesOf(clearCell(*record_, point)); }
  // Nothing for a click that changed nothing.
  static std::vector<int> edgesOf(const std::optional<RECT>& rectangle) {
    return rectangle ? edges(*rectangle) : std::vector<int>{};
  }
  std::wstring name(std::uint16_t index) const { return element(index).blockName.wide(); }
  std::wstring specification(std::uint16_t index) const {
    return element(index).specification.wide();
  }
};

}  // namespace test

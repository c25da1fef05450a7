// The user's hand on the editing dialog: steps of a script that press its buttons, pick symbols and
// click cells. The dialog is looked up when a step runs.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "editor/symbol_tables.h"
#include "editor/windows/circuit_dialog.h"
#include "embedded/base/paths.h"
#include "resources/resource_ids.h"
#include "windows/picture.h"
#include "windows/window_script.h"

namespace test {

constexpr int kPickerSide = 6;  // of the sample library's group

class DialogHand {
 public:
  explicit DialogHand(std::function<CZHlkhlbjDlg*()> dialog) : dialog_(std::move(dialog)) {}

  void press(window_kit::WindowScript& script, int id) const {
    script.then([this, id] { ::SendMessageW(control(id), BM_CLICK, 0, 0); });
  }
  // A cell of the picker's page, counted in reading order.
  void pick(window_kit::WindowScript& script, int cell) const {
    script.move([this, cell] { return pickerCell(cell); }).press().release();
  }
  void click(window_kit::WindowScript& script, std::uint16_t block) const {
    script.move([this, block] { return circuitCell(block); }).press().release();
  }
  void rightClick(window_kit::WindowScript& script, std::uint16_t block) const {
    script.move([this, block] { return circuitCell(block); }).pressRight().releaseRight();
  }

  HWND control(int id) const { return ::GetDlgItem(dialog_()->m_hWnd, id); }
  HWND view() const { return control(AFX_IDW_PANE_FIRST); }
  CRect pickerArea() const {
    CRect area;
    ::GetWindowRect(control(IDC_PICKER_GRID), area);
    dialog_()->ScreenToClient(area);
    return area;
  }

 private:
  window_kit::Spot pickerCell(int cell) const {
    const CRect area = pickerArea();
    const int width = area.Width() / kPickerSide;
    const int height = area.Height() / kPickerSide;
    return {dialog_()->m_hWnd, area.left + cell % kPickerSide * width + width / 2,
            area.top + cell / kPickerSide * height + height / 2};
  }
  window_kit::Spot circuitCell(std::uint16_t block) const {
    ZhlkElement element;
    dialog_()->record.ReadElement(block, element, kBlockElement);
    const RECT& cell = element.symbolRect;
    return {view(), (cell.left + cell.right) / 2 - ::GetScrollPos(view(), SB_HORZ),
            (cell.top + cell.bottom) / 2 - ::GetScrollPos(view(), SB_VERT)};
  }

  std::function<CZHlkhlbjDlg*()> dialog_;
};

// The picker's symbols in an install of the sample library.
inline std::vector<std::wstring> sampleSymbols(const std::filesystem::path& install) {
  const auto lines =
      readSymbolLines(base::wideFromPath(install / "Dwglib" / "Dqbl0012" / "Dqbl0012.idx"));
  std::vector<std::wstring> names;
  if (lines) {
    for (const SymbolLine& line : *lines) names.push_back(line.front());
  }
  return names;
}

// The place in that list of the first symbol three cells wide.
inline int firstWideSymbol(const std::vector<std::wstring>& symbols) {
  int index = 0;
  for (const std::wstring& name : symbols) {
    if (name.starts_with(L"ZHL3")) return index;
    ++index;
  }
  ADD_FAILURE() << "no wide symbol";
  return 0;
}

// For looking at: a bitmap in out/.
inline void keep(const window_kit::Picture& picture, const std::string& name) {
  const std::filesystem::path folder = std::filesystem::path(VORNIK_SOURCE_DIR) / "out";
  std::filesystem::create_directories(folder);
  EXPECT_TRUE(picture.save(folder / (name + ".bmp")));
}

}  // namespace test

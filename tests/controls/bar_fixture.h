// A bar of 100 by 300 pixels for tests, with icons of 16 or 32 pixels and letters of 8 by 12.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "controls/bar_layout.h"
#include "support/shapes.h"

namespace controls_test {

using test::edges;
using test::Place;

class Letters : public BarMeasure {
 public:
  SIZE icon(int, int, bool small) const override { return small ? size(16, 16) : size(32, 32); }
  SIZE line(const std::wstring& text) const override {
    ++lines;
    return size(8 * static_cast<int>(text.size()), 12);
  }
  SIZE wrapped(const std::wstring& text, int width) const override {
    const int letters = std::max(width / 8, 1);
    const int length = static_cast<int>(text.size());
    return size(8 * std::min(length, letters), 12 * ((length + letters - 1) / letters));
  }

  mutable int lines = 0;  // measured so far

 private:
  static SIZE size(int cx, int cy) {
    SIZE result;
    result.cx = cx;
    result.cy = cy;
    return result;
  }
};

class Bar : public testing::Test {
 protected:
  Bar() { view_.client = {0, 0, 100, 300}; }

  void fill(int folders, int items) {
    for (int i = 0; i < folders; ++i) folders_.AddFolder(L"folder", i);
    for (int i = 0; i < items; ++i) folders_.InsertItem(view_.currentFolder, -1, {i, L"label", 0});
  }
  // As things are now.
  BarLayout layout() const { return {folders_, view_, letters_}; }
  Place folderRect(int index) const {
    RECT rect{};
    return layout().GetFolderRect(index, rect) ? edges(rect) : Place{};
  }
  Place inside() const { return edges(layout().GetInsideRect()); }
  Place cell(int item) const { return edges(layout().GetItemCellRect(view_.currentFolder, item)); }
  Place icon(int item) const { return edges(layout().GetItemIconRect(view_.currentFolder, item)); }
  Place label(int item) const {
    return edges(layout().GetItemLabelRect(view_.currentFolder, item));
  }
  std::pair<BarHit, int> hit(int x, int y) const {
    int index = -7;
    const BarHit code = layout().HitTestBar({x, y}, index);
    return {code, index};
  }

  BarFolders folders_;
  BarView view_;
  Letters letters_;
};

}  // namespace controls_test

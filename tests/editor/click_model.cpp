// Step by step, with numbers where the real code has names.
#include "editor/click_model.h"

#include <cstdio>
#include <cstdlib>

namespace test {

namespace {

std::wstring capitals(std::wstring text) {
  for (wchar_t& c : text) {
    if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - 32);
  }
  return text;
}

bool wide(const std::wstring& name) { return capitals(name).rfind(L"ZHL3", 0) == 0; }

std::wstring printed(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%f", value);
  return std::wstring(text, text + std::char_traits<char>::length(text));
}

double row(double y) {
  if (y >= -5 && y <= 5) return 0;
  if (y >= -13 && y <= -6) return -10;
  if (y >= -20 && y <= -14) return -17.5;
  if (y >= -27 && y <= -21) return -25;
  if (y >= -35 && y <= -28) return -32.5;
  if (y >= -45 && y <= -37) return -42.5;
  if (y >= -53 && y <= -46) return -50;
  if (y >= -63 && y <= -55) return -60;
  if (y >= -70 && y <= -65) return -67.5;
  if (y >= -82 && y <= -73) return -77.5;
  if (y >= -88 && y <= -83) return -85;
  if (y >= -96 && y <= -89) return -92.5;
  if (y >= -103 && y <= -97) return -100;
  if (y >= -130 && y <= -110) return -120.28;
  return y;
}

RECT box(int x, int y, int halfWidth) { return {x - halfWidth, y - 10, x + halfWidth, y + 10}; }

}  // namespace

std::pair<int, bool> ClickModel::find(int x, int y) const {
  for (int i = 0; i < static_cast<int>(blocks.size()); ++i) {
    const RECT& r = blocks[static_cast<std::size_t>(i)].cell;
    if (x >= r.left && x < r.right && y >= r.top && y < r.bottom) return {i, true};
  }
  return {static_cast<int>(blocks.size()) - 1, false};
}

ModelBlock ClickModel::appended(int x, int y) const {
  ModelBlock block;
  const int units = (x - static_cast<int>(origin.x)) / 4;
  const double column = units > 3 ? 6.25 : units < -3 ? -6.25 : 0;
  block.x = printed(column);
  block.y = printed(row((static_cast<int>(origin.y) - (y - 10)) / 2.5));
  return block;
}

void ClickModel::nameNeighbour(int x, int y, const std::wstring& name) {
  auto [index, hit] = find(x, y);
  if (!hit) {
    blocks.push_back(appended(x, y));
    index = static_cast<int>(blocks.size()) - 1;
  }
  ModelBlock& block = blocks[static_cast<std::size_t>(index)];
  block.name = name;
  block.cell = box(x, y, 12);
  block.specification.clear();
}

RECT ClickModel::splitIntoThree(int index, const std::wstring& name) {
  ModelBlock& block = blocks[static_cast<std::size_t>(index)];
  const RECT old = block.cell;
  const int x = static_cast<int>(old.left + (old.right - old.left) / 2);
  const int y = static_cast<int>(old.top + (old.bottom - old.top) / 2);
  block.name = name;
  block.cell = box(x, y, 12);
  block.specification.clear();
  nameNeighbour(x - 24, y, name);
  nameNeighbour(x + 24, y, name);
  return old;
}

std::optional<RECT> ClickModel::rightClick(int x, int y) {
  const auto [index, hit] = find(x, y);
  if (!hit) return std::nullopt;
  ModelBlock& block = blocks[static_cast<std::size_t>(index)];
  if (wide(block.name)) return splitIntoThree(index, L"F002");
  block.name = L"F002";
  block.specification.clear();
  return block.cell;
}

std::optional<RECT> ClickModel::leftClick(int x, int y, std::wstring pick) {
  const auto [index, hit] = find(x, y);
  if (!hit) return std::nullopt;
  if (pick == L"空") pick = L"F002";
  pick = capitals(pick);
  ModelBlock& block = blocks[static_cast<std::size_t>(index)];
  const bool from = wide(block.name);
  const bool to = wide(pick);
  if (!to && from) return splitIntoThree(index, pick);
  if (to != from) {
    if (std::abs(static_cast<int>(block.cell.top) - 314) <= 10) return std::nullopt;
    const int cx = static_cast<int>(block.cell.left + (block.cell.right - block.cell.left) / 2);
    const int cy = static_cast<int>(block.cell.top + (block.cell.bottom - block.cell.top) / 2);
    int middle = cx - 24;
    if (find(cx + 24, cy).second) middle = find(cx + 48, cy).second ? cx + 24 : cx;
    blocks[static_cast<std::size_t>(find(middle - 24, cy).first)].name = L"NULL";
    blocks[static_cast<std::size_t>(find(middle + 24, cy).first)].name = L"NULL";
    ModelBlock& centre = blocks[static_cast<std::size_t>(find(middle, cy).first)];
    centre.cell = box(middle, cy, 36);
    centre.name = pick;
    return centre.cell;
  }
  block.name = pick;
  if (!to && pick == L"F002") block.specification.clear();
  return block.cell;
}

}  // namespace test

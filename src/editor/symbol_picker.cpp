#include "editor/symbol_picker.h"

#include <algorithm>
#include <limits>

#include "platform/framework_exceptions.h"
#include "store/circuit_record.h"

namespace {

constexpr std::int32_t kDefaultSide = 6;
constexpr const wchar_t* kNoGroups = L"索引文件错误!";
constexpr const wchar_t* kGroupMissing = L"未建立\"常用主回路符号\"索引项\n请先建立该项!";

}  // namespace

std::wstring SymbolPicker::load(std::int32_t page, std::int32_t selection) {
  page_ = page;
  selection_ = selection;
  return readTables();
}

std::wstring SymbolPicker::refresh(bool& painted) {
  painted = false;
  std::wstring message = readTables();
  painted = groupsRead_ && message.empty();
  return message;
}

std::wstring SymbolPicker::readTables() {
  groupsRead_ = symbolsRead_ = true;
  auto groups = readSymbolGroups(folder_ + L"\\t-sywj.dat");
  if (!groups) {
    groupsRead_ = false;
    takeNothing();
    return {};
  }
  groups_ = std::move(*groups);
  if (groups_.empty()) return kNoGroups;
  const auto found = std::find_if(groups_.begin(), groups_.end(), [](const SymbolGroup& group) {
    return group.name == kPickerGroup;
  });
  if (found == groups_.end()) return kGroupMissing;
  group_ = static_cast<std::size_t>(found - groups_.begin());
  side_ = found->side;
  if (auto symbols = readSymbolLines(groupFile(L".IDX"))) {
    symbols_ = std::move(*symbols);
  } else {
    takeNothing();
  }
  if (selection_ < 0) throw new CInvalidArgException;
  takeSelected();
  return {};
}

void SymbolPicker::takeNothing() {
  symbolsRead_ = false;
  selection_ = kNoSymbol;
  side_ = kDefaultSide;
  page_ = 0;
}

void SymbolPicker::takeSelected() {
  const bool exists = static_cast<std::size_t>(selection_) < symbols_.size();
  current_ = exists ? symbolAt(selection_).c_str() : kEmptyCell;
}

// A group that the table no longer has is taken for the first one.
std::wstring SymbolPicker::groupFile(const wchar_t* extension) const {
  if (groups_.empty()) return {};
  const std::wstring& code = groups_[group_ < groups_.size() ? group_ : 0].code;
  return folder_ + L"\\" + code + L"\\" + code + extension;
}

std::wstring SymbolPicker::slidePath() const { return groupFile(L".SLB"); }

std::int32_t SymbolPicker::side() const { return std::max(side_, 1); }

std::int64_t SymbolPicker::cellsPerPage() const {
  const std::int64_t cells = std::int64_t{side()} * side();
  return std::min<std::int64_t>(cells, std::numeric_limits<std::int32_t>::max());
}

// A stored page below the first has no symbols in front of the first one.
std::int64_t SymbolPicker::firstOnPage() const {
  return std::max<std::int64_t>(cellsPerPage() * page_, 0);
}

std::int64_t SymbolPicker::endOnPage() const {
  return std::min<std::int64_t>(cellsPerPage() * (std::int64_t{page_} + 1),
                                static_cast<std::int64_t>(symbols_.size()));
}

const std::wstring& SymbolPicker::symbolAt(std::int64_t index) const {
  return symbols_.at(static_cast<std::size_t>(index)).front();
}

SIZE SymbolPicker::cellIn(const RECT& area) const {
  const auto part = [&](std::int64_t length) {
    return static_cast<std::int32_t>(std::max<std::int64_t>(length / side(), 1));
  };
  return {part(area.right - area.left), part(area.bottom - area.top)};
}

RECT SymbolPicker::boxOf(std::int64_t index, const RECT& area) const {
  const SIZE cell = cellIn(area);
  const std::int64_t onPage = index - cellsPerPage() * page_;
  RECT box = area;
  box.left += static_cast<std::int32_t>(cell.cx * (onPage % side()));
  box.top += static_cast<std::int32_t>(cell.cy * (onPage / side()));
  box.right = box.left + cell.cx;
  box.bottom = box.top + cell.cy;
  return box;
}

bool SymbolPicker::isMarkShown() const {
  return selection_ >= cellsPerPage() * page_ &&
         selection_ <= cellsPerPage() * (std::int64_t{page_} + 1);
}

bool SymbolPicker::canGoBack() const { return symbolsRead_ && page_ != 0; }

bool SymbolPicker::canGoOn() const {
  const std::int64_t last = static_cast<std::int64_t>(symbols_.size()) - 1;
  return symbolsRead_ && page_ != last / cellsPerPage();
}

bool SymbolPicker::turnPage(int by) {
  if (!groupsRead_) return false;
  page_ = static_cast<std::int32_t>(
      std::clamp<std::int64_t>(std::int64_t{page_} + by, std::numeric_limits<std::int32_t>::min(),
                               std::numeric_limits<std::int32_t>::max()));
  if (group_ < groups_.size()) groups_[group_].page = page_;
  return true;
}

bool SymbolPicker::pick(const POINT& point, const RECT& area) {
  if (point.x <= area.left || point.x >= area.right || point.y <= area.top ||
      point.y >= area.bottom) {
    return false;
  }
  const SIZE cell = cellIn(area);
  const std::int64_t column = (point.x - area.left) / cell.cx;
  const std::int64_t row = (point.y - area.top) / cell.cy;
  const std::int64_t index = column + row * side() + cellsPerPage() * page_;
  selection_ = static_cast<std::int32_t>(
      std::clamp<std::int64_t>(index, 0, std::numeric_limits<std::int32_t>::max()));
  takeSelected();
  return true;
}

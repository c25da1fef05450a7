// The editing dialog's symbol picker without its window: the symbols of one group in pages of side
// by side cells, the page shown, the symbol picked. Pages and symbols count from 0.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editor/symbol_tables.h"
#include "platform/framework_shapes.h"
#include "platform/framework_text.h"

constexpr const wchar_t* kPickerGroup = L"常用主回路符号";
constexpr const wchar_t* kPickerCaption = L"主回路编辑";
constexpr std::int32_t kNoSymbol = -1;

class SymbolPicker {
 public:
  // The folder of the symbol library, without its final backslash.
  explicit SymbolPicker(std::wstring folder) : folder_(std::move(folder)) {}

  // Reads the tables. The result is the message to show; empty when there is none, also when a file
  // can't be opened: the picker is then empty. A selection below 0, which that leaves, throws
  // CInvalidArgException*.
  std::wstring load(std::int32_t page, std::int32_t selection);
  // Reads them anew, keeping page and selection. The picker's area is to be painted when painted is
  // set.
  std::wstring refresh(bool& painted);

  // Cells a line and a column; 1 before a table was read and for what is no number of cells.
  std::int32_t side() const;
  std::int32_t page() const { return page_; }
  std::int32_t selection() const { return selection_; }
  // What a click on the circuit's cells puts there: "NULL" before a table was read, "F002" beyond
  // the last symbol.
  const CString& current() const { return current_; }
  bool hasSymbols() const { return symbolsRead_; }
  std::wstring slidePath() const;  // of the group's slide library

  // The symbols of the page: from the first on, before the last.
  std::int64_t firstOnPage() const;
  std::int64_t endOnPage() const;
  const std::wstring& symbolAt(std::int64_t index) const;
  // A symbol's box in the picker's area.
  RECT boxOf(std::int64_t index, const RECT& area) const;
  // Whether the picked symbol's mark is drawn; the first cell behind the page counts too.
  bool isMarkShown() const;
  bool canGoBack() const;
  bool canGoOn() const;

  // One page back (-1) or on (+1), with no bound, for the buttons guard it. False when no group
  // table was read: nothing changed.
  bool turnPage(int by);
  // Picks the cell under a point. False on the area's edge and outside.
  bool pick(const POINT& point, const RECT& area);

 private:
  std::wstring readTables();
  void takeNothing();
  void takeSelected();
  std::wstring groupFile(const wchar_t* extension) const;
  std::int64_t cellsPerPage() const;
  SIZE cellIn(const RECT& area) const;

  std::wstring folder_;
  std::vector<SymbolGroup> groups_;
  std::vector<SymbolLine> symbols_;
  std::size_t group_ = 0;
  bool groupsRead_ = false;
  bool symbolsRead_ = false;
  std::int32_t side_ = 1;
  std::int32_t page_ = 0;
  std::int32_t selection_ = 0;
  CString current_ = L"NULL";
};

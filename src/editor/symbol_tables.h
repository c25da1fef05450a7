// The tables that the symbol picker is filled from, ANSI text, a line an entry:
//
//   t-sywj.dat           group's name, folder, symbols a line of the picker, page
//   <folder>\<folder>.IDX   symbol's name, three words, five numbers
//
// Words are separated by white space. A line that lacks a field is skipped and shifts no other.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct SymbolGroup {
  std::wstring name;
  std::wstring code;  // of its folder: "dqbl0001"
  std::int32_t side = 0;
  std::int32_t page = 0;
};

// A symbol's name, which is also its slide's, and the three words behind it.
using SymbolLine = std::array<std::wstring, 4>;

std::optional<SymbolGroup> parseGroupLine(const std::wstring& line);
std::optional<SymbolLine> parseSymbolLine(const std::wstring& line);

// All entries of a file; none when it can't be opened or read.
std::optional<std::vector<SymbolGroup>> readSymbolGroups(const std::wstring& path);
std::optional<std::vector<SymbolLine>> readSymbolLines(const std::wstring& path);

// The sample library's definitions as read from the text files beside the generator, which are
// compiled into the program.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace samples {

// One stroke or text of a figure: its letter and what follows.
struct Primitive {
  char letter = 'L';            // L P R C A T
  std::vector<double> numbers;  // coordinates, radius, angles in degrees, text height
  std::string text;             // of a T
};
using Figure = std::vector<Primitive>;

struct SymbolDefinition {
  std::string name, chinese, letters, model;
  Figure figure;
};

struct Cell {
  std::string symbol, model;
};

struct Label {
  std::string text;
  int colour = 2;
  std::string height, x, y;  // as written, so that rows keep their digits
};

constexpr int kRows = 14;
constexpr int kColumns = 3;

struct CircuitDefinition {
  std::string number, chinese, english;
  std::array<std::array<Cell, kColumns>, kRows> cells;  // by row, then L, C, R
  std::vector<std::array<std::string, 4>> lines;
  std::vector<Label> labels;
};

struct AuxiliaryItem {
  std::string label;
  Figure figure;
};

struct AuxiliaryGroup {
  std::string title, directory;
  std::vector<AuxiliaryItem> items;
};

std::vector<SymbolDefinition> symbols();
std::vector<CircuitDefinition> circuits();  // the template of a free slot, number "00", is the last
std::vector<AuxiliaryGroup> auxiliaryGroups();

// The circuit as a data row.
std::string dataRow(const CircuitDefinition& circuit);

}  // namespace samples

// What the definitions say: names, cells, rows.
#include <gtest/gtest.h>

#include <set>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"
#include "engine/row_reader.h"
#include "samples/generator/definitions.h"

namespace samples {
namespace {

bool isWide(const std::string& symbol) { return symbol.rfind("ZHL3", 0) == 0; }

std::set<std::string> symbolNames() {
  std::set<std::string> names;
  for (const SymbolDefinition& symbol : symbols()) names.insert(symbol.name);
  return names;
}

TEST(SampleSymbols, AreSixtyWithNamesOfTheirOwn) {
  EXPECT_EQ(symbols().size(), 60u);
  EXPECT_EQ(symbolNames().size(), 60u);
}

// Index files are searched for the first occurrence of a name as bare text.
TEST(SampleSymbols, NoNameIsPartOfAnotherWord) {
  for (const SymbolDefinition& one : symbols()) {
    EXPECT_LE(one.name.size(), 8u);
    for (const SymbolDefinition& other : symbols()) {
      EXPECT_TRUE(&one == &other || one.name == other.name ||
                  other.name.find(one.name) == std::string::npos);
      EXPECT_EQ(other.chinese.find(one.name), std::string::npos);
      EXPECT_EQ(other.letters.find(one.name), std::string::npos);
      EXPECT_EQ(other.chinese.find(' '), std::string::npos);
    }
  }
}

TEST(SampleSymbols, AllButTheBlankHaveAFigure) {
  for (const SymbolDefinition& symbol : symbols()) {
    EXPECT_EQ(symbol.figure.empty(), symbol.name == "ZHL1000") << symbol.name;
  }
}

TEST(SampleCircuits, AreTwentyFiveAndTheTemplate) {
  const auto all = circuits();
  ASSERT_EQ(all.size(), 26u);
  for (int i = 0; i < 25; ++i) {
    EXPECT_EQ(all[static_cast<std::size_t>(i)].number, base::formatInt(i + 1, 2));
  }
  EXPECT_EQ(all.back().number, "00");
}

TEST(SampleCircuits, CellsNameSymbolsThatExist) {
  const auto names = symbolNames();
  for (const CircuitDefinition& circuit : circuits()) {
    for (const auto& line : circuit.cells) {
      for (const Cell& cell : line) {
        EXPECT_TRUE(cell.symbol.empty() || names.count(cell.symbol)) << circuit.number;
      }
    }
  }
}

TEST(SampleCircuits, WideSymbolsStandAloneInTheirRow) {
  for (const CircuitDefinition& circuit : circuits()) {
    for (std::size_t row = 0; row < kRows; ++row) {
      const auto& cells = circuit.cells[row];
      EXPECT_FALSE(isWide(cells[0].symbol) || isWide(cells[2].symbol));
      if (!isWide(cells[1].symbol)) continue;
      EXPECT_LT(row + 1, static_cast<std::size_t>(kRows));
      EXPECT_TRUE(cells[0].symbol.empty() && cells[2].symbol.empty()) << circuit.number;
    }
  }
}

TEST(SampleCircuits, EmptyCellsCarryNoModel) {
  for (const CircuitDefinition& circuit : circuits()) {
    for (const auto& line : circuit.cells) {
      for (const Cell& cell : line) {
        const bool empty = cell.symbol.empty() || cell.symbol == "F002" || cell.symbol == "ZHL1000";
        EXPECT_TRUE(!empty || cell.model.empty()) << circuit.number;
      }
    }
  }
}

TEST(SampleCircuits, RowsAreReadAsTheyAreMeant) {
  for (const CircuitDefinition& circuit : circuits()) {
    const RowReading reading = readRow(base::wideFromUtf8(dataRow(circuit)));
    ASSERT_TRUE(reading.ok()) << circuit.number << base::utf8FromWide(reading.message);
    EXPECT_EQ(reading.row.starts.size(), circuit.lines.size());
    EXPECT_GE(reading.row.starts.size(), 1u);
    ASSERT_EQ(reading.row.texts.size(), circuit.labels.size());
    for (std::size_t i = 0; i < circuit.labels.size(); ++i) {
      EXPECT_EQ(base::utf8FromWide(reading.row.texts[i]), circuit.labels[i].text);
    }
    std::size_t models = 0, wanted = 0;
    for (const auto& line : circuit.cells) {
      for (const Cell& cell : line) wanted += !cell.model.empty();
    }
    for (const std::wstring& model : reading.row.specifications) models += !model.empty();
    EXPECT_EQ(models, wanted) << circuit.number;
  }
}

}  // namespace
}  // namespace samples

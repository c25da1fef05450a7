// A sample circuit that is edited and saved without a change.
#include <gtest/gtest.h>

#include "embedded/base/text.h"
#include "engine/row_reader.h"
#include "engine/row_reader_model.h"
#include "samples/generator/definitions.h"
#include "store/circuit_record.h"
#include "support/install.h"

namespace samples {
namespace {

std::wstring editedRow(const std::wstring& row) {
  CZhlkCircuitRecord circuit;
  circuit.Load(row, L"");
  CString built;
  circuit.BuildRow(built);
  return built.wide();
}

// Numbers take the tree's form, with six decimals; everything else stays, and from then on all.
TEST(SampleRows, UnchangedEditKeepsAllButTheFormOfNumbers) {
  const test::Install install;
  for (const CircuitDefinition& circuit : circuits()) {
    const std::wstring row = base::wideFromUtf8(dataRow(circuit));
    const std::wstring edited = editedRow(row);
    EXPECT_TRUE(test::sameReading(readRow(edited), readRow(row))) << circuit.number;
    EXPECT_EQ(editedRow(edited), edited) << circuit.number;
  }
}

}  // namespace
}  // namespace samples

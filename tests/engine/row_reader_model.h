// A second, slow reader of data rows, for comparing: one loop a part over explicit positions, with
// every state as a plain flag, and nothing shared with the real one.
#pragma once

#include "engine/row_reader.h"

namespace test {

RowReading modelReadRow(const std::wstring& row);

// The same message and the same lists, "nan" agreeing with itself, and the real reader's angle
// texts one to an angle (the model keeps none).
bool sameReading(const RowReading& real, const RowReading& model);

}  // namespace test

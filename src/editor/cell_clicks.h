// What clicks on the edit view's cells do to the circuit: a left click puts the picked symbol into
// the cell, a right click clears it. A three-wide symbol is one block with a wide rectangle; while
// the circuit is edited, the two cells that it covers are blocks named "NULL".
#pragma once

#include <optional>

#include "platform/framework_shapes.h"
#include "platform/framework_text.h"

class CZhlkCircuitRecord;

// The pick that stands for the empty cell, in any case.
constexpr const wchar_t* kEmptyPick = L"空";

// Both take the pixel of the scrolling surface. The result is the rectangle of the surface to paint
// anew; none when nothing was changed: no block lies there, or a wide symbol was picked for the
// bottom row, which takes none.
std::optional<RECT> placeSymbol(CZhlkCircuitRecord& circuit, const POINT& point,
                                const CString& picked);
std::optional<RECT> clearCell(CZhlkCircuitRecord& circuit, const POINT& point);

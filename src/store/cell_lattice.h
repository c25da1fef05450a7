// The lattice of cells that a circuit stands on: three columns at drawing x -6.25, 0 and 6.25, and
// fourteen rows. A cell's rectangle in the edit view is 24 by 20 pixels, a three-wide symbol's 72.
#pragma once

#include <cstdint>

#include "platform/framework_shapes.h"
#include "platform/framework_text.h"

// Pixels.
constexpr std::int32_t kCellHalfWidth = 12;
constexpr std::int32_t kWideHalfWidth = 36;
constexpr std::int32_t kCellHeight = 20;

// A symbol that fills three neighbouring cells of a row: "ZHL3...", in any case.
bool isWideSymbol(const CString& symbol);

// The middle, halves being cut off.
POINT centreOf(const RECT& rectangle);

// Brings a drawing y onto its row; a y between two rows' ranges stays as it is.
void SnapRow(double& y);

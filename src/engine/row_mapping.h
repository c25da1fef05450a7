// The arithmetic from a row's coordinates to those of the drawing.
#pragma once

#include "engine/row_reader.h"

constexpr double kXStretch = 1.2;      // every x of a row, not y
constexpr double kLineWidth = 0.3;     // of the print scale
constexpr double kQuarterTurn = 90.0;  // degrees of one step of the direction

// Turns the point about the origin by direction quarter turns. A direction other than 0 to 3 gives
// a message and leaves the point alone.
void RotateByDirection(int direction, RowPoint& point);

// Where a row's point lands: stretched, turned, scaled, moved to the insertion point.
RowPoint mapRowPoint(const RowPoint& point, int direction, double scale, const RowPoint& insertion);

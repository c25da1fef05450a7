// Drawings of the sample library, made of figures.
#pragma once

#include <memory>

#include "embedded/drafting/database/database.h"
#include "samples/generator/definitions.h"

namespace samples {

// A figure as a drawing of its own: strokes in colour 3, letters in 2, layer 0, base point (0, 0).
std::unique_ptr<drafting::Database> makeFigureDrawing(const Figure& figure);

// What every circuit's slide has around it: a rectangle of the slide's proportion, 3 to 8, that
// encloses all circuits, in colour 8.
std::unique_ptr<drafting::Database> makeFrameDrawing();

// The block that marks where a circuit stands: one invisible attribute for the scale, no figure.
std::unique_ptr<drafting::Database> makeScaleMarkDrawing();

}  // namespace samples

// Lines and polygons of slides: clipping to the picture, and cutting of polygons into pieces.
// Coordinates must be within 24 bits signed.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "embedded/slide_store/slide.h"

namespace slide_store {

// Whether there is an area to fill.
bool threeDiffer(std::span<const SlidePoint> corners);

// Brings the line within 0 .. high on both axes; false when no part of it lies there.
bool clipLine(SlidePoint& from, SlidePoint& to, SlidePoint high);

// The part of the polygon within 0 .. high, without repeated neighbours.
std::vector<SlidePoint> clipPolygon(std::span<const SlidePoint> corners, SlidePoint high);

// Pieces of 3 to `most` corners that together cover a simple polygon, convex or not; none for less
// than three different corners. A polygon of at most `most` corners stays whole.
std::vector<std::vector<SlidePoint>> cutPolygon(std::vector<SlidePoint> corners, std::size_t most);

}  // namespace slide_store

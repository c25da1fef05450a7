// From a display list to a slide: strokes become vectors, areas solid fills, both with their colour
// index, in dots of the slide.
#pragma once

#include <string>

#include "embedded/drafting/display/display_list.h"

namespace common_funcs {

struct SlideSize {
  int width = 0;  // dots, 2 to kMostDots
  int height = 0;
};
inline constexpr int kFewestDots = 2;
inline constexpr int kMostDots = 32768;

// The part of the drawing that such a slide shows: the extents fill `part` of it in the direction
// that is tighter and stand in the middle; what has no extents lies in the middle at one unit a
// dot.
base::Box2 windowAround(const base::Box2& extents, SlideSize size, double part);

// The slide of what lies in the window, which fills it to its edges; the rest is clipped off.
// `font` is that of all texts; null: each text's own.
std::string recordSlide(const drafting::Database& database, const base::Box2& window,
                        SlideSize size, const drafting::TextFont* font = nullptr);

}  // namespace common_funcs

// A slide on a canvas: plots, contact sheets.
#pragma once

#include <functional>
#include <string_view>

#include "embedded/base/canvas.h"
#include "embedded/base/status.h"

namespace slide_store {

struct SlidePaint {
  std::function<base::Rgb(int index)> colours;
  double penWidth = 1;  // units of the canvas
};

// Stretches the slide over the box, which its outermost dots lie on. What is damaged is drawn up to
// the damage, which the status tells.
base::Status paintSlide(std::string_view slide, const base::Box2& box, const SlidePaint& paint,
                        base::Canvas& canvas);

// The part of the box that shows the slide in its true proportion, in the middle.
base::Box2 proportionalBox(std::string_view slide, const base::Box2& box);

}  // namespace slide_store

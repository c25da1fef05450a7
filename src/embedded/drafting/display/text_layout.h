// A line of text as strokes, and where TEXT, ATTRIB and ATTDEF put theirs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "embedded/drafting/database/entities.h"

namespace drafting {

using base::Affine2;

// Units of the capital height, baseline along x from (0, 0).
struct TextLine {
  double advance = 0;
  std::vector<std::vector<Point2>> strokes;
  std::string plain;  // UTF-8 without codes, as one would search for it
};

// Understands the codes of drawings: %%d degree, %%p plus-minus, %%c diameter, %%u and %%o (under-
// and overline on and off), %%nnn a character by its number, %%% the sign itself, \U+XXXX.
TextLine layOutLine(std::string_view utf8);

// The map from the line's units to the plane of the entity (its object coordinates).
Affine2 placeOfText(const TextBase& text, double advance);

}  // namespace drafting

// A line of text as strokes, and where TEXT, ATTRIB and ATTDEF put theirs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "embedded/drafting/database/entities.h"
#include "embedded/drafting/fonts/text_font.h"

namespace drafting {

using base::Affine2;

// Units of the capital height, baseline along x from (0, 0).
struct TextLine {
  double advance = 0;
  std::vector<std::vector<Point2>> strokes;
  std::string plain;      // UTF-8 without codes, as one would search for it
  std::size_t steps = 0;  // that the fonts' shapes cost
};

// Understands the codes of drawings: %%d degree, %%p plus-minus, %%c diameter, %%u and %%o (under-
// and overline on and off), %%nnn a character by its number, %%% the sign itself, \U+XXXX.
// No chord of an arc is farther from it than `tolerance`; 0 gives 64 for a full circle. A line that
// costs too much goes on in boxes.
TextLine layOutLine(std::string_view utf8, const TextFont& font = {}, double tolerance = 0);

// One character. A character that no font has is an empty box of its width, so that it is seen.
struct Glyph {
  double advance = 0;
  std::vector<std::vector<Point2>> strokes;
};
Glyph glyphOf(char32_t character, const TextFont& font = {});

// The map from the line's units to the plane of the entity (its object coordinates).
Affine2 placeOfText(const TextBase& text, double advance);

}  // namespace drafting

// TextFont: what a text style writes with: a Latin font and a big font together, and how each
// character finds its shape in them.
#pragma once

#include <memory>

#include "embedded/drafting/fonts/shape_drawing.h"

namespace drafting {

// Where a font is missing the built-in one stands, so that the default is the built-in pair.
struct TextFont {
  std::shared_ptr<const ShapeFont> latin, big;
  int codePage = 936;  // of the drawing: what a shapes font's numbers are
  bool vertical = false;
};

// Whether a character that came as a code ("%%d") is wanted of the Latin font first; in running
// text a character of two bytes is one of the big font.
enum class Wanted { ofTheText, asSign };

struct CharacterRun {
  Point2 end;             // where the next character stands
  std::size_t steps = 0;  // what it cost
};

// Draws a character with its baseline at `at`. Units are those of the capital height. A character
// that no font has, and one that may cost nothing any more, is an empty box.
CharacterRun drawCharacter(const TextFont& font, char32_t character, Point2 at, ShapePen& pen,
                           Wanted wanted = Wanted::ofTheText,
                           std::size_t mostSteps = kMostShapeSteps);

// Whether the fonts, or else the built-in ones, have the character.
bool hasGlyph(char32_t character, const TextFont& font = {});

}  // namespace drafting

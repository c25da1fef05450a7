// Paragraph text: format codes, wrapping, attachment.
#pragma once

#include <functional>

#include "embedded/drafting/display/text_layout.h"

namespace drafting {

// A part of a line that looks the same throughout, with its map to drawing units. Of a fraction
// there are two, above and below, and its bar; a strike line, too, is a part of its own. The text
// of all parts together is the whole text.
struct PlacedLine {
  TextLine line;
  Affine2 place;
  std::int16_t colour = -1;  // index; -1: the entity's
  std::string content;       // as a TEXT holds it, with codes; empty: strokes only
};
// What a paragraph takes from its text style.
struct ParagraphStyle {
  TextFont font;
  double widthFactor = 1;
  double oblique = 0;
  double tolerance = 0;  // of arcs, in drawing units
  // For runs in other shape fonts, by what the text says ("txt,gbcbig"); without it they stand in
  // the style's font.
  std::function<TextFont(std::string_view)> fontNamed;

  TextFont fontOf(const std::string& name) const {
    return name.empty() || !fontNamed ? font : fontNamed(name);
  }
};
std::vector<PlacedLine> layOutParagraph(const MText& text, const ParagraphStyle& style = {});

// The text without its codes, a line feed where a line ends, fractions in one line.
std::string plainOfMText(std::string_view text);

}  // namespace drafting

// Paragraph text: format codes, wrapping, attachment.
#pragma once

#include "embedded/drafting/display/text_layout.h"

namespace drafting {

// A part of a line that looks the same throughout, with its map to drawing units. Of a fraction
// there are two, above and below. The text of all parts together is the whole text; changes of the
// font within it are passed over.
struct PlacedLine {
  TextLine line;
  Affine2 place;
  std::int16_t colour = -1;  // index; -1: the entity's
};
// What a paragraph takes from its text style.
struct ParagraphStyle {
  TextFont font;
  double widthFactor = 1;
  double oblique = 0;
  double tolerance = 0;  // of arcs, in drawing units
};
std::vector<PlacedLine> layOutParagraph(const MText& text, const ParagraphStyle& style = {});

// The text without its codes, a line feed where a line ends, fractions in one line.
std::string plainOfMText(std::string_view text);

}  // namespace drafting

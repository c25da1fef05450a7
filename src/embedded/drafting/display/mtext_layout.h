// Paragraph text: format codes, wrapping, attachment.
#pragma once

#include "embedded/drafting/display/text_layout.h"

namespace drafting {

// The lines, each with its map to drawing units. Codes that change fonts, colours and sizes within
// the text are passed over; the text itself is whole.
struct PlacedLine {
  TextLine line;
  Affine2 place;
};
// What a paragraph takes from its text style.
struct ParagraphStyle {
  TextFont font;
  double widthFactor = 1;
  double oblique = 0;
  double tolerance = 0;  // of arcs, in drawing units
};
std::vector<PlacedLine> layOutParagraph(const MText& text, const ParagraphStyle& style = {});

// The text without its codes, a line feed where a line ends.
std::string plainOfMText(std::string_view text);

}  // namespace drafting

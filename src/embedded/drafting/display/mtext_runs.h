// The format codes of paragraph text: what is written, line by line, in runs of one look.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace drafting {

struct RunLook {
  double height = 1;         // in heights of the paragraph
  double width = 1;          // times the style's width factor
  double oblique = 0;        // radians, beyond the style's
  std::int16_t colour = -1;  // index; -1: the paragraph's
  std::string font;  // files of a shape font and a big font, "txt,gbcbig"; empty: the style's
  bool underline = false, overline = false, strike = false;
  friend bool operator==(const RunLook&, const RunLook&) = default;
};

struct TextRun {
  RunLook look;
  std::string text;         // of a fraction what stands above
  bool isFraction = false;  // two small texts over each other
  bool hasBar = false;      // between them
  std::string below;
};

struct RunLine {
  char alignment = 0;  // 'l', 'c', 'r' where the text says so, else 0
  std::vector<TextRun> runs;
};

// At least one line. `height` is the paragraph's, for heights that are stated in drawing units.
std::vector<RunLine> readRuns(std::string_view text, double height);

}  // namespace drafting

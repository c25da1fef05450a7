// Contact sheets: slides side by side with a line of text below each, as PDF pages or one PNG.
#pragma once

#include <string>
#include <vector>

#include "embedded/base/status.h"
#include "embedded/drafting/display/palette.h"

namespace vornik {

struct SheetSlide {
  std::string number;  // large
  std::string name;    // small, behind it
  std::string bytes;   // empty: an empty frame
};

struct SheetOptions {
  int columns = 9;
  double proportion = 3.0 / 8;  // width to height of a cell's slide
  int pixels = 2600;            // width of a PNG
  drafting::Background background = drafting::Background::White;
};

// The form goes by the extension, .pdf or .png. Saved atomically.
base::Status saveSheet(const std::vector<SheetSlide>& slides, const std::string& path,
                       const SheetOptions& options);

}  // namespace vornik

// Plots: a drawing as a PDF, SVG or PNG file.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/status.h"
#include "embedded/drafting/display/display_list.h"

namespace drafting {

class PdfCanvas;

// A sheet in millimetres.
struct Paper {
  double width = 0, height = 0;
  bool fixed = false;  // never turned to suit the drawing
};

// "A0" to "A4", elongated "A4x3" and the like (any case), or "WIDTHxHEIGHT" in millimetres, which
// stays as it is; nothing for anything else.
std::optional<Paper> parsePaper(std::string_view text);

struct PlotOptions {
  // Without one PDF and SVG take the smallest sheet that holds the drawing at its print scale (the
  // variable DIMSCALE; a very small drawing fills an A4), and a PNG is as high as the drawing
  // needs.
  std::optional<Paper> paper;
  bool keepUpright = false;    // the sheet isn't turned to suit the drawing
  std::optional<Box2> window;  // in drawing units; else everything
  double scale = 0;            // millimetres to a drawing unit; 0: as large as fits the paper
  int pixels = 2000;           // width of a PNG
  bool monochrome = false;
  bool lineweights = true;  // else every line is as thin as can be
  Background background = Background::White;
  std::filesystem::path drawingFolder;  // where its fonts are looked for first
};

// The form goes by the extension of `path` (UTF-8). Saved atomically, an old file becomes the
// backup. What the picture leaves out goes to `note`.
base::Status plotDrawing(const Database& database, const std::string& path,
                         const PlotOptions& options,
                         const std::function<void(std::string_view)>& note = {});

// Several drawings as the pages of one PDF, each with its own options.
class PdfBook {
 public:
  PdfBook();
  ~PdfBook();
  void add(const Database& database, const PlotOptions& options,
           const std::function<void(std::string_view)>& note = {});
  base::Status save(const std::string& path);  // the book is empty again

 private:
  std::vector<PdfCanvas> pages_;
};

}  // namespace drafting

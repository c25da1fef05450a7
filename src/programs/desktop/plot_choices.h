// What the plot dialog asks, and the plot that comes of it.
#pragma once

#include <optional>
#include <string>

#include "embedded/drafting/documents/session.h"
#include "embedded/drafting/plot/plot.h"

namespace desktop {

enum class PlotArea { Extents, Display, Window };

struct PlotChoices {
  std::string paper = "A3";  // a name, WIDTHxHEIGHT, or empty: by the print scale
  bool upright = false;      // the sheet isn't turned to suit the drawing
  PlotArea area = PlotArea::Extents;
  std::optional<base::Box2> window;  // of the area Window
  bool fit = true;
  std::string scale = "1:1";  // of the paper to the drawing
  bool monochrome = true, lineweights = true;
  std::string file;  // .pdf, .svg or .png; UTF-8
};

// The options for the choices, or what is wrong with them.
base::Result<drafting::PlotOptions> plotOptions(const drafting::Session& session,
                                                const PlotChoices& choices);

// "drawing.pdf" beside the drawing, for a first suggestion.
std::string plotFileFor(const drafting::Session& session);

// Plots and tells the command line; false if that failed, which it tells too.
bool plot(drafting::Session& session, const PlotChoices& choices);

}  // namespace desktop

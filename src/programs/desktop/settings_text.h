// What the status bar shows and what a click on it sets: coordinates, layer, colour, print scale,
// snaps, ortho.
#pragma once

#include <optional>
#include <string>

#include "embedded/drafting/documents/session.h"

namespace desktop {

std::string coordinatesText(base::Point2 point);
std::string layerText(const drafting::Session& session);
std::string colourText(const drafting::Session& session);
std::string scaleText(const drafting::Session& session);  // "1:100"; a scale of 0 is shown as that

bool snapsOn(const drafting::Session& session);
bool orthoOn(const drafting::Session& session);
// Snaps that were never chosen are ends, middles, intersections and insertion points.
void toggleSnaps(drafting::Session& session);
void toggleOrtho(drafting::Session& session);

// The print scale that a text means, "100" or "1:100".
std::optional<double> parseScale(std::string_view text);
// A scale of 0, with which circuits can't be placed, is set and warned about by a message box.
base::Status setScale(drafting::Session& session, double scale);

// Names of the drawing's layers, sorted.
std::vector<std::string> layerNames(const drafting::Session& session);

}  // namespace desktop

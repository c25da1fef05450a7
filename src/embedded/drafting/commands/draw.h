// What the drawing commands share: circles through points.
#pragma once

#include <array>
#include <optional>

#include "embedded/drafting/commands/ask.h"

namespace drafting {

struct RoundShape {
  Point2 centre;
  double radius = 0;
  bool counterClockwise = true;  // from the first point over the second to the third
};
// Nothing if the points lie on a line.
std::optional<RoundShape> circleThrough(Point2 a, Point2 b, Point2 c);

// Asks for three; the texts are those of the first.
std::optional<std::array<Point2, 3>> askThreePoints(Session& session, std::string_view chinese,
                                                    std::string_view english);

void addArcCommand(CommandTable& table);
void addPolylineCommand(CommandTable& table);

}  // namespace drafting

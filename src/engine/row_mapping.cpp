// Maps row points into the drawing.
#include "engine/row_mapping.h"

#include <cmath>
#include <numbers>

#include "platform/acad_command.h"

void RotateByDirection(int direction, RowPoint& point) {
  if (direction < 0 || direction > 3) {
    acutPrintf(L"\n代表方向的数值必须为\"0 1 2 3\"中的一个.");
    return;
  }
  const double angle = direction * (std::numbers::pi / 2);
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  point = {point.x * cosine - point.y * sine, point.x * sine + point.y * cosine};
}

RowPoint mapRowPoint(const RowPoint& point, int direction, double scale,
                     const RowPoint& insertion) {
  RowPoint mapped{point.x * kXStretch, point.y};
  RotateByDirection(direction, mapped);
  return {mapped.x * scale + insertion.x, mapped.y * scale + insertion.y};
}

// Geometry of the common functions.
#include <cmath>

#include "platform/common_funcs.h"

AcGePoint3d arx_polar(const AcGePoint3d& from, double angle, double distance) {
  return {from.x + distance * std::cos(angle), from.y + distance * std::sin(angle), from.z};
}

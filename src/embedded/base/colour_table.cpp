// 1 to 9 are named colours, 10 to 249 run round the colour circle in steps of 15 degrees, each hue
// in five brightnesses, full and half saturated, 250 to 255 are greys.
#include "embedded/base/colour_table.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace base {
namespace {

constexpr Rgb kNamed[] = {{255, 255, 255}, {255, 0, 0},    {255, 255, 0}, {0, 255, 0},
                          {0, 255, 255},   {0, 0, 255},    {255, 0, 255}, {255, 255, 255},
                          {128, 128, 128}, {192, 192, 192}};
constexpr std::uint8_t kGreys[] = {51, 91, 132, 173, 214, 255};
constexpr double kBrightness[] = {255, 165, 127, 76, 38};
constexpr int kFirstHue = 10, kFirstGrey = 250;

// Share of a channel in a hue: 1 around its own angle, falling to 0 at a third of the circle.
double share(double hue, double channel) {
  const double apart = std::abs(std::remainder(hue - channel, 360.0));
  return std::clamp(2 - apart / 60, 0.0, 1.0);
}

Rgb hueColour(int index) {
  const int step = (index - kFirstHue) / 10;
  const double hue = 15 * step;
  const double bright = kBrightness[index % 10 / 2];
  const bool half = index % 2 != 0;
  const auto channel = [&](double angle) {
    const double full = share(hue, angle);
    return static_cast<std::uint8_t>(bright * (half ? (1 + full) / 2 : full));
  };
  return {channel(0), channel(120), channel(240)};
}

}  // namespace

Rgb screenColour(int index) {
  if (index < 0 || index > 255) return kNamed[7];
  if (index < kFirstHue) return kNamed[index];
  if (index < kFirstGrey) return hueColour(index);
  const std::uint8_t grey = kGreys[index - kFirstGrey];
  return {grey, grey, grey};
}

}  // namespace base

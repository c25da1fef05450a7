// Colours as the screen and paper show them.
#include "embedded/drafting/display/palette.h"

#include <cmath>

namespace drafting {
namespace {

using base::Rgb;

double brightness(Rgb c) { return (0.2126 * c.red + 0.7152 * c.green + 0.0722 * c.blue) / 255; }

// Darker where it would hardly be read on white; the shares of the channels stay.
Rgb onPaper(Rgb c) {
  constexpr double kBrightest = 0.45;
  const double now = brightness(c);
  if (now <= kBrightest) return c;
  const auto darker = [&](std::uint8_t v) {
    return static_cast<std::uint8_t>(std::lround(v * kBrightest / now));
  };
  return {darker(c.red), darker(c.green), darker(c.blue)};
}

}  // namespace

base::Rgb Palette::background() const {
  return background_ == Background::White ? Rgb{255, 255, 255} : Rgb{0, 0, 0};
}

base::Rgb Palette::operator()(int index) const {
  const bool standsOut = index <= 0 || index == 7 || index > 255;
  if (monochrome_ || standsOut) {
    return background_ == Background::White ? Rgb{0, 0, 0} : Rgb{255, 255, 255};
  }
  const Rgb colour = screenColour(index);
  return background_ == Background::White ? onPaper(colour) : colour;
}

}  // namespace drafting

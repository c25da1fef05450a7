// Writes slides: level 2, low byte first. What lies outside the picture is clipped off.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "embedded/slide_store/slide.h"

namespace slide_store {

class SlideWriter {
 public:
  // High dots of 1 to 32767; other values are brought there.
  SlideWriter(int highX, int highY);

  // Both are drawn in the order of the calls. Coordinates must be within 24 bits signed.
  void line(SlidePoint from, SlidePoint to, std::uint8_t colour);
  void fill(std::span<const SlidePoint> corners, std::uint8_t colour);

  // The whole slide; the writer is spent then.
  std::string finish();

 private:
  void setColour(std::uint8_t colour);
  void word(int value);
  void byte(int value) { bytes_ += static_cast<char>(value); }
  void run(std::span<const SlidePoint> corners);

  SlidePoint high_;
  std::string bytes_;
  SlidePoint last_;
  bool hasLast_ = false;
  int colour_ = -1;
};

}  // namespace slide_store

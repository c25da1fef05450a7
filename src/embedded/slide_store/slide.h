// Slides (.sld): header and decoder. Coordinates are dots, (0, 0) lower left, y upwards. Layout of
// level 2; numbers of 2 bytes are in the file's byte order:
//
//   offset  size  field
//   0       17    "AutoCAD Slide", 0D 0A 1A 00
//   17      1     type, written as 56 hex, not looked at on reading
//   18      1     level, 1 or 2
//   19      2, 2  high x dot, high y dot: width and height less one
//   23      4     aspect ratio times 10,000,000, low byte first
//   27      2     hardware fill; written as 2, not looked at on reading
//   29      2     1234 hex
//   31            records up to an end record
//
// Level 1 has a double in file byte order as aspect ratio, no test number, and records from 34.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "embedded/base/status.h"

namespace slide_store {

struct SlidePoint {
  int x = 0;
  int y = 0;
  friend bool operator==(SlidePoint, SlidePoint) = default;
};

struct SlideHeader {
  int level = 2;
  bool highFirst = false;
  int highX = 0;
  int highY = 0;
  double aspect = 1;  // true width to height of the picture
  std::size_t recordsAt = 0;
};

// What a slide's records draw, in their order; colours are indices of the host's table.
class SlideVisitor {
 public:
  virtual ~SlideVisitor() = default;
  virtual void line(SlidePoint from, SlidePoint to, std::uint8_t colour) = 0;
  // A closed polygon with three different corners at least. The corners are good during the call.
  virtual void fill(std::span<const SlidePoint> corners, std::uint8_t colour) = 0;
};

// Fails on what is no slide. A level 1 slide doesn't tell its byte order: it is found by trying.
base::Result<SlideHeader> readSlideHeader(std::string_view slide);

// Hands the records to the visitor, within 16 bits signed whatever the bytes are. Gives the slide's
// size with its end record. On failure, which names the offset, everything in front of the damage
// has been handed over.
base::Result<std::size_t> readSlideRecords(std::string_view slide, const SlideHeader& header,
                                           SlideVisitor& visitor);

}  // namespace slide_store

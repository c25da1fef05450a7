// Encodes each line as the shortest record that holds it.
#include "embedded/slide_store/slide_writer.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "embedded/slide_store/polygon.h"
#include "embedded/slide_store/slide_format.h"

namespace slide_store {

namespace {

constexpr int kMostDots = 32767;  // a vector's first number above that would read as another kind
constexpr int kType = 0x56;
constexpr int kHardwareFill = 2;
constexpr int kRunMark = -2;  // y of the records that open and close a run

bool fitsBytes(SlidePoint p, SlidePoint last) {
  const auto fits = [](int d) { return d >= -128 && d <= 127; };
  return fits(p.x - last.x) && fits(p.y - last.y);
}

}  // namespace

SlideWriter::SlideWriter(int highX, int highY)
    : high_{std::clamp(highX, 1, kMostDots), std::clamp(highY, 1, kMostDots)} {
  bytes_ = kSlideTitle;
  byte(kType);
  byte(2);
  word(high_.x);
  word(high_.y);
  const auto aspect = static_cast<std::uint64_t>(std::llround(kAspectUnit * high_.x / high_.y));
  const std::uint64_t bounded = std::min<std::uint64_t>(aspect, 0xFFFFFFFF);
  for (int shift = 0; shift < 32; shift += 8) byte(static_cast<int>(bounded >> shift & 0xFF));
  word(kHardwareFill);
  word(kByteOrderTest);
}

void SlideWriter::word(int value) {
  byte(value & 0xFF);
  byte(value >> 8 & 0xFF);
}

void SlideWriter::setColour(std::uint8_t colour) {
  if (colour == colour_) return;
  colour_ = colour;
  byte(colour);
  byte(kNewColour);
}

void SlideWriter::line(SlidePoint from, SlidePoint to, std::uint8_t colour) {
  if (!clipLine(from, to, high_)) return;
  setColour(colour);
  if (hasLast_ && to == last_) std::swap(from, to);
  if (hasLast_ && from == last_ && fitsBytes(to, last_)) {
    byte(to.x - last_.x);
    byte(kCommonEndpoint);
    byte(to.y - last_.y);
    last_ = to;
    return;
  }
  if (hasLast_ && fitsBytes(from, last_) && fitsBytes(to, last_)) {
    byte(from.x - last_.x);
    byte(kOffsetVector);
    for (const int d : {from.y - last_.y, to.x - last_.x, to.y - last_.y}) byte(d);
  } else {
    for (const int number : {from.x, from.y, to.x, to.y}) word(number);
  }
  last_ = from;
  hasLast_ = true;
}

void SlideWriter::fill(std::span<const SlidePoint> corners, std::uint8_t colour) {
  for (const auto& piece : cutPolygon(clipPolygon(corners, high_), kMostCorners)) {
    setColour(colour);
    run(piece);
  }
}

// The number of corners opens the run and closes it.
void SlideWriter::run(std::span<const SlidePoint> corners) {
  const auto record = [&](SlidePoint p) {
    byte(0);
    byte(kSolidFill);
    word(p.x);
    word(p.y);
  };
  const SlidePoint mark{static_cast<int>(corners.size()), kRunMark};
  record(mark);
  for (const SlidePoint p : corners) record(p);
  record(mark);
}

std::string SlideWriter::finish() {
  byte(0);
  byte(kEndOfSlide);
  return std::move(bytes_);
}

}  // namespace slide_store

// Slides on any bytes: what is drawn stays within 16 bits and is bounded by the bytes, a slide
// written of it reads back as what was written, and its picture stays within its box.
#include <cstdint>
#include <cstdlib>

#include "embedded/base/colour_table.h"
#include "embedded/slide_store/pixel_canvas.h"
#include "embedded/slide_store/slide.h"
#include "embedded/slide_store/slide_painter.h"
#include "embedded/slide_store/slide_writer.h"

namespace {

using slide_store::SlidePoint;

void require(bool condition) {
  if (!condition) std::abort();
}

// Writes what it sees into another slide.
class Copier : public slide_store::SlideVisitor {
 public:
  Copier(int highX, int highY) : writer_(highX, highY) {}

  void line(SlidePoint from, SlidePoint to, std::uint8_t colour) override {
    check(from);
    check(to);
    writer_.line(from, to, colour);
  }
  void fill(std::span<const SlidePoint> corners, std::uint8_t colour) override {
    require(corners.size() >= 3);
    for (const SlidePoint p : corners) check(p);
    writer_.fill(corners, colour);
  }
  std::size_t points() const { return points_; }
  std::string finish() { return writer_.finish(); }

 private:
  void check(SlidePoint p) {
    require(p.x >= -32768 && p.x <= 32767 && p.y >= -32768 && p.y <= 32767);
    ++points_;
  }
  slide_store::SlideWriter writer_;
  std::size_t points_ = 0;
};

std::string copyOf(std::string_view slide, const slide_store::SlideHeader& header) {
  Copier copier(header.highX, header.highY);
  const auto size = readSlideRecords(slide, header, copier);
  require(!size.ok() || (*size > header.recordsAt && *size <= slide.size()));
  require(copier.points() <= slide.size());
  return copier.finish();
}

void draw(std::string_view slide) {
  constexpr int kSide = 40, kLeft = 10, kTop = 5, kWidth = 24, kHeight = 20;
  constexpr base::Rgb kPaper{1, 2, 3};
  slide_store::Pixels pixels(kSide, kSide, kPaper);
  const std::uint32_t paper = pixels.at(0, 0);
  const auto canvas = slide_store::makePixelCanvas(pixels, kLeft, kTop, kWidth, kHeight);
  static_cast<void>(slide_store::paintSlide(slide, {{0, 0}, {kWidth - 1.0, kHeight - 1.0}},
                                            {base::screenColour, 1}, *canvas));
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      const bool inside = x >= kLeft && x < kLeft + kWidth && y >= kTop && y < kTop + kHeight;
      require(inside || pixels.at(x, y) == paper);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view slide(reinterpret_cast<const char*>(data), size);
  const auto header = slide_store::readSlideHeader(slide);
  if (!header.ok()) return 0;
  draw(slide);
  const std::string written = copyOf(slide, *header);
  const auto again = slide_store::readSlideHeader(written);
  require(again.ok());
  require(copyOf(written, *again) == written);
  return 0;
}

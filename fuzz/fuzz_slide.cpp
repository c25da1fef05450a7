// Slides on any bytes: what is drawn stays within 16 bits and is bounded by the bytes, and a slide
// written of it reads back as what was written.
#include <cstdint>
#include <cstdlib>

#include "embedded/slide_store/slide.h"
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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view slide(reinterpret_cast<const char*>(data), size);
  const auto header = slide_store::readSlideHeader(slide);
  if (!header.ok()) return 0;
  const std::string written = copyOf(slide, *header);
  const auto again = slide_store::readSlideHeader(written);
  require(again.ok());
  require(copyOf(written, *again) == written);
  return 0;
}

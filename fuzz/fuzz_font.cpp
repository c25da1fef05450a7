// Shape fonts of any bytes: what is drawn is finite and bounded, a font written of what was read
// draws the same, and a text in it shows something.
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "embedded/drafting/display/text_layout.h"
#include "embedded/drafting/fonts/font_writer.h"
#include "embedded/drafting/fonts/shape_drawing.h"

namespace {

using drafting::Point2;
using drafting::ShapeFont;

constexpr std::size_t kShapesLookedAt = 32;

void require(bool condition) {
  if (!condition) std::abort();
}

class Checker : public drafting::ShapePen {
 public:
  void move(Point2 to) override { check(to); }
  void line(Point2 to) override { check(to); }
  void arc(Point2 to, double bulge) override {
    require(bulge != 0 && std::abs(bulge) <= 1);
    check(to);
  }
  std::size_t points() const { return points_; }

 private:
  void check(Point2 point) {
    require(std::isfinite(point.x) && std::isfinite(point.y));
    ++points_;
  }
  std::size_t points_ = 0;
};

void drawShapes(const ShapeFont& font) {
  std::size_t looked = 0;
  for (const ShapeFont::Shape& shape : font.shapes()) {
    if (++looked > kShapesLookedAt) break;
    for (const bool vertical : {false, true}) {
      Checker pen;
      const auto run = drafting::drawShape(font, shape.code, pen, vertical);
      require(std::isfinite(run.end.x) && std::isfinite(run.end.y));
      require(run.steps <= drafting::kMostShapeSteps);
      require(pen.points() <= 2 * run.steps);
    }
  }
}

void writeAndReadBack(const ShapeFont& font) {
  const auto written = drafting::writeFont(drafting::partsOf(font));
  if (!written.ok()) return;
  const auto again = ShapeFont::read(*written, "again");
  require(again.ok() && (*again)->problems().empty());
  require((*again)->shapes().size() == font.shapes().size());
  for (const ShapeFont::Shape& shape : font.shapes()) {
    require((*again)->find(shape.code) == shape.bytes);
  }
}

void layOut(const std::shared_ptr<const ShapeFont>& font) {
  if (!font->isTextFont()) return;
  drafting::TextFont pair;
  (font->kind() == drafting::FontKind::BigFont ? pair.big : pair.latin) = font;
  for (const bool vertical : {false, true}) {
    pair.vertical = vertical;
    const auto line = drafting::layOutLine("L\xE4\xB8\xAD%%c\xE9\xBE\x98", pair, 0.01);
    require(std::isfinite(line.advance));
    require(!line.strokes.empty());  // no font has the last character
    for (const auto& stroke : line.strokes) require(stroke.size() >= 2);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto font = ShapeFont::read({reinterpret_cast<const char*>(data), size}, "fuzz");
  if (!font.ok()) {
    require(!font.message().empty());
    return 0;
  }
  drawShapes(**font);
  writeAndReadBack(**font);
  layOut(*font);
  return 0;
}

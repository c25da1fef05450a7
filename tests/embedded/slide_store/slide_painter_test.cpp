// Slides on a canvas.
#include "embedded/slide_store/slide_painter.h"

#include <gtest/gtest.h>

#include "embedded/base/colour_table.h"
#include "embedded/slide_store/slide_listing.h"
#include "embedded/slide_store/slide_writer.h"

namespace {

using base::Box2;
using base::Point2;

// What is drawn, points rounded to whole units.
class RecordingCanvas : public base::Canvas {
 public:
  void stroke(std::span<const Point2> points, base::Rgb colour, double width) override {
    EXPECT_EQ(width, 2);
    add("stroke", points, colour);
  }
  void fill(std::span<const Point2> outline, base::Rgb colour) override {
    add("fill", outline, colour);
  }
  std::string text;

 private:
  void add(const char* kind, std::span<const Point2> points, base::Rgb colour) {
    text += std::string(kind) + " " + std::to_string(colour.red) + "," +
            std::to_string(colour.green) + "," + std::to_string(colour.blue) + ":";
    for (const Point2 p : points) {
      text += " " + std::to_string(std::lround(p.x)) + "," + std::to_string(std::lround(p.y));
    }
    text += "\n";
  }
};

std::string painted(const std::string& slide, const Box2& box, base::Status* status = nullptr) {
  RecordingCanvas canvas;
  const base::Status drawn = slide_store::paintSlide(slide, box, {base::screenColour, 2}, canvas);
  if (status) *status = drawn;
  return canvas.text;
}

const Box2 kBox{{1000, 2000}, {1239, 2639}};  // a unit a dot of the example

TEST(SlidePainter, LinesThatMeetBecomeOneStroke) {
  base::Status status;
  EXPECT_EQ(painted(test::slideWith(test::kExampleRecords), kBox, &status),
            "stroke 0,255,0: 1120,2600 1120,2500\n"
            "stroke 0,255,0: 1120,2600 1120,2540\n"
            "stroke 0,255,0: 1100,2550 1140,2570\n"
            "fill 255,0,0: 1010,2020 1050,2020 1030,2044\n");
  EXPECT_TRUE(status.ok());
  slide_store::SlideWriter writer(239, 639);
  writer.line({0, 0}, {10, 0}, 1);
  writer.line({10, 0}, {10, 10}, 1);
  writer.line({10, 10}, {20, 20}, 2);
  EXPECT_EQ(painted(writer.finish(), kBox),
            "stroke 255,0,0: 1000,2000 1010,2000 1010,2010\n"
            "stroke 255,255,0: 1010,2010 1020,2020\n");
}

TEST(SlidePainter, SlideIsStretchedToTheBoxesEdges) {
  slide_store::SlideWriter writer(100, 200);
  writer.line({0, 0}, {100, 200}, 7);
  EXPECT_EQ(painted(writer.finish(), {{5, 5}, {55, 15}}), "stroke 255,255,255: 5,5 55,15\n");
}

TEST(SlidePainter, SlideOfOneDotIsDrawn) {
  // High dots of 0.
  std::string slide = test::slideWith("07 ff 00 00 00 00 00 00 00 00 00 fc");
  slide[19] = slide[21] = slide[22] = 0;
  EXPECT_EQ(painted(slide, {{5, 5}, {55, 15}}), "stroke 255,255,255: 5,5 5,5\n");
}

TEST(SlidePainter, DamagedSlideIsDrawnUpToItsDamage) {
  base::Status status;
  EXPECT_EQ(painted(test::slideWith("07 ff 00 00 00 00 05 00 05 00 00 90"), kBox, &status),
            "stroke 255,255,255: 1000,2000 1005,2005\n");
  EXPECT_FALSE(status.ok());
  EXPECT_EQ(painted("no slide", kBox, &status), "");
  EXPECT_FALSE(status.ok());
}

TEST(SlidePainter, ProportionIsTheSlidesOwn) {
  slide_store::SlideWriter upright(100, 200);
  const Box2 inner = slide_store::proportionalBox(upright.finish(), {{0, 0}, {100, 100}});
  EXPECT_NEAR(inner.min.x, 25, 1e-6);
  EXPECT_NEAR(inner.max.x, 75, 1e-6);
  EXPECT_NEAR(inner.min.y, 0, 1e-6);
  slide_store::SlideWriter wide(200, 100);
  EXPECT_NEAR(slide_store::proportionalBox(wide.finish(), {{0, 0}, {100, 100}}).height(), 50, 1e-6);
  EXPECT_EQ(slide_store::proportionalBox("no slide", {{0, 0}, {9, 9}}).max, (Point2{9, 9}));
}

}  // namespace

// Slides as pixels in memory.
#include "embedded/slide_store/pixel_canvas.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "embedded/base/colour_table.h"
#include "embedded/slide_store/slide_painter.h"
#include "embedded/slide_store/slide_writer.h"

namespace slide_store {
namespace {

constexpr base::Rgb kBlack{0, 0, 0};

void draw(Pixels& pixels, const std::string& slide, int left, int top, int width, int height) {
  const auto canvas = makePixelCanvas(pixels, left, top, width, height);
  static_cast<void>(
      paintSlide(slide, {{0, 0}, {width - 1.0, height - 1.0}}, {base::screenColour, 1}, *canvas));
}

// The picture as text: a dot for what is black.
std::string shown(const Pixels& pixels) {
  std::string text;
  for (int y = 0; y < pixels.height; ++y) {
    for (int x = 0; x < pixels.width; ++x) text += pixels.at(x, y) == 0 ? '.' : '#';
    text += '\n';
  }
  return text;
}

template <class Draw>
std::string slideOf(int high, Draw draw) {
  SlideWriter writer(high, high);
  draw(writer);
  return writer.finish();
}

TEST(PixelCanvas, LinesHaveBothEnds) {
  Pixels pixels(7, 5, kBlack);
  draw(pixels,
       slideOf(100,
               [](SlideWriter& w) {
                 w.line({0, 0}, {100, 100}, 1);
                 w.line({0, 100}, {100, 100}, 1);
                 w.line({50, 0}, {50, 0}, 1);
               }),
       1, 0, 5, 5);
  EXPECT_EQ(shown(pixels),
            ".#####.\n"
            "....#..\n"
            "...#...\n"
            "..#....\n"
            ".#.#...\n");
  EXPECT_EQ(pixels.at(1, 4), 0xFF0000u);
}

TEST(PixelCanvas, SteepAndFlatLinesAreAlike) {
  Pixels flat(5, 3, kBlack);
  draw(flat, slideOf(10, [](SlideWriter& w) { w.line({0, 0}, {10, 10}, 1); }), 0, 0, 5, 3);
  EXPECT_EQ(shown(flat), "...##\n.##..\n#....\n");
  Pixels steep(3, 5, kBlack);
  draw(steep, slideOf(10, [](SlideWriter& w) { w.line({0, 0}, {10, 10}, 1); }), 0, 0, 3, 5);
  EXPECT_EQ(shown(steep), "..#\n..#\n.#.\n.#.\n#..\n");
}

TEST(PixelCanvas, FillsTakeTheirOutlineIn) {
  Pixels pixels(7, 7, kBlack);
  const SlidePoint corners[] = {{10, 10}, {50, 10}, {30, 30}};
  draw(pixels, slideOf(60, [&](SlideWriter& w) { w.fill(corners, 3); }), 0, 0, 7, 7);
  EXPECT_EQ(shown(pixels),
            ".......\n"
            ".......\n"
            ".......\n"
            "...#...\n"
            "..###..\n"
            ".#####.\n"
            ".......\n");
}

TEST(PixelCanvas, WindingFillsWhatCrossesItself) {
  Pixels pixels(9, 9, kBlack);
  const auto canvas = makePixelCanvas(pixels, 0, 0, 9, 9);
  // Twice round the same square, one after the other.
  const base::Point2 outline[] = {{1, 1}, {7, 1}, {7, 7}, {1, 7}, {1, 1}, {7, 1}, {7, 7}, {1, 7}};
  canvas->fill(outline, {255, 255, 255});
  const std::string text = shown(pixels);
  EXPECT_EQ(std::count(text.begin(), text.end(), '#'), 49);
}

TEST(PixelCanvas, NothingIsDrawnOutsideOfTheBoxOrThePixels) {
  Pixels pixels(10, 10, kBlack);
  const auto canvas = makePixelCanvas(pixels, 2, 3, 4, 4);
  const base::Point2 far[] = {{-1e9, -1e9}, {1e9, -1e9}, {1e9, 1e9}, {-1e9, 1e9}};
  canvas->fill(far, {255, 0, 0});
  std::string text = shown(pixels);
  EXPECT_EQ(std::count(text.begin(), text.end(), '#'), 16);
  EXPECT_EQ(pixels.at(2, 3), 0xFF0000u);
  EXPECT_EQ(pixels.at(5, 6), 0xFF0000u);
  for (const int left : {-3, 8, -20, 20}) {
    const auto beside = makePixelCanvas(pixels, left, left, 5, 5);
    beside->fill(far, {0, 255, 0});
    beside->stroke(far, {0, 255, 0}, 1);
  }
  text = shown(pixels);
  EXPECT_EQ(std::count(text.begin(), text.end(), '#'), 16 + 4 + 4);
  EXPECT_EQ(pixels.at(1, 1), 0x00FF00u);
  EXPECT_EQ(pixels.at(8, 8), 0x00FF00u);
}

TEST(PixelCanvas, EmptyStrokesAndFillsDrawNothing) {
  Pixels pixels(3, 3, kBlack);
  const auto canvas = makePixelCanvas(pixels, 0, 0, 3, 3);
  canvas->stroke({}, {255, 0, 0}, 1);
  canvas->fill({}, {255, 0, 0});
  EXPECT_EQ(shown(pixels), "...\n...\n...\n");
}

}  // namespace
}  // namespace slide_store

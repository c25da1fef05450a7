// What the drawing area shows, and what is drawn over it.
#include "programs/desktop/desktop_fixture.h"
#include "programs/desktop/overlay.h"

namespace {

using desktop::OverlayLine;
using desktop::Point2;

class ScreenTest : public test::DesktopFixture {
 protected:
  ScreenTest() { desk.refreshScreen(); }
  int lit(int y, int from, int to) const {
    int count = 0;
    for (int x = from; x < to; ++x) count += pixel(x, y) == base::Rgb{} ? 0 : 1;
    return count;
  }
};

TEST_F(ScreenTest, AnEntityIsShownWhereItStands) {
  type("LINE 50,50 150,50 \n");
  EXPECT_TRUE(desk.refreshScreen());
  EXPECT_GE(lit(50, 60, 140), 80);
  EXPECT_EQ(lit(60, 60, 140), 0);
}

TEST_F(ScreenTest, NothingIsDrawnAnewWithoutAChange) {
  type("LINE 50,50 150,50 \n");
  EXPECT_TRUE(desk.refreshScreen());
  EXPECT_FALSE(desk.refreshScreen());
}

TEST_F(ScreenTest, ChangesAreFollowedWithoutMakingThePictureAnew) {
  type("LINE 50,50 150,50 \n");
  desk.refreshScreen();
  const int rebuilds = desk.screen.rebuilds();
  type("LINE 50,80 150,80 \nCIRCLE 200,200 20\nU\n");
  type("MOVE L \n0,0 0,5\n");
  desk.refreshScreen();
  EXPECT_EQ(desk.screen.rebuilds(), rebuilds);
  EXPECT_EQ(lit(80, 60, 140), 0);
  EXPECT_GE(lit(85, 60, 140), 80);
}

TEST_F(ScreenTest, ALayersColourReachesWhatIsShown) {
  type("LAYER\nM\nX\n\nLINE 50,50 150,50 \n");
  desk.refreshScreen();
  EXPECT_EQ(pixel(100, 50), (base::Rgb{255, 255, 255}));
  type("LAYER\nC\n1\nX\n\n");
  desk.refreshScreen();
  EXPECT_EQ(pixel(100, 50), (base::Rgb{255, 0, 0}));
}

TEST_F(ScreenTest, TheSelectionIsDashed) {
  type("LINE 50,50 150,50 \n");
  act({clicked(100, 50)});
  const int dashed = lit(50, 60, 140);
  EXPECT_GT(dashed, 20);
  EXPECT_LT(dashed, 55);
}

TEST_F(ScreenTest, AnotherDrawingIsShownInsteadOfTheOld) {
  type("LINE 50,50 150,50 \n");
  desk.refreshScreen();
  ASSERT_TRUE(session.newDrawing().ok());
  session.view.show({200, 150}, 300);
  desk.refreshScreen();
  EXPECT_EQ(lit(50, 60, 140), 0);
}

TEST_F(ScreenTest, PixelsAndPointsAreEachOthersInverse) {
  const Point2 there = desk.screen.pixelPoint(desk.screen.drawingPoint({17, 31}));
  EXPECT_NEAR(there.x, 17, 1e-9);
  EXPECT_NEAR(there.y, 31, 1e-9);
}

class OverlayTest : public ScreenTest {
 protected:
  OverlayTest() : memory(400 * 300) {
    type("LINE 50,50 150,50 \nCIRCLE 200,150 60\n");
    desk.refreshScreen();
    overlay.setMemory(memory.data(), 400, 300);
    overlay.redraw(desk.screen.bitmap(), {});
  }
  std::vector<std::uint32_t> memory;
  desktop::Overlay overlay;
};

TEST_F(OverlayTest, LinesThatGoLeaveThePictureAsItWas) {
  const std::vector<std::uint32_t> plain = memory;
  EXPECT_EQ(plain, desk.screen.bitmap().pixels());
  std::vector<OverlayLine> lines = {
      {{0, 100}, {399, 100}}, {{200, 0}, {200, 299}}, {{-5000, 9000}, {380, 7}, 0xE0E000}};
  desktop::addRectangle(lines, {20, 20}, {300, 250}, {{}, {}, 0x60E060, true});
  overlay.replace(desk.screen.bitmap(), lines);
  EXPECT_NE(memory, plain);
  overlay.replace(desk.screen.bitmap(), {});
  EXPECT_EQ(memory, plain);
}

TEST_F(OverlayTest, WhatIsToBeShownAnewCoversEveryChangedPixel) {
  const std::vector<std::uint32_t> before = memory;
  const std::vector<OverlayLine> lines = {{{3, 290}, {390, 11}}, {{120, 0}, {120, 299}}};
  const auto strips = overlay.replace(desk.screen.bitmap(), lines);
  std::size_t covered = 0;
  std::vector<bool> shown(memory.size());
  for (const auto& strip : strips) {
    ASSERT_GE(strip.left, 0);
    ASSERT_LE(strip.right, 400);
    ASSERT_GE(strip.top, 0);
    ASSERT_LE(strip.bottom, 300);
    for (int y = strip.top; y < strip.bottom; ++y) {
      for (int x = strip.left; x < strip.right; ++x) {
        shown[static_cast<std::size_t>(y) * 400 + static_cast<std::size_t>(x)] = true;
      }
    }
  }
  for (std::size_t i = 0; i < memory.size(); ++i) {
    EXPECT_TRUE(memory[i] == before[i] || shown[i]) << i;
    covered += shown[i] ? 1 : 0;
  }
  EXPECT_LT(covered, memory.size() / 5) << "the whole window would flicker";
}

TEST_F(OverlayTest, EndlessAndBrokenLinesAreHarmless) {
  const double huge = 1e300, none = std::numeric_limits<double>::quiet_NaN();
  const std::vector<std::uint32_t> plain = memory;
  overlay.replace(desk.screen.bitmap(),
                  {{{-huge, 1}, {huge, 1}}, {{none, 1}, {5, 5}}, {{-100, -100}, {-50, -50}}});
  overlay.replace(desk.screen.bitmap(), {});
  EXPECT_EQ(memory, plain);
}

}  // namespace

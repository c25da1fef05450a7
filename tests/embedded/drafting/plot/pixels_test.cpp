// Pixels of small drawings as PNG.
#include <optional>

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/drafting/display/picture_fixture.h"
#include "embedded/drafting/plot/plot.h"
#include "support/png_picture.h"
#include "support/temp_folder.h"

namespace drafting {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF, kBlack = 0x000000, kRed = 0xFF0000, kYellow = 0xFFFF00;

class Pixels : public PictureTest {
 protected:
  // The window (0, 0) to (100, 50) in 100 by 50 pixels.
  void plotWindow() {
    plot.window = Box2{{0, 0}, {100, 50}};
    plot.paper = Paper{100, 50};
    plot.scale = 1;
    plot.pixels = 100;
    draw();
  }
  void draw() {
    const std::string path = base::utf8FromPath(folder / "out.png");
    const base::Status status = plotDrawing(*db, path, plot);
    ASSERT_TRUE(status.ok()) << status.message();
    image_.emplace(*base::readFile(folder / "out.png"));
    ASSERT_EQ(image_->problem, "");
  }
  int width() const { return image_->width; }
  int height() const { return image_->height; }
  // The pixel that holds a point of the window.
  std::uint32_t at(double x, double y) const {
    return image_->at(static_cast<int>(x), static_cast<int>(y));
  }

  test::TempFolder folder;
  PlotOptions plot;

 private:
  std::optional<test::PngPicture> image_;
};

TEST_F(Pixels, LinesStandWhereTheyBelongInTheirColours) {
  add(line(10, 10.5, 90, 10.5)).colour = 1;
  add(line(20.5, 20, 20.5, 40));
  plotWindow();
  EXPECT_EQ(width(), 100);
  EXPECT_EQ(height(), 50);
  EXPECT_EQ(at(50, 10), kRed);
  EXPECT_EQ(at(50, 12), kWhite);
  EXPECT_EQ(at(20, 30), kBlack);
  EXPECT_EQ(at(5, 10), kWhite);
}

TEST_F(Pixels, WidePolylineIsFilled) {
  add(polyline({{10, 25}, {90, 25}}, 10));
  plotWindow();
  for (const double y : {21.0, 25.0, 29.0}) EXPECT_EQ(at(50, y), kBlack);
  EXPECT_EQ(at(50, 18), kWhite);
  EXPECT_EQ(at(50, 31), kWhite);
  EXPECT_EQ(at(8, 25), kWhite);  // no round end
}

TEST_F(Pixels, RingIsEmptyInside) {
  LwPolyline ring = polyline({{20, 10}, {80, 10}, {80, 40}, {20, 40}}, 6);
  ring.closed = true;
  add(ring);
  plotWindow();
  EXPECT_EQ(at(50, 10), kBlack);
  EXPECT_EQ(at(50, 40), kBlack);
  EXPECT_EQ(at(18, 8), kBlack);  // the corner is whole
  EXPECT_EQ(at(20, 25), kBlack);
  EXPECT_EQ(at(50, 25), kWhite);
}

TEST_F(Pixels, LineweightIsDrawnOnBitmapsToo) {
  Line thick = line(10, 25, 90, 25);
  thick.lineweight = indexOfLineweight(211);
  add(thick);
  plotWindow();
  EXPECT_EQ(at(50, 25), kBlack);
  EXPECT_EQ(at(50, 24), kBlack);
  EXPECT_EQ(at(50, 27), kWhite);
}

TEST_F(Pixels, BlackBackgroundShowsTheScreensColours) {
  plot.background = Background::Black;
  add(line(10, 10.5, 90, 10.5)).colour = 2;
  add(line(10, 20.5, 90, 20.5));
  plotWindow();
  EXPECT_EQ(at(50, 10), kYellow);
  EXPECT_EQ(at(50, 20), kWhite);
  EXPECT_EQ(at(50, 30), kBlack);
}

TEST_F(Pixels, MonochromeIsBlackOnWhite) {
  plot.monochrome = true;
  add(line(10, 10.5, 90, 10.5)).colour = 2;
  plotWindow();
  EXPECT_EQ(at(50, 10), kBlack);
}

TEST_F(Pixels, PictureOfADrawingIsAsHighAsItNeeds) {
  add(line(0, 0, 200, 0));
  add(line(0, 100, 200, 100));
  plot.pixels = 500;
  draw();
  EXPECT_EQ(width(), 500);
  EXPECT_EQ(height(), 260);  // half of 480, and a margin of 10 on each side
}

TEST_F(Pixels, ScaleOnItsOwnTakesASheetToo) {
  add(line(0, 0, 100, 100));
  plot.pixels = 210;
  plot.scale = 1;
  draw();
  EXPECT_EQ(height(), 297);
}

TEST_F(Pixels, PictureThatWouldBeTooHighIsRefused) {
  add(line(0, 0, 1, 100000));
  const base::Status status =
      plotDrawing(*db, base::utf8FromPath(folder / "out.png"), PlotOptions{});
  EXPECT_FALSE(status.ok());
  EXPECT_NE(status.message().find("pixels"), std::string::npos);
}

TEST_F(Pixels, MissingCharacterShows) {
  Text box = text("龘", 20);
  box.position = {10, 10.5};
  add(box);
  plotWindow();
  EXPECT_EQ(at(20, 10) & 0x808080, 0u);  // the foot of the box
  EXPECT_EQ(at(20, 20), kWhite);
}

}  // namespace
}  // namespace drafting

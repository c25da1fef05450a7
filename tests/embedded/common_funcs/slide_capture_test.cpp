// Pictures of drawings as slides.
#include "platform/slide_capture.h"

#include <cmath>

#include "embedded/common_funcs/slide_recorder.h"
#include "embedded/drafting/fonts/font_fixture.h"
#include "embedded/drafting/host/host_state.h"
#include "embedded/slide_store/slide_listing.h"
#include "support/session_fixture.h"

namespace {

class SlideCapture : public test::SessionFixture {
 protected:
  AcDbDatabase& current() { return *acdbHostApplicationServices()->workingDatabase(); }

  // What the slide of the current drawing shows, on `width` by `height` dots, filled to the edge.
  std::string shown(int width, int height, double part = 1) {
    CGetSld picture(&current());
    picture.width = width;
    picture.height = height;
    picture.part = part;
    EXPECT_NE(picture.GetSldData(), 0);
    return test::listed(textOf(picture));
  }
  static std::string textOf(const CGetSld& picture) {
    return {reinterpret_cast<const char*>(picture.data), static_cast<std::size_t>(picture.size)};
  }
  drafting::Handle add(std::unique_ptr<drafting::Entity> entity, std::int16_t colour) {
    entity->layer = session.database().findRecord(drafting::Table::Layers, "0");
    entity->colour = colour;
    return session.database().append(session.database().modelSpace(), std::move(entity));
  }
};

TEST_F(SlideCapture, WithoutNumbersTheSlideIs640By320AndFillsPart95) {
  type("COLOR 1\nLINE 0,0 100,0\n\nLINE 0,10 100,10\n\n");
  CGetSld picture(&current());
  ASSERT_NE(picture.GetSldData(), 0);
  const auto header = slide_store::readSlideHeader(textOf(picture));
  ASSERT_TRUE(header.ok());
  EXPECT_EQ(header->highX, 639);
  EXPECT_EQ(header->highY, 319);
  EXPECT_EQ(test::listed(textOf(picture)), "1 line 16,129 623,129\n1 line 16,190 623,190\n");
}

TEST_F(SlideCapture, TighterDirectionSettlesTheScale) {
  type("COLOR 1\nLINE 0,0 0,10\n\nLINE 0,0 1,0\n\n");
  EXPECT_EQ(shown(101, 101), "1 line 45,0 45,100\n1 line 45,0 55,0\n");
}

TEST_F(SlideCapture, ExtentsAreThoseOfWhatIsShown) {
  type("LINE -3,4 10,20\n\nCIRCLE 0,0 5\n");
  AcDbExtents extents;
  CGetSld picture(&current());
  ASSERT_EQ(picture.GetDataBaseExtents(extents), 1);
  EXPECT_NEAR(extents.minPoint().x, -5, 1e-9);
  EXPECT_NEAR(extents.minPoint().y, -5, 1e-9);
  EXPECT_NEAR(extents.maxPoint().x, 10, 1e-9);
  EXPECT_NEAR(extents.maxPoint().y, 20, 1e-9);
}

TEST_F(SlideCapture, EmptyDrawingIsAnEmptySlide) {
  AcDbExtents extents;
  extents.set({1, 2, 3}, {4, 5, 6});
  CGetSld picture(&current());
  EXPECT_EQ(picture.GetDataBaseExtents(extents), 1);
  EXPECT_EQ(extents.minPoint().x, 0);
  EXPECT_EQ(extents.maxPoint().y, 0);
  EXPECT_NE(picture.GetSldData(), 0);
  EXPECT_EQ(picture.size, 33);
  EXPECT_EQ(test::listed(textOf(picture)), "");
}

TEST_F(SlideCapture, SinglePointStandsInTheMiddle) {
  type("COLOR 5\nPOINT 1000,1000\n");
  EXPECT_EQ(shown(101, 51), "5 line 50,25 50,25\n");
}

TEST_F(SlideCapture, SolidsAndWidePolylinesAreFills) {
  auto solid = std::make_unique<drafting::Solid>();
  solid->corners = {drafting::Point2{0, 0}, {10, 0}, {0, 10}, {10, 10}};
  add(std::move(solid), 4);
  auto polyline = std::make_unique<drafting::LwPolyline>();
  polyline->points = {{0, 5}, {10, 5}};
  polyline->constantWidth = 2;
  add(std::move(polyline), 6);
  const std::string listing = shown(101, 101);
  EXPECT_NE(listing.find("4 fill 0,0 100,0 100,100 0,100"), std::string::npos) << listing;
  EXPECT_NE(listing.find("6 fill"), std::string::npos) << listing;
  EXPECT_EQ(listing.find("line"), std::string::npos) << listing;
}

TEST_F(SlideCapture, CirclesAreAsRoundAsTheDotsShow) {
  type("CIRCLE 0,0 5\n");
  const std::string coarse = shown(21, 21);
  const std::string fine = shown(2001, 2001);
  const auto lines = [](const std::string& s) { return std::count(s.begin(), s.end(), '\n'); };
  EXPECT_GE(lines(coarse), 6);
  EXPECT_GT(lines(fine), 5 * lines(coarse));
}

TEST_F(SlideCapture, TextsAreDrawnAsStrokes) {
  auto text = std::make_unique<drafting::Text>();
  text->height = 10;
  text->text = "M主";
  text->style = session.database().findRecord(drafting::Table::Styles, "Standard");
  add(std::move(text), 2);
  const std::string listing = shown(201, 101);
  EXPECT_GT(std::count(listing.begin(), listing.end(), '\n'), 8) << listing;
  EXPECT_EQ(listing.find("7 line"), std::string::npos) << listing;
}

// The font's only letter is an L of its own proportion; whatever it lacks shows as a box.
TEST_F(SlideCapture, TextsAreDrawnInTheFontsThatAreSet) {
  auto text = std::make_unique<drafting::Text>();
  text->height = 6;
  text->text = "L";
  text->style = session.database().findRecord(drafting::Table::Styles, "Standard");
  add(std::move(text), 2);
  test::writeBytes(folder / "english.wzk", drafting::tinyUnifont());
  const auto shownIn = [&](const char* english) {
    CGetSld picture(&current());
    picture.width = 101;
    picture.height = 101;
    picture.part = 1;
    picture.SetChineseShxFileName(base::wideFromPath(folder / "chinese.wzk"));
    picture.SetEnglishShxFileName(base::wideFromPath(folder / english));
    AcDbExtents extents;
    EXPECT_EQ(picture.GetDataBaseExtents(extents), 1);
    EXPECT_NE(picture.GetSldData(), 0);
    return std::pair(extents.maxPoint().x, test::listed(textOf(picture)));
  };
  const auto own = shownIn("english.wzk");
  EXPECT_NEAR(own.first, 4, 1e-6);
  EXPECT_EQ(own.second, "2 line 17,100 17,0\n2 line 17,0 83,0\n");
  EXPECT_EQ(shownIn("missing.wzk").second, shown(101, 101));
}

TEST_F(SlideCapture, ContentOfHiddenLayersIsLeftOut) {
  type("COLOR 1\nLINE 0,0 1,0\n\nLAYER M OFFLAYER\n\nLINE 0,0 50,50\n\nLAYER S 0\n\n");
  auto* layer = session.database().find<drafting::Layer>(
      session.database().findRecord(drafting::Table::Layers, "OFFLAYER"));
  ASSERT_NE(layer, nullptr);
  session.database().willChange(*layer);
  layer->off = true;
  EXPECT_EQ(shown(101, 101), "1 line 0,50 100,50\n");
}

TEST_F(SlideCapture, StrokeWithinADotLeavesADot) {
  type("COLOR 1\nLINE 0,0 100,0\n\nLINE 50,0.001 50.001,0\n\n");
  EXPECT_EQ(shown(101, 51), "1 line 0,25 100,25\n1 line 50,25 50,25\n");
}

TEST_F(SlideCapture, NumbersThatAreNoPicturesGiveNothing) {
  type("LINE 0,0 1,1\n\n");
  const struct {
    int width, height;
    double part;
  } cases[] = {{1, 100, 1},
               {100, 0, 1},
               {-5, 100, 1},
               {40000, 100, 1},
               {100, 100, 0},
               {100, 100, -1},
               {100, 100, std::nan("")}};
  for (const auto& one : cases) {
    CGetSld picture(L"X:\\user\\slide.sld", &current());
    picture.width = one.width;
    picture.height = one.height;
    picture.part = one.part;
    takePrinted();
    EXPECT_EQ(picture.GetSldData(), 0);
    EXPECT_EQ(picture.data, nullptr);
    EXPECT_EQ(picture.size, 0);
    EXPECT_NE(takePrinted().find("slide.sld"), std::string::npos);
  }
}

TEST_F(SlideCapture, WithoutADrawingThereIsNothing) {
  CGetSld picture(nullptr);
  AcDbExtents extents;
  EXPECT_EQ(picture.GetDataBaseExtents(extents), 0);
  EXPECT_EQ(picture.GetSldData(), 0);
}

// --- the recorder

TEST_F(SlideCapture, WindowIsShownExactlyAndTheRestClippedOff) {
  type("COLOR 1\nLINE -10,0 10,0\n\nLINE 0,0.5 0,-8\n\nLINE 2,2 9,9\n\n");
  base::Box2 cell;
  cell.add(base::Point2{-3, -8});
  cell.add(base::Point2{3, 0});
  EXPECT_EQ(test::listed(common_funcs::recordSlide(session.database(), cell, {241, 321})),
            "1 line 0,320 240,320\n1 line 120,320 120,0\n");
}

TEST_F(SlideCapture, LinesFromFarAwayKeepTheirDirection) {
  type("COLOR 1\nLINE -1e12,-1e12 1e12,1e12\n\n");
  base::Box2 window;
  window.add(base::Point2{0, 0});
  window.add(base::Point2{100, 100});
  EXPECT_EQ(test::listed(common_funcs::recordSlide(session.database(), window, {101, 101})),
            "1 line 0,0 100,100\n");
}

}  // namespace

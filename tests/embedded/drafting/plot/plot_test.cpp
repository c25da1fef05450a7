// Plots of small drawings as files: pages, scales, same bytes for the same drawing, failures.
#include "embedded/drafting/plot/plot.h"

#include "embedded/base/paths.h"
#include "embedded/drafting/display/picture_fixture.h"
#include "support/temp_folder.h"

namespace drafting {
namespace {

class Plots : public PictureTest {
 protected:
  std::string path(const std::string& name) const { return base::utf8FromPath(folder / name); }
  base::Status plotTo(const std::string& name) {
    notes.clear();
    return plotDrawing(*db, path(name), plot,
                       [this](std::string_view text) { notes.emplace_back(text); });
  }
  std::string svg() {
    EXPECT_TRUE(plotTo("out.svg").ok());
    return test::bytesOf(folder / "out.svg");
  }
  bool has(const std::string& part) { return svg().find(part) != std::string::npos; }

  test::TempFolder folder;
  PlotOptions plot;
  std::vector<std::string> notes;
};

TEST_F(Plots, SmallestSheetAtPrintScaleIsTakenAndTurned) {
  add(line(0, 0, 100, 10));
  EXPECT_TRUE(has("width=\"297mm\" height=\"210mm\""));
  // In the middle, one millimetre a unit.
  EXPECT_TRUE(has("M98.5 110L198.5 100"));
}

TEST_F(Plots, LongRowsGetAnElongatedSheet) {
  add(line(0, 0, 1000, 120));
  EXPECT_TRUE(has("width=\"1051mm\" height=\"297mm\""));
}

TEST_F(Plots, PrintScaleIsTheDrawings) {
  ASSERT_TRUE(db->setVariable("DIMSCALE", 100.0));
  add(line(0, 0, 10000, 1000));
  EXPECT_TRUE(has("M98.5 110L198.5 100"));
}

TEST_F(Plots, VerySmallDrawingFillsTheSmallestSheet) {
  add(line(0, 0, 1, 0.5));
  EXPECT_TRUE(has("M10 174.25L287 35.75"));
}

TEST_F(Plots, PaperIsFilled) {
  add(line(0, 0, 1, 0.5));
  plot.paper = parsePaper("A3");
  EXPECT_TRUE(has("width=\"420mm\" height=\"297mm\""));
  EXPECT_TRUE(has("M10 248.5L410 48.5"));
}

TEST_F(Plots, UprightPaperStaysUpright) {
  add(line(0, 0, 100, 10));
  plot.keepUpright = true;
  EXPECT_TRUE(has("width=\"210mm\" height=\"297mm\""));
}

TEST_F(Plots, ScaleAndWindowAreObeyed) {
  add(line(0, 0, 100, 100));
  plot.paper = Paper{100, 100};
  plot.scale = 2;
  plot.window = Box2{{40, 40}, {60, 60}};
  EXPECT_TRUE(has("M-50 150L150 -50"));
}

TEST_F(Plots, DrawingTooLargeForAnySheetIsReduced) {
  add(line(0, 0, 100000, 100));
  const std::string picture = svg();
  EXPECT_NE(picture.find("width=\"1783mm\""), std::string::npos);
  EXPECT_NE(picture.find("M10 "), std::string::npos);
}

TEST_F(Plots, LineweightsAreInMillimetres) {
  Line thick = line(0, 0, 100, 0);
  thick.lineweight = indexOfLineweight(70);
  add(thick);
  add(line(0, 10, 100, 10));
  Line thin = line(0, 20, 100, 20);
  thin.lineweight = indexOfLineweight(0);
  add(thin);
  const std::string picture = svg();
  for (const char* width : {"\"0.7\"", "\"0.25\"", "\"0.13\""}) {
    EXPECT_NE(picture.find("stroke-width=" + std::string(width)), std::string::npos) << width;
  }
}

TEST_F(Plots, SameDrawingGivesTheSameBytes) {
  add(text("QF1 断路器"));
  add(polyline({{0, 0}, {10, 0}}, 0.3));
  for (const char* name : {"a.pdf", "b.pdf", "a.svg", "b.svg"}) ASSERT_TRUE(plotTo(name).ok());
  EXPECT_EQ(test::bytesOf(folder / "a.pdf"), test::bytesOf(folder / "b.pdf"));
  EXPECT_EQ(test::bytesOf(folder / "a.svg"), test::bytesOf(folder / "b.svg"));
}

TEST_F(Plots, EmptyDrawingGivesAnEmptySheetAndSaysSo) {
  ASSERT_TRUE(plotTo("out.pdf").ok());
  EXPECT_EQ(notes, (std::vector<std::string>{"the drawing shows nothing"}));
}

TEST_F(Plots, WhatHasNoPictureIsTold) {
  RawEntity raw;
  raw.type = 0x1D;
  add(raw);
  add(line(0, 0, 1, 1));
  ASSERT_TRUE(plotTo("out.pdf").ok());
  ASSERT_EQ(notes.size(), 1u);
  EXPECT_EQ(notes[0].rfind("1 of kind ", 0), 0u);
}

TEST_F(Plots, OldFileBecomesTheBackup) {
  test::writeBytes(folder / "out.svg", "old");
  add(line(0, 0, 1, 1));
  ASSERT_TRUE(plotTo("out.svg").ok());
  EXPECT_EQ(test::bytesOf(folder / "out.svg.bak"), "old");
}

TEST_F(Plots, OtherExtensionsAreRefused) {
  const base::Status status = plotTo("out.jpg");
  EXPECT_FALSE(status.ok());
  EXPECT_NE(status.message().find("out.jpg: plots are .pdf, .svg or .png"), std::string::npos);
}

TEST_F(Plots, FolderThatIsNotThereIsTold) {
  const base::Status status = plotTo("missing/out.svg");
  EXPECT_FALSE(status.ok());
  EXPECT_NE(status.message().find("missing"), std::string::npos);
}

TEST(PaperNames, NamesAndSizes) {
  EXPECT_EQ(parsePaper("A3")->width, 297);
  EXPECT_EQ(parsePaper("a4x4")->height, 841);
  EXPECT_EQ(parsePaper("500x200.5")->height, 200.5);
  for (const char* wrong :
       {"", "A5", "A", "x", "100x", "x100", "5x5", "100x9999999", "1e1x100x", "nanx100", "A3 "}) {
    EXPECT_FALSE(parsePaper(wrong)) << wrong;
  }
}

}  // namespace
}  // namespace drafting

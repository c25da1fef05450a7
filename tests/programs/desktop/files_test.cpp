// Drawings opened, saved, left, locked, recovered; the list of recent ones; the plot.
#include "embedded/base/files.h"

#include "embedded/drafting/documents/lost_drawings.h"
#include "programs/desktop/boxes.h"
#include "programs/desktop/desktop_fixture.h"
#include "programs/desktop/settings_text.h"
#include "programs/desktop/start.h"

namespace {

namespace fs = std::filesystem;
using desktop::PlotAnswer;
using desktop::PlotChoices;

class FilesTest : public test::DesktopFixture {
 protected:
  void drawLine() { type("LINE 1,1 2,2 \n"); }
  bool exists(const char* name) const { return fs::exists(folder.path() / name); }
};

TEST_F(FilesTest, ANewDrawingIsSavedWhereTheDialogSays) {
  drawLine();
  dialogs.save = pathOf("a.dwg");
  act({typed("QSAVE")});
  EXPECT_TRUE(exists("a.dwg"));
  EXPECT_EQ(dialogs.suggested, "Drawing1.dwg");
  EXPECT_EQ(desk.title(), "a.dwg - Vornikplan10");
  drawLine();
  EXPECT_EQ(desk.title(), "a.dwg* - Vornikplan10");
  dialogs.save.reset();
  act({typed("QSAVE")});  // no question now
  EXPECT_EQ(desk.title(), "a.dwg - Vornikplan10");
}

TEST_F(FilesTest, WhatIsTypedAheadNeedsNoDialog) {
  drawLine();
  dialogs.save = pathOf("dialog.dwg");
  act({[this] { session.line.type("SAVEAS\n" + pathOf("typed.dwg") + "\n"); }});
  EXPECT_TRUE(exists("typed.dwg"));
  EXPECT_FALSE(exists("dialog.dwg"));
}

TEST_F(FilesTest, LispGivesItsAnswersItself) {
  drawLine();
  const std::string path = (folder.path() / "lisp.dwg").generic_string();
  evaluate("(command \"SAVEAS\" \"" + path + "\")");
  EXPECT_TRUE(exists("lisp.dwg"));
}

TEST_F(FilesTest, QuitAsksForChanges) {
  drawLine();
  answers = {kCancel};
  act({typed("QUIT")});
  EXPECT_FALSE(session.quit);
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0], "Save the changes to the new drawing?");
  answers = {kNo};
  act({[this] { desk.close(); }});
  EXPECT_TRUE(session.quit);
}

TEST_F(FilesTest, QuitSavesIfAskedTo) {
  drawLine();
  answers = {kYes};
  dialogs.save = pathOf("last.dwg");
  act({typed("QUIT")});
  EXPECT_TRUE(session.quit);
  EXPECT_TRUE(exists("last.dwg"));
}

TEST_F(FilesTest, ASaveThatWasGivenUpKeepsTheSession) {
  drawLine();
  answers = {kYes};
  act({typed("QUIT")});  // the file dialog is cancelled
  EXPECT_FALSE(session.quit);
}

TEST_F(FilesTest, ClosingAtAWaitingPromptCancelsAndUnwindsFirst) {
  act({typed("(progn (setq in T) (getpoint) (setq in nil))"), [this] { desk.close(); }});
  EXPECT_TRUE(session.quit);
  EXPECT_TRUE(entities().empty());
}

TEST_F(FilesTest, ADroppedDrawingIsOpened) {
  drawLine();
  ASSERT_TRUE(session.saveDrawing(pathOf("two words.dwg")).ok());
  ASSERT_TRUE(session.newDrawing().ok());
  act({[this] { desk.open(pathOf("two words.dwg")); }});
  EXPECT_EQ(entities().size(), 1U);
  EXPECT_EQ(session.document().path, pathOf("two words.dwg"));
}

TEST_F(FilesTest, ADroppedFileThatIsNoDrawingLeavesTheDrawingAlone) {
  drawLine();
  ASSERT_TRUE(session.saveDrawing(pathOf("a.dwg")).ok());
  test::writeFile(folder.path() / "b.dwg", "hello");
  test::writeFile(folder.path() / "c.txt", "hello");
  act({[this] { desk.open(pathOf("b.dwg")); }, [this] { desk.open(pathOf("c.txt")); },
       [this] { desk.open(pathOf("missing.dwg")); }});
  EXPECT_EQ(boxes.size(), 3U);
  EXPECT_EQ(entities().size(), 1U);
  EXPECT_EQ(session.document().path, pathOf("a.dwg"));
}

TEST_F(FilesTest, ADropWhileAPromptWaitsCancelsItFirst) {
  drawLine();
  ASSERT_TRUE(session.saveDrawing(pathOf("a.dwg")).ok());
  act({typed("CIRCLE"), [this] { desk.open(pathOf("a.dwg")); }});
  EXPECT_EQ(entities().size(), 1U);
}

TEST_F(FilesTest, ADrawingThatAnotherProgramHoldsIsOpenForReadingOnly) {
  drawLine();
  ASSERT_TRUE(session.saveDrawing(pathOf("a.dwg")).ok());
  ASSERT_TRUE(session.newDrawing().ok());
  base::FileLock other;
  ASSERT_TRUE(other.take(folder.path() / "a.dwg.lock", true));
  act({[this] { desk.open(pathOf("a.dwg")); }});
  EXPECT_TRUE(desk.readOnly());
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(desk.title(), "a.dwg (read-only) - Vornikplan10");
  dialogs.save = pathOf("b.dwg");
  act({typed("QSAVE")});
  EXPECT_TRUE(exists("b.dwg"));
  EXPECT_FALSE(desk.readOnly());
}

TEST_F(FilesTest, TheLockGoesWithTheDrawing) {
  drawLine();
  dialogs.save = pathOf("a.dwg");
  act({typed("QSAVE")});
  EXPECT_TRUE(exists("a.dwg.lock"));
  act({typed("NEW")});
  EXPECT_FALSE(exists("a.dwg.lock"));
}

// --- recent files

TEST_F(FilesTest, RecentFilesAreKeptLatestFirst) {
  desktop::RecentFiles& recent = desk.recent;
  for (int i = 0; i < 12; ++i) {
    ASSERT_TRUE(recent.add("/tmp/" + std::to_string(i) + "路.dwg").ok());
  }
  ASSERT_TRUE(recent.add("/tmp/7路.dwg").ok());
  desktop::RecentFiles again(folder.path() / "data" / "recent.txt");
  ASSERT_TRUE(again.load().ok());
  ASSERT_EQ(again.paths().size(), desktop::RecentFiles::kMost);
  EXPECT_EQ(again.paths()[0], "/tmp/7路.dwg");
  EXPECT_EQ(again.paths()[1], "/tmp/11路.dwg");
  ASSERT_TRUE(again.remove("/tmp/7路.dwg").ok());
  EXPECT_EQ(again.paths().size(), desktop::RecentFiles::kMost - 1);
}

TEST_F(FilesTest, ADamagedListIsKeptAsideAndAnEmptyOneBegun) {
  const fs::path file = folder.path() / "data" / "recent.txt";
  for (const std::string& bytes :
       {std::string("\xFF\xFE\0\0", 4), std::string("nothing of the kind\n"), std::string()}) {
    test::writeFile(file, bytes);
    desktop::RecentFiles recent(file);
    EXPECT_FALSE(recent.load().ok());
    EXPECT_TRUE(recent.paths().empty());
    ASSERT_TRUE(recent.add("/a.dwg").ok());
    EXPECT_EQ(recent.paths().size(), 1U);
  }
  EXPECT_TRUE(fs::exists(file.string() + ".damaged-1"));
  EXPECT_TRUE(fs::exists(file.string() + ".damaged-3"));
}

TEST_F(FilesTest, AnOpenedDrawingIsRecent) {
  drawLine();
  dialogs.save = pathOf("a.dwg");
  act({typed("QSAVE")});
  ASSERT_EQ(desk.recent.paths().size(), 1U);
  EXPECT_EQ(desk.recent.paths()[0], pathOf("a.dwg"));
}

// --- losses

TEST_F(FilesTest, LossesAreAskedAboutBeforeAnythingIsWritten) {
  test::writeFile(folder.path() / "in.dxf",
                  "0\nSECTION\n2\nENTITIES\n0\nMLINE\n8\n0\n100\nAcDbEntity\n100\nAcDbMline\n"
                  "70\n8\n71\n3\n72\n0\n73\n0\n74\n0\n0\nENDSEC\n0\nEOF\n");
  act({[this] { desk.open(pathOf("in.dxf")); }});
  ASSERT_FALSE(drafting::drawingLosses(session.database(), pathOf("out.dwg")).empty());
  dialogs.save = pathOf("out.dwg");
  answers = {kNo};
  act({typed("SAVEAS")});
  EXPECT_FALSE(exists("out.dwg"));
  answers = {kYes};
  act({typed("SAVEAS")});
  EXPECT_TRUE(exists("out.dwg"));
}

// --- recovery

class RecoveryTest : public FilesTest {
 protected:
  fs::path records() const { return folder.path() / "records"; }
  // A session that is gone without its farewell.
  void leaveRecord(bool changed) {
    drafting::Session other;
    other.line.output = [](std::string_view) {};
    other.recovery.start(records());
    if (changed) {
      other.line.type("LINE 1,1 5,5 \nCIRCLE 3,3 1\n");
      other.line.run();
    }
    other.recovery.leave();
  }
};

TEST_F(RecoveryTest, WorkThatWasLostIsOfferedAndComesBack) {
  test::DesktopFixture::answers = {kYes};
  leaveRecord(true);
  drafting::Session mine;  // the active one is made last
  mine.language = drafting::Language::English;
  desktop::Desktop second(mine, dialogs, folder.path() / "data");
  second.startRecovery(records());
  EXPECT_EQ(mine.database().modelSpace().count, 2U);
  EXPECT_TRUE(mine.recovery.recording());
  ASSERT_EQ(boxes.size(), 1U);
}

TEST_F(RecoveryTest, WhatWasNotChangedIsNotOffered) {
  leaveRecord(false);
  desk.startRecovery(records());
  EXPECT_TRUE(boxes.empty());
  EXPECT_TRUE(drafting::findLostDrawings(records()).empty());
}

TEST_F(RecoveryTest, CancelAsksAgainNextTimeAndNoGivesItUp) {
  leaveRecord(true);
  answers = {kCancel};
  desk.startRecovery(records());
  EXPECT_EQ(drafting::findLostDrawings(records()).size(), 1U);
  answers = {kNo};
  desk.startRecovery(records());
  EXPECT_TRUE(drafting::findLostDrawings(records()).empty());
  EXPECT_EQ(boxes.size(), 2U);
}

TEST_F(RecoveryTest, ARecordThatCantBeReadIsToldAndKept) {
  leaveRecord(true);
  for (const auto& entry : fs::recursive_directory_iterator(records())) {
    if (entry.path().extension() == ".dwg") fs::resize_file(entry.path(), 100);
  }
  answers = {kYes};
  desk.startRecovery(records());
  EXPECT_EQ(boxes.size(), 2U);
  EXPECT_FALSE(drafting::findLostDrawings(records()).empty());
}

// --- plot

TEST_F(FilesTest, ThePlotDialogsChoicesMakeAFile) {
  drawLine();
  dialogs.plot = [this](PlotChoices& choices) {
    EXPECT_EQ(choices.file, "drawing.pdf");
    choices.file = pathOf("p.pdf");
    return PlotAnswer::Plot;
  };
  act({typed("PLOT")});
  EXPECT_TRUE(exists("p.pdf")) << printed();
}

TEST_F(FilesTest, TheWindowToPlotIsPickedBetweenTwoDialogs) {
  drawLine();
  int asked = 0;
  dialogs.plot = [&](PlotChoices& choices) {
    if (++asked == 1) return PlotAnswer::PickWindow;
    EXPECT_TRUE(choices.window.has_value());
    EXPECT_EQ(choices.area, desktop::PlotArea::Window);
    choices.file = pathOf("w.svg");
    return PlotAnswer::Plot;
  };
  act({typed("PLOT"), clicked(10, 10), clicked(100, 100)});
  EXPECT_EQ(asked, 2);
  EXPECT_TRUE(exists("w.svg"));
}

TEST_F(FilesTest, ChoicesThatMakeNoPlotAreNamed) {
  const auto problem = [this](const std::function<void(PlotChoices&)>& change) {
    PlotChoices choices;
    choices.file = "a.pdf";
    change(choices);
    return desktop::plotOptions(session, choices).message();
  };
  EXPECT_EQ(problem([](PlotChoices&) {}), "");
  EXPECT_EQ(problem([](PlotChoices& c) { c.paper = "B7"; }), "That is no paper size.");
  EXPECT_EQ(problem([](PlotChoices& c) { c.area = desktop::PlotArea::Window; }),
            "There is no window yet.");
  EXPECT_EQ(problem([](PlotChoices& c) { c.fit = false, c.scale = "0"; }), "That is no scale.");
  EXPECT_EQ(problem([](PlotChoices& c) { c.file = "a.doc"; }),
            "The file's name must end with .pdf, .svg or .png.");
}

TEST_F(FilesTest, WithoutLineweightsEveryLineIsThin) {
  type("PLINE 0,0 W 5 5 100,0 \n");
  PlotChoices choices;
  choices.file = "a.pdf";
  choices.lineweights = false;
  const auto options = desktop::plotOptions(session, choices);
  ASSERT_TRUE(options.ok());
  EXPECT_FALSE(options->lineweights);
}

// --- settings and start

TEST_F(FilesTest, AScaleOfZeroIsSetAndWarnedAbout) {
  EXPECT_TRUE(desktop::setScale(session, 100).ok());
  EXPECT_EQ(desktop::scaleText(session), "1:100");
  EXPECT_TRUE(boxes.empty());
  EXPECT_TRUE(desktop::setScale(session, 0).ok());
  EXPECT_EQ(desktop::scaleText(session), "1:0");
  EXPECT_EQ(boxes.size(), 1U);
}

TEST(ParseScale, TakesANumberOrARatio) {
  EXPECT_EQ(desktop::parseScale(" 1:50 "), 50);
  EXPECT_EQ(desktop::parseScale("2.5"), 2.5);
  EXPECT_EQ(desktop::parseScale("0"), 0);
  for (const char* text : {"", "1:", "-1", "abc", "1:50x"}) {
    EXPECT_FALSE(desktop::parseScale(text)) << text;
  }
}

TEST_F(FilesTest, SnapsAndOrthoAreToggled) {
  EXPECT_FALSE(desktop::snapsOn(session));
  desktop::toggleSnaps(session);
  EXPECT_TRUE(desktop::snapsOn(session));
  desktop::toggleSnaps(session);
  EXPECT_FALSE(desktop::snapsOn(session));
  desktop::toggleSnaps(session);
  EXPECT_TRUE(desktop::snapsOn(session)) << "with the modes from before";
  desktop::toggleOrtho(session);
  EXPECT_TRUE(desktop::orthoOn(session));
}

TEST(StartOptions, AreRead) {
  const auto options = desktop::parseOptions({"--install", "lib", "--script", "s.scr", "a b.dwg"});
  EXPECT_EQ(options.problem, "");
  EXPECT_EQ(options.install, "lib");
  EXPECT_EQ(options.script, "s.scr");
  EXPECT_EQ(options.drawing, "a b.dwg");
  EXPECT_FALSE(desktop::parseOptions({}).drawing);
  EXPECT_EQ(desktop::parseOptions({"--what"}).problem, "unknown option --what");
  EXPECT_EQ(desktop::parseOptions({"--install"}).problem, "--install needs a value");
  EXPECT_EQ(desktop::parseOptions({"a", "b"}).problem, "more than one drawing");
}

}  // namespace

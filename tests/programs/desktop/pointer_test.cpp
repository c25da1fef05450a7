// The mouse in the drawing area: answers to prompts, selections, the view; and what it shows.
#include "programs/desktop/desktop_fixture.h"

namespace {

class PointerTest : public test::DesktopFixture {
 protected:
  void drawTwoLines() { type("LINE 50,50 150,50 \nLINE 50,200 150,200 \n"); }
  std::size_t countOf(std::uint32_t colour) const {
    std::size_t count = 0;
    for (const auto& line : desk.pointer.overlay()) count += line.colour == colour ? 1 : 0;
    return count;
  }
};

TEST_F(PointerTest, AClickAnswersAPromptForAPoint) {
  act({typed("LINE"), clicked(10, 20), clicked(30, 40), typed("")});
  EXPECT_EQ(entities().size(), 1U);
  const auto* line = session.database().find<drafting::Line>(session.database().lastEntity());
  ASSERT_NE(line, nullptr);
  EXPECT_NEAR(line->start.x, 10.5, 1e-9);
  EXPECT_NEAR(line->start.y, 20.5, 1e-9);
  EXPECT_NEAR(line->end.x, 30.5, 1e-9);
}

TEST_F(PointerTest, AClickAtATextPromptIsLeftAlone) {
  act({typed("TEXT"), typed("10,10"), typed("5"), typed("0"), clicked(100, 100), typed("words")});
  const auto* text = session.database().find<drafting::Text>(session.database().lastEntity());
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->text, "words");
}

TEST_F(PointerTest, AClickWithinAnUnfinishedExpressionIsNoPartOfIt) {
  act({typed("(setq a"), clicked(100, 100), typed("5)")});
  EXPECT_EQ(evaluate("a"), "5");
}

TEST_F(PointerTest, AClickAtTheCommandPromptSelects) {
  drawTwoLines();
  act({clicked(100, 50)});
  EXPECT_EQ(desk.pointer.selected().size(), 1U);
}

TEST_F(PointerTest, ARectangleToTheRightSelectsWhatLiesWithin) {
  drawTwoLines();
  act({clicked(20, 20), clicked(100, 220)});
  EXPECT_TRUE(desk.pointer.selected().empty()) << "both lines reach out of it";
  act({clicked(20, 20), clicked(180, 100)});
  EXPECT_EQ(desk.pointer.selected().size(), 1U);
}

TEST_F(PointerTest, ARectangleToTheLeftSelectsWhatItCrosses) {
  drawTwoLines();
  act({clicked(100, 220), clicked(20, 20)});
  EXPECT_EQ(desk.pointer.selected().size(), 2U);
}

TEST_F(PointerTest, EscapeGivesUpTheRectangleFirstAndThenTheSelection) {
  drawTwoLines();
  act({clicked(100, 50), clicked(20, 20), [this] { desk.escape(); }});
  EXPECT_EQ(desk.pointer.selected().size(), 1U);
  act({[this] { desk.escape(); }});
  EXPECT_TRUE(desk.pointer.selected().empty());
}

TEST_F(PointerTest, TheSelectionIsTheNextCommandsAnswer) {
  drawTwoLines();
  act({clicked(100, 50), typed("MOVE"), typed("0,0"), typed("0,10")});
  const std::vector<std::string> left = entities();
  ASSERT_EQ(left.size(), 2U);
  EXPECT_NE((left[0] + left[1]).find("50,60"), std::string::npos) << left[0] << left[1];
  EXPECT_TRUE(desk.pointer.selected().empty());
}

TEST_F(PointerTest, DeleteErasesTheSelection) {
  drawTwoLines();
  act({clicked(100, 50), [this] { desk.eraseSelected(); }});
  EXPECT_EQ(entities().size(), 1U);
}

TEST_F(PointerTest, DeleteWithoutASelectionDoesNothing) {
  drawTwoLines();
  act({[this] { desk.eraseSelected(); }});
  EXPECT_EQ(entities().size(), 2U);
}

TEST_F(PointerTest, AnErasedEntityIsNoLongerSelectedOnScreen) {
  drawTwoLines();
  act({clicked(100, 50), typed("UNDO 1"), typed("")});
  EXPECT_NO_FATAL_FAILURE(desk.refreshScreen());
}

TEST_F(PointerTest, TheWheelKeepsThePointBelowThePointer) {
  const desktop::Pixel at{300, 80};
  const desktop::Point2 before = desk.screen.drawingPoint(at);
  desk.pointer.wheel(at, 3);
  const desktop::Point2 after = desk.screen.drawingPoint(at);
  EXPECT_LT(session.view.height(), 200);
  EXPECT_NEAR(before.x, after.x, 0.5);
  EXPECT_NEAR(before.y, after.y, 0.5);
}

TEST_F(PointerTest, ManyTurnsOfTheWheelAreOneViewToGoBackTo) {
  for (int i = 0; i < 20; ++i) desk.pointer.wheel({10, 10}, 1);
  ASSERT_TRUE(session.view.showPrevious());
  EXPECT_NEAR(session.view.height(), 300, 1e-9);
}

TEST_F(PointerTest, TheMiddleButtonDragsTheDrawing) {
  const desktop::Point2 held = desk.screen.drawingPoint({100, 100});
  desk.pointer.startPan({100, 100});
  desk.pointer.moveTo({150, 120});
  desk.pointer.moveTo({180, 140});
  desk.pointer.endPan();
  const desktop::Point2 now = desk.screen.drawingPoint({180, 140});
  EXPECT_NEAR(held.x, now.x, 1e-9);
  EXPECT_NEAR(held.y, now.y, 1e-9);
}

TEST_F(PointerTest, ARubberBandLeadsFromThePromptsBase) {
  std::size_t atFirst = 1, atSecond = 0;
  const auto look = [this](std::size_t& count) {
    return [this, &count] {
      desk.pointer.moveTo({100, 100});
      count = countOf(0xE0E000);
    };
  };
  act({typed("LINE"), look(atFirst), clicked(10, 20), look(atSecond), typed("")});
  EXPECT_EQ(atFirst, 0U);
  EXPECT_EQ(atSecond, 1U);
}

TEST_F(PointerTest, ASelectingCommandShowsItsRectangleAndItsChoice) {
  drawTwoLines();
  std::size_t rectangle = 0, chosen = 0;
  act({typed("ERASE"), clicked(100, 50), [&] { chosen = desk.pointer.shown().size(); },
       clicked(20, 20),
       [&] {
         desk.pointer.moveTo({200, 100});
         rectangle = countOf(0x60A0FF);
       },
       [this] { desk.escape(); }});
  EXPECT_EQ(chosen, 1U);
  EXPECT_EQ(rectangle, 4U);
  EXPECT_EQ(entities().size(), 2U);
}

TEST_F(PointerTest, AnotherDrawingHasNoSelection) {
  drawTwoLines();
  answers = {kNo};
  act({clicked(100, 50), typed("NEW")});
  EXPECT_TRUE(desk.pointer.selected().empty());
}

TEST_F(PointerTest, SelectAllTakesWhatIsShown) {
  drawTwoLines();
  act({[this] { desk.selectAll(); }});
  EXPECT_EQ(desk.pointer.selected().size(), 2U);
}

}  // namespace

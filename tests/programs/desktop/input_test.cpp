// The transcript, the input box, macros and menus.
#include <algorithm>
#include <set>

#include "programs/desktop/command_ids.h"
#include "programs/desktop/desktop_fixture.h"
#include "programs/desktop/menus.h"

namespace {

using desktop::InputHistory;
using desktop::Transcript;

TEST(Transcript, TheUnfinishedLineIsThePrompt) {
  Transcript transcript;
  transcript.print("\nCommand: ");
  transcript.print("LINE");
  EXPECT_EQ(transcript.takeLines(), "\n");
  EXPECT_EQ(transcript.current(), "Command: LINE");
  transcript.print("\nFirst point: ");
  EXPECT_EQ(transcript.takeLines(), "Command: LINE\n");
  EXPECT_EQ(transcript.takeLines(), "");
  EXPECT_EQ(transcript.current(), "First point: ");
}

TEST(InputHistory, GoesBackAndForthAndKeepsTheDraft) {
  InputHistory history;
  history.add("LINE");
  history.add("CIRCLE");
  history.add("CIRCLE");  // once is enough
  history.add("");
  EXPECT_EQ(*history.older("dra"), "CIRCLE");
  EXPECT_EQ(*history.older("CIRCLE"), "LINE");
  EXPECT_EQ(history.older("LINE"), nullptr);
  EXPECT_EQ(*history.newer(), "CIRCLE");
  EXPECT_EQ(*history.newer(), "dra");
  EXPECT_EQ(history.newer(), nullptr);
}

TEST(InputHistory, KeepsABoundedNumber) {
  InputHistory history;
  for (int i = 0; i < 1000; ++i) history.add(std::to_string(i));
  int count = 0;
  while (history.older("")) ++count;
  EXPECT_EQ(count, 200);
}

TEST(BlankEnds, AnInputButNoTextAndNoExpression) {
  const drafting::Prompt line{.kind = drafting::Ask::Line};
  const drafting::Prompt point{.kind = drafting::Ask::Point};
  EXPECT_TRUE(desktop::blankEnds("LINE", &point));
  EXPECT_TRUE(desktop::blankEnds("", &point));
  EXPECT_TRUE(desktop::blankEnds("", nullptr));
  EXPECT_FALSE(desktop::blankEnds("two", &line));
  EXPECT_FALSE(desktop::blankEnds("(setq a", &point));
}

TEST(Complete, GoesThroughTheNamesThatBeginSo) {
  const std::vector<std::string> names = {"CHPROP", "CIRCLE", "COLOR", "COPY", "LINE"};
  EXPECT_EQ(desktop::complete(names, "c", "c"), "CHPROP");
  EXPECT_EQ(desktop::complete(names, "c", "CHPROP"), "CIRCLE");
  EXPECT_EQ(desktop::complete(names, "co", "COLOR"), "COPY");
  EXPECT_EQ(desktop::complete(names, "co", "COPY"), "COLOR");
  EXPECT_EQ(desktop::complete(names, "x", "x"), "");
}

TEST(MacroSteps, EachExpressionIsOne) {
  const auto steps = desktop::macroSteps("^C^C(a \"(\") (b (c)) LINE 1,2");
  ASSERT_EQ(steps.size(), 3U);
  EXPECT_EQ(steps[0], "(a \"(\")\n");
  EXPECT_EQ(steps[1], "(b (c))\n");
  EXPECT_EQ(steps[2], "LINE 1,2\n");
  EXPECT_TRUE(desktop::macroSteps("^C^C").empty());
  EXPECT_EQ(desktop::macroSteps("(never closed").front(), "(never closed\n");
}

class MacroTest : public test::DesktopFixture {};

TEST_F(MacroTest, AnExpressionThatAsksDoesntTakeTheNextOneForItsAnswer) {
  act({[this] { desk.macros.start("^C^C(setq m 1) (setq p (getpoint)) (setq m 0)"); },
       clicked(10, 20)});
  EXPECT_EQ(evaluate("m"), "0");
  EXPECT_NE(evaluate("p"), "nil");
}

TEST_F(MacroTest, TheLastStepRunsAlsoWhenOneBeforeWasCancelled) {
  act({[this] { desk.macros.start("^C^C(setq m 1) (getpoint) (setq m 0)"); },
       [this] { desk.escape(); }});
  EXPECT_EQ(evaluate("m"), "0");
}

TEST_F(MacroTest, AMacroAtAWaitingPromptCancelsItFirst) {
  std::string during;
  act({[this] { desk.macros.start("^C^C(setq m 1) (getpoint) (setq m 0)"); },
       [this] { desk.run(CMD_LINE); },
       [&, this] {
         during = evaluate("m");
         desk.submit("5,5");
       },
       typed("9,9"), typed("")});
  EXPECT_EQ(during, "0");
  EXPECT_EQ(entities().size(), 1U);
}

TEST_F(MacroTest, AZoomFromTheMenuRunsWithinTheCommandThatWaits) {
  type("LINE 0,0 1000,1000 \n");
  act({typed("LINE"), typed("5,5"), [this] { desk.run(CMD_ZOOM_EXTENTS); }, typed("9,9"),
       typed("")});
  EXPECT_EQ(entities().size(), 2U);
  EXPECT_GT(session.view.height(), 900);
}

TEST_F(MacroTest, GarbageTypedIsRefusedAndWorkGoesOn) {
  act({typed("!!"), typed(")))"), typed("(car"), typed(")"), typed("\x01\x02"), typed("LINE"),
       typed("nowhere"), typed("1,1"), typed("2,2"), typed("")});
  EXPECT_EQ(entities().size(), 1U);
}

TEST_F(MacroTest, EveryEntryTypesACommandThatIsThere) {
  std::set<int> ids;
  for (const auto& menu : desktop::menus()) {
    EXPECT_FALSE(menu.chinese.empty());
    EXPECT_FALSE(menu.english.empty());
    for (const auto& entry : menu.entries) {
      if (entry.id == 0) continue;
      EXPECT_TRUE(ids.insert(entry.id).second) << entry.english;
      EXPECT_FALSE(entry.chinese.empty());
      EXPECT_LE(entry.id, CMD_LAST);
      for (const std::string& step : desktop::macroSteps(entry.macro)) {
        if (step.front() == '(') continue;  // the module's functions
        std::string name = step.substr(0, step.find_first_of(" \n"));
        if (name.front() == '\'') name.erase(0, 1);
        EXPECT_NE(session.commands.find(name), nullptr) << name;
      }
    }
  }
}

TEST(Menus, TheRecentFilesStandBeforeTheEnd) {
  const auto& file = desktop::menus().front();
  EXPECT_EQ(file.entries[static_cast<std::size_t>(desktop::kEntriesBeforeRecent)].id, CMD_QUIT);
}

}  // namespace

// Sessions and documents: what replacing and saving a drawing does to all that hangs on it.
#include "support/session_fixture.h"

namespace drafting {
namespace {

using SessionTest = test::SessionFixture;

TEST_F(SessionTest, IsTheActiveOneUntilItEnds) {
  EXPECT_EQ(&Session::active(), &session);
  {
    const Session other;
    EXPECT_EQ(&Session::active(), &other);
  }
  EXPECT_EQ(Session::activeOrNull(), nullptr);
}

TEST_F(SessionTest, SpeaksTheLanguageThatWasChosen) {
  EXPECT_EQ(session.say("中", "en"), "en");
  session.language = Language::Chinese;
  EXPECT_EQ(session.say("中", "en"), "中");
}

TEST_F(SessionTest, NewDrawingIsUnchangedAndUnnamed) {
  EXPECT_FALSE(session.database().journal().changedSinceSave());
  EXPECT_TRUE(session.document().path.empty());
  EXPECT_EQ(session.variables.text("DWGNAME"), "Drawing.dwg");
}

TEST_F(SessionTest, SavingNamesTheDocumentAndOpeningFindsTheSame) {
  type("CIRCLE 1,2 3\n");
  ASSERT_TRUE(session.saveDrawing(pathOf("a.dwg")).ok());
  EXPECT_EQ(session.document().path, pathOf("a.dwg"));
  EXPECT_FALSE(session.database().journal().changedSinceSave());
  ASSERT_TRUE(session.newDrawing().ok());
  EXPECT_TRUE(session.document().path.empty());
  ASSERT_TRUE(session.openDrawing(pathOf("a.dwg")).ok());
  EXPECT_EQ(entities(), std::vector<std::string>{"CIRCLE 1,2 3"});
  EXPECT_FALSE(session.database().journal().changedSinceSave());
  EXPECT_EQ(session.database().journal().undoSteps(), 0u);
}

TEST_F(SessionTest, FailedOpeningLeavesTheDrawing) {
  type("POINT 1,1\n");
  EXPECT_FALSE(session.openDrawing(pathOf("absent.dwg")).ok());
  EXPECT_EQ(entities(), std::vector<std::string>{"POINT 1,1"});
}

TEST_F(SessionTest, FailedSavingLeavesNameAndChanges) {
  type("POINT 1,1\n");
  const base::Status status = session.saveDrawing(pathOf("no/a.dwg"));
  ASSERT_FALSE(status.ok());
  EXPECT_NE(status.message().find("a.dwg"), std::string::npos);
  EXPECT_TRUE(session.document().path.empty());
  EXPECT_TRUE(session.database().journal().changedSinceSave());
}

TEST_F(SessionTest, UnknownKindOfFileIsNeitherReadNorWritten) {
  EXPECT_NE(session.openDrawing(pathOf("a.xyz")).message().find("a.xyz"), std::string::npos);
  EXPECT_NE(session.saveDrawing(pathOf("a.xyz")).message().find("a.xyz"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(folder / "a.xyz"));
}

TEST_F(SessionTest, SelectionsBelongToTheirDrawing) {
  type("POINT 1,1\n");
  const auto number = session.keepSelection({session.database().lastEntity()});
  EXPECT_NE(session.selection(number), nullptr);
  session.previousSelection = {session.database().lastEntity()};
  ASSERT_TRUE(session.newDrawing().ok());
  EXPECT_EQ(session.selection(number), nullptr);
  EXPECT_TRUE(session.previousSelection.empty());
}

TEST_F(SessionTest, DroppedSelectionIsGone) {
  const auto number = session.keepSelection({1});
  EXPECT_TRUE(session.dropSelection(number));
  EXPECT_FALSE(session.dropSelection(number));
  EXPECT_NE(session.keepSelection({1}), number);
}

TEST_F(SessionTest, ExceptionOutOfACommandEndsTheCommandOnly) {
  session.commands.add({.name = "FAIL", .run = [](Session& own) {
                          own.line.command(std::vector<Argument>{std::string("POINT"), Point3{}});
                          throw std::runtime_error("no memory");
                        }});
  type("FAIL\nPOINT 1,1\n");
  EXPECT_NE(takePrinted().find("\nInternal error: no memory"), std::string::npos);
  EXPECT_EQ(entities(), (std::vector<std::string>{"POINT 0,0", "POINT 1,1"}));
  EXPECT_EQ(session.database().journal().depth(), 0);
  EXPECT_FALSE(session.line.insideCommand());
  EXPECT_FALSE(session.line.answersComeFromArguments());
}

TEST_F(SessionTest, CommandOfArgumentsRunsOnWhenTheUserCancelledBefore) {
  bool closed = false;
  session.commands.add(
      {.name = "GROUPED", .run = [&closed](Session& own) {
         own.line.ask({.kind = Ask::Point, .message = "\nWhere: "});
         closed = own.line.command(std::vector<Argument>{std::string("POINT"), Point3{7, 7, 0}});
       }});
  session.line.wait = [this] {
    if (!session.line.insideCommand()) return false;
    session.line.cancel();
    return true;
  };
  type("GROUPED\n");
  EXPECT_TRUE(closed);
  EXPECT_EQ(entities(), std::vector<std::string>{"POINT 7,7"});
}

TEST(Faults, FailAtTheNthCallAndMaybeAfterwards) {
  Faults faults;
  faults.failAt("a", 2);
  EXPECT_FALSE(faults.fails("a"));
  EXPECT_FALSE(faults.fails("b"));
  EXPECT_TRUE(faults.fails("a"));
  EXPECT_FALSE(faults.fails("a"));
  faults.failAt("a", 1, true);
  EXPECT_TRUE(faults.fails("a"));
  EXPECT_TRUE(faults.fails("a"));
  faults.clear();
  EXPECT_FALSE(faults.fails("a"));
}

TEST(CommandTable, GroupsMayHaveCommandsOfTheSameName) {
  CommandTable table;
  const auto nothing = [](Session&) {};
  EXPECT_TRUE(table.add({.name = "draw", .run = nothing}));
  EXPECT_FALSE(table.add({.name = "DRAW", .run = nothing}));
  EXPECT_TRUE(table.add({.name = "Draw", .run = nothing, .group = "mine"}));
  EXPECT_EQ(table.find("dRaw")->group, "mine");  // the newest
  EXPECT_TRUE(table.hasGroup("mine"));
  EXPECT_TRUE(table.removeGroup("mine"));
  EXPECT_FALSE(table.removeGroup("mine"));
  EXPECT_EQ(table.find("draw")->group, "");
  EXPECT_EQ(table.find("nothing"), nullptr);
}

}  // namespace
}  // namespace drafting

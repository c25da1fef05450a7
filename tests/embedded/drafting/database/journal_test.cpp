#include <random>

#include "embedded/drafting/database/drawing_fixture.h"

namespace drafting {
namespace {

using JournalTest = DrawingTest;

TEST_F(JournalTest, AnUndoneErasureHasTheSameHandleAndPlace) {
  const Handle a = addLine(1), b = addLine(2), c = addLine(3);
  const std::string before = snapshot();
  db->journal().begin("ERASE");
  db->erase(b);
  db->erase(a);
  db->journal().end();
  EXPECT_EQ(db->find(a), nullptr);
  ASSERT_TRUE(db->journal().undo());
  EXPECT_EQ(snapshot(), before);
  EXPECT_EQ(modelChain(), (std::vector<Handle>{a, b, c}));
  EXPECT_EQ(db->find<Line>(b)->start.x, 2);
}

TEST_F(JournalTest, OnlyTheOutermostGroupIsAStep) {
  db->journal().begin("outer");
  addLine(1);
  db->journal().begin("inner");
  addLine(2);
  db->journal().end();
  EXPECT_EQ(db->journal().undoSteps(), 0u);
  EXPECT_FALSE(db->journal().undo()) << "a group is open";
  db->journal().end();
  EXPECT_EQ(db->journal().undoSteps(), 1u);
  EXPECT_EQ(db->journal().undoName(), "outer");
  EXPECT_TRUE(db->journal().undo());
  EXPECT_EQ(db->lastEntity(), 0u);
}

TEST_F(JournalTest, AGroupWithoutChangeIsNoStep) {
  const Handle a = addLine(1);
  const std::size_t steps = db->journal().undoSteps();
  db->journal().begin("look");
  db->edit<Line>(a).start.x = 1;  // the same value: identical images are dropped
  db->journal().end();
  EXPECT_EQ(db->journal().undoSteps(), steps);
}

TEST_F(JournalTest, ChangesOutsideGroupsAreOneNamelessStep) {
  addLine(1);
  addLine(2);
  db->journal().begin("LINE");
  addLine(3);
  db->journal().end();
  EXPECT_EQ(db->journal().undoSteps(), 2u);
  db->journal().undo();
  EXPECT_EQ(db->modelSpace().count, 2u);
  db->journal().undo();
  EXPECT_EQ(db->modelSpace().count, 0u);
}

TEST_F(JournalTest, VariablesAndNamesComeBack) {
  const Handle layer = addLayer("before");
  db->journal().begin("change");
  EXPECT_TRUE(db->setVariable("LTSCALE", 5.0));
  EXPECT_TRUE(db->setVariable("ltscale", 6));
  EXPECT_FALSE(db->setVariable("LTSCALE", std::string("x")));
  db->rename(layer, "after");
  db->journal().end();
  db->journal().undo();
  EXPECT_EQ(db->header.real("LTSCALE"), 1.0);
  EXPECT_EQ(db->findRecord(Table::Layers, "before"), layer);
  EXPECT_EQ(db->findRecord(Table::Layers, "after"), 0u);
  db->journal().redo();
  EXPECT_EQ(db->header.real("LTSCALE"), 6.0);
  EXPECT_EQ(db->findRecord(Table::Layers, "after"), layer);
}

TEST_F(JournalTest, WhatCameAndWentWithinAStepLeavesTheChainExact) {
  const Handle a = addLine(1), b = addLine(2);
  const std::string before = snapshot();
  db->journal().begin("drag");
  const Handle ghost = addLine(3);
  db->erase(b);  // its neighbour is the ghost
  db->erase(ghost);
  const Handle c = addLine(4);
  db->journal().end();
  const std::string after = snapshot();
  db->journal().undo();
  EXPECT_EQ(snapshot(), before);
  EXPECT_EQ(modelChain(), (std::vector<Handle>{a, b}));
  db->journal().redo();
  EXPECT_EQ(snapshot(), after);
  EXPECT_EQ(modelChain(), (std::vector<Handle>{a, c}));
}

TEST_F(JournalTest, ABlockWithOneEntityComesBackWhole) {
  const Handle block = addBlock("b");
  addLineTo(*db->find<BlockRecord>(block), 1);
  const Handle insert = addInsert(block, 1);
  const std::string before = snapshot();
  db->journal().begin("purge");
  db->erase(insert);
  db->erase(block);
  db->journal().end();
  const std::string after = snapshot();
  db->journal().undo();
  EXPECT_EQ(snapshot(), before);
  EXPECT_EQ(db->findRecord(Table::Blocks, "B"), block);
  EXPECT_EQ(db->find<Block>(db->find<BlockRecord>(block)->begin)->name, "b");
  db->journal().redo();
  EXPECT_EQ(snapshot(), after);
}

TEST_F(JournalTest, MarksTakeBackTheStepsSinceThem) {
  const auto step = [this] {
    db->journal().begin("LINE");
    addLine(1);
    db->journal().end();
  };
  step();
  db->journal().mark();
  step();
  step();
  EXPECT_EQ(db->journal().undoToMark(), 2u);
  EXPECT_EQ(db->modelSpace().count, 1u);
  EXPECT_EQ(db->journal().redoSteps(), 2u);
  EXPECT_EQ(db->journal().undoToMark(), 1u) << "without a mark all steps";
}

TEST_F(JournalTest, SavedStateIsRecognisedAgain) {
  EXPECT_FALSE(db->journal().changedSinceSave());
  addLine(1);
  EXPECT_TRUE(db->journal().changedSinceSave());
  db->journal().markSaved();
  EXPECT_FALSE(db->journal().changedSinceSave());
  db->journal().undo();
  EXPECT_TRUE(db->journal().changedSinceSave());
  db->journal().redo();
  EXPECT_FALSE(db->journal().changedSinceSave());
  db->journal().undo();
  addLine(2);  // the saved state can't be reached any more
  EXPECT_TRUE(db->journal().changedSinceSave());
  db->journal().undo();
  EXPECT_TRUE(db->journal().changedSinceSave());
}

TEST_F(JournalTest, ANewStepEndsRedo) {
  addLine(1);
  db->journal().undo();
  addLine(2);
  EXPECT_FALSE(db->journal().redo());
}

// Random commands against snapshots of each state, back and forth.
TEST_F(JournalTest, AnyHistoryCanBeWalkedBothWays) {
  std::mt19937 random(7);
  const auto pick = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
  const Handle block = addBlock("b");
  db->journal().mark();
  std::vector<std::string> states{snapshot()};
  for (int command = 0; command < 60; ++command) {
    db->journal().begin("c");
    for (int change = 0; change < 6; ++change) {
      const auto handles = modelChain();
      const std::size_t what = pick(6);
      if (what < 2 || handles.empty()) {
        addLine(static_cast<double>(random() % 100));
      } else if (what == 2) {
        addInsert(block, static_cast<int>(pick(3)));
      } else if (what == 3) {
        const Handle target = handles[pick(handles.size())];
        db->willChange(*db->find(target));
        db->find<Entity>(target)->colour = static_cast<std::int16_t>(random() % 256);
      } else {
        db->erase(handles[pick(handles.size())]);
      }
    }
    db->journal().end();
    const std::string state = snapshot();
    if (state != states.back()) states.push_back(state);
  }
  for (std::size_t i = states.size() - 1; i > 0; --i) {
    ASSERT_EQ(snapshot(), states[i]);
    ASSERT_TRUE(db->journal().undo());
  }
  for (std::size_t i = 1; i < states.size(); ++i) {
    ASSERT_TRUE(db->journal().redo());
    ASSERT_EQ(snapshot(), states[i]);
  }
}

}  // namespace
}  // namespace drafting

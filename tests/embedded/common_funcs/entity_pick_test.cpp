// Picking one entity through a filter.
#include "platform/acad.h"
#include "platform/common_funcs.h"
#include "support/session_fixture.h"

namespace {

class EntityPick : public test::SessionFixture {
 protected:
  // A line, a circle, and two references of a block that is a horizontal line of length 10.
  EntityPick() {
    const std::string bar = pathOf("bar.dwg");
    type("LINE 0,0 10,0\n\nSAVEAS " + bar + "\n");
    type("INSERT " + bar + "\n0,50\n1\n1\n0\n");
    type("INSERT " + bar + "\n0,80\n1\n1\n0\n");
    type("CIRCLE 50,50 5\n");
    takePrinted();
  }
  // Answers a pick; the handle it names, "Enter", "missed", "cancelled".
  std::string pick(std::string_view answer) {
    session.line.type(answer);
    resbuf* filter = acutBuildList(RTDXF0, L"INSERT", RTNONE);
    ads_name entity{};
    const int result = Xentsl(L"\nPick: ", filter, entity, point_);
    acutRelRb(filter);
    if (result == RTCAN) return "cancelled";
    if (result == RTNORM) return positionOf(entity);
    resbuf error{};
    EXPECT_EQ(acedGetVar(L"errno", &error), RTNORM);
    EXPECT_EQ(entity[0], 0);
    return error.resval.rint == 52 ? "Enter" : error.resval.rint == 7 ? "missed" : "?";
  }
  std::string positionOf(const ads_name name) {
    const auto* reference =
        session.database().find<drafting::Insert>(static_cast<drafting::Handle>(name[0]));
    return reference ? "at " + std::to_string(static_cast<int>(reference->position.y)) : "other";
  }

  ads_point point_{};
};

TEST_F(EntityPick, PointOnTheFigureNamesItsReference) {
  EXPECT_EQ(pick("5,50\n"), "at 50");
  EXPECT_EQ(point_[0], 5);
  EXPECT_EQ(pick("9,80.2\n"), "at 80");
}

TEST_F(EntityPick, PointAwayFromAnyFigureMisses) { EXPECT_EQ(pick("5,65\n"), "missed"); }

TEST_F(EntityPick, WhatTheFilterKeepsOutIsNotHit) {
  EXPECT_EQ(pick("5,0\n"), "missed");
  EXPECT_EQ(pick("45,50\n"), "missed");
  EXPECT_EQ(pick("L\n"), "missed");
}

TEST_F(EntityPick, LastNamesTheNewestEntity) {
  type("ERASE L\n\n");
  EXPECT_EQ(pick("L\n"), "at 80");
}

TEST_F(EntityPick, EnterIsToldFromAMiss) { EXPECT_EQ(pick("\n"), "Enter"); }

TEST_F(EntityPick, EndOfInputCancels) { EXPECT_EQ(pick(""), "cancelled"); }

}  // namespace

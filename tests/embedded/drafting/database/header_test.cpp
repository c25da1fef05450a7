#include "embedded/drafting/database/header.h"

#include <gtest/gtest.h>

namespace drafting {
namespace {

TEST(Header, NamesCompareWithoutCase) {
  Header header;
  EXPECT_EQ(header.real("dimscale"), 1.0);
  EXPECT_EQ(header.text("MENU"), ".");
  EXPECT_EQ(header.integer("LUPREC"), 4);
  EXPECT_EQ(header.real("LUPREC"), 4.0);
  EXPECT_EQ(header.find("NOSUCH"), nullptr);
  EXPECT_EQ(header.integer("NOSUCH"), 0);
}

TEST(Header, SettingKeepsTheTypeOfTheVariable) {
  Header header;
  EXPECT_TRUE(header.set("DIMSCALE", 2));
  EXPECT_EQ(header.real("DIMSCALE"), 2.0);
  EXPECT_FALSE(header.set("DIMSCALE", std::string("2")));
  EXPECT_FALSE(header.set("LUPREC", 2.5));
  EXPECT_TRUE(header.set("INSBASE", Point2{3, 4}));
  EXPECT_EQ(header.point("INSBASE"), (Point3{3, 4, 0}));
  EXPECT_TRUE(header.set("LIMMAX", Point3{3, 4, 5}));
  EXPECT_EQ(header.point("LIMMAX"), (Point3{3, 4, 0}));
  EXPECT_FALSE(header.set("NOSUCH", 1));
}

TEST(Header, TheDimensionStyleIsOneRunOfTheTable) {
  const auto run = dimensionVariables();
  EXPECT_STREQ(run.front().name, "DIMPOST");
  EXPECT_STREQ(run.back().name, "DIMLWE");
  for (const Variable& variable : run) EXPECT_NE(variable.styleGroup, 0) << variable.name;
  for (const Variable& variable : variables()) {
    const bool inRun = &variable >= &run.front() && &variable <= &run.back();
    EXPECT_EQ(variable.styleGroup != 0, inRun) << variable.name;
  }
}

TEST(Lineweight, IndexesAndHundredthsAgree) {
  EXPECT_EQ(lineweightOfIndex(29), -1);
  EXPECT_EQ(lineweightOfIndex(30), -2);
  EXPECT_EQ(lineweightOfIndex(31), -3);
  EXPECT_EQ(lineweightOfIndex(23), 211);
  for (int index = 0; index < 24; ++index) {
    EXPECT_EQ(indexOfLineweight(lineweightOfIndex(index)), index);
  }
  EXPECT_EQ(indexOfLineweight(17), 31);
}

}  // namespace
}  // namespace drafting

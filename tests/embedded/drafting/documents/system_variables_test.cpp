// System variables: types, limits, and where each lives.
#include "support/session_fixture.h"

namespace drafting {
namespace {

using Variables = test::SessionFixture;

TEST_F(Variables, AllThatAreNamedCanBeRead) {
  for (const char* name :
       {"ATTREQ", "TEXTSTYLE", "CECOLOR", "CLAYER", "DIMSCALE", "BLIPMODE", "ERRNO", "INSBASE",
        "LASTPOINT", "DWGNAME", "PLINEWID", "TEXTSIZE", "LTSCALE", "CELTYPE", "DWGPREFIX"}) {
    EXPECT_TRUE(session.variables.get(name).has_value()) << name;
  }
}

TEST_F(Variables, NamesCompareWithoutCase) {
  EXPECT_TRUE(session.variables.set("attReq", 0).ok());
  EXPECT_EQ(session.variables.integer("ATTREQ"), 0);
}

TEST_F(Variables, LimitsHoldAtBothEnds) {
  EXPECT_TRUE(session.variables.set("ERRNO", 32767).ok());
  EXPECT_FALSE(session.variables.set("ERRNO", 32768).ok());
  EXPECT_FALSE(session.variables.set("ERRNO", -1).ok());
  EXPECT_EQ(session.variables.integer("ERRNO"), 32767);
  EXPECT_TRUE(session.variables.set("DIMSCALE", 0).ok());
  EXPECT_FALSE(session.variables.set("LTSCALE", 0.0).ok());
}

TEST_F(Variables, WholeNumbersCountAsRealsAndFlatPointsAsPoints) {
  EXPECT_TRUE(session.variables.set("DIMSCALE", 7).ok());
  EXPECT_EQ(session.variables.real("DIMSCALE"), 7.0);
  EXPECT_FALSE(session.variables.set("ATTREQ", 1.0).ok());
  EXPECT_TRUE(session.variables.set("INSBASE", Point2{3, 4}).ok());
  EXPECT_EQ(session.variables.point("INSBASE"), (Point3{3, 4, 0}));
}

TEST_F(Variables, HandlesArentShown) { EXPECT_FALSE(session.variables.get("CMLSTYLE")); }

TEST_F(Variables, ValuesOfTheDrawingGoWithIt) {
  EXPECT_TRUE(session.variables.set("DIMSCALE", 50.0).ok());
  EXPECT_TRUE(session.variables.set("ATTREQ", 0).ok());
  ASSERT_TRUE(session.newDrawing().ok());
  EXPECT_EQ(session.variables.real("DIMSCALE"), 1.0);
  EXPECT_EQ(session.variables.integer("ATTREQ"), 0);  // the session's own
}

TEST_F(Variables, TypedReadersGiveNothingForOtherTypes) {
  EXPECT_EQ(session.variables.integer("DIMSCALE"), 0);
  EXPECT_EQ(session.variables.real("CLAYER"), 0.0);
  EXPECT_EQ(session.variables.text("ATTREQ"), "");
  EXPECT_EQ(session.variables.point("nosuch"), Point3{});
}

TEST_F(Variables, ColoursGoByNameAndNumber) {
  EXPECT_EQ(parseColour("RED"), 1);
  EXPECT_EQ(parseColour("byblock"), 0);
  EXPECT_EQ(parseColour("256"), 256);
  EXPECT_EQ(parseColour("257"), std::nullopt);
  EXPECT_EQ(parseColour("-1"), std::nullopt);
  EXPECT_EQ(parseColour(""), std::nullopt);
  EXPECT_EQ(colourName(256), "BYLAYER");
  EXPECT_EQ(colourName(0), "BYBLOCK");
  EXPECT_EQ(colourName(3), "3");
}

TEST_F(Variables, NameAndFolderOfTheDrawing) {
  ASSERT_TRUE(session.saveDrawing(pathOf("a.dwg")).ok());
  EXPECT_EQ(session.variables.text("DWGNAME"), "a.dwg");
  EXPECT_EQ(session.variables.text("DWGPREFIX") + "a.dwg", pathOf("a.dwg"));
  EXPECT_EQ(session.variables.integer("DWGTITLED"), 1);
}

}  // namespace
}  // namespace drafting

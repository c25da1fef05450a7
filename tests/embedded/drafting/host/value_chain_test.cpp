// Value chains: which value each type carries, copies, freeing.
#include <gtest/gtest.h>

#include "platform/acad_result.h"

namespace {

TEST(ValueChains, LinksOfEveryTypeAreMade) {
  for (const int type :
       {RTNONE, RTREAL, RTPOINT, RTSHORT, RTSTR, RTENAME, RTPICKS, RT3DPOINT, RTLONG,
        RTVOID, RTLB,   RTLE,    RTNIL,   RTT,   -3,      8,       10,        40,
        62,     90,     100,     1000,    1001,  1011,    1040,    1070,      1071}) {
    resbuf* link = acutNewRb(type);
    ASSERT_NE(link, nullptr) << type;
    EXPECT_EQ(link->restype, type);
    EXPECT_EQ(link->rbnext, nullptr);
    acutRelRb(link);
  }
}

// Modules that were compiled elsewhere know the numbers, not the names.
TEST(ValueChains, NumbersOfTypesAndResultsNeverChange) {
  EXPECT_EQ((std::vector{RTNONE, RTREAL, RTPOINT, RTSHORT, RTSTR, RTPICKS}),
            (std::vector{5000, 5001, 5002, 5003, 5005, 5007}));
  EXPECT_EQ((std::vector{RTNORM, RTERROR, RTCAN, RTKWORD}),
            (std::vector{5100, -5001, -5002, -5005}));
}

TEST(ValueChains, UnknownTypeGivesNone) {
  EXPECT_EQ(acutNewRb(4000), nullptr);
  EXPECT_EQ(acutNewRb(-77), nullptr);
}

TEST(ValueChains, GroupZeroHasItsOwnType) {
  resbuf* link = acutNewRb(RTDXF0);
  ASSERT_NE(link, nullptr);
  EXPECT_EQ(link->restype, 0);
  acutRelRb(link);
}

TEST(ValueChains, ListIsBuiltOfPairsAndTextsAreCopied) {
  wchar_t text[] = L"主回路";
  const double point[3] = {1, 2, 3};
  resbuf* chain = acutBuildList(RTDXF0, L"POINT", 1000, text, 1070, 7, 1071, 70000, 1040, 2.5, 1011,
                                point, RTNONE);
  text[0] = L'x';
  const resbuf* link = chain;
  ASSERT_NE(link, nullptr);
  EXPECT_STREQ(link->resval.rstring, L"POINT");
  link = link->rbnext;
  EXPECT_STREQ(link->resval.rstring, L"主回路");
  link = link->rbnext;
  EXPECT_EQ(link->resval.rint, 7);
  link = link->rbnext;
  EXPECT_EQ(link->resval.rlong, 70000);
  link = link->rbnext;
  EXPECT_EQ(link->resval.rreal, 2.5);
  link = link->rbnext;
  EXPECT_EQ(link->resval.rpoint[2], 3);
  EXPECT_EQ(link->rbnext, nullptr);
  EXPECT_EQ(acutRelRb(chain), RTNORM);
}

TEST(ValueChains, UnknownTypeInAListGivesNone) {
  EXPECT_EQ(acutBuildList(1000, L"a", 4000, 1, RTNONE), nullptr);
  EXPECT_EQ(acutBuildList(RTNONE), nullptr);
}

TEST(ValueChains, FreeingNothingIsFine) { EXPECT_EQ(acutRelRb(nullptr), RTNORM); }

}  // namespace

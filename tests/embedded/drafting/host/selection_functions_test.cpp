// Selection sets and entity names as modules use them.
#include "platform/acad.h"
#include "platform/common_funcs.h"
#include "support/session_fixture.h"

namespace {

class HostSelections : public test::SessionFixture {
 protected:
  // Number of entities that pass a filter; -1 if the set can't be made.
  int count(const resbuf* filter) {
    ads_name set;
    if (acedSSGet(L"X", nullptr, nullptr, filter, set) != RTNORM) {
      EXPECT_EQ(set[0], 0);
      EXPECT_EQ(set[1], 0);
      return -1;
    }
    std::int32_t length = 0;
    EXPECT_EQ(acedSSLength(set, &length), RTNORM);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(acedSSLength(set, &length), RTERROR);
    return length;
  }
  int countOf(resbuf* filter) {
    const int found = count(filter);
    acutRelRb(filter);
    return found;
  }
  void mark(const wchar_t* application) {
    ads_name last;
    ASSERT_EQ(acdbEntLast(last), RTNORM);
    resbuf* chain = acutBuildList(RTSTR, L"x", RTNONE);
    EXPECT_EQ(AddXdata(last, application, chain), RTNORM);
    acutRelRb(chain);
  }
};

TEST_F(HostSelections, EmptyDrawingHasNothing) {
  EXPECT_EQ(count(nullptr), -1);
  ads_name last;
  EXPECT_EQ(acdbEntLast(last), RTERROR);
  EXPECT_EQ(last[0], 0);
  AcDbObjectId id;
  EXPECT_EQ(acdbGetObjectId(id, last), Acad::eNullObjectId);
  EXPECT_TRUE(id.isNull());
}

TEST_F(HostSelections, FilterByTypeLayerAndApplication) {
  type("POINT 0,0\nLAYER M A\n\nPOINT 1,1\nCIRCLE 0,0 1\n");
  mark(L"ZHLKFZGN");
  type("POINT 2,2\n");
  mark(L"ZHLKFZGN");
  EXPECT_EQ(count(nullptr), 4);
  EXPECT_EQ(countOf(acutBuildList(RTDXF0, L"POINT", RTNONE)), 3);
  EXPECT_EQ(countOf(acutBuildList(RTDXF0, L"point", 8, L"a", RTNONE)), 2);
  EXPECT_EQ(countOf(acutBuildList(8, L"A", RTNONE)), 3);
  EXPECT_EQ(countOf(acutBuildList(-3, 1001, L"zhlkfzgn", RTNONE)), 2);
  EXPECT_EQ(countOf(acutBuildList(RTDXF0, L"POINT", 8, L"A", -3, 1001, L"ZHLKFZGN", RTNONE)), 1);
  EXPECT_EQ(countOf(acutBuildList(RTDXF0, L"ARC", RTNONE)), -1);
  EXPECT_EQ(countOf(acutBuildList(8, L"nosuch", RTNONE)), -1);
  EXPECT_EQ(countOf(acutBuildList(-3, 1001, L"nosuch", RTNONE)), -1);
}

TEST_F(HostSelections, OldestComesFirstWhateverWasChangedSince) {
  type("POINT 1,1\n");
  mark(L"APP");
  type("POINT 2,2\n");
  mark(L"APP");
  ads_name set, first, last;
  resbuf* filter = acutBuildList(-3, 1001, L"APP", RTNONE);
  ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, filter, set), RTNORM);
  acutRelRb(filter);
  ASSERT_EQ(acedSSName(set, 0, first), RTNORM);
  ASSERT_EQ(acedSSName(set, 1, last), RTNORM);
  ads_name newest;
  acdbEntLast(newest);
  EXPECT_EQ(last[0], newest[0]);
  EXPECT_NE(first[0], newest[0]);
  EXPECT_EQ(acedSSName(set, 2, first), RTERROR);
  EXPECT_EQ(acedSSName(set, -1, first), RTERROR);
}

TEST_F(HostSelections, ErasedAndUndoneEntitiesAreLeftOut) {
  type("POINT 1,1\nPOINT 2,2\nERASE L\n\n");
  EXPECT_EQ(count(nullptr), 1);
  type("U\n");
  EXPECT_EQ(count(nullptr), 2);
}

TEST_F(HostSelections, EntitiesOfBlocksAreLeftOut) {
  type("POINT 1,1\n");
  ASSERT_TRUE(session.saveDrawing(pathOf("b.dwg")).ok());
  ASSERT_TRUE(session.newDrawing().ok());
  type("INSERT " + pathOf("b.dwg") + " 0,0 1 1 0\n");
  EXPECT_EQ(countOf(acutBuildList(RTDXF0, L"POINT", RTNONE)), -1);
  EXPECT_EQ(countOf(acutBuildList(RTDXF0, L"POINT", 8, L"0", RTNONE)), -1);
  EXPECT_EQ(count(nullptr), 1);
}

TEST_F(HostSelections, OtherModesAndStrangeNamesAreRefused) {
  type("POINT 1,1\n");
  ads_name set;
  EXPECT_EQ(acedSSGet(L"W", nullptr, nullptr, nullptr, set), RTERROR);
  EXPECT_EQ(acedSSGet(nullptr, nullptr, nullptr, nullptr, set), RTERROR);
  ads_name entity;
  acdbEntLast(entity);
  std::int32_t length;
  EXPECT_EQ(acedSSLength(entity, &length), RTERROR);
  EXPECT_EQ(acedSSName(entity, 0, set), RTERROR);
  EXPECT_EQ(acedSSFree(entity), RTERROR);
}

TEST_F(HostSelections, ServicesFailOnDemand) {
  type("POINT 1,1\n");
  ads_name set, entity;
  for (const char* service : {"acedSSGet", "acdbEntLast", "acdbGetObjectId", "acdbRegApp"})
    session.faults.failAt(service, 1);
  EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, set), RTERROR);
  EXPECT_EQ(acdbEntLast(entity), RTERROR);
  ASSERT_EQ(acdbEntLast(entity), RTNORM);
  AcDbObjectId id;
  EXPECT_NE(acdbGetObjectId(id, entity), Acad::eOk);
  EXPECT_EQ(acdbRegApp(L"APP"), RTERROR);
  EXPECT_EQ(acdbRegApp(L"APP"), RTNORM);
  EXPECT_EQ(acdbRegApp(L"app"), RTNORM);
  ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, set), RTNORM);
  session.faults.failAt("acedSSName", 1);
  EXPECT_EQ(acedSSName(set, 0, entity), RTERROR);
}

}  // namespace

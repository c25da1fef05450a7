// Databases, ids, and objects opened for reading and writing.
#include <memory>

#include "embedded/base/text.h"
#include "platform/acad.h"
#include "platform/common_funcs.h"
#include "platform/db_object.h"
#include "support/session_fixture.h"

namespace {

AcDbDatabase& working() { return *acdbHostApplicationServices()->workingDatabase(); }

class HostObjects : public test::SessionFixture {
 protected:
  AcDbObjectId lastId() {
    ads_name name;
    AcDbObjectId id;
    EXPECT_EQ(acdbEntLast(name), RTNORM);
    EXPECT_EQ(acdbGetObjectId(id, name), Acad::eOk);
    return id;
  }
  // A block of a line and a circle, the line red, placed once.
  void insertBlock() {
    type("COLOR 1\nLINE 0,0 1,0\n\nCOLOR BYLAYER\nCIRCLE 0,0 1\n");
    ASSERT_TRUE(session.saveDrawing(pathOf("figure.dwg")).ok());
    ASSERT_TRUE(session.newDrawing().ok());
    type("INSERT " + pathOf("figure.dwg") + " 5,5 1 1 0\n");
    ASSERT_EQ(entities(), std::vector<std::string>{"INSERT figure 5,5"});
  }
};

Acad::ErrorStatus openEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode) {
  return acdbOpenAcDbEntity(entity, id, mode);
}

TEST_F(HostObjects, SameObjectHasTheSameId) {
  type("POINT 1,1\n");
  const AcDbObjectId id = lastId();
  EXPECT_TRUE(c5ObjIdIsEqualTo(id, lastId()));
  EXPECT_TRUE(c5ObjIdIsEqualTo(AcDbObjectId(), AcDbObjectId()));
  EXPECT_FALSE(c5ObjIdIsEqualTo(id, AcDbObjectId()));
  type("POINT 2,2\n");
  EXPECT_FALSE(c5ObjIdIsEqualTo(id, lastId()));
}

TEST_F(HostObjects, IdIsFoundByHandleAlsoOfWhatIsErased) {
  type("POINT 1,1\n");
  AcDbEntity* point = nullptr;
  ASSERT_EQ(openEntity(point, lastId(), AcDb::kForRead), Acad::eOk);
  AcDbHandle handle;
  point->getAcDbHandle(handle);
  point->close();
  const AcDbObjectId id = lastId();
  type("ERASE L\n\n");
  wchar_t text[AcDbHandle::kAsciiSize];
  handle.getIntoAsciiBuffer(text);
  AcDbHandle again;
  again = text;
  AcDbObjectId found;
  EXPECT_EQ(working().getAcDbObjectId(found, false, again, 0), Acad::eOk);
  EXPECT_TRUE(c5ObjIdIsEqualTo(found, id));
  EXPECT_EQ(openEntity(point, found, AcDb::kForRead), Acad::eWasErased);
  EXPECT_EQ(point, nullptr);
}

TEST_F(HostObjects, UnknownHandleLeavesTheIdAlone) {
  type("POINT 1,1\n");
  AcDbObjectId id = lastId();
  AcDbHandle handle;
  handle = L"FFFFFFF";
  EXPECT_EQ(working().getAcDbObjectId(id, false, handle, 0), Acad::eUnknownHandle);
  handle = L"空";
  EXPECT_TRUE(handle.isNull());
  EXPECT_EQ(working().getAcDbObjectId(id, false, handle, 0), Acad::eUnknownHandle);
  EXPECT_TRUE(c5ObjIdIsEqualTo(id, lastId()));
}

TEST_F(HostObjects, HandlesAreWrittenAndReadAsHexadecimal) {
  wchar_t text[AcDbHandle::kAsciiSize];
  AcDbHandle(0x1F3Aull).getIntoAsciiBuffer(text);
  EXPECT_STREQ(text, L"1F3A");
  AcDbHandle(~0ull).getIntoAsciiBuffer(text);
  EXPECT_STREQ(text, L"FFFFFFFFFFFFFFFF");
  AcDbHandle().getIntoAsciiBuffer(text);
  EXPECT_STREQ(text, L"0");
  AcDbHandle handle;
  handle = L"1f3a";
  EXPECT_EQ(handle.value(), 0x1F3Aull);
  handle = L"11112222333344445";  // too long for 64 bits
  EXPECT_TRUE(handle.isNull());
}

TEST_F(HostObjects, ManyReadOrOneWrites) {
  type("POINT 1,1\n");
  const AcDbObjectId id = lastId();
  AcDbEntity *one = nullptr, *two = nullptr, *writer = nullptr;
  ASSERT_EQ(openEntity(one, id, AcDb::kForRead), Acad::eOk);
  ASSERT_EQ(openEntity(two, id, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(openEntity(writer, id, AcDb::kForWrite), Acad::eWasOpenForRead);
  EXPECT_EQ(writer, nullptr);
  EXPECT_EQ(one->upgradeOpen(), Acad::eWasOpenForRead);
  EXPECT_EQ(one->setColorIndex(3), Acad::eWasOpenForRead);
  two->close();
  EXPECT_EQ(one->upgradeOpen(), Acad::eOk);
  EXPECT_EQ(one->upgradeOpen(), Acad::eOk);
  EXPECT_EQ(openEntity(writer, id, AcDb::kForRead), Acad::eWasOpenForWrite);
  EXPECT_EQ(openEntity(writer, id, AcDb::kForWrite), Acad::eWasOpenForWrite);
  EXPECT_EQ(one->setColorIndex(3), Acad::eOk);
  one->close();
  ASSERT_EQ(openEntity(writer, id, AcDb::kForWrite), Acad::eOk);
  writer->close();
  EXPECT_EQ(entities(), std::vector<std::string>{"POINT 1,1 colour 3"});
}

TEST_F(HostObjects, ObjectMayGoWhileItIsOpen) {
  type("POINT 1,1\n");
  const AcDbObjectId id = lastId();
  AcDbEntity* point = nullptr;
  ASSERT_EQ(openEntity(point, id, AcDb::kForWrite), Acad::eOk);
  EXPECT_EQ(EraseObject(id), RTNORM);
  EXPECT_EQ(EraseObject(id), RTERROR);
  EXPECT_EQ(point->setColorIndex(3), Acad::eWasErased);
  EXPECT_EQ(point->colorIndex(), 256);
  EXPECT_TRUE(point->layerId().isNull());
  EXPECT_EQ(point->xData(L"APP"), nullptr);
  point->close();
}

TEST_F(HostObjects, DrawingMayGoWhileAnObjectIsOpen) {
  type("POINT 1,1\n");
  AcDbEntity* point = nullptr;
  ASSERT_EQ(openEntity(point, lastId(), AcDb::kForWrite), Acad::eOk);
  ASSERT_TRUE(session.newDrawing().ok());
  EXPECT_EQ(point->setColorIndex(3), Acad::eWasErased);
  EXPECT_EQ(point->colorIndex(), 256);
  point->close();
}

TEST_F(HostObjects, KindsAreTold) {
  insertBlock();
  AcDbObject* object = nullptr;
  ASSERT_EQ(acdbOpenAcDbObject(object, lastId(), AcDb::kForRead), Acad::eOk);
  EXPECT_TRUE(object->isKindOf(AcDbEntity::desc()));
  EXPECT_TRUE(object->isKindOf(AcDbObject::desc()));
  auto* reference = AcDbBlockReference::cast(object);
  ASSERT_NE(reference, nullptr);
  EXPECT_EQ(AcDbBlockTableRecord::cast(object), nullptr);
  EXPECT_EQ(AcDbEntity::cast(nullptr), nullptr);
  const AcDbObjectId record = reference->blockTableRecord();
  const AcDbObjectId layer = reference->layerId();
  object->close();
  AcDbEntity* entity = nullptr;
  EXPECT_EQ(openEntity(entity, record, AcDb::kForRead), Acad::eNotThatKindOfClass);
  EXPECT_EQ(openEntity(entity, AcDbObjectId(), AcDb::kForRead), Acad::eNullObjectId);
  ASSERT_EQ(acdbOpenAcDbObject(object, layer, AcDb::kForRead), Acad::eOk);
  ASSERT_NE(AcDbLayerTableRecord::cast(object), nullptr);
  EXPECT_EQ(AcDbLayerTableRecord::cast(object)->color().colorIndex(), 7);
  object->close();
}

TEST_F(HostObjects, BlockIsWalkedInItsOrder) {
  insertBlock();
  AcDbEntity* entity = nullptr;
  ASSERT_EQ(openEntity(entity, lastId(), AcDb::kForRead), Acad::eOk);
  AcDbObject* object = nullptr;
  ASSERT_EQ(acdbOpenAcDbObject(object, AcDbBlockReference::cast(entity)->blockTableRecord(),
                               AcDb::kForRead),
            Acad::eOk);
  entity->close();
  AcDbBlockTableRecordIterator* raw = nullptr;
  ASSERT_EQ(AcDbBlockTableRecord::cast(object)->newIterator(raw), Acad::eOk);
  const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(raw);
  std::vector<int> colours;
  for (iterator->start(); !iterator->done(); iterator->step()) {
    ASSERT_EQ(iterator->getEntity(entity, AcDb::kForRead), Acad::eOk);
    colours.push_back(entity->colorIndex());
    entity->close();
  }
  EXPECT_EQ(colours, (std::vector<int>{1, 256}));
  AcDbObjectId id;
  EXPECT_EQ(iterator->getEntity(entity, AcDb::kForRead), Acad::eInvalidInput);
  EXPECT_EQ(iterator->getEntityId(id), Acad::eInvalidInput);
  iterator->start(false);
  ASSERT_EQ(iterator->getEntityId(id), Acad::eOk);
  iterator->step(false);
  EXPECT_FALSE(iterator->done());
  iterator->step(false);
  EXPECT_TRUE(iterator->done());
  object->close();
}

TEST_F(HostObjects, ColourIsCheckedAndUndone) {
  type("POINT 1,1\n");
  AcDbEntity* point = nullptr;
  ASSERT_EQ(openEntity(point, lastId(), AcDb::kForWrite), Acad::eOk);
  EXPECT_EQ(point->setColorIndex(257), Acad::eInvalidInput);
  EXPECT_EQ(point->setColorIndex(0), Acad::eOk);
  point->close();
  EXPECT_EQ(entities(), std::vector<std::string>{"POINT 1,1 colour 0"});
  type("U\n");
  EXPECT_EQ(entities(), std::vector<std::string>{"POINT 1,1"});
}

TEST_F(HostObjects, ExtendedDataOfEveryKindComesBack) {
  type("POINT 1,1\n");
  acdbRegApp(L"APP");
  AcDbEntity* point = nullptr;
  ASSERT_EQ(openEntity(point, lastId(), AcDb::kForWrite), Acad::eOk);
  const double at[3] = {1, 2, 3};
  resbuf* chain =
      acutBuildList(1001, L"APP", 1000, L"回路", 1002, L"{", 1003, L"0", 1005, L"1F", 1002, L"}",
                    1010, at, 1011, at, 1040, 2.5, 1041, 3.5, 1070, -7, 1071, 70000, RTNONE);
  EXPECT_EQ(point->setXData(chain), Acad::eOk);
  resbuf* back = point->xData(L"app");
  const resbuf* b = back ? back->rbnext : nullptr;
  for (const resbuf* a = chain->rbnext; a; a = a->rbnext, b = b->rbnext) {
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(a->restype, b->restype);
    switch (a->restype) {
      case 1000:
      case 1002:
      case 1003:
      case 1005: EXPECT_STREQ(a->resval.rstring, b->resval.rstring); break;
      case 1010:
      case 1011: EXPECT_EQ(b->resval.rpoint[2], 3); break;
      case 1070: EXPECT_EQ(a->resval.rint, b->resval.rint); break;
      case 1071: EXPECT_EQ(a->resval.rlong, b->resval.rlong); break;
      default: EXPECT_EQ(a->resval.rreal, b->resval.rreal);
    }
  }
  EXPECT_EQ(b, nullptr);
  acutRelRb(back);
  acutRelRb(chain);
  chain = acutBuildList(1001, L"APP", RTNONE);  // the name alone takes the data away
  EXPECT_EQ(point->setXData(chain), Acad::eOk);
  acutRelRb(chain);
  EXPECT_EQ(point->xData(L"APP"), nullptr);
  point->close();
}

TEST_F(HostObjects, ExtendedDataThatCannotStandIsRefused) {
  type("POINT 1,1\n");
  acdbRegApp(L"APP");
  AcDbEntity* point = nullptr;
  ASSERT_EQ(openEntity(point, lastId(), AcDb::kForRead), Acad::eOk);
  const auto set = [&](resbuf* chain) {
    const Acad::ErrorStatus status = point->setXData(chain);
    acutRelRb(chain);
    return status;
  };
  EXPECT_EQ(set(acutBuildList(1001, L"APP", 1000, L"x", RTNONE)), Acad::eWasOpenForRead);
  ASSERT_EQ(point->upgradeOpen(), Acad::eOk);
  EXPECT_EQ(set(acutBuildList(1001, L"UNKNOWN", 1000, L"x", RTNONE)), Acad::eRegappIdNotFound);
  EXPECT_EQ(set(acutBuildList(1000, L"x", RTNONE)), Acad::eInvalidInput);
  EXPECT_EQ(set(acutBuildList(1001, L"APP", 40, 2.5, RTNONE)), Acad::eInvalidInput);
  const std::wstring tooLong(300, L'x');
  EXPECT_EQ(set(acutBuildList(1001, L"APP", 1000, tooLong.c_str(), RTNONE)), Acad::eInvalidInput);
  EXPECT_EQ(point->setXData(nullptr), Acad::eInvalidInput);
  EXPECT_EQ(point->xData(L"APP"), nullptr);
  point->close();
}

TEST_F(HostObjects, AddXdataRegistersTheApplication) {
  type("POINT 1,1\n");
  ads_name last;
  acdbEntLast(last);
  resbuf* chain = acutBuildList(RTSTR, L"a&b", RTNONE);
  EXPECT_EQ(AddXdata(last, L"TKSY", chain), RTNORM);
  acutRelRb(chain);
  EXPECT_EQ(entities(), std::vector<std::string>{"POINT 1,1 {TKSY 1000:a&b}"});
  const ads_name nothing = {0, 0};
  EXPECT_EQ(AddXdata(nothing, L"TKSY", nullptr), RTERROR);
}

TEST_F(HostObjects, OpeningFailsOnDemand) {
  type("POINT 1,1\n");
  AcDbEntity* entity = nullptr;
  AcDbObject* object = nullptr;
  session.faults.failAt("acdbOpenAcDbEntity", 1);
  EXPECT_NE(openEntity(entity, lastId(), AcDb::kForRead), Acad::eOk);
  session.faults.failAt("acdbOpenAcDbObject", 1);
  EXPECT_NE(acdbOpenAcDbObject(object, lastId(), AcDb::kForRead), Acad::eOk);
  ASSERT_EQ(openEntity(entity, lastId(), AcDb::kForRead), Acad::eOk);
  session.faults.failAt("upgradeOpen", 1);
  EXPECT_NE(entity->upgradeOpen(), Acad::eOk);
  entity->close();
}

TEST_F(HostObjects, DatabasesOfTheirOwnAreReadAndSaved) {
  type("POINT 1,1\nSETVAR INSBASE 3,4\n");
  ASSERT_TRUE(session.saveDrawing(pathOf("a.dwg")).ok());
  AcDbDatabase own(false, true);
  const std::wstring a = base::wideFromUtf8(pathOf("a.dwg"));
  const std::wstring b = base::wideFromUtf8(pathOf("b.dwg"));
  ASSERT_EQ(own.readDwgFile(a.c_str(), 0, false, nullptr), Acad::eOk);
  EXPECT_EQ(own.insbase().x, 3);
  EXPECT_EQ(own.saveAs(b.c_str(), false, 23, nullptr), Acad::eOk);
  EXPECT_TRUE(std::filesystem::exists(folder / "b.dwg"));
  const std::wstring absent = base::wideFromUtf8(pathOf("absent.dwg"));
  EXPECT_EQ(own.readDwgFile(absent.c_str(), 0, false, nullptr), Acad::eFileAccessErr);
  EXPECT_EQ(own.insbase().x, 3);  // what was read before is kept
  const std::wstring nowhere = base::wideFromUtf8(pathOf("no/b.dwg"));
  EXPECT_EQ(own.saveAs(nowhere.c_str(), false, 23, nullptr), Acad::eFileAccessErr);
  session.faults.failAt("readDwgFile", 1);
  EXPECT_NE(own.readDwgFile(a.c_str(), 0, false, nullptr), Acad::eOk);
  session.faults.failAt("saveAs", 1);
  EXPECT_NE(own.saveAs(b.c_str(), false, 23, nullptr), Acad::eOk);
}

TEST_F(HostObjects, WorkingDatabaseIsTheOpenDrawing) {
  AcDbDatabase* const before = &working();
  EXPECT_EQ(before, &working());
  type("SETVAR DIMSCALE 50\n");
  EXPECT_EQ(TqDbGetPrintScale(nullptr), 50.0);
  EXPECT_EQ(TqDbGetPrintScale(&working()), 50.0);
  ASSERT_TRUE(session.newDrawing().ok());
  EXPECT_EQ(TqDbGetPrintScale(nullptr), 1.0);
  EXPECT_EQ(TqDbGetPrintScale(&working()), 1.0);
}

TEST(HostGeometry, PointsCompareWithTheGlobalTolerance) {
  const AcGePoint2d point{1e-11, 0};
  EXPECT_TRUE(point.isEqualTo(AcGePoint2d()));
  EXPECT_FALSE((AcGePoint2d{1e-9, 0}).isEqualTo(AcGePoint2d()));
  AcGeTol wide;
  wide.setEqualPoint(1);
  EXPECT_TRUE((AcGePoint2d{0.5, 0}).isEqualTo(AcGePoint2d(), wide));
  EXPECT_EQ((AcGePoint3d{0, 0, 3}).distanceTo(AcGePoint3d{0, 4, 0}), 5);
  EXPECT_FALSE((AcGePoint3d{0, 0, 1}).isEqualTo(AcGePoint3d()));
}

TEST_F(HostObjects, LayerThatIsNamedIsTheOneMadeCurrent) {
  for (const auto& [group, kind] :
       {std::pair(L"SCHEMATIC", L"ELEMENT"), {L"DISTRIBUTION", L"ATTPOINT"}}) {
    LayerInfo layer;
    EXPECT_EQ(GetDQLayerName(group, kind, layer), RTNORM);
    EXPECT_EQ(SetToCurrentLayer(group, kind, nullptr, nullptr), RTNORM);
    EXPECT_EQ(session.variables.text("CLAYER"), base::utf8FromWide(layer.name));
  }
}

TEST_F(HostObjects, LayersByKeyAreMadeAndMadeCurrent) {
  LayerInfo layer;
  ASSERT_EQ(GetDQLayerName(L"SCHEMATIC", L"ELEMENT", layer), RTNORM);
  EXPECT_EQ(layer.name, L"SCHEMATIC-ELEMENT");
  EXPECT_EQ(layer.colour, 3);
  EXPECT_EQ(GetDQLayerName(L"NO", L"SUCH", layer), RTERROR);
  EXPECT_EQ(SetToCurrentLayer(L"DISTRIBUTION", L"ATTPOINT", nullptr, nullptr), RTNORM);
  EXPECT_EQ(session.variables.text("CLAYER"), "DISTRIBUTION-ATTPOINT");
  EXPECT_NE(SetToCurrentLayer(L"NO", L"SUCH", nullptr, nullptr), RTNORM);
  EXPECT_EQ(session.variables.text("CLAYER"), "DISTRIBUTION-ATTPOINT");
}

}  // namespace

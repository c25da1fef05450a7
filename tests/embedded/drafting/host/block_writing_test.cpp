// Writing a block out into a drawing of its own, and the arrowhead settings.
#include <memory>

#include "embedded/drafting/host/host_state.h"
#include "platform/acad.h"
#include "support/session_fixture.h"

namespace {

AcDbDatabase& working() { return *acdbHostApplicationServices()->workingDatabase(); }

class BlockWriting : public test::SessionFixture {
 protected:
  // A block "figure" with base point 1,2: a red line on a layer, an attribute definition's text and
  // a block within it.
  AcDbObjectId insertFigure() {
    type("POINT 3,3\n");
    EXPECT_TRUE(session.saveDrawing(pathOf("inner.dwg")).ok());
    EXPECT_TRUE(session.newDrawing().ok());
    type("LAYER M WIRES\n\nCOLOR 1\nLINE 0,0 1,0\n\nINSERT " + pathOf("inner.dwg") +
         " 5,5 1 1 0\n");
    session.database().setVariable("INSBASE", drafting::Point3{1, 2, 0});
    EXPECT_TRUE(session.saveDrawing(pathOf("figure.dwg")).ok());
    EXPECT_TRUE(session.newDrawing().ok());
    type("INSERT " + pathOf("figure.dwg") + " 5,5 1 1 0\n");
    AcDbHandle handle(session.database().findRecord(drafting::Table::Blocks, "figure"));
    AcDbObjectId id;
    EXPECT_EQ(working().getAcDbObjectId(id, false, handle), Acad::eOk);
    return id;
  }
  const drafting::Database& databaseOf(const AcDbDatabase& database) {
    return *database.state()->database();
  }
};

TEST_F(BlockWriting, BlockBecomesADrawingOfItsOwn) {
  const AcDbObjectId figure = insertFigure();
  session.database().setVariable("LTSCALE", 2.5);
  AcDbDatabase* out = nullptr;
  ASSERT_EQ(working().wblock(out, figure), Acad::eOk);
  const std::unique_ptr<AcDbDatabase> owned(out);
  const drafting::Database& written = databaseOf(*out);
  EXPECT_EQ(test::describeModelSpace(written).size(), 2u);
  EXPECT_EQ(written.header.point("INSBASE"), (drafting::Point3{1, 2, 0}));
  EXPECT_EQ(written.header.real("LTSCALE"), 2.5);
  const auto* line = dynamic_cast<const drafting::Line*>(written.modelSpace().first);
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->colour, 1);
  EXPECT_EQ(written.recordName(line->layer), "WIRES");
  EXPECT_NE(written.findRecord(drafting::Table::Blocks, "inner"), 0u);
  EXPECT_EQ(written.findRecord(drafting::Table::Blocks, "figure"), 0u);
}

TEST_F(BlockWriting, WrittenDrawingIsSavedAndReadAgain) {
  const AcDbObjectId figure = insertFigure();
  auto made = std::make_unique<AcDbDatabase>(true, false);
  AcDbDatabase* out = made.get();
  ASSERT_EQ(working().wblock(out, figure), Acad::eOk);
  ASSERT_NE(out, made.get());
  const std::unique_ptr<AcDbDatabase> owned(out);
  const std::wstring path = base::wideFromUtf8(pathOf("out.dwg"));
  ASSERT_EQ(owned->saveAs(path.c_str(), false, 23, nullptr), Acad::eOk);
  AcDbDatabase again(false, false);
  ASSERT_EQ(again.readDwgFile(path.c_str(), 32, false, nullptr), Acad::eOk);
  EXPECT_EQ(test::describeModelSpace(databaseOf(again)),
            test::describeModelSpace(databaseOf(*owned)));
}

TEST_F(BlockWriting, WhatIsNoBlockOfTheDrawingIsRefused) {
  const AcDbObjectId figure = insertFigure();
  AcDbDatabase* out = nullptr;
  EXPECT_EQ(working().wblock(out, AcDbObjectId()), Acad::eNullObjectId);
  AcDbObjectId insert;
  ads_name last;
  ASSERT_EQ(acdbEntLast(last), RTNORM);
  ASSERT_EQ(acdbGetObjectId(insert, last), Acad::eOk);
  EXPECT_EQ(working().wblock(out, insert), Acad::eNotThatKindOfClass);
  AcDbDatabase other(true, false);
  EXPECT_EQ(other.wblock(out, figure), Acad::eInvalidInput);
  session.faults.failAt("wblock", 1);
  EXPECT_EQ(working().wblock(out, figure), Acad::eFilerError);
  EXPECT_EQ(out, nullptr);
}

TEST_F(BlockWriting, ArrowheadsAreUsualOrABlock) {
  insertFigure();
  const drafting::Handle block = session.database().findRecord(drafting::Table::Blocks, "figure");
  EXPECT_EQ(working().setDimblk(L"FIGURE"), Acad::eOk);
  EXPECT_EQ(working().setDimblk1(L"figure"), Acad::eOk);
  EXPECT_EQ(working().setDimblk2(L"figure"), Acad::eOk);
  for (const char* variable : {"DIMBLK", "DIMBLK1", "DIMBLK2"}) {
    EXPECT_EQ(session.database().header.handle(variable), block) << variable;
  }
  EXPECT_EQ(working().setDimblk(L"nothing"), Acad::eKeyNotFound);
  EXPECT_EQ(session.database().header.handle("DIMBLK"), block);
  EXPECT_EQ(working().setDimblk(L"."), Acad::eOk);
  EXPECT_EQ(working().setDimblk1(L""), Acad::eOk);
  EXPECT_EQ(session.database().header.handle("DIMBLK"), 0u);
  EXPECT_EQ(session.database().header.handle("DIMBLK1"), 0u);
  EXPECT_EQ(session.database().header.handle("DIMBLK2"), block);
}

}  // namespace

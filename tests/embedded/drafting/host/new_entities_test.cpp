// Entities and drawings that a module puts together.
#include <memory>

#include "embedded/drafting/host/host_state.h"
#include "platform/acad.h"
#include "support/session_fixture.h"

namespace {

class NewEntities : public test::SessionFixture {
 protected:
  NewEntities() {
    EXPECT_EQ(database_.getSymbolTable(table_, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(table_->getAt(kModelSpaceName, space_, AcDb::kForWrite), Acad::eOk);
  }
  ~NewEntities() override {
    space_->close();
    table_->close();
  }
  const drafting::Database& drawing() { return *database_.state()->database(); }
  std::vector<std::string> described() { return test::describeModelSpace(drawing()); }

  // A drawing with every kind of entity at the origin of itself.
  std::unique_ptr<AcDbDatabase> other() {
    auto made = std::make_unique<AcDbDatabase>(true, false);
    AcDbBlockTable* table = nullptr;
    AcDbBlockTableRecord* space = nullptr;
    EXPECT_EQ(made->getSymbolTable(table, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(table->getAt(kModelSpaceName, space, AcDb::kForWrite), Acad::eOk);
    table->close();
    auto* line = new AcDbLine({0, 0, 0}, {1, 2, 3});
    EXPECT_EQ(space->appendAcDbEntity(line), Acad::eOk);
    line->close();
    space->close();
    return made;
  }

  AcDbDatabase database_{true, false};
  AcDbBlockTable* table_ = nullptr;
  AcDbBlockTableRecord* space_ = nullptr;
};

TEST_F(NewEntities, LineAndTextJoinTheDrawing) {
  auto* line = new AcDbLine({1, 2, 3}, {4, 5, 6});
  EXPECT_EQ(line->setColorIndex(3, true), Acad::eOk);
  EXPECT_EQ(line->colorIndex(), 3);
  EXPECT_TRUE(line->objectId().isNull());
  EXPECT_TRUE(line->layerId().isNull());
  ASSERT_EQ(space_->appendAcDbEntity(line), Acad::eOk);
  EXPECT_FALSE(line->objectId().isNull());
  EXPECT_EQ(line->colorIndex(), 3);
  line->close();
  auto* text = new AcDbText({7, 8, 9}, L"主回路", {}, 2.5, 0.5);
  ASSERT_EQ(space_->appendAcDbEntity(text), Acad::eOk);
  text->close();
  const auto* first = dynamic_cast<const drafting::Line*>(drawing().modelSpace().first);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->start, (drafting::Point3{1, 2, 3}));
  EXPECT_EQ(first->end, (drafting::Point3{4, 5, 6}));
  EXPECT_EQ(drawing().recordName(first->layer), "0");
  const auto* second = dynamic_cast<const drafting::Text*>(first->next);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(second->text, "主回路");
  EXPECT_EQ(second->elevation, 9);
  EXPECT_EQ(second->height, 2.5);
  EXPECT_EQ(second->rotation, 0.5);
  EXPECT_EQ(drawing().recordName(second->style), "Standard");
}

TEST_F(NewEntities, WhatJoinedIsOpenForWritingUntilItIsClosed) {
  auto* line = new AcDbLine({0, 0, 0}, {1, 1, 0});
  ASSERT_EQ(space_->appendAcDbEntity(line), Acad::eOk);
  const AcDbObjectId id = line->objectId();
  AcDbEntity* again = nullptr;
  EXPECT_EQ(acdbOpenAcDbEntity(again, id, AcDb::kForRead), Acad::eWasOpenForWrite);
  line->close();
  ASSERT_EQ(acdbOpenAcDbEntity(again, id, AcDb::kForRead), Acad::eOk);
  again->close();
}

TEST_F(NewEntities, EntityJoinsOnce) {
  auto* line = new AcDbLine({0, 0, 0}, {1, 1, 0});
  ASSERT_EQ(space_->appendAcDbEntity(line), Acad::eOk);
  EXPECT_EQ(space_->appendAcDbEntity(line), Acad::eInvalidInput);
  line->close();
  EXPECT_EQ(described().size(), 1u);
}

TEST_F(NewEntities, EntityThatCannotJoinStaysTheCallers) {
  session.faults.failAt("appendAcDbEntity", 1);
  const auto line = std::make_unique<AcDbLine>(AcGePoint3d{}, AcGePoint3d{1, 0, 0});
  EXPECT_EQ(space_->appendAcDbEntity(line.get()), Acad::eOutOfMemory);
  EXPECT_TRUE(described().empty());
}

TEST_F(NewEntities, ExtendedDataNeedsADrawing) {
  AcDbLine line({0, 0, 0}, {1, 0, 0});
  resbuf chain{};
  chain.restype = 1001;
  EXPECT_EQ(line.setXData(&chain), Acad::eNoDatabase);
  EXPECT_EQ(line.xData(L"TKSY"), nullptr);
  AcDbHandle handle(7);
  line.getAcDbHandle(handle);
  EXPECT_TRUE(handle.isNull());
}

TEST_F(NewEntities, TableKnowsItsBlocks) {
  AcDbBlockTableRecord* record = space_;
  EXPECT_EQ(table_->getAt(L"no such block", record, AcDb::kForRead), Acad::eKeyNotFound);
  EXPECT_EQ(record, nullptr);
  EXPECT_EQ(table_->getAt(kModelSpaceName, record, AcDb::kForRead), Acad::eWasOpenForWrite);
}

TEST_F(NewEntities, InsertingMovesTheOtherDrawing) {
  AcGeMatrix3d matrix;
  matrix.setToTranslation({10, 20, 30});
  const auto source = other();
  ASSERT_EQ(database_.insert(matrix, source.get(), true), Acad::eOk);
  const auto* line = dynamic_cast<const drafting::Line*>(drawing().modelSpace().first);
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->start, (drafting::Point3{10, 20, 30}));
  EXPECT_EQ(line->end, (drafting::Point3{11, 22, 33}));
  EXPECT_EQ(test::describeModelSpace(*source->state()->database()).size(), 1u);
}

TEST_F(NewEntities, InsertingRefusesWhatItCannotDo) {
  const auto source = other();
  AcGeMatrix3d larger;
  larger(1, 1) = 2;
  EXPECT_EQ(database_.insert(larger, source.get(), true), Acad::eNotImplementedYet);
  AcGeMatrix3d skewed;
  skewed(3, 3) = 2;
  EXPECT_EQ(database_.insert(skewed, source.get(), true), Acad::eNotImplementedYet);
  EXPECT_EQ(database_.insert(AcGeMatrix3d(), nullptr, true), Acad::eInvalidInput);
  session.faults.failAt("insert", 1);
  EXPECT_EQ(database_.insert(AcGeMatrix3d(), source.get(), true), Acad::eFilerError);
  EXPECT_TRUE(described().empty());
}

}  // namespace

// Whole drawings written as DXF and read again.
#include <gtest/gtest.h>

#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/dwg/object_image.h"
#include "embedded/drafting/dwg/sample_drawing.h"
#include "embedded/drafting/dxf/dxf_text.h"

namespace drafting {
namespace {

// What a DXF file has no place for, or says in one way only, is given the value it will have.
void makeCarried(Database& db) {
  const Handle standard = db.findRecord(Table::Styles, "Standard");
  db.forEach([standard](Object& object) {
    if (object.kind == Kind::MText) static_cast<MText&>(object).unknown = false;
    if (object.kind == Kind::MText) static_cast<MText&>(object).style = standard;
    if (auto* text = dynamic_cast<TextBase*>(&object); text && text->style == 0) {
      text->style = standard;
    }
  });
}

TEST(DxfFile, SampleDrawingComesBackObjectByObject) {
  const auto db = makeSampleDrawing();
  makeCarried(*db);
  const auto again = drawingOf(dxfOf(*db));
  ASSERT_NE(again, nullptr);
  EXPECT_TRUE(expectSameDrawing(*db, *again, false));
}

}  // namespace
}  // namespace drafting

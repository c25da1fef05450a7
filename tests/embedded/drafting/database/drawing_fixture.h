// A new drawing with short verbs for tests.
#pragma once

#include <gtest/gtest.h>

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/dwg/object_image.h"

namespace drafting {

class DrawingTest : public ::testing::Test {
 protected:
  Handle addLine(double x) { return addLineTo(db->modelSpace(), x); }
  Handle addLineTo(BlockRecord& block, double x) {
    auto line = std::make_unique<Line>();
    line->layer = zero();
    line->start = {x, 0, 0};
    line->end = {x, 10, 0};
    return db->append(block, std::move(line));
  }
  Handle addInsert(Handle block, int attributes = 0) {
    auto insert = std::make_unique<Insert>();
    insert->layer = zero();
    insert->block = block;
    const Handle handle = db->append(db->modelSpace(), std::move(insert));
    for (int i = 0; i < attributes; ++i) {
      auto attribute = std::make_unique<Attrib>();
      attribute->layer = zero();
      attribute->tag = "TAG" + std::to_string(i);
      db->appendAttribute(*db->find<Insert>(handle), std::move(attribute));
    }
    return handle;
  }
  Handle addBlock(const std::string& name) {
    auto block = std::make_unique<BlockRecord>();
    block->name = name;
    return db->addBlock(std::move(block));
  }
  Handle addLayer(const std::string& name) {
    auto layer = std::make_unique<Layer>();
    layer->name = name;
    return db->addRecord(Table::Layers, std::move(layer));
  }
  Handle zero() const { return db->findRecord(Table::Layers, "0"); }

  std::vector<Handle> chain(const BlockRecord& block) const {
    std::vector<Handle> handles;
    const Entity* last = nullptr;
    for (const Entity* e = block.first; e; last = e, e = e->next) {
      EXPECT_EQ(e->previous, last);
      EXPECT_EQ(e->owner, block.handle);
      handles.push_back(e->handle);
    }
    EXPECT_EQ(block.last, last);
    EXPECT_EQ(block.count, handles.size());
    return handles;
  }
  std::vector<Handle> modelChain() const { return chain(db->modelSpace()); }

  // Everything that undo must bring back, as text to compare.
  std::string snapshot() const {
    std::string all;
    db->forEach([&](const Object& object) {
      all += std::to_string(object.handle) + ":" + encodeImage(object);
      if (object.kind != Kind::BlockRecord) return;
      for (const Handle h : chain(static_cast<const BlockRecord&>(object))) {
        all += "," + std::to_string(h);
      }
    });
    all += std::to_string(db->header.real("LTSCALE"));
    return all;
  }

  std::unique_ptr<Database> db = Database::makeNew();
};

}  // namespace drafting

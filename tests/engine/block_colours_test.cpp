// Colours within a placed block, however it is nested.
#include "engine/block_colours.h"

#include "engine/engine_fixture.h"

namespace {

using test::host;
using test::Kind;
using test::Thing;

class BlockColours : public test::EngineFixture {
 protected:
  Thing* record(const wchar_t* name) { return host().add(Kind::record, name); }
  Thing* line(Thing* in) {
    Thing* entity = host().add(Kind::entity, L"LINE");
    entity->colour = 3;
    in->contents.push_back(entity);
    return entity;
  }
  Thing* reference(Thing* to) {
    Thing* entity = host().add(Kind::reference, L"INSERT");
    entity->block = to;
    entity->colour = 5;
    return entity;
  }
  void normalise(Thing* entity) {
    AcDbEntity* opened = nullptr;
    const AcDbObjectId id(static_cast<AcDbStub*>(entity));
    ASSERT_EQ(acdbOpenAcDbEntity(opened, id, AcDb::kForWrite), Acad::eOk);
    NormaliseBlockColours(*opened);
    opened->close();
  }
};

TEST_F(BlockColours, ReferenceGoesByLayerAndItsFigureByBlock) {
  Thing* block = record(L"A01");
  Thing* figure = line(block);
  Thing* outer = reference(block);
  normalise(outer);
  EXPECT_EQ(outer->colour, 256);
  EXPECT_EQ(figure->colour, 0);
}

TEST_F(BlockColours, NestedReferencesGoByBlock) {
  Thing* inner = record(L"inner");
  Thing* figure = line(inner);
  Thing* block = record(L"A01");
  Thing* nested = reference(inner);
  block->contents = {nested, reference(inner)};
  Thing* outer = reference(block);
  normalise(outer);
  EXPECT_EQ(outer->colour, 256);
  EXPECT_EQ(nested->colour, 0);
  EXPECT_EQ(block->contents[1]->colour, 0);
  EXPECT_EQ(figure->colour, 0);
}

TEST_F(BlockColours, BlockThatHoldsItselfEnds) {
  Thing* block = record(L"A01");
  Thing* self = reference(block);
  block->contents = {self};
  normalise(reference(block));
  EXPECT_EQ(self->colour, 0);
}

TEST_F(BlockColours, EntityThatCannotBeOpenedIsLeft) {
  Thing* block = record(L"A01");
  Thing* busy = line(block);
  Thing* free = line(block);
  busy->openForWrite = 1;
  normalise(reference(block));
  busy->openForWrite = 0;
  EXPECT_EQ(busy->colour, 3);
  EXPECT_EQ(free->colour, 0);
}

TEST_F(BlockColours, EntityThatIsNoReferenceGoesByLayer) {
  Thing* plain = host().addEntity(L"LINE");
  plain->colour = 3;
  normalise(plain);
  EXPECT_EQ(plain->colour, 256);
}

}  // namespace

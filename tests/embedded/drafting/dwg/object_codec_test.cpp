#include "embedded/drafting/dwg/object_codec.h"

#include <gtest/gtest.h>

#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/dwg/object_image.h"
#include "embedded/drafting/dwg/sample_drawing.h"

namespace drafting {
namespace {

// A LINE of a real drawing: handle 2C, in model space, from (2,3,4) to (3,4,5).
constexpr unsigned char kLine[] = {
    0x3F, 0x00, 0x44, 0xF7, 0x40, 0x40, 0x00, 0x00, 0x4B, 0x25, 0x74, 0x21, 0xD0, 0x00,
    0x00, 0x00, 0x00, 0x00, 0x00, 0x02, 0x06, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x10,
    0x80, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x10, 0x81, 0x80, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x08, 0x20, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x08, 0x20, 0x60, 0x00, 0x00,
    0x00, 0x00, 0x00, 0x02, 0x88, 0x19, 0x82, 0x88, 0x87, 0xDA, 0x59};

std::string realLine() { return {reinterpret_cast<const char*>(kLine), sizeof kLine}; }

TEST(ObjectCodec, AnObjectOfARealDrawingIsRead) {
  const std::string bytes = realLine().substr(2);
  FieldReader r;
  r.data = BitReader(bytes);
  EXPECT_EQ(r.data.shortInteger(), 0x13);
  const std::size_t bitSize = r.data.rawLong();
  EXPECT_EQ(bitSize, 477u);
  r.self = r.data.reference().number;
  EXPECT_EQ(r.self, 0x2Cu);
  r.data = BitReader(bytes, r.data.position(), bitSize);
  r.references = BitReader(bytes, bitSize, 63 * 8);
  r.codePage = 1252;
  Line line;
  EntityFrame frame;
  ASSERT_TRUE(readObjectBody(r, line, frame));
  EXPECT_EQ(line.start, (Point3{2, 3, 4}));
  EXPECT_EQ(line.end, (Point3{3, 4, 5}));
  EXPECT_EQ(line.normal, kZAxis);
  EXPECT_EQ(line.layer, 0x10u);
  EXPECT_EQ(line.colour, kColourByLayer);
  EXPECT_EQ(line.lineweight, kLineweightByLayer);
  EXPECT_EQ(frame.mode, OwnerMode::ModelSpace);
  EXPECT_EQ(r.links.previous, 0x2Bu);
  EXPECT_EQ(r.links.next, 0x2Du);
}

TEST(ObjectCodec, AnObjectOfARealDrawingIsWrittenBitForBit) {
  Line line, before, after;
  before.handle = 0x2B;
  after.handle = 0x2D;
  line.handle = 0x2C;
  line.previous = &before;
  line.next = &after;
  line.layer = 0x10;
  line.start = {2, 3, 4};
  line.end = {3, 4, 5};
  FieldWriter w;
  w.codePage = 1252;
  std::string out;
  appendObject(w, line, typeOfKind(line), OwnerMode::ModelSpace, out);
  std::string expected = realLine();
  expected[64] = static_cast<char>(0x80);  // its filling bits are ones; ours are zeros
  ASSERT_EQ(out.size(), expected.size());
  EXPECT_EQ(out.substr(0, 65), expected.substr(0, 65));
}

TEST(ObjectCodec, NeighboursAreImpliedOnlyIfBothAreNextInHandle) {
  const auto sizeWith = [](Handle previous, Handle next) {
    Line line, a, b;
    line.handle = 0x20;
    a.handle = previous;
    b.handle = next;
    line.previous = previous ? &a : nullptr;
    line.next = next ? &b : nullptr;
    FieldWriter w;
    w.codePage = 1252;
    std::string out;
    appendObject(w, line, 0x13, OwnerMode::ModelSpace, out);
    return out.size();
  };
  EXPECT_EQ(sizeWith(0x1F, 0x22), sizeWith(0x1E, 0x21));
  EXPECT_EQ(sizeWith(0x1F, 0x21) + 4, sizeWith(0x1F, 0x22));
  EXPECT_EQ(sizeWith(0x1F, 0x21) + 3, sizeWith(0, 0x21));  // first of a chain
}

TEST(ObjectImage, EveryObjectReadsBackAsItWas) {
  const auto db = makeSampleDrawing();
  db->forEach([](const Object& object) {
    const std::string image = encodeImage(object);
    EXPECT_EQ(kindOfImage(image), object.kind);
    const auto copy = makeObject(object.kind);
    copy->handle = object.handle;
    decodeImage(image, *copy);
    EXPECT_EQ(encodeImage(*copy), image) << "kind " << static_cast<int>(object.kind);
  });
}

// Decoding must assign every field, also those that a short coding leaves out.
TEST(ObjectImage, AnImageReplacesAllFieldsOfAnotherObject) {
  const auto db = makeSampleDrawing();
  std::vector<const Object*> all;
  db->forEach([&all](const Object& object) { all.push_back(&object); });
  for (const Object* from : all) {
    for (const Object* to : all) {
      if (from->kind != to->kind) continue;
      const std::string image = encodeImage(*from);
      const auto target = copyObject(*to);
      target->handle = from->handle;
      decodeImage(image, *target);
      ASSERT_EQ(encodeImage(*target), image) << "kind " << static_cast<int>(from->kind);
    }
  }
}

TEST(ObjectImage, TextsKeepWhatAFileWouldChange) {
  Text text;
  text.handle = 5;
  text.text = "\\U+56FE" + std::string(70000, 'x') + '\0';
  Text other;
  other.handle = 5;
  decodeImage(encodeImage(text), other);
  EXPECT_EQ(other.text, text.text);
}

}  // namespace
}  // namespace drafting

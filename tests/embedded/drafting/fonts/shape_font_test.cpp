// The layouts of font files: whole, cut off, damaged.
#include "embedded/drafting/fonts/font_fixture.h"

namespace drafting {
namespace {

std::string replaced(std::string bytes, std::size_t at, std::string_view hex) {
  const std::string by = bytesOf(hex);
  return bytes.replace(at, by.size(), by);
}

TEST(ShapeFontFile, UnifontHasItsRecordAndItsShapes) {
  const auto font = fontOf(tinyUnifont());
  EXPECT_EQ(font->kind(), FontKind::Unifont);
  EXPECT_EQ(font->name(), "TINY");
  EXPECT_EQ(font->metrics(), (FontMetrics{6, 2, 0, 0, 0, 0, false}));
  ASSERT_EQ(font->shapes().size(), 2u);
  EXPECT_EQ(font->find('L'), bytesOf("02 64 01 6c 40 02 20 00"));
  EXPECT_EQ(font->find(10), bytesOf("02 08 00 f7 00"));
  EXPECT_TRUE(font->find('M').empty());
  EXPECT_TRUE(font->problems().empty());
}

TEST(ShapeFontFile, ShapesAreTheSameInTheirLayout) {
  const auto font = fontOf(tinyShapes());
  EXPECT_EQ(font->kind(), FontKind::Shapes);
  EXPECT_EQ(font->name(), "TINY");
  EXPECT_EQ(font->metrics().above, 6);
  EXPECT_EQ(font->find('L'), fontOf(tinyUnifont())->find('L'));
  EXPECT_TRUE(font->problems().empty());
}

TEST(ShapeFontFile, BigFontHasLeadBytes) {
  const auto font = fontOf(tinyBigFont());
  EXPECT_EQ(font->kind(), FontKind::BigFont);
  EXPECT_EQ(font->metrics().above, 16);
  EXPECT_FALSE(font->metrics().extended);
  EXPECT_TRUE(font->isLeadByte(0x81));
  EXPECT_TRUE(font->isLeadByte(0xFE));
  EXPECT_FALSE(font->isLeadByte(0x80));
  EXPECT_FALSE(font->isLeadByte('A'));
  EXPECT_EQ(font->find(kMiddle).size(), 29u);
}

TEST(ShapeFontFile, SignatureMayDifferInCaseLineEndAndNumber) {
  const std::string rest = tinyUnifont().substr(25);
  for (const std::string start : {"AUTOCAD-86 UNIFONT 1.0\r\n\x1A",
                                  "AutoCAD-2000 unifont 1.1\n\x1A", "autocad-86 unifont\x1A"}) {
    EXPECT_EQ(fontOf(start + rest)->shapes().size(), 2u) << start;
  }
  EXPECT_EQ(fontOf("AutoCAD-86 shapes 1.1\r\n\x1A" + tinyShapes().substr(24))->shapes().size(), 2u);
}

TEST(ShapeFontFile, AnythingElseIsRefusedByName) {
  const std::string far = "AutoCAD-86 unifont 1.0" + std::string(30, ' ') + "\x1A";
  for (const std::string& bytes :
       {std::string(), std::string("AutoCAD Slide\r\n\x1A\0", 17),
        std::string("shapes 1.0\r\n\x1A"), std::string("AutoCAD-86 letters 1.0\r\n\x1A"), far}) {
    const auto font = ShapeFont::read(bytes, "x.shx");
    ASSERT_FALSE(font.ok());
    EXPECT_EQ(font.message(), "x.shx: byte 0: is no compiled shape font");
  }
}

TEST(ShapeFontFile, FileWithoutShape0IsNoTextFont) {
  FontParts parts;
  parts.kind = FontKind::Shapes;
  parts.shapes[130] = {"BOX", bytesOf("14 10 1C 18 12 00")};
  const auto font = fontOf(*writeFont(parts));
  EXPECT_FALSE(font->isTextFont());
  EXPECT_EQ(font->shapes()[0].name, "BOX");
  EXPECT_EQ(font->find(130).size(), 6u);
}

TEST(ShapeFontFile, FiveBytesMakeAnExtendedBigFont) {
  const auto font = fontWith(FontKind::BigFont, {{kMiddle, "00"}}, {20, 0, 2, 0, 0, 18, true});
  EXPECT_TRUE(font->metrics().extended);
  EXPECT_EQ(font->metrics().above, 20);
  EXPECT_EQ(font->metrics().width, 18);
  EXPECT_TRUE(font->isVertical());
}

TEST(ShapeFontFile, FreeEntriesAndAnyOrderAreTaken) {
  // Entries: 中, free, font record.
  const std::string entries =
      "d0 d6 1e 00 47 00 00 00  00 00 00 00 00 00 00 00  00 00 0c 00 3b 00 00 00";
  const std::string whole = tinyBigFont();
  const auto font = fontOf(whole.substr(0, 25) +
                           bytesOf("00 00 03 00 01 00 81 00 fe 00" + entries) + whole.substr(51));
  EXPECT_EQ(font->metrics().above, 16);
  EXPECT_EQ(font->find(kMiddle).size(), 29u);
  EXPECT_TRUE(font->problems().empty());
}

TEST(ShapeFontFile, CutOffAnywhereItGivesWhatIsThereOrAMessage) {
  for (const std::string& whole : {tinyUnifont(), tinyShapes(), tinyBigFont()}) {
    const auto all = fontOf(whole);
    const std::size_t records = all->kind() == FontKind::Unifont ? 42 : whole.size();
    for (std::size_t length = 0; length < whole.size(); ++length) {
      const auto font = ShapeFont::read(whole.substr(0, length), "cut.shx");
      if (!font.ok()) {
        EXPECT_EQ(font.message().find("cut.shx: byte "), 0u);
        EXPECT_LT(length, records);
        continue;
      }
      EXPECT_LE((*font)->shapes().size(), all->shapes().size());
      for (const auto& shape : (*font)->shapes()) EXPECT_EQ(shape.bytes, all->find(shape.code));
      // Only the end mark may be missing without a word.
      const bool markOnly = all->kind() == FontKind::Shapes && length >= whole.size() - 3;
      EXPECT_NE((*font)->problems().empty(), !markOnly) << length;
    }
  }
}

TEST(ShapeFontFile, AnyByteDamagedIsSurvived) {
  for (const std::string& whole : {tinyUnifont(), tinyShapes(), tinyBigFont()}) {
    int refused = 0;
    for (std::size_t at = 0; at < whole.size(); ++at) {
      for (const char value : {'\0', '\x7F', '\x80', '\xFF'}) {
        std::string bytes = whole;
        bytes[at] = value;
        const auto font = ShapeFont::read(bytes, "x.shx");
        if (!font.ok()) {
          ++refused;
          continue;
        }
        for (const auto& shape : (*font)->shapes()) {
          EXPECT_LE(strokesOf(**font, shape.code).run.steps, kMostShapeSteps);
        }
      }
    }
    EXPECT_GT(refused, 20);
  }
}

TEST(ShapeFontFile, DamagedShapesAreLeftOutOneByOne) {
  const auto outside = fontOf(replaced(tinyBigFont(), 0x2F, "ff 00 00 00"));
  ASSERT_EQ(outside->problems().size(), 1u);
  EXPECT_EQ(outside->problems()[0],
            "test.shx: byte 255: shape 54992 lies outside of the file; it is left out");
  EXPECT_TRUE(outside->isTextFont());
  EXPECT_TRUE(outside->shapes().empty());

  const auto empty = fontOf(replaced(tinyShapes(), 36, "00 00"));  // the line feed's length
  EXPECT_EQ(empty->problems()[0], "test.shx: byte 51: shape 10 has no bytes; it is left out");
  EXPECT_FALSE(empty->find('L').empty());

  const auto nameless = fontOf(replaced(tinyUnifont(), 46, "41 02 08 01 f7 41"));
  EXPECT_EQ(nameless->problems()[0],
            "test.shx: byte 46: shape 10 has a name without an end; it is left out");
  EXPECT_FALSE(nameless->find('L').empty());

  const auto bare = fontOf(replaced(tinyUnifont(), 46, "41 41 41 41 41 00"));
  EXPECT_EQ(bare->problems()[0],
            "test.shx: byte 46: shape 10 has nothing behind its name; it is left out");
}

TEST(ShapeFontFile, FirstOfSeveralShapesOfOneNumberCounts) {
  const auto font = fontOf(replaced(tinyUnifont(), 42, "4c 00"));
  EXPECT_EQ(font->find('L'), bytesOf("02 08 00 f7 00"));
  ASSERT_EQ(font->problems().size(), 1u);
  EXPECT_EQ(font->problems()[0], "test.shx: 1 shapes have a number that is taken already");
}

TEST(ShapeFontFile, ManyProblemsAreCounted) {
  std::string bytes = bytesOf("00 00 ff 00 64 00");
  for (int i = 0; i < 100; ++i) bytes += static_cast<char>(i + 1) + std::string("\0\xFF\xFF", 3);
  const auto font = fontOf("AutoCAD-86 shapes 1.0\r\n\x1A" + bytes);
  EXPECT_TRUE(font->shapes().empty());
  ASSERT_EQ(font->problems().size(), 21u);
  EXPECT_EQ(font->problems().back(), "test.shx: 80 more shapes are left out");
}

TEST(ShapeFontFile, CountBeyondTheFileCostsNothing) {
  const auto font = fontOf(replaced(tinyUnifont(), 25, "ff ff ff ff"));
  EXPECT_EQ(font->shapes().size(), 2u);
  EXPECT_EQ(font->problems().size(), 1u);
}

TEST(ShapeFontFile, FontRecordTooShortIsTold) {
  FontParts parts;
  parts.kind = FontKind::Shapes;
  parts.metrics.above = 6;
  std::string bytes = *writeFont(parts);
  const std::size_t record = bytes.size() - 3 - 5;
  bytes = replaced(bytes, record - 2, "03 00");  // its length
  const auto font = fontOf(bytes);
  EXPECT_FALSE(font->isTextFont());
  EXPECT_EQ(font->problems()[0], "test.shx: the font record is too short");
}

}  // namespace
}  // namespace drafting

#include <gtest/gtest.h>

#include "embedded/base/crc.h"
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/dwg/bit_reader.h"
#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dwg/file_layout.h"
#include "embedded/drafting/dwg/sample_drawing.h"
#include "embedded/drafting/dwg/sections.h"
#include "support/temp_folder.h"

namespace drafting {
namespace {

std::string written(const Database& database) {
  const auto bytes = writeDwg(database);
  EXPECT_TRUE(bytes.ok()) << bytes.message();
  return *bytes;
}

std::string messageFor(std::string_view bytes) {
  ReadReport report;
  return readDwg(bytes, report, "plan.dwg").message();
}

TEST(DwgFile, EverythingOfADrawingReadsBack) {
  const auto db = makeSampleDrawing();
  const auto again = reread(*db);
  ASSERT_NE(again, nullptr);
  EXPECT_TRUE(expectSameDrawing(*db, *again));
  EXPECT_EQ(again->nextHandle(), db->nextHandle());
  EXPECT_FALSE(again->journal().changedSinceSave());
}

TEST(DwgFile, WritingAgainGivesTheSameBytes) {
  const auto db = makeSampleDrawing();
  const auto again = reread(*db);
  again->saves = db->saves;
  EXPECT_EQ(written(*again), written(*db));
}

TEST(DwgFile, NamesOfAnonymousBlocksAndChineseNamesReadBack) {
  const auto again = reread(*makeSampleDrawing());
  EXPECT_NE(again->findRecord(Table::Blocks, "*U12"), 0u);
  EXPECT_NE(again->findRecord(Table::Blocks, "断路器"), 0u);
  EXPECT_NE(again->findRecord(Table::Layers, "图层 1"), 0u);
}

TEST(DwgFile, SectionsStandInTheirOrderWithTheirMarks) {
  const std::string bytes = written(*makeSampleDrawing());
  EXPECT_EQ(bytes.substr(0, 6), "AC1015");
  EXPECT_EQ(getLow(bytes, 0x0D, 4), 220u);
  EXPECT_EQ(getLow(bytes, 0x13, 2), 39u);
  EXPECT_EQ(getLow(bytes, 0x15, 4), 6u);
  EXPECT_EQ(getLow(bytes, 0x4F, 2), base::crc16(bytes.data(), 0x4F));
  EXPECT_EQ(bytes.substr(0x51, 16), kFileHeaderEnd);
  EXPECT_EQ(bytes.substr(220, 16), kPreviewSentinel);
  const auto address = [&](std::size_t n) { return getLow(bytes, 0x19 + 9 * n + 1, 4); };
  const auto size = [&](std::size_t n) { return getLow(bytes, 0x19 + 9 * n + 5, 4); };
  for (std::size_t n = 0; n < kSectionCount; ++n) {
    EXPECT_EQ(static_cast<unsigned char>(bytes[0x19 + 9 * n]), n);
  }
  EXPECT_EQ(address(kSectionAuxiliary), 97u);
  EXPECT_EQ(size(kSectionAuxiliary), 123u);
  EXPECT_EQ(bytes.substr(address(kSectionHeader), 16), kHeaderSentinel);
  EXPECT_EQ(bytes.substr(address(kSectionHeader) + size(kSectionHeader) - 16, 16),
            endSentinel(kHeaderSentinel));
  EXPECT_EQ(address(kSectionClasses), address(kSectionHeader) + size(kSectionHeader));
  EXPECT_EQ(bytes.substr(address(kSectionClasses), 16), kClassesSentinel);
  EXPECT_EQ(address(kSectionFreeSpace), address(kSectionMap) + size(kSectionMap));
  EXPECT_EQ(size(kSectionFreeSpace), 53u);
  EXPECT_EQ(bytes.substr(address(kSectionFreeSpace) + 53, 16), kSecondHeaderSentinel);
  EXPECT_EQ(address(kSectionTemplate) + 4, bytes.size());
  EXPECT_EQ(bytes.substr(address(kSectionTemplate) - 16, 16), endSentinel(kSecondHeaderSentinel));
}

TEST(DwgFile, TheSecondHeaderNamesThisFilesSections) {
  const std::string bytes = written(*makeSampleDrawing());
  const std::size_t at = bytes.find(kSecondHeaderSentinel);
  ASSERT_NE(at, std::string::npos);
  const std::size_t size = getLow(bytes, at + 16, 4);
  EXPECT_EQ(bytes.substr(at + 16 + size, 16), endSentinel(kSecondHeaderSentinel));
  const std::size_t crcAt = at + 16 + size - 8 - 2;
  EXPECT_EQ(getLow(bytes, crcAt, 2), base::crc16(bytes.data() + at + 16, crcAt - at - 16));
  BitReader r(bytes, (at + 20) * 8);
  EXPECT_EQ(r.longInteger(), at);
  EXPECT_EQ(r.bytes(6), "AC1015");
  r.bytes(5 + 2);
  EXPECT_EQ(r.shortInteger(), 0x617);
  EXPECT_EQ(r.rawShort(), 39);
  EXPECT_EQ(r.shortInteger(), 6);
  for (unsigned n = 0; n < 6; ++n) {
    EXPECT_EQ(r.rawByte(), n);
    const std::size_t address = n == 4 ? 0 : getLow(bytes, 0x19 + 9 * n + 1, 4);
    EXPECT_EQ(r.longInteger(), address);
    r.longInteger();
  }
  EXPECT_EQ(r.shortInteger(), 14);
}

TEST(DwgFile, TheHeaderVariablesEndOnAByteBoundary) {
  const std::string section = *writeHeaderVariables(*makeSampleDrawing());
  Database other;
  other.codePage = 936;
  EXPECT_TRUE(readHeaderVariables(section, other).ok());
  for (const char* name : {"LTSCALE", "DIMASZ", "FACETRES"}) {
    EXPECT_NE(other.header.real(name), 0) << name;
  }
}

TEST(DwgFile, APlotStyleNameFollowsItsKindOnly) {
  const auto db = makeSampleDrawing();
  db->setVariable("CEPSNTYPE", 3);
  db->setVariable("CPSNID", Handle{0xF});
  const auto again = reread(*db);
  EXPECT_EQ(again->header.handle("CPSNID"), 0xFu);
  EXPECT_EQ(again->header.text("VERSIONGUID"), db->header.text("VERSIONGUID"));
}

TEST(ObjectMap, EveryChunkStartsFromZeroAgain) {
  std::vector<MapEntry> entries;
  for (Handle handle = 1; handle <= 5000; ++handle) {
    entries.push_back({handle * 3, static_cast<std::uint32_t>((handle * 7919) % 1000000)});
  }
  const std::string bytes = writeObjectMap(entries);
  std::vector<MapEntry> again;
  ASSERT_TRUE(readObjectMap(bytes, 1000000, again).ok());
  ASSERT_EQ(again.size(), entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    ASSERT_EQ(again[i].handle, entries[i].handle);
    ASSERT_EQ(again[i].address, entries[i].address);
  }
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t length =
        static_cast<unsigned char>(bytes[at]) * 256u + static_cast<unsigned char>(bytes[at + 1]);
    EXPECT_LE(length, 2032u);
    at += length + 2;
  }
  EXPECT_EQ(bytes.substr(bytes.size() - 4, 2), std::string("\0\2", 2));
}

TEST(ObjectMap, StepsAreCodedLowGroupFirst) {
  const std::string bytes = writeObjectMap({{0x81, 0x40}, {0x82, 0x20}});
  // length, 81 = 01 01, 40 needs a second byte, then 1, and 32 backwards with the sign bit
  EXPECT_EQ(bytes.substr(0, 8), std::string("\x00\x08\x81\x01\xC0\x00\x01\x60", 8));
}

TEST(DwgVersion, NewerAndOlderOnesAreNamedWithWhatToDo) {
  for (const auto& [version, name] : {std::pair{"AC1018", "2004"},
                                      {"AC1021", "2007"},
                                      {"AC1024", "2010"},
                                      {"AC1027", "2013"},
                                      {"AC1032", "2018"},
                                      {"AC1009", "12"},
                                      {"AC1014", "14"}}) {
    const std::string message = messageFor(version + std::string(200, '\0'));
    EXPECT_NE(message.find("plan.dwg"), std::string::npos) << message;
    EXPECT_NE(message.find(name), std::string::npos) << message;
    EXPECT_NE(message.find("2000 drawing"), std::string::npos) << message;
  }
  EXPECT_NE(messageFor("AC9999" + std::string(200, '\0')).find("unknown version"),
            std::string::npos);
  EXPECT_NE(messageFor("").find("no drawing"), std::string::npos);
  EXPECT_NE(messageFor("%PDF-1.4").find("no drawing"), std::string::npos);
  EXPECT_NE(messageFor("AC1015").find("cut off"), std::string::npos);
}

TEST(DwgFile, ATextThatIsTooLongIsNamedAndNothingWritten) {
  const auto db = Database::makeNew();
  auto text = std::make_unique<Text>();
  text->layer = db->findRecord(Table::Layers, "0");
  text->text = std::string(70000, 'x');
  const Handle handle = db->append(db->modelSpace(), std::move(text));
  const auto bytes = writeDwg(*db);
  EXPECT_FALSE(bytes.ok());
  EXPECT_NE(bytes.message().find("the object "), std::string::npos);
  test::TempFolder folder;
  test::writeBytes(folder / "a.dwg", "old");
  EXPECT_FALSE(saveDwg(*db, folder / "a.dwg").ok());
  EXPECT_EQ(test::bytesOf(folder / "a.dwg"), "old");
  db->erase(handle);
  EXPECT_TRUE(saveDwg(*db, folder / "a.dwg").ok());
  ReadReport report;
  EXPECT_TRUE(openDwg(folder / "a.dwg", report).ok());
}

TEST(DwgFile, AnOpenedDrawingGoesOnWithItsHandles) {
  const auto db = makeSampleDrawing();
  const auto again = reread(*db);
  auto line = std::make_unique<Line>();
  line->layer = again->findRecord(Table::Layers, "0");
  EXPECT_EQ(again->append(again->modelSpace(), std::move(line)), db->nextHandle());
  const std::size_t count = again->modelSpace().count;
  const auto third = reread(*again);
  EXPECT_EQ(third->modelSpace().count, count);
}

}  // namespace
}  // namespace drafting

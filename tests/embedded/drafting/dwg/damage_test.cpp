// Damaged drawings: whatever is wrong, the reader comes back, with a drawing that can be worked on
// and saved or with a message.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <random>

#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dwg/file_layout.h"
#include "embedded/drafting/dwg/sample_drawing.h"
#include "support/temp_folder.h"

namespace drafting {
namespace {

// Reads, and if that works goes over the chains, erases, undoes and saves.
void survive(std::string_view bytes) {
  ReadReport report;
  const auto opened = readDwg(bytes, report, "damaged.dwg");
  if (!opened.ok()) {
    EXPECT_FALSE(opened.message().empty());
    return;
  }
  Database& db = **opened;
  std::size_t seen = 0;
  for (const Entity* e = db.modelSpace().first; e; e = e->next) ASSERT_LT(seen++, bytes.size());
  EXPECT_EQ(seen, db.modelSpace().count);
  if (const Handle last = db.lastEntity()) {
    db.erase(last);
    EXPECT_EQ(db.modelSpace().count, seen - 1);
    db.journal().undo();
    EXPECT_EQ(db.lastEntity(), last);
  }
  EXPECT_TRUE(writeDwg(db).ok());
}

std::string sampleBytes() { return *writeDwg(*makeSampleDrawing()); }

std::string realBytes(const char* name) {
  return test::bytesOf(std::filesystem::path(VORNIK_TEST_DATA) / "dwg" / name);
}

TEST(DamagedDrawing, CutAtEveryLength) {
  const std::string bytes = sampleBytes();
  for (std::size_t length = 0; length < bytes.size(); length += 7) {
    survive(std::string_view(bytes).substr(0, length));
  }
  for (const char* name : {"entities-2d.dwg", "TS1.dwg"}) {
    const std::string real = realBytes(name);
    for (std::size_t length = 0; length < real.size(); length += real.size() / 97) {
      survive(std::string_view(real).substr(0, length));
    }
  }
}

TEST(DamagedDrawing, WithAnyByteChanged) {
  const std::string bytes = sampleBytes();
  for (std::size_t at = 0; at < bytes.size(); at += 5) {
    std::string damaged = bytes;
    damaged[at] = static_cast<char>(damaged[at] ^ (1 << at % 8));
    survive(damaged);
  }
}

TEST(DamagedDrawing, WithManyBytesChanged) {
  std::mt19937 random(3);
  for (const char* name : {"entities-2d.dwg", "sample_2000.dwg", "TS1.dwg"}) {
    const std::string bytes = realBytes(name);
    for (int round = 0; round < 60; ++round) {
      std::string damaged = bytes;
      for (int i = 0; i < 1 + round; ++i) {
        damaged[random() % damaged.size()] = static_cast<char>(random());
      }
      survive(damaged);
    }
  }
}

TEST(DamagedDrawing, AnObjectWithAWrongChecksumIsKeptWithAMessage) {
  const auto db = makeSampleDrawing();
  std::string bytes = *writeDwg(*db);
  const std::size_t at = bytes.find("__ . __");
  if (at != std::string::npos) bytes[at] = '-';
  std::size_t changed = bytes.size();
  for (std::size_t i = bytes.size() / 2; i < bytes.size(); ++i) {
    std::string damaged = bytes;
    damaged[i] = static_cast<char>(damaged[i] ^ 1);
    ReadReport report;
    const auto opened = readDwg(damaged, report);
    if (!opened.ok() || (*opened)->objectCount() != db->objectCount()) continue;
    if (report.summary().find("its checksum is wrong") == std::string::npos) continue;
    EXPECT_NE(report.messages.front().offset, 0u);
    changed = i;
    break;
  }
  EXPECT_LT(changed, bytes.size());
}

// What a damaged list of classes lacks isn't taken for something else by the next program.
TEST(DamagedDrawing, ObjectsOfUnlistedClassesKeepTheirTypes) {
  const auto db = makeSampleDrawing();
  auto raw = std::make_unique<RawObject>();
  raw->type = 507;
  raw->owner = db->header.handle("NAMED_DICTIONARY");
  const Handle handle = db->addObject(std::move(raw));
  const auto bytes = writeDwg(*db);
  ASSERT_TRUE(bytes.ok());
  ReadReport report;
  const auto again = readDwg(*bytes, report);
  ASSERT_TRUE(again.ok());
  EXPECT_EQ(report.summary(), "");
  EXPECT_EQ((*again)->objectCount(), db->objectCount());
  ASSERT_NE((*again)->find<RawObject>(handle), nullptr);
  EXPECT_EQ((*again)->find<RawObject>(handle)->type, 507);
}

TEST(DamagedDrawing, WithoutItsHeaderVariablesEverythingElseIsThere) {
  const auto db = makeSampleDrawing();
  std::string bytes = *writeDwg(*db);
  const std::size_t header = getLow(bytes, 0x1A, 4);
  for (std::size_t i = 0; i < 200; ++i) bytes[header + 30 + i] = '\xFF';
  ReadReport report;
  const auto opened = readDwg(bytes, report);
  ASSERT_TRUE(opened.ok());
  EXPECT_NE(report.summary().find("drawing variables"), std::string::npos);
  EXPECT_EQ((*opened)->modelSpace().count, db->modelSpace().count);
  EXPECT_NE((*opened)->findRecord(Table::Blocks, "断路器"), 0u);
}

// A count in the file must not decide how much memory is taken.
TEST(DamagedDrawing, HugeCountsTakeNoMemory) {
  std::string bytes = sampleBytes();
  const auto started = std::chrono::steady_clock::now();
  for (std::size_t at = 1000; at + 8 < bytes.size(); at += 61) {
    std::string damaged = bytes;
    for (std::size_t i = 0; i < 8; ++i) damaged[at + i] = '\x7F';
    ReadReport report;
    const auto opened = readDwg(damaged, report);
    if (opened.ok()) {
      EXPECT_LE((*opened)->objectCount(), 400u);
    }
  }
  EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(60));
}

}  // namespace
}  // namespace drafting

// Records of the work: what a session that is no more left behind, and what comes back of it.
#include "embedded/drafting/documents/recovery.h"

#include <fstream>

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/drafting/documents/lost_drawings.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dxf/dxf_writer.h"
#include "support/session_fixture.h"

namespace drafting {
namespace {

namespace fs = std::filesystem;

class RecoveryTest : public test::SessionFixture {
 protected:
  RecoveryTest() { session.recovery.start(root()); }

  fs::path root() const { return base::pathFromUtf8(pathOf("records")); }

  // What a kill leaves: the record as it is now, held by nobody.
  fs::path killed() {
    fs::path copy;
    for (const auto& entry : fs::directory_iterator(root())) {
      copy = base::pathFromUtf8(pathOf("killed")) / entry.path().filename();
      fs::create_directories(copy);
      for (const auto& file : fs::directory_iterator(entry.path())) {
        if (file.path().filename() == kRecordLock) {
          write(copy / kRecordLock, "");
        } else {
          fs::copy_file(file.path(), copy / file.path().filename());
        }
      }
    }
    return copy;
  }

  static void write(const fs::path& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
  }

  static std::string bytesOf(const Database& database) { return *writeDwg(database); }

  static std::size_t files(const fs::path& folder, const char* extension) {
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
      count += entry.path().extension() == extension;
    }
    return count;
  }
};

TEST_F(RecoveryTest, EveryFinishedCommandComesBack) {
  type("LINE 0,0 10,0 10,10\n\n");
  type("TEXT 5,5 2.5 0 中文\n");
  type("ERASE L\n\n");
  type("LAYER N 线 \n");
  const auto lost = readLostDrawing(killed());
  ASSERT_TRUE(lost.ok()) << lost.message();
  EXPECT_TRUE(bytesOf(*lost->document->database) == bytesOf(session.database()));
  EXPECT_TRUE(lost->document->database->journal().changedSinceSave());
  EXPECT_TRUE(lost->notes.empty());
  EXPECT_EQ(lost->document->database->journal().undoSteps(),
            session.database().journal().undoSteps());
}

TEST_F(RecoveryTest, UndoAndRedoComeBackToo) {
  type("CIRCLE 0,0 1\nCIRCLE 0,0 2\nCIRCLE 0,0 3\nU\nU\nREDO\n");
  auto lost = readLostDrawing(killed());
  ASSERT_TRUE(lost.ok());
  Database& back = *lost->document->database;
  EXPECT_TRUE(bytesOf(back) == bytesOf(session.database()));
  EXPECT_TRUE(back.journal().redo());
  EXPECT_EQ(back.modelSpace().count, 3u);
  EXPECT_TRUE(back.journal().undo());
  EXPECT_TRUE(back.journal().undo());
  EXPECT_TRUE(back.journal().undo());
  EXPECT_EQ(back.modelSpace().count, 0u);
}

TEST_F(RecoveryTest, CommandsOfAnOpenGroupComeBack) {
  type("UNDO BE\nCIRCLE 0,0 1\nCIRCLE 0,0 2\n");
  auto lost = readLostDrawing(killed());
  ASSERT_TRUE(lost.ok());
  EXPECT_EQ(lost->document->database->modelSpace().count, 2u);
  EXPECT_EQ(lost->document->database->journal().undoSteps(), 1u);
  type("UNDO E\nU\n");
  EXPECT_EQ(session.database().modelSpace().count, 0u) << "parts are one step";
}

TEST_F(RecoveryTest, ATornEntryCostsItsCommandOnly) {
  type("CIRCLE 0,0 1\nCIRCLE 0,0 2\n");
  const fs::path folder = killed();
  const fs::path record = generationRecord(folder, 1);
  fs::resize_file(record, fs::file_size(record) - 1);
  const auto lost = readLostDrawing(folder);
  ASSERT_TRUE(lost.ok());
  EXPECT_EQ(lost->document->database->modelSpace().count, 1u);
  EXPECT_EQ(lost->notes.size(), 1u);
}

TEST_F(RecoveryTest, NoCutOfTheRecordHarms) {
  type("CIRCLE 0,0 1\nERASE L\n\nLINE 0,0 1,1\n\nU\n");
  const fs::path folder = killed();
  const std::string whole = *base::readFile(generationRecord(folder, 1));
  std::size_t most = 0;
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    write(generationRecord(folder, 1), whole.substr(0, size));
    const auto lost = readLostDrawing(folder);
    if (!lost.ok()) continue;
    EXPECT_GE(lost->events, most) << "at " << size;
    most = lost->events;
  }
  EXPECT_EQ(most, 4u);
}

TEST_F(RecoveryTest, ADamagedByteIsNoticed) {
  type("CIRCLE 0,0 1\nCIRCLE 0,0 2\n");
  const fs::path folder = killed();
  const std::string whole = *base::readFile(generationRecord(folder, 1));
  for (std::size_t at = 0; at < whole.size(); at += 3) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ 0x40);
    write(generationRecord(folder, 1), damaged);
    const auto lost = readLostDrawing(folder);
    if (lost.ok()) {
      EXPECT_FALSE(lost->notes.empty()) << "at " << at;
    }
  }
}

TEST_F(RecoveryTest, SavedDrawingIsUnchangedAndHasItsName) {
  type("CIRCLE 0,0 1\n");
  ASSERT_TRUE(session.saveDrawing(pathOf("a.dwg")).ok());
  const auto lost = readLostDrawing(killed());
  ASSERT_TRUE(lost.ok());
  EXPECT_EQ(lost->document->path, pathOf("a.dwg"));
  EXPECT_FALSE(lost->document->database->journal().changedSinceSave());
}

TEST_F(RecoveryTest, AnOrderlyEndLeavesNothing) {
  type("CIRCLE 0,0 1\n");
  EXPECT_EQ(std::distance(fs::directory_iterator(root()), {}), 1);
  session.recovery.discard();
  EXPECT_TRUE(fs::is_empty(root()));
}

TEST_F(RecoveryTest, AnotherDrawingHasARecordOfItsOwn) {
  type("CIRCLE 0,0 1\n");
  ASSERT_TRUE(session.newDrawing().ok());
  type("CIRCLE 0,0 2\n");
  EXPECT_EQ(std::distance(fs::directory_iterator(root()), {}), 1);
  const auto lost = readLostDrawing(killed());
  ASSERT_TRUE(lost.ok());
  EXPECT_TRUE(bytesOf(*lost->document->database) == bytesOf(session.database()));
}

TEST_F(RecoveryTest, ARunningSessionsRecordIsLeftAlone) {
  type("CIRCLE 0,0 1\n");
  EXPECT_TRUE(findLostDrawings(root()).empty());
  const fs::path folder = fs::directory_iterator(root())->path();
  EXPECT_FALSE(readLostDrawing(folder).ok());
}

TEST_F(RecoveryTest, TheNewestLostDrawingComesFirst) {
  const fs::path lost = base::pathFromUtf8(pathOf("lost"));
  for (const char* name : {"20260101-000000-7", "20260102-000000-3"}) {
    fs::create_directories(lost / name);
    write(lost / name / kRecordLock, "");
    write(lost / name / "1.record", "");
  }
  fs::create_directories(lost / "20260103-000000-1");  // killed before there was anything
  write(lost / "20260103-000000-1" / kRecordLock, "");
  write(lost / "20260103-000000-1" / "1.dwg", "");
  fs::create_directories(lost / "20260103-000000-2");  // perhaps being made just now
  fs::create_directories(lost / "20260104-000000-1.removed");
  const auto found = findLostDrawings(lost);
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].filename(), "20260102-000000-3");
  EXPECT_FALSE(fs::exists(lost / "20260104-000000-1.removed"));
  EXPECT_FALSE(fs::exists(lost / "20260103-000000-1"));
  EXPECT_TRUE(fs::exists(lost / "20260103-000000-2"));
}

TEST_F(RecoveryTest, RecoveredWorkGoesOnAndIsRecordedFurther) {
  type("CIRCLE 0,0 1\nCIRCLE 0,0 2\n");
  const fs::path first = killed();
  ASSERT_TRUE(session.recoverDrawing(first).ok());
  EXPECT_EQ(entities(), (std::vector<std::string>{"CIRCLE 0,0 1", "CIRCLE 0,0 2"}));
  type("CIRCLE 0,0 3\nU\nU\n");
  EXPECT_EQ(entities(), std::vector<std::string>{"CIRCLE 0,0 1"});
  EXPECT_TRUE(session.database().journal().changedSinceSave());
  EXPECT_EQ(files(first, ".record"), 2u);
  session.recovery.leave();
  const auto again = readLostDrawing(first);
  ASSERT_TRUE(again.ok()) << again.message();
  EXPECT_EQ(again->document->database->modelSpace().count, 1u);
}

TEST_F(RecoveryTest, ADamagedAutosaveFallsBackOnTheOneBefore) {
  type("CIRCLE 0,0 1\n");
  const fs::path folder = killed();
  ASSERT_TRUE(session.recoverDrawing(folder).ok());  // begins generation 2
  type("CIRCLE 0,0 2\n");
  session.recovery.leave();
  write(generationDrawing(folder, 2, DrawingForm::Dwg), "no drawing");
  const auto lost = readLostDrawing(folder);
  ASSERT_TRUE(lost.ok()) << lost.message();
  EXPECT_EQ(lost->document->database->modelSpace().count, 2u);
  EXPECT_FALSE(lost->notes.empty());
}

TEST_F(RecoveryTest, ThreeGenerationsAreKept) {
  type("CIRCLE 0,0 1\n");
  const fs::path folder = killed();
  for (int i = 0; i < 5; ++i) {
    ASSERT_TRUE(session.recoverDrawing(folder).ok());
    type("CIRCLE 0,0 2\n");
    session.recovery.leave();
  }
  EXPECT_EQ(files(folder, ".record"), 3u);
  EXPECT_EQ(files(folder, ".dwg"), 3u);
  const auto lost = readLostDrawing(folder);
  ASSERT_TRUE(lost.ok());
  EXPECT_EQ(lost->document->database->modelSpace().count, 6u);
}

std::string dxfOf(const Database& database) {
  std::string bytes;
  EXPECT_TRUE(writeDxf(database, [&](std::string_view piece) {
                bytes.append(piece);
                return base::Status();
              }).ok());
  return bytes;
}

TEST_F(RecoveryTest, WhatOnlyADxfFileHoldsComesBack) {
  type("CIRCLE 0,0 1\n");
  std::string text = dxfOf(session.database());
  const std::size_t at = text.find("ENDSEC", text.find("\nENTITIES"));
  text.insert(text.rfind("  0", at), "  0\r\nMLINE\r\n  5\r\nF00\r\n  8\r\n0\r\n 70\r\n     8\r\n");
  write(base::pathFromUtf8(pathOf("a.dxf")), text);
  ASSERT_TRUE(session.openDrawing(pathOf("a.dxf")).ok());
  type("CIRCLE 0,0 2\nMOVE ALL\n\n0,0 1,0\n");
  const auto lost = readLostDrawing(killed());
  ASSERT_TRUE(lost.ok()) << lost.message();
  EXPECT_EQ(lost->events, 2u);
  EXPECT_EQ(lost->notes, std::vector<std::string>());
  const std::string back = dxfOf(*lost->document->database);
  EXPECT_TRUE(back == dxfOf(session.database()));
  EXPECT_NE(back.find("MLINE"), std::string::npos);
}

TEST_F(RecoveryTest, WorkGoesOnWhereNoRecordCanBeWritten) {
  write(base::pathFromUtf8(pathOf("file")), "");
  session.recovery.start(base::pathFromUtf8(pathOf("file")) / "records");
  EXPECT_FALSE(session.recovery.recording());
  type("CIRCLE 0,0 1\n");
  EXPECT_EQ(entities(), std::vector<std::string>{"CIRCLE 0,0 1"});
}

TEST_F(RecoveryTest, RecordsOfAnotherReleaseAreRefused) {
  type("CIRCLE 0,0 1\n");
  const fs::path folder = killed();
  RecordWriter writer;
  ASSERT_TRUE(writer.create(generationRecord(folder, 1)).ok());
  ASSERT_TRUE(writer.write(RecordKind::Start, "Vornikplan10 record 0").ok());
  ASSERT_TRUE(writer.close().ok());
  EXPECT_FALSE(readLostDrawing(folder).ok());
}

}  // namespace
}  // namespace drafting

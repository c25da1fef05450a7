#include "embedded/drafting/documents/lost_drawings.h"

#include <algorithm>
#include <sstream>

#include "embedded/base/file_stamp.h"
#include "embedded/base/files.h"
#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/drafting/documents/record_file.h"
#include "embedded/drafting/documents/recovery.h"
#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dxf/dxf_reader.h"

namespace drafting {

namespace fs = std::filesystem;

namespace {

// Numbers of the generations in the folder, newest first.
std::vector<int> generationsIn(const fs::path& folder) {
  std::vector<int> numbers;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    if (entry.path().extension() == ".record") {
      numbers.push_back(base::atoi(entry.path().stem().string()));
    }
  }
  std::sort(numbers.rbegin(), numbers.rend());
  return numbers;
}

class Reading {
 public:
  explicit Reading(LostDrawing& lost) : lost_(lost) {}

  // The drawing of generation `number` with its record; false, with a note, if it can't be read.
  bool open(int number) {
    const fs::path dxf = generationDrawing(lost_.folder, number, DrawingForm::Dxf);
    const bool isDxf = base::stampOf(dxf).present;
    const fs::path file = isDxf ? dxf : generationDrawing(lost_.folder, number, DrawingForm::Dwg);
    const auto bytes = base::readFile(file);
    if (!bytes.ok()) return note(bytes.message());
    ReadReport report;
    const std::string name = base::utf8FromPath(file);
    std::istringstream stream(*bytes);
    auto database = isDxf ? readDxf(stream, report, name) : readDwg(*bytes, report, name);
    if (!database.ok()) return note(database.message());
    lost_.document = std::make_unique<Document>();
    lost_.document->database = std::move(*database);
    if (!isDxf) --lost_.document->database->saves;  // the autosave is none of the user's own
    lost_.events = 0;
    checksum_ = checksumOf(*bytes);
    started_ = false;
    return take(number);
  }

  // The entries of record `number` on top of the drawing. False if they don't continue it; a record
  // that was cut short counts as far as it goes, and nothing behind it is known.
  bool take(int number) {
    const fs::path file = generationRecord(lost_.folder, number);
    const auto bytes = base::readFile(file, kLargestRecord);
    if (!bytes.ok()) return note(bytes.message());
    whole_ = readRecord(*bytes, [this](RecordKind kind, std::string_view content) {
      return takeEntry(kind, content);
    });
    if (!whole_) note(base::utf8FromPath(file) + ": the last entry is damaged and left out");
    return started_;
  }
  bool whole() const { return whole_; }

 private:
  static constexpr std::uint64_t kLargestRecord = std::uint64_t{1} << 33;

  bool takeEntry(RecordKind kind, std::string_view content) {
    Journal& journal = lost_.document->database->journal();
    switch (kind) {
      case RecordKind::Start: return takeStart(content);
      case RecordKind::Saved:
        lost_.document->path = content;
        journal.markSaved();
        return true;
      case RecordKind::Event: {
        JournalEvent event;
        JournalStep step;
        if (!started_ || !decodeEvent(content, event, step)) return false;
        if (!journal.replay(event, std::move(step))) return false;
        ++lost_.events;
        return true;
      }
    }
    return false;
  }

  // Later records continue the same drawing: only the first start says how it was.
  bool takeStart(std::string_view content) {
    RecordStart start;
    if (!decodeStart(content, start)) return false;
    if (started_) return true;
    if (start.drawingChecksum != checksum_) return false;
    started_ = true;
    lost_.document->path = start.path;
    Journal& journal = lost_.document->database->journal();
    if (start.changed) {
      journal.markChanged();
    } else {
      journal.markSaved();
    }
    return true;
  }

  bool note(const std::string& text) {
    lost_.notes.push_back(text);
    return false;
  }

  LostDrawing& lost_;
  std::uint32_t checksum_ = 0;
  bool started_ = false, whole_ = false;
};

}  // namespace

std::vector<fs::path> findLostDrawings(const fs::path& root) {
  std::vector<fs::path> found;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(root, error)) {
    if (entry.path().extension() == kRemovedRecord) {
      std::error_code ignored;
      fs::remove_all(entry.path(), ignored);
      continue;
    }
    base::FileLock lock;
    if (!lock.take(entry.path() / kRecordLock, false)) continue;
    if (!generationsIn(entry.path()).empty()) {
      found.push_back(entry.path());
    } else {  // its session was killed before it had anything to lose
      lock.release();
      removeRecord(entry.path());
    }
  }
  std::sort(found.rbegin(), found.rend());
  return found;
}

base::Result<LostDrawing> readLostDrawing(const fs::path& folder) {
  LostDrawing lost;
  lost.folder = folder;
  if (!lost.lock.take(folder / kRecordLock, false)) {
    return base::fileFailure(folder, "another session is working on this drawing");
  }
  const std::vector<int> generations = generationsIn(folder);
  Reading reading(lost);
  for (const int first : generations) {
    if (!reading.open(first)) continue;
    for (int next = first + 1; reading.whole() && next <= generations.front(); ++next) {
      if (!reading.take(next)) break;
    }
    return lost;
  }
  std::string reasons;
  for (const std::string& note : lost.notes) reasons += "\n  " + note;
  return base::fileFailure(folder, "no generation of the drawing can be read" + reasons);
}

}  // namespace drafting

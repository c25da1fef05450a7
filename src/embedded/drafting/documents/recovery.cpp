#include "embedded/drafting/documents/recovery.h"

#include <algorithm>
#include <ctime>

#include "embedded/base/files.h"
#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/drafting/documents/session.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dxf/dxf_writer.h"

namespace drafting {

namespace fs = std::filesystem;

namespace {

constexpr int kGenerations = 3;
constexpr std::uint64_t kSmallestBound = std::uint64_t{16} << 20;  // of a record, in bytes

// "20261121-223015-4711": sorts by time, and no other process has it.
std::string recordName() {
  const std::time_t now = std::time(nullptr);
  std::tm utc{};
#ifdef _WIN32
  gmtime_s(&utc, &now);
#else
  gmtime_r(&now, &utc);
#endif
  char text[32];
  std::strftime(text, sizeof text, "%Y%m%d-%H%M%S-", &utc);
  return text + std::to_string(base::processNumber());
}

base::Result<std::string> dxfOf(const Database& database) {
  std::string bytes;
  base::Status status = writeDxf(database, [&bytes](std::string_view piece) {
    bytes.append(piece);
    return base::Status();
  });
  if (!status) return status;
  return bytes;
}

}  // namespace

fs::path userRecoveryFolder() {
#ifdef _WIN32
  return base::environmentPath("LOCALAPPDATA") / L"Vornikplan10" / L"Recovery";
#else
  fs::path folder = base::environmentPath("XDG_STATE_HOME");
  if (folder.empty()) folder = base::environmentPath("HOME") / ".local" / "state";
  return folder / "vornikplan10" / "recovery";
#endif
}

fs::path generationDrawing(const fs::path& folder, int number, DrawingForm form) {
  return folder / (std::to_string(number) + (form == DrawingForm::Dwg ? ".dwg" : ".dxf"));
}

fs::path generationRecord(const fs::path& folder, int number) {
  return folder / (std::to_string(number) + ".record");
}

void removeRecord(const fs::path& folder) {
  std::error_code error;
  fs::path aside = folder;
  aside += kRemovedRecord;
  fs::rename(folder, aside, error);
  if (!error) fs::remove_all(aside, error);
}

Recovery::~Recovery() { discard(); }

void Recovery::start(const fs::path& root) {
  root_ = root;
  follow(session_.document());
}

void Recovery::follow(Document& document) {
  discard();
  document_ = &document;
  if (root_.empty()) return;
  if (const base::Status status = beginRecord(); !status) giveUp(status);
}

void Recovery::takeOver(Document& document, const fs::path& folder, base::FileLock lock) {
  discard();
  document_ = &document;
  folder_ = folder;
  lock_ = std::move(lock);
  generation_ = 0;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder_, error)) {
    generation_ = std::max(generation_, base::atoi(entry.path().stem().string()));
  }
  const base::Status status = beginGeneration(document.database->journal().changedSinceSave());
  if (!status) giveUp(status);
}

base::Status Recovery::beginRecord() {
  const std::string name = recordName();
  std::error_code error;
  fs::create_directories(root_, error);
  folder_ = root_ / name;
  for (int i = 2; !fs::create_directory(folder_, error) && !error; ++i) {
    folder_ = root_ / (name + "-" + std::to_string(i));
  }
  if (error) return base::fileFailure(folder_, error.message());
  if (!lock_.take(folder_ / kRecordLock, true)) {
    return base::fileFailure(folder_ / kRecordLock, "can't be locked");
  }
  generation_ = 0;
  return beginGeneration(document_->database->journal().changedSinceSave());
}

// The drawing comes first: a generation counts once its record is there and names the drawing.
base::Status Recovery::beginGeneration(bool changed) {
  const Database& database = *document_->database;
  const DrawingForm form = dwgLosses(database).empty() ? DrawingForm::Dwg : DrawingForm::Dxf;
  const base::Result<std::string> drawing =
      form == DrawingForm::Dwg ? writeDwg(database) : dxfOf(database);
  if (!drawing.ok()) return drawing.status();
  const int next = generation_ + 1;
  base::Status status =
      base::saveAtomically(generationDrawing(folder_, next, form), *drawing, {.keepBackup = false});
  if (!status) return status;
  status = file_.create(generationRecord(folder_, next));
  if (!status) return status;
  generation_ = next;
  drawingSize_ = drawing->size();
  begun_ = Clock::now();
  status =
      file_.write(RecordKind::Start, encodeStart({checksumOf(*drawing), changed, document_->path}));
  if (!status) return status;
  removeOldGenerations();
  Journal& journal = document_->database->journal();
  journal.follower = [this, &journal](const JournalEvent& event, const JournalStep& step) {
    write(RecordKind::Event, encodeEvent(event, step));
    if (!recording() || !generationIsDue()) return;
    // What has just been done isn't in the journal yet.
    const bool nowChanged = event.kind == JournalEvent::Kind::Done || journal.changedSinceSave();
    if (const base::Status begun = beginGeneration(nowChanged); !begun) giveUp(begun);
  };
  return {};
}

bool Recovery::generationIsDue() const {
  const auto minutes = std::chrono::minutes(session_.variables.integer("SAVETIME"));
  if (minutes.count() > 0 && Clock::now() - begun_ >= minutes) return true;
  return file_.size() > std::max(kSmallestBound, drawingSize_);
}

void Recovery::removeOldGenerations() const {
  std::error_code error;
  for (int old = generation_ - kGenerations; old > 0; --old) {
    if (!fs::remove(generationRecord(folder_, old), error)) return;
    for (const DrawingForm form : {DrawingForm::Dwg, DrawingForm::Dxf}) {
      fs::remove(generationDrawing(folder_, old, form), error);
    }
  }
}

void Recovery::write(RecordKind kind, std::string_view content) {
  if (!recording()) return;
  if (const base::Status status = file_.write(kind, content); !status) giveUp(status);
}

void Recovery::saved(const std::string& path) { write(RecordKind::Saved, path); }

void Recovery::leave() {
  if (document_) document_->database->journal().follower = nullptr;
  document_ = nullptr;
  static_cast<void>(file_.close());
  lock_.release();
  folder_.clear();
}

void Recovery::discard() {
  const fs::path folder = folder_;
  leave();
  if (!folder.empty()) removeRecord(folder);
}

// What was recorded so far stays: better an old state than none.
void Recovery::giveUp(const base::Status& status) {
  if (document_) document_->database->journal().follower = nullptr;
  static_cast<void>(file_.close());
  session_.print(std::string(session_.say("\n不能继续记录以备恢复: ",
                                          "\nThe record for recovery can't be kept: ")) +
                 status.message());
}

}  // namespace drafting

// Recovery: a record of the work that is kept while a drawing is worked on, so that nothing but the
// command that was running is lost when the program is killed. It is removed when the session ends
// in an orderly way; lost_drawings.h reads what others left behind.
//
// A record is a folder of its own below the root:
//   lock                 held as long as the session lives
//   N.dwg, N.record      a generation: the drawing as autosaved, and each command since then;
//                        N.dxf of a drawing that holds what only that form of file can
// The newest three generations are kept. A new one is begun every SAVETIME minutes of work and
// whenever a record has grown larger than the drawing.
#pragma once

#include <chrono>
#include <filesystem>

#include "embedded/base/file_lock.h"
#include "embedded/drafting/documents/document.h"
#include "embedded/drafting/documents/record_file.h"

namespace drafting {

class Session;

class Recovery {
 public:
  explicit Recovery(Session& session) : session_(session) {}
  ~Recovery();
  Recovery(const Recovery&) = delete;
  Recovery& operator=(const Recovery&) = delete;

  // From now on the session's drawings are recorded below `root`, which is made if it is missing.
  // What can't be written is told on the command line, once; work goes on.
  void start(const std::filesystem::path& root);
  bool recording() const { return file_.isOpen(); }

  // For the session: the drawing was given up, and its record goes.
  void discard();
  // Another drawing is worked on.
  void follow(Document& document);
  // The same with a drawing that came from a record: that is continued.
  void takeOver(Document& document, const std::filesystem::path& folder, base::FileLock lock);
  void saved(const std::string& path);
  void leave();  // lets go of the drawing, whose record stays for the next session

 private:
  using Clock = std::chrono::steady_clock;

  base::Status beginRecord();
  base::Status beginGeneration(bool changed);
  void write(RecordKind kind, std::string_view content);
  bool generationIsDue() const;
  void removeOldGenerations() const;
  void giveUp(const base::Status& status);

  Session& session_;
  std::filesystem::path root_, folder_;
  base::FileLock lock_;
  Document* document_ = nullptr;
  int generation_ = 0;
  std::uint64_t drawingSize_ = 0;
  Clock::time_point begun_;
  RecordWriter file_;
};

// Where records are kept for a user of this system, beside the user's other data.
std::filesystem::path userRecoveryFolder();

// The files of generation `number` in the folder of a record.
enum class DrawingForm { Dwg, Dxf };
std::filesystem::path generationDrawing(const std::filesystem::path& folder, int number,
                                        DrawingForm form);
std::filesystem::path generationRecord(const std::filesystem::path& folder, int number);
// Removes the folder of a record in such an order that a kill in between leaves nothing to recover.
void removeRecord(const std::filesystem::path& folder);

inline constexpr const char* kRecordLock = "lock";
inline constexpr const char* kRemovedRecord = ".removed";  // behind the name of such a folder

}  // namespace drafting

// Desktop: the drafting desktop without its windows: what input does, and what is to be shown. The
// windows forward to it and show its state whenever the command line waits.
#pragma once

#include <string>
#include <vector>

#include "programs/desktop/drawing_lock.h"
#include "programs/desktop/file_commands.h"
#include "programs/desktop/macros.h"
#include "programs/desktop/pointer.h"
#include "programs/desktop/recent_files.h"
#include "programs/desktop/transcript.h"

namespace desktop {

class Desktop {
 public:
  // `data` is the user's folder. The session's output and readiness are the desktop's from now on.
  Desktop(drafting::Session& session, Dialogs& dialogs, const std::filesystem::path& data);
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  // --- to be called each time before the windows wait for input
  // Follows the drawing that is open and hands the selection to a command that asks for one; true
  // if there is input now.
  bool settle();
  bool refreshScreen() { return screen.refresh(pointer.shown()); }

  // --- input
  void submit(const std::string& typed);  // an input and its Enter
  void escape();
  void run(int command);  // of a menu; what the windows do themselves is theirs
  void eraseSelected();
  void selectAll();
  void open(const std::string& path);  // dropped, or of the recent ones
  // Takes leave: through the question for changes, once what is running has been cancelled.
  void close() { macros.start("^C^CQUIT"); }

  // --- at the start
  // Offers what a session before left behind, and keeps records from now on.
  void startRecovery(const std::filesystem::path& records);

  std::string title() const;
  bool readOnly() const { return lock_.readOnly(); }

  drafting::Session& session;
  Screen screen;
  Pointer pointer;
  Macros macros;
  Transcript transcript;
  InputHistory history;
  RecentFiles recent;

 private:
  static std::filesystem::path findLost(const std::filesystem::path& records);
  void followDocument();
  bool handOverSelection();

  FileCommands commands_;
  DrawingLock lock_;
  const drafting::Database* database_ = nullptr;
  std::string path_;
};

}  // namespace desktop

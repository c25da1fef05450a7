#include "programs/desktop/desktop.h"

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/documents/lost_drawings.h"
#include "programs/desktop/boxes.h"
#include "programs/desktop/menus.h"

namespace desktop {

using drafting::Ask;
using drafting::Prompt;

namespace fs = std::filesystem;

Desktop::Desktop(drafting::Session& theSession, Dialogs& dialogs, const fs::path& data)
    : session(theSession),
      screen(theSession),
      pointer(theSession, screen),
      macros(theSession),
      recent(data / "recent.txt"),
      commands_(theSession, dialogs) {
  session.line.output = [this](std::string_view text) { transcript.print(text); };
  session.line.ready = [this] { macros.ready(); };
  if (const base::Status status = recent.load(); !status) session.printProblem(status);
}

Desktop::~Desktop() {
  session.line.output = [](std::string_view) {};
  session.line.ready = [] {};
}

// --- before waiting

bool Desktop::settle() {
  followDocument();
  return handOverSelection();
}

void Desktop::followDocument() {
  if (database_ != &session.database()) {
    database_ = &session.database();
    pointer.forget();
  }
  if (path_ == session.document().path) return;
  path_ = session.document().path;
  if (path_.empty()) {
    lock_.follow({});
    commands_.readOnly = false;
    return;
  }
  std::error_code error;
  const fs::path whole = fs::absolute(base::resolvePath(base::wideFromUtf8(path_)), error);
  const std::string name = base::utf8FromPath(whole);
  commands_.readOnly = lock_.follow(name) == DrawingLock::Access::ReadOnly;
  if (const base::Status status = recent.add(name); !status) session.printProblem(status);
  if (!commands_.readOnly) return;
  session.print("\n" + name + std::string(session.say(": 以只读方式打开", ": read-only")));
  warn(session, name + std::string(session.say(" 正被其他程序使用或不可写入，以只读方式打开。",
                                               " is used by another program or may not be "
                                               "written; it is open for reading only.")));
}

// What was selected before the command is its answer to the first question for a selection.
bool Desktop::handOverSelection() {
  const Prompt* prompt = session.line.waitingPrompt();
  if (!prompt || prompt->kind != Ask::Selection || pointer.selected().empty()) return false;
  if (!session.chosen || !session.chosen->empty() || session.line.hasInput()) return false;
  session.previousSelection = pointer.selected();
  pointer.select({});
  session.line.type("P\n\n");
  return true;
}

// --- input

void Desktop::submit(const std::string& typed) {
  history.add(typed);
  session.line.type(typed + "\n");
}

void Desktop::escape() {
  const Prompt* prompt = session.line.waitingPrompt();
  const bool busy = prompt && (prompt->kind != Ask::Command || session.line.hasInput());
  if (busy || !pointer.cancel()) session.line.cancel();
}

void Desktop::run(int command) {
  const MenuEntry* entry = findEntry(command);
  if (entry && !entry->macro.empty()) macros.start(entry->macro);
}

void Desktop::eraseSelected() {
  if (!pointer.selected().empty()) macros.start("^C^CERASE");
}

void Desktop::selectAll() {
  Selection all;
  const drafting::Box2 everything = session.index().extents();
  session.index().visit(everything,
                        [&all](Handle handle, const drafting::Box2&) { all.push_back(handle); });
  std::sort(all.begin(), all.end());
  pointer.select(std::move(all));
}

void Desktop::open(const std::string& path) { macros.start("^C^COPENFILE\n" + path + "\n"); }

// --- start

// Drawings in which nothing was changed have nothing to lose.
fs::path Desktop::findLost(const fs::path& records) {
  for (const fs::path& record : drafting::findLostDrawings(records)) {
    bool changed = true;
    if (const auto lost = drafting::readLostDrawing(record); lost.ok()) {
      changed = lost->document->database->journal().changedSinceSave();
    }
    if (changed) return record;
    drafting::removeRecord(record);
  }
  return {};
}

void Desktop::startRecovery(const fs::path& records) {
  const fs::path lost = findLost(records);
  session.recovery.start(records);
  if (lost.empty()) return;
  const Reply reply = askYesNoCancel(
      session, session.say("上次运行没有正常结束。恢复当时的图形？\n\n否: 放弃它。取消: 下次再问。",
                           "The last session didn't end in an orderly way. Recover its drawing?"
                           "\n\nNo gives it up, Cancel asks again next time."));
  if (reply == Reply::No) drafting::removeRecord(lost);
  if (reply != Reply::Yes) return;
  const base::Status status = session.recoverDrawing(lost);
  if (status) return;
  session.printProblem(status);
  warn(session, status.message());
}

std::string Desktop::title() const {
  const std::wstring path = base::wideFromUtf8(session.document().path);
  const std::string name = path.empty() ? std::string(session.say("未命名", "Untitled"))
                                        : base::utf8FromWide(base::fileNameOf(path));
  const bool changed = session.database().journal().changedSinceSave();
  return name + (changed ? "*" : "") +
         (readOnly() ? std::string(session.say(" (只读)", " (read-only)")) : std::string()) +
         " - " + base::utf8FromWide(kProgramTitle);
}

}  // namespace desktop

#include "programs/desktop/file_commands.h"

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/commands/ask.h"
#include "programs/desktop/boxes.h"

namespace desktop {

namespace {

constexpr const char* kGroup = "DESKTOP";

std::string nameOf(const drafting::Session& session) {
  const std::wstring path = base::wideFromUtf8(session.document().path);
  return path.empty() ? std::string(session.say("未命名图形", "the new drawing"))
                      : base::utf8FromWide(base::fileNameOf(path));
}

}  // namespace

FileCommands::FileCommands(drafting::Session& session, Dialogs& dialogs)
    : session_(session), dialogs_(dialogs) {
  add("NEW", &FileCommands::runNew);
  add("OPEN", &FileCommands::runOpen);
  add("SAVE", &FileCommands::runSave);
  add("QSAVE", &FileCommands::runSave);
  add("SAVEAS", &FileCommands::runSaveAs);
  add("PLOT", &FileCommands::runPlot);
  add("QUIT", &FileCommands::runQuit);
  session_.commands.add({.name = "OPENFILE",
                         .run = [this](drafting::Session&) { runOpenFile(); },
                         .recordsItself = true,
                         .group = kGroup});
}

FileCommands::~FileCommands() { session_.commands.removeGroup(kGroup); }

void FileCommands::add(const char* name, void (FileCommands::*run)()) {
  const drafting::Command plain = *session_.commands.find(name);
  const auto choose = [this, run, plain](drafting::Session& session) {
    if (session.line.answersComeFromArguments() || session.line.hasInput()) {
      plain.run(session);
    } else {
      (this->*run)();
    }
  };
  session_.commands.add({.name = name, .run = choose, .recordsItself = true, .group = kGroup});
}

// A drawing with changes is left only when the user says what becomes of them.
bool FileCommands::mayLeave() {
  if (!session_.database().journal().changedSinceSave()) return true;
  const std::string question = std::string(session_.say("将改动保存到 ", "Save the changes to ")) +
                               nameOf(session_) + std::string(session_.say("？", "?"));
  switch (askYesNoCancel(session_, question)) {
    case Reply::Yes: return save();
    case Reply::No: return true;
    default: return false;
  }
}

bool FileCommands::saveTo(const std::string& path) {
  const std::string lost = drafting::drawingLosses(session_.database(), path);
  if (!lost.empty()) {
    const std::string question =
        std::string(session_.say("此文件不能保存以下内容: ", "The file can't hold: ")) + lost +
        std::string(session_.say("\n\n仍然保存其余部分？", "\n\nSave the rest all the same?"));
    if (askYesNo(session_, question) != Reply::Yes) return false;
  }
  const base::Status status = session_.saveDrawing(path, drafting::Losses::Accepted);
  if (!status) {
    session_.printProblem(status);
    warn(session_, status.message());
  } else {
    session_.print("\n" + std::string(session_.say("已保存 ", "Saved ")) + path);
  }
  return status.ok();
}

bool FileCommands::save() {
  if (readOnly) {
    warn(session_, session_.say("此图形以只读方式打开，请另存为其他文件。",
                                "The drawing is open for reading only; save it as another file."));
  }
  if (readOnly || session_.document().path.empty()) return saveAs();
  return saveTo(session_.document().path);
}

bool FileCommands::saveAs() {
  const std::string& path = session_.document().path;
  const auto chosen = dialogs_.askSave(
      path.empty() ? std::string(session_.say("图形1.dwg", "Drawing1.dwg")) : path);
  return chosen && saveTo(*chosen);
}

void FileCommands::openPath(const std::string& path) {
  const base::Status status = session_.openDrawing(path);
  if (status) return;
  session_.printProblem(status);
  warn(session_, status.message());
}

void FileCommands::runNew() {
  if (!mayLeave()) return;
  const base::Status status = session_.newDrawing();
  if (!status) session_.printProblem(status);
}

void FileCommands::runOpen() {
  if (!mayLeave()) return;
  if (const auto path = dialogs_.askOpen()) openPath(*path);
}

void FileCommands::runOpenFile() {
  const drafting::Answer answer = session_.line.ask(
      {.kind = drafting::Ask::Line,
       .message = drafting::message(session_, "\n输入要打开的图形文件: ", "\nDrawing to open: ")});
  const std::string path(base::trim(answer.text));
  if (answer.hasValue() && !path.empty() && mayLeave()) openPath(path);
}

void FileCommands::runQuit() {
  if (mayLeave()) session_.quit = true;
}

// The dialog comes back behind a look at the drawing for its window.
void FileCommands::runPlot() {
  if (plot_.file.empty()) plot_.file = plotFileFor(session_);
  while (true) {
    const PlotAnswer answer = dialogs_.askPlot(plot_);
    if (answer == PlotAnswer::Cancelled) return;
    if (answer == PlotAnswer::Plot) {
      plot(session_, plot_);
      return;
    }
    if (!pickWindow()) return;
  }
}

bool FileCommands::pickWindow() {
  const auto window = drafting::askRectangle(session_);
  if (!window) return false;
  plot_.window = *window;
  plot_.area = PlotArea::Window;
  return true;
}

}  // namespace desktop

// NEW, OPEN, SAVE, SAVEAS, SCRIPT, ARX, QUIT: files, modules, and the end of the session.
#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/commands/ask.h"

namespace drafting {
namespace {

void report(Session& session, const base::Status& status) {
  if (!status) session.printProblem(status);
}

// A drawing with changes is given up only when the user says so.
bool mayDiscard(Session& session) {
  if (!session.database().journal().changedSinceSave()) return true;
  const Answer answer = session.line.ask(
      {.kind = Ask::Keyword,
       .message = message(session, "\n图形已修改，放弃修改? [是(Y)/否(N)] <N>: ",
                          "\nThe drawing was changed. Discard the changes? [Yes/No] <N>: "),
       .keywords = "Yes No",
       .defaultAtEnd = true});
  return answer.isKeyword("Yes");
}

void newDrawing(Session& session) {
  if (mayDiscard(session)) report(session, session.newDrawing());
}

void open(Session& session) {
  if (!mayDiscard(session)) return;
  const std::string path = askPath(session, "\n输入要打开的图形文件: ", "\nDrawing to open: ");
  if (!path.empty()) report(session, session.openDrawing(path));
}

// Saves, if the file can hold all of the drawing or the user does without the rest.
void saveTo(Session& session, const std::string& path) {
  const std::string lost = drawingLosses(session.database(), path);
  if (lost.empty()) return report(session, session.saveDrawing(path));
  session.print(std::string(session.say("\n文件不能保存: ", "\nThe file can't hold: ")) + lost);
  const Answer answer =
      session.line.ask({.kind = Ask::Keyword,
                        .message = message(session, "\n仍然保存其余部分? [是(Y)/否(N)] <N>: ",
                                           "\nSave the rest all the same? [Yes/No] <N>: "),
                        .keywords = "Yes No",
                        .defaultAtEnd = true});
  if (answer.isKeyword("Yes")) report(session, session.saveDrawing(path, Losses::Accepted));
}

void saveAs(Session& session) {
  const std::string path = askPath(session, "\n图形另存为: ", "\nSave drawing as: ");
  if (!path.empty()) saveTo(session, path);
}

void save(Session& session) {
  if (session.document().path.empty()) {
    saveAs(session);
  } else {
    saveTo(session, session.document().path);
  }
}

void script(Session& session) {
  const std::string path = askPath(session, "\n输入脚本文件名: ", "\nScript file: ");
  if (path.empty()) return;
  const auto text = base::readFile(base::resolvePath(base::wideFromUtf8(path)));
  if (text.ok()) {
    session.line.runScript(*text);
  } else {
    report(session, text.status());
  }
}

void arx(Session& session) {
  const Answer answer = session.line.ask(
      {.kind = Ask::Keyword,
       .message = message(session, "\n[加载(L)/卸载(U)/?]: ", "\n[Load/Unload/?]: "),
       .keywords = "? Load Unload"});
  if (answer.isKeyword("?")) {
    for (const std::string& name : session.modules.names()) session.print("\n" + name);
  } else if (answer.isKeyword("Load")) {
    const std::string path = askPath(session, "\n应用程序文件: ", "\nApplication file: ");
    if (!path.empty()) report(session, session.modules.load(path));
  } else if (answer.isKeyword("Unload")) {
    const std::string name = askPath(session, "\n应用程序名: ", "\nApplication: ");
    if (!name.empty()) report(session, session.modules.unload(name));
  }
}

void quit(Session& session) {
  if (mayDiscard(session)) session.quit = true;
}

}  // namespace

void addFileCommands(CommandTable& table) {
  table.add({.name = "NEW", .run = newDrawing, .recordsItself = true});
  table.add({.name = "OPEN", .run = open, .recordsItself = true});
  table.add({.name = "SAVE", .run = saveAs, .recordsItself = true});
  table.add({.name = "SAVEAS", .run = saveAs, .recordsItself = true});
  table.add({.name = "QSAVE", .run = save, .recordsItself = true});
  table.add({.name = "SCRIPT", .run = script, .recordsItself = true});
  table.add({.name = "ARX", .run = arx, .recordsItself = true});
  table.add({.name = "QUIT", .run = quit, .recordsItself = true});
  table.addAlias("SCR", "SCRIPT");
  table.addAlias("EXIT", "QUIT");
}

}  // namespace drafting

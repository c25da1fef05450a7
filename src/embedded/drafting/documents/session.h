// Session: the running drafting host: its document, command line, LISP, system variables and loaded
// modules. One at a time in a process; the host's C functions act on the active one.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/status.h"
#include "embedded/drafting/commands/command.h"
#include "embedded/drafting/commands/command_line.h"
#include "embedded/drafting/documents/document.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "embedded/drafting/documents/faults.h"
#include "embedded/drafting/documents/modules.h"
#include "embedded/drafting/documents/recovery.h"
#include "embedded/drafting/documents/system_variables.h"
#include "embedded/drafting/documents/view.h"
#include "embedded/drafting/lisp/interpreter.h"

namespace drafting {

// What ERASE took, so that OOPS can bring it back.
struct ErasedEntity {
  std::shared_ptr<Entity> entity;
  std::vector<std::shared_ptr<Entity>> attributes;
};

enum class Language { Chinese, English };

// English if the environment's LANG begins with "en", else Chinese.
Language systemLanguage();

class Session {
 public:
  Session();  // becomes the active one, with one new drawing
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  static Session& active();  // there must be one
  static Session* activeOrNull();

  Document& document() { return *document_; }
  const Document& document() const { return *document_; }
  Database& database() const { return *document_->database; }
  EntityIndex& index() { return document_->index(); }

  // Each replaces the drawing and tells the modules. Refused while a module is on the stack: its
  // prompt must be cancelled first.
  base::Status newDrawing();
  base::Status openDrawing(const std::string& path);  // by its extension DWG or DXF
  // Likewise; becomes the document's path. Losses that are accepted are the caller's to tell.
  base::Status saveDrawing(const std::string& path, Losses losses = Losses::Refused);
  // Goes on with a drawing that another session left behind (lost_drawings.h).
  base::Status recoverDrawing(const std::filesystem::path& record);

  // The user's language: one of the two texts.
  std::string_view say(std::string_view chinese, std::string_view english) const {
    return language == Language::Chinese ? chinese : english;
  }
  void print(std::string_view utf8) { line.print(utf8); }
  void printProblem(const base::Status& status) { print("\n" + status.message()); }

  // Selection sets that modules and LISP hold, by number.
  std::int64_t keepSelection(Selection selection);
  const Selection* selection(std::int64_t number) const;
  Selection* editSelection(std::int64_t number);
  bool dropSelection(std::int64_t number) { return selections_.erase(number) != 0; }

  Language language;
  Faults faults;
  CommandTable commands;
  CommandLine line;
  SystemVariables variables;
  View view;
  Modules modules;
  lisp::Interpreter lisp;
  Selection previousSelection;
  const Selection* chosen = nullptr;  // while entities are being selected: those chosen so far
  std::vector<ErasedEntity> erased;
  // Called before the drawing is replaced: who watches it lets go.
  std::function<void()> leaving = [] {};
  HWND mainWindow = nullptr;  // the desktop's; null without windows
  bool quit = false;          // QUIT was given: no more input is taken

 private:
  base::Status replaceDocument(std::unique_ptr<Document> document);

  std::unique_ptr<Document> document_;

 public:
  Recovery recovery;  // of the document; off until started

 private:
  std::map<std::int64_t, Selection> selections_;
  std::int64_t lastSelection_ = 0;
};

}  // namespace drafting

#include "embedded/drafting/documents/session.h"

#include <cstdlib>
#include <cstring>

#include "embedded/base/text.h"
#include "embedded/drafting/documents/drawing_files.h"

namespace drafting {
namespace {

Session* g_active = nullptr;

std::unique_ptr<Document> emptyDocument() {
  auto document = std::make_unique<Document>();
  document->database = Database::makeNew();
  document->database->journal().markSaved();
  return document;
}

}  // namespace

Language systemLanguage() {
  const char* lang = std::getenv("LANG");
  return lang && std::strncmp(lang, "en", 2) == 0 ? Language::English : Language::Chinese;
}

Session::Session()
    : language(systemLanguage()),
      line(*this),
      variables(*this),
      modules(*this),
      lisp(*this),
      document_(emptyDocument()) {
  addBuiltinCommands(commands);
  lisp.interrupted = [this] { return line.cancelled(); };
  g_active = this;
}

Session::~Session() {
  modules.unloadAll();
  if (g_active == this) g_active = nullptr;
}

Session& Session::active() { return *g_active; }
Session* Session::activeOrNull() { return g_active; }

base::Status Session::newDrawing() { return replaceDocument(emptyDocument()); }

base::Status Session::openDrawing(const std::string& path) {
  auto document = std::make_unique<Document>();
  auto database =
      readDrawing(path, [this](std::string_view note) { print("\n" + std::string(note)); });
  if (!database.ok()) return database.status();
  document->database = std::move(*database);
  document->database->journal().markSaved();
  document->path = path;
  return replaceDocument(std::move(document));
}

base::Status Session::saveDrawing(const std::string& path) {
  base::Status status = saveDrawingFile(
      database(), path, [this](std::string_view note) { print("\n" + std::string(note)); });
  if (status.ok()) {
    document_->path = path;
    database().journal().markSaved();
  }
  return status;
}

base::Status Session::replaceDocument(std::unique_ptr<Document> document) {
  if (modules.onStack()) {
    return base::Status::failure(std::string(say(
        "应用程序正在等待输入，请先取消", "An application is waiting for input; cancel it first")));
  }
  modules.sendToAll(AcRx::kUnloadDwgMsg);
  selections_.clear();
  previousSelection.clear();
  document_ = std::move(document);
  modules.sendToAll(AcRx::kLoadDwgMsg);
  return {};
}

std::int64_t Session::keepSelection(Selection selection) {
  selections_.emplace(++lastSelection_, std::move(selection));
  return lastSelection_;
}

const Selection* Session::selection(std::int64_t number) const {
  const auto found = selections_.find(number);
  return found == selections_.end() ? nullptr : &found->second;
}

}  // namespace drafting

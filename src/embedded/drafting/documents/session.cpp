#include "embedded/drafting/documents/session.h"

#include <cstdlib>
#include <cstring>

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/documents/lost_drawings.h"

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
      document_(emptyDocument()),
      recovery(*this) {
  addBuiltinCommands(commands);
  view.takeFrom(database());
  lisp.interrupted = [this] { return line.cancelled(); };
  g_active = this;
}

Session::~Session() {
  modules.unloadAll();
  if (g_active == this) g_active = nullptr;
}

Session& Session::active() { return *g_active; }
Session* Session::activeOrNull() { return g_active; }

base::Status Session::newDrawing() {
  base::Status status = replaceDocument(emptyDocument());
  if (status) recovery.follow(*document_);
  return status;
}

base::Status Session::openDrawing(const std::string& path) {
  auto document = std::make_unique<Document>();
  auto database =
      readDrawing(path, [this](std::string_view note) { print("\n" + std::string(note)); });
  if (!database.ok()) return database.status();
  document->database = std::move(*database);
  document->database->journal().markSaved();
  document->path = path;
  base::Status status = replaceDocument(std::move(document));
  if (status) recovery.follow(*document_);
  return status;
}

base::Status Session::recoverDrawing(const std::filesystem::path& record) {
  auto lost = readLostDrawing(record);
  if (!lost.ok()) return lost.status();
  for (const std::string& note : lost->notes) print("\n" + note);
  base::Status status = replaceDocument(std::move(lost->document));
  if (!status) return status;
  recovery.takeOver(*document_, lost->folder, std::move(lost->lock));
  print(std::string(say("\n已恢复图形", "\nRecovered drawing")) +
        (document_->path.empty() ? "" : " " + document_->path) + ": " +
        std::to_string(lost->events) +
        std::string(say(" 个步骤接在自动保存之后。", " steps behind the last autosave.")));
  return {};
}

base::Status Session::saveDrawing(const std::string& path, Losses losses) {
  view.storeIn(database());
  base::Status status = saveDrawingFile(database(), path, losses);
  if (status.ok()) {
    document_->path = path;
    database().journal().markSaved();
    recovery.saved(path);
  }
  return status;
}

base::Status Session::replaceDocument(std::unique_ptr<Document> document) {
  if (modules.onStack()) {
    return base::Status::failure(std::string(say(
        "应用程序正在等待输入，请先取消", "An application is waiting for input; cancel it first")));
  }
  modules.sendToAll(AcRx::kUnloadDwgMsg);
  leaving();
  selections_.clear();
  previousSelection.clear();
  erased.clear();
  recovery.discard();
  document_ = std::move(document);
  view.takeFrom(database());
  modules.sendToAll(AcRx::kLoadDwgMsg);
  return {};
}

std::int64_t Session::keepSelection(Selection selection) {
  selections_.emplace(++lastSelection_, std::move(selection));
  return lastSelection_;
}

Selection* Session::editSelection(std::int64_t number) {
  const auto found = selections_.find(number);
  return found == selections_.end() ? nullptr : &found->second;
}

const Selection* Session::selection(std::int64_t number) const {
  const auto found = selections_.find(number);
  return found == selections_.end() ? nullptr : &found->second;
}

}  // namespace drafting

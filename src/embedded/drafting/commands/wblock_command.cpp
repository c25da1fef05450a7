// WBLOCK: writes a block, the whole drawing or picked entities to a drawing file of their own.
#include <filesystem>
#include <optional>

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/database/clone.h"
#include "embedded/drafting/documents/drawing_files.h"

namespace drafting {
namespace {

bool endsNoCase(std::string_view text, std::string_view end) {
  return text.size() > end.size() && base::equalsNoCase(text.substr(text.size() - end.size()), end);
}

class WblockCommand {
 public:
  explicit WblockCommand(Session& session) : session_(session) {}

  void run() {
    if (!askFile()) return;
    const auto written = askContent();
    if (written && save(*written)) eraseWritten();
  }

 private:
  const Database& database() { return session_.database(); }

  bool askFile() {
    path_ = askPath(session_, "\n输出文件名: ", "\nOutput file: ");
    if (path_.empty()) return false;
    if (!endsNoCase(path_, ".dwg") && !endsNoCase(path_, ".dxf")) path_ += ".dwg";
    return isNewFile() || mayReplace();
  }

  bool isNewFile() const {
    std::error_code error;
    return !std::filesystem::exists(base::resolvePath(base::wideFromUtf8(path_)), error);
  }

  bool mayReplace() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Keyword,
         .message = message(session_, "\n文件已存在，是否替换? [是(Y)/否(N)] <N>: ",
                            "\nThe file exists. Replace it? [Yes/No] <N>: "),
         .keywords = "Yes No"});
    return answer.isKeyword("Yes");
  }

  // The file's name without folder and extension.
  std::string fileTitle() const {
    const std::string name = path_.substr(path_.find_last_of("/\\:") + 1);
    return name.substr(0, name.size() - 4);
  }

  // "=" is the block that is named like the file, "*" the whole drawing. A name that is no block
  // asks again.
  std::optional<WrittenBlock> askContent() {
    while (true) {
      const Answer answer = session_.line.ask(
          {.kind = Ask::Word,
           .message =
               message(session_, "\n输入现有块名或 [块=输出文件(=)/整个图形(*)] <定义新图形>: ",
                       "\nExisting block or [=block named like the file/*whole drawing] "
                       "<define new drawing>: ")});
      if (answer.entered()) return askEntities();
      if (!answer.hasValue()) return {};
      if (answer.text == "*") return wholeDrawing();
      const std::string name = answer.text == "=" ? fileTitle() : answer.text;
      const Handle block = database().findRecord(Table::Blocks, name);
      const auto* record = database().find<BlockRecord>(block);
      if (record && !record->isSpace()) return drawingOfBlock(database(), *record);
      session_.print("\n" + message(session_, "找不到块 ", "There is no block ") + name);
    }
  }

  WrittenBlock wholeDrawing() {
    WrittenBlock written = drawingOfBlock(database(), database().modelSpace());
    written.drawing->header.set("INSBASE", database().header.point("INSBASE"));
    return written;
  }

  std::optional<WrittenBlock> askEntities() {
    const Answer base = session_.line.ask(
        {.kind = Ask::Point,
         .message = message(session_, "\n指定插入基点: ", "\nInsertion base point: ")});
    if (!base.hasValue()) return {};
    auto picked = askSelection(session_);
    if (!picked || picked->empty()) return {};
    picked_ = std::move(*picked);
    return drawingOfEntities(database(), picked_, base.point);
  }

  bool save(const WrittenBlock& written) {
    const auto note = [this](std::string_view text) { session_.print("\n" + std::string(text)); };
    for (const std::string& loss : written.leftBehind) note(loss);
    const base::Status status = saveDrawingFile(*written.drawing, path_, Losses::Refused, note);
    if (!status) session_.printProblem(status);
    return status.ok();
  }

  // Picked entities leave the drawing once they are safe in the file. What couldn't go along stays.
  void eraseWritten() {
    for (const Handle handle : picked_) {
      const auto* entity = database().find<Entity>(handle);
      const bool stays =
          !entity || entity->kind == Kind::RawEntity || entity->kind == Kind::GroupEntity;
      if (!stays) session_.database().erase(handle);
    }
  }

  Session& session_;
  std::string path_;
  Selection picked_;
};

}  // namespace

void addWblockCommand(CommandTable& table) {
  table.add({.name = "WBLOCK", .run = [](Session& session) { WblockCommand(session).run(); }});
  table.addAlias("-WBLOCK", "WBLOCK");
  table.addAlias("W", "WBLOCK");
}

}  // namespace drafting

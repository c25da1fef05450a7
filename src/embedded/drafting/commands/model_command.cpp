// MODEL: the model specifications of blocks, shown and edited. A block carries its own as the first
// text of the extended data of XHGG, and what it is called in the symbol library in that of TKSY.
#include "embedded/base/text.h"
#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/database/xdata.h"

namespace drafting {
namespace {

constexpr std::string_view kModelApp = "XHGG";
constexpr std::string_view kSymbolApp = "TKSY";

std::string firstText(const Database& database, const Entity& entity, std::string_view app) {
  const Handle record = database.findRecord(Table::AppIds, app);
  return record ? firstXDataText(entity, record) : "";
}

// False if the text is too long.
bool setModel(Database& database, Handle handle, const std::string& model) {
  const auto coded = encodeXData({{1000, model}}, database.codePage);
  if (!coded) return false;
  const Handle app = database.registerApp(kModelApp);
  auto& entity = database.edit<Entity>(handle);
  std::erase_if(entity.xdata, [app](const XData& data) { return data.app == app; });
  if (!model.empty()) entity.xdata.push_back({app, *coded});
  return true;
}

class ModelCommand {
 public:
  explicit ModelCommand(Session& session) : session_(session) {}

  void run() {
    const auto selection = askSelection(session_);
    if (!selection) return;
    Selection blocks = *selection;
    std::erase_if(blocks, [this](Handle handle) {
      return database().find<Entity>(handle)->kind != Kind::Insert;
    });
    if (blocks.size() < selection->size()) {
      session_.print("\n" + std::to_string(selection->size() - blocks.size()) +
                     message(session_, " 个对象不是块。", " are no blocks."));
    }
    for (const Handle handle : blocks) {
      if (!edit(handle)) return;
    }
  }

 private:
  Database& database() { return session_.database(); }

  // False if the command is cancelled.
  bool edit(Handle handle) {
    const auto& insert = *database().find<Insert>(handle);
    const std::string old = firstText(database(), insert, kModelApp);
    while (true) {
      const Answer answer = session_.line.ask(
          {.kind = Ask::Line,
           .message = "\n" + nameOf(insert) + message(session_, " 的型号规格 <", ": model <") +
                      old + message(session_, ">（. 表示删除）: ", "> (. for none): ")});
      if (answer.cancelled()) return false;
      const std::string model(base::trim(answer.text));
      if (!answer.hasValue() || model.empty() || model == old) return true;
      if (setModel(database(), handle, model == "." ? "" : model)) return true;
      session_.print(session_.say("\n型号规格太长。", "\nThe model is too long."));
    }
  }

  // The block's name with the symbol's, which stands before a "&".
  std::string nameOf(const Insert& insert) {
    std::string name(database().recordName(insert.block));
    const std::string symbol = firstText(database(), insert, kSymbolApp);
    if (!symbol.empty()) name += " (" + symbol.substr(0, symbol.find('&')) + ")";
    return name;
  }

  Session& session_;
};

}  // namespace

void addModelCommand(CommandTable& table) {
  table.add({.name = "MODEL", .run = [](Session& session) { ModelCommand(session).run(); }});
}

}  // namespace drafting

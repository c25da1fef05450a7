// LAYER in its command-line form: make, set, new, colour, on and off, freeze and thaw, lock, list.
#include <string_view>

#include "embedded/base/text.h"
#include "embedded/drafting/commands/ask.h"

namespace drafting {
namespace {

constexpr std::string_view kIllegal = "<>/\\\":;?*|,=`";

bool legalName(std::string_view name) {
  return !name.empty() && name.size() <= 255 &&
         name.find_first_of(kIllegal) == std::string_view::npos;
}

class LayerCommand {
 public:
  explicit LayerCommand(Session& session) : session_(session) {}

  void run() {
    while (true) {
      const Answer answer = session_.line.ask(
          {.kind = Ask::Keyword,
           .message = message(session_,
                              "\n[?/生成(M)/设置(S)/新建(N)/开(ON)/关(OFF)/颜色(C)/冻结(F)/解冻(T)/"
                              "锁定(LO)/解锁(U)]: ",
                              "\n[?/Make/Set/New/ON/OFF/Color/Freeze/Thaw/LOck/Unlock]: "),
           .keywords = "? Make Set New ON OFF Color Freeze Thaw LOck Unlock"});
      if (answer.outcome != Outcome::Keyword) return;
      option(answer.text);
    }
  }

 private:
  Database& database() { return session_.database(); }

  void option(const std::string& keyword) {
    if (keyword == "?") return list();
    if (keyword == "Make" || keyword == "New") return make(keyword == "Make");
    if (keyword == "Set") return set();
    if (keyword == "Color") return colour();
    change(keyword);
  }

  std::string askName() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Line, .message = message(session_, "\n输入图层名: ", "\nLayer name: ")});
    return answer.hasValue() ? std::string(base::trim(answer.text)) : "";
  }

  Handle askLayer() {
    const std::string name = askName();
    const Handle layer = name.empty() ? 0 : database().findRecord(Table::Layers, name);
    if (!layer && !name.empty()) {
      session_.print("\n" + message(session_, "找不到图层 ", "There is no layer ") + name);
    }
    return layer;
  }

  void list() {
    for (const Handle handle : database().table(Table::Layers).records) {
      const auto* layer = database().find<Layer>(handle);
      if (layer) session_.print("\n" + layer->name + "  " + std::to_string(layer->colour));
    }
  }

  void make(bool current) {
    const std::string name = askName();
    if (name.empty()) return;
    Handle layer = database().findRecord(Table::Layers, name);
    if (!layer && !legalName(name)) {
      session_.print(session_.say("\n无效的图层名。", "\nThat is no name for a layer."));
      return;
    }
    if (!layer) {
      auto record = std::make_unique<Layer>();
      record->name = name;
      layer = database().addRecord(Table::Layers, std::move(record));
    }
    if (current) database().setVariable("CLAYER", layer);
  }

  void set() {
    const Handle layer = askLayer();
    if (layer) database().setVariable("CLAYER", layer);
  }

  void colour() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Word, .message = message(session_, "\n输入颜色: ", "\nColour: ")});
    const auto index = answer.hasValue() ? parseColour(answer.text) : std::nullopt;
    if (!index || *index < 1 || *index > 255) {
      session_.print(session_.say("\n无效的颜色。", "\nThat is no colour."));
      return;
    }
    const Handle layer = askLayer();
    if (layer) database().edit<Layer>(layer).colour = static_cast<std::int16_t>(*index);
  }

  void change(const std::string& keyword) {
    const Handle handle = askLayer();
    if (!handle) return;
    if (keyword == "Freeze" && handle == database().header.handle("CLAYER")) {
      session_.print(session_.say("\n不能冻结当前层。", "\nThe current layer can't be frozen."));
      return;
    }
    auto& layer = database().edit<Layer>(handle);
    if (keyword == "ON" || keyword == "OFF") layer.off = keyword == "OFF";
    if (keyword == "Freeze" || keyword == "Thaw") layer.frozen = keyword == "Freeze";
    if (keyword == "LOck" || keyword == "Unlock") layer.locked = keyword == "LOck";
  }

  Session& session_;
};

}  // namespace

void addLayerCommands(CommandTable& table) {
  table.add({.name = "LAYER", .run = [](Session& session) { LayerCommand(session).run(); }});
  table.addAlias("-LAYER", "LAYER");
  table.addAlias("LA", "LAYER");
}

}  // namespace drafting

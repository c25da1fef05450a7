// LAYER in its command-line form: make, set, new, colour, on and off, freeze and thaw, lock, list.
#include <string_view>

#include "embedded/base/text.h"
#include "embedded/drafting/commands/properties.h"
#include "embedded/drafting/commands/wildcards.h"

namespace drafting {
namespace {

class LayerCommand {
 public:
  explicit LayerCommand(Session& session) : session_(session) {}

  void run() {
    while (true) {
      const Answer answer = session_.line.ask(
          {.kind = Ask::Keyword,
           .message =
               message(session_,
                       "\n[?/生成(M)/设置(S)/新建(N)/开(ON)/关(OFF)/颜色(C)/线型(LT)/线宽(LW)/"
                       "打印(P)/冻结(F)/解冻(T)/锁定(LO)/解锁(U)]: ",
                       "\n[?/Make/Set/New/ON/OFF/Color/LType/LWeight/Plot/Freeze/Thaw/LOck/"
                       "Unlock]: "),
           .keywords = "? Make Set New ON OFF Color LType LWeight Plot Freeze Thaw LOck Unlock"});
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
    if (keyword == "LType") return linetype();
    if (keyword == "LWeight") return lineweight();
    if (keyword == "Plot") return plot();
    change(keyword);
  }

  std::string askName() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Line, .message = message(session_, "\n输入图层名: ", "\nLayer name: ")});
    return answer.hasValue() ? std::string(base::trim(answer.text)) : "";
  }

  Handle findLayer(const std::string& name) {
    const Handle layer = name.empty() ? 0 : database().findRecord(Table::Layers, name);
    if (!layer && !name.empty()) {
      session_.print("\n" + message(session_, "找不到图层 ", "There is no layer ") + name);
    }
    return layer;
  }

  // One name, or a pattern for several.
  std::vector<Handle> askLayers() {
    const std::string name = askName();
    std::vector<Handle> found;
    if (!isPattern(name)) {
      if (const Handle layer = findLayer(name)) found.push_back(layer);
      return found;
    }
    for (const Handle handle : database().table(Table::Layers).records) {
      const auto* layer = database().find<Layer>(handle);
      if (layer && matchesPattern(layer->name, name)) found.push_back(handle);
    }
    if (found.empty())
      session_.print("\n" + message(session_, "找不到图层 ", "There is no layer ") + name);
    return found;
  }

  void list() {
    for (const Handle handle : database().table(Table::Layers).records) {
      const auto* layer = database().find<Layer>(handle);
      if (layer) session_.print("\n" + layer->name + "  " + std::to_string(layer->colour));
    }
  }

  // New takes several names with commas between them.
  void make(bool current) {
    const std::string names = askName();
    std::string_view rest = names;
    while (!rest.empty()) {
      const std::size_t comma = current ? std::string_view::npos : rest.find(',');
      makeOne(std::string(base::trim(rest.substr(0, comma))), current);
      rest.remove_prefix(comma == std::string_view::npos ? rest.size() : comma + 1);
    }
  }

  void makeOne(const std::string& name, bool current) {
    Handle layer = database().findRecord(Table::Layers, name);
    if (!layer && !isLegalName(name)) {
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
    const Handle layer = findLayer(askName());
    if (layer) database().setVariable("CLAYER", layer);
  }

  template <class F>
  void changeAll(F f) {
    for (const Handle layer : askLayers()) f(database().edit<Layer>(layer));
  }

  void colour() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Word, .message = message(session_, "\n输入颜色: ", "\nColour: ")});
    const auto index = answer.hasValue() ? parseColour(answer.text) : std::nullopt;
    if (!index || *index < 1 || *index > 255) {
      session_.print(session_.say("\n无效的颜色。", "\nThat is no colour."));
      return;
    }
    changeAll([&](Layer& layer) { layer.colour = static_cast<std::int16_t>(*index); });
  }

  void linetype() {
    const Handle linetype =
        askRecord(session_, Table::Linetypes, "\n输入线型名: ", "\nLinetype name: ");
    if (linetype) changeAll([&](Layer& layer) { layer.linetype = linetype; });
  }

  void lineweight() {
    const auto weight =
        askLineweight(session_, "\n输入线宽 (毫米或 Default): ", "\nLineweight (mm or Default): ");
    if (weight) changeAll([&](Layer& layer) { layer.lineweight = *weight; });
  }

  void plot() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Keyword,
         .message = message(session_, "\n[打印(P)/不打印(N)] <P>: ", "\n[Plot/No plot] <Plot>: "),
         .keywords = "Plot No"});
    if (answer.cancelled()) return;
    changeAll([&](Layer& layer) { layer.plotted = !answer.isKeyword("No"); });
  }

  void change(const std::string& keyword) {
    for (const Handle handle : askLayers()) {
      if (keyword == "Freeze" && handle == database().header.handle("CLAYER")) {
        session_.print(session_.say("\n不能冻结当前层。", "\nThe current layer can't be frozen."));
        continue;
      }
      auto& layer = database().edit<Layer>(handle);
      if (keyword == "ON" || keyword == "OFF") layer.off = keyword == "OFF";
      if (keyword == "Freeze" || keyword == "Thaw") layer.frozen = keyword == "Freeze";
      if (keyword == "LOck" || keyword == "Unlock") layer.locked = keyword == "LOck";
    }
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

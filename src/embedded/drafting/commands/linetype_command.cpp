// LINETYPE in its command-line form: lists, loads and sets linetypes. Those that can be loaded
// stand in a table here, in millimetres of paper; NAME2 has half and NAMEX2 double lengths.
#include <cmath>

#include "embedded/base/text.h"
#include "embedded/drafting/commands/properties.h"
#include "embedded/drafting/commands/wildcards.h"

namespace drafting {
namespace {

struct Pattern {
  std::string_view name;
  std::string_view description;
  std::vector<double> dashes;  // below 0 a gap, 0 a dot
};

const std::vector<Pattern>& patterns() {
  static const std::vector<Pattern> all = {
      {"BORDER", "__ __ . __ __ .", {12.7, -6.35, 12.7, -6.35, 0, -6.35}},
      {"CENTER", "____ _ ____ _", {31.75, -6.35, 6.35, -6.35}},
      {"DASHDOT", "__ . __ . __", {12.7, -6.35, 0, -6.35}},
      {"DASHED", "__ __ __ __", {12.7, -6.35}},
      {"DIVIDE", "__ . . __ . .", {12.7, -6.35, 0, -6.35, 0, -6.35}},
      {"DOT", ". . . . . .", {0, -6.35}},
      {"HIDDEN", "_ _ _ _ _ _", {6.35, -3.175}},
      {"PHANTOM", "____ _ _ ____", {31.75, -6.35, 6.35, -6.35, 6.35, -6.35}}};
  return all;
}

struct Size {
  std::string_view suffix;
  double factor;
};
constexpr Size kSizes[] = {{"", 1}, {"2", 0.5}, {"X2", 2}};

std::unique_ptr<Linetype> recordOf(const Pattern& pattern, const Size& size) {
  auto record = std::make_unique<Linetype>();
  record->name = std::string(pattern.name) + std::string(size.suffix);
  record->description = pattern.description;
  for (const double length : pattern.dashes) {
    Linetype::Dash dash;
    dash.length = length * size.factor;
    record->patternLength += std::abs(dash.length);
    record->dashes.push_back(dash);
  }
  return record;
}

class LinetypeCommand {
 public:
  explicit LinetypeCommand(Session& session) : session_(session) {}

  void run() {
    while (true) {
      const Answer answer = session_.line.ask(
          {.kind = Ask::Keyword,
           .message = message(session_, "\n[?/加载(L)/设置(S)]: ", "\n[?/Load/Set]: "),
           .keywords = "? Load Set"});
      if (answer.outcome != Outcome::Keyword) return;
      if (answer.text == "?") list();
      if (answer.text == "Load") load();
      if (answer.text == "Set") set();
    }
  }

 private:
  Database& database() { return session_.database(); }

  void list() {
    for (const Handle handle : database().table(Table::Linetypes).records) {
      const auto* linetype = database().find<Linetype>(handle);
      if (linetype) session_.print("\n" + linetype->name + "  " + linetype->description);
    }
  }

  // A name or a pattern of names; what the drawing has already stays as it is.
  void load() {
    const Answer answer = session_.line.ask(
        {.kind = Ask::Line,
         .message = message(session_, "\n输入要加载的线型: ", "\nLinetypes to load: ")});
    const std::string names(answer.hasValue() ? base::trim(answer.text) : "");
    if (names.empty()) return;
    int known = 0, made = 0;
    for (const Pattern& pattern : patterns()) {
      for (const Size& size : kSizes) {
        auto record = recordOf(pattern, size);
        if (!matchesPattern(record->name, names)) continue;
        ++known;
        if (database().findRecord(Table::Linetypes, record->name)) continue;
        database().addRecord(Table::Linetypes, std::move(record));
        ++made;
      }
    }
    session_.print(known ? "\n" + std::to_string(made) +
                               message(session_, " 个线型已加载。", " linetypes loaded.")
                         : "\n" + message(session_, "找不到 ", "There is no ") + names);
  }

  void set() {
    const std::string current = session_.variables.text("CELTYPE");
    const Answer answer = session_.line.ask(
        {.kind = Ask::Line,
         .message = message(session_, "\n输入线型名 <", "\nLinetype name <") + current + ">: "});
    if (!answer.hasValue() || answer.text.empty()) return;
    const base::Status status =
        session_.variables.set("CELTYPE", std::string(base::trim(answer.text)));
    if (!status) session_.printProblem(status);
  }

  Session& session_;
};

}  // namespace

void addLinetypeCommand(CommandTable& table) {
  table.add({.name = "LINETYPE", .run = [](Session& s) { LinetypeCommand(s).run(); }});
  table.addAlias("-LINETYPE", "LINETYPE");
  table.addAlias("LT", "LINETYPE");
}

}  // namespace drafting

#include "embedded/drafting/documents/system_variables.h"

#include <array>
#include <limits>

#include "embedded/base/text.h"
#include "embedded/drafting/commands/answer_parser.h"
#include "embedded/drafting/documents/session.h"

namespace drafting {
namespace {

enum class Store : std::uint8_t {
  Drawing,  // the header's variable of the same name
  Own,      // the session
  Record,   // the header's handle of a record, seen as its name
  Colour,   // the header's colour index, seen as its name
  Computed,
};

struct Row {
  std::string_view name;
  Store store;
  VariableValue initial = 0;  // of Own
  double least = std::numeric_limits<double>::lowest();
  double most = std::numeric_limits<double>::max();
  bool readOnly = false;
};

// Variables that aren't plain ones of the drawing's header, and the limits of some that are.
const Row kRows[] = {
    {"ATTDIA", Store::Own, 0, 0, 1},
    {"ATTREQ", Store::Own, 1, 0, 1},
    {"BLIPMODE", Store::Own, 0, 0, 1},
    {"CMDECHO", Store::Own, 1, 0, 1},
    {"ERRNO", Store::Own, 0, 0, 32767},
    {"EXPERT", Store::Own, 0, 0, 5},
    {"FILEDIA", Store::Own, 1, 0, 1},
    {"HIGHLIGHT", Store::Own, 1, 0, 1},
    {"INSNAME", Store::Own, std::string()},
    {"LASTPOINT", Store::Own, Point3{}},
    {"OSMODE", Store::Own, 0, 0, 32767},
    {"SAVETIME", Store::Own, 10, 0, 600},
    {"OSNAPCOORD", Store::Own, 2, 0, 2},
    {"APERTURE", Store::Own, 10, 1, 50},
    {"PICKBOX", Store::Own, 3, 0, 50},
    {"VIEWCTR", Store::Computed, 0, 0, 0, true},
    {"VIEWSIZE", Store::Computed, 0, 0, 0, true},
    {"SCREENSIZE", Store::Computed, 0, 0, 0, true},
    {"ACADVER", Store::Own, std::string("15.0"), 0, 0, true},
    {"PLATFORM", Store::Own, std::string("Vornik drafting"), 0, 0, true},
    {"CLAYER", Store::Record},
    {"TEXTSTYLE", Store::Record},
    {"CELTYPE", Store::Record},
    {"CECOLOR", Store::Colour},
    {"DWGNAME", Store::Computed, 0, 0, 0, true},
    {"DWGPREFIX", Store::Computed, 0, 0, 0, true},
    {"DWGTITLED", Store::Computed, 0, 0, 0, true},
    {"DBMOD", Store::Computed, 0, 0, 0, true},
    {"HANDSEED", Store::Drawing, 0, 0, 0, true},
    {"EXTMIN", Store::Drawing, 0, 0, 0, true},
    {"EXTMAX", Store::Drawing, 0, 0, 0, true},
    {"DIMSCALE", Store::Drawing, 0, 0},
    {"LTSCALE", Store::Drawing, 0, 1e-99},
    {"CELTSCALE", Store::Drawing, 0, 1e-99},
    {"MIRRTEXT", Store::Drawing, 0, 0, 1},
    {"ORTHOMODE", Store::Drawing, 0, 0, 1},
    {"TEXTSIZE", Store::Drawing, 0, 1e-99},
    {"PLINEWID", Store::Drawing, 0, 0},
    {"PDMODE", Store::Drawing, 0, 0, 100},
};

const Row* findRow(std::string_view name) {
  for (const Row& row : kRows) {
    if (base::equalsNoCase(row.name, name)) return &row;
  }
  return nullptr;
}

struct RecordVariable {
  std::string_view name;
  Table table;
};
constexpr RecordVariable kRecordVariables[] = {
    {"CLAYER", Table::Layers}, {"TEXTSTYLE", Table::Styles}, {"CELTYPE", Table::Linetypes}};

Table tableOf(std::string_view name) {
  for (const auto& row : kRecordVariables) {
    if (base::equalsNoCase(row.name, name)) return row.table;
  }
  return Table::Layers;
}

constexpr std::array<std::string_view, 8> kColourNames = {"BYBLOCK", "red",  "yellow",  "green",
                                                          "cyan",    "blue", "magenta", "white"};

std::string fileName(const std::string& path) { return path.substr(path.find_last_of("/\\") + 1); }

VariableValue computed(const Session& session, const Document& document, std::string_view name) {
  if (base::equalsNoCase(name, "DWGNAME")) {
    return document.path.empty() ? std::string(session.say("未命名.dwg", "Drawing.dwg"))
                                 : fileName(document.path);
  }
  if (base::equalsNoCase(name, "DWGPREFIX")) {
    return document.path.substr(0, document.path.size() - fileName(document.path).size());
  }
  if (base::equalsNoCase(name, "VIEWCTR")) {
    return Point3{session.view.centre().x, session.view.centre().y, 0};
  }
  if (base::equalsNoCase(name, "VIEWSIZE")) return session.view.height();
  if (base::equalsNoCase(name, "SCREENSIZE")) return session.view.screenSize();
  if (base::equalsNoCase(name, "DWGTITLED")) return document.path.empty() ? 0 : 1;
  return document.database->journal().changedSinceSave() ? 1 : 0;
}

// Takes the value to the type that the variable has now; nothing if that would lose something.
std::optional<VariableValue> adapted(const VariableValue& value, const VariableValue& like) {
  if (value.index() == like.index()) return value;
  if (const int* whole = std::get_if<int>(&value); whole && std::holds_alternative<double>(like)) {
    return static_cast<double>(*whole);
  }
  if (const auto* flat = std::get_if<Point2>(&value);
      flat && std::holds_alternative<Point3>(like)) {
    return Point3{flat->x, flat->y, 0};
  }
  if (const auto* point = std::get_if<Point3>(&value);
      point && std::holds_alternative<Point2>(like)) {
    return Point2{point->x, point->y};
  }
  return {};
}

bool withinLimits(const Row& row, const VariableValue& value) {
  const double* real = std::get_if<double>(&value);
  const int* whole = std::get_if<int>(&value);
  if (!real && !whole) return true;
  const double number = real ? *real : *whole;
  return number >= row.least && number <= row.most;
}

}  // namespace

std::optional<int> parseColour(std::string_view text) {
  if (base::equalsNoCase(text, "BYLAYER")) return kColourByLayer;
  for (std::size_t i = 0; i < kColourNames.size(); ++i) {
    if (base::equalsNoCase(text, kColourNames[i])) return static_cast<int>(i);
  }
  const auto number = parseInteger(text);
  if (!number || *number < 0 || *number > 256) return {};
  return number;
}

std::string colourName(int colour) {
  if (colour == kColourByLayer) return "BYLAYER";
  if (colour == kColourByBlock) return "BYBLOCK";
  return std::to_string(colour);
}

SystemVariables::SystemVariables(Session& session) : session_(session) {
  for (const Row& row : kRows) {
    if (row.store == Store::Own) own_.emplace(row.name, row.initial);
  }
}

std::optional<VariableValue> SystemVariables::get(std::string_view name) const {
  const Row* row = findRow(name);
  const Header& header = session_.database().header;
  if (!row || row->store == Store::Drawing) {
    const VariableValue* value = header.find(name);
    if (!value || std::holds_alternative<Handle>(*value)) return {};
    return *value;
  }
  switch (row->store) {
    case Store::Own: return own_.find(row->name)->second;
    case Store::Record:
      return std::string(session_.database().recordName(header.handle(row->name)));
    case Store::Colour: return colourName(header.integer(row->name));
    default: return computed(session_, session_.document(), row->name);
  }
}

base::Status SystemVariables::set(std::string_view name, const VariableValue& value) {
  const auto fail = [&](std::string_view chinese, std::string_view english) {
    return base::Status::failure(std::string(name) + ": " +
                                 std::string(session_.say(chinese, english)));
  };
  const auto old = get(name);
  if (!old) return fail("没有此系统变量", "there is no such system variable");
  const Row* row = findRow(name);
  if (row && row->readOnly) return fail("只读的系统变量", "the variable can only be read");
  const auto fitting = adapted(value, *old);
  if (!fitting) return fail("值的类型不对", "the value has the wrong type");
  if (row && !withinLimits(*row, *fitting)) return fail("值超出范围", "the value is out of range");
  if (row && row->store == Store::Record)
    return setByName(row->name, std::get<std::string>(*fitting));
  if (row && row->store == Store::Colour) {
    const auto colour = parseColour(std::get<std::string>(*fitting));
    if (!colour) return fail("无效的颜色", "that is no colour");
    session_.database().setVariable(row->name, *colour);
    return {};
  }
  put(name, *fitting);
  return {};
}

base::Status SystemVariables::setByName(std::string_view name, const std::string& record) {
  const Handle handle = session_.database().findRecord(tableOf(name), record);
  if (handle == 0) {
    return base::Status::failure(std::string(name) + ": " +
                                 std::string(session_.say("找不到 ", "there is no ")) + record);
  }
  session_.database().setVariable(name, handle);
  return {};
}

void SystemVariables::put(std::string_view name, VariableValue value) {
  const Row* row = findRow(name);
  if (row && row->store == Store::Own) {
    own_.find(row->name)->second = std::move(value);
  } else {
    session_.database().setVariable(name, std::move(value));
  }
}

int SystemVariables::integer(std::string_view name) const {
  const auto value = get(name);
  return value && std::holds_alternative<int>(*value) ? std::get<int>(*value) : 0;
}

double SystemVariables::real(std::string_view name) const {
  const auto value = get(name);
  if (!value) return 0;
  if (const int* whole = std::get_if<int>(&*value)) return *whole;
  return std::holds_alternative<double>(*value) ? std::get<double>(*value) : 0;
}

std::string SystemVariables::text(std::string_view name) const {
  const auto value = get(name);
  return value && std::holds_alternative<std::string>(*value) ? std::get<std::string>(*value) : "";
}

Point3 SystemVariables::point(std::string_view name) const {
  const auto value = get(name);
  return value && std::holds_alternative<Point3>(*value) ? std::get<Point3>(*value) : Point3{};
}

}  // namespace drafting

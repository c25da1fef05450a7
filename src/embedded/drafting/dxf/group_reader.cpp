#include "embedded/drafting/dxf/group_reader.h"

#include <algorithm>
#include <cstdlib>

#include "embedded/drafting/dwg/text_coding.h"

namespace drafting {

// The array form of an INSERT has a subclass name of its own.
void GroupReader::subclass(const char* name) {
  const std::string_view wanted = name;
  const bool isArray = wanted == "AcDbBlockReference" && groups_.hasSubclass("AcDbMInsertBlock");
  groups_.enter(isArray ? "AcDbMInsertBlock" : wanted);
}

void GroupReader::colour(const char*, int group, std::int16_t& value) {
  const int stated = groups_.integer(group, value);
  value = static_cast<std::int16_t>(std::abs(std::clamp(stated, -257, 257)));
}

void GroupReader::longText(const char*, int group, std::string& value) {
  value.clear();
  for (const Group& piece : groups_) {
    if (piece.code == 3 || piece.code == group) value += piece.value;
  }
}

void GroupReader::flat(const char*, int group, Point2& value) {
  const Point3 point = groups_.point(group, {value.x, value.y, 0});
  value = {point.x, point.y};
}

// Groups below 100 name a record: 2 a block, 6 a linetype, 7 a text style.
void GroupReader::handle(const char*, int group, std::uint8_t, Handle& value) {
  if (group >= 100) {
    value = groups_.handle(group);
  } else if (group == 2) {
    value = tables_.findOrMake(Table::Blocks, groups_.text(group));
  } else if (group == 6 || group == 7) {
    const bool isStyle = group == 7;
    const std::string_view name = groups_.text(group);
    const std::string_view usual = isStyle ? "Standard" : "Continuous";
    value =
        tables_.findOrMake(isStyle ? Table::Styles : Table::Linetypes, name.empty() ? usual : name);
  }
}

void GroupReader::recordFlags(Record& record) {
  const int flags = groups_.integer(70, 0);
  record.xrefDependent = (flags & 16) != 0;
  if (record.kind == Kind::Layer) {
    auto& layer = static_cast<Layer&>(record);
    layer.frozen = (flags & 1) != 0;
    layer.frozenInNew = (flags & 2) != 0;
    layer.locked = (flags & 4) != 0;
  } else if (record.kind == Kind::TextStyle) {
    auto& style = static_cast<TextStyle&>(record);
    style.isShapeFile = (flags & 1) != 0;
    style.vertical = (flags & 4) != 0;
  }
}

void GroupReader::lineEnds(Line& line) {
  line.start = groups_.point(10, {});
  line.end = groups_.point(11, {});
}

void GroupReader::solidCorners(Solid& solid) {
  Point3 last;
  for (int i = 0; i < 4; ++i) {
    last = groups_.point(10 + i, last);  // a missing fourth corner is the third
    solid.corners[static_cast<std::size_t>(i)] = {last.x, last.y};
    if (i == 0) solid.elevation = last.z;
  }
}

void GroupReader::lwPolyline(LwPolyline& line) {
  bool hasBulges = false, hasWidths = false;
  for (const Group& group : groups_) {
    if (group.code == 10) {
      line.points.emplace_back();
      line.bulges.push_back(0);
      line.widths.emplace_back();
      line.points.back().x = GroupSection::realOf(group);
    } else if (group.code == 43) {
      line.constantWidth = GroupSection::realOf(group);
    } else if (line.points.empty()) {
      continue;
    } else if (group.code == 20) {
      line.points.back().y = GroupSection::realOf(group);
    } else if (group.code == 42) {
      line.bulges.back() = GroupSection::realOf(group);
      hasBulges = true;
    } else if (group.code == 40 || group.code == 41) {
      auto& width = line.widths.back();
      (group.code == 40 ? width.start : width.end) = GroupSection::realOf(group);
      hasWidths = true;
    }
  }
  if (!hasBulges) line.bulges.clear();
  if (!hasWidths) line.widths.clear();
  const int flags = groups_.integer(70, 0);
  line.closed = (flags & 1) != 0;
  line.continuousPattern = (flags & 128) != 0;
  line.elevation = groups_.real(38, 0);
  line.thickness = groups_.real(39, 0);
  line.normal = groups_.point(210, kZAxis);
}

void GroupReader::textFields(TextBase& t) {
  const Point3 position = groups_.point(10, {}), alignment = groups_.point(11, {});
  t.position = {position.x, position.y};
  t.alignment = {alignment.x, alignment.y};
  t.elevation = position.z;
  thickness(39, t.thickness);
  real("", 40, t.height);
  text("", 1, t.text);
  angle("", 50, t.rotation);
  real("", 41, t.widthFactor);
  angle("", 51, t.oblique);
  integer("", 71, t.generation);
  integer("", 72, t.horizontal);
  extrusion(210, t.normal);
  // Some programs don't begin a second section for it.
  verticalAlignment(t.kind == Kind::Text ? 73 : 74, t);
}

void GroupReader::verticalAlignment(int group, TextBase& text) {
  integer("", group, text.vertical);
}

void GroupReader::insertScale(Insert& insert) {
  insert.scale = {groups_.real(41, 1), groups_.real(42, 1), groups_.real(43, 1)};
}

void GroupReader::insertTail(Insert& insert) {
  integer("", 70, insert.columns);
  integer("", 71, insert.rows);
  real("", 44, insert.columnSpacing);
  real("", 45, insert.rowSpacing);
  insert.isArray = groups_.hasSubclass("AcDbMInsertBlock") || insert.columns > 1 || insert.rows > 1;
}

void GroupReader::layerFlags(Layer& layer) {
  layer.off = groups_.integer(62, 7) < 0;
  layer.lineweight = indexOfLineweight(groups_.integer(370, -3));
  layer.plotted = groups_.integer(290, 1) != 0;
}

// Puts a text into the text area; the result is where it stands there.
std::int16_t GroupReader::dashText(Linetype& linetype, std::string_view text) {
  const std::string bytes = encodeText(text, codePage_);
  const std::size_t at = textEnd_;
  if (at + bytes.size() + 1 > linetype.textArea.size()) return 0;
  linetype.textArea.replace(at, bytes.size(), bytes);
  textEnd_ = at + bytes.size() + 1;
  return static_cast<std::int16_t>(at);
}

void GroupReader::dashes(Linetype& linetype) {
  constexpr std::size_t kMost = 255;
  linetype.dashes.clear();
  for (const Group& group : groups_) {
    if (group.code == 49 && linetype.dashes.size() < kMost) {
      linetype.dashes.push_back({GroupSection::realOf(group)});
      continue;
    }
    if (linetype.dashes.empty()) continue;
    Linetype::Dash& dash = linetype.dashes.back();
    switch (group.code) {
      case 74: dash.flags = static_cast<std::int16_t>(GroupSection::integerOf(group)); break;
      case 75: dash.shape = static_cast<std::int16_t>(GroupSection::integerOf(group)); break;
      case 340: dash.style = GroupSection::handleOf(group); break;
      case 46: dash.scale = GroupSection::realOf(group); break;
      case 50: dash.rotation = base::radians(GroupSection::realOf(group)); break;
      case 44: dash.x = GroupSection::realOf(group); break;
      case 45: dash.y = GroupSection::realOf(group); break;
      case 9: dash.shape = dashText(linetype, group.value); break;
      default: break;
    }
  }
}

namespace {

struct UsualValue {
  const char* name;
  double value;
};
// What a value that a file leaves out stands for; those not listed here are as in a new drawing.
constexpr UsualValue kUsual[] = {
    {"DIMASZ", 0.18}, {"DIMEXO", 0.0625}, {"DIMDLI", 0.38}, {"DIMEXE", 0.18}, {"DIMTXT", 0.18},
    {"DIMCEN", 0.09}, {"DIMGAP", 0.09},   {"DIMTIH", 1},    {"DIMTOH", 1},    {"DIMTAD", 0},
    {"DIMZIN", 0},    {"DIMALTF", 25.4},  {"DIMALTD", 2},   {"DIMTOFL", 0},   {"DIMDEC", 4},
    {"DIMTDEC", 4},   {"DIMALTTD", 2},    {"DIMTOLJ", 1},   {"DIMTZIN", 0}};

double usualValue(std::string_view name, double initial) {
  for (const UsualValue& row : kUsual) {
    if (name == row.name) return row.value;
  }
  return initial;
}

}  // namespace

void GroupReader::dimensionValues(DimStyle& style) {
  const auto table = dimensionVariables();
  for (std::size_t i = 0; i < table.size(); ++i) {
    const int group = table[i].styleGroup;
    VariableValue& value = style.values[i];
    if (auto* real = std::get_if<double>(&value)) {
      *real = groups_.real(group, usualValue(table[i].name, *real));
    } else if (auto* integer = std::get_if<int>(&value)) {
      *integer = groups_.integer(group, static_cast<int>(usualValue(table[i].name, *integer)));
    } else if (auto* text = std::get_if<std::string>(&value)) {
      *text = groups_.text(group);
    } else {
      value = groups_.handle(group);
    }
  }
}

void GroupReader::dictionaryItems(Dictionary& dictionary) {
  byte("", 280, dictionary.hardOwner);
  integer("", 281, dictionary.cloning);
  dictionary.items.clear();
  bool isNamed = false;
  for (const Group& group : groups_) {
    if (group.code == 3) dictionary.items.emplace_back(group.value, 0);
    if ((group.code == 350 || group.code == 360) && isNamed) {
      dictionary.items.back().second = GroupSection::handleOf(group);
    }
    isNamed = group.code == 3;
  }
  groups_.enter("AcDbDictionaryWithDefault");
  dictionary.defaultItem = dictionary.withDefault ? groups_.handle(340) : 0;
}

}  // namespace drafting

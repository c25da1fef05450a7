#include "embedded/drafting/dxf/dxf_header.h"

#include <algorithm>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"
#include "embedded/drafting/dxf/header_groups.h"
#include "embedded/drafting/dxf/object_source.h"

namespace drafting {
namespace {

struct Release {
  int version;
  const char* name;
};
constexpr Release kNewer[] = {
    {1018, "2004"}, {1021, "2007"}, {1024, "2010"}, {1027, "2013"}, {1032, "2018"}};
constexpr int kFirst = 1001, kOwn = 1015;

constexpr Handle kLargestSeed = Handle{1} << 48;

// A value as the alternative that `like` is; unchanged where a group is missing.
VariableValue valueLike(const VariableValue& like, std::span<const Group> groups, bool isAngle) {
  const GroupSection section(groups);
  const Group& first = groups.front();
  if (std::holds_alternative<double>(like)) {
    const double value = GroupSection::realOf(first);
    return isAngle ? base::radians(value) : value;
  }
  if (std::holds_alternative<int>(like)) return GroupSection::integerOf(first);
  if (std::holds_alternative<std::string>(like)) return std::string(first.value);
  const Point3 point = section.point(10, {});
  if (std::holds_alternative<Point2>(like)) return Point2{point.x, point.y};
  if (std::holds_alternative<Point3>(like)) return point;
  return like;
}

Handle dictionaryItem(const Database& db, Handle dictionary, std::string_view key) {
  const auto* found = db.find<Dictionary>(dictionary);
  if (!found) return 0;
  for (const auto& [name, item] : found->items) {
    if (base::equalsNoCase(name, key)) return item;
  }
  return 0;
}

}  // namespace

void DxfHeader::read(std::span<const Group> groups, ReadReport& report, std::size_t line) {
  constexpr int kName = 9;
  for (const Group& group : groups) {
    if (group.code == kName) {
      std::string_view name = base::trim(group.value);
      if (!name.empty() && name[0] == '$') name.remove_prefix(1);
      variables_.push_back({std::string(name), {}});
    } else if (!variables_.empty()) {
      variables_.back().groups.emplace_back(group.code, std::string(group.value));
    }
  }
  for (const Stated& stated : variables_) {
    if (stated.groups.empty()) continue;
    const std::string& value = stated.groups.front().second;
    if (stated.name == "ACADVER") checkVersion(value, report, line);
    if (stated.name == "DWGCODEPAGE") codePage_ = codePageOfName(value);
    if (stated.name == "HANDSEED") handleSeed_ = GroupSection::handleOf({5, value});
  }
  if (handleSeed_ > kLargestSeed) handleSeed_ = 0;
}

void DxfHeader::checkVersion(std::string_view value, ReadReport& report, std::size_t line) {
  const std::string version(base::trim(value));
  version_ = versionNumber(version);
  if (version_ >= kFirst && version_ <= kOwn) return;
  for (const Release& release : kNewer) {
    if (release.version != version_) continue;
    report.addLine(line, "the file is of version " + std::string(release.name) + " (" + version +
                             "); what a drawing of version 2000 can't hold is left out");
    return;
  }
  failure_ = "the file is of an unknown version (" + version +
             "); save it as DXF of version 2000 in the program that it comes from";
}

void DxfHeader::apply(Database& db, const DxfTables& tables) const {
  for (const DictionaryVariable& row : kDictionaryVariables) {
    const Handle found = dictionaryItem(db, db.header.handle("NAMED_DICTIONARY"), row.key);
    if (found != 0) db.header.set(row.variable, found);
  }
  for (const Stated& stated : variables_) {
    if (stated.groups.empty() || stated.name == "HANDSEED") continue;
    const int index = Header::indexOf(stated.name);
    if (index < 0) {
      setFlag(db, stated);
      continue;
    }
    if (std::holds_alternative<Handle>(db.header.at(index))) {
      setNamed(db, tables, stated);
      continue;
    }
    std::vector<Group> groups;
    for (const auto& [code, value] : stated.groups) groups.push_back({code, value});
    const bool isAngle = groups.front().code == 50;
    db.header.at(index) = valueLike(db.header.at(index), groups, isAngle);
  }
}

void DxfHeader::setNamed(Database& db, const DxfTables& tables, const Stated& stated) const {
  const std::string& name = stated.groups.front().second;
  if (stated.name == kMultilineVariable) {
    const Handle style = dictionaryItem(db, db.header.handle("MLINESTYLE_DICTIONARY"), name);
    if (style != 0) db.header.set(stated.name, style);
    return;
  }
  const NamingVariable* naming = findNamingVariable(stated.name);
  const Handle record = naming && !name.empty() ? tables.find(naming->table, name) : 0;
  if (record != 0) db.header.set(stated.name, record);
}

void DxfHeader::setFlag(Database& db, const Stated& stated) {
  const auto row = std::find_if(std::begin(kFlagVariables), std::end(kFlagVariables),
                                [&](const FlagVariable& r) { return stated.name == r.name; });
  if (row == std::end(kFlagVariables)) return;
  int value = base::atoi(stated.groups.front().second);
  if (row->group == 370) value = indexOfLineweight(value);
  if (row->inverted) value = value == 0 ? 1 : 0;
  const int flags = db.header.integer("FLAGS") & ~row->mask;
  db.header.set("FLAGS", flags | ((value << row->shift) & row->mask));
}

}  // namespace drafting

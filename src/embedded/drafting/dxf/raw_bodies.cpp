// XRECORDs, whose body is a list of groups itself, are in raw_records.cpp.
#include "embedded/drafting/dxf/raw_bodies.h"

#include <algorithm>
#include <array>
#include <span>

#include "embedded/base/text.h"
#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/dwg/bit_reader.h"
#include "embedded/drafting/dwg/bit_writer.h"
#include "embedded/drafting/dwg/text_coding.h"
#include "embedded/drafting/dxf/raw_records.h"

namespace drafting {
namespace {

// How a field stands in a DWG body.
enum class Form : std::uint8_t {
  Subclass,    // nothing: a marker in DXF
  Text,        // T
  Short,       // BS
  Long,        // BL
  Byte,        // RC
  Real,        // BD
  Angle,       // BD, degrees in DXF
  Flat,        // 2RD
  Space,       // 3BD
  ViewMode,    // 4 B: bits 0, 1, 2 and the inverse of bit 4
  PaperFlag,   // B; DXF has it in the record's flags
  HasUcs,      // B; without it the body ends here
  Handle,      // next of the references; `code` is the DWG code
  HandleList,  // BL count here, the references at their place
  Lines,       // RC count; the rows behind it repeat
  LineStyle,   // BS index of a linetype, 7FFF by layer, 7FFE by block; a name in DXF
};

struct Field {
  Form form;
  int group = 0;
  std::uint8_t code = 0;
  const char* name = nullptr;
};

constexpr Field kLayout[] = {{Form::Subclass, 100, 0, "AcDbPlotSettings"},
                             {Form::Text, 1},
                             {Form::Text, 2},
                             {Form::Short, 70},
                             {Form::Real, 40},  // margins
                             {Form::Real, 41},
                             {Form::Real, 42},
                             {Form::Real, 43},
                             {Form::Real, 44},  // paper
                             {Form::Real, 45},
                             {Form::Text, 4},
                             {Form::Real, 46},
                             {Form::Real, 47},
                             {Form::Short, 72},
                             {Form::Short, 73},
                             {Form::Short, 74},
                             {Form::Real, 48},
                             {Form::Real, 49},
                             {Form::Real, 140},
                             {Form::Real, 141},
                             {Form::Text, 6},
                             {Form::Real, 142},
                             {Form::Real, 143},
                             {Form::Text, 7},
                             {Form::Short, 75},
                             {Form::Real, 147},
                             {Form::Real, 148},
                             {Form::Real, 149},
                             {Form::Subclass, 100, 0, "AcDbLayout"},
                             {Form::Text, 1},
                             {Form::Long, 71},
                             {Form::Short, 70},
                             {Form::Space, 13},
                             {Form::Flat, 10},
                             {Form::Flat, 11},
                             {Form::Space, 12},
                             {Form::Space, 16},
                             {Form::Space, 17},
                             {Form::Real, 146},
                             {Form::Short, 76},
                             {Form::Space, 14},
                             {Form::Space, 15},
                             {Form::Handle, 330, kSoftPointer},
                             {Form::Handle, 331, kSoftPointer},
                             {Form::Handle, 346, kHardPointer},
                             {Form::Handle, 345, kHardPointer}};

constexpr Field kMlineStyle[] = {{Form::Subclass, 100, 0, "AcDbMlineStyle"},
                                 {Form::Text, 2},
                                 {Form::Text, 3},
                                 {Form::Short, 70},
                                 {Form::Short, 62},
                                 {Form::Angle, 51},
                                 {Form::Angle, 52},
                                 {Form::Lines, 71},
                                 {Form::Real, 49},
                                 {Form::Short, 62},
                                 {Form::LineStyle, 6}};

constexpr Field kGroup[] = {{Form::Subclass, 100, 0, "AcDbGroup"},
                            {Form::Text, 300},
                            {Form::Short, 70},
                            {Form::Short, 71},
                            {Form::HandleList, 340, kHardPointer}};

constexpr Field kView[] = {{Form::Real, 40},
                           {Form::Real, 41},
                           {Form::Flat, 10},
                           {Form::Space, 12},
                           {Form::Space, 11},
                           {Form::Angle, 50},
                           {Form::Real, 42},
                           {Form::Real, 43},
                           {Form::Real, 44},
                           {Form::ViewMode, 71},
                           {Form::Byte, 281},
                           {Form::PaperFlag, 70},
                           {Form::HasUcs, 72},
                           {Form::Space, 110},
                           {Form::Space, 111},
                           {Form::Space, 112},
                           {Form::Real, 146},
                           {Form::Short, 79},
                           {Form::Handle, 0, kHardPointer},
                           {Form::Handle, 346, kHardPointer},
                           {Form::Handle, 345, kHardPointer}};

constexpr Field kUcs[] = {{Form::Space, 10},
                          {Form::Space, 11},
                          {Form::Space, 12},
                          {Form::Real, 146},
                          {Form::Short, 79},
                          {Form::Short, 0},
                          {Form::Handle, 0, kHardPointer},
                          {Form::Handle, 346, kHardPointer}};

constexpr Field kDictionaryVariable[] = {
    {Form::Subclass, 100, 0, "DictionaryVariables"}, {Form::Byte, 280}, {Form::Text, 1}};

struct RawKind {
  const char* name;
  std::uint16_t type;   // 0: a class
  const char* cppName;  // of a class
  std::span<const Field> fields;
};

const RawKind kKinds[] = {
    {"LAYOUT", 0, "AcDbLayout", kLayout},
    {"ACDBPLACEHOLDER", 0, "AcDbPlaceHolder", {}},
    {"MLINESTYLE", 0x49, nullptr, kMlineStyle},
    {"GROUP", 0x48, nullptr, kGroup},
    {"VIEW", 0x3D, nullptr, kView},
    {"UCS", 0x3F, nullptr, kUcs},
    {"DICTIONARYVAR", 0, "AcDbDictionaryVar", kDictionaryVariable},
    {"XRECORD", 0x4F, nullptr, {}},
};

const RawKind* findKind(std::string_view dxfName) {
  const auto at = std::find_if(std::begin(kKinds), std::end(kKinds),
                               [dxfName](const RawKind& kind) { return kind.name == dxfName; });
  return at == std::end(kKinds) ? nullptr : at;
}

constexpr int kLineByLayer = 0x7FFF, kLineByBlock = 0x7FFE;

// --- into groups

class BodyWriter {
 public:
  BodyWriter(const Database& db, const RawObject& object, GroupSink& sink,
             const std::function<bool(Handle)>& isThere)
      : db_(db),
        object_(object),
        sink_(sink),
        isThere_(isThere),
        bits_(object.body.bytes, 0, object.body.count) {}

  void write(std::span<const Field> fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (fields[i].form != Form::Lines) {
        writeField(fields[i]);
        continue;
      }
      const unsigned count = bits_.rawByte();
      sink_.integer(fields[i].group, count);
      const auto rows = fields.subspan(i + 1);
      for (unsigned n = 0; n < count && bits_.ok(); ++n) write(rows);
      return;
    }
  }

 private:
  void writeField(const Field& field) {
    const bool isReference = field.form == Form::Handle;
    if (ended_ && !isReference) return;
    switch (field.form) {
      case Form::Subclass: return sink_.text(100, field.name);
      case Form::Text: return sink_.text(field.group, text());
      case Form::Short:
        return integer(field.group, static_cast<std::int16_t>(bits_.shortInteger()));
      case Form::Long: return integer(field.group, static_cast<std::int32_t>(bits_.longInteger()));
      case Form::Byte: return integer(field.group, bits_.rawByte());
      case Form::Real: return sink_.real(field.group, bits_.real());
      case Form::Angle: return sink_.angle(field.group, bits_.real());
      case Form::Flat: return sink_.flat(field.group, bits_.flat());
      case Form::Space: return sink_.point(field.group, bits_.point());
      case Form::ViewMode: return integer(field.group, viewMode());
      case Form::PaperFlag: return integer(field.group, bits_.bit() ? 1 : 0);
      case Form::HasUcs: return hasUcs(field.group);
      case Form::Handle: return reference(field.group);
      case Form::HandleList: return list(field.group);
      case Form::LineStyle: return lineStyle(field.group);
      case Form::Lines: return;
    }
  }
  void integer(int group, int value) {
    if (group != 0) sink_.integer(group, value);
  }
  std::string text() {
    const std::size_t length = bits_.shortInteger();
    return decodeText(bits_.bytes(length), db_.codePage);
  }
  int viewMode() {
    int mode = 0;
    for (const int mask : {1, 2, 4}) mode |= bits_.bit() ? mask : 0;
    return mode | (bits_.bit() ? 0 : 16);
  }
  void hasUcs(int group) {
    ended_ = !bits_.bit();
    integer(group, ended_ ? 0 : 1);
  }
  void reference(int group) {
    if (next_ >= object_.references.size()) return;
    const Handle target = object_.references[next_++].target;
    if (group != 0 && target != 0 && isThere_(target)) sink_.handle(group, target);
  }
  void list(int group) {
    for (const Reference& one : object_.references) {
      if (one.target != 0 && isThere_(one.target)) sink_.handle(group, one.target);
    }
  }
  void lineStyle(int group) {
    const int index = bits_.shortInteger();
    if (index == kLineByLayer || index == kLineByBlock) {
      return sink_.text(group, index == kLineByLayer ? "BYLAYER" : "BYBLOCK");
    }
    const auto& records = db_.table(Table::Linetypes).records;
    const auto at = static_cast<std::size_t>(index);
    const std::string_view name = at < records.size() ? db_.recordName(records[at]) : "";
    sink_.text(group, name.empty() ? "BYLAYER" : name);
  }

  const Database& db_;
  const RawObject& object_;
  GroupSink& sink_;
  const std::function<bool(Handle)>& isThere_;
  BitReader bits_;
  std::size_t next_ = 0;  // reference
  bool ended_ = false;
};

// --- from groups

class BodyReader {
 public:
  BodyReader(const Database& db, GroupSection groups, DxfTables& tables, RawObject& object)
      : db_(db), groups_(groups), tables_(tables), object_(object) {}

  void read(std::span<const Field> fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (fields[i].form == Form::Lines) {
        readLines(fields[i].group, fields.subspan(i + 1));
        break;
      }
      readField(fields[i]);
    }
    object_.body.count = static_cast<std::uint32_t>(bits_.position());
    object_.body.bytes = bits_.finish();
  }

 private:
  void readField(const Field& field) {
    const int group = field.group;
    if (ended_ && field.form != Form::Handle) return;
    switch (field.form) {
      case Form::Subclass: return groups_.enter(field.name);
      case Form::Text: return text(groups_.text(group));
      case Form::Short: return bits_.shortInteger(static_cast<std::uint16_t>(integer(group)));
      case Form::Long: return bits_.longInteger(static_cast<std::uint32_t>(integer(group)));
      case Form::Byte: return bits_.rawByte(static_cast<unsigned>(integer(group)) & 0xFF);
      case Form::Real: return bits_.real(groups_.real(group, 0));
      case Form::Angle: return bits_.real(base::radians(groups_.real(group, 0)));
      case Form::Flat: return bits_.flat(flat(group));
      case Form::Space: return bits_.point(groups_.point(group, {}));
      case Form::ViewMode: return viewMode(integer(group));
      case Form::PaperFlag: return bits_.bit((integer(group) & 1) != 0);
      case Form::HasUcs: return hasUcs(integer(group));
      case Form::Handle: return reference(field);
      case Form::HandleList: return list(field);
      case Form::LineStyle: return lineStyle(groups_.text(group));
      case Form::Lines: return;
    }
  }
  // Each line begins with a group of the first row's code.
  void readLines(int group, std::span<const Field> rows) {
    std::vector<GroupSection> lines = groups_.split(rows.front().group);
    lines.resize(
        std::min<std::size_t>({lines.size(), 16, static_cast<std::size_t>(integer(group))}));
    bits_.rawByte(static_cast<unsigned>(lines.size()));
    for (const GroupSection& line : lines) {
      groups_ = line;
      for (const Field& field : rows) readField(field);
    }
  }
  int integer(int group) const { return group == 0 ? 0 : groups_.integer(group, 0); }
  base::Point2 flat(int group) const {
    const base::Point3 point = groups_.point(group, {});
    return {point.x, point.y};
  }
  void text(std::string_view utf8) {
    const std::string bytes = encodeText(utf8, db_.codePage);
    const std::size_t length = std::min<std::size_t>(bytes.size(), 0xFFFF);
    bits_.shortInteger(static_cast<std::uint16_t>(length));
    bits_.bytes(std::string_view(bytes).substr(0, length));
  }
  void viewMode(int mode) {
    for (const int mask : {1, 2, 4}) bits_.bit((mode & mask) != 0);
    bits_.bit((mode & 16) == 0);
  }
  void hasUcs(int value) {
    ended_ = value == 0;
    bits_.bit(!ended_);
  }
  void reference(const Field& field) {
    if (ended_ && field.group != 0) return;
    object_.references.push_back({field.code, field.group == 0 ? 0 : groups_.handle(field.group)});
  }
  void list(const Field& field) {
    for (const Group& group : groups_) {
      if (group.code == field.group) {
        object_.references.push_back({field.code, GroupSection::handleOf(group)});
      }
    }
    bits_.longInteger(static_cast<std::uint32_t>(object_.references.size()));
  }
  void lineStyle(std::string_view name) {
    int index = kLineByLayer;
    if (base::equalsNoCase(name, "BYBLOCK")) index = kLineByBlock;
    if (index == kLineByLayer && !name.empty() && !base::equalsNoCase(name, "BYLAYER")) {
      index = tables_.linetypeIndex(name, kLineByLayer);
    }
    bits_.shortInteger(static_cast<std::uint16_t>(index));
  }

  const Database& db_;
  GroupSection groups_;
  DxfTables& tables_;
  RawObject& object_;
  BitWriter bits_;
  bool ended_ = false;
};

}  // namespace

std::uint16_t classNumber(Database& database, const char* cppName, const char* dxfName) {
  for (const DxfClass& entry : database.classes) {
    if (entry.dxfName == dxfName && !entry.isEntity()) return entry.number;
  }
  const auto number = static_cast<std::uint16_t>(500 + database.classes.size());
  database.classes.push_back({number, 0, "ObjectDBX Classes", cppName, dxfName, false, 0x1F3});
  return number;
}

bool isKnownRaw(const Database& database, const RawObject& object) {
  return findKind(typeName(database, object)) != nullptr;
}

void writeRawBody(const Database& database, const RawObject& object, GroupSink& sink,
                  const std::function<bool(Handle)>& isThere) {
  const RawKind* kind = findKind(typeName(database, object));
  if (!kind) return;
  if (kind->type == kXrecordType) return writeXrecord(object, sink);
  BodyWriter(database, object, sink, isThere).write(kind->fields);
}

bool readRawBody(Database& database, std::string_view dxfName, GroupSection groups,
                 DxfTables& tables, RawObject& object) {
  const RawKind* kind = findKind(dxfName);
  if (!kind) return false;
  object.type = kind->type != 0 ? kind->type : classNumber(database, kind->cppName, kind->name);
  if (kind->type == kXrecordType) {
    readXrecord(database, groups, object);
  } else {
    BodyReader(database, groups, tables, object).read(kind->fields);
  }
  return true;
}

}  // namespace drafting

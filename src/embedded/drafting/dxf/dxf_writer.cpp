#include "embedded/drafting/dxf/dxf_writer.h"

#include <map>

#include "embedded/base/files.h"
#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/dxf/carried.h"
#include "embedded/drafting/dxf/group_writer.h"
#include "embedded/drafting/dxf/header_groups.h"
#include "embedded/drafting/dxf/raw_bodies.h"

namespace drafting {
namespace {

// Kinds whose groups follow from their fields alone; the others have writers of their own.
template <class T>
constexpr bool kIsWalked =
    !std::is_same_v<T, RawEntity> && !std::is_same_v<T, RawObject> && !std::is_same_v<T, Control> &&
    !std::is_same_v<T, BlockRecord> && !std::is_same_v<T, Block> &&
    !std::is_same_v<T, GroupEntity> && !std::is_same_v<T, GroupObject>;

class DxfWriter {
 public:
  DxfWriter(const Database& db, GroupSink::Output output)
      : db_(db),
        sink_(db.codePage, std::move(output)),
        writer_(db, sink_, [&db](Handle handle) { return dxfHolds(db, handle); }) {}

  base::Status write() {
    section("HEADER", [this] { writeHeader(); });
    section("CLASSES", [this] { writeClasses(); });
    section("TABLES", [this] { writeTables(); });
    section("BLOCKS", [this] { writeBlocks(); });
    section("ENTITIES", [this] { writeEntities(); });
    section("OBJECTS", [this] { writeObjects(); });
    writePreview();
    sink_.text(0, "EOF");
    return sink_.finish();
  }

 private:
  template <class F>
  void section(const char* name, F content) {
    sink_.text(0, "SECTION");
    sink_.text(2, name);
    content();
    sink_.text(0, "ENDSEC");
  }

  void writeHeader();
  void writeVariable(const char* name, int group, const VariableValue& value);
  void writeNamingVariables(const Variable& variable, Handle value);
  std::string_view multilineStyle() const;
  void writeClasses();
  void writeTables();
  void writeTable(Table table, const char* name);
  void writeRecord(const Record& record, const char* type, Handle control);
  void writeBlockRecord(const BlockRecord& block);
  void writeRawRecord(const RawObject& record);
  void writeBlocks();
  void writeBlock(const BlockRecord& block);
  void writeEntities();
  void writeContent(const BlockRecord& block);
  void writeEntity(const Entity& entity);
  void writeMembers(const Entity& holder);
  void writeEntityCommon(const Entity& entity, std::string_view type);
  void writeObjects();
  void writeObject(const Object& object);
  void writeLinks(const Object& object);
  void writeFields(const Object& object);
  void writeExtendedData(const Object& object);
  void writeItem(const XDataItem& item);
  void writePreview();

  const Database& db_;
  GroupSink sink_;
  GroupWriter writer_;
};

// --- header

void DxfWriter::writeHeader() {
  writeVariable("ACADVER", 1, std::string("AC1015"));
  writeVariable("ACADMAINTVER", 70, 6);
  writeVariable("DWGCODEPAGE", 3, "ANSI_" + std::to_string(db_.codePage));
  writeVariable("HANDSEED", 5, db_.nextHandle());
  const auto table = variables();
  for (std::size_t i = 0; i < table.size(); ++i) {
    const VariableValue& value = db_.header.at(static_cast<int>(i));
    if (const auto* target = std::get_if<Handle>(&value)) {
      writeNamingVariables(table[i], *target);
    } else if (const int group = headerGroup(table[i])) {
      writeVariable(table[i].name, group, value);
    }
  }
  const int flags = db_.header.integer("FLAGS");
  for (const FlagVariable& row : kFlagVariables) {
    int value = (flags & row.mask) >> row.shift;
    if (row.inverted) value = 1 - value;
    if (row.group == 370) value = lineweightOfIndex(value);
    writeVariable(row.name, row.group, value);
  }
}

void DxfWriter::writeVariable(const char* name, int group, const VariableValue& value) {
  sink_.text(9, "$" + std::string(name));
  if (const auto* real = std::get_if<double>(&value)) {
    return group == 50 ? sink_.angle(group, *real) : sink_.real(group, *real);
  }
  if (const auto* integer = std::get_if<int>(&value)) return sink_.integer(group, *integer);
  if (const auto* text = std::get_if<std::string>(&value)) return sink_.text(group, *text);
  if (const auto* flat = std::get_if<Point2>(&value)) return sink_.flat(group, *flat);
  if (const auto* point = std::get_if<Point3>(&value)) return sink_.point(group, *point);
  sink_.handle(group, std::get<Handle>(value));
}

void DxfWriter::writeNamingVariables(const Variable& variable, Handle value) {
  const std::string_view name = variable.name;
  if (name == kMultilineVariable) {
    return writeVariable(variable.name, 2, std::string(multilineStyle()));
  }
  const NamingVariable* naming = findNamingVariable(name);
  if (naming) writeVariable(variable.name, naming->group, std::string(writer_.nameOf(value)));
}

std::string_view DxfWriter::multilineStyle() const {
  const auto* styles = db_.find<Dictionary>(db_.header.handle("MLINESTYLE_DICTIONARY"));
  const Handle current = db_.header.handle(kMultilineVariable);
  if (styles) {
    for (const auto& [name, item] : styles->items) {
      if (item == current) return name;
    }
  }
  return "Standard";
}

void DxfWriter::writeClasses() {
  for (const DxfClass& entry : db_.classes) {
    sink_.text(0, "CLASS");
    sink_.text(1, entry.dxfName);
    sink_.text(2, entry.cppName);
    sink_.text(3, entry.application);
    sink_.integer(90, entry.flags);
    sink_.integer(280, entry.wasProxy ? 1 : 0);
    sink_.integer(281, entry.isEntity() ? 1 : 0);
  }
}

// --- tables

void DxfWriter::writeTables() {
  writeTable(Table::Viewports, "VPORT");
  writeTable(Table::Linetypes, "LTYPE");
  writeTable(Table::Layers, "LAYER");
  writeTable(Table::Styles, "STYLE");
  writeTable(Table::Views, "VIEW");
  writeTable(Table::Ucss, "UCS");
  writeTable(Table::AppIds, "APPID");
  writeTable(Table::DimStyles, "DIMSTYLE");
  writeTable(Table::Blocks, "BLOCK_RECORD");
}

void DxfWriter::writeTable(Table table, const char* name) {
  const Control& control = db_.table(table);
  std::vector<const Record*> records;
  const auto take = [&](Handle handle) {
    const Record* record = db_.find<Record>(handle);
    if (record && dxfHolds(db_, handle)) records.push_back(record);
  };
  if (table == Table::Blocks || table == Table::Linetypes) {
    for (const Handle extra : control.extras) take(extra);
  }
  for (const Handle record : control.records) take(record);
  sink_.text(0, "TABLE");
  sink_.text(2, name);
  sink_.handle(5, control.handle);
  writeLinks(control);
  sink_.handle(330, 0);
  sink_.text(100, "AcDbSymbolTable");
  sink_.integer(70, static_cast<std::int64_t>(records.size()));
  if (table == Table::DimStyles) {
    sink_.text(100, "AcDbDimStyleTable");
    sink_.integer(71, 0);
  }
  for (const Record* record : records) writeRecord(*record, name, control.handle);
  sink_.text(0, "ENDTAB");
}

void DxfWriter::writeRecord(const Record& record, const char* type, Handle control) {
  sink_.text(0, type);
  sink_.handle(record.kind == Kind::DimStyle ? 105 : 5, record.handle);
  writeLinks(record);
  sink_.handle(330, control);
  sink_.text(100, "AcDbSymbolTableRecord");
  if (record.kind == Kind::BlockRecord) {
    writeBlockRecord(static_cast<const BlockRecord&>(record));
  } else if (record.kind == Kind::RawObject) {
    writeRawRecord(static_cast<const RawObject&>(record));
  } else {
    writeFields(record);
  }
  writeExtendedData(record);
}

void DxfWriter::writeBlockRecord(const BlockRecord& block) {
  sink_.text(100, "AcDbBlockTableRecord");
  sink_.text(2, block.name);
  if (writer_.isThere(block.layout)) sink_.handle(340, block.layout);
  sink_.binary(310, block.preview);
}

// VIEW and UCS; a view's flags are part of its body.
void DxfWriter::writeRawRecord(const RawObject& record) {
  const bool isView = typeName(db_, record) == "VIEW";
  sink_.text(100, isView ? "AcDbViewTableRecord" : "AcDbUCSTableRecord");
  sink_.text(2, record.name);
  if (!isView) sink_.integer(70, 0);
  writeRawBody(db_, record, sink_, writer_.isThere);
}

// --- blocks and entities

void DxfWriter::writeBlocks() {
  const Control& control = db_.table(Table::Blocks);
  for (const auto* list : {&control.extras, &control.records}) {
    for (const Handle handle : *list) {
      if (const auto* block = db_.find<BlockRecord>(handle)) writeBlock(*block);
    }
  }
}

// The content of model and paper space stands in the section of entities.
void DxfWriter::writeBlock(const BlockRecord& block) {
  const Block* begin = db_.find<Block>(block.begin);
  const EndBlock* end = db_.find<EndBlock>(block.end);
  if (!begin || !end) return;
  writeEntityCommon(*begin, "BLOCK");
  sink_.text(100, "AcDbBlockBegin");
  sink_.text(2, block.name);
  sink_.integer(70, (block.anonymous ? 1 : 0) | (block.hasAttdefs ? 2 : 0) |
                        (block.isXref ? 4 : 0) | (block.isOverlay ? 8 : 0));
  sink_.point(10, block.base);
  sink_.text(3, block.name);
  sink_.text(1, block.xrefPath);
  if (!block.description.empty()) sink_.text(4, block.description);
  writeExtendedData(*begin);
  if (&block != &db_.modelSpace() && &block != &db_.paperSpace()) writeContent(block);
  writeEntityCommon(*end, "ENDBLK");
  writeFields(*end);
  writeExtendedData(*end);
}

void DxfWriter::writeEntities() {
  writeContent(db_.modelSpace());
  writeContent(db_.paperSpace());
}

void DxfWriter::writeContent(const BlockRecord& block) {
  for (const Entity* entity = block.first; entity; entity = entity->next) {
    if (entity->kind != Kind::RawEntity) writeEntity(*entity);
  }
}

void DxfWriter::writeEntity(const Entity& entity) {
  writeEntityCommon(entity, typeName(db_, entity));
  writeFields(entity);
  writeExtendedData(entity);
  writeMembers(entity);
}

void DxfWriter::writeMembers(const Entity& holder) {
  for (const Handle handle : memberHandles(holder)) {
    const Entity* member = db_.find<Entity>(handle);
    if (!member) continue;
    const Kind kind = member->kind;
    const bool fits = kind == Kind::Attrib || kind == Kind::Vertex || kind == Kind::SeqEnd;
    if (fits) writeEntity(*member);
  }
}

void DxfWriter::writeEntityCommon(const Entity& e, std::string_view type) {
  sink_.text(0, type);
  sink_.handle(5, e.handle);
  writeLinks(e);
  sink_.handle(330, e.owner);
  sink_.text(100, "AcDbEntity");
  if (e.owner == db_.paperSpace().handle) sink_.integer(67, 1);
  sink_.text(8, writer_.nameOf(e.layer));
  if (e.linetype == kByBlock) sink_.text(6, "ByBlock");
  if (e.linetype == kContinuous) sink_.text(6, "Continuous");
  if (e.linetype != kByLayer && e.linetype < kContinuous) sink_.text(6, writer_.nameOf(e.linetype));
  if (e.colour != kColourByLayer) sink_.integer(62, e.colour);
  if (e.linetypeScale != 1) sink_.real(48, e.linetypeScale);
  if (e.invisible) sink_.integer(60, 1);
  if (e.lineweight != kLineweightByLayer) sink_.integer(370, lineweightOfIndex(e.lineweight));
  const bool hasPlotStyle = e.plotStyle != kByLayer && e.plotStyle < kContinuous;
  if (hasPlotStyle && writer_.isThere(e.plotStyle)) sink_.handle(390, e.plotStyle);
}

// --- objects

void DxfWriter::writeObjects() {
  const Handle root = db_.header.handle("NAMED_DICTIONARY");
  if (const auto* named = db_.find<Dictionary>(root)) writeObject(*named);
  db_.forEach([&](const Object& object) {
    const bool isObject = object.kind == Kind::Dictionary || object.kind == Kind::RawObject ||
                          object.kind == Kind::GroupObject;
    if (!isObject || object.handle == root || !dxfHolds(db_, object.handle)) return;
    const Object* owner = db_.find(object.owner);
    const bool isRecord = object.kind == Kind::RawObject && owner && owner->kind == Kind::Control;
    if (!isRecord) writeObject(object);
  });
}

void DxfWriter::writeObject(const Object& object) {
  sink_.text(0, typeName(db_, object));
  sink_.handle(5, object.handle);
  writeLinks(object);
  sink_.handle(330, object.owner);
  if (object.kind == Kind::RawObject) {
    writeRawBody(db_, static_cast<const RawObject&>(object), sink_, writer_.isThere);
  } else {
    writeFields(object);
  }
  writeExtendedData(object);
}

// --- what all objects have

void DxfWriter::writeLinks(const Object& object) {
  if (object.extension != 0 && writer_.isThere(object.extension)) {
    sink_.text(102, "{ACAD_XDICTIONARY");
    sink_.handle(360, object.extension);
    sink_.text(102, "}");
  }
  bool isOpen = false;
  for (const Handle reactor : object.reactors) {
    if (!writer_.isThere(reactor)) continue;
    if (!isOpen) sink_.text(102, "{ACAD_REACTORS");
    isOpen = true;
    sink_.handle(330, reactor);
  }
  if (isOpen) sink_.text(102, "}");
}

void DxfWriter::writeFields(const Object& object) {
  visit(object, [this]<class T>(const T& o) {
    constexpr bool kIsPacked = std::is_same_v<T, GroupEntity> || std::is_same_v<T, GroupObject>;
    if constexpr (kIsWalked<T>) walk<GroupWriter>(writer_, o);
    if constexpr (kIsPacked) writePackedGroups(o.groups, sink_);
  });
}

void DxfWriter::writeExtendedData(const Object& object) {
  for (const XData& data : object.xdata) {
    const std::string_view app = writer_.nameOf(data.app);
    if (app.empty() || data.items.empty()) continue;
    sink_.text(1001, app);
    for (std::size_t at = 0; at < data.items.size();) {
      const std::size_t length = xdataItemLength(data.items, at);
      if (length == 0) break;
      writeItem(decodeXDataItem(std::string_view(data.items).substr(at, length)));
      at += length;
    }
  }
}

void DxfWriter::writeItem(const XDataItem& item) {
  if (const auto* text = std::get_if<std::string>(&item.value)) {
    return item.code == 1004 ? sink_.binary(item.code, *text) : sink_.text(item.code, *text);
  }
  if (const auto* handle = std::get_if<Handle>(&item.value)) {
    return item.code == 1003 ? sink_.text(item.code, writer_.nameOf(*handle))
                             : sink_.handle(item.code, *handle);
  }
  if (const auto* point = std::get_if<Point3>(&item.value)) return sink_.point(item.code, *point);
  if (const auto* real = std::get_if<double>(&item.value)) return sink_.real(item.code, *real);
  sink_.integer(item.code, std::get<int>(item.value));
}

void DxfWriter::writePreview() {
  constexpr std::uint8_t kBitmap = 2;
  for (const auto& [kind, bytes] : db_.previews) {
    if (kind != kBitmap) continue;
    section("THUMBNAILIMAGE", [&, &picture = bytes] {
      sink_.integer(90, static_cast<std::int64_t>(picture.size()));
      sink_.binary(310, picture);
    });
  }
}

}  // namespace

std::string dxfLosses(const Database& database) {
  std::map<std::string, int> counts;
  database.forEach([&](const Object& object) {
    const bool isRaw = object.kind == Kind::RawEntity || object.kind == Kind::RawObject;
    if (!isRaw || dxfHolds(database, object.handle)) return;
    const std::string_view name = typeName(database, object);
    if (name != "VX" && name != "VERTEX") ++counts[name.empty() ? "unknown" : std::string(name)];
  });
  return countedNames(counts);
}

base::Status writeDxf(const Database& database, GroupSink::Output output) {
  return DxfWriter(database, std::move(output)).write();
}

base::Status saveDxf(const Database& database, const std::filesystem::path& path) {
  return base::saveAtomically(
      path, [&database](const base::PieceWriter& write) { return writeDxf(database, write); });
}

}  // namespace drafting

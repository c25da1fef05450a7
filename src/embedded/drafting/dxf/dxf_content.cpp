#include "embedded/drafting/dxf/dxf_content.h"

#include <algorithm>
#include <array>
#include <utility>

#include "embedded/base/text.h"
#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/dxf/carried.h"
#include "embedded/drafting/dxf/extended_groups.h"
#include "embedded/drafting/dxf/light_polyline.h"
#include "embedded/drafting/dxf/raw_bodies.h"

namespace drafting {
namespace {

struct TableName {
  const char* name;
  Table table;
};
constexpr TableName kTableNames[] = {
    {"VPORT", Table::Viewports}, {"LTYPE", Table::Linetypes},    {"LAYER", Table::Layers},
    {"STYLE", Table::Styles},    {"VIEW", Table::Views},         {"UCS", Table::Ucss},
    {"APPID", Table::AppIds},    {"DIMSTYLE", Table::DimStyles}, {"BLOCK_RECORD", Table::Blocks}};

std::optional<Table> tableOfName(std::string_view name) {
  for (const TableName& row : kTableNames) {
    if (name == row.name) return row.table;
  }
  return std::nullopt;
}

constexpr const char* kModelSpace = "*Model_Space";
constexpr const char* kPaperSpace = "*Paper_Space";

// Groups of an entity that stand for what all entities have.
bool isCommonCode(int code) {
  constexpr std::array kCommon{6, 8, 48, 60, 62, 67, 370, 390, 410};
  return std::find(kCommon.begin(), kCommon.end(), code) != kCommon.end();
}

// Release 12 has no other names for the spaces.
std::string_view blockName(std::string_view name) {
  if (base::equalsNoCase(name, "$MODEL_SPACE")) return kModelSpace;
  if (base::equalsNoCase(name, "$PAPER_SPACE")) return kPaperSpace;
  return name;
}

}  // namespace

DxfContent::DxfContent(ReadReport& report) : report_(report) {}

// An old file's drawing grows from an empty one: it has no layouts and dictionaries of its own.
void DxfContent::begin(const DxfHeader& header) {
  constexpr Handle kAfterStandard = 0x30, kAfterUnstated = 0x100000;
  isOld_ = header.isOld();
  db_ = isOld_ ? Database::makeNew() : std::make_unique<Database>();
  db_->journal().setRecording(false);
  db_->codePage = header.codePage();
  tables_ = std::make_unique<DxfTables>(*db_);
  tables_->learnAll();
  const Handle unstated = isOld_ ? kAfterStandard : kAfterUnstated;
  tables_->startHandles(header.handleSeed() != 0 ? header.handleSeed() : unstated);
}

void DxfContent::add(std::string_view section, const DxfObject& object) {
  if (section == "CLASSES") addClass(object);
  if (section == "TABLES") addToTables(object);
  if (section == "BLOCKS") addToBlocks(object);
  if (section == "ENTITIES") addEntity(object, space(object));
  if (section == "OBJECTS") addObject(object);
}

void DxfContent::addPreview(const DxfObject& section) {
  constexpr std::uint8_t kBitmap = 2;
  std::string bytes;
  for (const Group& group : section.groups) {
    if (group.code == 310) bytes += bytesOfHex(group.value);
  }
  if (!bytes.empty()) db_->previews = {{1, std::string(80, '\0')}, {kBitmap, std::move(bytes)}};
}

void DxfContent::addClass(const DxfObject& object) {
  constexpr std::size_t kMost = 10000;
  const GroupSection groups(object.groups);
  if (object.name != "CLASS" || isOld_ || db_->classes.size() >= kMost) return;
  DxfClass entry;
  entry.number = static_cast<std::uint16_t>(500 + db_->classes.size());
  entry.flags = static_cast<std::uint16_t>(groups.integer(90, 0));
  entry.dxfName = groups.text(1);
  entry.cppName = groups.text(2);
  entry.application = groups.text(3);
  entry.wasProxy = groups.integer(280, 0) != 0;
  entry.itemKind = groups.integer(281, 0) != 0 ? 0x1F2 : 0x1F3;
  db_->classes.push_back(std::move(entry));
}

// --- tables

void DxfContent::addToTables(const DxfObject& object) {
  if (object.name == "TABLE") {
    table_ = tableOfName(base::trim(GroupSection(object.groups).text(2)));
    if (!table_) return;
    Control& control = tables_->control(*table_, object.handle);
    control.extension = object.extension;
    control.reactors = object.reactors;
  } else if (object.name == "ENDTAB") {
    table_.reset();
  } else if (table_ && tableOfName(object.name) == table_) {
    addRecord(*table_, object);
  } else {
    leaveOut(object);
  }
}

std::unique_ptr<Record> DxfContent::makeRecord(Table table, const DxfObject& object) const {
  std::unique_ptr<Record> record;
  switch (table) {
    case Table::Blocks: record = std::make_unique<BlockRecord>(); break;
    case Table::Layers: record = std::make_unique<Layer>(); break;
    case Table::Styles: record = std::make_unique<TextStyle>(); break;
    case Table::Linetypes: record = std::make_unique<Linetype>(); break;
    case Table::AppIds: record = std::make_unique<AppId>(); break;
    case Table::DimStyles: record = std::make_unique<DimStyle>(); break;
    case Table::Viewports: record = std::make_unique<Viewport>(); break;
    default: record = std::make_unique<RawObject>(); break;
  }
  record->handle = tables_->freeHandle(object.handle);
  return record;
}

// A record that was named before it came, or stood in the empty drawing, is filled now.
void DxfContent::addRecord(Table table, const DxfObject& object) {
  GroupSection groups(object.groups);
  const std::string name(blockName(groups.text(2)));
  const Handle known = name.empty() ? 0 : tables_->find(table, name);
  if (known != 0 && filled_.insert(known).second) {
    fillRecord(*db_->find<Record>(known), table, object);
    return;
  }
  if (known != 0 && table != Table::Viewports) {
    report_.addLine(object.line,
                    "a second " + std::string(object.name) + " \"" + name + "\"; left out");
    return;
  }
  Record& record = adopt(makeRecord(table, object));
  record.name = name;
  filled_.insert(record.handle);
  tables_->add(table, record);
  fillRecord(record, table, object);
}

void DxfContent::fillRecord(Record& record, Table table, const DxfObject& object) {
  const Handle owner = tables_->control(table).handle;
  fill(record, object);
  record.owner = owner;
  if (record.kind == Kind::BlockRecord) {
    GroupSection groups(object.groups);
    groups.enter("AcDbBlockTableRecord");
    auto& block = static_cast<BlockRecord&>(record);
    if (groups.has(340)) block.layout = groups.handle(340);
    for (const Group& group : groups) {
      if (group.code == 310) block.preview += bytesOfHex(group.value);
    }
  } else if (record.kind == Kind::RawObject) {
    GroupSection groups(object.groups);
    groups.enter(table == Table::Views ? "AcDbViewTableRecord" : "AcDbUCSTableRecord");
    readRawBody(*db_, object.name, groups, *tables_, static_cast<RawObject&>(record));
  }
}

// --- blocks and entities

void DxfContent::addToBlocks(const DxfObject& object) {
  if (object.name == "BLOCK") return beginBlock(object);
  if (object.name == "ENDBLK") return endBlock(object);
  if (block_) return addEntity(object, block_);
  leaveOut(object);
}

void DxfContent::beginBlock(const DxfObject& object) {
  GroupSection groups(object.groups);
  groups.enter("AcDbBlockBegin");
  const std::string name(blockName(groups.text(2)));
  block_ = db_->find<BlockRecord>(tables_->findOrMake(Table::Blocks, name));
  finishMembers();
  if (!block_) return leaveOut(object);
  const int flags = groups.integer(70, 0);
  block_->anonymous = (flags & 1) != 0;
  block_->hasAttdefs = (flags & 2) != 0;
  block_->isXref = (flags & 4) != 0;
  block_->isOverlay = (flags & 8) != 0;
  block_->base = groups.point(10, {});
  block_->xrefPath = groups.text(1);
  block_->description = groups.text(4);
  if (db_->find<Block>(block_->begin)) return;
  auto begin = std::make_unique<Block>();
  fill(*begin, object);
  begin->name = name;
  begin->owner = block_->handle;
  block_->begin = adopt(std::move(begin)).handle;
}

void DxfContent::endBlock(const DxfObject& object) {
  finishMembers();
  if (!block_) return leaveOut(object);
  if (!db_->find<EndBlock>(block_->end)) {
    auto end = std::make_unique<EndBlock>();
    fill(*end, object);
    end->owner = block_->handle;
    block_->end = adopt(std::move(end)).handle;
  }
  block_ = nullptr;
}

BlockRecord* DxfContent::space(const DxfObject& object) {
  GroupSection groups(object.groups);
  if (groups.hasSubclass("AcDbEntity")) groups.enter("AcDbEntity");
  const bool isPaper = groups.integer(67, 0) != 0;
  const Handle handle = tables_->findOrMake(Table::Blocks, isPaper ? kPaperSpace : kModelSpace);
  return db_->find<BlockRecord>(handle);
}

void DxfContent::addEntity(const DxfObject& object, BlockRecord* block) {
  const Kind kind = kindOfName(object.name);
  if (kind == Kind::Attrib || kind == Kind::Vertex || kind == Kind::SeqEnd) {
    return addMember(object);
  }
  finishMembers();
  if (!block) return leaveOut(object);
  if (kind == Kind::RawEntity) return carryEntity(object, *block);
  if (!isEntity(kind) || kind == Kind::Block || kind == Kind::EndBlock) return leaveOut(object);
  std::unique_ptr<Entity> entity(static_cast<Entity*>(makeObject(kind).release()));
  fill(*entity, object);
  append(*block, std::move(entity));
}

// An entity of another kind keeps what stands behind the common groups. Where no marker stands in
// between, as in old files, the common ones are known by their codes.
void DxfContent::carryEntity(const DxfObject& object, BlockRecord& block) {
  constexpr std::size_t kLongestName = 64;
  if (object.name.empty() || object.name.size() > kLongestName) return leaveOut(object);
  auto entity = std::make_unique<GroupEntity>();
  entity->name = object.name;
  const auto isMarker = [](const Group& group) { return group.code == 100; };
  const auto end = object.groups.end();
  auto from = std::find_if(object.groups.begin(), end, isMarker);
  if (from != end && base::trim(from->value) == "AcDbEntity") {
    from = std::find_if(from + 1, end, isMarker);
  }
  if (from != end) {
    entity->groups = packedGroups({from, end});
  } else {
    for (const Group& group : object.groups) {
      if (!isMarker(group) && !isCommonCode(group.code)) keepGroup(entity->groups, group);
    }
  }
  fill(*entity, object);
  append(block, std::move(entity));
}

void DxfContent::append(BlockRecord& block, std::unique_ptr<Entity> entity) {
  Entity& made = adopt(std::move(entity));
  made.owner = block.handle;
  db_->joinChain(block.handle, made, block.last, nullptr);
  if (made.kind == Kind::Attdef) block.hasAttdefs = true;
  holder_ = membersOf(made).list ? &made : nullptr;
}

namespace {

bool canHold(const Entity* holder, Kind member) {
  if (!holder) return false;
  return member == Kind::SeqEnd ||
         member == (holder->kind == Kind::Insert ? Kind::Attrib : Kind::Vertex);
}

// What a vertex takes from its polyline unless it says otherwise.
void prepareVertex(Vertex& vertex, const Polyline& polyline) {
  vertex.form = static_cast<Vertex::Form>(polyline.form);
  vertex.startWidth = polyline.startWidth;
  vertex.endWidth = polyline.endWidth;
}

}  // namespace

// ATTRIB, VERTEX and SEQEND belong to the INSERT or POLYLINE in front of them.
void DxfContent::addMember(const DxfObject& object) {
  const Kind kind = kindOfName(object.name);
  if (!canHold(holder_, kind)) return leaveOut(object);
  std::unique_ptr<Entity> entity(static_cast<Entity*>(makeObject(kind).release()));
  if (kind == Kind::Vertex) {
    prepareVertex(static_cast<Vertex&>(*entity), static_cast<const Polyline&>(*holder_));
  }
  fill(*entity, object);
  const Members members = membersOf(*holder_);
  const bool isEnd = kind == Kind::SeqEnd;
  if (isEnd && members.list->empty()) return finishMembers();
  Entity& made = adopt(std::move(entity));
  made.owner = holder_->handle;
  if (isEnd) {
    *members.seqEnd = made.handle;
    return finishMembers();
  }
  Entity* last = members.list->empty() ? nullptr : db_->find<Entity>(members.list->back());
  db_->joinChain(holder_->handle, made, last, nullptr);
  members.list->push_back(made.handle);
}

// Some programs leave out the SEQEND.
void DxfContent::finishMembers() {
  Entity* const holder = std::exchange(holder_, nullptr);
  if (!holder) return;
  const Members members = membersOf(*holder);
  if (*members.seqEnd == 0 && !members.list->empty()) {
    auto end = std::make_unique<SeqEnd>();
    end->layer = holder->layer;
    end->owner = holder->handle;
    *members.seqEnd = adopt(std::move(end)).handle;
  }
  if (isOld_ && holder->kind == Kind::Polyline) lighten(static_cast<Polyline&>(*holder));
}

// Before LWPOLYLINE there was no other form; other programs open such lines as the new one, too.
void DxfContent::lighten(Polyline& polyline) {
  auto light = lightPolyline(*db_, polyline);
  auto* block = db_->find<BlockRecord>(polyline.owner);
  if (!light || !block) return;
  db_->erase(polyline.handle);
  append(*block, std::move(light));
}

// --- objects

void DxfContent::addObject(const DxfObject& object) {
  hasObjects_ = true;
  const bool withDefault = object.name == "ACDBDICTIONARYWDFLT";
  if (isOld_) return leaveOut(object);
  if (withDefault || object.name == "DICTIONARY") {
    auto dictionary = std::make_unique<Dictionary>();
    dictionary->withDefault = withDefault;
    fill(*dictionary, object);
    const bool isRoot = dictionary->owner == 0 && db_->header.handle("NAMED_DICTIONARY") == 0;
    const Handle handle = adopt(std::move(dictionary)).handle;
    if (isRoot) db_->header.set("NAMED_DICTIONARY", handle);
    return;
  }
  auto raw = std::make_unique<RawObject>();
  if (readRawBody(*db_, object.name, GroupSection(object.groups), *tables_, *raw)) {
    fill(*raw, object);
    adopt(std::move(raw));
    return;
  }
  auto carried = std::make_unique<GroupObject>();
  carried->name = object.name;
  carried->groups = packedGroups(object.groups);
  fill(*carried, object);
  adopt(std::move(carried));
}

// --- what all objects have

template <class T>
T& DxfContent::adopt(std::unique_ptr<T> object) {
  T& made = *object;
  made.handle = tables_->freeHandle(made.handle);
  db_->adopt(std::move(object));
  return made;
}

void DxfContent::fill(Object& made, const DxfObject& object) {
  if (made.handle == 0) {
    made.handle = tables_->freeHandle(object.handle);
    if (object.handle != 0 && made.handle != object.handle) {
      report_.addLine(object.line, std::string(object.name) +
                                       " has the handle of another object; given a new one");
    }
  }
  made.owner = object.owner;
  made.extension = object.extension;
  made.reactors = object.reactors;
  if (isEntity(made.kind)) fillCommon(static_cast<Entity&>(made), object);
  GroupReader reader(GroupSection(object.groups), *tables_, db_->codePage);
  visit(made, [&reader]<class T>(T& o) {
    constexpr bool kIsWalked = !std::is_same_v<T, RawEntity> && !std::is_same_v<T, RawObject> &&
                               !std::is_same_v<T, Control> && !std::is_same_v<T, BlockRecord> &&
                               !std::is_same_v<T, GroupEntity> && !std::is_same_v<T, GroupObject>;
    if constexpr (kIsWalked) walk<GroupReader>(reader, o);
  });
  fillExtended(made, object);
}

void DxfContent::fillCommon(Entity& e, const DxfObject& object) {
  GroupSection groups(object.groups);
  if (groups.hasSubclass("AcDbEntity")) groups.enter("AcDbEntity");
  if (e.handle == 0) e.handle = tables_->freeHandle(object.handle);
  const std::string_view layer = groups.text(8), linetype = groups.text(6);
  e.layer = tables_->findOrMake(Table::Layers, layer.empty() ? "0" : layer);
  if (base::equalsNoCase(linetype, "ByBlock")) {
    e.linetype = kByBlock;
  } else if (base::equalsNoCase(linetype, "Continuous")) {
    e.linetype = kContinuous;
  } else if (!linetype.empty() && !base::equalsNoCase(linetype, "ByLayer")) {
    e.linetype = tables_->findOrMake(Table::Linetypes, linetype);
  }
  e.colour = static_cast<std::int16_t>(std::clamp(groups.integer(62, kColourByLayer), 0, 256));
  e.linetypeScale = groups.real(48, 1);
  e.invisible = groups.integer(60, 0) != 0;
  e.lineweight = indexOfLineweight(groups.integer(370, -1));
  e.plotStyle = groups.handle(390);
}

void DxfContent::fillExtended(Object& made, const DxfObject& object) {
  if (object.extended.empty()) return;
  const auto problem = readExtendedGroups(object.extended, *tables_, db_->codePage, made.xdata);
  if (!problem.empty()) report_.addLine(object.line, problem);
}

void DxfContent::leaveOut(const DxfObject& object) { ++leftOut_[std::string(object.name)]; }

// --- the end

// Links to what was left out: items of dictionaries, reactors, extension dictionaries, plot styles.
void DxfContent::dropDangling() {
  db_->forEach([this](Object& object) {
    const auto isGone = [this](Handle handle) { return !db_->find(handle); };
    std::erase_if(object.reactors, isGone);
    if (object.extension != 0 && isGone(object.extension)) object.extension = 0;
    if (object.kind == Kind::Dictionary) {
      auto& dictionary = static_cast<Dictionary&>(object);
      std::erase_if(dictionary.items, [&](const auto& item) { return isGone(item.second); });
      if (isGone(dictionary.defaultItem)) dictionary.defaultItem = 0;
    } else if (isEntity(object.kind)) {
      auto& entity = static_cast<Entity&>(object);
      const bool isNamed = entity.plotStyle != kByLayer && entity.plotStyle < kContinuous;
      if (isNamed && isGone(entity.plotStyle)) entity.plotStyle = kByLayer;
    }
  });
}

// Some programs don't state the owner of an object or the layout of a space; both are known from
// the other side.
void DxfContent::completeLinks() {
  db_->forEach([this](Object& object) {
    if (object.kind == Kind::Dictionary) {
      for (const auto& [name, item] : static_cast<Dictionary&>(object).items) {
        Object* owned = db_->find(item);
        if (owned && owned->owner == 0 && owned != &object) owned->owner = object.handle;
      }
    } else if (object.kind == Kind::RawObject && typeName(*db_, object) == "LAYOUT") {
      const auto& references = static_cast<RawObject&>(object).references;
      auto* block = references.empty() ? nullptr : db_->find<BlockRecord>(references[0].target);
      if (block && block->layout == 0) block->layout = object.handle;
    }
  });
}

void DxfContent::reportLeftOut() {
  const std::string list = countedNames(leftOut_);
  if (!list.empty()) report_.add(0, "left out, being of kinds that aren't known: " + list);
}

std::unique_ptr<Database> DxfContent::finish(const DxfHeader& header) {
  finishMembers();
  dropDangling();
  completeLinks();
  for (int i = 0; i < kTableCount; ++i) tables_->control(static_cast<Table>(i));
  db_->reserveHandles(header.handleSeed());
  classNumber(*db_, "AcDbDictionaryWithDefault", "ACDBDICTIONARYWDFLT");  // every DWG has it
  header.apply(*db_, *tables_);
  std::vector<std::string> mended = db_->finishLoading();
  if (!isOld_ && hasObjects_) {
    for (std::string& line : mended) report_.add(0, std::move(line));
  }
  reportLeftOut();
  db_->journal().setRecording(true);
  return std::move(db_);
}

}  // namespace drafting

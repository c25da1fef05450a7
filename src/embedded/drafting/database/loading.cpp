// What a reader leaves to the database: finding tables, spaces and standard records among the
// objects, making what a drawing can't be without, and filling the look-ups.
#include <algorithm>

#include "embedded/base/text.h"
#include "embedded/drafting/database/database.h"
#include "embedded/drafting/database/visit.h"

namespace drafting {
namespace {

constexpr std::array<const char*, kTableCount> kControlVariables{
    "BLOCK_CONTROL", "LAYER_CONTROL", "STYLE_CONTROL", "LTYPE_CONTROL",    "VIEW_CONTROL",
    "UCS_CONTROL",   "VPORT_CONTROL", "APPID_CONTROL", "DIMSTYLE_CONTROL", "VIEWPORT_CONTROL"};

// The extras of a table that has two: model and paper space, or by block and by layer.
Handle extraOf(const Control& control, std::size_t index) {
  return index < control.extras.size() ? control.extras[index] : 0;
}

bool isNamed(const Object* object, Kind kind, std::string_view name) {
  return object && object->kind == kind &&
         base::equalsNoCase(static_cast<const Record*>(object)->name, name);
}

}  // namespace

std::vector<std::string> Database::finishLoading() {
  std::vector<std::string> mended;
  index_.clear();
  findControls(mended);
  findRecords(mended);
  findSpaces(mended);
  findStandardRecords(mended);
  forEach([this](Object& object) { remember(object); });
  mendEntities(mended);
  setHeaderReferences();
  return mended;
}

// Adopts a new object with the next free handle.
template <class T>
T& Database::makeMissing(Handle owner) {
  auto object = std::make_unique<T>();
  T& made = *object;
  made.handle = nextHandle_;
  made.owner = owner;
  adopt(std::move(object));
  return made;
}

void Database::findControls(std::vector<std::string>& mended) {
  controls_.fill(nullptr);
  for (std::size_t i = 0; i < kTableCount; ++i) {
    Control* stated = find<Control>(header.handle(kControlVariables[i]));
    if (stated && stated->table == static_cast<Table>(i)) controls_[i] = stated;
  }
  forEach([this](Object& object) {
    if (object.kind != Kind::Control) return;
    auto& control = static_cast<Control&>(object);
    Control*& slot = controls_[static_cast<std::size_t>(control.table)];
    if (!slot) slot = &control;
  });
  for (std::size_t i = 0; i < kTableCount; ++i) {
    if (controls_[i]) continue;
    controls_[i] = &makeMissing<Control>(0);
    controls_[i]->table = static_cast<Table>(i);
    mended.push_back("the drawing had no " + std::string(kControlVariables[i]) + "; made one");
  }
}

// Lists every record in its table once: entries that lead nowhere become holes, and records that
// their table had forgotten come last.
void Database::findRecords(std::vector<std::string>& mended) {
  std::size_t lost = 0, found = 0;
  std::unordered_map<Handle, bool> listed;
  for (Control* control : controls_) {
    for (Handle& record : control->records) {
      Record* object = find<Record>(record);
      const bool isNew = object && listed.emplace(record, true).second;
      if (record != 0 && !isNew) ++lost;
      if (!isNew) record = 0;
      if (isNew) object->owner = control->handle;
    }
    for (const Handle extra : control->extras) listed.emplace(extra, true);
  }
  forEach([&](Object& object) {
    Table table;
    if (listed.count(object.handle) != 0 || !tableOf(object, table)) return;
    const auto& record = static_cast<const Record&>(object);
    const bool isExtra = table == Table::Linetypes && (base::equalsNoCase(record.name, "ByLayer") ||
                                                       base::equalsNoCase(record.name, "ByBlock"));
    if (isExtra) return;
    Control& control = this->table(table);
    control.records.push_back(object.handle);
    object.owner = control.handle;
    ++found;
  });
  if (lost > 0) mended.push_back(std::to_string(lost) + " table entries led to no record");
  if (found > 0) mended.push_back(std::to_string(found) + " records were missing in their tables");
}

BlockRecord& Database::findSpace(const char* name, std::size_t index,
                                 std::vector<std::string>& mended) {
  Control& blocks = table(Table::Blocks);
  BlockRecord* space = find<BlockRecord>(extraOf(blocks, index));
  for (std::size_t i = 0; !space && i < blocks.records.size(); ++i) {
    Object* object = find(blocks.records[i]);
    if (!isNamed(object, Kind::BlockRecord, name)) continue;
    space = static_cast<BlockRecord*>(object);
    blocks.records.erase(blocks.records.begin() + static_cast<std::ptrdiff_t>(i));
  }
  if (!space) {
    space = &makeMissing<BlockRecord>(blocks.handle);
    space->name = name;
    mended.push_back(std::string("the drawing had no ") + name + "; made one");
  }
  blocks.extras.resize(2);
  blocks.extras[index] = space->handle;
  return *space;
}

void Database::findSpaces(std::vector<std::string>& mended) {
  modelSpace_ = &findSpace("*Model_Space", 0, mended);
  paperSpace_ = &findSpace("*Paper_Space", 1, mended);
  if (modelSpace_ == paperSpace_) {  // a damaged table names one block for both
    table(Table::Blocks).extras[1] = 0;
    paperSpace_ = &findSpace("*Paper_Space", 1, mended);
  }
  std::vector<BlockRecord*> blocks;
  forEach([&blocks](Object& object) {
    if (object.kind == Kind::BlockRecord) blocks.push_back(static_cast<BlockRecord*>(&object));
  });
  for (BlockRecord* block : blocks) {
    if (!find<Block>(block->begin)) {
      Block& begin = makeMissing<Block>(block->handle);
      begin.name = block->name;
      block->begin = begin.handle;
    }
    if (!find<EndBlock>(block->end)) block->end = makeMissing<EndBlock>(block->handle).handle;
  }
}

template <class T>
Handle Database::findOrMakeRecord(Table table, const char* name, std::vector<std::string>& mended) {
  Control& control = this->table(table);
  Handle found = 0;
  forEach([&](const Object& object) {
    Table own;
    if (found != 0 || !tableOf(object, own) || own != table) return;
    if (base::equalsNoCase(static_cast<const Record&>(object).name, name)) found = object.handle;
  });
  if (found != 0) return found;
  T& record = makeMissing<T>(control.handle);
  record.name = name;
  mended.push_back(std::string("the drawing had no record \"") + name + "\"; made one");
  return record.handle;
}

// The record of that name, listed in its table; made if there is none.
template <class T>
Handle Database::listStandard(Table table, const char* name, std::vector<std::string>& mended) {
  const Handle handle = findOrMakeRecord<T>(table, name, mended);
  auto& records = this->table(table).records;
  if (std::find(records.begin(), records.end(), handle) == records.end()) {
    records.push_back(handle);
  }
  return handle;
}

void Database::findStandardRecords(std::vector<std::string>& mended) {
  Control& linetypes = table(Table::Linetypes);
  const Handle byBlock = findOrMakeRecord<Linetype>(Table::Linetypes, "ByBlock", mended);
  const Handle byLayer = findOrMakeRecord<Linetype>(Table::Linetypes, "ByLayer", mended);
  linetypes.extras = {byBlock, byLayer};
  std::erase_if(linetypes.records, [&](Handle h) { return h == byBlock || h == byLayer; });
  const Handle continuous = listStandard<Linetype>(Table::Linetypes, "Continuous", mended);
  const Handle layer = listStandard<Layer>(Table::Layers, "0", mended);
  if (auto* zero = find<Layer>(layer); zero && zero->linetype == 0) zero->linetype = continuous;
  listStandard<AppId>(Table::AppIds, "ACAD", mended);
  if (firstRecord(Table::Styles) == 0) listStandard<TextStyle>(Table::Styles, "Standard", mended);
  if (firstRecord(Table::DimStyles) == 0) {
    listStandard<DimStyle>(Table::DimStyles, "Standard", mended);
  }
  if (!find<Dictionary>(header.handle("NAMED_DICTIONARY"))) {
    header.set("NAMED_DICTIONARY", makeMissing<Dictionary>(0).handle);
    mended.push_back("the drawing had no named dictionary; made one");
  }
}

Handle Database::firstRecord(Table table) const {
  for (const Handle record : this->table(table).records) {
    if (record != 0) return record;
  }
  return 0;
}

// Entities need a layer; those whose layer is gone come to stand on "0".
void Database::mendEntities(std::vector<std::string>& mended) {
  const Handle zero = findRecord(Table::Layers, "0");
  std::size_t layers = 0, linetypes = 0;
  Handle good = zero;  // neighbours mostly share their layer
  forEach([&](Object& object) {
    if (!isEntity(object.kind)) return;
    auto& entity = static_cast<Entity&>(object);
    if (entity.layer != good) {
      const Object* layer = find(entity.layer);
      if (!layer || layer->kind != Kind::Layer) {
        if (object.kind != Kind::Block && object.kind != Kind::EndBlock) ++layers;
        entity.layer = zero;
      }
      good = entity.layer;
    }
    if (entity.linetype == kByLayer || entity.linetype >= kContinuous) return;
    const Object* linetype = find(entity.linetype);
    if (linetype && linetype->kind == Kind::Linetype) return;
    entity.linetype = kByLayer;
    ++linetypes;
  });
  if (layers > 0) {
    mended.push_back(std::to_string(layers) + " entities stood on no layer; put on layer 0");
  }
  if (linetypes > 0) mended.push_back(std::to_string(linetypes) + " linetypes led nowhere");
}

void Database::setHeaderReferences() {
  for (std::size_t i = 0; i < kTableCount; ++i) {
    header.set(kControlVariables[i], controls_[i]->handle);
  }
  header.set("MODEL_SPACE", modelSpace_->handle);
  header.set("PAPER_SPACE", paperSpace_->handle);
  header.set("LTYPE_BYLAYER", findRecord(Table::Linetypes, "ByLayer"));
  header.set("LTYPE_BYBLOCK", findRecord(Table::Linetypes, "ByBlock"));
  header.set("LTYPE_CONTINUOUS", findRecord(Table::Linetypes, "Continuous"));
  const auto current = [this](const char* variable, Table table, Handle usual) {
    const Record* record = find<Record>(header.handle(variable));
    Table own;
    if (!record || !tableOf(*record, own) || own != table) header.set(variable, usual);
  };
  current("CLAYER", Table::Layers, findRecord(Table::Layers, "0"));
  current("TEXTSTYLE", Table::Styles, firstRecord(Table::Styles));
  current("CELTYPE", Table::Linetypes, findRecord(Table::Linetypes, "ByLayer"));
  current("DIMSTYLE", Table::DimStyles, firstRecord(Table::DimStyles));
  current("DIMTXSTY", Table::Styles, firstRecord(Table::Styles));
}

}  // namespace drafting

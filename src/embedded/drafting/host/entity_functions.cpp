// Open objects for modules: thin handles that look their object up at each call, since an erase or
// undo may take it away in between.
#include "embedded/drafting/database/xdata.h"
#include "embedded/drafting/host/open_object.h"

using drafting::Handle;
using drafting::OpenObject;
using drafting::openObject;

namespace {

constexpr AcRxClass kObject{L"AcDbObject", nullptr};
constexpr AcRxClass kEntity{L"AcDbEntity", &kObject};
constexpr AcRxClass kBlockReference{L"AcDbBlockReference", &kEntity};
constexpr AcRxClass kLine{L"AcDbLine", &kEntity};
constexpr AcRxClass kText{L"AcDbText", &kEntity};
constexpr AcRxClass kBlockTable{L"AcDbBlockTable", &kObject};
constexpr AcRxClass kBlockTableRecord{L"AcDbBlockTableRecord", &kObject};
constexpr AcRxClass kLayerTableRecord{L"AcDbLayerTableRecord", &kObject};

template <class T>
T* castTo(const AcRxObject* object, const AcRxClass* type) {
  if (!object || !object->isKindOf(type)) return nullptr;
  return static_cast<T*>(const_cast<AcRxObject*>(object));
}

}  // namespace

AcDbObject::AcDbObject(std::unique_ptr<AcDbObjectState> state) : state_(std::move(state)) {}
AcDbObject::~AcDbObject() = default;

const AcRxClass* AcDbObject::desc() { return &kObject; }
const AcRxClass* AcDbObject::isA() const { return desc(); }
AcDbObject* AcDbObject::cast(const AcRxObject* object) {
  return castTo<AcDbObject>(object, desc());
}
const AcRxClass* AcDbEntity::desc() { return &kEntity; }
const AcRxClass* AcDbEntity::isA() const { return desc(); }
AcDbEntity* AcDbEntity::cast(const AcRxObject* object) {
  return castTo<AcDbEntity>(object, desc());
}
const AcRxClass* AcDbBlockReference::desc() { return &kBlockReference; }
const AcRxClass* AcDbBlockReference::isA() const { return desc(); }
AcDbBlockReference* AcDbBlockReference::cast(const AcRxObject* object) {
  return castTo<AcDbBlockReference>(object, desc());
}
const AcRxClass* AcDbLine::desc() { return &kLine; }
const AcRxClass* AcDbLine::isA() const { return desc(); }
const AcRxClass* AcDbText::desc() { return &kText; }
const AcRxClass* AcDbText::isA() const { return desc(); }
const AcRxClass* AcDbBlockTable::desc() { return &kBlockTable; }
const AcRxClass* AcDbBlockTable::isA() const { return desc(); }
const AcRxClass* AcDbBlockTableRecord::desc() { return &kBlockTableRecord; }
const AcRxClass* AcDbBlockTableRecord::isA() const { return desc(); }
AcDbBlockTableRecord* AcDbBlockTableRecord::cast(const AcRxObject* object) {
  return castTo<AcDbBlockTableRecord>(object, desc());
}
const AcRxClass* AcDbLayerTableRecord::desc() { return &kLayerTableRecord; }
const AcRxClass* AcDbLayerTableRecord::isA() const { return desc(); }
AcDbLayerTableRecord* AcDbLayerTableRecord::cast(const AcRxObject* object) {
  return castTo<AcDbLayerTableRecord>(object, desc());
}

AcDbObjectId AcDbObject::objectId() const { return openObject(*this).id(); }

void AcDbObject::getAcDbHandle(AcDbHandle& handle) const {
  const AcDbObjectId id = openObject(*this).id();
  handle = AcDbHandle(id.isNull() ? 0 : id.stub()->handle);
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
  if (drafting::serviceFails("upgradeOpen")) return Acad::eWasOpenForRead;
  return openObject(*this).becomeWriter() ? Acad::eOk : Acad::eWasOpenForRead;
}

Acad::ErrorStatus AcDbObject::close() {
  delete this;
  return Acad::eOk;
}

std::uint16_t AcDbEntity::colorIndex() const {
  const auto* entity = openObject(*this).find<drafting::Entity>();
  return entity ? static_cast<std::uint16_t>(entity->colour) : std::uint16_t{256};
}

Acad::ErrorStatus AcDbEntity::setColorIndex(std::uint16_t index, bool subentities) {
  OpenObject& object = openObject(*this);
  auto* entity = object.find<drafting::Entity>();
  if (!entity) return Acad::eWasErased;
  if (!object.forWrite()) return Acad::eWasOpenForRead;
  if (index > 256) return Acad::eInvalidInput;
  const auto colour = static_cast<std::int16_t>(index);
  const auto paint = [&](drafting::Entity& one) {
    if (one.colour == colour) return;  // nothing for undo to remember
    if (object.database()) object.database()->willChange(one);
    one.colour = colour;
  };
  paint(*entity);
  const auto* insert = dynamic_cast<drafting::Insert*>(entity);
  if (!subentities || !insert) return Acad::eOk;
  for (const Handle attribute : insert->attributes) {
    if (auto* one = object.database()->find<drafting::Entity>(attribute)) paint(*one);
  }
  return Acad::eOk;
}

AcDbObjectId AcDbEntity::layerId() const {
  const auto* entity = openObject(*this).find<drafting::Entity>();
  return entity ? openObject(*this).idOf(entity->layer) : AcDbObjectId();
}

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
  const auto* insert = openObject(*this).find<drafting::Insert>();
  return insert ? openObject(*this).idOf(insert->block) : AcDbObjectId();
}

AcCmColor AcDbLayerTableRecord::color() const {
  const auto* layer = openObject(*this).find<drafting::Layer>();
  return AcCmColor(static_cast<std::uint16_t>(layer ? layer->colour : 7));
}

// --- walking a block

namespace {

class BlockIterator : public AcDbBlockTableRecordIterator {
 public:
  explicit BlockIterator(AcDbObjectId record) : record_(record) { BlockIterator::start(); }

  void start(bool atBeginning = true, bool = true) override {
    const auto* record =
        database() ? database()->find<drafting::BlockRecord>(record_.stub()->handle) : nullptr;
    const drafting::Entity* at = !record ? nullptr : atBeginning ? record->first : record->last;
    current_ = at ? at->handle : 0;
  }
  void step(bool forward = true, bool = true) override {
    const auto* at = database() ? database()->find<drafting::Entity>(current_) : nullptr;
    const drafting::Entity* next = !at ? nullptr : forward ? at->next : at->previous;
    current_ = next ? next->handle : 0;
  }
  bool done() const override { return current_ == 0; }
  Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode) override {
    entity = nullptr;
    if (done()) return Acad::eInvalidInput;
    return acdbOpenAcDbEntity(entity, record_.stub()->database->idOf(current_), mode);
  }
  Acad::ErrorStatus getEntityId(AcDbObjectId& id) const override {
    if (done()) return Acad::eInvalidInput;
    id = record_.stub()->database->idOf(current_);
    return Acad::eOk;
  }

 private:
  drafting::Database* database() const { return record_.stub()->database->database(); }

  AcDbObjectId record_;
  Handle current_ = 0;
};

}  // namespace

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool,
                                                    bool) const {
  iterator = new BlockIterator(objectId());
  return Acad::eOk;
}

// --- extended data

namespace {

void fillItem(const drafting::Database& database, const drafting::XDataItem& item, resbuf& link) {
  if (const auto* text = std::get_if<std::string>(&item.value)) {
    link.resval.rstring = acutNewString(base::wideFromUtf8(*text).c_str());
  } else if (const int* whole = std::get_if<int>(&item.value)) {
    if (item.code == 1070) {
      link.resval.rint = static_cast<std::int16_t>(*whole);
    } else {
      link.resval.rlong = *whole;
    }
  } else if (const double* real = std::get_if<double>(&item.value)) {
    link.resval.rreal = *real;
  } else if (const auto* point = std::get_if<drafting::Point3>(&item.value)) {
    link.resval.rpoint[0] = point->x;
    link.resval.rpoint[1] = point->y;
    link.resval.rpoint[2] = point->z;
  } else if (item.code == 1003) {  // a layer goes by its name
    const auto name = database.recordName(std::get<Handle>(item.value));
    link.resval.rstring = acutNewString(base::wideFromUtf8(name).c_str());
  } else {
    AcDbHandle handle(std::get<Handle>(item.value));
    wchar_t buffer[AcDbHandle::kAsciiSize];
    handle.getIntoAsciiBuffer(buffer);
    link.resval.rstring = acutNewString(buffer);
  }
}

// Nothing for a link that can't stand in extended data.
std::optional<drafting::XDataItem> itemOf(const drafting::Database& database, const resbuf& link) {
  const int code = link.restype;
  if (code == 1000 || code == 1002) return {{code, drafting::utf8(link.resval.rstring)}};
  if (code == 1003) {
    return {
        {code, database.findRecord(drafting::Table::Layers, drafting::utf8(link.resval.rstring))}};
  }
  if (code == 1005) {
    AcDbHandle handle;
    handle = link.resval.rstring;
    return {{code, Handle{handle.value()}}};
  }
  if (code >= 1010 && code <= 1013) {
    const double* p = link.resval.rpoint;
    return {{code, drafting::Point3{p[0], p[1], p[2]}}};
  }
  if (code >= 1040 && code <= 1042) return {{code, link.resval.rreal}};
  if (code == 1070) return {{code, int{link.resval.rint}}};
  if (code == 1071) return {{code, int{link.resval.rlong}}};
  return {};
}

}  // namespace

resbuf* AcDbObject::xData(const wchar_t* application) const {
  const OpenObject& object = openObject(*this);
  const auto* found = object.find<drafting::Object>();
  if (!found || !object.database() || drafting::serviceFails("xData")) return nullptr;
  const Handle app =
      object.database()->findRecord(drafting::Table::AppIds, drafting::utf8(application));
  const drafting::XData* data = app ? drafting::findXData(*found, app) : nullptr;
  const auto items = data ? drafting::decodeXData(data->items) : std::nullopt;
  if (!items) return nullptr;
  resbuf* first = acutNewRb(1001);
  first->resval.rstring = acutNewString(application);
  resbuf** end = &first->rbnext;
  for (const drafting::XDataItem& item : *items) {
    *end = acutNewRb(item.code);
    fillItem(*object.database(), item, **end);
    end = &(*end)->rbnext;
  }
  return first;
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* chain) {
  OpenObject& object = openObject(*this);
  auto* found = object.find<drafting::Object>();
  if (!found) return Acad::eWasErased;
  if (!object.database()) return Acad::eNoDatabase;
  if (!object.forWrite()) return Acad::eWasOpenForRead;
  if (!chain || chain->restype != 1001) return Acad::eInvalidInput;
  drafting::Database& database = *object.database();
  const Handle app =
      database.findRecord(drafting::Table::AppIds, drafting::utf8(chain->resval.rstring));
  if (app == 0) return Acad::eRegappIdNotFound;
  std::vector<drafting::XDataItem> items;
  for (const resbuf* link = chain->rbnext; link; link = link->rbnext) {
    const auto item = itemOf(database, *link);
    if (!item) return Acad::eInvalidInput;
    items.push_back(*item);
  }
  const auto coded = drafting::encodeXData(items, database.codePage);
  if (!coded) return Acad::eInvalidInput;
  database.willChange(*found);
  std::erase_if(found->xdata, [app](const drafting::XData& data) { return data.app == app; });
  if (!items.empty()) found->xdata.push_back({app, *coded});
  return Acad::eOk;
}

// --- opening

namespace {

Acad::ErrorStatus findForOpen(AcDbObjectId id, drafting::Object*& object) {
  object = nullptr;
  if (id.isNull()) return Acad::eNullObjectId;
  drafting::Database* database = id.stub()->database->database();
  if (!database) return Acad::eNoDatabase;
  object = database->find(id.stub()->handle);
  return object ? Acad::eOk : Acad::eWasErased;
}

}  // namespace

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool) {
  object = nullptr;
  if (drafting::serviceFails("acdbOpenAcDbObject")) return Acad::eInvalidKey;
  drafting::Object* found;
  const Acad::ErrorStatus status = findForOpen(id, found);
  if (status != Acad::eOk) return status;
  const bool forWrite = mode == AcDb::kForWrite;
  if (id.stub()->writer) return Acad::eWasOpenForWrite;
  if (forWrite && id.stub()->readers > 0) return Acad::eWasOpenForRead;
  auto state = std::make_unique<OpenObject>(id, forWrite);
  switch (found->kind) {
    case drafting::Kind::Insert: object = new AcDbBlockReference(std::move(state)); break;
    case drafting::Kind::BlockRecord: object = new AcDbBlockTableRecord(std::move(state)); break;
    case drafting::Kind::Layer: object = new AcDbLayerTableRecord(std::move(state)); break;
    default:
      if (drafting::isEntity(found->kind)) {
        object = new AcDbEntity(std::move(state));
      } else {
        object = new AcDbObject(std::move(state));
      }
  }
  return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool) {
  entity = nullptr;
  if (drafting::serviceFails("acdbOpenAcDbEntity")) return Acad::eInvalidKey;
  drafting::Object* found;
  const Acad::ErrorStatus status = findForOpen(id, found);
  if (status != Acad::eOk) return status;
  if (!drafting::isEntity(found->kind)) return Acad::eNotThatKindOfClass;
  AcDbObject* object = nullptr;
  const Acad::ErrorStatus opened = acdbOpenAcDbObject(object, id, mode);
  entity = static_cast<AcDbEntity*>(object);
  return opened;
}

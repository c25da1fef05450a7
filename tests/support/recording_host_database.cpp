// The recording host's objects, handles, selection sets and value chains.
#include <cmath>
#include <cstring>
#include <cwchar>

#include "platform/framework_runtime.h"
#include "support/recording_host.h"

using test::host;
using test::Kind;
using test::Link;
using test::Thing;

namespace test {
std::vector<std::vector<Thing*>>& selectionSets();
}

// --- value chains ---

namespace {
bool holdsText(int type) {
  return type == RTSTR || type == RTDXF0 || (type >= 1000 && type <= 1005);
}
}  // namespace

wchar_t* acutNewString(const wchar_t* text) {
  wchar_t* copy = new wchar_t[std::wcslen(text) + 1];
  std::wcscpy(copy, text);
  return copy;
}

resbuf* acutNewRb(int type) {
  auto* link = new resbuf{};
  link->restype = static_cast<std::int16_t>(type);
  return link;
}

int acutRelRb(resbuf* chain) {
  while (chain) {
    resbuf* next = chain->rbnext;
    if (holdsText(chain->restype)) delete[] chain->resval.rstring;
    delete chain;
    chain = next;
  }
  return RTNORM;
}

namespace {

std::vector<Link> linksOf(const resbuf* chain) {
  std::vector<Link> links;
  for (; chain; chain = chain->rbnext) {
    Link link{chain->restype, {}};
    if (holdsText(chain->restype)) {
      link.value = std::wstring(chain->resval.rstring);
    } else if (chain->restype == RTSHORT || chain->restype == 1070) {
      link.value = chain->resval.rint;
    } else {
      const double* p = chain->resval.rpoint;
      link.value = AcGePoint3d{p[0], p[1], p[2]};
    }
    links.push_back(link);
  }
  return links;
}

resbuf* chainOf(const std::vector<Link>& links) {
  resbuf* head = nullptr;
  resbuf** end = &head;
  for (const Link& link : links) {
    *end = acutNewRb(link.type);
    if (const auto* text = std::get_if<std::wstring>(&link.value)) {
      (*end)->resval.rstring = acutNewString(text->c_str());
    } else if (const auto* number = std::get_if<std::int16_t>(&link.value)) {
      (*end)->resval.rint = *number;
    } else {
      const auto& point = std::get<AcGePoint3d>(link.value);
      (*end)->resval.rpoint[0] = point.x;
      (*end)->resval.rpoint[1] = point.y;
      (*end)->resval.rpoint[2] = point.z;
    }
    end = &(*end)->rbnext;
  }
  return head;
}

AcDbStub* stubOf(Thing* thing) { return static_cast<AcDbStub*>(thing); }

class State : public AcDbObjectState {
 public:
  State(Thing* of, bool forWrite) : thing(of), writing(forWrite) { count(1); }
  ~State() override { count(-1); }
  bool upgrade() {
    if (writing || thing->openForRead > 1 || thing->openForWrite > 0) return writing;
    count(-1);
    writing = true;
    count(1);
    return true;
  }
  Thing* thing;
  bool writing;

 private:
  void count(int by) { (writing ? thing->openForWrite : thing->openForRead) += by; }
};

Thing* thingOf(const AcDbObject* object) { return static_cast<State*>(object->state())->thing; }

const AcRxClass kObject(L"AcRxObject", nullptr);
const AcRxClass kDbObject(L"AcDbObject", &kObject);
const AcRxClass kEntity(L"AcDbEntity", &kDbObject);
const AcRxClass kReference(L"AcDbBlockReference", &kEntity);
const AcRxClass kRecord(L"AcDbBlockTableRecord", &kDbObject);
const AcRxClass kLayer(L"AcDbLayerTableRecord", &kDbObject);

template <typename Class>
Class* castTo(const AcRxObject* object) {
  if (!object || !object->isKindOf(Class::desc())) return nullptr;
  return static_cast<Class*>(const_cast<AcRxObject*>(object));
}

AcDbObject* makeHandle(Thing* thing, bool forWrite) {
  auto state = std::make_unique<State>(thing, forWrite);
  switch (thing->kind) {
    case Kind::reference: return new AcDbBlockReference(std::move(state));
    case Kind::record: return new AcDbBlockTableRecord(std::move(state));
    case Kind::layer: return new AcDbLayerTableRecord(std::move(state));
    default: return new AcDbEntity(std::move(state));
  }
}

}  // namespace

// --- run-time classes ---

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
  for (const AcRxClass* c = this; c; c = c->myParent()) {
    if (c == other) return true;
  }
  return false;
}

const AcRxClass* AcRxObject::isA() const { return desc(); }
const AcRxClass* AcRxObject::desc() { return &kObject; }
const AcRxClass* AcDbObject::isA() const { return desc(); }
const AcRxClass* AcDbObject::desc() { return &kDbObject; }
AcDbObject* AcDbObject::cast(const AcRxObject* o) { return castTo<AcDbObject>(o); }
const AcRxClass* AcDbEntity::isA() const { return desc(); }
const AcRxClass* AcDbEntity::desc() { return &kEntity; }
AcDbEntity* AcDbEntity::cast(const AcRxObject* o) { return castTo<AcDbEntity>(o); }
const AcRxClass* AcDbBlockReference::isA() const { return desc(); }
const AcRxClass* AcDbBlockReference::desc() { return &kReference; }
AcDbBlockReference* AcDbBlockReference::cast(const AcRxObject* o) {
  return castTo<AcDbBlockReference>(o);
}
const AcRxClass* AcDbBlockTableRecord::isA() const { return desc(); }
const AcRxClass* AcDbBlockTableRecord::desc() { return &kRecord; }
AcDbBlockTableRecord* AcDbBlockTableRecord::cast(const AcRxObject* o) {
  return castTo<AcDbBlockTableRecord>(o);
}
const AcRxClass* AcDbLayerTableRecord::isA() const { return desc(); }
const AcRxClass* AcDbLayerTableRecord::desc() { return &kLayer; }
AcDbLayerTableRecord* AcDbLayerTableRecord::cast(const AcRxObject* o) {
  return castTo<AcDbLayerTableRecord>(o);
}

// --- objects ---

AcDbObject::AcDbObject(std::unique_ptr<AcDbObjectState> state) : state_(std::move(state)) {}
AcDbObject::~AcDbObject() = default;

AcDbObjectId AcDbObject::objectId() const { return AcDbObjectId(stubOf(thingOf(this))); }
void AcDbObject::getAcDbHandle(AcDbHandle& handle) const {
  handle = AcDbHandle(thingOf(this)->handle);
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
  if (host().failing(L"upgradeOpen")) return Acad::eWasOpenForWrite;
  return static_cast<State*>(state())->upgrade() ? Acad::eOk : Acad::eWasOpenForRead;
}

Acad::ErrorStatus AcDbObject::close() {
  delete this;
  return Acad::eOk;
}

resbuf* AcDbObject::xData(const wchar_t* application) const {
  const Thing* thing = thingOf(this);
  const auto found = thing->xdata.find(application);
  if (found == thing->xdata.end() || host().failing(L"xData")) return nullptr;
  return chainOf(found->second);
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* chain) {
  thingOf(this)->xdata[chain->resval.rstring] = linksOf(chain);
  return Acad::eOk;
}

std::uint16_t AcDbEntity::colorIndex() const { return thingOf(this)->colour; }
Acad::ErrorStatus AcDbEntity::setColorIndex(std::uint16_t index, bool) {
  thingOf(this)->colour = index;
  return Acad::eOk;
}

AcDbObjectId AcDbEntity::layerId() const {
  for (const auto& thing : host().things) {
    if (thing->kind == Kind::layer && thing->type == thingOf(this)->layer) {
      return AcDbObjectId(stubOf(thing.get()));
    }
  }
  return {};
}

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
  return AcDbObjectId(stubOf(thingOf(this)->block));
}

AcCmColor AcDbLayerTableRecord::color() const { return AcCmColor(thingOf(this)->colour); }

namespace {
class Iterator : public AcDbBlockTableRecordIterator {
 public:
  explicit Iterator(std::vector<Thing*> things) : things_(std::move(things)) {}
  void start(bool, bool) override { at_ = 0; }
  void step(bool, bool) override { ++at_; }
  bool done() const override { return at_ >= things_.size(); }
  Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode) override {
    return acdbOpenAcDbEntity(entity, AcDbObjectId(stubOf(things_[at_])), mode);
  }
  Acad::ErrorStatus getEntityId(AcDbObjectId& id) const override {
    id = AcDbObjectId(stubOf(things_[at_]));
    return Acad::eOk;
  }

 private:
  std::vector<Thing*> things_;
  std::size_t at_ = 0;
};
}  // namespace

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool,
                                                    bool) const {
  iterator = new Iterator(thingOf(this)->contents);
  return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool) {
  object = nullptr;
  if (host().failing(mode == AcDb::kForRead ? L"open for read" : L"open for write")) {
    return Acad::eInvalidKey;
  }
  if (id.isNull()) return Acad::eNullObjectId;
  Thing* thing = id.stub();
  if (thing->erased) return Acad::eWasErased;
  if (thing->openForWrite > 0) return Acad::eWasOpenForWrite;
  if (mode == AcDb::kForWrite && thing->openForRead > 0) return Acad::eWasOpenForRead;
  object = makeHandle(thing, mode == AcDb::kForWrite);
  return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool erased) {
  AcDbObject* object = nullptr;
  const Acad::ErrorStatus status = acdbOpenAcDbObject(object, id, mode, erased);
  entity = AcDbEntity::cast(object);
  if (object && !entity) object->close();
  return status != Acad::eOk || entity ? status : Acad::eNotThatKindOfClass;
}

// --- ids, handles, the database ---

bool c5ObjIdIsEqualTo(const AcDbObjectId& a, const AcDbObjectId& b) { return a == b; }

AcDbHandle& AcDbHandle::operator=(const wchar_t* text) {
  wchar_t* end = nullptr;
  value_ = std::wcstoull(text, &end, 16);
  if (*end) value_ = 0;
  return *this;
}

bool AcDbHandle::getIntoAsciiBuffer(wchar_t* buffer) const {
  return std::swprintf(buffer, kAsciiSize, L"%llX", static_cast<unsigned long long>(value_)) > 0;
}

AcDbDatabase::AcDbDatabase(bool, bool) {}
AcDbDatabase::~AcDbDatabase() = default;

Acad::ErrorStatus AcDbDatabase::setBlipmode(bool on) {
  host().blips = on;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool, const AcDbHandle& handle,
                                                std::uint32_t) {
  for (const auto& thing : host().things) {
    if (thing->handle != handle.value()) continue;
    id = AcDbObjectId(stubOf(thing.get()));
    return Acad::eOk;
  }
  return Acad::eUnknownHandle;
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
  struct Services : AcDbHostApplicationServices {
    AcDbDatabase* workingDatabase() const override {
      static AcDbDatabase database;
      return &database;
    }
  };
  static Services services;
  return &services;
}

// --- names and selection sets ---

int acdbEntLast(ads_name entity) {
  Thing* last = host().failing(L"acdbEntLast") ? nullptr : host().lastEntity();
  entity[0] = reinterpret_cast<std::intptr_t>(last ? stubOf(last) : nullptr);
  entity[1] = 0;
  return last ? RTNORM : RTERROR;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name entity) {
  if (host().failing(L"acdbGetObjectId") || entity[0] == 0) return Acad::eInvalidInput;
  id = AcDbObjectId(reinterpret_cast<AcDbStub*>(entity[0]));
  return Acad::eOk;
}

int acdbRegApp(const wchar_t*) { return RTNORM; }

int acedSSGet(const wchar_t*, const void*, const void*, const resbuf* filter, ads_name set) {
  std::wstring type, layer, application;
  for (; filter; filter = filter->rbnext) {
    if (filter->restype == 0) type = filter->resval.rstring;
    if (filter->restype == 8) layer = filter->resval.rstring;
    if (filter->restype == 1001) application = filter->resval.rstring;
  }
  std::vector<Thing*> found;
  for (Thing* entity : host().present(type)) {
    if (entity->layer == layer && entity->xdata.count(application)) found.push_back(entity);
  }
  set[0] = set[1] = 0;
  if (found.empty() || host().failing(L"acedSSGet")) return RTERROR;
  ++host().openSets;
  test::selectionSets().push_back(found);
  set[0] = static_cast<std::intptr_t>(test::selectionSets().size());
  return RTNORM;
}

int acedSSName(const ads_name set, std::int32_t index, ads_name entity) {
  const auto& members = test::selectionSets()[static_cast<std::size_t>(set[0]) - 1];
  if (index < 0 || static_cast<std::size_t>(index) >= members.size()) return RTERROR;
  entity[0] = reinterpret_cast<std::intptr_t>(stubOf(members[static_cast<std::size_t>(index)]));
  entity[1] = 0;
  return RTNORM;
}

int acedSSFree(const ads_name) {
  --host().openSets;
  return RTNORM;
}

int AddXdata(const ads_name entity, const wchar_t* application, const resbuf* chain) {
  reinterpret_cast<AcDbStub*>(entity[0])->xdata[application] = linksOf(chain);
  return RTNORM;
}

int EraseObject(AcDbObjectId id) {
  id.stub()->erased = true;
  return RTNORM;
}

// --- geometry ---

AcGeTol AcGeContext::gTol;

bool AcGePoint2d::isEqualTo(const AcGePoint2d& other, const AcGeTol& tolerance) const {
  return std::hypot(x - other.x, y - other.y) <= tolerance.equalPoint();
}

void acutPolar(const ads_point from, double angle, double distance, ads_point to) {
  to[0] = from[0] + distance * std::cos(angle);
  to[1] = from[1] + distance * std::sin(angle);
  to[2] = from[2];
}

// --- LISP and module services ---

int acedDefun(const wchar_t* name, std::int16_t code) {
  if (host().failing(L"acedDefun")) return 0;
  host().defined.push_back(std::to_wstring(code) + L" " + name);
  return RTNORM;
}

int acedUndef(const wchar_t* name, std::int16_t code) {
  host().defined.push_back(L"-" + std::to_wstring(code) + L" " + name);
  return RTNORM;
}

int acedRegFunc(int (*)(), int code) {
  host().defined.push_back(L"register " + std::to_wstring(code));
  return RTNORM;
}

int acedGetFunCode() { return host().functionCode; }
resbuf* acedGetArgs() { return chainOf(host().lispArguments); }

namespace {
int returnValue(const wchar_t* value) {
  host().lispValue = value;
  return RTNORM;
}
}  // namespace

int acedRetVoid() { return returnValue(L"void"); }
int acedRetNil() { return returnValue(L"nil"); }
int acedRetT() { return returnValue(L"T"); }

// Changes to a drawing and their look-ups. Loading is in loading.cpp, the empty drawing in
// new_drawing.cpp.
#include "embedded/drafting/database/database.h"

#include <algorithm>

#include "embedded/base/text.h"
#include "embedded/drafting/database/visit.h"

namespace drafting {

Database::Database() = default;
Database::~Database() = default;

// --- looking

Handle Database::findRecord(Table table, std::string_view name) const {
  const auto& names = names_[static_cast<std::size_t>(table)];
  const auto found = names.find(base::lowerCase(name));
  return found == names.end() ? 0 : found->second;
}

std::string_view Database::recordName(Handle record) const {
  const Record* found = find<Record>(record);
  return found ? std::string_view(found->name) : std::string_view();
}

Handle Database::lastEntity() const { return modelSpace_->last ? modelSpace_->last->handle : 0; }

// --- look-ups kept up to date

bool Database::tableOf(const Object& object, Table& table) const {
  if (tableOfKind(object.kind, table)) return true;
  if (object.kind != Kind::RawObject) return false;
  const Control* control = find<Control>(object.owner);
  if (control) table = control->table;
  return control != nullptr;
}

void Database::touch(const Object& object) {
  index_.touch(object);
  for (ChangeWatcher* watcher : watchers_) watcher->touched(object);
}

void Database::remember(Object& object) {
  touch(object);
  Table table;
  if (tableOf(object, table)) addName(static_cast<const Record&>(object), table);
}

void Database::forget(Object& object) {
  touch(object);
  Table table;
  if (tableOf(object, table)) removeName(static_cast<const Record&>(object), table);
}

void Database::addName(const Record& record, Table table) {
  const auto at = static_cast<std::size_t>(table);
  const auto [name, isNew] = names_[at].try_emplace(base::lowerCase(record.name), record.handle);
  if (!isNew && name->second != record.handle) hasDuplicates_[at] = true;
}

void Database::removeName(const Record& record, Table table) {
  const auto at = static_cast<std::size_t>(table);
  const auto found = names_[at].find(base::lowerCase(record.name));
  if (found == names_[at].end() || found->second != record.handle) return;
  names_[at].erase(found);
  if (!hasDuplicates_[at]) return;
  for (const Handle other : controls_[at]->records) {  // damaged drawings only
    const Record* twin = find<Record>(other);
    if (twin && twin != &record && base::equalsNoCase(twin->name, record.name))
      addName(*twin, table);
  }
}

// --- chains

void Database::joinChain(Handle owner, Entity& entity, Entity* previous, Entity* next) {
  entity.previous = previous;
  entity.next = next;
  if (previous) previous->next = &entity;
  if (next) next->previous = &entity;
  Object* head = find(owner);
  if (!head || head->kind != Kind::BlockRecord) return;
  auto& block = static_cast<BlockRecord&>(*head);
  if (!previous) block.first = &entity;
  if (!next) block.last = &entity;
  ++block.count;
}

void Database::leaveChain(Handle owner, Entity& entity) {
  Entity* const previous = entity.previous;
  Entity* const next = entity.next;
  if (previous) previous->next = next;
  if (next) next->previous = previous;
  entity.previous = entity.next = nullptr;
  Object* head = find(owner);
  if (!head || head->kind != Kind::BlockRecord) return;
  auto& block = static_cast<BlockRecord&>(*head);
  if (block.first == &entity) block.first = next;
  if (block.last == &entity) block.last = previous;
  --block.count;
}

void Database::link(Entity& entity, Entity* previous, Entity* next) {
  joinChain(entity.owner, entity, previous, next);
  journal_.link({Journal::Link::Where::Chain, true, entity.handle, entity.owner,
                 previous ? previous->handle : 0, next ? next->handle : 0});
}

void Database::unlink(Entity& entity) {
  const BlockRecord* block = find<BlockRecord>(entity.owner);
  const bool linked = entity.previous || entity.next || (block && block->first == &entity);
  if (!linked) return;
  journal_.link({Journal::Link::Where::Chain, false, entity.handle, entity.owner,
                 entity.previous ? entity.previous->handle : 0,
                 entity.next ? entity.next->handle : 0});
  leaveChain(entity.owner, entity);
}

void Database::setRecordPlace(Handle control, Handle record, std::size_t place, bool present) {
  Control* head = find<Control>(control);
  if (!head) return;
  auto& records = head->records;
  const auto at = records.begin() + static_cast<std::ptrdiff_t>(std::min(place, records.size()));
  if (present) {
    records.insert(at, record);
  } else if (at != records.end() && *at == record) {
    records.erase(at);
  }
}

// --- changing

void Database::willChange(Object& object) {
  journal_.willChange(object);
  touch(object);
}

bool Database::adopt(std::unique_ptr<Object> object) {
  const Handle handle = object->handle;
  if (!objects_.insert(object)) return false;
  reserveHandles(handle + 1);
  return true;
}

void Database::reserveHandles(Handle next) { nextHandle_ = std::max(nextHandle_, next); }

Handle Database::own(std::unique_ptr<Object> object) {
  Object& made = *object;
  if (made.handle == 0 || find(made.handle)) made.handle = nextHandle_;
  adopt(std::move(object));
  journal_.created(made.handle);
  remember(made);
  return made.handle;
}

Handle Database::append(BlockRecord& block, std::unique_ptr<Entity> entity) {
  Entity& made = *entity;
  made.owner = block.handle;
  own(std::move(entity));
  link(made, block.last, nullptr);
  if (made.kind == Kind::Attdef && !block.hasAttdefs) {
    willChange(block);
    block.hasAttdefs = true;
  }
  return made.handle;
}

Handle Database::appendMember(Entity& owner, std::unique_ptr<Entity> member) {
  const Members members = membersOf(owner);
  if (member->kind == Kind::SeqEnd && *members.seqEnd != 0) return *members.seqEnd;
  // Some readers go from the first member to the SEQEND by ascending handles: it is made anew.
  if (member->kind != Kind::SeqEnd && *members.seqEnd != 0) erase(*members.seqEnd);
  Entity& made = *member;
  made.owner = owner.handle;
  willChange(owner);
  own(std::move(member));
  if (made.kind == Kind::SeqEnd) return *members.seqEnd = made.handle;
  Entity* last = members.list->empty() ? nullptr : find<Entity>(members.list->back());
  link(made, last, nullptr);
  members.list->push_back(made.handle);
  auto end = std::make_unique<SeqEnd>();
  end->layer = owner.layer;
  appendMember(owner, std::move(end));
  return made.handle;
}

Handle Database::addRecord(Table table, std::unique_ptr<Record> record) {
  Control& control = this->table(table);
  record->owner = control.handle;
  const Handle handle = own(std::move(record));
  journal_.link(
      {Journal::Link::Where::Table, true, handle, control.handle, control.records.size(), 0});
  control.records.push_back(handle);
  return handle;
}

Handle Database::addBlock(std::unique_ptr<BlockRecord> record) {
  BlockRecord& block = *record;
  addRecord(Table::Blocks, std::move(record));
  const Handle layer = findRecord(Table::Layers, "0");
  auto begin = std::make_unique<Block>();
  begin->name = block.name;
  begin->owner = block.handle;
  begin->layer = layer;
  block.begin = own(std::move(begin));
  auto end = std::make_unique<EndBlock>();
  end->owner = block.handle;
  end->layer = layer;
  block.end = own(std::move(end));
  return block.handle;
}

Handle Database::addObject(std::unique_ptr<Object> object) { return own(std::move(object)); }

namespace {

template <class T>
void removeAll(std::vector<T>& list, const T& value) {
  list.erase(std::remove(list.begin(), list.end(), value), list.end());
}

void collectContent(const BlockRecord& block, std::vector<Handle>& out) {
  for (const Entity* e = block.first; e; e = e->next) out.push_back(e->handle);
}

// What goes with an object: its extension dictionary and what it owns.
void collectBelongings(const Database& database, const Object& object, std::vector<Handle>& out) {
  // In damaged drawings it may lead to anything.
  if (database.find<Dictionary>(object.extension)) out.push_back(object.extension);
  switch (object.kind) {
    case Kind::Insert:
    case Kind::Polyline: {
      const std::vector<Handle> members = memberHandles(object);
      out.insert(out.end(), members.begin(), members.end());
      break;
    }
    case Kind::RawEntity:
      for (const Reference& reference : static_cast<const RawEntity&>(object).references) {
        const Entity* part = database.find<Entity>(reference.target);
        for (; part && part->owner == object.handle; part = part->next) out.push_back(part->handle);
      }
      break;
    case Kind::BlockRecord: {
      const auto& block = static_cast<const BlockRecord&>(object);
      out.insert(out.end(), {block.begin, block.end});
      break;
    }
    case Kind::Dictionary:
      for (const auto& [name, item] : static_cast<const Dictionary&>(object).items) {
        const Object* owned = database.find(item);
        if (owned && owned->owner == object.handle) out.push_back(item);
      }
      break;
    default: break;
  }
}

}  // namespace

void Database::erase(Handle handle) {
  std::vector<Handle> waiting{handle};  // a list, not recursion: files may nest without end
  while (!waiting.empty()) {
    Object* object = find(waiting.back());
    waiting.pop_back();
    if (!object || object->kind == Kind::Control || object == modelSpace_ ||
        object == paperSpace_) {
      continue;
    }
    if (object->kind == Kind::BlockRecord && static_cast<BlockRecord*>(object)->first) {
      waiting.push_back(object->handle);  // again when its content is gone, for undo relinks it
      collectContent(static_cast<BlockRecord&>(*object), waiting);
      continue;
    }
    eraseOne(*object, waiting);
  }
}

void Database::eraseOne(Object& object, std::vector<Handle>& belongings) {
  const Handle handle = object.handle;
  collectBelongings(*this, object, belongings);
  willChange(object);
  Object* owner = find(object.owner);
  if (isEntity(object.kind)) unlink(static_cast<Entity&>(object));
  if (const Members members = owner ? membersOf(*owner) : Members{}; members.list) {
    willChange(*owner);
    removeAll(*members.list, handle);
    if (*members.seqEnd == handle) *members.seqEnd = 0;
  } else if (owner && owner->kind == Kind::Dictionary) {
    willChange(*owner);
    std::erase_if(static_cast<Dictionary&>(*owner).items,
                  [handle](const auto& item) { return item.second == handle; });
  } else if (owner && owner->kind == Kind::Control) {
    auto& records = static_cast<Control&>(*owner).records;
    const auto at = std::find(records.begin(), records.end(), handle);
    if (at != records.end()) {
      journal_.link({Journal::Link::Where::Table, false, handle, owner->handle,
                     static_cast<Handle>(at - records.begin()), 0});
      records.erase(at);
    }
  }
  destroy(handle);
}

void Database::destroy(Handle handle) {
  Object* object = find(handle);
  if (!object) return;
  forget(*object);
  objects_.remove(handle);
}

void Database::rename(Handle record, std::string name) {
  Record* found = find<Record>(record);
  if (!found) return;
  willChange(*found);
  forget(*found);
  found->name = name;
  remember(*found);
  if (found->kind != Kind::BlockRecord) return;
  if (Block* begin = find<Block>(static_cast<BlockRecord*>(found)->begin)) {
    willChange(*begin);
    begin->name = std::move(name);
  }
}

bool Database::setVariable(std::string_view name, Header::Value value) {
  const int index = Header::indexOf(name);
  if (index < 0 || !header.fits(index, value)) return false;
  journal_.willChangeVariable(index);
  header.set(name, std::move(value));
  return true;
}

Handle Database::registerApp(std::string_view name) {
  if (const Handle known = findRecord(Table::AppIds, name)) return known;
  auto app = std::make_unique<AppId>();
  app->name = name;
  return addRecord(Table::AppIds, std::move(app));
}

}  // namespace drafting

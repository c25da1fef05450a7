// SELECT, ERASE and OOPS: whole entities go and come back.
#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/database/visit.h"

namespace drafting {
namespace {

// Only the selection itself: it is the previous one from then on.
void select(Session& session) { askSelection(session, {.lockedToo = true}); }

std::shared_ptr<Entity> copyOf(const Object& object) {
  std::shared_ptr<Object> copy = copyObject(object);
  copy->handle = object.handle;
  copy->extension = 0;  // goes with the entity and isn't kept
  return std::static_pointer_cast<Entity>(copy);
}

// What OOPS needs to make the entity again; nothing for what owns parts that aren't understood.
void keep(Session& session, const Entity& entity) {
  if (entity.kind == Kind::RawEntity) return;
  ErasedEntity erased{copyOf(entity), {}};
  if (entity.kind == Kind::Insert) {
    for (const Handle handle : static_cast<const Insert&>(entity).attributes) {
      if (const auto* attribute = session.database().find<Attrib>(handle))
        erased.attributes.push_back(copyOf(*attribute));
    }
  }
  session.erased.push_back(std::move(erased));
}

void erase(Session& session) {
  const auto selection = askSelection(session);
  if (!selection) return;
  if (!selection->empty()) session.erased.clear();
  for (const Handle handle : *selection) {
    keep(session, *session.database().find<Entity>(handle));
    session.database().erase(handle);
  }
}

std::unique_ptr<Entity> again(const Entity& kept) {
  std::unique_ptr<Object> copy = copyObject(kept);
  copy->handle = kept.handle;
  return std::unique_ptr<Entity>(static_cast<Entity*>(copy.release()));
}

// Brings back what the last ERASE took; its handles too, as far as they are free.
void oops(Session& session) {
  Database& database = session.database();
  if (session.erased.empty()) {
    session.print(session.say("\n没有可恢复的对象。", "\nNothing was erased."));
    return;
  }
  for (const ErasedEntity& one : session.erased) {
    auto entity = again(*one.entity);
    if (database.find(entity->handle)) continue;  // undone already
    if (entity->kind == Kind::Insert) {
      static_cast<Insert&>(*entity).attributes.clear();
      static_cast<Insert&>(*entity).seqEnd = 0;
    }
    const Handle handle = database.append(database.modelSpace(), std::move(entity));
    for (const auto& attribute : one.attributes)
      database.appendAttribute(*database.find<Insert>(handle), again(*attribute));
  }
  session.erased.clear();
}

}  // namespace

void addEditCommands(CommandTable& table) {
  table.add({.name = "SELECT", .run = select});
  table.add({.name = "ERASE", .run = erase});
  table.add({.name = "OOPS", .run = oops});
  table.addAlias("E", "ERASE");
}

}  // namespace drafting

#include "embedded/drafting/commands/entity_copies.h"

#include "embedded/drafting/database/visit.h"

namespace drafting {

std::unique_ptr<Entity> plainCopy(const Entity& entity) {
  auto object = copyObject(entity);
  object->extension = 0;  // what hangs on the original isn't the copy's
  object->reactors.clear();
  std::unique_ptr<Entity> copy(static_cast<Entity*>(object.release()));
  if (const Members own = membersOf(*copy); own.list) {
    own.list->clear();
    *own.seqEnd = 0;
  }
  return copy;
}

Handle copyEntity(Database& database, Handle handle) {
  const auto* entity = database.find<Entity>(handle);
  if (!entity || entity->kind == Kind::RawEntity || entity->kind == Kind::GroupEntity) return 0;
  auto* block = database.find<BlockRecord>(entity->owner);
  if (!block) return 0;
  auto copy = plainCopy(*entity);
  const std::vector<Handle> members = memberHandles(*entity);
  const Handle made = database.append(*block, std::move(copy));
  for (const Handle member : members) {
    const auto* one = database.find<Entity>(member);
    if (one && one->kind != Kind::SeqEnd) {
      database.appendMember(*database.find<Entity>(made), plainCopy(*one));
    }
  }
  return made;
}

TransformOptions memberOptions(const Entity& holder, TransformOptions options) {
  if (holder.kind == Kind::Polyline) {
    const auto& polyline = static_cast<const Polyline&>(holder);
    options.plane = polyline.normal;
    options.elevation = polyline.elevation;
  }
  return options;
}

bool transformWithParts(Database& database, Handle handle, const Map3& map,
                        const TransformOptions& options) {
  auto* entity = database.find<Entity>(handle);
  if (!entity) return false;
  std::unique_ptr<Entity> probe(static_cast<Entity*>(copyObject(*entity).release()));
  if (!transformEntity(*probe, map, options)) return false;
  const TransformOptions ofMembers = memberOptions(*entity, options);
  transformEntity(database.edit<Entity>(handle), map, options);
  for (const Handle member : memberHandles(*entity)) {
    if (database.find<Entity>(member)) {
      transformEntity(database.edit<Entity>(member), map, ofMembers);
    }
  }
  return true;
}

}  // namespace drafting

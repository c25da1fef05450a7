#include "embedded/drafting/commands/entity_copies.h"

#include "embedded/drafting/database/visit.h"

namespace drafting {
namespace {

std::unique_ptr<Entity> plainCopy(const Entity& entity) {
  auto copy = copyObject(entity);
  copy->extension = 0;  // what hangs on the original isn't the copy's
  copy->reactors.clear();
  return std::unique_ptr<Entity>(static_cast<Entity*>(copy.release()));
}

}  // namespace

Handle copyEntity(Database& database, Handle handle) {
  const auto* entity = database.find<Entity>(handle);
  if (!entity || entity->kind == Kind::RawEntity || entity->kind == Kind::GroupEntity) return 0;
  auto* block = database.find<BlockRecord>(entity->owner);
  if (!block) return 0;
  auto copy = plainCopy(*entity);
  const std::vector<Handle> members = memberHandles(*entity);
  if (const Members own = membersOf(*copy); own.list) {
    own.list->clear();
    *own.seqEnd = 0;
  }
  const Handle made = database.append(*block, std::move(copy));
  for (const Handle member : members) {
    const auto* one = database.find<Entity>(member);
    if (one && one->kind != Kind::SeqEnd) {
      database.appendMember(*database.find<Entity>(made), plainCopy(*one));
    }
  }
  return made;
}

bool transformWithParts(Database& database, Handle handle, const Map3& map,
                        const TransformOptions& options) {
  auto* entity = database.find<Entity>(handle);
  if (!entity) return false;
  std::unique_ptr<Entity> probe(static_cast<Entity*>(copyObject(*entity).release()));
  if (!transformEntity(*probe, map, options)) return false;
  TransformOptions ofMembers = options;
  if (const auto* polyline = dynamic_cast<const Polyline*>(entity)) {
    ofMembers.plane = polyline->normal;
    ofMembers.elevation = polyline->elevation;
  }
  transformEntity(database.edit<Entity>(handle), map, options);
  for (const Handle member : memberHandles(*entity)) {
    if (database.find<Entity>(member)) {
      transformEntity(database.edit<Entity>(member), map, ofMembers);
    }
  }
  return true;
}

}  // namespace drafting

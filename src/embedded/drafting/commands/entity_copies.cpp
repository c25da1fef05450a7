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
  if (!entity || entity->kind == Kind::RawEntity) return 0;
  auto* block = database.find<BlockRecord>(entity->owner);
  if (!block) return 0;
  auto copy = plainCopy(*entity);
  if (entity->kind != Kind::Insert) return database.append(*block, std::move(copy));
  auto& insert = static_cast<Insert&>(*copy);
  const std::vector<Handle> attributes = insert.attributes;
  insert.attributes.clear();
  insert.seqEnd = 0;
  const Handle made = database.append(*block, std::move(copy));
  for (const Handle attribute : attributes) {
    if (const auto* one = database.find<Attrib>(attribute))
      database.appendAttribute(*database.find<Insert>(made), plainCopy(*one));
  }
  return made;
}

bool transformWithParts(Database& database, Handle handle, const Map3& map,
                        const TransformOptions& options) {
  auto* entity = database.find<Entity>(handle);
  if (!entity) return false;
  std::unique_ptr<Entity> probe(static_cast<Entity*>(copyObject(*entity).release()));
  if (!transformEntity(*probe, map, options)) return false;
  transformEntity(database.edit<Entity>(handle), map, options);
  if (entity->kind != Kind::Insert) return true;
  for (const Handle attribute : static_cast<const Insert&>(*entity).attributes) {
    if (database.find<Entity>(attribute))
      transformEntity(database.edit<Entity>(attribute), map, options);
  }
  return true;
}

}  // namespace drafting

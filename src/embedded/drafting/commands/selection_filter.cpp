#include "embedded/drafting/commands/selection_filter.h"

#include "embedded/base/text.h"
#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/database/xdata.h"

namespace drafting {
namespace {

bool passes(const Database& database, const Entity& entity, const SelectionFilter& filter,
            Handle layer, Handle app) {
  if (entity.owner != database.modelSpace().handle) return false;
  if (!filter.type.empty() && !base::equalsNoCase(typeName(database, entity), filter.type))
    return false;
  if (!filter.layer.empty() && entity.layer != layer) return false;
  return filter.app.empty() || findXData(entity, app);
}

}  // namespace

Selection selectAll(const Database& database, const SelectionFilter& filter) {
  const Handle layer = filter.layer.empty() ? 0 : database.findRecord(Table::Layers, filter.layer);
  const Handle app = filter.app.empty() ? 0 : database.findRecord(Table::AppIds, filter.app);
  Selection found;
  if ((!filter.layer.empty() && !layer) || (!filter.app.empty() && !app)) return found;
  const auto take = [&](const Entity* entity) {
    if (entity && passes(database, *entity, filter, layer, app)) found.push_back(entity->handle);
  };
  const Kind kind = kindOfName(filter.type);
  if (app) {
    for (const Handle handle : database.entitiesWithApp(app)) take(database.find<Entity>(handle));
  } else if (layer && kind != Kind::RawEntity) {
    for (const Handle handle : database.entitiesOnLayer(kind, layer))
      take(database.find<Entity>(handle));
  } else {
    for (const Entity* entity = database.modelSpace().first; entity; entity = entity->next)
      take(entity);
  }
  return found;
}

}  // namespace drafting

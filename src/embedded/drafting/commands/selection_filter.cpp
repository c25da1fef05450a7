#include "embedded/drafting/commands/selection_filter.h"

#include <algorithm>
#include <iterator>

#include "embedded/base/text.h"
#include "embedded/drafting/database/xdata.h"

namespace drafting {
namespace {

struct KindName {
  Kind kind;
  std::string_view name;
};
constexpr KindName kNames[] = {
    {Kind::Line, "LINE"},     {Kind::Point, "POINT"},           {Kind::Circle, "CIRCLE"},
    {Kind::Arc, "ARC"},       {Kind::Ellipse, "ELLIPSE"},       {Kind::Solid, "SOLID"},
    {Kind::Text, "TEXT"},     {Kind::LwPolyline, "LWPOLYLINE"}, {Kind::MText, "MTEXT"},
    {Kind::Attdef, "ATTDEF"}, {Kind::Attrib, "ATTRIB"},         {Kind::Insert, "INSERT"},
    {Kind::SeqEnd, "SEQEND"}};

bool passes(const Database& database, const Entity& entity, const SelectionFilter& filter,
            Handle layer, Handle app) {
  if (entity.owner != database.modelSpace().handle) return false;
  if (!filter.type.empty() && !base::equalsNoCase(dxfName(entity), filter.type)) return false;
  if (!filter.layer.empty() && entity.layer != layer) return false;
  return filter.app.empty() || findXData(entity, app);
}

}  // namespace

std::string_view dxfName(const Entity& entity) {
  for (const KindName& row : kNames) {
    if (row.kind == entity.kind) return row.name;
  }
  return {};
}

Selection selectAll(const Database& database, const SelectionFilter& filter) {
  const Handle layer = filter.layer.empty() ? 0 : database.findRecord(Table::Layers, filter.layer);
  const Handle app = filter.app.empty() ? 0 : database.findRecord(Table::AppIds, filter.app);
  Selection found;
  if ((!filter.layer.empty() && !layer) || (!filter.app.empty() && !app)) return found;
  const auto take = [&](const Entity* entity) {
    if (entity && passes(database, *entity, filter, layer, app)) found.push_back(entity->handle);
  };
  const auto* kind = std::find_if(std::begin(kNames), std::end(kNames), [&](const KindName& row) {
    return base::equalsNoCase(row.name, filter.type);
  });
  if (app) {
    for (const Handle handle : database.entitiesWithApp(app)) take(database.find<Entity>(handle));
  } else if (layer && kind != std::end(kNames)) {
    for (const Handle handle : database.entitiesOnLayer(kind->kind, layer))
      take(database.find<Entity>(handle));
  } else {
    for (const Entity* entity = database.modelSpace().first; entity; entity = entity->next)
      take(entity);
  }
  return found;
}

}  // namespace drafting

#include "embedded/drafting/database/space_index.h"

#include "embedded/drafting/database/database.h"

namespace drafting {
namespace {

template <class Map, class Key>
std::vector<Handle> listOf(const Map& map, const Key& key) {
  const auto found = map.find(key);
  if (found == map.end()) return {};
  return {found->second.begin(), found->second.end()};
}

template <class Map, class Key>
void removeFrom(Map& map, const Key& key, Handle handle) {
  const auto found = map.find(key);
  if (found != map.end()) found->second.erase(handle);
}

}  // namespace

std::vector<Handle> SpaceIndex::withApp(Handle app) {
  update();
  return listOf(byApp_, app);
}

std::vector<Handle> SpaceIndex::onLayer(Kind kind, Handle layer) {
  update();
  return listOf(byLayer_, LayerKey{kind, layer});
}

void SpaceIndex::touch(const Object& object) {
  if (!built_ || !isEntity(object.kind)) return;
  if (changed_.insert(object.handle).second) remove(object);
}

void SpaceIndex::clear() {
  built_ = false;
  byApp_.clear();
  byLayer_.clear();
  changed_.clear();
}

void SpaceIndex::update() {
  if (!built_) {
    built_ = true;
    database_.forEach([this](const Object& object) { add(object); });
  }
  for (const Handle handle : changed_) {
    if (const Object* object = database_.find(handle)) add(*object);
  }
  changed_.clear();
}

void SpaceIndex::add(const Object& object) {
  if (!isEntity(object.kind) || object.kind == Kind::Block || object.kind == Kind::EndBlock) return;
  const BlockRecord* space = database_.find<BlockRecord>(object.owner);
  if (!space || !space->isSpace()) return;
  const auto& entity = static_cast<const Entity&>(object);
  Handles& onLayer = byLayer_[{entity.kind, entity.layer}];
  onLayer.insert(onLayer.end(), entity.handle);
  for (const XData& data : entity.xdata) {
    Handles& withApp = byApp_[data.app];
    withApp.insert(withApp.end(), entity.handle);
  }
}

void SpaceIndex::remove(const Object& object) {
  const auto& entity = static_cast<const Entity&>(object);
  removeFrom(byLayer_, LayerKey{entity.kind, entity.layer}, entity.handle);
  for (const XData& data : entity.xdata) removeFrom(byApp_, data.app, entity.handle);
}

}  // namespace drafting

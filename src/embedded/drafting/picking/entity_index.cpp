#include "embedded/drafting/picking/entity_index.h"

#include <vector>

namespace drafting {
namespace {

bool hides(const Layer& layer) { return layer.frozen || layer.off; }

}  // namespace

EntityIndex::EntityIndex(Database& database, DisplayOptions options)
    : database_(database), options_(std::move(options)) {
  database.addWatcher(*this);
}
EntityIndex::~EntityIndex() { database_.removeWatcher(*this); }

Box2 EntityIndex::extents() {
  update();
  return boxes_.bounds();
}

const DisplayList& EntityIndex::picture(const Entity& entity) {
  update();
  return pictures_->of(entity);
}

void EntityIndex::touched(const Object& object) {
  if (!built_) return;
  if (object.kind == Kind::Layer) {
    changedLayers_.insert(object.handle);
  } else if (object.kind == Kind::TextStyle) {
    built_ = false;
  } else if (object.kind == Kind::BlockRecord) {
    changedBlocks_.insert(object.handle);
  } else if (isEntity(object.kind)) {
    const Object* owner = database_.find(object.owner);
    const bool inBlock = owner && owner->kind == Kind::BlockRecord;
    if (inBlock && owner != &database_.modelSpace()) {
      changedBlocks_.insert(owner->handle);
    } else {
      changed_.insert(inBlock ? object.handle : object.owner);  // an attribute counts as its INSERT
      changed_.insert(object.handle);
    }
  }
}

void EntityIndex::update() {
  if (!built_ || layersChangedSight()) {
    build();
    return;
  }
  changedLayers_.clear();
  if (!changedBlocks_.empty()) placeInsertsOfChangedBlocks();
  for (const Handle handle : changed_) place(handle);
  changed_.clear();
}

void EntityIndex::build() {
  pictures_ = std::make_unique<EntityPictures>(database_, options_);
  boxes_.clear();
  insertsOf_.clear();
  blockOf_.clear();
  hiddenLayers_.clear();
  changed_.clear();
  changedBlocks_.clear();
  changedLayers_.clear();
  built_ = true;
  for (const Handle handle : database_.table(Table::Layers).records) {
    if (const auto* layer = database_.find<Layer>(handle)) hiddenLayers_[handle] = hides(*layer);
  }
  for (Entity* entity = database_.modelSpace().first; entity; entity = entity->next) {
    place(entity->handle);
  }
}

bool EntityIndex::layersChangedSight() {
  for (const Handle handle : changedLayers_) {
    const auto* layer = database_.find<Layer>(handle);
    const auto known = hiddenLayers_.find(handle);
    const bool hidden = layer && hides(*layer);
    if (known == hiddenLayers_.end()) {
      hiddenLayers_[handle] = hidden;
      if (hidden) return true;
    } else if (known->second != hidden) {
      return true;
    }
  }
  return false;
}

void EntityIndex::place(Handle handle) {
  if (const auto old = blockOf_.find(handle); old != blockOf_.end()) {
    insertsOf_[old->second].erase(handle);
    blockOf_.erase(old);
  }
  const auto* entity = database_.find<Entity>(handle);
  if (!entity || entity->owner != database_.modelSpace().handle) {
    boxes_.remove(handle);
    return;
  }
  if (entity->kind == Kind::Insert) {
    const Handle block = static_cast<const Insert&>(*entity).block;
    insertsOf_[block].insert(handle);
    blockOf_[handle] = block;
  }
  boxes_.put(handle, pictures_->of(*entity).bounds());
}

// Blocks that hold INSERTs of changed blocks change too.
void EntityIndex::placeInsertsOfChangedBlocks() {
  std::vector<Handle> waiting(changedBlocks_.begin(), changedBlocks_.end());
  std::unordered_map<Handle, std::vector<Handle>> holders;  // block -> blocks that show it
  for (const Handle holder : database_.table(Table::Blocks).records) {
    const auto* block = database_.find<BlockRecord>(holder);
    for (const Entity* e = block && !block->isSpace() ? block->first : nullptr; e; e = e->next) {
      if (e->kind == Kind::Insert) holders[static_cast<const Insert*>(e)->block].push_back(holder);
    }
  }
  while (!waiting.empty()) {
    const Handle block = waiting.back();
    waiting.pop_back();
    for (const Handle insert : insertsOf_[block]) changed_.insert(insert);
    for (const Handle holder : holders[block]) {
      if (changedBlocks_.insert(holder).second) waiting.push_back(holder);
    }
  }
  changedBlocks_.clear();
}

}  // namespace drafting

#include "embedded/drafting/dwg/chain_builder.h"

#include <algorithm>

namespace drafting {
namespace {

// Those that stand outside every chain.
bool isLoose(Kind kind) {
  return kind == Kind::Block || kind == Kind::EndBlock || kind == Kind::SeqEnd;
}

}  // namespace

void ChainBuilder::build() {
  setOwners();
  for (std::size_t i = 0; i < items_.size(); ++i) {
    Object& object = *items_[i].object;
    const ChainLinks links = items_[i].links;
    if (object.kind == Kind::BlockRecord || membersOf(object).list) {
      follow(object, links.first, links.last);
    } else if (object.kind == Kind::RawEntity) {
      for (const Reference& reference : static_cast<const RawEntity&>(object).references) {
        follow(object, reference.target, 0);
      }
    }
  }
  placeRest();
  checkEnds();
}

// A stated SEQEND that is something else belongs to somebody else.
void ChainBuilder::checkEnds() {
  for (const Item& item : items_) {
    const Members members = membersOf(*item.object);
    if (!members.list || *members.seqEnd == 0) continue;
    const Object* end = db_.find(*members.seqEnd);
    const bool isOwn = end && end->kind == Kind::SeqEnd && end->owner == item.object->handle;
    if (!isOwn) *members.seqEnd = 0;
  }
}

ChainBuilder::Item* ChainBuilder::find(Handle handle) {
  if (hint_ >= items_.size() || items_[hint_].object->handle != handle) {
    const auto at = std::lower_bound(
        items_.begin(), items_.end(), handle,
        [](const Item& item, Handle wanted) { return item.object->handle < wanted; });
    if (at == items_.end() || at->object->handle != handle) return nullptr;
    hint_ = static_cast<std::size_t>(at - items_.begin());
  }
  return &items_[hint_++];
}

void ChainBuilder::setOwners() {
  for (Item& item : items_) {
    if (item.mode == OwnerMode::ModelSpace) item.object->owner = db_.modelSpace().handle;
    if (item.mode == OwnerMode::PaperSpace) item.object->owner = db_.paperSpace().handle;
  }
}

// Goes from `first` along the stated neighbours as long as they are the owner's and new.
void ChainBuilder::follow(const Object& owner, Handle first, Handle last) {
  tail_ = nullptr;
  for (Handle handle = first; handle != 0;) {
    Item* item = find(handle);
    if (!item || item->placed || !isEntity(item->object->kind) || isLoose(item->object->kind) ||
        item->object->owner != owner.handle) {
      return;
    }
    place(*item);
    if (handle == last) return;
    handle = item->links.next;
  }
}

void ChainBuilder::place(Item& item) {
  auto& entity = static_cast<Entity&>(*item.object);
  db_.joinChain(entity.owner, entity, tail_, nullptr);
  tail_ = &entity;
  item.placed = true;
  Object* owner = db_.find(entity.owner);
  if (const Members members = owner ? membersOf(*owner) : Members{}; members.list) {
    members.list->push_back(entity.handle);
  }
}

// Entities that no chain reached come to the end of their owner's.
void ChainBuilder::placeRest() {
  std::size_t appended = 0, lost = 0;
  for (Item& item : items_) {
    if (item.placed || !isEntity(item.object->kind) || isLoose(item.object->kind)) continue;
    Object* owner = db_.find(item.object->owner);
    const Kind kind = owner ? owner->kind : Kind::RawObject;
    if (kind == Kind::BlockRecord) {
      tail_ = static_cast<BlockRecord*>(owner)->last;
    } else if (const Members members = owner ? membersOf(*owner) : Members{}; members.list) {
      tail_ = members.list->empty() ? nullptr : db_.find<Entity>(members.list->back());
    } else {
      lost += kind == Kind::RawEntity ? 0 : 1;
      continue;
    }
    place(item);
    ++appended;
  }
  if (appended > 0) {
    report_.add(0, std::to_string(appended) + " entities were not linked; put at the end");
  }
  if (lost > 0) {
    report_.add(0, std::to_string(lost) + " entities belong to no block; kept, but not shown");
  }
}

}  // namespace drafting

// Makes chains of entities from the links that a DWG file states: the content of blocks, the
// attributes of INSERTs, the vertices of polylines.
#pragma once

#include <vector>

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dwg/object_codec.h"

namespace drafting {

class ChainBuilder {
 public:
  ChainBuilder(Database& database, ReadReport& report) : db_(database), report_(report) {}

  void reserve(std::size_t objects) { items_.reserve(objects); }
  // Notes an object that was read; in handle order.
  void add(Object& object, const ChainLinks& links, const EntityFrame& frame) {
    items_.push_back({&object, links, frame.mode, false});
  }
  // Call when tables and spaces are known.
  void build();

 private:
  struct Item {
    Object* object = nullptr;
    ChainLinks links;
    OwnerMode mode = OwnerMode::Stored;
    bool placed = false;
  };

  Item* find(Handle handle);
  void setOwners();
  void follow(const Object& owner, Handle first, Handle last);
  void place(Item& item);
  void placeRest();
  void checkEnds();

  Database& db_;
  ReadReport& report_;
  std::vector<Item> items_;
  std::size_t hint_ = 0;    // index behind the item found last: chains mostly run upwards
  Entity* tail_ = nullptr;  // last one placed in the chain being made
};

}  // namespace drafting

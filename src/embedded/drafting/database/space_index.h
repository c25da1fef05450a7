// Look-ups over the entities that stand in model and paper space: by extended-data application, and
// by kind and layer. Nothing is kept until the first question; from then on the index follows the
// changes, so that a question costs what it answers and what was changed since the last one.
#pragma once

#include <set>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "embedded/drafting/database/object.h"

namespace drafting {

class Database;

class SpaceIndex {
 public:
  explicit SpaceIndex(const Database& database) : database_(database) {}

  std::vector<Handle> withApp(Handle app);
  std::vector<Handle> onLayer(Kind kind, Handle layer);

  // Call before the object changes or goes, and after it came.
  void touch(const Object& object);
  void clear();

 private:
  struct LayerKey {
    Kind kind;
    Handle layer;
    friend bool operator==(const LayerKey&, const LayerKey&) = default;
  };
  struct LayerKeyHash {
    std::size_t operator()(const LayerKey& key) const {
      return std::hash<Handle>()(key.layer * 32 + static_cast<Handle>(key.kind));
    }
  };
  using Handles = std::set<Handle>;  // creation order: handles only ever grow

  void update();
  void add(const Object& object);
  void remove(const Object& object);

  const Database& database_;
  bool built_ = false;
  std::unordered_map<Handle, Handles> byApp_;
  std::unordered_map<LayerKey, Handles, LayerKeyHash> byLayer_;
  std::unordered_set<Handle> changed_;  // not in the maps; to be looked at before answering
};

}  // namespace drafting

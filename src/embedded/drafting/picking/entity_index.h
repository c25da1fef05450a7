// EntityIndex: where the entities of model space are seen. Nothing is kept until the first
// question; from then on it follows the drawing's changes, so that a question costs what it answers
// and what was changed since the last one. Entities that aren't shown (frozen or off) aren't in it.
#pragma once

#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "embedded/base/box_index.h"
#include "embedded/drafting/database/database.h"
#include "embedded/drafting/display/display_list.h"

namespace drafting {

class EntityIndex : public ChangeWatcher {
 public:
  explicit EntityIndex(Database& database, DisplayOptions options = {});
  ~EntityIndex() override;
  EntityIndex(const EntityIndex&) = delete;
  EntityIndex& operator=(const EntityIndex&) = delete;

  // Calls f(handle, box) for each entity whose picture's box meets the area, in no order; f changes
  // nothing.
  template <class F>
  void visit(const Box2& area, F f) {
    update();
    boxes_.visit(area, f);
  }
  Box2 extents();  // of all that is shown; empty for an empty drawing
  // What is seen of the entity; good until the next call.
  const DisplayList& picture(const Entity& entity);

  void touched(const Object& object) override;

 private:
  void update();
  void build();
  void place(Handle handle);
  void placeInsertsOfChangedBlocks();
  bool layersChangedSight();

  Database& database_;
  DisplayOptions options_;
  std::unique_ptr<EntityPictures> pictures_;
  base::BoxIndex boxes_;
  bool built_ = false;
  std::unordered_set<Handle> changed_, changedBlocks_, changedLayers_;
  std::unordered_map<Handle, bool> hiddenLayers_;
  std::unordered_map<Handle, std::unordered_set<Handle>> insertsOf_;  // by block
  std::unordered_map<Handle, Handle> blockOf_;                        // by insert
};

}  // namespace drafting

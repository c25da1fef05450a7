// OpenObject: the host's side of a module's handle. The object is looked up at each call, since an
// erase or undo may take it away in between; one that a module has made stays with its handle until
// it joins a drawing.
#pragma once

#include <memory>

#include "embedded/drafting/host/host_state.h"

namespace drafting {

class OpenObject : public AcDbObjectState {
 public:
  OpenObject(AcDbObjectId id, bool forWrite) { attach(id, forWrite); }
  explicit OpenObject(std::unique_ptr<Entity> fresh) : forWrite_(true), fresh_(std::move(fresh)) {}
  ~OpenObject() override {
    if (id_.isNull()) return;
    forWrite_ ? void(id_.stub()->writer = false) : void(--id_.stub()->readers);
  }

  const AcDbObjectId& id() const { return id_; }
  bool forWrite() const { return forWrite_; }

  // The only reader becomes the writer.
  bool becomeWriter() {
    if (forWrite_) return true;
    if (id_.stub()->readers != 1) return false;
    id_.stub()->readers = 0;
    id_.stub()->writer = forWrite_ = true;
    return true;
  }

  // Null for what isn't in a drawing, or whose drawing is closed.
  Database* database() const { return id_.isNull() ? nullptr : id_.stub()->database->database(); }
  template <class T>
  T* find() const {
    if (fresh_) return dynamic_cast<T*>(static_cast<Object*>(fresh_.get()));
    return database() ? database()->template find<T>(id_.stub()->handle) : nullptr;
  }
  AcDbObjectId idOf(Handle handle) const {
    return handle && !id_.isNull() ? id_.stub()->database->idOf(handle) : AcDbObjectId();
  }

  // Puts an entity that a module has made into the block, open for writing from then on.
  void join(AcDbDatabaseState& state, BlockRecord& block) {
    const Handle handle = state.database()->append(block, std::move(fresh_));
    attach(state.idOf(handle), true);
  }
  Entity* fresh() const { return fresh_.get(); }

 private:
  void attach(AcDbObjectId id, bool forWrite) {
    id_ = id;
    forWrite_ = forWrite;
    state_ = id.stub()->database->shared_from_this();
    forWrite ? void(id.stub()->writer = true) : void(++id.stub()->readers);
  }

  AcDbObjectId id_;
  bool forWrite_ = false;
  std::unique_ptr<Entity> fresh_;
  std::shared_ptr<AcDbDatabaseState> state_;  // outlives the drawing, if need be
};

inline OpenObject& openObject(const AcDbObject& object) {
  return static_cast<OpenObject&>(*object.state());
}

}  // namespace drafting

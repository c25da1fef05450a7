// Database: one drawing in memory. It owns every object, keeps the symbol tables' names, the chains
// of entities and the look-ups that commands repeat, and is the only door to change a drawing, so
// that every change is known to the undo journal.
//
// To read: find<T>(handle), tables, chains. To change an object: edit<T>(handle), then assign its
// fields. Pointers and references stay good until the object is erased or undone away; keep
// handles.
#pragma once

#include <array>
#include <cassert>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "embedded/drafting/database/change_watcher.h"
#include "embedded/drafting/database/entities.h"
#include "embedded/drafting/database/handle_table.h"
#include "embedded/drafting/database/header.h"
#include "embedded/drafting/database/journal.h"
#include "embedded/drafting/database/space_index.h"
#include "embedded/drafting/database/tables.h"

namespace drafting {

class Database {
 public:
  // The objects of an empty drawing: tables with their standard records, model and paper space,
  // dictionaries, code page 936, a Standard text style of "txt" with big font "gbcbig".
  static std::unique_ptr<Database> makeNew();

  Database();  // nothing in it yet: for readers
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // --- looking
  Object* find(Handle handle) const { return objects_.find(handle); }  // null if there is none
  template <class T>
  T* find(Handle handle) const {
    return dynamic_cast<T*>(find(handle));
  }
  Handle nextHandle() const { return nextHandle_; }  // above every handle in use
  std::size_t objectCount() const { return objects_.size(); }
  template <class F>  // f(Object&), in handle order; f adds and erases nothing
  void forEach(F f) const {
    objects_.forEach(f);
  }

  Control& table(Table table) const { return *controls_[static_cast<std::size_t>(table)]; }
  // Record of that name, compared without case; 0 if there is none. Blocks: also model space
  // ("*Model_Space") and paper space. Linetypes: also ByLayer and ByBlock.
  Handle findRecord(Table table, std::string_view name) const;
  std::string_view recordName(Handle record) const;  // "" if it is no record
  BlockRecord& modelSpace() const { return *modelSpace_; }
  BlockRecord& paperSpace() const { return *paperSpace_; }
  Handle lastEntity() const;  // last of model space; 0 in an empty drawing

  // Selections that commands repeat, among the entities of model and paper space (those of block
  // definitions don't count), in creation order. The cost doesn't grow with the drawing.
  std::vector<Handle> entitiesWithApp(Handle app) const { return index_.withApp(app); }
  std::vector<Handle> entitiesOnLayer(Kind kind, Handle layer) const {
    return index_.onLayer(kind, layer);
  }

  Header header;                  // drawing variables; change them with setVariable
  int codePage = 936;             // as a Windows page number; of files read and to be written
  std::vector<DxfClass> classes;  // numbers 500 and up in order
  // Pictures of the file's preview section by their kind (2 bitmap, 3 metafile), carried through.
  std::vector<std::pair<std::uint8_t, std::string>> previews;
  std::int32_t saves = 0;  // how often the file had been saved

  // --- changing: each call is recorded in the journal
  template <class T>
  T& edit(Handle handle) {
    T* object = find<T>(handle);
    assert(object && "edit of what isn't there");
    willChange(*object);
    return *object;
  }
  void willChange(Object& object);  // call before assigning fields of `object`

  // Takes the entity, gives it a handle (or keeps the one it has if that is free) and the block's
  // end of chain. The entity's layer must be set; the result is its handle.
  Handle append(BlockRecord& block, std::unique_ptr<Entity> entity);
  // The same for an attribute of an INSERT or a vertex of a POLYLINE; the closing SeqEnd is made
  // along with it.
  Handle appendMember(Entity& owner, std::unique_ptr<Entity> member);
  Handle appendAttribute(Insert& insert, std::unique_ptr<Entity> attribute) {
    return appendMember(insert, std::move(attribute));
  }
  // Records need a name that no other record of the table has.
  Handle addRecord(Table table, std::unique_ptr<Record> record);
  Handle addBlock(std::unique_ptr<BlockRecord> record);  // makes its BLOCK and ENDBLK too
  Handle addObject(std::unique_ptr<Object> object);      // owner set by the caller
  // Erases an entity or another object with all that belongs to it: attributes, vertices, a
  // block's content, an extension dictionary. Erasing what isn't there, a table, model or paper
  // space does nothing. References to it elsewhere stay and count as null.
  void erase(Handle handle);
  void rename(Handle record, std::string name);  // a block's BLOCK is renamed with it
  // False if there is no such variable or the value is of another type.
  bool setVariable(std::string_view name, Header::Value value);
  Handle registerApp(std::string_view name);  // the record of that name, made if missing

  Journal& journal() { return journal_; }
  const Journal& journal() const { return journal_; }

  // Told of every change, undo and redo included, until it is removed; it must be before it goes.
  void addWatcher(ChangeWatcher& watcher) { watchers_.push_back(&watcher); }
  void removeWatcher(ChangeWatcher& watcher) { std::erase(watchers_, &watcher); }

  // --- for readers, which set owners and handles themselves; nothing of it is recorded
  // Takes the object under its handle; false, and the object is gone, if that is 0 or taken.
  bool adopt(std::unique_ptr<Object> object);
  void reserveHandles(Handle next);  // nextHandle() is at least this
  // Puts the entity between two neighbours (null: an end) of its owner's chain.
  void joinChain(Handle owner, Entity& entity, Entity* previous, Entity* next);
  // To be called once when all is in: finds tables and spaces, makes what a drawing can't be
  // without, and fills the look-ups. Returns what had to be made or mended, a line each.
  std::vector<std::string> finishLoading();

 private:
  friend class Journal;

  void remember(Object& object);  // look-ups learn it; call after it came or changed
  void forget(Object& object);    // call before it changes or goes
  void touch(const Object& object);
  void destroy(Handle handle);
  void leaveChain(Handle owner, Entity& entity);
  void setRecordPlace(Handle control, Handle record, std::size_t place, bool present);

  Handle own(std::unique_ptr<Object> object);  // with a handle of its own, known to the journal
  void link(Entity& entity, Entity* previous, Entity* next);
  void unlink(Entity& entity);
  void eraseOne(Object& object, std::vector<Handle>& belongings);
  bool tableOf(const Object& object, Table& table) const;
  void addName(const Record& record, Table table);
  void removeName(const Record& record, Table table);

  template <class T>
  T& makeMissing(Handle owner);
  void findControls(std::vector<std::string>& mended);
  void findRecords(std::vector<std::string>& mended);
  void findSpaces(std::vector<std::string>& mended);
  BlockRecord& findSpace(const char* name, std::size_t index, std::vector<std::string>& mended);
  void findStandardRecords(std::vector<std::string>& mended);
  template <class T>
  Handle findOrMakeRecord(Table table, const char* name, std::vector<std::string>& mended);
  template <class T>
  Handle listStandard(Table table, const char* name, std::vector<std::string>& mended);
  Handle firstRecord(Table table) const;  // 0 in an empty table
  void mendEntities(std::vector<std::string>& mended);
  void setHeaderReferences();

  HandleTable objects_;
  Handle nextHandle_ = 1;
  std::array<Control*, kTableCount> controls_{};
  BlockRecord* modelSpace_ = nullptr;
  BlockRecord* paperSpace_ = nullptr;
  std::array<std::unordered_map<std::string, Handle>, kTableCount> names_;  // in small letters
  std::array<bool, kTableCount> hasDuplicates_{};
  mutable SpaceIndex index_{*this};
  Journal journal_{*this};
  std::vector<ChangeWatcher*> watchers_;
};

}  // namespace drafting

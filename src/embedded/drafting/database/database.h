// Database: one drawing in memory. It owns every object, keeps the symbol tables' names, the chains
// of entities and the look-ups that commands repeat, and is the only door to change a drawing, so
// that every change is known to the undo journal.
//
// To read: find<T>(handle), tables, chains. To change an object: edit<T>(handle), then assign its
// fields. Pointers and references stay good until the object is erased or undone away; keep
// handles.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "embedded/drafting/database/entities.h"
#include "embedded/drafting/database/header.h"
#include "embedded/drafting/database/journal.h"
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
  Object* find(Handle handle) const;  // null if there is none (any more)
  template <class T>
  T* find(Handle handle) const {
    return dynamic_cast<T*>(find(handle));
  }
  Handle nextHandle() const;  // above every handle in use
  std::size_t objectCount() const;
  template <class F>  // f(Object&), in handle order
  void forEach(F f) const;

  Control& table(Table table) const;
  // Record of that name, compared without case; 0 if there is none. Blocks: also model space
  // ("*Model_Space") and paper space. Linetypes: also ByLayer and ByBlock.
  Handle findRecord(Table table, std::string_view name) const;
  std::string_view recordName(Handle record) const;  // "" if it is no record
  BlockRecord& modelSpace() const;
  BlockRecord& paperSpace() const;
  Handle lastEntity() const;  // last of model space; 0 in an empty drawing

  // Selections that commands repeat, in creation order; the cost doesn't grow with the drawing.
  std::vector<Handle> entitiesWithApp(Handle app) const;
  std::vector<Handle> entitiesOnLayer(Kind kind, Handle layer) const;

  Header header;                  // drawing variables; change them with setVariable
  int codePage = 936;             // as a Windows page number; of files read and to be written
  std::vector<DxfClass> classes;  // numbers 500 and up in order

  // --- changing: each call is recorded in the journal
  template <class T>
  T& edit(Handle handle) {
    T* object = find<T>(handle);
    willChange(*object);
    return *object;
  }
  void willChange(Object& object);  // call before assigning fields of `object`

  // Takes the entity, gives it a handle and the block's end of chain. The entity's layer must be
  // set; the result is its handle.
  Handle append(BlockRecord& block, std::unique_ptr<Entity> entity);
  // The same for an attribute (or the closing SeqEnd) of an INSERT.
  Handle appendAttribute(Insert& insert, std::unique_ptr<Entity> attribute);
  Handle addRecord(Table table, std::unique_ptr<Record> record);
  Handle addBlock(std::unique_ptr<BlockRecord> record);  // makes its BLOCK and ENDBLK too
  Handle addObject(std::unique_ptr<Object> object);      // owner set by the caller
  // Erases an entity (an INSERT with its attributes) or another object. Erasing what isn't there
  // does nothing.
  void erase(Handle handle);
  void rename(Handle record, std::string name);
  void setVariable(std::string_view name, Header::Value value);
  Handle registerApp(std::string_view name);  // the record of that name, made if missing

  Journal& journal() { return journal_; }
  const Journal& journal() const { return journal_; }
};

}  // namespace drafting

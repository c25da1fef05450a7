// Makes the objects of a DXF file's sections into those of a drawing.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/dxf/dxf_header.h"
#include "embedded/drafting/dxf/group_reader.h"
#include "embedded/drafting/dxf/object_source.h"

namespace drafting {

class DxfContent {
 public:
  explicit DxfContent(ReadReport& report);

  void begin(const DxfHeader& header);
  void add(std::string_view section, const DxfObject& object);
  void addPreview(const DxfObject& section);
  std::unique_ptr<Database> finish(const DxfHeader& header);

 private:
  void addClass(const DxfObject& object);
  void addToTables(const DxfObject& object);
  void addRecord(Table table, const DxfObject& object);
  std::unique_ptr<Record> makeRecord(Table table, const DxfObject& object) const;
  void fillRecord(Record& record, Table table, const DxfObject& object);
  void addToBlocks(const DxfObject& object);
  void beginBlock(const DxfObject& object);
  void endBlock(const DxfObject& object);
  void addEntity(const DxfObject& object, BlockRecord* block);
  void carryEntity(const DxfObject& object, BlockRecord& block);
  void addMember(const DxfObject& object);
  void finishMembers();
  void lighten(Polyline& polyline);
  void append(BlockRecord& block, std::unique_ptr<Entity> entity);
  void addObject(const DxfObject& object);

  // Gives `object` its handle, links, fields and extended data.
  void fill(Object& made, const DxfObject& object);
  void fillCommon(Entity& entity, const DxfObject& object);
  void fillExtended(Object& made, const DxfObject& object);
  template <class T>
  T& adopt(std::unique_ptr<T> object);
  BlockRecord* space(const DxfObject& object);
  void leaveOut(const DxfObject& object);

  void dropDangling();
  void completeLinks();
  void reportLeftOut();

  ReadReport& report_;
  std::unique_ptr<Database> db_;
  std::unique_ptr<DxfTables> tables_;
  std::map<std::string, int> leftOut_;  // by type
  std::set<Handle> filled_;             // records whose groups have come
  std::optional<Table> table_;          // the one being read
  BlockRecord* block_ = nullptr;        // the one being read
  Entity* holder_ = nullptr;            // INSERT or POLYLINE whose members are being read
  bool isOld_ = false;
  bool hasObjects_ = false;
};

}  // namespace drafting

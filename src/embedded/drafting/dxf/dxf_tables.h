// The symbol tables of a drawing that is being read from DXF, where references go by name: records
// are found by name, and one that is named before it was met is made, to be filled when it comes.
// Also gives out the handles.
#pragma once

#include <array>
#include <string_view>
#include <unordered_map>

#include "embedded/drafting/database/database.h"

namespace drafting {

class DxfTables {
 public:
  explicit DxfTables(Database& db) : db_(db) {}

  // Makes names known of what the drawing holds already.
  void learnAll();

  // Handles that the file doesn't state are counted from here.
  void startHandles(Handle first);
  // `stated` if no object has it, else a new one.
  Handle freeHandle(Handle stated);

  Handle find(Table table, std::string_view name) const;  // 0 if there is none
  // 0 for an empty name. A record that is made is listed in its table.
  Handle findOrMake(Table table, std::string_view name);
  // The record's object must be in the drawing; it is listed in its table.
  void add(Table table, Record& record);
  Control& control(Table table, Handle stated = 0);  // made with the first call

  // Place of a linetype in its table without by layer and by block.
  int linetypeIndex(std::string_view name, int missing);

 private:
  template <class T>
  Handle make(Table table, std::string_view name);

  Database& db_;
  std::array<Control*, kTableCount> controls_{};
  std::array<std::unordered_map<std::string, Handle>, kTableCount> names_;
  std::array<std::pair<std::string, Handle>, kTableCount> last_;  // looked up; neighbours repeat
  Handle next_ = 1;
};

}  // namespace drafting

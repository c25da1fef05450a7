// Drawing variables ("$DIMSCALE" and its like), all of them in one table in the order of the DWG
// header section. The codecs, DXF, getvar and the dimension style walk that table.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "embedded/drafting/database/object.h"

namespace drafting {

// How a variable is stored. Elsewhere: not in the header section (the template section has it).
enum class VariableType : std::uint8_t {
  Bit,        // int 0 or 1
  Short,      // int, 16 bits
  Long,       // int, 32 bits
  Colour,     // int, colour index
  Real,       // double
  Date,       // double: Julian day, or days; stored as day and milliseconds
  Text,       // string
  Flat,       // Point2
  Space,      // Point3
  Reference,  // Handle
  Elsewhere,  // int
};

using VariableValue = std::variant<double, int, std::string, Handle, Point2, Point3>;

// One row of the table. A nameless variable is kept, but nobody knows what it means.
struct Variable {
  const char* name;
  VariableType type;
  VariableValue initial;           // in a new drawing; its alternative is the variable's type
  std::int16_t styleGroup = 0;     // DXF group in a dimension style; 0: not part of one
  std::uint8_t referenceCode = 5;  // DWG code of a Reference
};

std::span<const Variable> variables();
// The part of the table that a dimension style holds, from DIMPOST to DIMLWE.
std::span<const Variable> dimensionVariables();

class Header {
 public:
  using Value = VariableValue;

  Header();  // every variable has its initial value

  // Names compare without case. The typed getters take the name of a variable of that type; any
  // other gives 0, "" or the origin.
  static int indexOf(std::string_view name);  // row of variables(), or -1
  const Value* find(std::string_view name) const;
  double real(std::string_view name) const;  // also of an integer variable
  int integer(std::string_view name) const;
  const std::string& text(std::string_view name) const;
  Handle handle(std::string_view name) const;
  Point3 point(std::string_view name) const;  // z is 0 for a flat one

  // False, and nothing changed, if there is no such variable or it has another type. An integer is
  // taken for a real, a flat point for one in space and the other way round.
  bool set(std::string_view name, Value value);
  bool fits(int index, const Value& value) const;  // whether set would take it

  const Value& at(int index) const { return values_[static_cast<std::size_t>(index)]; }
  Value& at(int index) { return values_[static_cast<std::size_t>(index)]; }

 private:
  std::vector<Value> values_;  // parallel to variables()
};

// An entry of the drawing's class list; number 500 is the first.
struct DxfClass {
  std::uint16_t number = 0;
  std::uint16_t flags = 0;
  std::string application;
  std::string cppName;
  std::string dxfName;
  bool wasProxy = false;
  std::uint16_t itemKind = 0x1F3;  // 0x1F2 entity, 0x1F3 object

  bool isEntity() const { return itemKind == 0x1F2; }
};

// Lineweight in hundredths of a millimetre (DXF group 370) of an R2000 index, and back; -1 by
// layer, -2 by block, -3 default. An unknown one is the default.
int lineweightOfIndex(int index);
std::uint8_t indexOfLineweight(int hundredths);

}  // namespace drafting

// Drawing variables in the header section of a DXF file: which group a variable has there, and
// which of them name another object instead of giving its handle.
#pragma once

#include <optional>
#include <string_view>

#include "embedded/drafting/database/header.h"
#include "embedded/drafting/database/tables.h"

namespace drafting {

// The group of a variable that isn't a reference; 0 if a DXF file doesn't hold it.
int headerGroup(const Variable& variable);

// A variable that names a record of a table. CMLSTYLE names a multiline style instead.
struct NamingVariable {
  const char* name;
  int group;
  Table table;
};
const NamingVariable* findNamingVariable(std::string_view name);  // null if it is none
inline constexpr const char* kMultilineVariable = "CMLSTYLE";

// Variables that a DWG keeps as bits of FLAGS and a DXF file one by one.
struct FlagVariable {
  const char* name;
  int group;
  int mask;
  int shift;
  bool inverted;
};
inline constexpr FlagVariable kFlagVariables[] = {
    {"CELWEIGHT", 370, 0x1F, 0, false},     {"ENDCAPS", 280, 0x60, 5, false},
    {"JOINSTYLE", 280, 0x180, 7, false},    {"LWDISPLAY", 290, 0x200, 9, true},
    {"XEDIT", 290, 0x400, 10, true},        {"EXTNAMES", 290, 0x800, 11, false},
    {"PSTYLEMODE", 290, 0x2000, 13, false}, {"OLESTARTUP", 290, 0x4000, 14, false}};

// Header variables that lead to the standard dictionaries, and their keys in the named dictionary.
struct DictionaryVariable {
  const char* variable;
  const char* key;
};
inline constexpr DictionaryVariable kDictionaryVariables[] = {
    {"GROUP_DICTIONARY", "ACAD_GROUP"},
    {"MLINESTYLE_DICTIONARY", "ACAD_MLINESTYLE"},
    {"LAYOUT_DICTIONARY", "ACAD_LAYOUT"},
    {"PLOTSETTINGS_DICTIONARY", "ACAD_PLOTSETTINGS"},
    {"PLOTSTYLE_DICTIONARY", "ACAD_PLOTSTYLENAME"}};

}  // namespace drafting

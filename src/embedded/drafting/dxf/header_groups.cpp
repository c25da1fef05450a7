#include "embedded/drafting/dxf/header_groups.h"

#include <algorithm>

namespace drafting {
namespace {

constexpr NamingVariable kNaming[] = {
    {"CLAYER", 8, Table::Layers},     {"TEXTSTYLE", 7, Table::Styles},
    {"CELTYPE", 6, Table::Linetypes}, {"DIMSTYLE", 2, Table::DimStyles},
    {"DIMTXSTY", 7, Table::Styles},   {"DIMLDRBLK", 1, Table::Blocks},
    {"DIMBLK", 1, Table::Blocks},     {"DIMBLK1", 1, Table::Blocks},
    {"DIMBLK2", 1, Table::Blocks},    {"UCSBASE", 2, Table::Ucss},
    {"UCSNAME", 2, Table::Ucss},      {"UCSORTHOREF", 2, Table::Ucss},
    {"PUCSBASE", 2, Table::Ucss},     {"PUCSNAME", 2, Table::Ucss},
    {"PUCSORTHOREF", 2, Table::Ucss}};

// Kept in a DWG only; other programs stop at a variable that they don't know.
constexpr std::string_view kElsewhere[] = {"",         "PELLIPSE",    "ISOLINES",   "TEXTQLTY",
                                           "FACETRES", "TSTACKALIGN", "TSTACKSIZE", "FLAGS"};

}  // namespace

int headerGroup(const Variable& variable) {
  const std::string_view name = variable.name;
  if (std::find(std::begin(kElsewhere), std::end(kElsewhere), name) != std::end(kElsewhere)) {
    return 0;
  }
  if (name == "ANGBASE") return 50;
  if (name == "CEPSNTYPE") return 380;
  switch (variable.type) {
    case VariableType::Bit:
    case VariableType::Short:
    case VariableType::Long:
    case VariableType::Elsewhere: return 70;
    case VariableType::Colour: return name == "CECOLOR" ? 62 : 70;
    case VariableType::Real:
    case VariableType::Date: return 40;
    case VariableType::Text: return name.ends_with("GUID") ? 2 : 1;
    case VariableType::Flat:
    case VariableType::Space: return 10;
    case VariableType::Reference: break;
  }
  return 0;
}

const NamingVariable* findNamingVariable(std::string_view name) {
  const auto at = std::find_if(std::begin(kNaming), std::end(kNaming),
                               [name](const NamingVariable& row) { return row.name == name; });
  return at == std::end(kNaming) ? nullptr : at;
}

}  // namespace drafting

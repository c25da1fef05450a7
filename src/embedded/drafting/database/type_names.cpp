#include "embedded/drafting/database/type_names.h"

#include "embedded/base/text.h"
#include "embedded/drafting/database/database.h"

namespace drafting {
namespace {

struct KindName {
  Kind kind;
  const char* name;
};
constexpr KindName kKinds[] = {
    {Kind::Line, "LINE"},
    {Kind::Point, "POINT"},
    {Kind::Circle, "CIRCLE"},
    {Kind::Arc, "ARC"},
    {Kind::Ellipse, "ELLIPSE"},
    {Kind::Spline, "SPLINE"},
    {Kind::Solid, "SOLID"},
    {Kind::Trace, "TRACE"},
    {Kind::LwPolyline, "LWPOLYLINE"},
    {Kind::Hatch, "HATCH"},
    {Kind::Polyline, "POLYLINE"},
    {Kind::Vertex, "VERTEX"},
    {Kind::Text, "TEXT"},
    {Kind::Attrib, "ATTRIB"},
    {Kind::Attdef, "ATTDEF"},
    {Kind::MText, "MTEXT"},
    {Kind::Insert, "INSERT"},
    {Kind::Block, "BLOCK"},
    {Kind::EndBlock, "ENDBLK"},
    {Kind::SeqEnd, "SEQEND"},
    {Kind::BlockRecord, "BLOCK_RECORD"},
    {Kind::Layer, "LAYER"},
    {Kind::TextStyle, "STYLE"},
    {Kind::Linetype, "LTYPE"},
    {Kind::AppId, "APPID"},
    {Kind::DimStyle, "DIMSTYLE"},
    {Kind::Viewport, "VPORT"},
    {Kind::Dictionary, "DICTIONARY"},
};

struct RawName {
  std::uint16_t type;
  const char* name;
};
constexpr RawName kRaw[] = {
    {0x0A, "VERTEX"},
    {0x0B, "VERTEX"},
    {0x0C, "VERTEX"},
    {0x0D, "VERTEX"},
    {0x0E, "VERTEX"},
    {0x0F, "POLYLINE"},
    {0x10, "POLYLINE"},
    {0x14, "DIMENSION"},
    {0x15, "DIMENSION"},
    {0x16, "DIMENSION"},
    {0x17, "DIMENSION"},
    {0x18, "DIMENSION"},
    {0x19, "DIMENSION"},
    {0x1A, "DIMENSION"},
    {0x1C, "3DFACE"},
    {0x1D, "POLYLINE"},
    {0x1E, "POLYLINE"},
    {0x20, "TRACE"},
    {0x21, "SHAPE"},
    {0x22, "VIEWPORT"},
    {0x24, "SPLINE"},
    {0x25, "REGION"},
    {0x26, "3DSOLID"},
    {0x27, "BODY"},
    {0x28, "RAY"},
    {0x29, "XLINE"},
    {0x2B, "OLEFRAME"},
    {0x2D, "LEADER"},
    {0x2E, "TOLERANCE"},
    {0x2F, "MLINE"},
    {0x3D, "VIEW"},
    {0x3F, "UCS"},
    {0x47, "VX"},
    {0x48, "GROUP"},
    {0x49, "MLINESTYLE"},
    {0x4A, "OLE2FRAME"},
    {0x4E, "HATCH"},
    {0x4F, "XRECORD"},
    {0x50, "ACDBPLACEHOLDER"},
    {0x52, "LAYOUT"},
    {0x1F2, "ACAD_PROXY_ENTITY"},
    {0x1F3, "ACAD_PROXY_OBJECT"},
};

constexpr const char* kTables[] = {"BLOCK_RECORD", "LAYER", "STYLE", "LTYPE",    "VIEW",
                                   "UCS",          "VPORT", "APPID", "DIMSTYLE", "VX"};

std::string_view rawName(const Database& database, std::uint16_t type) {
  for (const RawName& row : kRaw) {
    if (row.type == type) return row.name;
  }
  constexpr std::uint16_t kFirstClass = 500;
  const std::size_t index = type - std::size_t{kFirstClass};
  if (type < kFirstClass || index >= database.classes.size()) return "";
  return database.classes[index].dxfName;
}

}  // namespace

std::string_view typeName(const Database& database, const Object& object) {
  if (object.kind == Kind::RawEntity) {
    return rawName(database, static_cast<const RawEntity&>(object).type);
  }
  if (object.kind == Kind::RawObject) {
    return rawName(database, static_cast<const RawObject&>(object).type);
  }
  if (object.kind == Kind::GroupEntity) return static_cast<const GroupEntity&>(object).name;
  if (object.kind == Kind::GroupObject) return static_cast<const GroupObject&>(object).name;
  if (object.kind == Kind::Control) {
    return kTables[static_cast<std::size_t>(static_cast<const Control&>(object).table)];
  }
  if (object.kind == Kind::Dictionary && static_cast<const Dictionary&>(object).withDefault) {
    return "ACDBDICTIONARYWDFLT";
  }
  for (const KindName& row : kKinds) {
    if (row.kind == object.kind) return row.name;
  }
  return "";
}

std::string countedNames(const std::map<std::string, int>& counts) {
  std::string list;
  for (const auto& [name, count] : counts) {
    list += (list.empty() ? "" : ", ") + std::to_string(count) + " " + name;
  }
  return list;
}

Kind kindOfName(std::string_view name) {
  for (const KindName& row : kKinds) {
    if (base::equalsNoCase(row.name, name)) return row.kind;
  }
  return Kind::RawEntity;
}

}  // namespace drafting

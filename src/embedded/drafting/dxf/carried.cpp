#include "embedded/drafting/dxf/carried.h"

#include "embedded/drafting/database/packed_groups.h"
#include "embedded/drafting/dxf/raw_bodies.h"

namespace drafting {
namespace {

// Owners of owners, dictionaries in dictionaries; files may lie and lead in a circle.
constexpr int kDeepest = 64;

bool holds(const Database& database, Handle handle, int depth) {
  const Object* object = database.find(handle);
  if (!object || depth > kDeepest) return false;
  switch (object->kind) {
    case Kind::RawEntity: return false;
    case Kind::Control: return static_cast<const Control*>(object)->table != Table::ViewportHeaders;
    case Kind::RawObject:
      if (!isKnownRaw(database, static_cast<const RawObject&>(*object))) return false;
      break;
    case Kind::Dictionary:
      if (handle == database.header.handle("NAMED_DICTIONARY")) return true;
      break;
    default: break;
  }
  return holds(database, object->owner, depth + 1);
}

}  // namespace

void keepGroup(std::string& packed, const Group& group) {
  constexpr int kLastCode = 1071;
  if (group.code > 0 && group.code <= kLastCode) packGroup(packed, group.code, group.value);
}

std::string packedGroups(std::span<const Group> groups) {
  std::string packed;
  for (const Group& group : groups) keepGroup(packed, group);
  return packed;
}

void writePackedGroups(std::string_view packed, GroupSink& sink) {
  int code = 0;
  std::string_view value;
  while (takeGroup(packed, code, value)) sink.text(code, value);
}

bool dxfHolds(const Database& database, Handle handle) { return holds(database, handle, 0); }

}  // namespace drafting

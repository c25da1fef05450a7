// What is carried through DXF files: which objects of a drawing one can hold (those of known kinds,
// and those that came as groups, whose owner it can hold too), and groups that are kept as they
// are.
#pragma once

#include <span>

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/dxf/group_section.h"
#include "embedded/drafting/dxf/group_sink.h"

namespace drafting {

bool dxfHolds(const Database& database, Handle handle);

// Groups of codes that the format doesn't have are left out.
void keepGroup(std::string& packed, const Group& group);
std::string packedGroups(std::span<const Group> groups);
void writePackedGroups(std::string_view packed, GroupSink& sink);

}  // namespace drafting

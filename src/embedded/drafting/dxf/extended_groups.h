// Extended data from DXF groups into the coded form that objects keep.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "embedded/drafting/dxf/dxf_tables.h"
#include "embedded/drafting/dxf/group_section.h"

namespace drafting {

// Appends to `out` what `groups` say, which begin with a 1001. Returns what had to be left out, ""
// if nothing.
std::string readExtendedGroups(std::span<const Group> groups, DxfTables& tables, int codePage,
                               std::vector<XData>& out);

}  // namespace drafting

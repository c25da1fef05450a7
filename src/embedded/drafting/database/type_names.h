// Names of object types as DXF and selections have them: "LINE", "INSERT", "LAYER", ...
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "embedded/drafting/database/object.h"

namespace drafting {

class Database;

// The DXF name; of a carried-through object that of its DWG type or class, "" if it has none. The
// control object of a table has the table's name.
std::string_view typeName(const Database& database, const Object& object);

// "2 DIMENSION, 1 SPLINE": how many there are of each name. Empty for none.
std::string countedNames(const std::map<std::string, int>& counts);

// Kind of a DXF entity or record name, in any case; RawEntity for names of no kind of its own.
Kind kindOfName(std::string_view name);

}  // namespace drafting

// Selections of the whole drawing through a filter of type, layer and extended-data application.
#pragma once

#include <string>

#include "embedded/drafting/commands/prompt.h"
#include "embedded/drafting/database/database.h"

namespace drafting {

// An empty field lets everything through. Names compare without case.
struct SelectionFilter {
  std::string type;  // as in DXF: "POINT"
  std::string layer;
  std::string app;
};

// Entities of model space that pass, in creation order. With an application, or with type and
// layer, the cost is that of the result.
Selection selectAll(const Database& database, const SelectionFilter& filter);

}  // namespace drafting

// The resource libraries of the process, in the order in which they were linked.
#pragma once

#include <vector>

#include "platform/framework_module.h"

namespace framework {

const std::vector<CDynLinkLibrary*>& linkedLibraries();

}  // namespace framework

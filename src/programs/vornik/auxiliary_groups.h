// `vornik library groups`: the auxiliary symbols of an install.
#pragma once

#include <string>

namespace vornik {

// Lists groups and symbols, each with what is missing of it. `mend` is "kept", "samples" or null:
// how a library without groups gets some first. The program's exit status.
int auxiliaryGroups(const std::string* mend);

}  // namespace vornik

// Libraries as folders of plain files: circuits.txt, a line a slot, and a slide for each circuit.
//
//   circuits.txt   UTF-8; name, a tab, the data row; an empty line for a free slot; the template of
//                  free slots as 空, last
//   NAME.sld       the circuit's slide
#pragma once

#include <filesystem>

#include "embedded/base/status.h"
#include "programs/vornik/parts_list.h"

namespace vornik {

// Writes the library in use into the folder, which is made if it is missing.
base::Status exportLibrary(const std::filesystem::path& folder);

// Puts the folder's circuits into the library in use: one of a name that is there is replaced, any
// other goes to the slot of its number, or behind the last one if that is taken. A circuit without
// slide file is captured. Nothing is changed when a line can't be read.
base::Status importLibrary(const std::filesystem::path& folder, const Note& note);

}  // namespace vornik

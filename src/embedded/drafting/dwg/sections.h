// The sections of a DWG file that aren't objects, each as bytes: header variables, classes, object
// map, preview, and the small ones at the end. Readers take the bytes that the locator names; the
// writers' results stand in the file as they are.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "embedded/base/status.h"
#include "embedded/drafting/database/database.h"
#include "embedded/drafting/dwg/file_layout.h"

namespace drafting {

struct MapEntry {
  Handle handle = 0;
  std::uint32_t address = 0;  // of the object's size
};

// --- reading: a status that isn't good names what is wrong; what was read till then is kept

base::Status readHeaderVariables(std::string_view section, Database& database);
base::Status readClasses(std::string_view section, Database& database);
// Entries whose handle doesn't ascend or whose address lies outside a file of `fileSize` are left
// out and make the status bad, as do wrong lengths and checksums.
base::Status readObjectMap(std::string_view section, std::size_t fileSize,
                           std::vector<MapEntry>& entries);
void readPreview(std::string_view file, std::size_t address, Database& database);

// --- writing

base::Result<std::string> writeHeaderVariables(const Database& database);
base::Result<std::string> writeClasses(const std::vector<DxfClass>& classes, int codePage);
std::string writeObjectMap(const std::vector<MapEntry>& entries);
std::string writePreview(const Database& database, std::size_t address);
std::string writeAuxiliaryHeader(const Database& database);
std::string writeFreeSpace(const Database& database, std::uint32_t firstObject);
std::string writeSecondHeader(const Database& database, std::uint32_t address,
                              const std::array<Locator, kSectionCount>& locators);
std::string writeFileHeader(const Database& database, std::uint32_t preview,
                            const std::array<Locator, kSectionCount>& locators);

}  // namespace drafting

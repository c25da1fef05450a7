// Makes a complete install: system folder, user folder, symbol library, circuit library, auxiliary
// groups. What it lays down is told in the table of install.cpp.
#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

#include "embedded/base/status.h"

namespace samples {

// `progress` hears of each file group as it is made. An install that is there already is written
// over file by file, the old files kept as backups.
base::Status makeInstall(const std::filesystem::path& folder,
                         const std::function<void(std::string_view)>& progress);

// Points the information store at an install: where its folders are.
base::Status useInstall(const std::filesystem::path& folder);

}  // namespace samples

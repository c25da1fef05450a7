// `vornik bom`: the parts list of a drawing or of an install's library.
#include <iostream>

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "programs/vornik/headless.h"
#include "programs/vornik/parts_list.h"
#include "programs/vornik/program.h"

namespace vornik {
namespace {

constexpr std::string_view kUsage =
    "usage: vornik bom DRAWING|--install DIR [--output OUT.csv]\n"
    "  Counts the models of a drawing's blocks, or of all circuits of an install's library, by\n"
    "  symbol and model.\n";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";  // spreadsheets need it to read Chinese

void note(std::string_view text) { std::cerr << "vornik: " << text << "\n"; }

base::Result<std::vector<Part>> partsFrom(const Options& options) {
  if (const auto* install = options.value("install")) {
    const base::Status status = enterInstall(*install);
    if (!status) return status;
    const Headless headless(nullptr);
    return partsOfLibrary(note);
  }
  const auto database = drafting::readDrawing(options.plain()[0], note);
  if (!database.ok()) return database.status();
  return partsOfDrawing(**database, note);
}

}  // namespace

int bomCommand(const Words& words) {
  const Options options(words, "install output", "help");
  if (options.flag("help")) return std::cout << kUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kUsage);
  if (options.plain().size() != (options.value("install") ? 0u : 1u)) {
    return usageError("one drawing or --install is needed", kUsage);
  }
  const auto parts = partsFrom(options);
  if (!parts.ok()) return report(parts.status());
  const std::string csv = partsAsCsv(*parts);
  if (const auto* output = options.value("output")) {
    return report(base::saveAtomically(base::pathFromUtf8(*output), std::string(kUtf8Mark) + csv));
  }
  std::cout << csv;
  return kDone;
}

}  // namespace vornik

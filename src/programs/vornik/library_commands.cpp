// `vornik sample`, `vornik convert`: installs, file forms.
#include <iostream>

#include "embedded/base/paths.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "embedded/drafting/documents/session.h"
#include "programs/vornik/captured_slide.h"
#include "programs/vornik/headless.h"
#include "programs/vornik/program.h"
#include "samples/generator/install.h"

namespace vornik {
namespace {

constexpr std::string_view kSampleUsage =
    "usage: vornik sample DIR\n  Makes a complete install: system and user folder, symbols, "
    "circuits, slides.\n";
constexpr std::string_view kConvertUsage =
    "usage: vornik convert [--lossy] IN OUT\n  Reads a drawing and writes it in the form of OUT's "
    "extension. What that form can't hold\n  is listed and nothing written, unless --lossy is "
    "given.\n";
void note(std::string_view text) { std::cerr << "vornik: " << text << "\n"; }

}  // namespace

int sampleCommand(const Words& words) {
  const Options options(words, "", "help");
  if (options.flag("help")) return std::cout << kSampleUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kSampleUsage);
  if (options.plain().size() != 1) return usageError("one folder is needed", kSampleUsage);
  const std::string& folder = options.plain()[0];
  const base::Status made = samples::makeInstall(base::pathFromUtf8(folder), note);
  const base::Status entered = made.ok() ? enterInstall(folder) : made;
  if (!entered.ok()) return report(entered);
  note("slides");
  drafting::Session session;  // captures print on its command line
  return report(captureLibrary(note));
}

int convertCommand(const Words& words) {
  const Options options(words, "", "lossy help");
  if (options.flag("help")) return std::cout << kConvertUsage, kDone;
  if (!options.problem().empty()) return usageError(options.problem(), kConvertUsage);
  if (options.plain().size() != 2) return usageError("two files are needed", kConvertUsage);
  const auto database = drafting::readDrawing(options.plain()[0], note);
  if (!database.ok()) return report(database.status());
  return report(drafting::saveDrawingFile(**database, options.plain()[1], lossesOf(options), note));
}

}  // namespace vornik

#include "embedded/drafting/documents/drawing_files.h"

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dwg/dwg_writer.h"

namespace drafting {
namespace {

bool isDwg(const std::string& path) {
  return base::equalsNoCase(base::extensionOf(base::wideFromUtf8(path)), L".dwg");
}

base::Status unknownForm(const std::string& path) {
  return base::Status::failure(path + ": only .dwg files can be read and written");
}

}  // namespace

base::Result<std::unique_ptr<Database>> readDrawing(
    const std::string& path, const std::function<void(std::string_view)>& note) {
  if (!isDwg(path)) return unknownForm(path);
  ReadReport report;
  auto database = openDwg(base::resolvePath(base::wideFromUtf8(path)), report);
  if (note && !report.messages.empty()) note(report.summary());
  return database;
}

base::Status saveDrawingFile(const Database& database, const std::string& path) {
  if (!isDwg(path)) return unknownForm(path);
  return saveDwg(database, base::resolvePath(base::wideFromUtf8(path)));
}

}  // namespace drafting

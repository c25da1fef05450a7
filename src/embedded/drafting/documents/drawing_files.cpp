#include "embedded/drafting/documents/drawing_files.h"

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dxf/dxf_reader.h"
#include "embedded/drafting/dxf/dxf_writer.h"

namespace drafting {
namespace {

enum class Form { Dwg, Dxf, Unknown };

Form formOf(const std::string& path) {
  const std::wstring wide = base::wideFromUtf8(path);
  const std::wstring_view extension = base::extensionOf(wide);
  if (base::equalsNoCase(extension, L".dwg")) return Form::Dwg;
  return base::equalsNoCase(extension, L".dxf") ? Form::Dxf : Form::Unknown;
}

base::Status unknownForm(const std::string& path) {
  return base::Status::failure(path + ": only .dwg and .dxf files can be read and written");
}

}  // namespace

base::Result<std::unique_ptr<Database>> readDrawing(const std::string& path, const Note& note) {
  const Form form = formOf(path);
  if (form == Form::Unknown) return unknownForm(path);
  const auto file = base::resolvePath(base::wideFromUtf8(path));
  ReadReport report;
  auto database = form == Form::Dwg ? openDwg(file, report) : openDxf(file, report);
  if (note && !report.messages.empty()) note(path + ":\n" + report.summary());
  return database;
}

std::filesystem::path folderOfDrawing(const std::string& path) {
  if (path.empty()) return {};
  const auto folder = base::resolvePath(base::wideFromUtf8(path)).parent_path();
  return folder.empty() ? "." : folder;
}

std::string drawingLosses(const Database& database, const std::string& path) {
  switch (formOf(path)) {
    case Form::Dwg: return dwgLosses(database);
    case Form::Dxf: return dxfLosses(database);
    case Form::Unknown: break;
  }
  return "";
}

base::Status saveDrawingFile(const Database& database, const std::string& path, Losses losses,
                             const Note& note) {
  const Form form = formOf(path);
  if (form == Form::Unknown) return unknownForm(path);
  if (const std::string lost = drawingLosses(database, path); !lost.empty()) {
    const std::string what = path + ": a " + (form == Form::Dwg ? "DWG" : "DXF") +
                             " file can't hold everything; it would lack " + lost;
    if (losses == Losses::Refused) return base::Status::failure(what + "; nothing was written");
    if (note) note(what);
  }
  const auto file = base::resolvePath(base::wideFromUtf8(path));
  return form == Form::Dwg ? saveDwg(database, file) : saveDxf(database, file);
}

}  // namespace drafting

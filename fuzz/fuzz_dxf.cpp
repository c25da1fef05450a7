// DXF files of any bytes: read or refused with a message; what was read can be shown, written as
// DXF, which reads back, and as DWG.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "embedded/drafting/display/display_list.h"
#include "embedded/drafting/dwg/dwg_writer.h"
#include "embedded/drafting/dxf/dxf_reader.h"
#include "embedded/drafting/dxf/dxf_writer.h"

namespace {

using namespace drafting;

void require(bool condition) {
  if (!condition) std::abort();
}

// Hatches, linetypes and blocks without end cost no more than the limit.
void show(const Database& database) {
  DisplayOptions options;
  options.limit = 100'000;
  const DisplayList list = DisplayList::of(database, options);
  require(list.chunks().size() <= database.modelSpace().count);
}

base::Result<std::unique_ptr<Database>> read(const std::string& text) {
  std::istringstream in(text);
  ReadReport report;
  return readDxf(in, report);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto drawing = read(std::string(reinterpret_cast<const char*>(data), size));
  if (!drawing.ok()) {
    require(!drawing.message().empty());
    return 0;
  }
  show(**drawing);
  std::string text;
  const auto append = [&text](std::string_view piece) {
    text += piece;
    return base::Status();
  };
  require(writeDxf(**drawing, append).ok());
  require(read(text).ok());
  const auto dwg = writeDwg(**drawing);
  require(dwg.ok() || !dwg.message().empty());
  return 0;
}

// DWG files of any bytes: read or refused with a message; what was read can be shown and written,
// and reads back with as many objects.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "embedded/drafting/display/display_list.h"
#include "embedded/drafting/dwg/dwg_reader.h"
#include "embedded/drafting/dwg/dwg_writer.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace drafting;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  ReadReport report;
  const auto read = readDwg(bytes, report);
  if (!read.ok()) {
    require(!read.message().empty());
    return 0;
  }
  // Hatches, linetypes and blocks without end cost no more than the limit.
  DisplayOptions options;
  options.limit = 100'000;
  require(DisplayList::of(**read, options).chunks().size() <= (*read)->modelSpace().count);
  const auto written = writeDwg(**read);
  if (!written.ok()) {
    require(!written.message().empty());
    return 0;
  }
  ReadReport again;
  const auto reread = readDwg(*written, again);
  require(reread.ok());
  require((*reread)->objectCount() == (*read)->objectCount());
  return 0;
}

// Slide libraries on any bytes: every slide lies within the file, and what is written holds the
// same slides.
#include <cstdint>
#include <cstdlib>

#include "embedded/slide_store/slide_library.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  slide_store::SlideLibrary library;
  if (!library.parse(std::string(reinterpret_cast<const char*>(data), size)).ok()) return 0;
  const auto written = library.serialise();
  require(written.ok() && written->size() <= size + 36 + 32);
  slide_store::SlideLibrary again;
  require(again.parse(*written).ok());
  require(again.names() == library.names());
  for (const std::string& name : library.names()) {
    require(library.find(name)->size() <= size);
    require(*again.find(name) == *library.find(name));
  }
  library.add("NEW", "slide");
  library.remove("A");
  require(library.serialise().ok());
  return 0;
}

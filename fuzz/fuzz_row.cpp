// The row reader on any text: no crash, and the same result as the slow model.
#include <cstdlib>

#include "embedded/base/text.h"
#include "engine/row_reader.h"
#include "engine/row_reader_model.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::wstring text = base::wideFromUtf8({reinterpret_cast<const char*>(data), size});
  std::erase(text, L'\0');  // the model's numbers end there
  require(test::sameReading(readRow(text), test::modelReadRow(text)));
  // The library reads what stands behind the number as placing reads a row.
  const LibraryRowReading library = readLibraryRow(text);
  const std::size_t blank = text.find(L' ');
  require(library.number.has_value() == (blank != std::wstring::npos));
  if (library.number) {
    require(test::sameReading(library, test::modelReadRow(L"(" + text.substr(blank))));
  }
  return 0;
}

// Directory and index files of any bytes: the search ends, and what it finds lies in the library.
#include <cstdint>
#include <cstdlib>

#include "engine/symbol_search.h"
#include "support/install.h"
#include "support/transcript.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

struct Library {
  Library() { std::filesystem::create_directories(install.symbols() / "Dqbl0001"); }
  test::Install install;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Library library;
  const auto folder = library.install.symbols();
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  test::writeBytes(folder / "dwgdir.dab", bytes);
  test::writeBytes(folder / "Dqbl0001" / "Dqbl0001.idx", bytes);
  std::wstring path;
  if (SearchSymbolFile(L"DWG", L"A01", path)) {
    require(path.starts_with(test::Install::wide(folder) + L"\\Dqbl"));
    require(path.ends_with(L"\\A01.dwg"));
  }
  const std::wstring symbol = test::Install::wide(folder) + L"\\Dqbl0001\\A01.dwg";
  require(ReadSymbolIndex(symbol).find(L'&') != std::wstring::npos);
  test::takeTranscript();
  return 0;
}

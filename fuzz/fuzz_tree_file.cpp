// Tree files and the information store's file on any bytes: what is read is written so that it
// reads back the same.
#include <cstdint>
#include <cstdlib>

#include "embedded/common_funcs/information_file.h"
#include "embedded/common_funcs/quill_file.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

void checkTree(std::string_view bytes) {
  common_funcs::QuillTree tree;
  if (!common_funcs::readTree(bytes, tree).ok()) return;
  const std::string written = common_funcs::writeTree(tree);
  common_funcs::QuillTree again;
  require(common_funcs::readTree(written, again).ok());
  require(common_funcs::writeTree(again) == written);
}

void checkInformation(std::string_view bytes) {
  common_funcs::InformationFile file;
  if (!file.parse(bytes).ok()) return;
  file.set(L"Dwglib", L"Dwgdir", L"C:\\100%\n");
  common_funcs::InformationFile again;
  require(again.parse(file.serialise()).ok());
  require(again.get(L"DWGLIB", L"DwgDir") == L"C:\\100%\n");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  checkTree(bytes);
  checkInformation(bytes);
  return 0;
}

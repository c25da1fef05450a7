#include <windows.h>

#include "embedded/base/text.h"
#include "embedded/drafting/documents/dynamic_library.h"

namespace drafting {

DynamicLibrary::~DynamicLibrary() {
  if (handle_) FreeLibrary(static_cast<HMODULE>(handle_));
}

base::Result<DynamicLibrary> DynamicLibrary::open(const std::string& path) {
  DynamicLibrary library;
  library.handle_ = LoadLibraryW(base::wideFromUtf8(path).c_str());
  if (!library.handle_) {
    return base::Status::failure(path + ": error " + std::to_string(GetLastError()));
  }
  return library;
}

void* DynamicLibrary::symbol(const char* name) const {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

}  // namespace drafting

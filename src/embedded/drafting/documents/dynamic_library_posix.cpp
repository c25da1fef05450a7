#include <dlfcn.h>

#include "embedded/drafting/documents/dynamic_library.h"

namespace drafting {

DynamicLibrary::~DynamicLibrary() {
  if (handle_) dlclose(handle_);
}

base::Result<DynamicLibrary> DynamicLibrary::open(const std::string& path) {
  DynamicLibrary library;
  library.handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library.handle_) return base::Status::failure(dlerror());
  return library;
}

void* DynamicLibrary::symbol(const char* name) const { return dlsym(handle_, name); }

}  // namespace drafting

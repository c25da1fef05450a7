// A shared library loaded at run time, closed when the object goes. Two implementations: one file a
// system.
#pragma once

#include <string>
#include <utility>

#include "embedded/base/status.h"

namespace drafting {

class DynamicLibrary {
 public:
  DynamicLibrary() = default;
  DynamicLibrary(DynamicLibrary&& other) noexcept
      : handle_(std::exchange(other.handle_, nullptr)) {}
  DynamicLibrary& operator=(DynamicLibrary&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~DynamicLibrary();

  static base::Result<DynamicLibrary> open(const std::string& path);
  void* symbol(const char* name) const;  // null if it isn't exported

 private:
  void* handle_ = nullptr;
};

}  // namespace drafting

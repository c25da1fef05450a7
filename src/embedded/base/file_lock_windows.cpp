// file_lock.h over the Windows API.
#include <windows.h>

#include "embedded/base/file_lock.h"

namespace base {

bool FileLock::take(const std::filesystem::path& path, bool create) {
  release();
  const HANDLE handle =
      CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                  create ? OPEN_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  handle_ = reinterpret_cast<std::intptr_t>(handle);
  return true;
}

void FileLock::release() {
  if (held()) CloseHandle(reinterpret_cast<HANDLE>(std::exchange(handle_, -1)));
}

}  // namespace base

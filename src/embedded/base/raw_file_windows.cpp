// raw_file.h over the Windows API.
#include <windows.h>

#include <algorithm>

#include "embedded/base/raw_file.h"
#include "embedded/base/text.h"

namespace base {

namespace fs = std::filesystem;

namespace {

std::string reasonOf(DWORD error) {
  wchar_t text[512];
  constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  const DWORD length =
      FormatMessageW(kFlags, nullptr, error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  if (length == 0) return "error " + std::to_string(error);
  return utf8FromWide(trim(std::wstring_view(text, length)));
}

Status systemFailure(const fs::path& path, DWORD error) {
  return fileFailure(path, reasonOf(error));
}

HANDLE fileHandle(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

}  // namespace

RawFile::~RawFile() { static_cast<void>(close()); }

Status RawFile::create(const fs::path& path) {
  path_ = path;
  const HANDLE handle = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  handle_ = handle == INVALID_HANDLE_VALUE ? -1 : reinterpret_cast<std::intptr_t>(handle);
  return handle_ == -1 ? systemFailure(path_, GetLastError()) : Status();
}

Status RawFile::write(std::string_view bytes) {
  constexpr std::size_t kPiece = std::size_t{1} << 24;
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto piece = static_cast<DWORD>(std::min(bytes.size(), kPiece));
    if (!WriteFile(fileHandle(handle_), bytes.data(), piece, &written, nullptr))
      return systemFailure(path_, GetLastError());
    bytes.remove_prefix(written);
  }
  return {};
}

Status RawFile::flush() {
  return FlushFileBuffers(fileHandle(handle_)) ? Status() : systemFailure(path_, GetLastError());
}

Status RawFile::close() {
  if (handle_ == -1) return {};
  const HANDLE handle = fileHandle(handle_);
  handle_ = -1;
  return CloseHandle(handle) ? Status() : systemFailure(path_, GetLastError());
}

Status checkReplaceable(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return {};
  if (attributes & FILE_ATTRIBUTE_DIRECTORY) return fileFailure(path, "is a folder");
  if (attributes & FILE_ATTRIBUTE_READONLY) return fileFailure(path, "is read-only");
  return {};
}

Status copyPermissions(const fs::path&, const fs::path&) {
  return {};  // a file inherits those of its folder, as the old one did
}

Status keepBackup(const fs::path& path, const fs::path& backup) {
  fs::path fresh = backup;
  fresh += L"-" + std::to_wstring(processNumber());
  DeleteFileW(fresh.c_str());
  // A second name costs nothing; file systems without links get a copy.
  const bool made = CreateHardLinkW(fresh.c_str(), path.c_str(), nullptr) ||
                    CopyFileW(path.c_str(), fresh.c_str(), FALSE);
  if (made && MoveFileExW(fresh.c_str(), backup.c_str(), MOVEFILE_REPLACE_EXISTING)) return {};
  Status failure = systemFailure(backup, GetLastError());
  DeleteFileW(fresh.c_str());
  return failure;
}

Status replaceFile(const fs::path& temporary, const fs::path& path) {
  constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  if (MoveFileExW(temporary.c_str(), path.c_str(), kFlags)) return {};
  return systemFailure(path, GetLastError());
}

std::uint64_t processNumber() { return GetCurrentProcessId(); }

}  // namespace base

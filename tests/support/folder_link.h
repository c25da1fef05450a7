// A link to a folder for a test: a symbolic link, on Windows a junction. Wine makes no junctions,
// but shows the symbolic links of the system below as such.
#pragma once

#ifdef _WIN32
#include <windows.h>

#include <cstdlib>
#include <string>

#include "embedded/base/text.h"
#endif

#include <filesystem>
#include <system_error>

namespace test {

#ifdef _WIN32

// Links made by Wine's own way out.
class WineLinks {
 public:
  static bool present() { return unixName() != nullptr; }
  static void make(const std::filesystem::path& target, const std::filesystem::path& link) {
    run(L"ln", L"-s \"" + below(target) + L"\" " + place(link));
    await(link, true);
  }
  // Wine doesn't remove such a link, and what tries to would never end.
  static void remove(const std::filesystem::path& link) {
    run(L"rm", L"-f " + place(link));
    await(link, false);
  }

 private:
  using UnixName = char*(CDECL*)(const wchar_t*);
  static UnixName unixName() {
    const FARPROC found =
        ::GetProcAddress(::GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name");
    return reinterpret_cast<UnixName>(reinterpret_cast<void*>(found));
  }
  static std::wstring below(const std::filesystem::path& path) {
    return base::wideFromUtf8(unixName()(path.c_str()));
  }
  static std::wstring place(const std::filesystem::path& link) {
    return L"\"" + below(link.parent_path()) + L"/" + link.filename().native() + L"\"";
  }
  static void run(const std::wstring& tool, const std::wstring& arguments) {
    std::wstring line = tool + L" " + arguments;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    ::CreateProcessW((L"Z:\\bin\\" + tool).c_str(), line.data(), nullptr, nullptr, FALSE, 0,
                     nullptr, nullptr, &start, &process);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
  }
  static void await(const std::filesystem::path& link, bool there) {
    constexpr int kMost = 200;
    for (int i = 0; i < kMost && isThere(link) != there; ++i) ::Sleep(10);
  }
  static bool isThere(const std::filesystem::path& link) {
    return ::GetFileAttributesW(link.c_str()) != INVALID_FILE_ATTRIBUTES;
  }
};

#endif

// Gone with the object, if it is still there.
class FolderLink {
 public:
  FolderLink(const std::filesystem::path& target, std::filesystem::path link)
      : link_(std::move(link)) {
#ifdef _WIN32
    if (WineLinks::present()) {
      WineLinks::make(target, link_);
    } else {
      const std::wstring pair = L"\"" + link_.native() + L"\" \"" + target.native() + L"\"";
      _wsystem((L"mklink /J " + pair + L" >nul").c_str());
    }
#else
    std::filesystem::create_directory_symlink(target, link_);
#endif
  }
  ~FolderLink() {
#ifdef _WIN32
    if (WineLinks::present()) {
      WineLinks::remove(link_);
    } else {
      ::RemoveDirectoryW(link_.c_str());
    }
#else
    std::error_code ignored;
    std::filesystem::remove(link_, ignored);
#endif
  }
  FolderLink(const FolderLink&) = delete;
  FolderLink& operator=(const FolderLink&) = delete;

  // Whether the system's calls can remove such a link.
  static bool canBeRemoved() {
#ifdef _WIN32
    return !WineLinks::present();
#else
    return true;
#endif
  }

 private:
  std::filesystem::path link_;
};

}  // namespace test

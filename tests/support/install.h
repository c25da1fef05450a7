// A library install in a folder of a test's own: the information store points into it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "platform/common_funcs.h"
#include "support/temp_folder.h"

namespace test {

inline void setVariable(const char* name, const std::filesystem::path& value) {
#ifdef _WIN32
  _wputenv_s(base::wideFromUtf8(name).c_str(), value.c_str());
#else
  setenv(name, value.c_str(), 1);
#endif
}

// System folder "system root" with Datcom\zhllib, symbol folder "symbols"; nothing in them.
class Install {
 public:
  Install() {
    setVariable("VORNIK_INFORMATION", folder_ / "information.txt");
    std::filesystem::create_directories(library());
    std::filesystem::create_directories(symbols());
    WriteInformation(L"ZEMMain", L"ZemSys", wide(root()).c_str(), 1);
    WriteInformation(L"ZEMMain", L"ZemUse", wide(root() / "user").c_str(), 1);
    WriteInformation(L"Dwglib", L"Dwgdir", wide(symbols()).c_str(), 1);
  }

  std::filesystem::path root() const { return folder_ / "install"; }
  std::filesystem::path library() const { return root() / "Datcom" / "zhllib"; }
  std::filesystem::path symbols() const { return folder_ / "symbols"; }
  const std::filesystem::path& folder() const { return folder_.path(); }

  static std::wstring wide(const std::filesystem::path& path) { return base::wideFromPath(path); }

 private:
  TempFolder folder_;
};

}  // namespace test

// GetInformation and WriteInformation over one file, which is read again whenever it changed. It
// stands where VORNIK_INFORMATION points, else in the user's configuration folder.
#include <algorithm>
#include <filesystem>

#include "embedded/base/file_stamp.h"
#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/common_funcs/information_file.h"
#include "platform/acad_command.h"
#include "platform/common_funcs.h"

namespace {

namespace fs = std::filesystem;

using common_funcs::InformationFile;

constexpr std::uint64_t kLargestStore = 1 << 20;

fs::path storePath() {
  if (fs::path given = base::environmentPath("VORNIK_INFORMATION"); !given.empty()) return given;
#ifdef _WIN32
  return base::environmentPath("APPDATA") / L"Vornikplan10" / L"information.txt";
#else
  fs::path folder = base::environmentPath("XDG_CONFIG_HOME");
  if (folder.empty()) folder = base::environmentPath("HOME") / ".config";
  return folder / "vornikplan10" / "information.txt";
#endif
}

// The file's contents as last read.
class Store {
 public:
  // Bad when the file is there but can't be read.
  const base::Status& refresh() {
    const fs::path path = storePath();
    const base::FileStamp stamp = base::stampOf(path);
    if (known_ && path == path_ && stamp == stamp_) return status_;
    known_ = true;
    path_ = path;
    stamp_ = stamp;
    read();
    return status_;
  }

  const InformationFile& file() const { return file_; }

  bool write(std::wstring_view section, std::wstring_view name, std::wstring_view value) {
    if (!refresh().ok() && !moveAside()) return false;
    if (!file_.set(section, name, value)) return true;
    std::error_code error;
    fs::create_directories(path_.parent_path(), error);
    const base::Status saved = base::saveAtomically(path_, file_.serialise());
    known_ = false;  // read it again next time, also after a failure
    return saved.ok();
  }

 private:
  void read() {
    file_ = {};
    status_ = {};
    std::error_code error;
    if (!fs::exists(path_, error)) return;
    const base::Result<std::string> bytes = base::readFile(path_, kLargestStore);
    status_ = bytes.ok() ? file_.parse(*bytes) : bytes.status();
  }

  bool moveAside() {
    const base::Result<fs::path> aside = base::moveDamagedAside(path_);
    if (!aside.ok()) return false;
    acutPrintf(L"\n文件%s无法读取(%s),已改名为%s.", base::wideFromPath(path_).c_str(),
               base::wideFromUtf8(status_.message()).c_str(),
               base::wideFromPath(aside->filename()).c_str());
    file_ = {};
    return true;
  }

  bool known_ = false;
  fs::path path_;
  base::FileStamp stamp_;
  InformationFile file_;
  base::Status status_;
};

Store& store() {
  static Store instance;
  return instance;
}

}  // namespace

int GetInformation(const wchar_t* section, const wchar_t* name, const wchar_t* fallback,
                   wchar_t* buffer, int mode) {
  static_cast<void>(mode);
  const bool readable = store().refresh().ok();
  const std::wstring value =
      readable ? store().file().get(section, name).value_or(fallback) : fallback;
  const std::size_t size = std::min<std::size_t>(value.size(), kInformationLimit - 1);
  std::copy_n(value.begin(), size, buffer);
  buffer[size] = L'\0';
  return readable ? 1 : 0;
}

int WriteInformation(const wchar_t* section, const wchar_t* name, const wchar_t* text, int mode) {
  static_cast<void>(mode);
  return store().write(section, name, text) ? 1 : 0;
}

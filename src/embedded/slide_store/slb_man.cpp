// CSlbMan: one slide library and its file. Changes are kept as operations, so that they can be put
// onto a file that another program has written meanwhile.
#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "embedded/base/file_stamp.h"
#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/slide_store/slide_library.h"
#include "platform/acad_command.h"
#include "platform/slide_store.h"

using slide_store::SlideLibrary;

namespace {

struct Change {
  std::string name;
  std::string bytes;  // empty: removed
};

void apply(const Change& change, SlideLibrary& library) {
  if (change.bytes.empty()) {
    library.remove(change.name);
  } else {
    library.add(change.name, change.bytes);
  }
}

// The name in code page 936; nothing when the page can't hold it or it is too long.
std::optional<std::string> storedName(const wchar_t* name) {
  const std::string ansi = base::ansiFromWide(name);
  const bool fits = !ansi.empty() && ansi.size() <= slide_store::kLongestName;
  if (!fits || base::wideFromAnsi(ansi) != name) return std::nullopt;
  return ansi;
}

void report(const std::string& message) {
  acutPrintf(L"\n%s", base::wideFromUtf8(message).c_str());
}

}  // namespace

struct CSlbMan::State {
  std::filesystem::path path;
  SlideLibrary library;
  std::vector<Change> changes;
  base::FileStamp stamp;
  base::Status status;  // of the last reading; a missing file is a good empty library

  void read() {
    status = {};
    library = {};
    std::error_code error;
    stamp = base::stampOf(path);
    if (!std::filesystem::exists(path, error)) return;
    base::Result<std::string> bytes = base::readFile(path);
    status = bytes.ok() ? library.parse(std::move(*bytes)) : bytes.status();
  }

  bool moveAside() {
    const base::Result<std::filesystem::path> aside = base::moveDamagedAside(path);
    if (!aside.ok()) {
      report(aside.message());
      return false;
    }
    acutPrintf(L"\n文件%s无法读取(%s),已改名为%s.", base::wideFromPath(path).c_str(),
               base::wideFromUtf8(status.message()).c_str(),
               base::wideFromPath(aside->filename()).c_str());
    status = {};
    return true;
  }

  // Makes the file one that may be overwritten with the library in memory.
  bool prepare() {
    if (status.ok() && base::stampOf(path) == stamp) return true;
    const SlideLibrary mine = library;
    const bool wasReadable = status.ok();
    read();
    if (!status.ok()) {
      library = mine;
      return moveAside();
    }
    if (!stamp.present && wasReadable) {
      library = mine;  // gone meanwhile: written anew
    } else {
      for (const Change& change : changes) apply(change, library);
    }
    return true;
  }

  bool save() {
    const base::Result<std::string> bytes = library.serialise();
    const base::Status saved = bytes.ok() ? base::saveAtomically(path, *bytes) : bytes.status();
    if (!saved.ok()) {
      report(saved.message());
      return false;
    }
    changes.clear();
    stamp = base::stampOf(path);
    return true;
  }
};

CSlbMan::CSlbMan() : state_(std::make_unique<State>()) {}
CSlbMan::~CSlbMan() = default;

int CSlbMan::OnOpenDocument(const wchar_t* path) {
  state_ = std::make_unique<State>();
  state_->path = base::resolvePath(path);
  state_->read();
  return state_->stamp.present && state_->status.ok() ? 1 : 0;
}

std::uint32_t CSlbMan::GetSlideSize(const wchar_t* name) const {
  const auto ansi = storedName(name);
  const std::string_view* slide = ansi ? state_->library.find(*ansi) : nullptr;
  return slide ? static_cast<std::uint32_t>(slide->size()) : 0;
}

int CSlbMan::GetSlideData(const wchar_t* name, void* buffer) const {
  const auto ansi = storedName(name);
  const std::string_view* slide = ansi ? state_->library.find(*ansi) : nullptr;
  if (!slide) return 0;
  std::memcpy(buffer, slide->data(), slide->size());
  return 1;
}

int CSlbMan::AddSlideW(const wchar_t* name, const void* bytes, std::uint32_t size) {
  const auto ansi = storedName(name);
  if (!ansi || !bytes || size == 0) return 0;
  Change change{*ansi, std::string(static_cast<const char*>(bytes), size)};
  apply(change, state_->library);
  state_->changes.push_back(std::move(change));
  return 1;
}

int CSlbMan::DelSlide(const wchar_t* name) {
  const auto ansi = storedName(name);
  if (!ansi || !state_->library.remove(*ansi)) return 0;
  state_->changes.push_back({*ansi, {}});
  return 1;
}

int CSlbMan::SaveModified() {
  if (state_->changes.empty()) return 1;
  return state_->prepare() && state_->save() ? 1 : 0;
}

// CSlideLibraryData without its bitmaps, which need windows.
#include "embedded/slide_store/slide_library_data.h"

#include <algorithm>
#include <filesystem>

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "platform/acad_command.h"

using slide_store::SlideLibrary;

namespace {

bool isDamaged(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::exists(path, error)) return false;
  base::Result<std::string> bytes = base::readFile(path);
  return !bytes.ok() || !SlideLibrary().parse(std::move(*bytes)).ok();
}

int failed(const base::Status& status) {
  acutPrintf(L"\n%s", base::wideFromUtf8(status.message()).c_str());
  return 0;
}

}  // namespace

std::string_view CSlideLibraryData::State::slide(std::uint16_t index) const {
  const auto names = library.names();
  if (index >= names.size()) return {};
  const std::string_view* bytes = library.find(names[index]);
  return bytes ? *bytes : std::string_view();
}

CSlideLibraryData::CSlideLibraryData() : state_(std::make_unique<State>()) {}
CSlideLibraryData::~CSlideLibraryData() = default;

int CSlideLibraryData::ReadDataFromFileW(const CString& path) {
  state_->library = {};
  base::Result<std::string> bytes = base::readFile(base::resolvePath(path.wide()));
  if (bytes.ok() && state_->library.parse(std::move(*bytes)).ok()) return 1;
  state_->library = {};
  return 0;
}

std::uint16_t CSlideLibraryData::GetIndexFromName(const CString& name) const {
  const std::string wanted = slide_store::foldName(base::ansiFromWide(name.wide()));
  const auto names = state_->library.names();
  const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& one) {
    return slide_store::foldName(one) == wanted;
  });
  const auto index = found - names.begin();
  return found == names.end() || index >= kNoSlide ? kNoSlide : static_cast<std::uint16_t>(index);
}

int CSlideLibraryData::DeleteSlideFromSlb(const CString& name) {
  return state_->library.remove(base::ansiFromWide(name.wide())) ? 1 : 0;
}

int CSlideLibraryData::WriteDataToFile(const CString& path) {
  const std::filesystem::path file = base::resolvePath(path.wide());
  const base::Result<std::string> bytes = state_->library.serialise();
  if (!bytes.ok()) return failed(bytes.status());
  if (isDamaged(file)) {
    const auto aside = base::moveDamagedAside(file);
    if (!aside.ok()) return failed(aside.status());
    acutPrintf(L"\n文件%s无法读取,已改名为%s.", base::wideFromPath(file).c_str(),
               base::wideFromPath(aside->filename()).c_str());
  }
  const base::Status saved = base::saveAtomically(file, *bytes);
  return saved.ok() ? 1 : failed(saved);
}

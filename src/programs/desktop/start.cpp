#include "programs/desktop/start.h"

#include <cstdlib>

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/fonts/font_library.h"
#include "platform/common_funcs.h"
#include "programs/vornik/captured_slide.h"
#include "samples/generator/install.h"

namespace desktop {

namespace fs = std::filesystem;

namespace {

void setEnvironment(const char* name, const fs::path& value) {
#ifdef _WIN32
  _wputenv_s(base::wideFromUtf8(name).c_str(), value.c_str());
#else
  setenv(name, value.c_str(), 1);
#endif
}

bool isInstall(const fs::path& folder) {
  std::error_code error;
  return !folder.empty() && fs::is_directory(folder / "Datcom", error);
}

// The folder that the information store names, if there is an install. The sample library has to
// be whole.
fs::path chosenBefore() {
  wchar_t text[kInformationLimit] = L"";
  if (GetInformation(L"ZEMMain", L"ZemSys", L"", text, 1) <= 0) return {};
  const fs::path folder = base::pathFromWide(text);
  return isInstall(folder) && folder != userFolder() / "Library" ? folder : fs::path();
}

base::Result<Library> entered(const fs::path& folder, const fs::path& records) {
  drafting::FontLibrary::shared().setFolders({folder / "Datcom"});
  return Library{folder, records};
}

base::Result<Library> enterNamed(const std::string& name) {
  std::error_code error;
  const fs::path folder = fs::absolute(base::pathFromUtf8(name), error);
  if (!isInstall(folder)) return base::Status::failure(name + ": is no install");
  setEnvironment("VORNIK_INFORMATION", folder / "User" / "information.txt");
  const base::Status status = samples::useInstall(folder);
  if (!status) return status;
  return entered(folder, folder / "User" / "Recovery");
}

// The information store names the library once it is whole: one whose making was broken off is
// made again.
base::Status makeSampleLibrary(const fs::path& folder,
                               const std::function<void(std::string_view)>& progress) {
  const fs::path finished = folder / "finished";
  std::error_code error;
  if (fs::exists(finished, error)) return samples::useInstall(folder);
  base::Status status = samples::makeInstall(folder, progress);
  if (status) status = samples::useInstall(folder);
  if (!status) return status;
  progress("slides");
  drafting::FontLibrary::shared().setFolders({folder / "Datcom"});
  // A circuit without a slide can be placed all the same.
  const base::Status captured =
      vornik::captureLibrary([&progress](std::string_view note) { progress(note); });
  if (!captured) progress(captured.message());
  return base::saveAtomically(finished, "sample library 1\n");
}

}  // namespace

StartOptions parseOptions(const std::vector<std::string>& words) {
  StartOptions options;
  for (std::size_t i = 0; i < words.size() && options.problem.empty(); ++i) {
    const std::string& word = words[i];
    const bool takesValue = word == "--install" || word == "--script";
    if (takesValue && i + 1 < words.size()) {
      (word == "--install" ? options.install : options.script) = words[++i];
    } else if (takesValue) {
      options.problem = word + " needs a value";
    } else if (word.starts_with("--")) {
      options.problem = "unknown option " + word;
    } else if (options.drawing) {
      options.problem = "more than one drawing";
    } else {
      options.drawing = word;
    }
  }
  return options;
}

fs::path userFolder() { return drafting::userRecoveryFolder().parent_path(); }

base::Result<Library> enterLibrary(const StartOptions& options,
                                   const std::function<void(std::string_view)>& progress) {
  if (options.install) return enterNamed(*options.install);
  const fs::path records = drafting::userRecoveryFolder();
  if (const fs::path chosen = chosenBefore(); !chosen.empty()) return entered(chosen, records);
  const fs::path folder = userFolder() / "Library";
  const base::Status status = makeSampleLibrary(folder, progress);
  if (!status) return status;
  return entered(folder, records);
}

std::vector<std::string> utf8Words(int count, const wchar_t* const* words) {
  std::vector<std::string> result;
  for (int i = 1; i < count; ++i) result.push_back(base::utf8FromWide(words[i]));
  return result;
}

}  // namespace desktop

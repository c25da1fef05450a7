#include "programs/vornik/headless.h"

#include <cstdlib>
#include <filesystem>

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/fonts/font_library.h"
#include "host/module_entry.h"
#include "library_window/library_window.h"
#include "module/module_state.h"
#include "samples/generator/install.h"

namespace vornik {
namespace {

namespace lisp = drafting::lisp;

void setEnvironment(const char* name, const std::string& value) {
#ifdef _WIN32
  _wputenv_s(base::wideFromUtf8(name).c_str(), base::wideFromUtf8(value).c_str());
#else
  setenv(name, value.c_str(), 1);
#endif
}

// An integer argument, or nothing with the interpreter's error set.
const int* integerAt(lisp::Interpreter& self, const std::vector<lisp::Value>& a,
                     std::size_t index) {
  const lisp::Value value = index < a.size() ? a[index] : lisp::Value();
  if (!value.integer()) self.failArgument(value, "fixnump");
  return index < a.size() ? a[index].integer() : nullptr;
}

// (zhlselect n): what a click on slot n of the library writes.
lisp::Value selectSlot(lisp::Interpreter& self, const std::vector<lisp::Value>& a) {
  const int* slot = integerAt(self, a, 0);
  if (slot && libraryWindow()) libraryWindow()->SelectSlot(*slot);
  return lisp::Void{};
}

// (zhlitem folder item): what a click on an auxiliary symbol writes.
lisp::Value chooseItem(lisp::Interpreter& self, const std::vector<lisp::Value>& a) {
  const int* folder = integerAt(self, a, 0);
  const int* item = folder ? integerAt(self, a, 1) : nullptr;
  if (item && libraryWindow() && !libraryWindow()->ChooseItem(*folder, *item)) {
    return self.fail("zhlitem: there is no such auxiliary symbol");
  }
  return lisp::Void{};
}

}  // namespace

base::Status enterInstall(const std::string& folder) {
  const auto path = std::filesystem::absolute(base::pathFromUtf8(folder));
  drafting::FontLibrary::shared().setFolders({path / "Datcom"});
  setEnvironment("VORNIK_INFORMATION", base::utf8FromPath(path / "User" / "information.txt"));
  return samples::useInstall(path);
}

std::filesystem::path recoveryFolder(const std::string* install) {
  return install ? base::pathFromUtf8(*install) / "User" / "Recovery"
                 : drafting::userRecoveryFolder();
}

Headless::Headless(std::FILE* transcript) {
  if (transcript) {
    session_.line.output = [transcript](std::string_view text) {
      std::fwrite(text.data(), 1, text.size(), transcript);
    };
    session_.line.ready = [transcript] { std::fflush(transcript); };
  }
  session_.lisp.define({"zhlselect", false, selectSlot});
  session_.lisp.define({"zhlitem", false, chooseItem});
  const base::Status status = session_.modules.attach("Vornikplan10", acrxEntryPoint);
  if (!status) session_.printProblem(status);
}

Headless::~Headless() { session_.modules.unloadAll(); }

void Headless::run(std::string_view script) {
  session_.line.runScript(script);
  session_.line.run();
}

}  // namespace vornik

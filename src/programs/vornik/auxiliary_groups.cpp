#include "programs/vornik/auxiliary_groups.h"

#include <filesystem>
#include <iostream>

#include "auxiliary/auxiliary_store.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "module/information.h"
#include "platform/slide_store.h"
#include "programs/vornik/program.h"
#include "samples/generator/auxiliary_library.h"

namespace vornik {
namespace {

using samples::AuxiliaryState;

std::string utf8(const std::wstring& text) { return base::utf8FromWide(text); }

bool isThere(const std::wstring& path) {
  std::error_code error;
  return std::filesystem::exists(base::resolvePath(path), error);
}

// Label, block name, and what is missing.
void listItem(const AuxiliaryStore& store, CSlideLibraryData& slides, const SymbolFiles& symbol,
              const std::wstring& label) {
  std::cout << "  " << utf8(label) << "\t" << utf8(symbol.block);
  if (!isThere(store.drawingPath(symbol))) std::cout << "\tno drawing";
  if (slides.GetIndexFromName(symbol.block) == kNoSlide) std::cout << "\tno slide";
  std::cout << "\n";
}

void listGroup(const AuxiliaryStore& store, const std::wstring& title) {
  const std::wstring directory = store.directoryOf(title);
  std::cout << utf8(title) << "\t" << (directory.empty() ? "no directory" : utf8(directory))
            << "\n";
  CSlideLibraryData slides;
  slides.ReadDataFromFileW(store.slidePath(directory));
  for (const CString& label : store.labelsOf(title)) {
    listItem(store, slides, {directory, store.blockOf(title, label.wide())}, label.wide());
  }
}

base::Status mendLibrary(const std::string& how, const std::filesystem::path& library) {
  if (samples::examineAuxiliary(library).state == AuxiliaryState::usable) {
    return base::Status::failure("the library has its groups; nothing to mend");
  }
  if (how == "kept") return samples::restoreKeptAuxiliary(library);
  if (how == "samples") return samples::addSampleGroups(library);
  return base::Status::failure("--mend takes kept or samples");
}

std::string problemOf(const samples::AuxiliaryFindings& findings) {
  std::string problem = "zhlFzgn.qdp has no groups";
  if (findings.state == AuxiliaryState::missing) problem = "zhlFzgn.qdp is missing";
  if (findings.state == AuxiliaryState::damaged) problem = "zhlFzgn.qdp is damaged";
  return problem + (findings.kept ? "; --mend kept brings back what was saved before, " : "; ") +
         "--mend samples puts the sample groups in";
}

}  // namespace

int auxiliaryGroups(const std::string* mend) {
  const std::filesystem::path library = base::resolvePath(libraryFolder());
  if (mend) {
    const base::Status status = mendLibrary(*mend, library);
    if (!status) return report(status);
  }
  const samples::AuxiliaryFindings findings = samples::examineAuxiliary(library);
  if (findings.state != AuxiliaryState::usable) {
    return report(base::Status::failure(problemOf(findings)));
  }
  const AuxiliaryStore store;
  for (const std::wstring& title : store.shownTitles()) listGroup(store, title);
  return kDone;
}

}  // namespace vornik

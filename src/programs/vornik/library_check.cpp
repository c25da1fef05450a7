// Checks of an install's library as a whole: names against rows, rows against symbols, circuits
// against slides; and the repair of slides.
#include "programs/vornik/library_check.h"

#include <map>
#include <set>

#include "embedded/base/files.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/slide_store/slide_library.h"
#include "engine/symbol_search.h"
#include "module/information.h"
#include "platform/common_funcs.h"
#include "platform/framework_runtime.h"
#include "programs/vornik/captured_slide.h"
#include "programs/vornik/row_text.h"
#include "store/circuit_record.h"

namespace vornik {
namespace {

constexpr const char* kSlideFile = "Datcom/zhllib/zhllib.slb";
constexpr const char* kDrawingDirectory = "Dwglib/dwgdir.dab";
constexpr const char* kSlideDirectory = "Dwglib/slddir.dab";
constexpr const wchar_t* kRows = L"ZHLLIB\\";
constexpr const wchar_t* kTemplate = L"空";

std::string utf8(const CString& text) { return base::utf8FromWide(text.wide()); }

std::string fileBytes(const std::wstring& path) {
  auto bytes = base::readFile(base::resolvePath(path));
  return bytes.ok() ? std::move(*bytes) : std::string();
}

std::wstring symbolFolder() {
  wchar_t folder[kInformationLimit] = L"";
  GetInformation(L"Dwglib", L"Dwgdir", L"", folder, 1);
  return std::wstring(folder) + L"\\";
}

class LibraryCheck {
 public:
  explicit LibraryCheck(bool repair) : repair_(repair) {}

  std::vector<Finding> run() {
    checkDirectories();
    for (int slot = 0; slot < store_.GetCount(); ++slot) checkSlot(slot);
    checkTemplate();
    checkRowsWithoutSlot();
    checkOrphans();
    if (repair_ && !store_.Slides().SaveModified()) add(kSlideFile, "", "can't be written");
    return std::move(findings_);
  }

 private:
  void add(const char* file, const std::string& circuit, const std::string& what,
           std::size_t column = 0) {
    findings_.push_back({file, circuit, column, what});
  }

  void checkDirectories() {
    for (const char* file : {kDrawingDirectory, kSlideDirectory}) {
      const std::wstring name = base::wideFromUtf8(std::string(file).substr(sizeof "Dwglib"));
      const std::string bytes = fileBytes(symbolFolder() + name);
      if (bytes.empty()) add(file, "", "is missing or empty");
      for (Finding& finding : checkDirectory(file, bytes)) findings_.push_back(std::move(finding));
    }
    slideDirectory_ = fileBytes(symbolFolder() + L"slddir.dab");
  }

  void checkSlot(int slot) {
    CString name;
    if (!store_.GetNameAt(slot, name) || name.IsEmpty()) return;
    if (!names_.insert(name.wide()).second) {
      return add(kTreeFile, utf8(name), "is in the list twice");
    }
    CString row;
    if (!tree_.GetSubValueFromPathW(0, (kRows + name.wide()).c_str()) ||
        !store_.GetRowAt(slot, row)) {
      return add(kTreeFile, utf8(name), "has no row");
    }
    checkCircuitRow(utf8(name), row.wide());
    checkSlide(name, row.wide());
  }

  void checkCircuitRow(const std::string& circuit, const std::wstring& row) {
    for (Finding& finding : checkRow(circuit, row)) findings_.push_back(std::move(finding));
    const auto blocks = tokensOf(row).blocks;
    for (std::size_t i = 0; i < blocks.size(); i += kBlockFields) {
      const std::wstring symbol = blocks[i].value();
      if (symbol == kCoveredCell) continue;
      for (const std::string& problem : problemsOfSymbol(symbol)) {
        add(kTreeFile, circuit, problem, blocks[i].at + 1);
      }
    }
  }

  void checkTemplate() {
    const CQuillDpNode* node =
        tree_.GetSubValueFromPathW(0, (std::wstring(kRows) + kTemplate).c_str());
    if (!node || node->text().empty()) {
      return add(kTreeFile, base::utf8FromWide(kTemplate), "a free slot has no template");
    }
    checkCircuitRow(base::utf8FromWide(kTemplate), node->text());
  }

  void checkRowsWithoutSlot() {
    tree_.visit([this](const std::wstring& path, const CQuillDpNode&) {
      const std::wstring_view prefix = kRows;
      if (!path.starts_with(prefix)) return;
      const std::wstring name = path.substr(prefix.size());
      if (name != kTemplate && !names_.count(name)) {
        add(kTreeFile, base::utf8FromWide(name), "has a row and no slot");
      }
    });
  }

  // --- symbols, each looked up once

  const std::vector<std::string>& problemsOfSymbol(const std::wstring& symbol) {
    const auto [entry, isNew] = symbols_.try_emplace(symbol);
    if (isNew) entry->second = lookUp(symbol);
    return entry->second;
  }

  std::vector<std::string> lookUp(const std::wstring& symbol) {
    const std::string name = base::utf8FromWide(symbol);
    CString drawing;
    if (!record_.FindSymbolFile(symbol, drawing, kSymbolDrawing)) {
      return {"the symbol " + name + " isn't in dwgdir.dab"};
    }
    std::vector<std::string> problems;
    if (!fileExists(drawing.wide())) problems.push_back("the symbol " + name + " has no drawing");
    if (!isInSlideDirectory(symbol)) {
      problems.push_back("the symbol " + name + " isn't in slddir.dab");
    }
    CString slides;
    record_.FindSymbolFile(symbol, slides, kSymbolSlides);
    CSlbMan library;
    library.OnOpenDocument(slides);
    if (library.GetSlideSize(symbol.c_str()) == 0) {
      problems.push_back("the symbol " + name + " has no slide");
    }
    if (problems.empty() && ReadSymbolIndex(drawing.wide()).empty()) {
      problems.push_back("the symbol " + name + " isn't in its folder's index file");
    }
    return problems;
  }

  bool isInSlideDirectory(const std::wstring& symbol) const {
    constexpr std::size_t kNameSize = 8, kRecordSize = 12;
    for (std::size_t at = 0; at + kRecordSize <= slideDirectory_.size(); at += kRecordSize) {
      const std::wstring name = wideFromAnsi(slideDirectory_.substr(at, kNameSize));
      if (equalWithoutCase(name.substr(0, name.find_last_not_of(L' ') + 1), symbol)) return true;
    }
    return false;
  }

  // --- slides

  void checkSlide(const CString& name, const std::wstring& row) {
    const auto wanted = captureSlide(row, name.wide());
    if (!wanted.ok()) return add(kTreeFile, utf8(name), "can't be captured: " + wanted.message());
    const std::string stored = storedSlide(store_.Slides(), name.wide());
    if (stored == *wanted) return;
    if (!repair_) {
      return add(kSlideFile, utf8(name),
                 stored.empty() ? "has no slide" : "its slide isn't that of its row");
    }
    if (!store_.Slides().AddSlideW(name, wanted->data(),
                                   static_cast<std::uint32_t>(wanted->size()))) {
      add(kSlideFile, utf8(name), "no slide can have this name");
    }
  }

  void checkOrphans() {
    const std::wstring path = libraryFolder() + L"zhllib.slb";
    slide_store::SlideLibrary library;
    const base::Status read = library.parse(fileBytes(path));
    if (!read.ok()) return add(kSlideFile, "", read.message());
    for (const std::string& ansi : library.names()) {
      const std::wstring name = wideFromAnsi(ansi);
      if (names_.count(name)) continue;
      if (repair_) {
        store_.Slides().DelSlide(name.c_str());
      } else {
        add(kSlideFile, base::utf8FromWide(name), "is a slide of no circuit");
      }
    }
  }

  static CQuillDpData& readTree(CQuillDpData& tree) {
    tree.ReadDataFromQdpFile((libraryFolder() + L"zhllib.qdp").c_str());
    return tree;
  }

  bool repair_;
  CZhlkLibStore store_;
  CZhlkCircuitRecord record_;
  CQuillDpData ownTree_;
  CQuillDpData& tree_ = readTree(ownTree_);
  std::string slideDirectory_;
  std::set<std::wstring> names_;
  std::map<std::wstring, std::vector<std::string>> symbols_;
  std::vector<Finding> findings_;
};

}  // namespace

std::vector<Finding> checkLibrary(bool repair) { return LibraryCheck(repair).run(); }

}  // namespace vornik

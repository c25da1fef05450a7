#include "samples/generator/auxiliary_library.h"

#include "auxiliary/auxiliary_store.h"
#include "auxiliary/directory_tree.h"
#include "embedded/base/files.h"
#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "module/name_list.h"
#include "module/tree_values.h"
#include "platform/framework_messages.h"
#include "samples/generator/definitions.h"
#include "samples/generator/drawings.h"
#include "samples/generator/slides.h"

namespace samples {
namespace {

namespace fs = std::filesystem;

constexpr const char* kStore = "zhlFzgn.qdp";
constexpr const wchar_t* kTitles = L"索引";
constexpr wchar_t kSeparator = L'&';

base::Status write(CQuillDpData& tree, const fs::path& path) {
  if (tree.WriteDataToQdpFile(base::wideFromPath(path).c_str())) return {};
  return base::Status::failure(base::utf8FromPath(path) + ": can't be written");
}

CStringArray titlesOf(const CQuillDpData& tree) {
  const CQuillDpNode* node = tree.GetSubValueFromPathW(0, kTitles);
  CStringArray titles;
  if (!node || !splitNames(node->text(), kSeparator, titles)) titles.RemoveAll();
  return titles;
}

bool hasGroups(const fs::path& store) {
  CQuillDpData tree;
  return tree.ReadDataFromQdpFile(base::wideFromPath(store).c_str()) && !titlesOf(tree).IsEmpty();
}

fs::path keptGeneration(const fs::path& library) {
  return library / (std::string(kStore) + ".bak");
}

// Drawings, slides and keys of one group.
base::Status addGroup(const AuxiliaryGroup& group, const fs::path& directory, CQuillDpData& tree) {
  std::error_code error;
  fs::create_directories(directory, error);
  const std::string name = base::utf8FromPath(directory.filename());
  const std::wstring key = L"数据\\" + base::wideFromUtf8(group.title);
  storeText(tree, key, base::wideFromUtf8(name));
  storeText(tree, key + L"\\类型", L"0");
  std::wstring labels;
  Slides slides;
  int number = 0;
  for (const AuxiliaryItem& item : group.items) {
    const std::string block = "FG" + name.substr(name.size() - 3) + base::formatInt(++number, 3);
    const auto drawing = makeFigureDrawing(item.figure);
    const base::Status status =
        drafting::saveDrawingFile(*drawing, base::utf8FromPath(directory / (block + ".dwg")));
    if (!status) return status;
    slides.emplace_back(block, iconSlide(*drawing));
    const std::wstring label = base::wideFromUtf8(item.label);
    storeText(tree, key + L"\\数据\\" + label, base::wideFromUtf8(block));
    labels += label + kSeparator;
  }
  storeText(tree, key + L"\\索引", labels);
  return saveSlides(directory / (name + ".slb"), slides);
}

}  // namespace

base::Status makeAuxiliaryLibrary(const fs::path& library) {
  CQuillDpData tree;
  CStringArray titles;
  for (const AuxiliaryGroup& group : auxiliaryGroups()) {
    const base::Status status = addGroup(group, library / group.directory, tree);
    if (!status) return status;
    titles.Add(base::wideFromUtf8(group.title));
  }
  storeText(tree, kTitles, joinNames(titles, kSeparator));
  storeText(tree, L"图标状态", L"0");
  return write(tree, library / kStore);
}

// --- a library without groups ---

AuxiliaryFindings examineAuxiliary(const fs::path& library) {
  const fs::path store = library / kStore;
  AuxiliaryFindings findings{AuxiliaryState::usable, hasGroups(keptGeneration(library))};
  std::error_code error;
  CQuillDpData tree;
  if (!fs::exists(store, error)) {
    findings.state = AuxiliaryState::missing;
  } else if (!tree.ReadDataFromQdpFile(base::wideFromPath(store).c_str())) {
    findings.state = AuxiliaryState::damaged;
  } else if (titlesOf(tree).IsEmpty()) {
    findings.state = AuxiliaryState::empty;
  }
  return findings;
}

base::Status restoreKeptAuxiliary(const fs::path& library) {
  const auto bytes = base::readFile(keptGeneration(library));
  if (!bytes.ok()) return bytes.status();
  if (examineAuxiliary(library).state == AuxiliaryState::damaged) {
    const auto aside = base::moveDamagedAside(library / kStore);
    if (!aside.ok()) return aside.status();
  }
  return base::saveAtomically(library / kStore, *bytes);
}

base::Status addSampleGroups(const fs::path& library) {
  std::error_code error;
  fs::create_directories(library, error);
  CQuillDpData tree;
  tree.ReadDataFromQdpFile(base::wideFromPath(library / kStore).c_str());
  CStringArray titles = titlesOf(tree);
  const std::wstring folder = base::wideFromPath(library) + L"\\";
  for (const AuxiliaryGroup& group : auxiliaryGroups()) {
    const base::Status status = addGroup(group, library / newGroupDirectory(folder), tree);
    if (!status) return status;
    titles.Add(base::wideFromUtf8(group.title));
  }
  storeText(tree, kTitles, joinNames(titles, kSeparator));
  return write(tree, library / kStore);
}

namespace {

constexpr unsigned kYesOrNo = 36;  // with a question mark
constexpr int kYes = 6;

std::wstring_view whatIsWrong(AuxiliaryState state, bool chinese) {
  switch (state) {
    case AuxiliaryState::missing:
      return chinese ? L"辅助功能库文件不存在。" : L"The auxiliary library's file is missing.";
    case AuxiliaryState::damaged:
      return chinese ? L"辅助功能库文件已损坏。" : L"The auxiliary library's file is damaged.";
    default: return chinese ? L"辅助功能库中没有图库组。" : L"The auxiliary library has no groups.";
  }
}

}  // namespace

bool offerAuxiliary(const fs::path& library, drafting::Language language, void* owner) {
  const AuxiliaryFindings findings = examineAuxiliary(library);
  if (findings.state == AuxiliaryState::usable) return true;
  const bool chinese = language == drafting::Language::Chinese;
  const auto wants = [&](const wchar_t* inChinese, const wchar_t* inEnglish) {
    const std::wstring text = std::wstring(whatIsWrong(findings.state, chinese)) + L"\n" +
                              (chinese ? inChinese : inEnglish);
    return showMessageBox({.owner = owner,
                           .text = text,
                           .caption = chinese ? L"辅助功能库" : L"Auxiliary library",
                           .style = kYesOrNo}) == kYes;
  };
  const auto done = [&](const base::Status& status) {
    if (!status) showMessageBox({owner, base::wideFromUtf8(status.message()), {}, kMessageOk});
    return status.ok();
  };
  if (findings.kept && wants(L"恢复上一次保存的内容吗?", L"Bring back what was saved before?")) {
    return done(restoreKeptAuxiliary(library));
  }
  if (wants(L"放入样例图库组吗?", L"Put the sample groups in?"))
    return done(addSampleGroups(library));
  return false;
}

}  // namespace samples

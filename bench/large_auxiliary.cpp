#include "large_auxiliary.h"

#include <system_error>

#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "module/tree_values.h"
#include "platform/quill_data.h"
#include "samples/generator/definitions.h"
#include "samples/generator/drawings.h"
#include "samples/generator/slides.h"

namespace {

// The sample symbols' icons, in turn.
std::vector<std::string> icons() {
  std::vector<std::string> all;
  for (const samples::AuxiliaryGroup& group : samples::auxiliaryGroups()) {
    for (const samples::AuxiliaryItem& item : group.items) {
      all.push_back(samples::iconSlide(*samples::makeFigureDrawing(item.figure)));
    }
  }
  return all;
}

}  // namespace

base::Status makeLargeAuxiliary(const std::filesystem::path& library) {
  const std::vector<std::string> pictures = icons();
  CQuillDpData tree;
  std::wstring titles;
  for (int group = 1; group <= kLargeGroups; ++group) {
    const std::string directory = "fzgn" + base::formatInt(group, 4);
    const std::wstring title = L"图库组" + std::to_wstring(group);
    const std::wstring key = L"数据\\" + title;
    titles += title + L"&";
    storeText(tree, key, base::wideFromUtf8(directory));
    storeText(tree, key + L"\\类型", L"0");
    std::wstring labels;
    samples::Slides slides;
    for (int item = 1; item <= kLargeItems; ++item) {
      const std::wstring label = L"图块-" + std::to_wstring(item);
      const std::string block = "FG" + directory.substr(5) + base::formatInt(item, 3);
      storeText(tree, key + L"\\数据\\" + label, base::wideFromUtf8(block));
      labels += label + L"&";
      slides.emplace_back(block, pictures[static_cast<std::size_t>(item) % pictures.size()]);
    }
    storeText(tree, key + L"\\索引", labels);
    std::error_code error;
    std::filesystem::create_directories(library / directory, error);
    const base::Status status =
        samples::saveSlides(library / directory / (directory + ".slb"), slides);
    if (!status) return status;
  }
  storeText(tree, L"索引", titles);
  const std::filesystem::path store = library / "zhlFzgn.qdp";
  if (tree.WriteDataToQdpFile(base::wideFromPath(store).c_str())) return {};
  return base::Status::failure(base::utf8FromPath(store) + ": can't be written");
}

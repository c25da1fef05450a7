#include "samples/generator/slides.h"

#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/common_funcs/slide_recorder.h"
#include "embedded/drafting/display/display_list.h"
#include "platform/slide_store.h"

namespace samples {
namespace {

constexpr double kCellHalf = 3, kWideHalf = 9, kCellHeight = 8;
constexpr int kDotsPerUnit = 40;
constexpr common_funcs::SlideSize kIcon{640, 320};
constexpr double kIconPart = 0.95;

}  // namespace

std::string symbolSlide(const drafting::Database& drawing, std::string_view name) {
  const double half = name.starts_with("ZHL3") ? kWideHalf : kCellHalf;
  base::Box2 cell;
  cell.add(base::Point2{-half, -kCellHeight});
  cell.add(base::Point2{half, 0});
  return common_funcs::recordSlide(drawing, cell,
                                   {static_cast<int>(cell.width()) * kDotsPerUnit + 1,
                                    static_cast<int>(cell.height()) * kDotsPerUnit + 1});
}

std::string iconSlide(const drafting::Database& drawing) {
  const base::Box2 extents = drafting::DisplayList::of(drawing).bounds();
  return common_funcs::recordSlide(drawing, common_funcs::windowAround(extents, kIcon, kIconPart),
                                   kIcon);
}

base::Status saveSlides(const std::filesystem::path& path, const Slides& slides) {
  CSlbMan library;
  library.OnOpenDocument(base::wideFromPath(path).c_str());
  for (const auto& [name, bytes] : slides) {
    library.AddSlideW(base::wideFromUtf8(name).c_str(), bytes.data(),
                      static_cast<std::uint32_t>(bytes.size()));
  }
  if (library.SaveModified()) return {};
  return base::Status::failure(base::utf8FromPath(path) + ": can't be written");
}

}  // namespace samples

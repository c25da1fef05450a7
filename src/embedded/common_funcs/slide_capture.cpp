// CGetSld: measures a drawing with the display pipeline and records it.
#include "platform/slide_capture.h"

#include <cmath>
#include <optional>

#include "embedded/base/paths.h"
#include "embedded/common_funcs/slide_recorder.h"
#include "embedded/drafting/display/display_list.h"
#include "embedded/drafting/host/host_state.h"
#include "platform/acad_command.h"

using common_funcs::SlideSize;

namespace {

drafting::Database* drawingOf(const AcDbDatabase* database) {
  return database ? database->state()->database() : nullptr;
}

bool isPicture(SlideSize size, double part) {
  const auto fits = [](int dots) {
    return dots >= common_funcs::kFewestDots && dots <= common_funcs::kMostDots;
  };
  return fits(size.width) && fits(size.height) && part > 0 && std::isfinite(part);
}

// The two fonts that were set together; nothing without any.
std::optional<drafting::TextFont> fontOf(const CString& english, const CString& chinese) {
  if (english.IsEmpty() && chinese.IsEmpty()) return std::nullopt;
  const auto file = [](const CString& path) {
    return path.IsEmpty() ? std::filesystem::path() : base::resolvePath(path.wide());
  };
  return drafting::FontLibrary::shared().ofFiles(file(english), file(chinese));
}

base::Box2 extentsOf(const drafting::Database& drawing,
                     const std::optional<drafting::TextFont>& font) {
  drafting::DisplayOptions options;
  options.font = font ? &*font : nullptr;
  return drafting::DisplayList::of(drawing, options).bounds();
}

}  // namespace

CGetSld::CGetSld(CString path, AcDbDatabase* database)
    : path_(std::move(path)), database_(database) {}
CGetSld::CGetSld(AcDbDatabase* database) : database_(database) {}

void CGetSld::SetChineseShxFileName(CString path) { chineseFont_ = std::move(path); }
void CGetSld::SetEnglishShxFileName(CString path) { englishFont_ = std::move(path); }

int CGetSld::GetDataBaseExtents(AcDbExtents& extents) {
  const drafting::Database* drawing = drawingOf(database_);
  if (!drawing) return 0;
  const base::Box2 box = extentsOf(*drawing, fontOf(englishFont_, chineseFont_));
  extents = {};
  if (!box.empty()) extents.set({box.min.x, box.min.y, 0}, {box.max.x, box.max.y, 0});
  return 1;
}

int CGetSld::GetSldData() {
  const drafting::Database* drawing = drawingOf(database_);
  const SlideSize dots{width, height};
  if (!drawing || !isPicture(dots, part) || drafting::serviceFails("GetSldData")) {
    if (!path_.IsEmpty()) acutPrintf(L"\n无法生成幻灯%s.", path_.GetString());
    return 0;
  }
  const auto font = fontOf(englishFont_, chineseFont_);
  const base::Box2 window = common_funcs::windowAround(extentsOf(*drawing, font), dots, part);
  const std::string slide = recordSlide(*drawing, window, dots, font ? &*font : nullptr);
  bytes_.assign(slide.begin(), slide.end());
  data = bytes_.data();
  size = static_cast<std::int32_t>(bytes_.size());
  return 1;
}

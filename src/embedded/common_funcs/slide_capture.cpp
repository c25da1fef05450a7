// CGetSld: measures a drawing with the display pipeline and records it.
#include "platform/slide_capture.h"

#include <cmath>

#include "embedded/common_funcs/slide_recorder.h"
#include "embedded/drafting/display/display_list.h"
#include "embedded/drafting/host/host_state.h"
#include "platform/acad_command.h"

using common_funcs::SlideSize;
using drafting::DisplayList;

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

}  // namespace

CGetSld::CGetSld(CString path, AcDbDatabase* database)
    : path_(std::move(path)), database_(database) {}
CGetSld::CGetSld(AcDbDatabase* database) : database_(database) {}

void CGetSld::SetChineseShxFileName(CString path) { chineseFont_ = std::move(path); }
void CGetSld::SetEnglishShxFileName(CString path) { englishFont_ = std::move(path); }

int CGetSld::GetDataBaseExtents(AcDbExtents& extents) {
  const drafting::Database* drawing = drawingOf(database_);
  if (!drawing) return 0;
  const base::Box2 box = DisplayList::of(*drawing).bounds();
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
  const base::Box2 extents = DisplayList::of(*drawing).bounds();
  const std::string slide =
      recordSlide(*drawing, common_funcs::windowAround(extents, dots, part), dots);
  bytes_.assign(slide.begin(), slide.end());
  data = bytes_.data();
  size = static_cast<std::int32_t>(bytes_.size());
  return 1;
}

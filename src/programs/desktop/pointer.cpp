#include "programs/desktop/pointer.h"

#include <algorithm>
#include <cmath>

#include "embedded/drafting/commands/select.h"
#include "embedded/drafting/picking/picker.h"

namespace desktop {

using drafting::Ask;
using drafting::Prompt;

namespace {

constexpr std::uint32_t kCrosshair = 0xC0C0C0, kBox = 0xFFFFFF, kBand = 0xE0E000;
constexpr std::uint32_t kWindow = 0x60A0FF, kCrossing = 0x60E060;

bool takesPoint(const Prompt& prompt) {
  switch (prompt.kind) {
    case Ask::Point:
    case Ask::Distance:
    case Ask::Angle:
    case Ask::Selection:
    case Ask::Entity: return true;
    default: return false;
  }
}

bool picksEntities(const Prompt& prompt) {
  return prompt.kind == Ask::Selection || prompt.kind == Ask::Entity;
}

Point2 middleOf(Pixel pixel) {
  return {static_cast<double>(pixel.x), static_cast<double>(pixel.y)};
}

}  // namespace

bool Pointer::selects() const {
  const Prompt* prompt = session_.line.waitingPrompt();
  return prompt && prompt->kind == Ask::Command && !session_.line.hasInput();
}

void Pointer::moveTo(Pixel at) {
  if (pan_) {
    const Point2 by = screen_.drawingPoint(at) - screen_.drawingPoint(*pan_);
    session_.view.showNext(session_.view.centre() - by, session_.view.height());
    pan_ = at;
  }
  at_ = at;
}

void Pointer::startPan(Pixel at) {
  // The step that showNext continues; without a move it is none.
  session_.view.show(session_.view.centre(), session_.view.height());
  pan_ = at;
  zooming_ = false;
}

void Pointer::wheel(Pixel at, double notches) {
  constexpr double kStep = 1.25;
  const double factor = std::pow(kStep, -notches);
  const Point2 fixed = screen_.drawingPoint(at);
  const drafting::View& view = session_.view;
  const Point2 centre = fixed + (view.centre() - fixed) * factor;
  if (zooming_) {
    session_.view.showNext(centre, view.height() * factor);
  } else {
    session_.view.show(centre, view.height() * factor);
  }
  zooming_ = true;
}

void Pointer::leftClick(Pixel at) {
  at_ = at;
  zooming_ = false;
  const Prompt* prompt = session_.line.waitingPrompt();
  // Within an expression that is being typed a point would be a piece of it.
  if (!prompt || session_.line.hasInput()) return;
  if (prompt->kind == Ask::Command) return selectAt(at);
  if (!takesPoint(*prompt)) return;
  const Point2 point = screen_.drawingPoint(at);
  session_.line.pick({point.x, point.y, 0});
}

void Pointer::selectAt(Pixel at) {
  const Point2 point = screen_.drawingPoint(at);
  if (corner_) {
    const Point2 corner = *corner_;
    corner_.reset();
    return selectWithin(corner, point);
  }
  const Handle hit = drafting::entityAt(session_.database(), session_.index(), point,
                                        drafting::pickReach(session_));
  if (hit) {
    add({hit});
  } else {
    corner_ = point;
  }
}

void Pointer::selectWithin(Point2 corner, Point2 opposite) {
  const auto region = drafting::Region::box(corner, opposite);
  add(opposite.x < corner.x
          ? drafting::entitiesCrossing(session_.database(), session_.index(), region)
          : drafting::entitiesInside(session_.database(), session_.index(), region));
}

void Pointer::add(const Selection& found) {
  for (const Handle handle : found) {
    if (std::find(selected_.begin(), selected_.end(), handle) == selected_.end()) {
      selected_.push_back(handle);
    }
  }
}

bool Pointer::cancel() {
  zooming_ = false;
  if (corner_) {
    corner_.reset();
    return true;
  }
  const bool had = !selected_.empty();
  selected_.clear();
  return had;
}

void Pointer::forget() {
  cancel();
  selected_.clear();
  pan_.reset();
}

// --- what is seen of it

std::vector<OverlayLine> Pointer::overlay() const {
  std::vector<OverlayLine> lines;
  if (!at_ || pan_) return lines;
  addRubberBand(lines);
  addCursor(lines);
  return lines;
}

void Pointer::addRubberBand(std::vector<OverlayLine>& lines) const {
  const Point2 here = middleOf(*at_);
  const Prompt* prompt = session_.line.waitingPrompt();
  if (!prompt) return;
  std::optional<Point2> corner;
  if (prompt->corner) corner = Point2{prompt->corner->x, prompt->corner->y};
  if (selects()) corner = corner_;
  if (corner) {
    const Point2 from = screen_.pixelPoint(*corner);
    const bool crossing = here.x < from.x;
    addRectangle(lines, from, here, {{}, {}, crossing ? kCrossing : kWindow, crossing});
  } else if (prompt->base) {
    lines.push_back({screen_.pixelPoint({prompt->base->x, prompt->base->y}), here, kBand, false});
  }
}

void Pointer::addCursor(std::vector<OverlayLine>& lines) const {
  const Point2 here = middleOf(*at_);
  const Point2 size = session_.view.screenSize();
  const Prompt* prompt = session_.line.waitingPrompt();
  if (!prompt || !picksEntities(*prompt)) {
    lines.push_back({{0, here.y}, {size.x - 1, here.y}, kCrosshair, false});
    lines.push_back({{here.x, 0}, {here.x, size.y - 1}, kCrosshair, false});
  }
  if (selects() || (prompt && picksEntities(*prompt))) {
    const double reach = session_.variables.integer("PICKBOX");
    addRectangle(lines, here - Point2{reach, reach}, here + Point2{reach, reach},
                 {{}, {}, kBox, false});
  }
}

}  // namespace desktop

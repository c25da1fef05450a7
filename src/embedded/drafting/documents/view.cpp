#include "embedded/drafting/documents/view.h"

#include <algorithm>
#include <cmath>

namespace drafting {
namespace {

constexpr std::size_t kMostKept = 10;  // views before
constexpr double kSmallest = 1e-12, kLargest = 1e30;

}  // namespace

base::Box2 View::window() const {
  const Point2 half{width() / 2, now_.height / 2};
  base::Box2 box;
  box.add(now_.centre - half);
  box.add(now_.centre + half);
  return box;
}

void View::setScreenSize(Point2 pixels) {
  screen_ = {std::max(pixels.x, 1.0), std::max(pixels.y, 1.0)};
}

bool View::show(Point2 centre, double height) {
  const bool sound = height >= kSmallest && height <= kLargest && std::abs(centre.x) < kLargest &&
                     std::abs(centre.y) < kLargest;
  if (!sound) return false;
  const State next{centre, height};
  if (next == now_) return true;
  before_.push_back(now_);
  if (before_.size() > kMostKept) before_.erase(before_.begin());
  now_ = next;
  moved_ = true;
  return true;
}

bool View::showNext(Point2 centre, double height) {
  const std::vector<State> before = before_;
  const bool shown = show(centre, height);
  if (shown) before_ = before;
  return shown;
}

bool View::showBox(const base::Box2& box, double margin) {
  if (box.empty()) return false;
  const double needed = std::max(box.height(), box.width() * screen_.y / screen_.x) * margin;
  return show(box.centre(), needed > 0 ? needed : now_.height);
}

bool View::showPrevious() {
  if (before_.empty()) return false;
  now_ = before_.back();
  before_.pop_back();
  moved_ = true;
  return true;
}

void View::takeFrom(const Database& database) {
  before_.clear();
  now_ = {};
  moved_ = false;
  const auto* active = database.find<Viewport>(database.findRecord(Table::Viewports, "*Active"));
  if (!active) return;
  show(active->centre, active->height);
  before_.clear();
  moved_ = false;
}

// Past the journal: a view is nothing to undo.
void View::storeIn(Database& database) const {
  auto* active = database.find<Viewport>(database.findRecord(Table::Viewports, "*Active"));
  if (!active || !moved_) return;
  active->centre = now_.centre;
  active->height = now_.height;
  active->width = width();
}

}  // namespace drafting

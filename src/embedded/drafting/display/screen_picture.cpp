#include "embedded/drafting/display/screen_picture.h"

#include <algorithm>
#include <cmath>

namespace drafting {
namespace {

constexpr int kMostSide = 256, kEntitiesToCell = 16;
constexpr int kMostCells = 64;  // of one entity; larger ones stand in a list of their own

// Draws chunks, those of a few pixels by what can be told apart of them.
class Painter {
 public:
  Painter(const DisplayList& list, const Affine2& map, const PaintStyle& style,
          base::Canvas& canvas)
      : list_(list), map_(map), style_(style), canvas_(canvas) {}

  void draw(const DisplayList::Chunk& chunk) {
    constexpr double kDot = 1.5, kCoarse = 5;
    const double size = std::max(chunk.box.width(), chunk.box.height()) * map_.scale();
    const auto items = std::span(list_.items()).subspan(chunk.first, chunk.count);
    if (items.empty()) return;
    if (size < kDot) return dot(items.front(), chunk.box.centre());
    gap_ = size < kCoarse ? 2 : 0.7;
    for (const DisplayList::Item& item : items) {
      if (item.kind != DisplayList::Kind::Label) draw(item);
    }
  }

 private:
  void dot(const DisplayList::Item& item, Point2 at) {
    const Point2 point = map_(at);
    canvas_.stroke({&point, 1}, style_.palette(item.colour), style_.thinnest);
  }

  // Points that lie closer together than the gap are passed over, the last one is kept.
  void draw(const DisplayList::Item& item) {
    const auto points = list_.points(item);
    path_.clear();
    for (std::size_t i = 0; i < points.size(); ++i) {
      const Point2 point = map_(points[i]);
      const bool isLast = i + 1 == points.size();
      if (!path_.empty() && !isLast && std::abs(point.x - path_.back().x) < gap_ &&
          std::abs(point.y - path_.back().y) < gap_) {
        continue;
      }
      path_.push_back(point);
    }
    const base::Rgb colour = style_.palette(item.colour);
    if (item.kind == DisplayList::Kind::Area) return canvas_.fill(path_, colour);
    const double width = item.lineweight / 100.0 * style_.unitsPerMillimetre;
    canvas_.stroke(path_, colour, std::max(width, style_.thinnest));
  }

  const DisplayList& list_;
  const Affine2& map_;
  const PaintStyle& style_;
  base::Canvas& canvas_;
  double gap_ = 0;
  std::vector<Point2> path_;
};

}  // namespace

void ScreenPicture::rebuild(const Database& database) {
  list_ = DisplayList::of(database, options_);
  wasted_ = 0;
  index();
}

void ScreenPicture::update(const Database& database, std::span<const Handle> entities) {
  if (grid_.empty()) index();
  for (const Handle handle : entities) {
    const auto known = places_.find(handle);
    const Entity* entity = database.find<Entity>(handle);
    if (entity && entity->owner != database.modelSpace().handle) entity = nullptr;
    if (known != places_.end()) {
      take(known->second);
      wasted_ += list_.chunks()[known->second].count;
      if (!entity) {
        list_.clearChunk(known->second);
        places_.erase(known);
        continue;
      }
    }
    if (!entity) continue;
    const Place place = known != places_.end() ? known->second : list_.addChunk(handle);
    places_[handle] = place;
    list_.showAgain(place, database, *entity, options_);
    put(place);
  }
  if (wasted_ > list_.items().size() / 2 + 1000) rebuild(database);
}

void ScreenPicture::index() {
  places_.clear();
  large_.clear();
  area_ = list_.bounds();
  const auto count = list_.chunks().size();
  side_ = std::clamp(static_cast<int>(std::sqrt(static_cast<double>(count) / kEntitiesToCell)), 1,
                     kMostSide);
  grid_.assign(static_cast<std::size_t>(side_) * static_cast<std::size_t>(side_), {});
  for (Place place = 0; place < count; ++place) {
    places_[list_.chunks()[place].entity] = place;
    put(place);
  }
}

// Beyond the grid's area the cells at its edge count.
ScreenPicture::Cells ScreenPicture::cellsOf(const Box2& box) const {
  const auto cell = [this](double at, double from, double size) {
    const double part = size > 0 ? (at - from) / size * side_ : 0;
    return static_cast<int>(std::clamp(part, 0.0, side_ - 1.0));
  };
  return {cell(box.min.x, area_.min.x, area_.width()), cell(box.max.x, area_.min.x, area_.width()),
          cell(box.min.y, area_.min.y, area_.height()),
          cell(box.max.y, area_.min.y, area_.height())};
}

void ScreenPicture::put(Place place) {
  const Box2& box = list_.chunks()[place].box;
  if (box.empty()) return;
  const Cells cells = cellsOf(box);
  if ((cells.right - cells.left + 1) * (cells.top - cells.bottom + 1) > kMostCells) {
    large_.push_back(place);
    return;
  }
  for (int y = cells.bottom; y <= cells.top; ++y) {
    for (int x = cells.left; x <= cells.right; ++x) {
      grid_[cellAt(x, y)].push_back(place);
    }
  }
}

void ScreenPicture::take(Place place) {
  const Box2& box = list_.chunks()[place].box;
  if (box.empty()) return;
  std::erase(large_, place);
  const Cells cells = cellsOf(box);
  if ((cells.right - cells.left + 1) * (cells.top - cells.bottom + 1) > kMostCells) return;
  for (int y = cells.bottom; y <= cells.top; ++y) {
    for (int x = cells.left; x <= cells.right; ++x) {
      std::erase(grid_[cellAt(x, y)], place);
    }
  }
}

std::vector<ScreenPicture::Place> ScreenPicture::find(const Box2& box) const {
  std::vector<Place> found;
  if (box.empty() || grid_.empty()) return found;
  seen_.resize(list_.chunks().size());
  ++question_;
  const auto look = [&](const std::vector<Place>& places) {
    for (const Place place : places) {
      if (seen_[place] == question_) continue;
      seen_[place] = question_;
      if (meet(list_.chunks()[place].box, box)) found.push_back(place);
    }
  };
  const Cells cells = cellsOf(box);
  for (int y = cells.bottom; y <= cells.top; ++y) {
    for (int x = cells.left; x <= cells.right; ++x) {
      look(grid_[cellAt(x, y)]);
    }
  }
  look(large_);
  std::sort(found.begin(), found.end());
  return found;
}

void ScreenPicture::draw(const Affine2& map, const Box2& window, const PaintStyle& style,
                         base::Canvas& canvas) const {
  if (!(std::abs(map.determinant()) > 0)) return;
  Painter painter(list_, map, style, canvas);
  for (const Place place : find(mapped(map.inverse(), window))) {
    painter.draw(list_.chunks()[place]);
  }
}

std::vector<Handle> ScreenPicture::entitiesIn(const Box2& box) const {
  std::vector<Handle> handles;
  const std::vector<Place> places = find(box);
  handles.reserve(places.size());
  for (const Place place : places) handles.push_back(list_.chunks()[place].entity);
  return handles;
}

}  // namespace drafting

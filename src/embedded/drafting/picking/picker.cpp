#include "embedded/drafting/picking/picker.h"

#include <algorithm>

namespace drafting {
namespace {

using Item = DisplayList::Item;

bool crosses(const DisplayList& picture, const Region& region) {
  for (const Item& item : picture.items()) {
    if (item.kind == DisplayList::Kind::Stroke && region.meetsPath(picture.points(item)))
      return true;
    if (item.kind == DisplayList::Kind::Area && region.meetsArea(picture.points(item))) return true;
  }
  return false;
}

bool liesInside(const DisplayList& picture, const Region& region) {
  return std::all_of(picture.items().begin(), picture.items().end(), [&](const Item& item) {
    return item.kind == DisplayList::Kind::Label || region.containsPath(picture.points(item));
  });
}

struct Candidate {
  Handle handle = 0;
  bool whole = false;  // its box lies within that of the region
};

std::vector<Candidate> candidates(EntityIndex& index, const Region& region) {
  std::vector<Candidate> found;
  const Box2& area = region.bounds();
  index.visit(area, [&](Handle handle, const Box2& box) {
    found.push_back({handle, region.isBox() && holds(area, box)});
  });
  std::sort(found.begin(), found.end(),
            [](const Candidate& a, const Candidate& b) { return a.handle < b.handle; });
  return found;
}

}  // namespace

std::vector<Handle> entitiesInside(const Database& database, EntityIndex& index,
                                   const Region& region) {
  std::vector<Handle> selected;
  for (const Candidate& candidate : candidates(index, region)) {
    // In a box only what has its own box within it lies inside.
    const bool in =
        region.isBox()
            ? candidate.whole
            : liesInside(index.picture(*database.find<Entity>(candidate.handle)), region);
    if (in) selected.push_back(candidate.handle);
  }
  return selected;
}

std::vector<Handle> entitiesCrossing(const Database& database, EntityIndex& index,
                                     const Region& region) {
  std::vector<Handle> selected;
  for (const Candidate& candidate : candidates(index, region)) {
    if (candidate.whole || crosses(index.picture(*database.find<Entity>(candidate.handle)), region))
      selected.push_back(candidate.handle);
  }
  return selected;
}

std::vector<Handle> entitiesAt(const Database& database, EntityIndex& index, Point2 point,
                               double reach) {
  const Point2 half{reach, reach};
  auto found = entitiesCrossing(database, index, Region::box(point - half, point + half));
  std::reverse(found.begin(), found.end());
  return found;
}

Handle entityAt(const Database& database, EntityIndex& index, Point2 point, double reach) {
  const auto found = entitiesAt(database, index, point, reach);
  return found.empty() ? 0 : found.front();
}

}  // namespace drafting

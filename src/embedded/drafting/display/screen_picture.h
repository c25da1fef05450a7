// ScreenPicture: a drawing's picture that is looked at through a window which moves. It is made
// once, follows changes entity by entity, and draws only what the window shows, small things
// coarsely, so that the cost of a redraw goes by what is seen.
#pragma once

#include <unordered_map>

#include "embedded/drafting/display/display_list.h"

namespace drafting {

class ScreenPicture {
 public:
  explicit ScreenPicture(DisplayOptions options = {}) : options_(std::move(options)) {}

  void rebuild(const Database& database);
  // Has the pictures of these entities of model space made anew; of one that is gone removed. On an
  // empty picture they are all that is shown.
  void update(const Database& database, std::span<const Handle> entities);

  const Box2& bounds() const { return list_.bounds(); }  // those of removed entities included
  std::size_t entityCount() const { return places_.size(); }

  // `map` leads from the drawing to pixels; `window` is what the canvas shows, in pixels.
  void draw(const Affine2& map, const Box2& window, const PaintStyle& style,
            base::Canvas& canvas) const;

  // Entities whose pictures' boxes meet this box of the drawing, in drawing order.
  std::vector<Handle> entitiesIn(const Box2& box) const;

 private:
  using Chunk = DisplayList::Chunk;
  using Place = std::uint32_t;  // of a chunk in list_.chunks()

  void index();
  void put(Place place);
  void take(Place place);
  std::vector<Place> find(const Box2& box) const;
  struct Cells {
    int left, right, bottom, top;
  };
  Cells cellsOf(const Box2& box) const;
  std::size_t cellAt(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(side_) +
           static_cast<std::size_t>(x);
  }

  DisplayOptions options_;
  DisplayList list_;
  std::unordered_map<Handle, Place> places_;
  Box2 area_;     // that the grid covers
  int side_ = 1;  // cells in each direction
  // Cells of a part of the drawing each, so that a window of any size looks at few of them;
  // picking, whose windows are small, has base::BoxIndex.
  std::vector<std::vector<Place>> grid_;
  std::vector<Place> large_;                 // those that would stand in many cells
  mutable std::vector<std::uint32_t> seen_;  // by place: the question that met it last
  mutable std::uint32_t question_ = 0;
  std::size_t wasted_ = 0;  // items of chunks that were replaced
};

}  // namespace drafting

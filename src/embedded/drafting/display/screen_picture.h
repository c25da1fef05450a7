// ScreenPicture: a drawing's picture that is looked at through a window which moves. It is made
// once, follows changes entity by entity, and draws only what the window shows, small things
// coarsely, so that the cost of a redraw goes by what is seen.
#pragma once

#include <unordered_map>

#include "embedded/base/box_index.h"
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

  std::vector<Place> find(const Box2& box) const;  // in drawing order

  DisplayOptions options_;
  DisplayList list_;
  std::unordered_map<Handle, Place> places_;
  base::BoxIndex index_;    // of places
  std::size_t wasted_ = 0;  // items of chunks that were replaced
};

}  // namespace drafting

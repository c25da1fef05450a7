// DisplayList: a drawing's picture: strokes, filled areas and texts in drawing units, with colour
// indexes. Made from a Database once, painted on canvases as often as wanted.
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "embedded/base/canvas.h"
#include "embedded/drafting/database/database.h"
#include "embedded/drafting/display/palette.h"
#include "embedded/drafting/fonts/font_library.h"

namespace drafting {

using base::Affine2;
using base::Box2;

struct DisplayOptions {
  double tolerance = 0;                 // of curves, in drawing units; 0: 64 pieces a full circle
  bool forPlot = false;                 // leaves out layers that aren't plotted
  std::size_t limit = 20'000'000;       // most steps; what comes behind isn't in the list
  FontLibrary* fonts = nullptr;         // where text styles' fonts are found; null: the process's
  std::filesystem::path drawingFolder;  // where they are looked for first
  const TextFont* font = nullptr;       // of all texts, whatever their styles name
};

class ListBuilder;

class DisplayList {
 public:
  enum class Kind : std::uint8_t { Stroke, Area, Label };
  struct Item {
    Kind kind = Kind::Stroke;
    std::int16_t colour = 7;      // 1 to 255
    std::int16_t lineweight = 0;  // hundredths of a millimetre
    std::uint32_t first = 0;      // point, or label
    std::uint32_t count = 0;      // of points
  };
  // What one entity of model space is shown as.
  struct Chunk {
    Handle entity = 0;
    std::uint32_t first = 0, count = 0;  // items
    Box2 box;                            // of strokes and areas; empty if there are none
  };
  struct Label {
    std::string text;
    Affine2 place;  // as Words have it, in drawing units
    double advance = 0;
  };

  // The picture of what stands in model space.
  static DisplayList of(const Database& database, const DisplayOptions& options = {});
  // The picture of one of its entities alone.
  static DisplayList of(const Database& database, const Entity& entity,
                        const DisplayOptions& options = {});

  const std::vector<Item>& items() const { return items_; }
  // In drawing order; the items follow each other in it until an entity is shown again.
  const std::vector<Chunk>& chunks() const { return chunks_; }
  std::span<const Point2> points(const Item& item) const {
    return {points_.data() + item.first, item.count};
  }
  const Label& label(const Item& item) const { return labels_[item.first]; }
  const Box2& bounds() const { return bounds_; }  // of strokes and areas

  // Kinds of entities that have no picture yet, with how many of them there are.
  const std::map<std::string, int>& notShown() const { return notShown_; }
  // Sentences on fonts that are replaced or damaged.
  const std::set<std::string>& fontNotes() const { return fontNotes_; }
  bool cut() const { return cut_; }  // the limit was reached

  // --- changes. A chunk's former items stay behind, unused.
  std::uint32_t addChunk(Handle entity);  // its number
  void clearChunk(std::uint32_t chunk);
  void showAgain(std::uint32_t chunk, const Database& database, const Entity& entity,
                 const DisplayOptions& options);

 private:
  friend class ListBuilder;
  void clear();  // keeps the memory
  std::vector<Item> items_;
  std::vector<Chunk> chunks_;
  std::vector<Point2> points_;
  std::vector<Label> labels_;
  Box2 bounds_;
  std::map<std::string, int> notShown_;
  std::set<std::string> fontNotes_;
  bool cut_ = false;
};

// Pictures of single entities, one after another, by one set of fonts: for picking.
class EntityPictures {
 public:
  explicit EntityPictures(const Database& database, const DisplayOptions& options = {});
  ~EntityPictures();

  // What is seen of an entity of model space; good until the next call. Layers count as they are
  // now, text styles as they were when first used.
  const DisplayList& of(const Entity& entity);

 private:
  DisplayOptions options_;
  std::unique_ptr<ListBuilder> builder_;
};

struct PaintStyle {
  Palette palette{Background::White, false};
  double unitsPerMillimetre = 1;  // of the canvas, for lineweights
  double thinnest = 0.1;          // in units of the canvas
};

// `map` leads from the drawing to the canvas.
void paint(const DisplayList& list, const Affine2& map, const PaintStyle& style,
           base::Canvas& canvas);

}  // namespace drafting

// Builds the display list: walks model space and, through INSERTs, the blocks; resolves colours,
// lineweights and visibility on the way down; maps everything to the plane of the drawing.
#include <array>
#include <cmath>

#include "embedded/drafting/database/old_polylines.h"
#include "embedded/drafting/database/packed_groups.h"
#include "embedded/drafting/database/transform.h"
#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/display/curves.h"
#include "embedded/drafting/display/display_list.h"
#include "embedded/drafting/display/hatching.h"
#include "embedded/drafting/display/mtext_layout.h"
#include "embedded/drafting/display/splines.h"
#include "embedded/drafting/display/style_fonts.h"
#include "embedded/drafting/display/text_layout.h"

namespace drafting {
namespace {

constexpr int kDeepestNesting = 32;
constexpr std::int16_t kForeground = 7;
constexpr int kDefaultLineweight = 25;
constexpr int kByLayerWeight = -1, kByBlockWeight = -2;
using base::kFullTurn;

// What a block's content takes from the INSERT that shows it.
struct Surroundings {
  Affine2 map;
  Handle layer = 0;  // for entities of layer 0; 0 outside of blocks
  std::int16_t colour = kForeground;
  std::int16_t lineweight = kDefaultLineweight;
  Handle linetype = kContinuous;
  int depth = 0;
};

// From object coordinates at a height to the drawing, seen from above.
Affine2 objectPlane(const Point3& normal, double elevation) {
  return seenFromAbove(objectAxes(normal), elevation);
}

// Whether one can reckon on with the point. Damaged drawings have coordinates of any size.
bool finite(Point2 p) {
  constexpr double kFarthest = 1e50;
  return std::abs(p.x) < kFarthest && std::abs(p.y) < kFarthest;
}

}  // namespace

class ListBuilder {
 public:
  ListBuilder(const Database& database, const DisplayOptions& options)
      : database_(database), options_(options), stepsLeft_(options.limit) {
    layerZero_ = database.findRecord(Table::Layers, "0");
    linetypeScale_ = database.header.real("LTSCALE");
  }

  DisplayList run() {
    for (const Entity* entity = database_.modelSpace().first; entity && step();
         entity = entity->next) {
      list_.chunks_.push_back({entity->handle, 0, 0, {}});
      showChunk(list_.chunks_.back(), *entity);
    }
    return std::move(list_);
  }
  DisplayList run(const Entity& entity) {
    runOne(entity);
    return std::move(list_);
  }

  // Adds to a list that was made before.
  void showAgain(DisplayList& list, DisplayList::Chunk& chunk, const Entity& entity) {
    std::swap(list_, list);
    showChunk(chunk, entity);
    std::swap(list_, list);
  }

  const DisplayList& runOne(const Entity& entity) {
    list_.clear();
    stepsLeft_ = options_.limit;
    DisplayList::Chunk chunk;
    showChunk(chunk, entity);
    return list_;
  }

 private:
  void showChunk(DisplayList::Chunk& chunk, const Entity& entity) {
    chunk.first = static_cast<std::uint32_t>(list_.items_.size());
    box_ = {};
    showEntity(entity, {});
    chunk.count = static_cast<std::uint32_t>(list_.items_.size()) - chunk.first;
    chunk.box = box_;
    list_.bounds_.add(box_);
  }

  // --- what holds for all entities

  struct Look {
    Affine2 map;
    std::int16_t colour, lineweight;
    Handle linetype;
  };

  // Each entity looked at and each point costs a step, so that a few bytes of nested arrays can't
  // take all memory and time.
  bool step(std::size_t cost = 1) {
    if (stepsLeft_ >= cost) {
      stepsLeft_ -= cost;
      return true;
    }
    list_.cut_ = true;
    stepsLeft_ = 0;
    return false;
  }

  Handle layerOf(const Entity& entity, const Surroundings& around) const {
    return around.layer != 0 && entity.layer == layerZero_ ? around.layer : entity.layer;
  }

  // An INSERT on a layer that is off still shows its content on other layers; on a frozen one not.
  bool hidden(const Layer* layer, bool insert) const {
    if (!layer) return false;
    if (layer->frozen) return true;
    return !insert && (layer->off || (options_.forPlot && !layer->plotted));
  }

  static std::int16_t colourOf(const Entity& entity, const Layer* layer,
                               const Surroundings& around) {
    if (entity.colour == kColourByBlock) return around.colour;
    if (entity.colour != kColourByLayer) return entity.colour;
    return layer ? layer->colour : kForeground;
  }

  static std::int16_t lineweightOf(const Entity& entity, const Layer* layer,
                                   const Surroundings& around) {
    int weight = lineweightOfIndex(entity.lineweight);
    if (weight == kByBlockWeight) return around.lineweight;
    if (weight == kByLayerWeight && layer) weight = lineweightOfIndex(layer->lineweight);
    return static_cast<std::int16_t>(weight >= 0 ? weight : kDefaultLineweight);
  }

  Handle linetypeOf(const Entity& entity, const Layer* layer, const Surroundings& around) const {
    const auto isRecord = [&](Handle linetype, const char* variable) {
      return linetype != kByLayer && linetype == database_.header.handle(variable);
    };
    Handle linetype = entity.linetype;
    if (linetype == kByLayer || isRecord(linetype, "LTYPE_BYLAYER")) {
      linetype = layer ? layer->linetype : kContinuous;
    }
    const bool byBlock = linetype == kByBlock || isRecord(linetype, "LTYPE_BYBLOCK");
    return byBlock ? around.linetype : linetype;
  }

  // Dashes are counted in the entity's own coordinates, so that a block's grow with it.
  void choosePattern(const Entity& entity) {
    pattern_.clear();
    if (look_.linetype == kContinuous || look_.linetype == kByLayer) return;
    const auto* linetype = database_.find<Linetype>(look_.linetype);
    if (!linetype || linetype->dashes.empty()) return;
    const double own = entity.linetypeScale > 0 ? entity.linetypeScale : 1;
    pattern_.set(*linetype, own * (linetypeScale_ > 0 ? linetypeScale_ : 1));
  }

  void showBlock(const BlockRecord& block, const Surroundings& around) {
    for (const Entity* entity = block.first; entity; entity = entity->next) {
      if (!step()) return;
      showEntity(*entity, around);
    }
  }

  void showEntity(const Entity& entity, const Surroundings& around) {
    const auto* layer = database_.find<Layer>(layerOf(entity, around));
    const bool insert = entity.kind == Kind::Insert;
    if (entity.invisible || hidden(layer, insert)) return;
    look_ = {around.map, colourOf(entity, layer, around), lineweightOf(entity, layer, around),
             linetypeOf(entity, layer, around)};
    choosePattern(entity);
    if (insert) {
      showInsert(static_cast<const Insert&>(entity), around);
    } else if (const BlockRecord* picture = pictureOf(entity)) {
      if (around.depth < kDeepestNesting) showBlock(*picture, inside(entity, around));
    } else if (entity.kind != Kind::Attdef || around.depth == 0) {
      visit(entity, [this](const auto& one) { show(one); });
    } else if (static_cast<const Attdef&>(entity).flags & kAttributeConstant) {
      showText(static_cast<const Attdef&>(entity), static_cast<const Attdef&>(entity).text);
    }
  }

  // --- output, in coordinates of the entity's block

  double tolerance() const {
    const double scale = look_.map.scale();
    return options_.tolerance > 0 && scale > 0 ? options_.tolerance / scale : 0;
  }

  void put(DisplayList::Kind kind, const Affine2& map, std::span<const Point2> path) {
    const auto first = list_.points_.size();
    if (path.empty() || !step(path.size())) return;
    for (const Point2 point : path) {
      const Point2 mapped = map(point);
      if (!finite(mapped)) return list_.points_.resize(first);
      list_.points_.push_back(mapped);
    }
    for (auto i = first; i < list_.points_.size(); ++i) box_.add(list_.points_[i]);
    list_.items_.push_back({kind, look_.colour, look_.lineweight, static_cast<std::uint32_t>(first),
                            static_cast<std::uint32_t>(path.size())});
  }

  void stroke(std::span<const Point2> path, const Point3& normal = kZAxis, double elevation = 0) {
    strokeIn(look_.map * objectPlane(normal, elevation), path);
  }

  // With the dashes of the entity's linetype.
  void strokeIn(const Affine2& map, std::span<const Point2> path) {
    if (pattern_.isContinuous()) return put(DisplayList::Kind::Stroke, map, path);
    std::vector<Station> way;
    for (const Point2 point : path) way.push_back({point, 0});
    Path dash;
    cutIntoDashes(way, pattern_, [&](std::span<const Station> stations) {
      dash.clear();
      for (const Station& station : stations) dash.push_back(station.point);
      put(DisplayList::Kind::Stroke, map, dash);
    });
  }

  void area(std::span<const Point2> path, const Point3& normal, double elevation) {
    put(DisplayList::Kind::Area, look_.map * objectPlane(normal, elevation), path);
  }

  void putLine(const TextLine& line, const Affine2& place) {
    for (const auto& path : line.strokes) put(DisplayList::Kind::Stroke, place, path);
    const double size = place.scale();
    if (line.plain.empty() || !finite(place({0, 0})) || !(size > 0) || !std::isfinite(size)) return;
    list_.items_.push_back({DisplayList::Kind::Label, look_.colour, look_.lineweight,
                            static_cast<std::uint32_t>(list_.labels_.size()), 0});
    list_.labels_.push_back({line.plain, place, line.advance});
  }

  // --- texts

  const TextFont& fontOf(Handle style) {
    if (options_.font) return *options_.font;
    const auto found = fonts_.find(style);
    return found != fonts_.end() ? found->second
                                 : fonts_.emplace(style, findFont(style)).first->second;
  }

  TextFont findFont(Handle handle) {
    std::vector<std::string> notes;
    TextFont font = fontOfStyle(database_, handle, source(), &notes);
    list_.fontNotes_.insert(notes.begin(), notes.end());
    return font;
  }
  FontSource source() const {
    return {options_.fonts ? *options_.fonts : FontLibrary::shared(), options_.drawingFolder};
  }

  // A step of a font's shape is far cheaper than an entity.
  bool payFor(const TextLine& line) {
    constexpr std::size_t kShapeStepsToOne = 16;
    return step(line.steps / kShapeStepsToOne);
  }

  void showText(const TextBase& text, std::string_view content) {
    const double height = std::abs(text.height);
    const TextLine line =
        layOutLine(content, fontOf(text.style), height > 0 ? tolerance() / height : 0);
    if (!payFor(line)) return;
    putLine(line,
            look_.map * objectPlane(text.normal, text.elevation) * placeOfText(text, line.advance));
  }

  // --- the kinds

  void show(const Line& line) { stroke(std::array{flat(line.start), flat(line.end)}); }

  void show(const Point& point) { stroke(std::array{flat(point.position)}); }

  void show(const Circle& circle) {
    stroke(arcPath(flat(circle.centre), circle.radius, 0, kFullTurn, tolerance()), circle.normal,
           circle.centre.z);
  }

  void show(const Arc& arc) {
    stroke(arcPath(flat(arc.centre), arc.radius, arc.startAngle,
                   sweepOf(arc.startAngle, arc.endAngle), tolerance()),
           arc.normal, arc.centre.z);
  }

  // A circle of radius 1, brought to the axes.
  void show(const Ellipse& ellipse) {
    const Point3 &major = ellipse.majorAxis, &n = ellipse.normal;
    const Point2 minor{(n.y * major.z - n.z * major.y) * ellipse.ratio,
                       (n.z * major.x - n.x * major.z) * ellipse.ratio};
    const Affine2 axes{major.x, major.y, minor.x, minor.y, ellipse.centre.x, ellipse.centre.y};
    const double size = length(flat(major));
    const Path path =
        arcPath({}, 1, ellipse.startAngle, sweepOf(ellipse.startAngle, ellipse.endAngle),
                size > 0 ? tolerance() / size : 0);
    strokeAlong(axes, path);
  }

  // The path is one of the unit circle: its dashes are counted where it is drawn.
  void strokeAlong(const Affine2& axes, Path path) {
    for (Point2& point : path) point = axes(point);
    strokeIn(look_.map, path);
  }

  void show(const Spline& spline) { stroke(splinePath(spline)); }

  void show(const Solid& solid) {
    const auto& c = solid.corners;
    area(std::array{c[0], c[1], c[3], c[2]}, solid.normal, solid.elevation);
  }

  void show(const LwPolyline& polyline) {
    showShapes(polyline, polyline.normal, polyline.elevation);
  }

  void showShapes(const LwPolyline& polyline, const Point3& normal, double elevation) {
    const Affine2 map = look_.map * objectPlane(normal, elevation);
    for (const PolylineShape& shape : shapesOf(polyline, tolerance(), pattern_)) {
      put(shape.wide ? DisplayList::Kind::Area : DisplayList::Kind::Stroke, map, shape.path);
    }
  }

  void show(const Polyline& polyline) {
    if (!step(polyline.vertices.size())) return;
    if (polyline.form == Polyline::Form::Flat) {
      return showShapes(flatPolyline(database_, polyline), polyline.normal, polyline.elevation);
    }
    for (const Path& path : spacePaths(database_, polyline)) stroke(path);
  }

  // Lines that stand too close to be told apart are shown as a filled area.
  void show(const Hatch& hatch) {
    const std::vector<HatchLoop> loops = loopsOf(hatch, tolerance());
    if (hatch.solid || !showPattern(hatch, loops)) {
      area(filledOutline(loops), hatch.normal, hatch.elevation);
    }
  }

  bool showPattern(const Hatch& hatch, const std::vector<HatchLoop>& loops) {
    const Affine2 map = look_.map * objectPlane(hatch.normal, hatch.elevation);
    return drawPattern(hatch, loops, [&](Point2 from, Point2 to) {
      const std::array ends{from, to};
      put(DisplayList::Kind::Stroke, map, std::span(ends).first(from == to ? 1 : 2));
      return stepsLeft_ > 0;
    });
  }

  void show(const Text& text) { showText(text, text.text); }
  void show(const Attrib& attrib) {
    if (!(attrib.flags & kAttributeInvisible)) showText(attrib, attrib.text);
  }
  // Outside of a block a definition shows its tag.
  void show(const Attdef& definition) { showText(definition, definition.tag); }

  void show(const MText& text) {
    ParagraphStyle style = paragraphStyle(database_, text.style, fontOf(text.style), source());
    style.tolerance = tolerance();
    if (options_.font) style.fontNamed = nullptr;
    for (const PlacedLine& placed : layOutParagraph(text, style)) {
      if (!payFor(placed.line)) return;
      const std::int16_t own = look_.colour;
      if (placed.colour > 0) look_.colour = placed.colour;
      putLine(placed.line, look_.map * placed.place);
      look_.colour = own;
    }
  }

  void show(const RawEntity& entity) { leaveOut(entity); }
  void show(const GroupEntity& entity) { leaveOut(entity); }
  void leaveOut(const Entity& entity) {
    ++list_.notShown_[std::string(typeName(database_, entity))];
  }

  void show(const Object&) {}  // heads and ends of blocks and sequences

  // What the content of a block takes from the entity that shows it.
  Surroundings inside(const Entity& entity, const Surroundings& around) const {
    return {around.map,       layerOf(entity, around), look_.colour,
            look_.lineweight, look_.linetype,          around.depth + 1};
  }

  // A dimension's picture is a nameless block that stands where it was drawn.
  const BlockRecord* pictureOf(const Entity& entity) const {
    constexpr std::uint16_t kFirst = 0x14, kLast = 0x1A;
    if (entity.kind == Kind::GroupEntity) return pictureOf(static_cast<const GroupEntity&>(entity));
    if (entity.kind != Kind::RawEntity) return nullptr;
    const auto& raw = static_cast<const RawEntity&>(entity);
    if (raw.type < kFirst || raw.type > kLast) return nullptr;
    for (const Reference& reference : raw.references) {
      const auto* block = database_.find<BlockRecord>(reference.target);
      if (block && !block->isSpace() && block->name.starts_with('*')) return block;
    }
    return nullptr;
  }
  const BlockRecord* pictureOf(const GroupEntity& entity) const {
    if (entity.name != "DIMENSION") return nullptr;
    const Handle block = database_.findRecord(Table::Blocks, packedValue(entity.groups, 2));
    const auto* found = database_.find<BlockRecord>(block);
    return found && !found->isSpace() ? found : nullptr;
  }

  void showInsert(const Insert& insert, const Surroundings& around) {
    const auto* layer = database_.find<Layer>(layerOf(insert, around));
    const auto* block = database_.find<BlockRecord>(insert.block);
    if (block && !block->isSpace() && around.depth < kDeepestNesting) {
      showCells(insert, *block, inside(insert, around));
    }
    if (layer && layer->off) return;
    for (const Handle handle : insert.attributes) {
      const auto* attribute = database_.find<Attrib>(handle);
      if (attribute && step()) showEntity(*attribute, around);
    }
  }

  void showCells(const Insert& insert, const BlockRecord& block, Surroundings inside) {
    const Affine2 place = inside.map * objectPlane(insert.normal, insert.position.z) *
                          Affine2::translation(flat(insert.position)) *
                          Affine2::rotation(insert.rotation);
    const Affine2 content = Affine2::scaling(insert.scale.x, insert.scale.y) *
                            Affine2::translation({-block.base.x, -block.base.y});
    const int columns = insert.isArray ? std::max<int>(insert.columns, 1) : 1;
    const int rows = insert.isArray ? std::max<int>(insert.rows, 1) : 1;
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < columns; ++column) {
        if (!step()) return;
        inside.map =
            place * Affine2::translation({column * insert.columnSpacing, row * insert.rowSpacing}) *
            content;
        showBlock(block, inside);
      }
    }
  }

  const Database& database_;
  const DisplayOptions& options_;
  std::size_t stepsLeft_;
  Handle layerZero_ = 0;
  std::map<Handle, TextFont> fonts_;  // of text styles
  double linetypeScale_ = 1;
  Look look_{};
  DashPattern pattern_;  // of the entity being shown
  Box2 box_;             // of the chunk being shown
  DisplayList list_;
};

std::uint32_t DisplayList::addChunk(Handle entity) {
  chunks_.push_back({entity, 0, 0, {}});
  return static_cast<std::uint32_t>(chunks_.size() - 1);
}

void DisplayList::clearChunk(std::uint32_t chunk) {
  chunks_[chunk] = {chunks_[chunk].entity, 0, 0, {}};
}

void DisplayList::showAgain(std::uint32_t chunk, const Database& database, const Entity& entity,
                            const DisplayOptions& options) {
  Chunk shown = chunks_[chunk];
  ListBuilder(database, options).showAgain(*this, shown, entity);
  chunks_[chunk] = shown;
}

void DisplayList::clear() {
  items_.clear();
  points_.clear();
  labels_.clear();
  chunks_.clear();
  bounds_ = {};
  notShown_.clear();
  cut_ = false;
}

EntityPictures::EntityPictures(const Database& database, const DisplayOptions& options)
    : options_(options), builder_(std::make_unique<ListBuilder>(database, options_)) {}
EntityPictures::~EntityPictures() = default;

const DisplayList& EntityPictures::of(const Entity& entity) { return builder_->runOne(entity); }

DisplayList DisplayList::of(const Database& database, const DisplayOptions& options) {
  return ListBuilder(database, options).run();
}

DisplayList DisplayList::of(const Database& database, const Entity& entity,
                            const DisplayOptions& options) {
  return ListBuilder(database, options).run(entity);
}

}  // namespace drafting

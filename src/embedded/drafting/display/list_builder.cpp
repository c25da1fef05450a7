// Builds the display list: walks model space and, through INSERTs, the blocks; resolves colours,
// lineweights and visibility on the way down; maps everything to the plane of the drawing.
#include <array>
#include <cmath>

#include "embedded/drafting/database/type_names.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/display/curves.h"
#include "embedded/drafting/display/display_list.h"
#include "embedded/drafting/display/mtext_layout.h"
#include "embedded/drafting/display/text_layout.h"

namespace drafting {
namespace {

constexpr int kDeepestNesting = 32;
constexpr std::int16_t kForeground = 7;
constexpr int kDefaultLineweight = 25;
constexpr int kByLayerWeight = -1, kByBlockWeight = -2;
constexpr double kFullTurn = 2 * base::kPi;

// What a block's content takes from the INSERT that shows it.
struct Surroundings {
  Affine2 map;
  Handle layer = 0;  // for entities of layer 0; 0 outside of blocks
  std::int16_t colour = kForeground;
  std::int16_t lineweight = kDefaultLineweight;
  int depth = 0;
};

Point2 flat(const Point3& p) { return {p.x, p.y}; }

// From object coordinates at a height to the drawing, seen from above.
Affine2 objectPlane(const Point3& normal, double elevation) {
  const double size = std::hypot(normal.x, normal.y, normal.z);
  if (!(size > 0) || (normal.x == 0 && normal.y == 0 && normal.z > 0)) return {};
  const Point3 n = normal * (1 / size);
  constexpr double kNearZ = 1.0 / 64;
  const auto cross = [](const Point3& a, const Point3& b) {
    return Point3{a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
  };
  const bool near = std::abs(n.x) < kNearZ && std::abs(n.y) < kNearZ;
  Point3 x = cross(near ? Point3{0, 1, 0} : Point3{0, 0, 1}, n);
  x = x * (1 / std::hypot(x.x, x.y, x.z));
  const Point3 y = cross(n, x);
  return {x.x, x.y, y.x, y.y, n.x * elevation, n.y * elevation};
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
  }

  DisplayList run() {
    showBlock(database_.modelSpace(), {});
    return std::move(list_);
  }
  DisplayList run(const Entity& entity) {
    showEntity(entity, {});
    return std::move(list_);
  }

  const DisplayList& runOne(const Entity& entity) {
    list_.clear();
    stepsLeft_ = options_.limit;
    showEntity(entity, {});
    return list_;
  }

 private:
  // --- what holds for all entities

  struct Look {
    Affine2 map;
    std::int16_t colour, lineweight;
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
    look_ = {around.map, colourOf(entity, layer, around), lineweightOf(entity, layer, around)};
    if (insert) {
      showInsert(static_cast<const Insert&>(entity), around);
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
    for (auto i = first; i < list_.points_.size(); ++i) list_.bounds_.add(list_.points_[i]);
    list_.items_.push_back({kind, look_.colour, look_.lineweight, static_cast<std::uint32_t>(first),
                            static_cast<std::uint32_t>(path.size())});
  }

  void stroke(std::span<const Point2> path, const Point3& normal = kZAxis, double elevation = 0) {
    put(DisplayList::Kind::Stroke, look_.map * objectPlane(normal, elevation), path);
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
    const auto* style = database_.find<TextStyle>(handle);
    if (!style) return {};
    FontLibrary& library = options_.fonts ? *options_.fonts : FontLibrary::shared();
    std::vector<std::string> notes;
    TextFont font = library.find(style->font, style->bigFont, options_.drawingFolder, &notes);
    list_.fontNotes_.insert(notes.begin(), notes.end());
    font.codePage = database_.codePage;
    font.vertical = style->vertical;
    return font;
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
    put(DisplayList::Kind::Stroke, look_.map * axes, path);
  }

  void show(const Solid& solid) {
    const auto& c = solid.corners;
    area(std::array{c[0], c[1], c[3], c[2]}, solid.normal, solid.elevation);
  }

  void show(const LwPolyline& polyline) {
    for (const PolylineShape& shape : shapesOf(polyline, tolerance())) {
      if (shape.wide)
        area(shape.path, polyline.normal, polyline.elevation);
      else
        stroke(shape.path, polyline.normal, polyline.elevation);
    }
  }

  void show(const Text& text) { showText(text, text.text); }
  void show(const Attrib& attrib) {
    if (!(attrib.flags & kAttributeInvisible)) showText(attrib, attrib.text);
  }
  // Outside of a block a definition shows its tag.
  void show(const Attdef& definition) { showText(definition, definition.tag); }

  void show(const MText& text) {
    ParagraphStyle style;
    style.font = fontOf(text.style);
    style.tolerance = tolerance();
    if (const auto* record = database_.find<TextStyle>(text.style)) {
      if (record->widthFactor > 0) style.widthFactor = record->widthFactor;
      style.oblique = record->oblique;
    }
    for (const PlacedLine& placed : layOutParagraph(text, style)) {
      if (!payFor(placed.line)) return;
      putLine(placed.line, look_.map * placed.place);
    }
  }

  void show(const RawEntity& entity) {
    ++list_.notShown_[std::string(typeName(database_, entity))];
  }

  void show(const Object&) {}  // heads and ends of blocks and sequences

  void showInsert(const Insert& insert, const Surroundings& around) {
    const Look look = look_;
    const auto* layer = database_.find<Layer>(layerOf(insert, around));
    const auto* block = database_.find<BlockRecord>(insert.block);
    if (block && !block->isSpace() && around.depth < kDeepestNesting) {
      showCells(
          insert, *block,
          {around.map, layerOf(insert, around), look.colour, look.lineweight, around.depth + 1});
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
  Look look_{};
  DisplayList list_;
};

void DisplayList::clear() {
  items_.clear();
  points_.clear();
  labels_.clear();
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

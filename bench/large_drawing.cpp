#include "large_drawing.h"

#include "embedded/drafting/database/xdata.h"

namespace bench {
namespace {

using namespace drafting;

class Maker {
 public:
  explicit Maker(Database& db) : db_(db), app_(db.registerApp("TKSY")) {}

  void fill() {
    for (int i = 0; i < 10; ++i) addLayer("LAYER-" + std::to_string(i));
    for (int i = 0; i < 20; ++i) addBlock("SYMBOL-" + std::to_string(i));
    for (int i = 0; i < kInserts; ++i) addInsert(i);
    for (int i = 0; i < kPolylines; ++i) addPolyline(i);
    for (int i = 0; i < kTexts; ++i) addText(i);
  }

 private:
  void addLayer(std::string name) {
    auto layer = std::make_unique<Layer>();
    layer->name = std::move(name);
    layer->linetype = db_.findRecord(Table::Linetypes, "Continuous");
    layers_.push_back(db_.addRecord(Table::Layers, std::move(layer)));
  }
  void addBlock(std::string name) {
    auto record = std::make_unique<BlockRecord>();
    record->name = std::move(name);
    const Handle block = db_.addBlock(std::move(record));
    auto line = std::make_unique<Line>();
    line->layer = layers_[0];
    line->end = {10, 5, 0};
    db_.append(*db_.find<BlockRecord>(block), std::move(line));
    blocks_.push_back(block);
  }
  Point2 place(int i) const { return {i % 500 * 12.125 + 0.1, i / 500 * 8.75 + 0.3}; }
  void append(std::unique_ptr<Entity> entity, int i) {
    entity->layer = layers_[static_cast<std::size_t>(i) % layers_.size()];
    entity->xdata = {{app_, *encodeXData({{1000, "XHGG"}, {1070, i % 1000}}, db_.codePage)}};
    db_.append(db_.modelSpace(), std::move(entity));
  }
  void addInsert(int i) {
    auto insert = std::make_unique<Insert>();
    const Point2 at = place(i);
    insert->position = {at.x, at.y, 0};
    insert->block = blocks_[static_cast<std::size_t>(i) % blocks_.size()];
    insert->rotation = i % 4 * 1.5707963267948966;
    append(std::move(insert), i);
  }
  void addPolyline(int i) {
    auto line = std::make_unique<LwPolyline>();
    const Point2 at = place(i);
    line->points = {at, {at.x + 10.3, at.y}, {at.x + 10.3, at.y + 5.7}, {at.x, at.y + 5.7}};
    line->constantWidth = 0.35;
    append(std::move(line), i);
  }
  void addText(int i) {
    auto text = std::make_unique<Text>();
    text->position = place(i);
    text->height = 3.5;
    text->style = db_.header.handle("TEXTSTYLE");
    text->text = (i % 2 == 0 ? "断路器 QF" : "CABLE ") + std::to_string(i);
    append(std::move(text), i);
  }

  Database& db_;
  Handle app_;
  std::vector<Handle> layers_, blocks_;
};

}  // namespace

std::unique_ptr<Database> makeLargeDrawing() {
  auto database = Database::makeNew();
  database->journal().setRecording(false);
  Maker(*database).fill();
  return database;
}

}  // namespace bench

// A drawing with short verbs, and what its picture consists of.
#pragma once

#include <gtest/gtest.h>

#include "embedded/drafting/display/display_list.h"

namespace drafting {

class PictureTest : public ::testing::Test {
 protected:
  template <class T>
  T& add(BlockRecord& block, T entity, Handle layer = 0) {
    auto owned = std::make_unique<T>(entity);
    owned->layer = layer ? layer : zero();
    return *db->find<T>(db->append(block, std::move(owned)));
  }
  template <class T>
  T& add(T entity) {
    return add(db->modelSpace(), entity);
  }

  static Line line(double x1, double y1, double x2, double y2) {
    Line line;
    line.start = {x1, y1, 0};
    line.end = {x2, y2, 0};
    return line;
  }
  static LwPolyline polyline(std::vector<Point2> points, double width = 0) {
    LwPolyline polyline;
    polyline.points = std::move(points);
    polyline.constantWidth = width;
    return polyline;
  }
  static Text text(const std::string& content, double height = 2.5) {
    Text text;
    text.text = content;
    text.height = height;
    return text;
  }
  Insert insertOf(const BlockRecord& block, Point2 at) {
    Insert insert;
    insert.block = block.handle;
    insert.position = {at.x, at.y, 0};
    return insert;
  }
  BlockRecord& block(const std::string& name) {
    auto record = std::make_unique<BlockRecord>();
    record->name = name;
    return *db->find<BlockRecord>(db->addBlock(std::move(record)));
  }
  Layer& layer(const std::string& name, std::int16_t colour) {
    auto record = std::make_unique<Layer>();
    record->name = name;
    record->colour = colour;
    return *db->find<Layer>(db->addRecord(Table::Layers, std::move(record)));
  }
  Handle zero() const { return db->findRecord(Table::Layers, "0"); }

  DisplayList shown() const { return DisplayList::of(*db, options); }
  std::vector<int> colours() const {
    std::vector<int> out;
    const DisplayList list = shown();
    for (const auto& item : list.items()) out.push_back(item.colour);
    return out;
  }
  // The points of the n-th item.
  std::vector<Point2> points(std::size_t item = 0) const {
    const DisplayList list = shown();
    if (item >= list.items().size()) return {};
    const auto found = list.points(list.items()[item]);
    return {found.begin(), found.end()};
  }

  DisplayOptions options;
  std::unique_ptr<Database> db = Database::makeNew();
};

inline void expectNear(Point2 got, Point2 wanted, double tolerance = 1e-9) {
  EXPECT_NEAR(got.x, wanted.x, tolerance);
  EXPECT_NEAR(got.y, wanted.y, tolerance);
}

inline void expectBox(const Box2& box, Point2 min, Point2 max, double tolerance = 1e-9) {
  expectNear(box.min, min, tolerance);
  expectNear(box.max, max, tolerance);
}

}  // namespace drafting

// Walker that writes the fields of an object as DXF groups (fields.h lists the operations). Common
// data, extended data and the sections of the file are the writer's (dxf_writer.cpp).
#pragma once

#include <array>
#include <functional>

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/database/fields.h"
#include "embedded/drafting/dxf/group_sink.h"

namespace drafting {

class GroupWriter {
 public:
  static constexpr bool kReads = false;

  // `isThere` tells whether the file will hold an object.
  GroupWriter(const Database& db, GroupSink& sink, std::function<bool(Handle)> isThere)
      : isThere(std::move(isThere)), db_(db), sink_(sink) {}

  const std::function<bool(Handle)> isThere;

  // Name of a record, as quick as neighbours ask for the same one.
  std::string_view nameOf(Handle record);

  void subclass(const char* name);
  void real(const char*, int group, double value) {
    if (group != 0) sink_.real(group, value);
  }
  void angle(const char*, int group, double value) { sink_.angle(group, value); }
  void integer(const char*, int group, std::int16_t value) {
    if (group != 0) sink_.integer(group, value);
  }
  void byte(const char*, int group, std::uint8_t value) { integer("", group, value); }
  void bit(const char*, int group, bool value) { integer("", group, value ? 1 : 0); }
  void colour(const char*, int group, std::int16_t value) {
    sink_.integer(group, isOff_ ? -value : value);
  }
  void text(const char*, int group, std::string_view value) {
    if (group != 0) sink_.text(group, value);
  }
  void longText(const char*, int group, std::string_view value);
  void point(const char*, int group, const Point3& value) { sink_.point(group, value); }
  void flat(const char*, int group, const Point2& value) { sink_.flat(group, value); }
  void thickness(int group, double value) { unless(0, group, value); }
  void extrusion(int group, const Point3& value) {
    if (!(value == kZAxis)) sink_.point(group, value);
  }
  void normal(int group, const Point3& value) { extrusion(group, value); }
  void handle(const char*, int group, std::uint8_t code, Handle value);

  void recordFlags(const Record& record);
  void lineEnds(const Line& line);
  void spline(const Spline& spline);
  void solidCorners(const Solid& solid);
  void lwPolyline(const LwPolyline& line);
  void planeElevation(int group, double value) { sink_.point(group, {0, 0, value}); }
  void hatchPaths(const Hatch& hatch);
  void hatchLines(const Hatch& hatch);
  void hatchSeeds(const Hatch& hatch);
  void polyline(const Polyline& polyline);
  void vertex(const Vertex& vertex);
  void textFields(const TextBase& text);
  void verticalAlignment(int group, const TextBase& text) {
    if (text.vertical != 0) sink_.integer(group, text.vertical);
  }
  void insertScale(const Insert& insert);
  void insertTail(const Insert& insert);
  void layerFlags(const Layer& layer);
  void dashes(const Linetype& linetype);
  void dimensionValues(const DimStyle& style);
  void viewWidth(const Viewport& view);
  void viewMode(const Viewport& view) { sink_.integer(71, view.viewMode); }
  void viewFollows(const Viewport&) {}
  void viewIcon(const Viewport& view) { sink_.integer(74, view.icon); }
  void dictionaryItems(const Dictionary& dictionary);

 private:
  void size(int group, std::size_t count);
  void hatchPolyline(const Hatch::Path& path);
  void hatchEdge(const Hatch::Edge& edge);
  void hatchSpline(const Hatch::Edge& edge);
  struct Name {
    Handle record = 0;
    std::string_view name;
  };
  void unless(double usual, int group, double value) {
    if (value != usual) sink_.real(group, value);
  }

  const Database& db_;
  GroupSink& sink_;
  std::array<Name, 64> names_;
  bool isOff_ = false;  // of the layer being written: its colour is negative
};

}  // namespace drafting

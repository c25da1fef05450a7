// Walker that reads the fields of an object from DXF groups: the mirror of GroupWriter. A missing
// group leaves the field as it is; nothing makes it fail.
#pragma once

#include "embedded/drafting/database/fields.h"
#include "embedded/drafting/dxf/dxf_tables.h"
#include "embedded/drafting/dxf/group_section.h"

namespace drafting {

class GroupReader {
 public:
  static constexpr bool kReads = true;

  GroupReader(GroupSection groups, DxfTables& tables, int codePage)
      : groups_(groups), tables_(tables), codePage_(codePage) {}

  void subclass(const char* name);
  void real(const char*, int group, double& value) {
    if (group != 0) value = groups_.real(group, value);
  }
  void angle(const char*, int group, double& value) {
    if (groups_.has(group)) value = base::radians(groups_.real(group, 0));
  }
  void integer(const char*, int group, std::int16_t& value) {
    if (group != 0) value = static_cast<std::int16_t>(groups_.integer(group, value));
  }
  void byte(const char*, int group, std::uint8_t& value) {
    if (group != 0) value = static_cast<std::uint8_t>(groups_.integer(group, value));
  }
  void bit(const char*, int group, bool& value) {
    if (group != 0) value = groups_.integer(group, value ? 1 : 0) != 0;
  }
  void colour(const char*, int group, std::int16_t& value);
  void text(const char*, int group, std::string& value) {
    if (group != 0 && groups_.has(group)) value = groups_.text(group);
  }
  void longText(const char*, int group, std::string& value);
  void point(const char*, int group, Point3& value) { value = groups_.point(group, value); }
  void flat(const char*, int group, Point2& value);
  void thickness(int group, double& value) { value = groups_.real(group, value); }
  void extrusion(int group, Point3& value) { value = groups_.point(group, value); }
  void normal(int group, Point3& value) { value = groups_.point(group, value); }
  void handle(const char*, int group, std::uint8_t, Handle& value);

  void recordFlags(Record& record);
  void lineEnds(Line& line);
  void spline(Spline& spline);
  void solidCorners(Solid& solid);
  void lwPolyline(LwPolyline& line);
  void planeElevation(int group, double& value) { value = groups_.point(group, {}).z; }
  void hatchPaths(Hatch& hatch);
  void hatchLines(Hatch& hatch);
  void hatchSeeds(Hatch& hatch);
  void polyline(Polyline& polyline);
  void vertex(Vertex& vertex);
  void textFields(TextBase& text);
  void verticalAlignment(int group, TextBase& text);
  void insertScale(Insert& insert);
  void insertTail(Insert& insert);
  void layerFlags(Layer& layer);
  void dashes(Linetype& linetype);
  void dimensionValues(DimStyle& style);
  void viewWidth(Viewport& view) { view.width = view.height * groups_.real(41, 1); }
  void viewMode(Viewport& view) { integer("", 71, view.viewMode); }
  void viewFollows(Viewport&) {}
  void viewIcon(Viewport& view) { integer("", 74, view.icon); }
  void dictionaryItems(Dictionary& dictionary);

 private:
  std::int16_t dashText(Linetype& linetype, std::string_view text);

  GroupSection groups_;
  DxfTables& tables_;
  int codePage_;
  std::size_t textEnd_ = 0;  // of the linetype's text area
};

}  // namespace drafting

// Walker that writes the fields of an object as members of a JSON object (database/fields.h lists
// the operations). References are shown by name where they lead to a record, else as handles in
// hexadecimal; angles in degrees.
#pragma once

#include <string>
#include <string_view>

#include "embedded/drafting/database/database.h"

namespace vornik {

std::string hexBytes(std::string_view bytes);

class FieldDump {
 public:
  static constexpr bool kReads = false;

  explicit FieldDump(const drafting::Database& database) : database_(database) {}

  // The members so far, each with a comma in front.
  const std::string& members() const { return out_; }
  void member(std::string_view name, const std::string& json);

  void subclass(const char*) {}
  void real(const char* name, int, double value);
  void angle(const char* name, int, double radians);
  void integer(const char* name, int, std::int16_t value) { number(name, value); }
  void byte(const char* name, int, std::uint8_t value) { number(name, value); }
  void bit(const char* name, int, bool value) { member(name, value ? "true" : "false"); }
  void colour(const char* name, int, std::int16_t value) { number(name, value); }
  void text(const char* name, int, std::string_view value);
  void longText(const char* name, int group, std::string_view value) { text(name, group, value); }
  void blob(const char* name, int, std::string_view value);
  void point(const char* name, int, const drafting::Point3& value);
  void flat(const char* name, int, const drafting::Point2& value);
  void thickness(int, double value) { unlessZero("thickness", value); }
  void extrusion(int, const drafting::Point3& value);
  void normal(int group, const drafting::Point3& value) { extrusion(group, value); }
  void handle(const char* name, int, std::uint8_t, drafting::Handle value);

  void recordFlags(const drafting::Record&) {}
  void lineEnds(const drafting::Line& line);
  void spline(const drafting::Spline& spline);
  void solidCorners(const drafting::Solid& solid);
  void lwPolyline(const drafting::LwPolyline& polyline);
  void packedGroups(std::string_view packed);
  void planeElevation(int, double value) { unlessZero("elevation", value); }
  void hatchPaths(const drafting::Hatch& hatch);
  void hatchLines(const drafting::Hatch& hatch);
  void hatchSeeds(const drafting::Hatch& hatch);
  void polyline(const drafting::Polyline& polyline);
  void vertex(const drafting::Vertex& vertex);
  void textFields(const drafting::TextBase& text);
  void verticalAlignment(int, const drafting::TextBase&) {}
  void insertScale(const drafting::Insert& insert) { point("scale", 0, insert.scale); }
  void insertTail(const drafting::Insert& insert);
  void rawBody(const drafting::RawEntity& entity);
  void rawBody(const drafting::RawObject& object);
  void controlRecords(const drafting::Control& control);
  void blockName(const drafting::BlockRecord& block) { text("name", 2, block.name); }
  void insertCount(const drafting::BlockRecord&) {}
  void blockContent(const drafting::BlockRecord& block);
  void layerFlags(const drafting::Layer& layer);
  void dashes(const drafting::Linetype& linetype);
  void dimensionValues(const drafting::DimStyle& style);
  void viewWidth(const drafting::Viewport& view) { real("width", 0, view.width); }
  void viewMode(const drafting::Viewport& view) { number("viewMode", view.viewMode); }
  void viewFollows(const drafting::Viewport&) {}
  void viewIcon(const drafting::Viewport& view) { number("icon", view.icon); }
  void dictionaryItems(const drafting::Dictionary& dictionary);

 private:
  void unlessZero(const char* name, double value) {
    if (value != 0) real(name, 0, value);
  }
  void number(std::string_view name, int value) { member(name, std::to_string(value)); }
  void raw(const drafting::Bits& bits, const std::vector<drafting::Reference>& references);
  std::string reference(drafting::Handle handle) const;
  std::string variable(const drafting::VariableValue& value) const;

  const drafting::Database& database_;
  std::string out_;
};

// The object's extended data as a JSON object: application -> items.
std::string extendedData(const drafting::Database& database, const drafting::Object& object);

}  // namespace vornik

// Walker that writes the fields of an object as DWG bits: the body into one stream, references into
// another (fields.h lists the operations). Serves files and the journal's images; an image keeps
// texts as UTF-8, counts in 32 bits, and a reference list where a file has chains.
#pragma once

#include <unordered_set>

#include "embedded/drafting/database/fields.h"
#include "embedded/drafting/dwg/bit_writer.h"
#include "embedded/drafting/dwg/text_coding.h"

namespace drafting {

class FieldWriter {
 public:
  static constexpr bool kReads = false;

  BitWriter data, references;
  int codePage = kPlainUtf8;                     // kPlainUtf8: an image is written
  const std::vector<Handle>* inserts = nullptr;  // INSERTs of the block record being written
  // Objects that the file leaves out; null: none. Lists don't name them.
  const std::unordered_set<Handle>* absent = nullptr;
  bool tooLong = false;  // a text or list doesn't fit its count; stays set

  bool isImage() const { return codePage == kPlainUtf8; }
  bool isAbsent(Handle handle) const { return absent && absent->contains(handle); }
  // The nearest of the neighbours in a chain, from `entity` on, that is written.
  const Entity* onwards(const Entity* entity) const {
    while (entity && isAbsent(entity->handle)) entity = entity->next;
    return entity;
  }
  const Entity* backwards(const Entity* entity) const {
    while (entity && isAbsent(entity->handle)) entity = entity->previous;
    return entity;
  }

  void subclass(const char*) {}
  void real(const char*, int, double value) { data.real(value); }
  void angle(const char*, int, double value) { data.real(value); }
  void integer(const char*, int, std::int16_t value) {
    data.shortInteger(static_cast<std::uint16_t>(value));
  }
  void byte(const char*, int, std::uint8_t value) { data.rawByte(value); }
  void bit(const char*, int, bool value) { data.bit(value); }
  void colour(const char*, int, std::int16_t value) { integer("", 0, value); }
  void text(const char*, int, std::string_view value);
  void longText(const char*, int, std::string_view value) { text("", 0, value); }
  void blob(const char*, int, std::string_view value);
  void point(const char*, int, const Point3& value) { data.point(value); }
  void flat(const char*, int, const Point2& value) { data.flat(value); }
  void thickness(int, double value) { data.thickness(value); }
  void extrusion(int, const Point3& value) { data.extrusion(value); }
  void normal(int, const Point3& value) { data.point(value); }
  void handle(const char*, int, std::uint8_t code, Handle value) {
    references.reference(code, value);
  }

  void recordFlags(const Record&) {}
  void lineEnds(const Line& line);
  void spline(const Spline& spline);
  void solidCorners(const Solid& solid);
  void lwPolyline(const LwPolyline& line);
  void packedGroups(std::string_view groups) { blob("", 0, groups); }
  void planeElevation(int, double value) { data.real(value); }
  void hatchPaths(const Hatch& hatch);
  void hatchLines(const Hatch& hatch);
  void hatchSeeds(const Hatch& hatch);
  void polyline(const Polyline& polyline);
  void vertex(const Vertex& vertex);
  void textFields(const TextBase& text);
  void verticalAlignment(int, const TextBase&) {}
  void insertScale(const Insert& insert);
  void insertTail(const Insert& insert);
  void rawBody(const RawEntity& entity);
  void rawBody(const RawObject& object);
  void controlRecords(const Control& control);
  void blockName(const BlockRecord& block);
  void insertCount(const BlockRecord& block);
  void blockContent(const BlockRecord& block);
  void layerFlags(const Layer& layer);
  void dashes(const Linetype& linetype);
  void dimensionValues(const DimStyle& style);
  void viewWidth(const Viewport& view) { data.real(view.width); }
  void viewMode(const Viewport& view);
  void viewFollows(const Viewport& view) { data.bit((view.viewMode & 8) != 0); }
  void viewIcon(const Viewport& view);
  void dictionaryItems(const Dictionary& dictionary);

  // A drawing variable; handles of `values` go where `handles` says.
  void variable(const Variable& variable, const VariableValue& value, BitWriter& handles);
  void count(std::size_t value);  // BS in files, BL in images

 private:
  void referenceList(const std::vector<Reference>& list);
  void members(const std::vector<Handle>& list, Handle seqEnd);
  void listSize(std::size_t size) { data.longInteger(static_cast<std::uint32_t>(size)); }
  void splineFitPoints(const Spline& spline);
  void splineControls(const Spline& spline);
  void hatchPolyline(const Hatch::Path& path);
  void hatchEdge(const Hatch::Edge& edge);
  void hatchSpline(const Hatch::Edge& edge);
};

// Frozen: DWG types of the forms of polylines and of their vertices, in the forms' order.
inline constexpr std::uint16_t kPolylineTypes[] = {0x0F, 0x10, 0x1E, 0x1D};
inline constexpr std::uint16_t kVertexTypes[] = {0x0A, 0x0B, 0x0C, 0x0D, 0x0E};
inline std::uint16_t typeOfForm(Polyline::Form form) {
  return kPolylineTypes[static_cast<std::size_t>(form)];
}
inline std::uint16_t typeOfForm(Vertex::Form form) {
  return kVertexTypes[static_cast<std::size_t>(form)];
}

// Fields that a raw record of these types starts with (VIEW, UCS, viewport header).
inline bool isNamedRaw(std::uint16_t type) { return type == 0x3D || type == 0x3F || type == 0x47; }

}  // namespace drafting

// Walker that reads the fields of an object from DWG bits: the mirror of FieldWriter. What doesn't
// fit (a count beyond the data, an unknown flag, a missing byte) makes ok() false; the object's
// fields are then of no use.
#pragma once

#include "embedded/drafting/database/fields.h"
#include "embedded/drafting/dwg/bit_reader.h"
#include "embedded/drafting/dwg/text_coding.h"

namespace drafting {

// Links that a file states as handles; the loader makes them into chains.
struct ChainLinks {
  Handle previous = 0, next = 0;  // of an entity
  Handle first = 0, last = 0;     // of a block's content, an INSERT's attributes
};

class FieldReader {
 public:
  static constexpr bool kReads = true;

  BitReader data, references;
  int codePage = kPlainUtf8;
  Handle self = 0;         // relative references count from it
  std::uint16_t type = 0;  // as framed
  ChainLinks links;

  bool isImage() const { return codePage == kPlainUtf8; }
  bool ok() const { return data.ok() && references.ok(); }
  void fail() { data.fail(); }
  // True if everything was read and nothing is left but the filling of the last byte.
  bool complete() const { return ok() && data.left() == 0 && references.left() < 8; }

  void subclass(const char*) {}
  void real(const char*, int, double& value) { value = data.real(); }
  void angle(const char*, int, double& value) { value = data.real(); }
  void integer(const char*, int, std::int16_t& value) {
    value = static_cast<std::int16_t>(data.shortInteger());
  }
  void byte(const char*, int, std::uint8_t& value) { value = data.rawByte(); }
  void bit(const char*, int, bool& value) { value = data.bit(); }
  void colour(const char*, int, std::int16_t& value) { integer("", 0, value); }
  void text(const char*, int, std::string& value);
  void longText(const char*, int, std::string& value) { text("", 0, value); }
  void blob(const char*, int, std::string& value) { value = data.bytes(data.longInteger()); }
  void point(const char*, int, Point3& value) { value = data.point(); }
  void flat(const char*, int, Point2& value) { value = data.flat(); }
  void thickness(int, double& value) { value = data.thickness(); }
  void extrusion(int, Point3& value) { value = data.extrusion(); }
  void normal(int, Point3& value) { value = data.point(); }
  void handle(const char*, int, std::uint8_t, Handle& value) { value = reference(); }

  void recordFlags(Record&) {}
  void lineEnds(Line& line);
  void spline(Spline& spline);
  void solidCorners(Solid& solid);
  void lwPolyline(LwPolyline& line);
  void packedGroups(std::string& groups) { blob("", 0, groups); }
  void planeElevation(int, double& value) { value = data.real(); }
  void hatchPaths(Hatch& hatch);
  void hatchLines(Hatch& hatch);
  void hatchSeeds(Hatch& hatch);
  void polyline(Polyline& polyline);
  void vertex(Vertex& vertex);
  void textFields(TextBase& text);
  void verticalAlignment(int, TextBase&) {}
  void insertScale(Insert& insert);
  void insertTail(Insert& insert);
  void rawBody(RawEntity& entity);
  void rawBody(RawObject& object);
  void controlRecords(Control& control);
  void blockName(BlockRecord& block) { text("", 0, block.name); }
  void insertCount(BlockRecord& block);
  void blockContent(BlockRecord& block);
  void layerFlags(Layer& layer);
  void dashes(Linetype& linetype);
  void dimensionValues(DimStyle& style);
  void viewWidth(Viewport& view) { view.width = data.real(); }
  void viewMode(Viewport& view);
  void viewFollows(Viewport& view) { setMode(view, 8, data.bit()); }
  void viewIcon(Viewport& view);
  void dictionaryItems(Dictionary& dictionary);

  void variable(const Variable& variable, VariableValue& value, BitReader& handles);
  std::size_t count() { return isImage() ? data.longInteger() : data.shortInteger(); }
  Handle reference() { return references.reference().resolve(self); }

 private:
  static void setMode(Viewport& view, int mask, bool on) {
    view.viewMode = static_cast<std::int16_t>(on ? view.viewMode | mask : view.viewMode & ~mask);
  }
  void readRest(Bits& body, std::vector<Reference>& list);
  void members(std::vector<Handle>& list, Handle& seqEnd);
  void splineFitPoints(Spline& spline);
  void splineControls(Spline& spline);
  void hatchPolyline(Hatch::Path& path);
  void hatchEdge(Hatch::Edge& edge);
  void hatchSpline(Hatch::Edge& edge);
  // Fills `list` with `n` items that take at least `bits` each; nothing if the data can't hold
  // them.
  template <class T, class F>
  void items(std::vector<T>& list, std::size_t n, std::size_t bits, F read) {
    if (!data.holds(n, bits)) return fail();
    list.clear();
    list.resize(n);
    for (T& item : list) {
      if (!ok()) return;
      read(item);
    }
  }

  std::size_t insertCount_ = 0;
};

}  // namespace drafting

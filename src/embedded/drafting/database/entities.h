// The entities that the database understands. Fields carry the names and meanings of the DXF
// reference; fields.h lists them once for every codec.
#pragma once

#include <array>

#include "embedded/drafting/database/object.h"

namespace drafting {

inline constexpr Point3 kZAxis{0, 0, 1};

struct Line : Entity {
  Line() : Entity(Kind::Line) {}
  Point3 start, end;
  double thickness = 0;
  Point3 normal = kZAxis;
};

struct Point : Entity {
  Point() : Entity(Kind::Point) {}
  Point3 position;
  double thickness = 0;
  Point3 normal = kZAxis;
  double xAxisAngle = 0;
};

struct Circle : Entity {
  Circle() : Entity(Kind::Circle) {}
  Point3 centre;
  double radius = 0;
  double thickness = 0;
  Point3 normal = kZAxis;
};

// Counter-clockwise from startAngle to endAngle.
struct Arc : Entity {
  Arc() : Entity(Kind::Arc) {}
  Point3 centre;
  double radius = 0;
  double thickness = 0;
  Point3 normal = kZAxis;
  double startAngle = 0, endAngle = 0;
};

struct Ellipse : Entity {
  Ellipse() : Entity(Kind::Ellipse) {}
  Point3 centre;
  Point3 majorAxis;  // from the centre to its end
  Point3 normal = kZAxis;
  double ratio = 1;  // minor to major axis
  double startAngle = 0, endAngle = 0;
};

// The corners run zigzag: the outline is 0, 1, 3, 2.
struct Solid : Entity {
  Solid() : Entity(Kind::Solid) {}
  std::array<Point2, 4> corners;
  double elevation = 0;
  double thickness = 0;
  Point3 normal = kZAxis;
};

struct LwPolyline : Entity {
  LwPolyline() : Entity(Kind::LwPolyline) {}
  struct Width {
    double start = 0, end = 0;
  };
  std::vector<Point2> points;
  std::vector<double> bulges;  // empty, or one a point
  std::vector<Width> widths;   // empty, or one a point
  double constantWidth = 0;
  double elevation = 0;
  double thickness = 0;
  Point3 normal = kZAxis;
  bool closed = false;
  bool continuousPattern = false;  // the linetype runs through the vertices
};

// What TEXT, ATTRIB and ATTDEF share. With both alignments 0 only `position` counts; otherwise
// `alignment` is the point that was given and `position` is computed from it.
struct TextBase : Entity {
  Point2 position, alignment;
  double elevation = 0;
  double thickness = 0;
  Point3 normal = kZAxis;
  double oblique = 0;
  double rotation = 0;
  double height = 0;
  double widthFactor = 1;
  std::string text;
  std::int16_t generation = 0;  // 2 backwards, 4 upside down
  std::int16_t horizontal = 0;  // 0 left, 1 centre, 2 right, 3 aligned, 4 middle, 5 fit
  std::int16_t vertical = 0;    // 0 baseline, 1 bottom, 2 middle, 3 top
  Handle style = 0;

 protected:
  using Entity::Entity;
};

struct Text : TextBase {
  Text() : TextBase(Kind::Text) {}
};

inline constexpr std::uint8_t kAttributeInvisible = 1;
inline constexpr std::uint8_t kAttributeConstant = 2;
inline constexpr std::uint8_t kAttributeVerify = 4;
inline constexpr std::uint8_t kAttributePreset = 8;

struct Attrib : TextBase {
  Attrib() : TextBase(Kind::Attrib) {}
  std::string tag;
  std::int16_t fieldLength = 0;
  std::uint8_t flags = 0;

 protected:
  using TextBase::TextBase;
};

// The text is the default value.
struct Attdef : Attrib {
  Attdef() : Attrib(Kind::Attdef) {}
  std::string prompt;
};

struct MText : Entity {
  MText() : Entity(Kind::MText) {}
  Point3 position;
  Point3 normal = kZAxis;
  Point3 xDirection{1, 0, 0};
  double width = 0;
  double height = 0;
  std::int16_t attachment = 1;
  std::int16_t flow = 1;
  double drawnHeight = 0, drawnWidth = 0;
  std::string text;  // with its format codes
  std::int16_t spacingKind = 1;
  double spacingFactor = 1;
  bool unknown = false;
  Handle style = 0;
};

// A block placed in a drawing. Its attributes are entities of their own (Attrib, owner this
// handle), in the order of `attributes` and linked with each other, closed by the SeqEnd.
struct Insert : Entity {
  Insert() : Entity(Kind::Insert) {}
  Point3 position;
  Point3 scale{1, 1, 1};
  double rotation = 0;
  Point3 normal = kZAxis;
  Handle block = 0;  // block record
  std::vector<Handle> attributes;
  Handle seqEnd = 0;
  std::int16_t columns = 1, rows = 1;
  double columnSpacing = 0, rowSpacing = 0;
  bool isArray = false;  // the array form (MINSERT), also with one column and row
};

// Head of a block's content; its name is the full one ("*D3").
struct Block : Entity {
  Block() : Entity(Kind::Block) {}
  std::string name;
};

struct EndBlock : Entity {
  EndBlock() : Entity(Kind::EndBlock) {}
};

struct SeqEnd : Entity {
  SeqEnd() : Entity(Kind::SeqEnd) {}
};

// An entity of another kind: everything behind the common data is kept as it came. Entities that
// it owns (vertices) are linked with each other and stand in no block's chain.
struct RawEntity : Entity {
  RawEntity() : Entity(Kind::RawEntity) {}
  std::uint16_t type = 0;  // DWG type; from 500 on an entry of the drawing's classes
  std::string graphics;    // proxy picture in front of the common data
  bool hasGraphics = false;
  Bits body;
  std::vector<Reference> references;  // behind the common ones
};

}  // namespace drafting

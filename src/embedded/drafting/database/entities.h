// The entities that the database understands. Fields carry the names and meanings of the DXF
// reference; fields.h lists them once for every codec.
#pragma once

#include <algorithm>
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

// A curve that is drawn by its control points, or, where there are none, through its fit points. A
// DXF file can have both; the fit points then only tell how it was made.
struct Spline : Entity {
  Spline() : Entity(Kind::Spline) {}
  std::int32_t degree = 3;
  bool closed = false, periodic = false, rational = false;
  std::int16_t otherFlags = 0;  // 8 planar, 16 straight; of DXF only
  Point3 normal = kZAxis;       // of planar ones; of DXF only
  double knotTolerance = 1e-7, controlTolerance = 1e-7, fitTolerance = 1e-10;
  std::vector<double> knots;
  std::vector<Point3> controls;
  std::vector<double> weights;      // empty, or one a control point
  Point3 startTangent, endTangent;  // of fit points; 0 where the curve is free
  std::vector<Point3> fitPoints;
};

// The corners run zigzag: the outline is 0, 1, 3, 2.
struct Solid : Entity {
  Solid() : Entity(Kind::Solid) {}
  std::array<Point2, 4> corners;
  double elevation = 0;
  double thickness = 0;
  Point3 normal = kZAxis;

 protected:
  using Entity::Entity;
};

// A solid by another command: a line with width.
struct Trace : Solid {
  Trace() : Solid(Kind::Trace) {}
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

// A filled or hatched area of its plane. Its boundary is a set of paths; what lies inside of how
// many of them is hatched goes by `style`.
struct Hatch : Entity {
  Hatch() : Entity(Kind::Hatch) {}

  struct Edge {
    enum class Form : std::uint8_t { Line = 1, Arc = 2, Ellipse = 3, Spline = 4 };
    Form form = Form::Line;
    Point2 first;     // start of a line; centre of an arc or ellipse
    Point2 second;    // end of a line; end of an ellipse's major axis, from its centre
    double size = 0;  // radius of an arc, ratio of an ellipse
    // Of arcs and ellipses. Those that run clockwise have their angles counted clockwise too.
    double startAngle = 0, endAngle = 0;
    bool counterClockwise = true;
    std::int32_t degree = 0;  // from here on of splines
    bool rational = false, periodic = false;
    std::vector<double> knots;
    std::vector<Point2> controls;
    std::vector<double> weights;  // one a control point of a rational spline, else empty
  };
  struct Path {
    std::uint32_t flags = 0;  // 1 external, 2 polyline, 4 derived, 8 text box, 16 outermost
    bool closed = true;       // of a polyline
    std::vector<Point2> points;
    std::vector<double> bulges;   // empty, or one a point
    std::vector<Edge> edges;      // of a path that is no polyline
    std::vector<Handle> sources;  // entities that it was made from
    bool isPolyline() const { return (flags & 2) != 0; }
    bool isDerived() const { return (flags & 4) != 0; }
  };
  struct PatternLine {
    double angle = 0;
    Point2 base, offset;  // of the first line; to the next one
    std::vector<double> dashes;
  };

  std::string pattern;
  double elevation = 0;
  Point3 normal = kZAxis;
  bool solid = false, associative = false;
  std::vector<Path> paths;
  std::int16_t style = 0;  // 0 every other area from outside, 1 the outermost, 2 all of it
  std::int16_t patternKind = 1;
  double angle = 0, scale = 1;  // with which the pattern's lines were made; they have both in them
  bool isDouble = false;
  std::vector<PatternLine> lines;
  double pixelSize = 0;
  std::vector<Point2> seeds;

  bool hasDerivedPath() const {
    return std::any_of(paths.begin(), paths.end(),
                       [](const Path& path) { return path.isDerived(); });
  }
};

// A polyline of the old form. Its vertices are entities of their own (Vertex, owner this handle),
// in the order of `vertices` and linked with each other, closed by the SeqEnd.
struct Polyline : Entity {
  Polyline() : Entity(Kind::Polyline) {}
  enum class Form : std::uint8_t { Flat, Space, Mesh, Polyface };
  Form form = Form::Flat;
  // 1 closed, 2 curve fit, 4 spline fit, 16 mesh, 32 mesh closed in its second direction, 64
  // polyface, 128 the linetype runs through the vertices. In space only bit 1 counts.
  std::int16_t flags = 0;
  std::int16_t curve = 0;  // the spline: 5 and 6 flat, 5, 6 and 8 of meshes, 1 and 2 in space
  double startWidth = 0, endWidth = 0;  // this and the rest of the line: flat ones
  double thickness = 0;
  double elevation = 0;
  Point3 normal = kZAxis;
  // Of meshes rows, columns and the same for the smoothed surface; of polyfaces vertices and faces.
  std::array<std::int16_t, 4> counts{};
  std::vector<Handle> vertices;
  Handle seqEnd = 0;
};

struct Vertex : Entity {
  Vertex() : Entity(Kind::Vertex) {}
  // Faces of polyfaces come behind their corners and have numbers of four of them.
  enum class Form : std::uint8_t { Flat, Space, Mesh, Polyface, Face };
  Form form = Form::Flat;
  // 1 made by curve fitting, 2 has a tangent, 8 made by spline fitting, 16 of the spline's frame,
  // 32 of a line in space, 64 of a mesh, 128 of a polyface.
  std::uint8_t flags = 0;
  Point3 position;  // of flat ones in the plane of their polyline
  double startWidth = 0, endWidth = 0, bulge = 0, tangent = 0;  // of flat ones
  std::array<std::int16_t, 4> corners{};  // of faces, from 1; negative: the edge behind is hidden
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

// What an entity owns that stands in no block: attributes of an INSERT, vertices of a POLYLINE.
struct Members {
  std::vector<Handle>* list = nullptr;  // null for kinds that own nothing
  Handle* seqEnd = nullptr;
};
inline Members membersOf(Object& object) {
  if (object.kind == Kind::Insert) {
    auto& insert = static_cast<Insert&>(object);
    return {&insert.attributes, &insert.seqEnd};
  }
  if (object.kind != Kind::Polyline) return {};
  auto& polyline = static_cast<Polyline&>(object);
  return {&polyline.vertices, &polyline.seqEnd};
}
inline std::vector<Handle> memberHandles(const Object& object) {
  const Members members = membersOf(const_cast<Object&>(object));  // only looked at
  if (!members.list) return {};
  std::vector<Handle> all = *members.list;
  if (*members.seqEnd != 0) all.push_back(*members.seqEnd);
  return all;
}

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

// An entity of another kind from a DXF file: the groups behind the common ones.
struct GroupEntity : Entity {
  GroupEntity() : Entity(Kind::GroupEntity) {}
  std::string name;    // "SPLINE"
  std::string groups;  // packed
};

}  // namespace drafting

// POLYLINE and VERTEX as DXF groups. The form follows from the flags in 70: 8 a line in space, 16 a
// mesh, 64 a polyface; of a vertex from its polyline, and of a face from its flags.
#include "embedded/drafting/dxf/group_reader.h"
#include "embedded/drafting/dxf/group_writer.h"

namespace drafting {
namespace {

using Form = Polyline::Form;

constexpr const char* kPolylineClasses[] = {"AcDb2dPolyline", "AcDb3dPolyline", "AcDbPolygonMesh",
                                            "AcDbPolyFaceMesh"};
constexpr const char* kVertexClasses[] = {"AcDb2dVertex", "AcDb3dPolylineVertex",
                                          "AcDbPolygonMeshVertex", "AcDbPolyFaceMeshVertex",
                                          "AcDbFaceRecord"};
constexpr int kClosed = 1, kSplineFit = 4, kInSpace = 8, kMesh = 16, kPolyface = 64, kFace = 128;

Form formOfFlags(int flags) {
  if ((flags & kPolyface) != 0) return Form::Polyface;
  if ((flags & kMesh) != 0) return Form::Mesh;
  return (flags & kInSpace) != 0 ? Form::Space : Form::Flat;
}

// A spline in space is 1 or 2 where every other one is 5 or 6.
constexpr int kQuadratic = 5, kCubic = 6;

}  // namespace

void GroupReader::polyline(Polyline& o) {
  for (const char* name : kPolylineClasses) {
    if (groups_.hasSubclass(name)) groups_.enter(name);
  }
  const int flags = groups_.integer(70, 0);
  o.form = formOfFlags(flags);
  o.flags = static_cast<std::int16_t>(flags);
  integer("", 75, o.curve);
  if (o.form == Form::Space) {
    o.flags = flags & kClosed;
    o.curve = o.curve == kQuadratic ? 1 : o.curve == kCubic ? 2 : 0;
  }
  o.elevation = groups_.point(10, {}).z;
  real("", 40, o.startWidth);
  real("", 41, o.endWidth);
  thickness(39, o.thickness);
  extrusion(210, o.normal);
  int group = 71;
  for (std::int16_t& count : o.counts) integer("", group++, count);
}

void GroupWriter::polyline(const Polyline& o) {
  const auto form = static_cast<std::size_t>(o.form);
  subclass(kPolylineClasses[form]);
  sink_.integer(66, 1);
  sink_.point(10, {0, 0, o.elevation});
  int flags = o.flags, curve = o.curve;
  if (o.form == Form::Polyface) flags |= kPolyface;
  if (o.form == Form::Mesh) flags |= kMesh;
  if (o.form == Form::Space) {
    flags = kInSpace | (flags & kClosed) | (curve != 0 ? kSplineFit : 0);
    curve = curve == 0 ? 0 : (curve & 2) != 0 ? kCubic : kQuadratic;
  }
  unless(0, 39, o.thickness);
  sink_.integer(70, flags);
  unless(0, 40, o.startWidth);
  unless(0, 41, o.endWidth);
  for (int i = 0; i < 4; ++i) {
    const std::int16_t count = o.counts[static_cast<std::size_t>(i)];
    if (count != 0) sink_.integer(71 + i, count);
  }
  if (curve != 0) sink_.integer(75, curve);
  extrusion(210, o.normal);
}

// The form is the polyline's, set by the caller.
void GroupReader::vertex(Vertex& o) {
  for (const char* name : kVertexClasses) {
    if (groups_.hasSubclass(name)) groups_.enter(name);
  }
  const int flags = groups_.integer(70, 0);
  if (o.form == Vertex::Form::Polyface && (flags & kFace) != 0 && (flags & kPolyface) == 0) {
    o.form = Vertex::Form::Face;
  }
  o.flags = static_cast<std::uint8_t>(flags);
  o.position = groups_.point(10, {});
  real("", 40, o.startWidth);
  real("", 41, o.endWidth);
  real("", 42, o.bulge);
  angle("", 50, o.tangent);
  int group = 71;
  for (std::int16_t& corner : o.corners) integer("", group++, corner);
}

void GroupWriter::vertex(const Vertex& o) {
  const bool isFace = o.form == Vertex::Form::Face;
  if (!isFace) subclass("AcDbVertex");
  subclass(kVertexClasses[static_cast<std::size_t>(o.form)]);
  sink_.point(10, o.position);
  if (o.form == Vertex::Form::Flat) {  // those that aren't stated are the polyline's
    sink_.real(40, o.startWidth);
    sink_.real(41, o.endWidth);
    unless(0, 42, o.bulge);
  }
  sink_.integer(70, isFace ? kFace : o.flags);
  if (o.tangent != 0) sink_.angle(50, o.tangent);
  if (!isFace) return;
  for (int i = 0; i < 4; ++i) sink_.integer(71 + i, o.corners[static_cast<std::size_t>(i)]);
}

}  // namespace drafting

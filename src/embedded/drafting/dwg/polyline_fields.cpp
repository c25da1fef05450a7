// POLYLINE and VERTEX of a DWG, each a record by its form:
//   flat     flags BS, curve BS, start and end width BD, thickness BT, elevation BD, extrusion BE
//   space    curve RC, flags RC
//   mesh     flags BS, curve BS, rows, columns, smoothed rows, smoothed columns BS
//   polyface vertices BS, faces BS
// with references of the first and last vertex and the SEQEND;
//   vertex   flags RC, position 3BD; flat ones also start width BD (negative: of both ends), end
//            width BD, bulge BD, tangent BD
//   face     four corners BS
// An image of the journal has the form in front, as a byte.
#include <algorithm>

#include "embedded/drafting/dwg/field_reader.h"
#include "embedded/drafting/dwg/field_writer.h"

namespace drafting {
namespace {

template <class Form, std::size_t N>
Form formOfType(const std::uint16_t (&types)[N], std::uint16_t type) {
  return static_cast<Form>(std::find(types, types + N - 1, type) - types);
}

}  // namespace

void FieldReader::polyline(Polyline& o) {
  using Form = Polyline::Form;
  o.form = formOfType<Form>(kPolylineTypes, type);
  if (isImage()) o.form = static_cast<Form>(data.rawByte() & 3);
  switch (o.form) {
    case Form::Flat:
      integer("", 70, o.flags);
      integer("", 75, o.curve);
      o.startWidth = data.real();
      o.endWidth = data.real();
      o.thickness = data.thickness();
      o.elevation = data.real();
      o.normal = data.extrusion();
      break;
    case Form::Space:
      o.curve = data.rawByte();
      o.flags = data.rawByte();
      break;
    case Form::Mesh:
      integer("", 70, o.flags);
      integer("", 75, o.curve);
      for (std::int16_t& count : o.counts) integer("", 71, count);
      break;
    case Form::Polyface:
      integer("", 71, o.counts[0]);
      integer("", 72, o.counts[1]);
      break;
  }
  members(o.vertices, o.seqEnd);
}

void FieldWriter::polyline(const Polyline& o) {
  using Form = Polyline::Form;
  if (isImage()) data.rawByte(static_cast<unsigned>(o.form));
  switch (o.form) {
    case Form::Flat:
      integer("", 70, o.flags);
      integer("", 75, o.curve);
      data.real(o.startWidth);
      data.real(o.endWidth);
      data.thickness(o.thickness);
      data.real(o.elevation);
      data.extrusion(o.normal);
      break;
    case Form::Space:
      data.rawByte(static_cast<unsigned>(o.curve) & 0xFF);
      data.rawByte(static_cast<unsigned>(o.flags) & 0xFF);
      break;
    case Form::Mesh:
      integer("", 70, o.flags);
      integer("", 75, o.curve);
      for (const std::int16_t count : o.counts) integer("", 71, count);
      break;
    case Form::Polyface:
      integer("", 71, o.counts[0]);
      integer("", 72, o.counts[1]);
      break;
  }
  members(o.vertices, o.seqEnd);
}

void FieldReader::vertex(Vertex& o) {
  o.form = formOfType<Vertex::Form>(kVertexTypes, type);
  if (isImage()) o.form = static_cast<Vertex::Form>(std::min<unsigned>(data.rawByte(), 4));
  if (o.form == Vertex::Form::Face) {
    for (std::int16_t& corner : o.corners) integer("", 71, corner);
    return;
  }
  o.flags = data.rawByte();
  o.position = data.point();
  if (o.form != Vertex::Form::Flat) return;
  o.startWidth = data.real();
  const bool isOfBoth = o.startWidth < 0;
  if (isOfBoth) o.startWidth = -o.startWidth;
  o.endWidth = isOfBoth ? o.startWidth : data.real();
  o.bulge = data.real();
  o.tangent = data.real();
}

void FieldWriter::vertex(const Vertex& o) {
  if (isImage()) data.rawByte(static_cast<unsigned>(o.form));
  if (o.form == Vertex::Form::Face) {
    for (const std::int16_t corner : o.corners) integer("", 71, corner);
    return;
  }
  data.rawByte(o.flags);
  data.point(o.position);
  if (o.form != Vertex::Form::Flat) return;
  const double start = std::max(o.startWidth, 0.0), end = std::max(o.endWidth, 0.0);
  const bool isOfBoth = start == end && start > 0;
  data.real(isOfBoth ? -start : start);
  if (!isOfBoth) data.real(end);
  data.real(o.bulge);
  data.real(o.tangent);
}

}  // namespace drafting

#include "embedded/drafting/dwg/field_writer.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace drafting {
namespace {

bool same(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool isZero(double value) { return same(value, 0); }

// A record of an anonymous block holds only the kind of name: "*U" of "*U12".
std::string_view shortBlockName(std::string_view name) {
  if (name.empty() || name[0] != '*') return name;
  while (name.back() >= '0' && name.back() <= '9') name.remove_suffix(1);
  return name;
}

}  // namespace

void FieldWriter::count(std::size_t value) {
  if (isImage()) return data.longInteger(static_cast<std::uint32_t>(value));
  if (value > 0xFFFF) tooLong = true;
  data.shortInteger(static_cast<std::uint16_t>(value));
}

void FieldWriter::text(const char*, int, std::string_view value) {
  if (isImage() || isAscii(value)) {
    count(value.size());
    return data.bytes(value);
  }
  const std::string bytes = encodeText(value, codePage);
  count(bytes.size());
  data.bytes(bytes);
}

void FieldWriter::blob(const char*, int, std::string_view value) {
  data.longInteger(static_cast<std::uint32_t>(value.size()));
  data.bytes(value);
}

void FieldWriter::lineEnds(const Line& line) {
  const bool isFlat = isZero(line.start.z) && isZero(line.end.z);
  data.bit(isFlat);
  data.rawReal(line.start.x);
  data.realAgainst(line.end.x, line.start.x);
  data.rawReal(line.start.y);
  data.realAgainst(line.end.y, line.start.y);
  if (isFlat) return;
  data.rawReal(line.start.z);
  data.realAgainst(line.end.z, line.start.z);
}

void FieldWriter::solidCorners(const Solid& solid) {
  data.real(solid.elevation);
  for (const Point2& corner : solid.corners) data.flat(corner);
}

// Flags: 1 extrusion, 2 thickness, 4 constant width, 8 elevation, 10 bulges, 20 widths,
// 100 continuous pattern, 200 closed (hexadecimal).
void FieldWriter::lwPolyline(const LwPolyline& line) {
  const bool extruded = !(line.normal == kZAxis);
  unsigned flags = (extruded ? 1u : 0u) | (isZero(line.thickness) ? 0u : 2u) |
                   (isZero(line.constantWidth) ? 0u : 4u) | (isZero(line.elevation) ? 0u : 8u) |
                   (line.bulges.empty() ? 0u : 0x10u) | (line.widths.empty() ? 0u : 0x20u) |
                   (line.continuousPattern ? 0x100u : 0u) | (line.closed ? 0x200u : 0u);
  data.shortInteger(static_cast<std::uint16_t>(flags));
  if (flags & 4) data.real(line.constantWidth);
  if (flags & 8) data.real(line.elevation);
  if (flags & 2) data.real(line.thickness);
  if (flags & 1) data.point(line.normal);
  data.longInteger(static_cast<std::uint32_t>(line.points.size()));
  if (flags & 0x10) data.longInteger(static_cast<std::uint32_t>(line.bulges.size()));
  if (flags & 0x20) data.longInteger(static_cast<std::uint32_t>(line.widths.size()));
  for (std::size_t i = 0; i < line.points.size(); ++i) {
    if (i == 0) {
      data.flat(line.points[0]);
      continue;
    }
    data.realAgainst(line.points[i].x, line.points[i - 1].x);
    data.realAgainst(line.points[i].y, line.points[i - 1].y);
  }
  for (const double bulge : line.bulges) data.real(bulge);
  for (const LwPolyline::Width& width : line.widths) {
    data.real(width.start);
    data.real(width.end);
  }
}

// The flags say what is missing: 1 elevation, 2 alignment point, 4 oblique angle, 8 rotation,
// 10 width factor, 20 generation, 40 horizontal, 80 vertical alignment (hexadecimal).
void FieldWriter::textFields(const TextBase& t) {
  const bool aligned = t.horizontal != 0 || t.vertical != 0 || !(t.alignment == Point2{});
  const unsigned missing = (isZero(t.elevation) ? 1u : 0u) | (aligned ? 0u : 2u) |
                           (isZero(t.oblique) ? 4u : 0u) | (isZero(t.rotation) ? 8u : 0u) |
                           (same(t.widthFactor, 1) ? 0x10u : 0u) |
                           (t.generation == 0 ? 0x20u : 0u) | (t.horizontal == 0 ? 0x40u : 0u) |
                           (t.vertical == 0 ? 0x80u : 0u);
  data.rawByte(missing);
  if (!(missing & 1)) data.rawReal(t.elevation);
  data.flat(t.position);
  if (aligned) data.realAgainst(t.alignment.x, t.position.x);
  if (aligned) data.realAgainst(t.alignment.y, t.position.y);
  data.extrusion(t.normal);
  data.thickness(t.thickness);
  if (!(missing & 4)) data.rawReal(t.oblique);
  if (!(missing & 8)) data.rawReal(t.rotation);
  data.rawReal(t.height);
  if (!(missing & 0x10)) data.rawReal(t.widthFactor);
  text("", 0, t.text);
  if (!(missing & 0x20)) integer("", 0, t.generation);
  if (!(missing & 0x40)) integer("", 0, t.horizontal);
  if (!(missing & 0x80)) integer("", 0, t.vertical);
}

// 3: all 1; 1: x is 1, y and z against 1; 2: all the same; 0: x, then y and z against x.
void FieldWriter::insertScale(const Insert& insert) {
  const Point3& s = insert.scale;
  if (same(s.x, s.y) && same(s.x, s.z)) {
    data.bits(same(s.x, 1) ? 3 : 2, 2);
    if (!same(s.x, 1)) data.rawReal(s.x);
    return;
  }
  data.bits(same(s.x, 1) ? 1 : 0, 2);
  if (!same(s.x, 1)) data.rawReal(s.x);
  data.realAgainst(s.y, s.x);
  data.realAgainst(s.z, s.x);
}

void FieldWriter::insertTail(const Insert& insert) {
  const bool hasAttributes = !insert.attributes.empty() || insert.seqEnd != 0;
  data.bit(hasAttributes);
  if (isImage()) data.bit(insert.isArray);
  if (insert.isArray) {
    integer("", 0, insert.columns);
    integer("", 0, insert.rows);
    data.real(insert.columnSpacing);
    data.real(insert.rowSpacing);
  }
  if (hasAttributes) members(insert.attributes, insert.seqEnd);
}

void FieldWriter::members(const std::vector<Handle>& list, Handle seqEnd) {
  if (isImage()) {
    listSize(list.size());
    for (const Handle member : list) references.reference(kSoftPointer, member);
  } else {
    references.reference(kSoftPointer, list.empty() ? 0 : list.front());
    references.reference(kSoftPointer, list.empty() ? 0 : list.back());
  }
  references.reference(kHardOwner, seqEnd);
}

void FieldWriter::rawBody(const RawEntity& entity) {
  data.bitString(entity.body.bytes, entity.body.count);
  referenceList(entity.references);
}

void FieldWriter::rawBody(const RawObject& object) {
  if (isNamedRaw(object.type)) walkRecordStart(*this, object);
  data.bitString(object.body.bytes, object.body.count);
  referenceList(object.references);
}

void FieldWriter::referenceList(const std::vector<Reference>& list) {
  for (const Reference& reference : list) references.reference(reference.code, reference.target);
}

void FieldWriter::controlRecords(const Control& control) {
  data.longInteger(static_cast<std::uint32_t>(control.records.size()));
  const bool styles = control.table == Table::DimStyles;
  if (styles) data.rawByte(static_cast<unsigned>(control.extras.size()));
  for (const Handle record : control.records) references.reference(kSoftOwner, record);
  const std::uint8_t code = styles ? kHardPointer : kHardOwner;
  for (const Handle extra : control.extras) references.reference(code, extra);
}

void FieldWriter::blockName(const BlockRecord& block) {
  text("", 0, isImage() ? block.name : shortBlockName(block.name));
}

void FieldWriter::insertCount(const BlockRecord&) {
  if (isImage()) return;
  for (std::size_t i = inserts ? inserts->size() : 0; i > 0; --i) data.rawByte(1);
  data.rawByte(0);
}

void FieldWriter::blockContent(const BlockRecord& block) {
  references.reference(kHardOwner, block.begin);
  if (!isImage() && !block.isXref && !block.isOverlay) {
    const Entity *first = onwards(block.first), *last = backwards(block.last);
    references.reference(kSoftPointer, first ? first->handle : 0);
    references.reference(kSoftPointer, last ? last->handle : 0);
  }
  references.reference(kHardOwner, block.end);
  if (isImage() || !inserts) return;
  for (const Handle insert : *inserts) references.reference(kSoftPointer, insert);
}

void FieldWriter::layerFlags(const Layer& layer) {
  const unsigned flags = (layer.frozen ? 1u : 0u) | (layer.off ? 2u : 0u) |
                         (layer.frozenInNew ? 4u : 0u) | (layer.locked ? 8u : 0u) |
                         (layer.plotted ? 0x10u : 0u) | (layer.lineweight & 0x1Fu) << 5 |
                         layer.otherFlags;
  data.shortInteger(static_cast<std::uint16_t>(flags));
}

void FieldWriter::dashes(const Linetype& linetype) {
  if (linetype.dashes.size() > 0xFF) tooLong = true;
  data.rawByte(static_cast<unsigned>(linetype.dashes.size()));
  for (const Linetype::Dash& dash : linetype.dashes) {
    data.real(dash.length);
    integer("", 0, dash.shape);
    data.flat({dash.x, dash.y});
    data.real(dash.scale);
    data.real(dash.rotation);
    integer("", 0, dash.flags);
    references.reference(kHardPointer, dash.style);
  }
  std::string area = linetype.textArea;
  area.resize(256, '\0');
  data.bytes(area);
}

void FieldWriter::dimensionValues(const DimStyle& style) {
  const auto table = dimensionVariables();
  for (std::size_t i = 0; i < table.size(); ++i) variable(table[i], style.values[i], references);
}

void FieldWriter::viewMode(const Viewport& view) {
  for (const int mask : {1, 2, 4}) data.bit((view.viewMode & mask) != 0);
  data.bit((view.viewMode & 16) == 0);
}

void FieldWriter::viewIcon(const Viewport& view) {
  data.bit((view.icon & 1) != 0);
  data.bit((view.icon & 2) != 0);
}

void FieldWriter::dictionaryItems(const Dictionary& dictionary) {
  const auto absentItems =
      std::count_if(dictionary.items.begin(), dictionary.items.end(),
                    [this](const auto& item) { return isAbsent(item.second); });
  listSize(dictionary.items.size() - static_cast<std::size_t>(absentItems));
  integer("", 0, dictionary.cloning);
  data.rawByte(dictionary.hardOwner);
  if (isImage()) data.bit(dictionary.withDefault);
  for (const auto& [name, item] : dictionary.items) {
    if (isAbsent(item)) continue;
    text("", 0, name);
    references.reference(kSoftOwner, item);
  }
  if (dictionary.withDefault) references.reference(kHardPointer, dictionary.defaultItem);
}

namespace {

// A date as day and milliseconds, each of 32 bits.
void writeDate(BitWriter& data, double date) {
  constexpr double kDay = 86400000.0;
  double day = std::floor(date);
  if (!(day >= 0 && day <= 4294967295.0)) day = 0;
  double ms = std::round((date - day) * kDay);
  if (!(ms >= 0 && ms <= 4294967295.0)) ms = 0;
  data.longInteger(static_cast<std::uint32_t>(day));
  data.longInteger(static_cast<std::uint32_t>(ms));
}

}  // namespace

void FieldWriter::variable(const Variable& variable, const VariableValue& value,
                           BitWriter& handles) {
  const auto integer = [&value] { return static_cast<std::uint32_t>(std::get<int>(value)); };
  switch (variable.type) {
    case VariableType::Bit: return data.bit(integer() != 0);
    case VariableType::Short:
    case VariableType::Colour: return data.shortInteger(static_cast<std::uint16_t>(integer()));
    case VariableType::Long: return data.longInteger(integer());
    case VariableType::Real: return data.real(std::get<double>(value));
    case VariableType::Date: return writeDate(data, std::get<double>(value));
    case VariableType::Text: return text("", 0, std::get<std::string>(value));
    case VariableType::Flat: return data.flat(std::get<Point2>(value));
    case VariableType::Space: return data.point(std::get<Point3>(value));
    case VariableType::Reference:
      return handles.reference(variable.referenceCode, std::get<Handle>(value));
    case VariableType::Elsewhere: return;
  }
}

}  // namespace drafting

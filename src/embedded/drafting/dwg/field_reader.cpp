#include "embedded/drafting/dwg/field_reader.h"

#include "embedded/drafting/dwg/field_writer.h"

namespace drafting {

void FieldReader::text(const char*, int, std::string& value) {
  const std::string bytes = data.bytes(count());
  if (!data.ok()) return;
  value = decodeText(bytes, codePage);
}

void FieldReader::lineEnds(Line& line) {
  const bool isFlat = data.bit();
  line.start.x = data.rawReal();
  line.end.x = data.realAgainst(line.start.x);
  line.start.y = data.rawReal();
  line.end.y = data.realAgainst(line.start.y);
  line.start.z = isFlat ? 0 : data.rawReal();
  line.end.z = isFlat ? 0 : data.realAgainst(line.start.z);
}

void FieldReader::solidCorners(Solid& solid) {
  solid.elevation = data.real();
  for (Point2& corner : solid.corners) corner = data.flat();
}

void FieldReader::lwPolyline(LwPolyline& line) {
  constexpr unsigned kKnown = 0x33F;
  const unsigned flags = data.shortInteger();
  if (flags & ~kKnown) return fail();
  line.closed = (flags & 0x200) != 0;
  line.continuousPattern = (flags & 0x100) != 0;
  line.constantWidth = flags & 4 ? data.real() : 0;
  line.elevation = flags & 8 ? data.real() : 0;
  line.thickness = flags & 2 ? data.real() : 0;
  line.normal = flags & 1 ? data.point() : kZAxis;
  const std::size_t points = data.longInteger();
  const std::size_t bulges = flags & 0x10 ? data.longInteger() : 0;
  const std::size_t widths = flags & 0x20 ? data.longInteger() : 0;
  const auto none = [points](std::size_t n) { return n != 0 && n != points; };
  if (none(bulges) || none(widths) || !data.holds(points, 4)) return fail();
  line.points.resize(points);
  for (std::size_t i = 0; i < points; ++i) {
    if (i == 0) {
      line.points[0] = data.flat();
      continue;
    }
    line.points[i].x = data.realAgainst(line.points[i - 1].x);
    line.points[i].y = data.realAgainst(line.points[i - 1].y);
  }
  if (!data.holds(bulges, 2)) return fail();
  line.bulges.resize(bulges);
  for (double& bulge : line.bulges) bulge = data.real();
  if (!data.holds(widths, 4)) return fail();
  line.widths.resize(widths);
  for (LwPolyline::Width& width : line.widths) {
    width.start = data.real();
    width.end = data.real();
  }
}

void FieldReader::textFields(TextBase& t) {
  const unsigned missing = data.rawByte();
  t.elevation = missing & 1 ? 0 : data.rawReal();
  t.position = data.flat();
  t.alignment = {};
  if (!(missing & 2)) {
    t.alignment.x = data.realAgainst(t.position.x);
    t.alignment.y = data.realAgainst(t.position.y);
  }
  t.normal = data.extrusion();
  t.thickness = data.thickness();
  t.oblique = missing & 4 ? 0 : data.rawReal();
  t.rotation = missing & 8 ? 0 : data.rawReal();
  t.height = data.rawReal();
  t.widthFactor = missing & 0x10 ? 1 : data.rawReal();
  text("", 0, t.text);
  const auto optional = [&](unsigned flag) {
    return missing & flag ? std::int16_t{0} : static_cast<std::int16_t>(data.shortInteger());
  };
  t.generation = optional(0x20);
  t.horizontal = optional(0x40);
  t.vertical = optional(0x80);
}

void FieldReader::insertScale(Insert& insert) {
  Point3& s = insert.scale;
  const unsigned form = data.bits(2);
  s = {1, 1, 1};
  if (form == 3) return;
  if (form != 1) s.x = data.rawReal();
  s.y = form == 2 ? s.x : data.realAgainst(s.x);
  s.z = form == 2 ? s.x : data.realAgainst(s.x);
}

void FieldReader::insertTail(Insert& insert) {
  const bool hasAttributes = data.bit();
  insert.isArray = isImage() ? data.bit() : type == 8;
  insert.columns = insert.rows = 1;
  insert.columnSpacing = insert.rowSpacing = 0;
  if (insert.isArray) {
    integer("", 0, insert.columns);
    integer("", 0, insert.rows);
    insert.columnSpacing = data.real();
    insert.rowSpacing = data.real();
  }
  insert.attributes.clear();
  insert.seqEnd = 0;
  if (hasAttributes) members(insert.attributes, insert.seqEnd);
}

// A file has a chain where an image has a list.
void FieldReader::members(std::vector<Handle>& list, Handle& seqEnd) {
  list.clear();
  if (isImage()) {
    const std::size_t n = data.longInteger();
    if (!references.holds(n, 8)) return fail();
    list.resize(n);
    for (Handle& member : list) member = reference();
  } else {
    links.first = reference();
    links.last = reference();
  }
  seqEnd = reference();
}

void FieldReader::rawBody(RawEntity& entity) { readRest(entity.body, entity.references); }

void FieldReader::rawBody(RawObject& object) {
  if (isNamedRaw(object.type)) walkRecordStart(*this, object);
  readRest(object.body, object.references);
}

void FieldReader::readRest(Bits& body, std::vector<Reference>& list) {
  body.count = static_cast<std::uint32_t>(data.left());
  body.bytes = data.bitString(body.count);
  list.clear();
  while (references.left() >= 8 && references.ok()) {
    const StoredReference stored = references.reference();
    list.push_back({stored.isRelative() ? kSoftPointer : stored.code, stored.resolve(self)});
  }
}

void FieldReader::controlRecords(Control& control) {
  const std::size_t n = data.longInteger();
  std::size_t extras = 0;
  if (control.table == Table::DimStyles) extras = data.rawByte();
  if (control.table == Table::Blocks || control.table == Table::Linetypes) extras = 2;
  // Images keep whatever number there is: the rest of the references.
  if (isImage() && control.table != Table::DimStyles) extras = 0;
  if (!references.holds(n, 8)) return fail();
  control.records.resize(n);
  for (Handle& record : control.records) record = reference();
  control.extras.clear();
  if (isImage() && control.table != Table::DimStyles) {
    while (references.left() >= 8 && references.ok()) control.extras.push_back(reference());
  }
  for (; extras > 0 && references.ok(); --extras) control.extras.push_back(reference());
}

void FieldReader::insertCount(BlockRecord&) {
  insertCount_ = 0;
  if (isImage()) return;
  while (data.ok() && data.rawByte() != 0) ++insertCount_;
}

// The list of INSERTs is read over: it follows from the INSERTs themselves.
void FieldReader::blockContent(BlockRecord& block) {
  block.begin = reference();
  if (!isImage() && !block.isXref && !block.isOverlay) {
    links.first = reference();
    links.last = reference();
  }
  block.end = reference();
  for (; insertCount_ > 0 && references.ok(); --insertCount_) reference();
}

void FieldReader::layerFlags(Layer& layer) {
  const unsigned flags = data.shortInteger();
  layer.frozen = (flags & 1) != 0;
  layer.off = (flags & 2) != 0;
  layer.frozenInNew = (flags & 4) != 0;
  layer.locked = (flags & 8) != 0;
  layer.plotted = (flags & 0x10) != 0;
  layer.lineweight = flags >> 5 & 0x1F;
  layer.otherFlags = static_cast<std::uint16_t>(flags & 0xFC00);
}

void FieldReader::dashes(Linetype& linetype) {
  linetype.dashes.resize(data.rawByte());
  for (Linetype::Dash& dash : linetype.dashes) {
    dash.length = data.real();
    integer("", 0, dash.shape);
    const Point2 offset = data.flat();
    dash.x = offset.x;
    dash.y = offset.y;
    dash.scale = data.real();
    dash.rotation = data.real();
    integer("", 0, dash.flags);
    dash.style = reference();
  }
  linetype.textArea = data.bytes(256);
}

void FieldReader::dimensionValues(DimStyle& style) {
  const auto table = dimensionVariables();
  for (std::size_t i = 0; i < table.size(); ++i) variable(table[i], style.values[i], references);
}

void FieldReader::viewMode(Viewport& view) {
  view.viewMode = 0;
  for (const int mask : {1, 2, 4}) setMode(view, mask, data.bit());
  setMode(view, 16, !data.bit());
}

void FieldReader::viewIcon(Viewport& view) {
  const int first = data.bit() ? 1 : 0;
  view.icon = static_cast<std::int16_t>(first + (data.bit() ? 2 : 0));
}

void FieldReader::dictionaryItems(Dictionary& dictionary) {
  const std::size_t n = data.longInteger();
  integer("", 0, dictionary.cloning);
  dictionary.hardOwner = data.rawByte();
  if (isImage()) dictionary.withDefault = data.bit();
  if (!references.holds(n, 8)) return fail();
  dictionary.items.resize(n);
  for (auto& [name, item] : dictionary.items) {
    text("", 0, name);
    item = reference();
  }
  dictionary.defaultItem = dictionary.withDefault ? reference() : 0;
}

void FieldReader::variable(const Variable& variable, VariableValue& value, BitReader& handles) {
  switch (variable.type) {
    case VariableType::Bit: value = data.bit() ? 1 : 0; return;
    case VariableType::Short:
    case VariableType::Colour:
      value = static_cast<int>(static_cast<std::int16_t>(data.shortInteger()));
      return;
    case VariableType::Long: value = static_cast<int>(data.longInteger()); return;
    case VariableType::Real: value = data.real(); return;
    case VariableType::Date: {
      const double day = data.longInteger();
      value = day + data.longInteger() / 86400000.0;
      return;
    }
    case VariableType::Text: text("", 0, std::get<std::string>(value)); return;
    case VariableType::Flat: value = data.flat(); return;
    case VariableType::Space: value = data.point(); return;
    case VariableType::Reference: value = handles.reference().resolve(self); return;
    case VariableType::Elsewhere: return;
  }
}

}  // namespace drafting

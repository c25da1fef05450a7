#include "embedded/drafting/dxf/group_writer.h"

#include <algorithm>

#include "embedded/drafting/dwg/text_coding.h"

namespace drafting {

std::string_view GroupWriter::nameOf(Handle record) {
  Name& slot = names_[record % names_.size()];
  if (slot.record != record) slot = {record, db_.recordName(record)};
  return slot.name;
}

void GroupWriter::subclass(const char* name) { sink_.text(100, name); }

// The groups that name a record instead of giving its handle are 2 (a block), 6 and 7.
void GroupWriter::handle(const char*, int group, std::uint8_t, Handle value) {
  if (group == 0) return;
  if (group >= 100) {
    if (value != 0 && isThere(value)) sink_.handle(group, value);
    return;
  }
  const std::string_view name = nameOf(value);
  if (!name.empty() || group == 2) sink_.text(group, name);
}

// MTEXT: pieces of at most 250 characters under 3, the rest under 1.
void GroupWriter::longText(const char*, int group, std::string_view value) {
  constexpr std::size_t kPiece = 250;
  while (value.size() > kPiece) {
    std::size_t cut = kPiece;
    while (cut > kPiece - 4 && (static_cast<unsigned char>(value[cut]) & 0xC0) == 0x80) --cut;
    sink_.text(3, value.substr(0, cut));
    value.remove_prefix(cut);
  }
  sink_.text(group, value);
}

// Bits: 1 frozen or shape file, 2 frozen in new viewports, 4 locked or vertical text, 16 from an
// external reference, 64 referenced.
void GroupWriter::recordFlags(const Record& record) {
  int flags = record.xrefDependent ? 16 : 0;
  if (record.kind == Kind::Layer) {
    const auto& layer = static_cast<const Layer&>(record);
    flags |= (layer.frozen ? 1 : 0) | (layer.frozenInNew ? 2 : 0) | (layer.locked ? 4 : 0);
  } else if (record.kind == Kind::TextStyle) {
    const auto& style = static_cast<const TextStyle&>(record);
    flags |= (style.isShapeFile ? 1 : 0) | (style.vertical ? 4 : 0);
  }
  sink_.integer(70, flags);
}

void GroupWriter::lineEnds(const Line& line) {
  sink_.point(10, line.start);
  sink_.point(11, line.end);
}

void GroupWriter::solidCorners(const Solid& solid) {
  for (int i = 0; i < 4; ++i) {
    const Point2& corner = solid.corners[static_cast<std::size_t>(i)];
    sink_.point(10 + i, {corner.x, corner.y, solid.elevation});
  }
}

// A constant width stands in the file only where the points have none of their own.
void GroupWriter::lwPolyline(const LwPolyline& line) {
  sink_.integer(90, static_cast<std::int64_t>(line.points.size()));
  sink_.integer(70, (line.closed ? 1 : 0) | (line.continuousPattern ? 128 : 0));
  if (line.widths.empty()) sink_.real(43, line.constantWidth);
  unless(0, 38, line.elevation);
  unless(0, 39, line.thickness);
  for (std::size_t i = 0; i < line.points.size(); ++i) {
    sink_.flat(10, line.points[i]);
    if (i < line.widths.size()) {
      sink_.real(40, line.widths[i].start);
      sink_.real(41, line.widths[i].end);
    }
    if (i < line.bulges.size()) sink_.real(42, line.bulges[i]);
  }
  extrusion(210, line.normal);
}

void GroupWriter::textFields(const TextBase& t) {
  unless(0, 39, t.thickness);
  sink_.point(10, {t.position.x, t.position.y, t.elevation});
  sink_.real(40, t.height);
  sink_.text(1, t.text);
  if (t.rotation != 0) sink_.angle(50, t.rotation);
  unless(1, 41, t.widthFactor);
  if (t.oblique != 0) sink_.angle(51, t.oblique);
  if (t.generation != 0) sink_.integer(71, t.generation);
  if (t.horizontal != 0) sink_.integer(72, t.horizontal);
  if (t.horizontal != 0 || t.vertical != 0 || !(t.alignment == Point2{})) {
    sink_.point(11, {t.alignment.x, t.alignment.y, t.elevation});
  }
  extrusion(210, t.normal);
}

void GroupWriter::insertScale(const Insert& insert) {
  unless(1, 41, insert.scale.x);
  unless(1, 42, insert.scale.y);
  unless(1, 43, insert.scale.z);
}

void GroupWriter::insertTail(const Insert& insert) {
  if (!insert.attributes.empty()) sink_.integer(66, 1);
  if (!insert.isArray) return;
  sink_.integer(70, insert.columns);
  sink_.integer(71, insert.rows);
  sink_.real(44, insert.columnSpacing);
  sink_.real(45, insert.rowSpacing);
}

void GroupWriter::layerFlags(const Layer& layer) {
  isOff_ = layer.off;
  sink_.integer(370, lineweightOfIndex(layer.lineweight));
  if (!layer.plotted) sink_.integer(290, 0);
}

// Flags of a dash: 1 the rotation is absolute, 2 a text, 4 a shape.
void GroupWriter::dashes(const Linetype& linetype) {
  sink_.integer(73, static_cast<std::int64_t>(linetype.dashes.size()));
  for (const Linetype::Dash& dash : linetype.dashes) {
    sink_.real(49, dash.length);
    sink_.integer(74, dash.flags);
    if ((dash.flags & 6) == 0) continue;
    sink_.integer(75, (dash.flags & 4) != 0 ? dash.shape : 0);
    handle("", 340, kHardPointer, dash.style);
    sink_.real(46, dash.scale);
    sink_.angle(50, dash.rotation);
    sink_.real(44, dash.x);
    sink_.real(45, dash.y);
    const auto at = static_cast<std::size_t>(std::max<std::int16_t>(dash.shape, 0));
    if ((dash.flags & 2) == 0 || at >= linetype.textArea.size()) continue;
    const std::string_view text = std::string_view(linetype.textArea).substr(at);
    sink_.text(9, decodeText(text.substr(0, text.find('\0')), db_.codePage));
  }
}

void GroupWriter::dimensionValues(const DimStyle& style) {
  const auto table = dimensionVariables();
  for (std::size_t i = 0; i < table.size(); ++i) {
    const int group = table[i].styleGroup;
    const VariableValue& value = style.values[i];
    if (const auto* real = std::get_if<double>(&value)) sink_.real(group, *real);
    if (const auto* integer = std::get_if<int>(&value)) sink_.integer(group, *integer);
    if (const auto* text = std::get_if<std::string>(&value)) sink_.text(group, *text);
    if (const auto* target = std::get_if<Handle>(&value)) handle("", group, kHardPointer, *target);
  }
}

void GroupWriter::viewWidth(const Viewport& view) {
  sink_.real(41, view.height > 0 ? view.width / view.height : 1);
}

void GroupWriter::dictionaryItems(const Dictionary& dictionary) {
  if (dictionary.hardOwner != 0) sink_.integer(280, dictionary.hardOwner);
  sink_.integer(281, dictionary.cloning);
  for (const auto& [name, item] : dictionary.items) {
    if (item == 0 || !isThere(item)) continue;
    sink_.text(3, name);
    sink_.handle(dictionary.hardOwner != 0 ? 360 : 350, item);
  }
  if (!dictionary.withDefault) return;
  subclass("AcDbDictionaryWithDefault");
  if (isThere(dictionary.defaultItem)) sink_.handle(340, dictionary.defaultItem);
}

}  // namespace drafting

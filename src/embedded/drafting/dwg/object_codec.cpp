#include "embedded/drafting/dwg/object_codec.h"

#include <algorithm>
#include <array>

#include "embedded/base/crc.h"
#include "embedded/drafting/database/visit.h"
#include "embedded/drafting/dwg/file_layout.h"

namespace drafting {
namespace {

constexpr std::array<std::uint16_t, kTableCount> kControlTypes{0x30, 0x32, 0x34, 0x38, 0x3C,
                                                               0x3E, 0x40, 0x42, 0x44, 0x46};

struct TypeRow {
  std::uint16_t type;
  Kind kind;
};

// Frozen: DWG types of the kinds. INSERT is also 8, the array form; polylines and their vertices
// have one for each form.
constexpr TypeRow kTypes[] = {
    {0x01, Kind::Text},      {0x02, Kind::Attrib},      {0x03, Kind::Attdef},
    {0x04, Kind::Block},     {0x05, Kind::EndBlock},    {0x06, Kind::SeqEnd},
    {0x07, Kind::Insert},    {0x08, Kind::Insert},      {0x11, Kind::Arc},
    {0x12, Kind::Circle},    {0x13, Kind::Line},        {0x1B, Kind::Point},
    {0x1F, Kind::Solid},     {0x23, Kind::Ellipse},     {0x2A, Kind::Dictionary},
    {0x2C, Kind::MText},     {0x31, Kind::BlockRecord}, {0x33, Kind::Layer},
    {0x35, Kind::TextStyle}, {0x39, Kind::Linetype},    {0x41, Kind::Viewport},
    {0x43, Kind::AppId},     {0x45, Kind::DimStyle},    {0x4D, Kind::LwPolyline},
    {0x4E, Kind::Hatch},     {0x0A, Kind::Vertex},      {0x0B, Kind::Vertex},
    {0x0C, Kind::Vertex},    {0x0D, Kind::Vertex},      {0x0E, Kind::Vertex},
    {0x0F, Kind::Polyline},  {0x10, Kind::Polyline},    {0x1D, Kind::Polyline},
    {0x1E, Kind::Polyline},  {0x20, Kind::Trace},       {0x24, Kind::Spline},
};

// --- linetype and plot style: 2 bits, and a reference where they say 3

unsigned styleCode(Handle style) {
  if (style == kByLayer) return 0;
  if (style == kByBlock) return 1;
  return style == kContinuous ? 2 : 3;
}

Handle styleOfCode(FieldReader& r, unsigned code) {
  constexpr std::array<Handle, 3> kFixed{kByLayer, kByBlock, kContinuous};
  return code < 3 ? kFixed[code] : r.reference();
}

void writeExtendedData(FieldWriter& w, const Object& object) {
  for (const XData& data : object.xdata) {
    if (data.items.empty()) continue;  // a count of 0 would end the list
    w.count(data.items.size());
    w.data.reference(kHardPointer, data.app);
    w.data.bytes(data.items);
  }
  w.count(0);
}

void readExtendedData(FieldReader& r, Object& object) {
  object.xdata.clear();
  while (const std::size_t n = r.count()) {
    XData data;
    data.app = r.data.reference().resolve(r.self);
    data.items = r.data.bytes(n);
    if (!r.ok()) return;
    object.xdata.push_back(std::move(data));
  }
}

std::uint32_t reactorCount(const FieldWriter& w, const Object& object) {
  const auto isThere = [&w](Handle reactor) { return !w.isAbsent(reactor); };
  return static_cast<std::uint32_t>(
      std::count_if(object.reactors.begin(), object.reactors.end(), isThere));
}

void writeReactors(FieldWriter& w, const Object& object) {
  for (const Handle reactor : object.reactors) {
    if (!w.isAbsent(reactor)) w.references.reference(kSoftPointer, reactor);
  }
  w.references.reference(kHardOwner, w.isAbsent(object.extension) ? 0 : object.extension);
}

void readReactors(FieldReader& r, Object& object, std::size_t n) {
  if (!r.references.holds(n, 8)) return r.fail();
  object.reactors.resize(n);
  for (Handle& reactor : object.reactors) reactor = r.reference();
  object.extension = r.reference();
}

// True where "no links" stands for the neighbours. BLOCK, ENDBLK and SEQEND always store (null)
// links; images have none.
bool linksAreImplied(const Entity& e, const Entity* previous, const Entity* next, bool image) {
  if (image) return true;
  return previous && next && previous->handle == e.handle - 1 && next->handle == e.handle + 1;
}

void writeEntityCommon(FieldWriter& w, const Entity& e, OwnerMode mode) {
  const auto* raw = e.kind == Kind::RawEntity ? static_cast<const RawEntity*>(&e) : nullptr;
  w.data.bit(raw && raw->hasGraphics);
  if (raw && raw->hasGraphics) {
    w.data.rawLong(static_cast<std::uint32_t>(raw->graphics.size()));
    w.data.bytes(raw->graphics);
  }
  const Entity *previous = w.backwards(e.previous), *next = w.onwards(e.next);
  const bool implied = linksAreImplied(e, previous, next, w.isImage());
  const unsigned linetype = styleCode(e.linetype), plotStyle = styleCode(e.plotStyle);
  w.data.bits(static_cast<unsigned>(mode), 2);
  w.data.longInteger(reactorCount(w, e));
  w.data.bit(implied);
  w.integer("", 0, e.colour);
  w.data.real(e.linetypeScale);
  w.data.bits(linetype, 2);
  w.data.bits(plotStyle, 2);
  w.data.shortInteger(static_cast<std::uint16_t>(e.invisible | e.otherVisibility));
  w.data.rawByte(e.lineweight);

  if (mode == OwnerMode::Stored) w.references.reference(kSoftPointer, e.owner);
  writeReactors(w, e);
  if (!implied) {
    w.references.reference(kSoftPointer, previous ? previous->handle : 0);
    w.references.reference(kSoftPointer, next ? next->handle : 0);
  }
  w.references.reference(kHardPointer, e.layer);
  if (linetype == 3) w.references.reference(kHardPointer, e.linetype);
  if (plotStyle == 3) w.references.reference(kHardPointer, e.plotStyle);
}

void readGraphics(FieldReader& r, Entity& e, EntityFrame& frame) {
  frame.hasGraphics = r.data.bit();
  if (e.kind == Kind::RawEntity) static_cast<RawEntity&>(e).hasGraphics = frame.hasGraphics;
  if (!frame.hasGraphics) return;
  std::string graphics = r.data.bytes(r.data.rawLong());
  if (e.kind != Kind::RawEntity) return r.fail();  // only a raw entity can keep them
  static_cast<RawEntity&>(e).graphics = std::move(graphics);
}

void readEntityCommon(FieldReader& r, Entity& e, EntityFrame& frame) {
  readGraphics(r, e, frame);
  const unsigned mode = r.data.bits(2);
  if (mode == 3) return r.fail();
  frame.mode = static_cast<OwnerMode>(mode);
  const std::size_t reactors = r.data.longInteger();
  const bool implied = r.data.bit();
  r.integer("", 0, e.colour);
  e.linetypeScale = r.data.real();
  const unsigned linetype = r.data.bits(2), plotStyle = r.data.bits(2);
  const unsigned visibility = r.data.shortInteger();
  e.invisible = (visibility & 1) != 0;
  e.otherVisibility = static_cast<std::uint16_t>(visibility & ~1u);
  e.lineweight = r.data.rawByte();

  if (frame.mode == OwnerMode::Stored) e.owner = r.reference();
  readReactors(r, e, reactors);
  r.links.previous = implied ? r.self - 1 : r.reference();
  r.links.next = implied ? r.self + 1 : r.reference();
  e.layer = r.reference();
  e.linetype = styleOfCode(r, linetype);
  e.plotStyle = styleOfCode(r, plotStyle);
}

void writeObjectCommon(FieldWriter& w, const Object& object) {
  w.data.longInteger(reactorCount(w, object));
  w.references.reference(kSoftPointer, object.owner);
  writeReactors(w, object);
}

void readObjectCommon(FieldReader& r, Object& object) {
  const std::size_t reactors = r.data.longInteger();
  object.owner = r.reference();
  readReactors(r, object, reactors);
}

}  // namespace

void writeObjectBody(FieldWriter& w, const Object& object, OwnerMode mode) {
  writeExtendedData(w, object);
  if (isEntity(object.kind)) {
    writeEntityCommon(w, static_cast<const Entity&>(object), mode);
  } else {
    writeObjectCommon(w, object);
  }
  visit(object, [&w]<class T>(const T& o) { walk<FieldWriter>(w, o); });
}

void appendObject(FieldWriter& w, const Object& object, std::uint16_t type, OwnerMode mode,
                  std::string& out) {
  w.data.clear();
  w.references.clear();
  w.data.shortInteger(type);
  const std::size_t sizeAt = w.data.position();
  w.data.rawLong(0);
  w.data.reference(0, object.handle);
  writeObjectBody(w, object, mode);
  const std::size_t bitSize = w.data.position();
  w.data.append(w.references);
  w.data.finish();
  w.data.patchRawLong(sizeAt, static_cast<std::uint32_t>(bitSize));
  const std::string_view bytes = w.data.finish();

  const std::size_t start = out.size();
  std::size_t size = bytes.size();
  for (; size > 0x7FFF; size >>= 15) putLow(out, (size & 0x7FFF) | 0x8000, 2);
  putLow(out, size, 2);
  out += bytes;
  putLow(out, base::crc16(out.data() + start, out.size() - start), 2);
}

bool readObjectBody(FieldReader& r, Object& object, EntityFrame& frame) {
  readExtendedData(r, object);
  if (isEntity(object.kind)) {
    readEntityCommon(r, static_cast<Entity&>(object), frame);
  } else {
    readObjectCommon(r, object);
  }
  if (!r.ok()) return false;
  visit(object, [&r]<class T>(T& o) { walk<FieldReader>(r, o); });
  return r.complete();
}

Kind kindOfType(std::uint16_t type) {
  for (const TypeRow& row : kTypes) {
    if (row.type == type) return row.kind;
  }
  Table table;
  if (tableOfControlType(type, table)) return Kind::Control;
  return isEntityType(type) ? Kind::RawEntity : Kind::RawObject;
}

bool isEntityType(std::uint16_t type) {
  if (type == 0x2A || type == 0x4F) return false;
  return (type >= 0x01 && type <= 0x2F) || type == 0x4A || type == 0x4D || type == 0x4E ||
         type == 0x1F2;
}

std::uint16_t typeOfKind(const Object& object) {
  switch (object.kind) {
    case Kind::RawEntity: return static_cast<const RawEntity&>(object).type;
    case Kind::RawObject: return static_cast<const RawObject&>(object).type;
    case Kind::GroupEntity:
    case Kind::GroupObject: return 0;  // there is none: no file of this form holds them
    case Kind::Insert: return static_cast<const Insert&>(object).isArray ? 8 : 7;
    case Kind::Polyline: return typeOfForm(static_cast<const Polyline&>(object).form);
    case Kind::Vertex: return typeOfForm(static_cast<const Vertex&>(object).form);
    case Kind::Control:
      return kControlTypes[static_cast<std::size_t>(static_cast<const Control&>(object).table)];
    default: break;
  }
  const auto row = std::find_if(std::begin(kTypes), std::end(kTypes),
                                [&object](const TypeRow& r) { return r.kind == object.kind; });
  return row->type;
}

bool tableOfControlType(std::uint16_t type, Table& table) {
  const auto at = std::find(kControlTypes.begin(), kControlTypes.end(), type);
  if (at == kControlTypes.end()) return false;
  table = static_cast<Table>(at - kControlTypes.begin());
  return true;
}

}  // namespace drafting

#include "embedded/drafting/dwg/object_image.h"

#include "embedded/drafting/database/tables.h"
#include "embedded/drafting/dwg/object_codec.h"

namespace drafting {
namespace {

std::uint16_t subtypeOf(const Object& object) {
  if (object.kind == Kind::Control) {
    return static_cast<std::uint16_t>(static_cast<const Control&>(object).table);
  }
  const bool raw = object.kind == Kind::RawEntity || object.kind == Kind::RawObject;
  return raw ? typeOfKind(object) : std::uint16_t{0};
}

void setSubtype(Object& object, std::uint16_t subtype) {
  switch (object.kind) {
    case Kind::Control: static_cast<Control&>(object).table = static_cast<Table>(subtype); break;
    case Kind::RawEntity: static_cast<RawEntity&>(object).type = subtype; break;
    case Kind::RawObject: static_cast<RawObject&>(object).type = subtype; break;
    default: break;
  }
}

}  // namespace

std::string encodeImage(const Object& object) {
  static FieldWriter w;  // one thread; its buffers are kept
  w.data.clear();
  w.references.clear();
  w.data.rawByte(static_cast<unsigned>(object.kind));
  w.data.shortInteger(subtypeOf(object));
  const std::size_t sizeAt = w.data.position();
  w.data.rawLong(0);
  writeObjectBody(w, object, OwnerMode::Stored);
  const std::size_t bitSize = w.data.position();
  w.data.append(w.references);
  w.data.finish();
  w.data.patchRawLong(sizeAt, static_cast<std::uint32_t>(bitSize));
  return std::string(w.data.finish());
}

Kind kindOfImage(std::string_view image) {
  return static_cast<Kind>(static_cast<unsigned char>(image[0]));
}

bool decodeImage(std::string_view image, Object& object) {
  FieldReader r;
  r.data = BitReader(image);
  r.data.rawByte();
  setSubtype(object, r.data.shortInteger());
  const std::size_t bitSize = r.data.rawLong();
  r.data = BitReader(image, r.data.position(), bitSize);
  r.references = BitReader(image, bitSize);
  r.self = object.handle;
  r.type = typeOfKind(object);
  EntityFrame frame;
  return readObjectBody(r, object, frame);
}

}  // namespace drafting

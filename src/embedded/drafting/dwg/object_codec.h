// One object as DWG R2000 bytes: its common data, its fields and its references. In a file it
// stands in the frame
//   MS size | BS type | RL bit size | H own handle | extended data | common data, body
//   | references | padding | RS checksum
// and what the bit size leaves open belongs to the references. The journal's images
// (object_image.h) use the same codec in a simpler frame.
#pragma once

#include <string>
#include <string_view>

#include "embedded/drafting/database/object.h"
#include "embedded/drafting/dwg/field_reader.h"
#include "embedded/drafting/dwg/field_writer.h"

namespace drafting {

inline constexpr std::uint16_t kFirstClass = 500;

// --- writing

// Where an entity stands, as a file tells it.
enum class OwnerMode : std::uint8_t { Stored = 0, PaperSpace = 1, ModelSpace = 2 };

// Writes extended data, common data, body and references behind what `w` holds already.
void writeObjectBody(FieldWriter& w, const Object& object, OwnerMode mode);

// Appends the whole frame of an object to `out`, from its size to its checksum.
void appendObject(FieldWriter& w, const Object& object, std::uint16_t type, OwnerMode mode,
                  std::string& out);

// --- reading

// The common data of an entity that a file states and an Entity doesn't keep.
struct EntityFrame {
  OwnerMode mode = OwnerMode::Stored;
  bool hasGraphics = false;
};

// Fills `object` from `r`, whose data stand behind the own handle. An entity's owner is set only if
// it is stored. False if the object isn't wholly understood: some of it may be filled all the same.
bool readObjectBody(FieldReader& r, Object& object, EntityFrame& frame);

// The kind that a type of the fixed ones is read as; for all others RawEntity or RawObject.
Kind kindOfType(std::uint16_t type);
bool isEntityType(std::uint16_t type);  // of the fixed ones
// Type under which a kind is written; classes and raw objects have their own.
std::uint16_t typeOfKind(const Object& object);
// Table whose control object has this type; false if it is none.
bool tableOfControlType(std::uint16_t type, Table& table);

}  // namespace drafting

// Objects of a drawing: what every object and every entity has. The kinds are in entities.h and
// tables.h; who owns objects, and how they are changed, is in database.h.
//
// Texts are UTF-8. A byte of a file that its code page can't decode is carried as U+DCNN (see
// base/text.h), so that reading and writing a drawing loses nothing. Angles are radians, lengths
// drawing units.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "embedded/base/geometry.h"

namespace drafting {

using base::Box2;
using base::Point2;
using base::Point3;

// Number of an object, unique in its drawing and never used again; 0 is no object.
using Handle = std::uint64_t;

// What an object is. The order is of no file format; entities stand first.
enum class Kind : std::uint8_t {
  RawEntity,    // an entity that isn't understood: its bits are kept
  GroupEntity,  // the same of a DXF file: its groups are kept
  Line,
  Point,
  Circle,
  Arc,
  Ellipse,
  Spline,
  Solid,
  Trace,
  LwPolyline,
  Hatch,
  Polyline,  // the old form, whose vertices are entities of their own
  Vertex,
  Text,
  Attrib,
  Attdef,
  MText,
  Insert,  // also the array form, with columns and rows
  Block,
  EndBlock,
  SeqEnd,
  RawObject,  // a non-graphical object that isn't understood
  GroupObject,
  Control,  // head of a symbol table
  BlockRecord,
  Layer,
  TextStyle,
  Linetype,
  AppId,
  DimStyle,
  Viewport,  // record of the VPORT table
  Dictionary,
};

inline bool isEntity(Kind kind) { return kind <= Kind::SeqEnd; }

// Extended data of one application: the items as DWG codes them (byte-coded, frozen; xdata.h reads
// and makes them). Kept coded since most of it is only carried through.
struct XData {
  Handle app = 0;
  std::string items;
  friend bool operator==(const XData&, const XData&) = default;
};

// A run of bits cut from a DWG object, first bit highest.
struct Bits {
  std::string bytes;
  std::uint32_t count = 0;
};

// Codes of references (frozen).
inline constexpr std::uint8_t kSoftOwner = 2;
inline constexpr std::uint8_t kHardOwner = 3;
inline constexpr std::uint8_t kSoftPointer = 4;
inline constexpr std::uint8_t kHardPointer = 5;

// A reference as a DWG stores it: code and the absolute handle.
struct Reference {
  std::uint8_t code = 0;
  Handle target = 0;
};

class Object {
 public:
  virtual ~Object() = default;
  Object(const Object&) = default;
  Object& operator=(const Object&) = delete;

  const Kind kind;
  Handle handle = 0;
  Handle owner = 0;
  Handle extension = 0;  // extension dictionary
  std::vector<Handle> reactors;
  std::vector<XData> xdata;

 protected:
  explicit Object(Kind kind) : kind(kind) {}
};

// Values of Entity::linetype and Entity::plotStyle that name no record.
inline constexpr Handle kByLayer = 0;
inline constexpr Handle kByBlock = ~Handle{0};
inline constexpr Handle kContinuous = ~Handle{0} - 1;

inline constexpr std::int16_t kColourByBlock = 0;
inline constexpr std::int16_t kColourByLayer = 256;
inline constexpr std::uint8_t kLineweightByLayer = 29;

// An entity stands in the chain of one block record (or of an INSERT: its attributes). The chain is
// the database's: only Database links and unlinks.
class Entity : public Object {
 public:
  Entity* previous = nullptr;
  Entity* next = nullptr;
  Handle layer = 0;
  Handle linetype = kByLayer;
  Handle plotStyle = kByLayer;
  double linetypeScale = 1.0;
  std::int16_t colour = kColourByLayer;
  std::uint8_t lineweight = kLineweightByLayer;  // index of the R2000 table
  bool invisible = false;
  std::uint16_t otherVisibility = 0;  // bits of the stored word that nobody knows

  // Its layer, colour, linetype, lineweight and plot style.
  void copyLook(const Entity& from) {
    layer = from.layer;
    linetype = from.linetype;
    plotStyle = from.plotStyle;
    linetypeScale = from.linetypeScale;
    colour = from.colour;
    lineweight = from.lineweight;
  }

 protected:
  using Object::Object;
};

}  // namespace drafting

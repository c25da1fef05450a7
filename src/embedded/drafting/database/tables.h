// Symbol-table records, dictionaries and the objects that are only carried through.
#pragma once

#include <array>
#include <utility>

#include "embedded/drafting/database/header.h"
#include "embedded/drafting/database/object.h"

namespace drafting {

// Which symbol table a Control heads.
enum class Table : std::uint8_t {
  Blocks,
  Layers,
  Styles,
  Linetypes,
  Views,
  Ucss,
  Viewports,
  AppIds,
  DimStyles,
  ViewportHeaders,
};
inline constexpr int kTableCount = 10;

// Head of a symbol table: its records in file order. Holes of deleted records stay as 0.
struct Control : Object {
  Control() : Object(Kind::Control) {}
  Table table = Table::Layers;
  std::vector<Handle> records;
  std::vector<Handle> extras;  // blocks: model, paper space; linetypes: by block, by layer
};

// What every record begins with. Names compare without case.
struct Record : Object {
  std::string name;
  bool referenced = true;
  std::int16_t xrefIndex = 0;
  bool xrefDependent = false;
  Handle xref = 0;

 protected:
  using Object::Object;
};

struct Layer : Record {
  Layer() : Record(Kind::Layer) {}
  bool frozen = false, off = false, frozenInNew = false, locked = false, plotted = true;
  std::uint8_t lineweight = 31;
  std::int16_t colour = 7;  // positive, also when the layer is off
  Handle plotStyle = 0;
  Handle linetype = 0;
  std::uint16_t otherFlags = 0;  // bits of the stored flags that nobody knows, kept in place
};

struct TextStyle : Record {
  TextStyle() : Record(Kind::TextStyle) {}
  bool isShapeFile = false, vertical = false;
  double fixedHeight = 0;
  double widthFactor = 1;
  double oblique = 0;
  std::uint8_t generation = 0;
  double lastHeight = 2.5;
  std::string font = "txt";
  std::string bigFont;
};

struct Linetype : Record {
  Linetype() : Record(Kind::Linetype) {}
  struct Dash {
    double length = 0;
    std::int16_t shape = 0;
    double x = 0, y = 0, scale = 1, rotation = 0;
    std::int16_t flags = 0;
    Handle style = 0;
  };
  std::string description;
  double patternLength = 0;
  std::uint8_t alignment = 'A';
  std::vector<Dash> dashes;
  std::string textArea = std::string(256, '\0');
};

struct AppId : Record {
  AppId() : Record(Kind::AppId) {}
  std::uint8_t unknown = 0;
};

// A block definition, model and paper space included. Its entities are the chain from `first` to
// `last`; `name` is the full name, also of anonymous blocks.
struct BlockRecord : Record {
  BlockRecord() : Record(Kind::BlockRecord) {}
  Entity* first = nullptr;
  Entity* last = nullptr;
  std::size_t count = 0;  // entities in the chain
  bool anonymous = false, hasAttdefs = false, isXref = false, isOverlay = false, unloaded = false;
  Point3 base;
  std::string xrefPath;
  std::string description;
  std::string preview;
  Handle begin = 0;  // Block
  Handle end = 0;    // EndBlock
  Handle layout = 0;

  // Model space or the paper space of a layout: drawn for itself, not by inserting it.
  bool isSpace() const;
};

struct Dictionary : Object {
  Dictionary() : Object(Kind::Dictionary) {}
  std::vector<std::pair<std::string, Handle>> items;
  std::int16_t cloning = 1;
  std::uint8_t hardOwner = 0;
  bool withDefault = false;  // the class with a default item
  Handle defaultItem = 0;
};

// A dimension style: its values stand parallel to dimensionVariables().
struct DimStyle : Record {
  DimStyle();
  std::vector<VariableValue> values;
  bool unknown = false;
};

// A screen view of the VPORT table; the current one is named "*Active".
struct Viewport : Record {
  Viewport() : Record(Kind::Viewport) {}
  double height = 297, width = 420;
  Point2 centre{210, 148.5};
  Point3 target;
  Point3 direction{0, 0, 1};
  double twist = 0, lens = 50, front = 0, back = 0;
  std::int16_t viewMode = 0;  // DXF group 71
  std::uint8_t renderMode = 0;
  Point2 lowerLeft, upperRight{1, 1};  // on the screen
  std::int16_t zoom = 1000;            // smoothness of circles
  bool fastZoom = true;
  std::int16_t icon = 3;
  bool grid = false, snap = false, isometric = false;
  Point2 gridSpacing{10, 10};
  std::int16_t isometricPair = 0;
  double snapRotation = 0;
  Point2 snapBase, snapSpacing{10, 10};
  bool unknown = false;
  bool ownUcs = true;
  Point3 ucsOrigin, ucsX{1, 0, 0}, ucsY{0, 1, 0};
  double elevation = 0;
  std::int16_t orthographic = 0;
  Handle namedUcs = 0, baseUcs = 0;
};

// An object of another kind. A VIEW, UCS or viewport-header record is one of these with its common
// start read.
struct RawObject : Record {
  RawObject() : Record(Kind::RawObject) {}
  std::uint16_t type = 0;
  Bits body;  // behind the name where the record has one
  std::vector<Reference> references;
};

// An object of another kind from a DXF file: the groups behind handle and links.
struct GroupObject : Object {
  GroupObject() : Object(Kind::GroupObject) {}
  std::string name;    // "TABLESTYLE"
  std::string groups;  // packed
};

}  // namespace drafting

// The fields of every kind, once, in the order of the DWG body: walk(W&, T&) names each field to
// the walker W, with its DXF group. Walkers: DWG reader, DWG writer, handle mapper, DXF, dump.
//
// A walker has `static constexpr bool kReads` (it assigns the fields) and these operations. The
// name is the field's; group 0 stands for a field that DXF doesn't have.
//   subclass(name)                     DXF subclass marker; nothing in DWG
//   real(name, group, double)          BD            angle(...)      BD, radians; degrees in DXF
//   integer(name, group, int16)        BS            byte(name, group, uint8)    RC
//   bit(name, group, bool)             B             text(name, group, string)   T
//   colour(name, group, int16)         CMC
//   point(name, group, Point3)         3BD           flat(name, group, Point2)   2RD
//   thickness(group, double)           BT            extrusion(group, Point3)    BE
//   normal(group, Point3)              3BD, an extrusion that is always stored in full
//   handle(name, group, code, Handle)  in the stream of references; code as DWG has it
// Codings that depend on values are operations of their own; they take the whole object and are
// described where they are called.
//
// Common data (owner, reactors, extended data, layer, colour, ...) is each codec's own.
#pragma once

#include <type_traits>

#include "embedded/drafting/database/entities.h"
#include "embedded/drafting/database/tables.h"

namespace drafting {

// T& for a walker that reads, const T& for any other.
template <class W, class T>
using Walked = std::conditional_t<W::kReads, T&, const T&>;

// --- entities

template <class W>
void walk(W& w, Walked<W, Line> o) {
  w.subclass("AcDbLine");
  w.lineEnds(o);  // "start" 10, "end" 11: z only where one isn't 0, the end against the start
  w.thickness(39, o.thickness);
  w.extrusion(210, o.normal);
}

template <class W>
void walk(W& w, Walked<W, Point> o) {
  w.subclass("AcDbPoint");
  w.point("position", 10, o.position);
  w.thickness(39, o.thickness);
  w.extrusion(210, o.normal);
  w.angle("xAxisAngle", 50, o.xAxisAngle);
}

template <class W>
void walk(W& w, Walked<W, Circle> o) {
  w.subclass("AcDbCircle");
  w.point("centre", 10, o.centre);
  w.real("radius", 40, o.radius);
  w.thickness(39, o.thickness);
  w.extrusion(210, o.normal);
}

template <class W>
void walk(W& w, Walked<W, Arc> o) {
  w.subclass("AcDbCircle");
  w.point("centre", 10, o.centre);
  w.real("radius", 40, o.radius);
  w.thickness(39, o.thickness);
  w.extrusion(210, o.normal);
  w.subclass("AcDbArc");
  w.angle("startAngle", 50, o.startAngle);
  w.angle("endAngle", 51, o.endAngle);
}

template <class W>
void walk(W& w, Walked<W, Ellipse> o) {
  w.subclass("AcDbEllipse");
  w.point("centre", 10, o.centre);
  w.point("majorAxis", 11, o.majorAxis);
  w.normal(210, o.normal);
  w.real("ratio", 40, o.ratio);
  w.real("startAngle", 41, o.startAngle);  // parameters: radians in DXF too
  w.real("endAngle", 42, o.endAngle);
}

template <class W>
void walk(W& w, Walked<W, Spline> o) {
  w.subclass("AcDbSpline");
  w.spline(o);  // everything: what it is drawn by says which fields there are
}

// Traces too.
template <class W>
void walk(W& w, Walked<W, Solid> o) {
  w.subclass("AcDbTrace");
  w.thickness(39, o.thickness);
  w.solidCorners(o);  // "elevation" BD, then "corners" 10..13 as 2RD; DXF has them with their z
  w.extrusion(210, o.normal);
}

template <class W>
void walk(W& w, Walked<W, LwPolyline> o) {
  w.subclass("AcDbPolyline");
  w.lwPolyline(o);  // everything: flags say which fields follow
}

template <class W>
void walk(W& w, Walked<W, Hatch> o) {
  w.subclass("AcDbHatch");
  w.planeElevation(10, o.elevation);  // BD; DXF has a point
  w.normal(210, o.normal);
  w.text("pattern", 2, o.pattern);
  w.bit("solid", 70, o.solid);
  w.bit("associative", 71, o.associative);
  w.hatchPaths(o);  // count 91, the paths, and a reference for each of their sources
  w.integer("style", 75, o.style);
  w.integer("patternKind", 76, o.patternKind);
  w.hatchLines(o);  // unless solid: angle 52, scale 41, double 77, lines 78
  w.hatchSeeds(o);  // size of a pixel 47 where a path is derived, seed points 98
}

template <class W>
void walk(W& w, Walked<W, Polyline> o) {
  w.polyline(o);  // everything: the form says which fields there are, and references of members
}

template <class W>
void walk(W& w, Walked<W, Vertex> o) {
  w.vertex(o);  // everything
}

template <class W>
void walk(W& w, Walked<W, Text> o) {
  w.subclass("AcDbText");
  w.textFields(o);  // everything of TextBase but the style; flags say what is missing
  w.handle("style", 7, kHardPointer, o.style);
  w.subclass("AcDbText");
  w.verticalAlignment(73, o);  // its place in DXF; DWG has had it in textFields
}

template <class W>
void walk(W& w, Walked<W, Attrib> o) {
  w.subclass("AcDbText");
  w.textFields(o);
  w.handle("style", 7, kHardPointer, o.style);
  w.subclass("AcDbAttribute");
  w.text("tag", 2, o.tag);
  w.integer("fieldLength", 73, o.fieldLength);
  w.byte("flags", 70, o.flags);
  w.verticalAlignment(74, o);
}

template <class W>
void walk(W& w, Walked<W, Attdef> o) {
  w.subclass("AcDbText");
  w.textFields(o);
  w.handle("style", 7, kHardPointer, o.style);
  w.subclass("AcDbAttributeDefinition");
  w.text("tag", 2, o.tag);
  w.integer("fieldLength", 73, o.fieldLength);
  w.byte("flags", 70, o.flags);
  w.text("prompt", 3, o.prompt);
  w.verticalAlignment(74, o);
}

template <class W>
void walk(W& w, Walked<W, MText> o) {
  w.subclass("AcDbMText");
  w.point("position", 10, o.position);
  w.normal(210, o.normal);
  w.point("xDirection", 11, o.xDirection);
  w.real("width", 41, o.width);
  w.real("height", 40, o.height);
  w.integer("attachment", 71, o.attachment);
  w.integer("flow", 72, o.flow);
  w.real("drawnHeight", 43, o.drawnHeight);
  w.real("drawnWidth", 42, o.drawnWidth);
  w.longText("text", 1, o.text);  // T; DXF cuts it into pieces, groups 3 and last 1
  w.handle("style", 7, kHardPointer, o.style);
  w.integer("spacingKind", 73, o.spacingKind);
  w.real("spacingFactor", 44, o.spacingFactor);
  w.bit("unknown", 0, o.unknown);
}

template <class W>
void walk(W& w, Walked<W, Insert> o) {
  w.subclass("AcDbBlockReference");
  w.point("position", 10, o.position);
  w.insertScale(o);  // "scale" 41 42 43: short forms for equal factors
  w.angle("rotation", 50, o.rotation);
  w.normal(210, o.normal);
  w.handle("block", 2, kHardPointer, o.block);
  w.insertTail(o);  // attributes (66 and their references), and the fields of the array form
}

template <class W>
void walk(W& w, Walked<W, Block> o) {
  w.subclass("AcDbBlockBegin");
  w.text("name", 2, o.name);
}

template <class W>
void walk(W& w, Walked<W, EndBlock>) {
  w.subclass("AcDbBlockEnd");
}

template <class W>
void walk(W&, Walked<W, SeqEnd>) {}

template <class W>
void walk(W& w, Walked<W, RawEntity> o) {
  w.rawBody(o);  // all bits up to the references, and all references
}

template <class W>
void walk(W& w, Walked<W, GroupEntity> o) {
  w.text("name", 0, o.name);
  w.packedGroups(o.groups);
}

// --- records and other objects

template <class W>
void walkRecordStart(W& w, Walked<W, Record> o) {
  w.text("name", 2, o.name);
  w.bit("referenced", 0, o.referenced);
  w.integer("xrefIndex", 0, o.xrefIndex);
  w.bit("xrefDependent", 0, o.xrefDependent);
  w.recordFlags(o);  // nothing in DWG; DXF has the flags of all records in 70
}

template <class W>
void walk(W& w, Walked<W, Control> o) {
  w.controlRecords(o);  // counts, then the references of records and extras
}

template <class W>
void walk(W& w, Walked<W, BlockRecord> o) {
  w.subclass("AcDbBlockTableRecord");
  w.blockName(o);  // short for anonymous blocks
  w.bit("referenced", 0, o.referenced);
  w.integer("xrefIndex", 0, o.xrefIndex);
  w.bit("xrefDependent", 0, o.xrefDependent);
  w.bit("anonymous", 0, o.anonymous);
  w.bit("hasAttdefs", 0, o.hasAttdefs);
  w.bit("isXref", 0, o.isXref);
  w.bit("isOverlay", 0, o.isOverlay);
  w.bit("unloaded", 0, o.unloaded);
  w.point("base", 10, o.base);
  w.text("xrefPath", 1, o.xrefPath);
  w.insertCount(o);  // a byte for each INSERT of this block
  w.text("description", 4, o.description);
  w.blob("preview", 310, o.preview);  // BL length, the bytes
  w.handle("xref", 0, kHardPointer, o.xref);
  w.blockContent(o);  // references: BLOCK, first and last entity, ENDBLK, the INSERTs
  w.handle("layout", 340, kHardPointer, o.layout);
}

template <class W>
void walk(W& w, Walked<W, Layer> o) {
  w.subclass("AcDbLayerTableRecord");
  walkRecordStart(w, o);
  w.layerFlags(o);  // BS: frozen 1, off 2, frozen in new 4, locked 8, plotted 10, lineweight << 5
  w.colour("colour", 62, o.colour);
  w.handle("xref", 0, kHardPointer, o.xref);
  w.handle("plotStyle", 390, kHardPointer, o.plotStyle);
  w.handle("linetype", 6, kHardPointer, o.linetype);
}

template <class W>
void walk(W& w, Walked<W, TextStyle> o) {
  w.subclass("AcDbTextStyleTableRecord");
  walkRecordStart(w, o);
  w.bit("isShapeFile", 0, o.isShapeFile);
  w.bit("vertical", 0, o.vertical);
  w.real("fixedHeight", 40, o.fixedHeight);
  w.real("widthFactor", 41, o.widthFactor);
  w.angle("oblique", 50, o.oblique);
  w.byte("generation", 71, o.generation);
  w.real("lastHeight", 42, o.lastHeight);
  w.text("font", 3, o.font);
  w.text("bigFont", 4, o.bigFont);
  w.handle("xref", 0, kHardPointer, o.xref);
}

template <class W>
void walk(W& w, Walked<W, Linetype> o) {
  w.subclass("AcDbLinetypeTableRecord");
  walkRecordStart(w, o);
  w.text("description", 3, o.description);
  w.real("patternLength", 40, o.patternLength);
  w.byte("alignment", 72, o.alignment);
  w.handle("xref", 0, kHardPointer, o.xref);
  w.dashes(o);  // RC count, the dashes, the text area, and a style reference for each dash
}

template <class W>
void walk(W& w, Walked<W, AppId> o) {
  w.subclass("AcDbRegAppTableRecord");
  walkRecordStart(w, o);
  w.byte("unknown", 0, o.unknown);
  w.handle("xref", 0, kHardPointer, o.xref);
}

template <class W>
void walk(W& w, Walked<W, DimStyle> o) {
  w.subclass("AcDbDimStyleTableRecord");
  walkRecordStart(w, o);
  w.handle("xref", 0, kHardPointer, o.xref);
  w.dimensionValues(o);  // as dimensionVariables() lists them
  w.bit("unknown", 0, o.unknown);
}

template <class W>
void walk(W& w, Walked<W, Viewport> o) {
  w.subclass("AcDbViewportTableRecord");
  walkRecordStart(w, o);
  w.real("height", 40, o.height);
  w.viewWidth(o);  // BD; DXF has the aspect ratio instead, 41
  w.flat("centre", 12, o.centre);
  w.point("target", 17, o.target);
  w.point("direction", 16, o.direction);
  w.angle("twist", 51, o.twist);
  w.real("lens", 42, o.lens);
  w.real("front", 43, o.front);
  w.real("back", 44, o.back);
  w.viewMode(o);  // 71: bits 0, 1, 2 and the inverse of bit 4
  w.byte("renderMode", 281, o.renderMode);
  w.flat("lowerLeft", 10, o.lowerLeft);
  w.flat("upperRight", 11, o.upperRight);
  w.viewFollows(o);  // bit 3 of the view mode
  w.integer("zoom", 72, o.zoom);
  w.bit("fastZoom", 73, o.fastZoom);
  w.viewIcon(o);  // 74: bits 0 and 1
  w.bit("grid", 76, o.grid);
  w.flat("gridSpacing", 15, o.gridSpacing);
  w.bit("snap", 75, o.snap);
  w.bit("isometric", 77, o.isometric);
  w.integer("isometricPair", 78, o.isometricPair);
  w.angle("snapRotation", 50, o.snapRotation);
  w.flat("snapBase", 13, o.snapBase);
  w.flat("snapSpacing", 14, o.snapSpacing);
  w.bit("unknown", 0, o.unknown);
  w.bit("ownUcs", 65, o.ownUcs);
  w.point("ucsOrigin", 110, o.ucsOrigin);
  w.point("ucsX", 111, o.ucsX);
  w.point("ucsY", 112, o.ucsY);
  w.real("elevation", 146, o.elevation);
  w.integer("orthographic", 79, o.orthographic);
  w.handle("xref", 0, kHardPointer, o.xref);
  w.handle("namedUcs", 345, kHardPointer, o.namedUcs);
  w.handle("baseUcs", 346, kHardPointer, o.baseUcs);
}

template <class W>
void walk(W& w, Walked<W, Dictionary> o) {
  w.subclass("AcDbDictionary");
  w.dictionaryItems(o);  // BL count, cloning, hard owner, the names; references of the items
}

template <class W>
void walk(W& w, Walked<W, RawObject> o) {
  w.rawBody(o);  // the record's common start where it is one, then as RawEntity
}

template <class W>
void walk(W& w, Walked<W, GroupObject> o) {
  w.text("name", 0, o.name);
  w.packedGroups(o.groups);
}

}  // namespace drafting

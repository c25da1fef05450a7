// From the kind of an object to its type: calls with the object as what it is, and makes objects.
#pragma once

#include <memory>
#include <utility>

#include "embedded/drafting/database/entities.h"
#include "embedded/drafting/database/tables.h"

namespace drafting {

// Calls f(T*) with a null pointer of the kind's type.
template <class F>
decltype(auto) visitKind(Kind kind, F&& f) {
  switch (kind) {
    case Kind::RawEntity: return f(static_cast<RawEntity*>(nullptr));
    case Kind::GroupEntity: return f(static_cast<GroupEntity*>(nullptr));
    case Kind::GroupObject: return f(static_cast<GroupObject*>(nullptr));
    case Kind::Line: return f(static_cast<Line*>(nullptr));
    case Kind::Point: return f(static_cast<Point*>(nullptr));
    case Kind::Circle: return f(static_cast<Circle*>(nullptr));
    case Kind::Arc: return f(static_cast<Arc*>(nullptr));
    case Kind::Ellipse: return f(static_cast<Ellipse*>(nullptr));
    case Kind::Spline: return f(static_cast<Spline*>(nullptr));
    case Kind::Solid: return f(static_cast<Solid*>(nullptr));
    case Kind::Trace: return f(static_cast<Trace*>(nullptr));
    case Kind::LwPolyline: return f(static_cast<LwPolyline*>(nullptr));
    case Kind::Hatch: return f(static_cast<Hatch*>(nullptr));
    case Kind::Polyline: return f(static_cast<Polyline*>(nullptr));
    case Kind::Vertex: return f(static_cast<Vertex*>(nullptr));
    case Kind::Text: return f(static_cast<Text*>(nullptr));
    case Kind::Attrib: return f(static_cast<Attrib*>(nullptr));
    case Kind::Attdef: return f(static_cast<Attdef*>(nullptr));
    case Kind::MText: return f(static_cast<MText*>(nullptr));
    case Kind::Insert: return f(static_cast<Insert*>(nullptr));
    case Kind::Block: return f(static_cast<Block*>(nullptr));
    case Kind::EndBlock: return f(static_cast<EndBlock*>(nullptr));
    case Kind::SeqEnd: return f(static_cast<SeqEnd*>(nullptr));
    case Kind::Control: return f(static_cast<Control*>(nullptr));
    case Kind::BlockRecord: return f(static_cast<BlockRecord*>(nullptr));
    case Kind::Layer: return f(static_cast<Layer*>(nullptr));
    case Kind::TextStyle: return f(static_cast<TextStyle*>(nullptr));
    case Kind::Linetype: return f(static_cast<Linetype*>(nullptr));
    case Kind::AppId: return f(static_cast<AppId*>(nullptr));
    case Kind::DimStyle: return f(static_cast<DimStyle*>(nullptr));
    case Kind::Viewport: return f(static_cast<Viewport*>(nullptr));
    case Kind::Dictionary: return f(static_cast<Dictionary*>(nullptr));
    case Kind::RawObject: break;
  }
  return f(static_cast<RawObject*>(nullptr));
}

// Calls f(T&) with the object as its own type.
template <class F>
decltype(auto) visit(Object& object, F&& f) {
  return visitKind(object.kind,
                   [&]<class T>(T*) -> decltype(auto) { return f(static_cast<T&>(object)); });
}
template <class F>
decltype(auto) visit(const Object& object, F&& f) {
  return visitKind(object.kind,
                   [&]<class T>(T*) -> decltype(auto) { return f(static_cast<const T&>(object)); });
}

// A new object of that kind with the initial values of its fields.
std::unique_ptr<Object> makeObject(Kind kind);

// A copy that stands nowhere yet: no handle, no owner, no neighbours.
std::unique_ptr<Object> copyObject(const Object& object);

// The table that a record of that kind belongs to; RawObject records go by their owner instead.
bool tableOfKind(Kind kind, Table& table);

}  // namespace drafting

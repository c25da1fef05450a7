// The element classes that the container family is instantiated for. They belong to the companion
// modules TessmarBase, TessmarGeometry and TessmarDbObject; declared here is what the family needs
// of them: construction, assignment, comparison and, of those that containers own, a virtual
// destructor.
#pragma once

// A queue of numbers, which searches fill.
template <class T>
class TqQuene {
 public:
  virtual ~TqQuene() {}
  virtual void Add(const T& value) = 0;
  virtual int GetCount() const = 0;
};

// --- Values --------------------------------------------------------------------------------------

// Ordered by x, then y, then z. Copying is the class's own, so that it isn't a trivial operation.
class TqGePoint {
 public:
  TqGePoint() : x(0), y(0), z(0) {}
  TqGePoint(const TqGePoint& other) : x(other.x), y(other.y), z(other.z) {}
  TqGePoint& operator=(const TqGePoint& other) {
    x = other.x;
    y = other.y;
    z = other.z;
    return *this;
  }
  bool operator==(const TqGePoint& other) const {
    return x == other.x && y == other.y && z == other.z;
  }
  bool operator<(const TqGePoint& other) const {
    if (x != other.x) return x < other.x;
    return y != other.y ? y < other.y : z < other.z;
  }
  bool operator>(const TqGePoint& other) const { return other < *this; }

  double x, y, z;
};

// A box, ordered by its lower corner.
class TqGeExtent {
 public:
  bool operator==(const TqGeExtent& other) const {
    return lower == other.lower && upper == other.upper;
  }
  bool operator<(const TqGeExtent& other) const {
    return lower == other.lower ? upper < other.upper : lower < other.lower;
  }
  bool operator>(const TqGeExtent& other) const { return other < *this; }

  TqGePoint lower, upper;
};

// Parts of a grid know their place in it and are ordered by it.
class TqGeGridLineBJ {
 public:
  TqGeGridLineBJ() : position(0) {}
  bool operator==(const TqGeGridLineBJ& other) const { return position == other.position; }
  bool operator<(const TqGeGridLineBJ& other) const { return position < other.position; }
  bool operator>(const TqGeGridLineBJ& other) const { return position > other.position; }

  double position;
};

class TqGeGridCellBJ {
 public:
  TqGeGridCellBJ() : number(0) {}
  bool operator==(const TqGeGridCellBJ& other) const { return number == other.number; }
  bool operator<(const TqGeGridCellBJ& other) const { return number < other.number; }
  bool operator>(const TqGeGridCellBJ& other) const { return number > other.number; }

  int number;
};

// Copying and destruction are the class's own.
class TqGeGridNodeBJ {
 public:
  TqGeGridNodeBJ() : number(0) {}
  TqGeGridNodeBJ(const TqGeGridNodeBJ& other) : number(other.number) {}
  ~TqGeGridNodeBJ() {}
  TqGeGridNodeBJ& operator=(const TqGeGridNodeBJ& other) {
    number = other.number;
    return *this;
  }
  bool operator==(const TqGeGridNodeBJ& other) const { return number == other.number; }
  bool operator<(const TqGeGridNodeBJ& other) const { return number < other.number; }
  bool operator>(const TqGeGridNodeBJ& other) const { return number > other.number; }

  int number;
};

// --- Objects that containers own ---

// What all of them have: deletion through the base, and an order by a number of their own.
class TqElement {
 public:
  TqElement() : number(0) {}
  virtual ~TqElement() {}
  bool operator==(const TqElement& other) const { return number == other.number; }
  bool operator<(const TqElement& other) const { return number < other.number; }
  bool operator>(const TqElement& other) const { return number > other.number; }

  int number;
};

class TqDbGrip : public TqElement {};
class TqDbGripDim : public TqElement {};
class TqDbReactorAndData : public TqElement {};
class TqDbWallGraphEdge : public TqElement {};
class TqDbWallGraphNode : public TqElement {};
class TqDbWallGraphPath : public TqElement {};
class TqDynArrayStream : public TqElement {};
class TqGeCurveMeshCell : public TqElement {};
class TqGeCurveMeshCell3d : public TqElement {};
class TqGeCurveMeshEdge : public TqElement {};
class TqGeCurveMeshEdge3d : public TqElement {};
class TqGeCurveMeshNode : public TqElement {};
class TqGeCurveMeshNode3d : public TqElement {};
class TqGeFace : public TqElement {};
class TqGeGridSegBJ : public TqElement {};
class TqGeMLine2d : public TqElement {};
class TqGiObject : public TqElement {};
class TqGraphArc : public TqElement {};
class TqGraphNode : public TqElement {};

// Only pointed to.
class TqGePtQuadTree2d;

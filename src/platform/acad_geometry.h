// Points, tolerance and extents as the host has them.
#pragma once

// Points closer than equalPoint count as one.
class AcGeTol {
 public:
  double equalPoint() const { return equalPoint_; }
  double equalVector() const { return equalVector_; }
  void setEqualPoint(double value) { equalPoint_ = value; }
  void setEqualVector(double value) { equalVector_ = value; }

 private:
  double equalPoint_ = 1e-10;
  double equalVector_ = 1e-10;
};

struct AcGeContext {
  static AcGeTol gTol;  // what a comparison takes when it isn't given a tolerance
};

struct AcGePoint2d {
  double x = 0;
  double y = 0;
  bool isEqualTo(const AcGePoint2d& other, const AcGeTol& tolerance = AcGeContext::gTol) const;
};

struct AcGePoint3d {
  double x = 0;
  double y = 0;
  double z = 0;
  bool isEqualTo(const AcGePoint3d& other, const AcGeTol& tolerance = AcGeContext::gTol) const;
  double distanceTo(const AcGePoint3d& other) const;
};

class AcDbExtents {
 public:
  AcGePoint3d minPoint() const { return min_; }
  AcGePoint3d maxPoint() const { return max_; }
  void set(const AcGePoint3d& min, const AcGePoint3d& max) {
    min_ = min;
    max_ = max;
  }

 private:
  AcGePoint3d min_;
  AcGePoint3d max_;
};

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

struct AcGeVector3d {
  double x = 0;
  double y = 0;
  double z = 0;
};

// Rows and columns count from 0; points are columns, so that the last column is the translation.
// Made as the identity.
class AcGeMatrix3d {
 public:
  double operator()(int row, int column) const { return entry_[row][column]; }
  double& operator()(int row, int column) { return entry_[row][column]; }
  AcGeMatrix3d& setToTranslation(const AcGeVector3d& by) {
    *this = {};
    entry_[0][3] = by.x;
    entry_[1][3] = by.y;
    entry_[2][3] = by.z;
    return *this;
  }

 private:
  double entry_[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
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

// Points, sizes and rectangles with the operations that window code needs; pixels.
#pragma once

#include "platform/framework_system.h"

class CPoint : public POINT {
 public:
  CPoint() : POINT{} {}
  CPoint(int px, int py) : POINT{px, py} {}
  CPoint(const POINT& other) : POINT(other) {}
  // Signed halves of a message's parameter.
  explicit CPoint(LPARAM packed)
      : POINT{static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed))} {}
  void Offset(int dx, int dy) { x += dx, y += dy; }
};

class CSize : public SIZE {
 public:
  CSize() : SIZE{} {}
  CSize(int width, int height) : SIZE{width, height} {}
  CSize(const SIZE& other) : SIZE(other) {}
};

class CRect : public RECT {
 public:
  CRect() : RECT{} {}
  CRect(int l, int t, int r, int b) : RECT{l, t, r, b} {}
  CRect(const RECT& other) : RECT(other) {}

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  BOOL IsRectEmpty() const { return ::IsRectEmpty(this); }
  BOOL PtInRect(POINT point) const { return ::PtInRect(this, point); }  // right, bottom are outside
  void InflateRect(int dx, int dy) { ::InflateRect(this, dx, dy); }
  void DeflateRect(int dx, int dy) { ::InflateRect(this, -dx, -dy); }
  void OffsetRect(int dx, int dy) { ::OffsetRect(this, dx, dy); }
  operator RECT*() { return this; }
  operator const RECT*() const { return this; }
  friend bool operator==(const CRect& a, const CRect& b) { return ::EqualRect(&a, &b) != 0; }
};

// Overlay: what moves with the mouse over the drawing: crosshair, pick box, rubber band. Drawn into
// a copy of the screen's bitmap, of which only the pixels below old and new lines are touched.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "programs/desktop/screen.h"

namespace desktop {

// May lead far out of the area; only what lies in it is drawn.
struct OverlayLine {
  Point2 from, to;
  std::uint32_t colour = 0xFFFFFF;  // 0x00RRGGBB
  bool dashed = false;
};

// The right and the bottom edge lie outside.
struct PixelRect {
  int left = 0, top = 0, right = 0, bottom = 0;
};

class Overlay {
 public:
  // `pixels` holds width * height of them, row by row from the top; it outlives the object or the
  // next call.
  void setMemory(std::uint32_t* pixels, int width, int height);

  // The whole picture and the lines on it.
  void redraw(const drafting::ScreenBitmap& picture, std::vector<OverlayLine> lines);
  // Only the lines changed: what must be shown anew.
  std::vector<PixelRect> replace(const drafting::ScreenBitmap& picture,
                                 std::vector<OverlayLine> lines);

 private:
  void restore(const drafting::ScreenBitmap& picture, const PixelRect& part);
  void draw(const OverlayLine& line);
  bool clip(Point2& from, Point2& to) const;
  void addStrips(const OverlayLine& line, std::vector<PixelRect>& strips) const;

  std::uint32_t* pixels_ = nullptr;
  int width_ = 0, height_ = 0;
  std::vector<OverlayLine> lines_;
};

void addRectangle(std::vector<OverlayLine>& lines, Point2 a, Point2 b, const OverlayLine& style);

}  // namespace desktop

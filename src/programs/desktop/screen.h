// Screen: what the drawing area shows: the drawing through the session's view, what is selected
// dashed. Follows the drawing change by change and redraws only when something is to be seen.
// Pixels count from the top left corner.
#pragma once

#include "embedded/drafting/display/screen_bitmap.h"
#include "embedded/drafting/display/screen_picture.h"
#include "embedded/drafting/documents/session.h"

namespace desktop {

using base::Point2;
using drafting::Handle;
using drafting::Selection;

struct Pixel {
  int x = 0, y = 0;
  friend bool operator==(const Pixel&, const Pixel&) = default;
};

class Screen : public drafting::ChangeWatcher {
 public:
  explicit Screen(drafting::Session& session);
  ~Screen() override;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  void resize(int width, int height);  // sides below 1 count as 1
  // Brings the bitmap up to date with drawing, view and `selected`; true if it was drawn anew.
  bool refresh(const Selection& selected);
  const drafting::ScreenBitmap& bitmap() const { return bitmap_; }

  Point2 drawingPoint(Pixel pixel) const;  // of the pixel's middle
  Point2 pixelPoint(Point2 point) const;   // may lie outside of the area, by any distance

  // How often the whole picture was made, and not only what had changed.
  int rebuilds() const { return rebuilds_; }

  void touched(const drafting::Object& object) override;

 private:
  void watch(drafting::Database* database);
  void followDrawing();
  void rebuild();
  void note(const drafting::Object& record);
  void draw();
  base::Affine2 map() const;

  drafting::Session& session_;
  drafting::Database* watched_ = nullptr;
  drafting::ScreenPicture picture_, selectedPicture_;
  drafting::ScreenBitmap bitmap_{1, 1};
  std::vector<Handle> changed_;
  Handle firstNew_ = 0;  // records from here on came since the picture was last made up to date
  bool stale_ = true, dirty_ = true;
  int rebuilds_ = 0;
  Selection selected_;
  base::Box2 shownWindow_;
};

}  // namespace desktop

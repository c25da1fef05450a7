// View: what part of the drawing the screen shows, and the views before. It belongs to the session:
// changing it is no change of the drawing and no step of undo. A drawing's file keeps the last one.
#pragma once

#include <vector>

#include "embedded/drafting/database/database.h"

namespace drafting {

class View {
 public:
  Point2 centre() const { return now_.centre; }
  double height() const { return now_.height; }
  double width() const { return now_.height * screen_.x / screen_.y; }
  base::Box2 window() const;

  Point2 screenSize() const { return screen_; }  // in pixels
  void setScreenSize(Point2 pixels);             // sides below 1 count as 1
  double unitsPerPixel() const { return now_.height / screen_.y; }

  // False, and nothing changed, if the height isn't a positive number one can reckon with.
  bool show(Point2 centre, double height);
  // The same as the next step of a movement that began with show(): only the view before all of it
  // is one to go back to.
  bool showNext(Point2 centre, double height);
  // So that all of the box is seen; one without extent is only centred.
  bool showBox(const base::Box2& box, double margin = 1);
  bool showPrevious();  // false if there is none

  // From and to the drawing's active viewport.
  void takeFrom(const Database& database);
  void storeIn(Database& database) const;

 private:
  struct State {
    Point2 centre{210, 148.5};
    double height = 297;
    friend bool operator==(const State&, const State&) = default;
  };
  State now_;
  bool moved_ = false;  // since it was taken from the drawing
  std::vector<State> before_;
  Point2 screen_{1024, 768};
};

}  // namespace drafting

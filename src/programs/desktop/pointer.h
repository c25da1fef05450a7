// Pointer: what the mouse does in the drawing area. At a prompt for a point it answers; at the
// command prompt it selects, by a click or by the two corners of a rectangle: to the right what
// lies within, to the left what it crosses too. Wheel and middle button move the view at any time.
#pragma once

#include <optional>

#include "programs/desktop/overlay.h"

namespace desktop {

class Pointer {
 public:
  Pointer(drafting::Session& session, const Screen& screen) : session_(session), screen_(screen) {}

  void moveTo(Pixel at);
  void leave() { at_.reset(); }
  void leftClick(Pixel at);
  void wheel(Pixel at, double notches);  // up (positive) looks closer
  void startPan(Pixel at);
  void endPan() { pan_.reset(); }
  bool panning() const { return pan_.has_value(); }
  // Takes back what is begun: an open rectangle, else the selection. False if there was nothing.
  bool cancel();
  // The drawing is another one.
  void forget();

  std::optional<Pixel> at() const { return at_; }
  const Selection& selected() const { return selected_; }
  void select(Selection selected) { selected_ = std::move(selected); }
  // What is to be shown as selected: what a command is asking for, else the own selection.
  const Selection& shown() const { return session_.chosen ? *session_.chosen : selected_; }
  std::vector<OverlayLine> overlay() const;

 private:
  bool selects() const;
  void selectAt(Pixel at);
  void selectWithin(Point2 corner, Point2 opposite);
  void add(const Selection& found);
  void addCursor(std::vector<OverlayLine>& lines) const;
  void addRubberBand(std::vector<OverlayLine>& lines) const;

  drafting::Session& session_;
  const Screen& screen_;
  std::optional<Pixel> at_, pan_;
  std::optional<Point2> corner_;  // of an open rectangle, in the drawing
  Selection selected_;
  bool zooming_ = false;  // the last thing done was a turn of the wheel
};

}  // namespace desktop

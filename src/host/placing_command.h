// The placing command yczhlhz: a loop of two prompts that draws the circuits clicked in the library
// window in a chain to the right, with auxiliary symbols below them.
//
//   state            entered by                        left by
//   point prompt     start; Enter at keyword prompt    a point; Enter ends with 1; cancel ends
//   keyword prompt   a point                           Enter or an odd answer; cancel ends
#pragma once

#include "engine/print_scale.h"
#include "platform/acad_database.h"
#include "platform/acad_result.h"

class PlacingCommand {
 public:
  // 1 after Enter at the point prompt, RTCAN when cancelled, RTERROR without a print scale. ATTREQ
  // is 1 afterwards, whatever it was: nothing puts it back.
  int run();

 private:
  enum class Step { stay, next, end };

  void armAttributes();
  bool readScale();
  Step askPoint();
  Step askKeyword();
  Step answerPoint(int result, wchar_t key);
  Step answerKeyword(wchar_t key);

  void drawCircuit();
  void drawSelected();
  void placeBelowMarker();
  void placeForChain();
  void placeAuxiliary();
  bool readMarker();
  bool nothingDrawn() const;
  Step addSymbol();
  void moveRight();
  AcGePoint2d markerPoint() const;
  Step endWith(int result);

  int result_ = RTERROR;
  PrintScale scale_;
  ads_point insertion_ = {0, 0, 0};
  AcGePoint2d picked_;
  AcDbObjectId firstId_;
  AcDbObjectId lastId_;
  AcDbObjectIdArray slots_;  // the placed symbol of each folder of the bar
};

// What the window framework remembers between its calls. One thread, so plain variables.
#pragma once

#include "platform/framework_system.h"

class CWnd;

namespace framework {

struct State {
  MSG current{};             // the message that is being handled
  CWnd* creating = nullptr;  // the object whose window is about to be made
  CWnd* main = nullptr;
  HWND trackingWindow = nullptr;  // a popup menu that is shown, and its window
  HMENU trackingMenu = nullptr;
  int quitCode = 0;
};

State& state();

// Around the creation of a window by the system: the first window that is made becomes the
// object's.
class Creation {
 public:
  explicit Creation(CWnd* object);
  ~Creation();
  Creation(const Creation&) = delete;
  Creation& operator=(const Creation&) = delete;
  // Was a window made, if only for a moment? Without one, nobody has called PostNcDestroy.
  bool attached() const;

 private:
  HHOOK hook_;
};

// Inside of a catch block that caught everything: shows what was thrown.
void reportException(HWND owner);

}  // namespace framework

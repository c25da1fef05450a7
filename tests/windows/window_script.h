// Real mouse and keyboard input in a fixed order. The steps run from the timer of a helper window,
// so also inside of modal loops (menus, drags, dialogs) of the tested window; input is sent from
// the windows' own thread, which makes it deterministic.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace window_kit {

// A point of a window's client area.
struct Spot {
  HWND window;
  int x;
  int y;
};

class WindowScript {
 public:
  // Queues anything: a check, a call.
  WindowScript& then(std::function<void()> action);
  // Goes on when the condition holds; the script fails with `what` when patience is at its end.
  WindowScript& waitFor(std::string what, std::function<bool()> condition);
  // How long a condition may take; two seconds if nothing is said.
  WindowScript& patience(ULONGLONG milliseconds);

  // Mouse input at a point of the window's client area. Each call is a step of its own, since fast
  // moves coalesce.
  WindowScript& move(HWND window, int x, int y);
  // The same at a spot that is looked up when the step runs, for windows that are yet to come.
  WindowScript& move(std::function<Spot()> where);
  WindowScript& press();
  WindowScript& release();
  WindowScript& pressRight();
  WindowScript& releaseRight();
  WindowScript& click(HWND window, int x, int y);
  WindowScript& rightClick(HWND window, int x, int y);
  WindowScript& drag(HWND window, POINT from, POINT to);
  // A key's virtual code, down and up.
  WindowScript& key(WORD virtualKey);

  // Real input from outside of the program: one line of the server's own input tool, such as
  // "mousemove 10 20 click 1", in screen co-ordinates. Wait for what it sets off.
  WindowScript& outside(std::string command);

  // Asked before a message is dispatched, as the tested program's own loop would; true: taken.
  WindowScript& translate(std::function<bool(MSG*)> function);

  // Done once when the script fails: ends a modal loop that the next steps would have ended.
  WindowScript& onFailure(std::function<void()> action);

  // Pumps messages until every step is done. Returns an empty text, or why the script stopped.
  std::string run();
  // The same while a loop of the tested program pumps, which ends when the script is over.
  std::string runWithin(const std::function<void()>& loop);
  bool over() const { return !failure_.empty() || next_ >= steps_.size(); }

 private:
  struct Step {
    std::string what;
    std::function<bool()> done;
  };

  void handle(MSG& message);
  static void CALLBACK onTimer(HWND helper, UINT message, UINT_PTR id, DWORD time);
  void advance();

  std::function<bool(MSG*)> translate_;
  std::function<void()> onFailure_;
  std::vector<Step> steps_;
  std::size_t next_ = 0;
  ULONGLONG waitingSince_ = 0;
  ULONGLONG patience_ = 2000;
  std::string failure_;
};

}  // namespace window_kit

// Message boxes. All go through one function, so that a window system, a test or a program without
// windows can take them.
#pragma once

#include <functional>
#include <string>

constexpr unsigned kMessageOk = 0;  // style: one button
constexpr int kMessageAnswerOk = 1;
constexpr int kMessageAnswerCancel = 2;

struct MessageBoxCall {
  void* owner = nullptr;  // window, or none
  std::wstring text;
  std::wstring caption;
  unsigned style = kMessageOk;
};

// The answer: the number of the button.
int showMessageBox(const MessageBoxCall& call);

// Who shows message boxes from now on; an empty function brings back the default, which prints the
// text on the command line and answers OK where that is the one button, else cancel. Returns who
// did before.
std::function<int(const MessageBoxCall&)> setMessageBoxHandler(
    std::function<int(const MessageBoxCall&)> handler);

// A hand on another program's windows: finds them, clicks and types through the screen's own input
// tool, waits for what comes of it, and takes pictures of the screen. What doesn't come in time is
// thrown as a text.
#pragma once

#include <windows.h>

#include <filesystem>
#include <functional>
#include <string>

namespace road {

class Hand {
 public:
  // Pictures are kept here as NN-name.png.
  explicit Hand(std::filesystem::path pictures) : pictures_(std::move(pictures)) {}

  void start(std::wstring commandLine);
  // The program's exit code, once it has ended.
  DWORD waitForEnd();
  void kill();  // as a crash would

  // --- windows
  // The program's visible top-level window whose title holds the text.
  HWND find(const std::wstring& title) const;
  HWND wait(const std::wstring& title);
  // The program's dialog or message box that is in front; null if there is none.
  HWND dialog() const;
  HWND waitForDialog();
  void waitForNoDialog();
  static HWND child(HWND window, std::initializer_list<int> path);
  static std::wstring text(HWND window);

  // --- input
  void click(HWND window, int x, int y);  // in client co-ordinates
  void move(HWND window, int x, int y);
  void clickMiddle(HWND control);
  void keys(const std::string& names);  // "Return", "alt+k"
  void setText(HWND control, const std::wstring& text);

  void waitFor(const std::string& what, const std::function<bool()>& condition);
  void picture(const std::string& name);
  // Lit pixels of a window's client area as the screen shows it.
  static int lit(HWND window);

 private:
  static void send(const std::string& line);

  std::filesystem::path pictures_;
  PROCESS_INFORMATION process_{};
  int count_ = 0;
};

// Runs a program to its end; its exit code.
DWORD runProgram(std::wstring commandLine);

}  // namespace road

// The desktop's own window with a session behind it, worked by real mouse and keys. The command
// line runs while a script does its steps.
#pragma once

#include <gtest/gtest.h>

#include "embedded/base/text.h"
#include "platform/framework_app.h"
#include "platform/framework_messages.h"
#include "programs/desktop/desktop_fixture.h"
#include "programs/desktop/windows/main_frame.h"
#include "windows/picture.h"
#include "windows/window_script.h"

namespace test {

class FrameFixture : public DesktopFixture {
 protected:
  FrameFixture() : frame_(new MainFrame(desk)) {
    EXPECT_TRUE(frame_->CreateMain());
    session.mainWindow = frame_->m_hWnd;
    frame_->MoveWindow(10, 10, 900, 700);
    frame_->ShowWindow(SW_SHOWNORMAL);
    frame_->InitialUpdateFrame();
    ::SetForegroundWindow(frame_->m_hWnd);
    AfxPumpWaitingMessages();
    session.view.show({200, 150}, 300);
    frame_->ShowState();
  }
  ~FrameFixture() override { frame_->DestroyWindow(); }

  HWND area() const { return ::GetDlgItem(frame_->m_hWnd, AFX_IDW_PANE_FIRST); }
  HWND strip() const { return ::GetDlgItem(frame_->m_hWnd, AFX_IDW_TOOLBAR + 8); }
  HWND input() const { return ::GetDlgItem(strip(), 3); }
  static std::wstring textOf(HWND window) {
    wchar_t text[4096] = L"";
    ::GetWindowTextW(window, text, 4096);
    return text;
  }
  std::wstring prompt() const { return textOf(::GetDlgItem(strip(), 2)); }
  std::wstring history() const { return textOf(::GetDlgItem(strip(), 1)); }

  // Runs the command line as the program does, the script's steps in between.
  void run(window_kit::WindowScript& script) {
    script.translate([](MSG* message) { return AfxPreTranslateMessage(message); });
    session.line.wait = [&] { return !script.over() && frame_->WaitForInput(); };
    EXPECT_EQ(script.runWithin([this] { session.line.run(); }), "");
    session.line.wait = [] { return false; };
    frame_->ShowState();
  }
  // A word and Enter, by the keys of its letters and digits.
  static void typeKeys(window_kit::WindowScript& script, std::string_view word) {
    for (const char c : word) script.key(static_cast<WORD>(::toupper(c)));
    script.key(VK_RETURN);
  }

  MainFrame* frame_;
};

}  // namespace test

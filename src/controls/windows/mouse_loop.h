// The message loop of a held mouse button: the window has the capture, temporary objects stay.
#pragma once

#include "platform/framework_temporary.h"
#include "platform/framework_window.h"

class MouseLoop {
 public:
  // Doesn't begin while another window has the capture.
  explicit MouseLoop(HWND window) : window_(window), begun_(::GetCapture() == nullptr) {
    if (!begun_) return;
    ::SetCapture(window_);
    AfxLockTempMaps();
  }
  ~MouseLoop() {
    if (!begun_) return;
    if (::GetCapture() == window_) ::ReleaseCapture();
    AfxUnlockTempMaps();
  }
  MouseLoop(const MouseLoop&) = delete;
  MouseLoop& operator=(const MouseLoop&) = delete;

  bool begun() const { return begun_; }
  // The next message. False when the window has lost the capture, or is gone, and at the program's
  // end; nothing is swallowed then.
  bool next(MSG& message) {
    if (::GetCapture() != window_) return false;
    if (::GetMessageW(&message, nullptr, 0, 0) <= 0) {
      ::PostQuitMessage(static_cast<int>(message.wParam));
      return false;
    }
    if (::GetCapture() == window_) return true;
    ::DispatchMessageW(&message);
    return false;
  }

 private:
  HWND window_;
  bool begun_;
};

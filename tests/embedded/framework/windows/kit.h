// What the framework's window tests share: the module's resources, a frame that notes its messages,
// message boxes that are noted instead of shown.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/framework_app.h"
#include "platform/framework_frame.h"
#include "platform/framework_messages.h"
#include "platform/framework_module.h"
#include "platform/framework_resources.h"

namespace framework_test {

// The module's library as data, linked into the search for resources while this object lives.
class ModuleResources {
 public:
  ModuleResources() {
    library_ = LoadLibraryExW(L"Vornikplan10.arx", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    AfxInitExtensionModule(record_, library_);
    new CDynLinkLibrary(record_);
  }
  ~ModuleResources() {
    AfxTermExtensionModule(record_);
    FreeLibrary(library_);
  }
  ModuleResources(const ModuleResources&) = delete;
  ModuleResources& operator=(const ModuleResources&) = delete;
  bool loaded() const { return library_ != nullptr; }

 private:
  HMODULE library_;
  AFX_EXTENSION_MODULE record_;
};

using Log = std::vector<std::string>;

// Puts the names of the messages of interest into a log that outlives it.
class LoggedFrame : public CFrameWnd {
 public:
  explicit LoggedFrame(Log& log) : log_(&log) {}

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (const char* name = nameOf(message)) log_->push_back(name);
    return CFrameWnd::WindowProc(message, wParam, lParam);
  }
  void PostNcDestroy() override {
    log_->push_back("PostNcDestroy");
    CFrameWnd::PostNcDestroy();
  }

  static const char* nameOf(UINT message) {
    switch (message) {
      case WM_NCCREATE: return "NCCREATE";
      case WM_CREATE: return "CREATE";
      case WM_SHOWWINDOW: return "SHOWWINDOW";
      case WM_SIZE: return "SIZE";
      case WM_SETFOCUS: return "SETFOCUS";
      case WM_KILLFOCUS: return "KILLFOCUS";
      case WM_CLOSE: return "CLOSE";
      case WM_DESTROY: return "DESTROY";
      case WM_NCDESTROY: return "NCDESTROY";
      default: return nullptr;
    }
  }

 private:
  Log* log_;
};

// Collects the texts of message boxes; each is answered with OK.
class BoxLog {
 public:
  BoxLog() {
    setMessageBoxHandler([this](const MessageBoxCall& call) {
      texts.push_back(call.text);
      return kMessageAnswerOk;
    });
  }
  ~BoxLog() { setMessageBoxHandler({}); }
  BoxLog(const BoxLog&) = delete;
  BoxLog& operator=(const BoxLog&) = delete;

  std::vector<std::wstring> texts;
};

// Shows a window in front and handles all that this sets off.
inline void showInFront(CWnd& window) {
  window.ShowWindow(SW_SHOW);
  window.UpdateWindow();
  ::SetForegroundWindow(window.m_hWnd);
  AfxPumpWaitingMessages();
}

inline CRect rectInParent(const CWnd& window) {
  CRect rect;
  window.GetWindowRect(rect);
  window.GetParent()->ScreenToClient(rect);
  return rect;
}

inline bool operator==(const SIZE& a, const SIZE& b) { return a.cx == b.cx && a.cy == b.cy; }

inline Log numbers(const CRect& rect) {
  return {std::to_string(rect.left), std::to_string(rect.top), std::to_string(rect.right),
          std::to_string(rect.bottom)};
}

}  // namespace framework_test

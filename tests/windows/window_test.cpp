// The harness with one real window: input arrives as messages in order, pixels can be read.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "windows/picture.h"
#include "windows/window_script.h"

namespace {

using window_kit::pictureOf;
using window_kit::WindowScript;

constexpr COLORREF kBackground = RGB(255, 255, 255);
constexpr COLORREF kMark = RGB(200, 30, 10);
constexpr std::uint32_t kBackgroundPixel = 0xFFFFFF;
constexpr std::uint32_t kMarkPixel = 0xC81E0A;

// A window that paints a square of 10 pixels where it was clicked, and notes its input messages.
class ClickWindow : public testing::Test {
 protected:
  void SetUp() override {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &ClickWindow::onMessage;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    windowClass.lpszClassName = L"ClickWindow";
    RegisterClassW(&windowClass);
    window_ = CreateWindowExW(0, L"ClickWindow", L"图库", WS_OVERLAPPEDWINDOW, 100, 80, 320, 240,
                              nullptr, nullptr, windowClass.hInstance, this);
    ASSERT_NE(window_, nullptr);
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
    SetForegroundWindow(window_);
  }

  void TearDown() override {
    if (window_) DestroyWindow(window_);
  }

  static LRESULT CALLBACK onMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
      const auto* created = reinterpret_cast<const CREATESTRUCTW*>(lParam);
      SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created->lpCreateParams));
    }
    auto* self = reinterpret_cast<ClickWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && self->handle(window, message, wParam, lParam)) return 0;
    return DefWindowProcW(window, message, wParam, lParam);
  }

  bool handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT at = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    const std::string where = " " + std::to_string(at.x) + "," + std::to_string(at.y);
    switch (message) {
      case WM_LBUTTONDOWN:
        log_.push_back("down" + where);
        mark_ = at;
        SetCapture(window);
        InvalidateRect(window, nullptr, TRUE);
        return true;
      case WM_MOUSEMOVE:
        if (GetCapture() == window) log_.push_back("drag" + where);
        return true;
      case WM_LBUTTONUP:
        ReleaseCapture();
        log_.push_back("up" + where);
        return true;
      case WM_RBUTTONUP: showMenu(window, at); return true;
      case WM_COMMAND: log_.push_back("command " + std::to_string(LOWORD(wParam))); return true;
      case WM_KEYDOWN: log_.push_back("key " + std::to_string(wParam)); return true;
      case WM_PAINT: paint(window); return true;
      default: return false;
    }
  }

  static void showMenu(HWND window, POINT at) {
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 7, L"first");
    AppendMenuW(menu, MF_STRING, 8, L"second");
    ClientToScreen(window, &at);
    TrackPopupMenu(menu, TPM_LEFTALIGN, at.x, at.y, 0, window, nullptr);
    DestroyMenu(menu);
  }

  void paint(HWND window) const {
    PAINTSTRUCT painting{};
    const HDC dc = BeginPaint(window, &painting);
    RECT area{};
    GetClientRect(window, &area);
    const auto fill = [dc](const RECT& rect, COLORREF colour) {
      const HBRUSH brush = CreateSolidBrush(colour);
      FillRect(dc, &rect, brush);
      DeleteObject(brush);
    };
    fill(area, kBackground);
    if (mark_.x >= 0) fill({mark_.x, mark_.y, mark_.x + 10, mark_.y + 10}, kMark);
    EndPaint(window, &painting);
  }

  HWND window_ = nullptr;
  POINT mark_ = {-1, -1};
  std::vector<std::string> log_;
};

TEST_F(ClickWindow, AClickArrivesAtItsPoint) {
  EXPECT_EQ(WindowScript().click(window_, 40, 30).run(), "");
  EXPECT_EQ(log_, (std::vector<std::string>{"down 40,30", "up 40,30"}));
}

TEST_F(ClickWindow, PixelsShowWhatWasPainted) {
  EXPECT_EQ(pictureOf(window_).count(kMarkPixel), 0);
  EXPECT_EQ(WindowScript().click(window_, 40, 30).run(), "");
  const window_kit::Picture picture = pictureOf(window_);
  EXPECT_EQ(picture.at(40, 30), kMarkPixel);
  EXPECT_EQ(picture.at(49, 39), kMarkPixel);
  EXPECT_EQ(picture.at(39, 30), kBackgroundPixel);
  EXPECT_EQ(picture.at(50, 39), kBackgroundPixel);
  EXPECT_EQ(picture.count(kMarkPixel), 100);
}

TEST_F(ClickWindow, ADragKeepsTheCaptureAndItsOrder) {
  EXPECT_EQ(WindowScript().drag(window_, {20, 20}, {60, 40}).run(), "");
  EXPECT_EQ(log_, (std::vector<std::string>{"down 20,20", "drag 40,30", "drag 60,40", "up 60,40"}));
}

TEST_F(ClickWindow, AClickFromOutsideArrivesAtItsPoint) {
  POINT at = {40, 30};
  ClientToScreen(window_, &at);
  const std::string place = std::to_string(at.x) + " " + std::to_string(at.y);
  WindowScript script;
  script.outside("mousemove " + place + " click 1");
  script.waitFor("the click", [this] { return log_.size() == 2; });
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(log_, (std::vector<std::string>{"down 40,30", "up 40,30"}));
}

TEST_F(ClickWindow, AKeyArrivesAtTheWindowInFront) {
  WindowScript script;
  script.waitFor("the focus", [this] { return GetFocus() == window_; }).key(VK_F5);
  script.waitFor("the key", [this] { return !log_.empty(); });
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(log_, (std::vector<std::string>{"key 116"}));
}

TEST_F(ClickWindow, AMenuIsDrivenWhileItsLoopRuns) {
  const auto menuIsOpen = [] {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetCurrentThreadId(), &info) && (info.flags & GUI_INMENUMODE) != 0;
  };
  WindowScript script;
  script.rightClick(window_, 50, 50).waitFor("the menu", menuIsOpen);
  script.key(VK_DOWN).key(VK_DOWN).key(VK_RETURN);
  script.waitFor("the command", [this] { return !log_.empty(); });
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(log_, (std::vector<std::string>{"command 8"}));
}

TEST_F(ClickWindow, WaitingInVainIsAFailure) {
  WindowScript script;
  script.patience(50).waitFor("nothing", [] { return false; });
  EXPECT_EQ(script.run(), "waited in vain for nothing");
}

TEST_F(ClickWindow, APictureCanBeSavedForLookingAt) {
  const std::filesystem::path path =
      std::filesystem::temp_directory_path() / "vornik-window-test.bmp";
  const window_kit::Picture picture = pictureOf(window_);
  EXPECT_TRUE(picture.save(path));
  const auto pixels =
      static_cast<std::uintmax_t>(picture.width()) * static_cast<std::uintmax_t>(picture.height());
  EXPECT_EQ(std::filesystem::file_size(path), 54 + 4 * pixels);
  std::filesystem::remove(path);
}

}  // namespace

#include "windows/window_script.h"

#include <cstdio>
#include <utility>

namespace window_kit {

namespace {

constexpr UINT kStepMilliseconds = 10;

void sendMouse(DWORD flags, LONG x = 0, LONG y = 0) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  input.mi.dx = x;
  input.mi.dy = y;
  SendInput(1, &input, sizeof input);
}

// Absolute positions count 65536 units across the screen; the middle of the pixel is meant.
void moveTo(POINT screen) {
  const auto units = [](LONG pixel, int size) {
    return static_cast<LONG>((static_cast<LONGLONG>(pixel) * 2 + 1) * 65536 / (2LL * size));
  };
  sendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, units(screen.x, GetSystemMetrics(SM_CXSCREEN)),
            units(screen.y, GetSystemMetrics(SM_CYSCREEN)));
}

void sendKey(WORD virtualKey, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = virtualKey;
  input.ki.dwFlags = flags;
  SendInput(1, &input, sizeof input);
}

}  // namespace

WindowScript& WindowScript::then(std::function<void()> action) {
  steps_.push_back({"", [action = std::move(action)] {
                      action();
                      return true;
                    }});
  return *this;
}

WindowScript& WindowScript::waitFor(std::string what, std::function<bool()> condition) {
  steps_.push_back({std::move(what), std::move(condition)});
  return *this;
}

WindowScript& WindowScript::patience(ULONGLONG milliseconds) {
  patience_ = milliseconds;
  return *this;
}

WindowScript& WindowScript::move(HWND window, int x, int y) {
  return move([=] { return Spot{window, x, y}; });
}

WindowScript& WindowScript::move(std::function<Spot()> where) {
  const auto onScreen = [where = std::move(where)] {
    const Spot spot = where();
    POINT point = {spot.x, spot.y};
    ClientToScreen(spot.window, &point);
    return point;
  };
  then([=] { moveTo(onScreen()); });
  return waitFor("the cursor to arrive", [=] {
    const POINT wanted = onScreen();
    POINT cursor{};
    GetCursorPos(&cursor);
    return cursor.x == wanted.x && cursor.y == wanted.y;
  });
}

WindowScript& WindowScript::press() {
  return then([] { sendMouse(MOUSEEVENTF_LEFTDOWN); });
}
WindowScript& WindowScript::release() {
  return then([] { sendMouse(MOUSEEVENTF_LEFTUP); });
}
WindowScript& WindowScript::pressRight() {
  return then([] { sendMouse(MOUSEEVENTF_RIGHTDOWN); });
}
WindowScript& WindowScript::releaseRight() {
  return then([] { sendMouse(MOUSEEVENTF_RIGHTUP); });
}

WindowScript& WindowScript::click(HWND window, int x, int y) {
  return move(window, x, y).press().release();
}

WindowScript& WindowScript::rightClick(HWND window, int x, int y) {
  return move(window, x, y).pressRight().releaseRight();
}

WindowScript& WindowScript::drag(HWND window, POINT from, POINT to) {
  move(window, from.x, from.y).press();
  move(window, (from.x + to.x) / 2, (from.y + to.y) / 2);
  return move(window, to.x, to.y).release();
}

WindowScript& WindowScript::key(WORD virtualKey) {
  then([virtualKey] { sendKey(virtualKey, 0); });
  return then([virtualKey] { sendKey(virtualKey, KEYEVENTF_KEYUP); });
}

WindowScript& WindowScript::outside(std::string command) {
  return then([command = std::move(command)] {
    const wchar_t* path = _wgetenv(L"VORNIK_INPUT");
    std::FILE* input = path ? _wfopen(path, L"wb") : nullptr;
    if (!input) return;
    std::fprintf(input, "%s\n", command.c_str());
    std::fclose(input);
  });
}

WindowScript& WindowScript::translate(std::function<bool(MSG*)> function) {
  translate_ = std::move(function);
  return *this;
}

WindowScript& WindowScript::onFailure(std::function<void()> action) {
  onFailure_ = std::move(action);
  return *this;
}

void WindowScript::handle(MSG& message) {
  if (translate_ && translate_(&message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

std::string WindowScript::run() {
  return runWithin([this] {
    MSG message{};
    while (!over() && GetMessageW(&message, nullptr, 0, 0) > 0) handle(message);
  });
}

std::string WindowScript::runWithin(const std::function<void()>& loop) {
  const HWND helper = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                      GetModuleHandleW(nullptr), nullptr);
  SetWindowLongPtrW(helper, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  waitingSince_ = GetTickCount64();
  SetTimer(helper, 1, kStepMilliseconds, &WindowScript::onTimer);
  loop();
  DestroyWindow(helper);
  // What the last step has set off is handled before the test looks at the windows.
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) handle(message);
  if (failure_.empty() && next_ < steps_.size()) failure_ = "the message loop was ended";
  steps_.clear();
  next_ = 0;
  return std::exchange(failure_, std::string());
}

void CALLBACK WindowScript::onTimer(HWND helper, UINT, UINT_PTR, DWORD) {
  reinterpret_cast<WindowScript*>(GetWindowLongPtrW(helper, GWLP_USERDATA))->advance();
}

// A step may itself pump messages (a modal loop); the index moves first, so that the timer goes on
// with the next step inside of it.
void WindowScript::advance() {
  if (!failure_.empty() || next_ >= steps_.size()) return;
  const std::size_t current = next_;
  const Step step = steps_[current];
  if (step.what.empty()) ++next_;
  if (step.done()) {
    if (!step.what.empty()) ++next_;
    waitingSince_ = GetTickCount64();
  } else if (GetTickCount64() - waitingSince_ > patience_) {
    failure_ = "waited in vain for " + step.what;
    if (onFailure_) onFailure_();
  }
}

}  // namespace window_kit

#include "programs/desktop/road/hand.h"

#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <vector>

#include "embedded/base/files.h"
#include "embedded/base/text.h"
#include "embedded/drafting/plot/png_file.h"

namespace road {

namespace {

constexpr ULONGLONG kPatience = 20000;  // milliseconds; a loaded machine is slow
constexpr DWORD kBetween = 3;

PROCESS_INFORMATION startProcess(std::wstring& commandLine) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &process)) {
    throw std::runtime_error("can't start " + base::utf8FromWide(commandLine));
  }
  CloseHandle(process.hThread);
  return process;
}

DWORD endOf(HANDLE process, DWORD patience) {
  if (WaitForSingleObject(process, patience) != WAIT_OBJECT_0) {
    throw std::runtime_error("the program doesn't end");
  }
  DWORD code = 0;
  GetExitCodeProcess(process, &code);
  CloseHandle(process);
  return code;
}

// The pixels of a part of the screen, rows from the top.
std::vector<std::uint32_t> screenPixels(const RECT& part) {
  const int width = part.right - part.left;
  const int height = part.bottom - part.top;
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, part.left, part.top, SRCCOPY);
  GdiFlush();
  const auto* first = static_cast<const std::uint32_t*>(bits);
  std::vector<std::uint32_t> pixels(
      first, first + static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return pixels;
}

// The same, once the windows have come to rest; blinking carets never do.
std::vector<std::uint32_t> steadyPixels(const RECT& part) {
  constexpr int kLooks = 8;
  constexpr DWORD kRest = 60;
  std::vector<std::uint32_t> before;
  std::vector<std::uint32_t> now = screenPixels(part);
  for (int look = 0; look < kLooks && now != before; ++look) {
    before = std::move(now);
    Sleep(kRest);
    now = screenPixels(part);
  }
  return now;
}

}  // namespace

// --- the program

void Hand::start(std::wstring commandLine) { process_ = startProcess(commandLine); }

DWORD Hand::waitForEnd() {
  return endOf(std::exchange(process_.hProcess, nullptr), static_cast<DWORD>(kPatience));
}

void Hand::kill() {
  if (!process_.hProcess) return;
  TerminateProcess(process_.hProcess, 99);
  WaitForSingleObject(process_.hProcess, static_cast<DWORD>(kPatience));
  CloseHandle(std::exchange(process_.hProcess, nullptr));
}

// --- windows

namespace {

struct Search {
  DWORD process;
  std::function<bool(HWND)> wanted;
  HWND found = nullptr;
};

// The topmost visible window of the process that is wanted.
HWND findWindow(DWORD process, const std::function<bool(HWND)>& wanted) {
  Search search{process, wanted};
  EnumWindows(
      [](HWND window, LPARAM parameter) -> BOOL {
        auto& looking = *reinterpret_cast<Search*>(parameter);
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner != looking.process || !IsWindowVisible(window)) return TRUE;
        if (!looking.wanted(window)) return TRUE;
        looking.found = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

}  // namespace

HWND Hand::find(const std::wstring& title) const {
  return findWindow(process_.dwProcessId, [&title](HWND window) {
    return text(window).find(title) != std::wstring::npos;
  });
}

HWND Hand::wait(const std::wstring& title) {
  HWND window = nullptr;
  waitFor("the window \"" + base::utf8FromWide(title) + "\"",
          [&] { return (window = find(title)) != nullptr; });
  return window;
}

HWND Hand::dialog() const {
  return findWindow(process_.dwProcessId, [](HWND window) {
    wchar_t name[16] = L"";
    GetClassNameW(window, name, 16);
    return std::wstring_view(name) == L"#32770";
  });
}

HWND Hand::waitForDialog() {
  HWND window = nullptr;
  waitFor("a dialog", [&] { return (window = dialog()) != nullptr; });
  return window;
}

void Hand::waitForNoDialog() {
  waitFor("the dialog's end", [&] { return dialog() == nullptr; });
}

HWND Hand::child(HWND window, std::initializer_list<int> path) {
  for (const int id : path) window = GetDlgItem(window, id);
  if (!window) throw std::runtime_error("a child window is missing");
  return window;
}

// Of a control of another program, too.
std::wstring Hand::text(HWND window) {
  DWORD_PTR length = 0;
  SendMessageTimeoutW(window, WM_GETTEXTLENGTH, 0, 0, SMTO_ABORTIFHUNG, 1000, &length);
  std::wstring result(length + 1, L'\0');
  DWORD_PTR copied = 0;
  SendMessageTimeoutW(window, WM_GETTEXT, result.size(), reinterpret_cast<LPARAM>(result.data()),
                      SMTO_ABORTIFHUNG, 1000, &copied);
  result.resize(copied);
  return result;
}

// --- input

void Hand::send(const std::string& line) {
  const wchar_t* path = _wgetenv(L"VORNIK_INPUT");
  std::FILE* input = path ? _wfopen(path, L"wb") : nullptr;
  if (!input) throw std::runtime_error("there is no input tool");
  std::fprintf(input, "%s\n", line.c_str());
  std::fclose(input);
}

// The first movement may be the one that the pointer makes already: it arrives all the same.
void Hand::move(HWND window, int x, int y) {
  POINT at = {x, y};
  ClientToScreen(window, &at);
  send("mousemove " + std::to_string(at.x) + " " + std::to_string(at.y));
  waitFor("the pointer", [&] {
    POINT now{};
    GetCursorPos(&now);
    return now.x == at.x && now.y == at.y;
  });
}

void Hand::click(HWND window, int x, int y) {
  move(window, x, y);
  send("click 1");
}

void Hand::clickMiddle(HWND control) {
  RECT area{};
  GetClientRect(control, &area);
  click(control, area.right / 2, area.bottom / 2);
}

void Hand::keys(const std::string& names) { send("key " + names); }

void Hand::setText(HWND control, const std::wstring& text) {
  SendMessageW(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

// --- waiting and looking

void Hand::waitFor(const std::string& what, const std::function<bool()>& condition) {
  const ULONGLONG start = GetTickCount64();
  while (!condition()) {
    if (GetTickCount64() - start > kPatience) throw std::runtime_error("no sign of " + what);
    Sleep(kBetween);
  }
}

void Hand::picture(const std::string& name) {
  ++count_;
  const RECT screen = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  const auto pixels = steadyPixels(screen);
  const std::string file = (count_ < 10 ? "0" : "") + std::to_string(count_) + "-" + name + ".png";
  const base::Status status =
      base::saveAtomically(pictures_ / file, drafting::makePng(screen.right, screen.bottom, pixels),
                           {.keepBackup = false});
  if (!status) throw std::runtime_error(status.message());
}

int Hand::lit(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  POINT corner{};
  ClientToScreen(window, &corner);
  OffsetRect(&area, corner.x, corner.y);
  int count = 0;
  for (const std::uint32_t pixel : screenPixels(area)) count += (pixel & 0xFFFFFF) != 0 ? 1 : 0;
  return count;
}

DWORD runProgram(std::wstring commandLine) {
  constexpr DWORD kLongest = 120'000;
  return endOf(startProcess(commandLine).hProcess, kLongest);
}

}  // namespace road

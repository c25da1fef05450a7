// How fast the module's windows come up and repaint, over the sample library. Prints the median of
// each and ends with status 1 when a bound is passed. A Windows program; docs/benchmarks.md tells
// how it is run here.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <vector>

#include "auxiliary/auxiliary_library.h"
#include "controls/windows/library_bar.h"
#include "editor/windows/circuit_dialog.h"
#include "embedded/base/paths.h"
#include "embedded/drafting/documents/session.h"
#include "large_auxiliary.h"
#include "library_window/windows/main_window.h"
#include "module/module_state.h"
#include "platform/common_funcs.h"
#include "platform/framework_app.h"
#include "resources/resource_ids.h"
#include "samples/generator/install.h"

namespace {

constexpr int kRounds = 25;
bool passed = true;

double milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

void report(const char* what, double bound, std::vector<double> times) {
  std::sort(times.begin(), times.end());
  const double median = times[times.size() / 2];
  std::printf("%-44s %8.2f ms   bound %5.0f ms\n", what, median, bound);
  passed = passed && median < bound;
}

void measure(const char* what, double bound, const std::function<void()>& work) {
  std::vector<double> times;
  for (int i = 0; i < kRounds; ++i) times.push_back(milliseconds(work));
  report(what, bound, times);
}

void repaint(HWND window) {
  ::RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

// The sample circuits once more behind themselves, so that a page of 48 is full.
void fillPage(CZhlkLibStore& store) {
  const int samples = store.GetCount();
  for (int slot = samples; slot < 48; ++slot) {
    CString name;
    CString row;
    store.GetNameAt(slot % samples, name);
    store.GetRowAt(slot % samples, row);
    std::vector<char> slide(store.Slides().GetSlideSize(name));
    store.Slides().GetSlideData(name, slide.data());
    const CString copy = CZhlkLibStore::CircuitName(slot);
    store.InsertCircuit(slot, row, copy);
    store.Slides().AddSlideW(copy, slide.data(), static_cast<std::uint32_t>(slide.size()));
  }
}

void measureLibrary(CZhlkMainWnd& frame) {
  const HWND splitter = ::GetDlgItem(frame.m_hWnd, AFX_IDW_PANE_FIRST);
  const HWND grid = ::GetDlgItem(splitter, AFX_IDW_PANE_FIRST);
  frame.MoveWindow(10, 10, 1200, 800);
  AfxPumpWaitingMessages();
  frame.store.SetGridSize(3, 6);
  measure("page of 18 slides, 1200 by 800", 15, [&] { repaint(grid); });
  frame.store.SetGridSize(4, 12);
  measure("page of 48 slides, 1200 by 800", 15, [&] { repaint(grid); });
  int width = 900;
  measure("one step of resizing, 48 slides", 30, [&] {
    frame.MoveWindow(10, 10, width += 10, 700);
    AfxPumpWaitingMessages();
  });
  // The frame's next painting puts the bar back, so that each round finds it in its place.
  measure("dragging the splitter: press, move, release", 30, [&] {
    CRect room;
    ::GetClientRect(grid, room);
    const auto at = [&](int back) { return MAKELPARAM(room.right + 2 - back, 300); };
    ::SendMessageW(splitter, WM_LBUTTONDOWN, MK_LBUTTON, at(0));
    ::SendMessageW(splitter, WM_MOUSEMOVE, MK_LBUTTON, at(60));
    ::SendMessageW(splitter, WM_LBUTTONUP, 0, at(60));
    AfxPumpWaitingMessages();
  });
}

// --- the bar of auxiliary symbols ---

int paints = 0;

LRESULT CALLBACK countPaints(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR) {
  if (message == WM_PAINT) ++paints;
  return ::DefSubclassProc(window, message, w, l);
}

// A bar of no size, as at the window's making, so that no folder slides.
void measureFilling(CZhlkMainWnd& frame) {
  measure("bar filled with 20 groups of 100 symbols", 1000, [&] {
    CGfxOutBarCtrl bar;
    bar.Create(WS_CHILD, {0, 0, 0, 0}, &frame, 7, kLibraryBarFlags);
    LibraryBar shown(bar);
    AuxiliaryLibrary library(shown);
    library.LoadStore();
    if (bar.GetFolderCount() != kLargeGroups) passed = false;
    bar.DestroyWindow();
  });
}

// A click on the arrow: its release waits already when its press comes.
void scrollDown(HWND window, const POINT& arrow) {
  const LPARAM at = MAKELPARAM(arrow.x, arrow.y);
  ::PostMessageW(window, WM_LBUTTONUP, 0, at);
  ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
  repaint(window);
}

void measureBar(CZhlkMainWnd& frame) {
  const HWND splitter = ::GetDlgItem(frame.m_hWnd, AFX_IDW_PANE_FIRST);
  const HWND window = ::GetDlgItem(splitter, AFX_IDW_PANE_FIRST + 1);
  auto& bar = *static_cast<CGfxOutBarCtrl*>(CWnd::FromHandlePermanent(window));
  frame.MoveWindow(10, 10, 700, 900);
  AfxPumpWaitingMessages();
  measure("its open folder of 100 symbols", 5, [&] { repaint(window); });
  const RECT arrow = bar.view().down;
  for (int i = 0; i < kLargeItems && bar.view().downShown; ++i) {
    scrollDown(window, {arrow.left + 3, arrow.top + 3});
  }
  if (bar.firstItem() < kLargeItems / 2) passed = false;
  measure("the same at the list's end", 5, [&] { repaint(window); });
  ::SetWindowSubclass(window, countPaints, 1, 0);
  paints = 0;
  int y = 0;
  measure("the pointer on another symbol", 5, [&] {
    y = y % 300 + 13;
    ::SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(20, 30 + y));
    ::UpdateWindow(window);
  });
  std::printf("repaints for %d moves of the pointer: %d\n", kRounds, paints);
  passed = passed && paints == 0;
  ::RemoveWindowSubclass(window, countPaints, 1);
}

// All cells of the lattice taken.
std::wstring fullCircuit() {
  std::wstring row = L"(\"05\"";
  for (const wchar_t* y : {L"0", L"-10", L"-17.5", L"-25", L"-32.5", L"-42.5", L"-50", L"-60",
                           L"-67.5", L"-77.5", L"-85", L"-92.5", L"-100", L"-120.28"}) {
    for (const wchar_t* x : {L"-6.25", L"0", L"6.25"}) {
      row += std::wstring(L" \"ZHL1003\" \"\" ") + x + L" " + y + L" 0";
    }
  }
  return row + L" \"&&&&\" 0 0 0 -120)";
}

// Measures itself when it has come up, and ends.
class MeasuredDialog : public CZHlkhlbjDlg {
 public:
  double opened = 0;
  bool repaints = false;

  void show() {
    row = CString(fullCircuit());
    name = L"主回路&05";
    slot = 4;
    start_ = std::chrono::steady_clock::now();
    DoModal();
  }

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    const LRESULT result = CZHlkhlbjDlg::WindowProc(message, wParam, lParam);
    if (message == WM_SHOWWINDOW && wParam) PostMessage(kShown);
    if (message == kShown) measureNow();
    return result;
  }

 private:
  static constexpr UINT kShown = WM_APP;

  void measureNow() {
    ::RedrawWindow(m_hWnd, nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
    opened = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start_)
                 .count();
    if (repaints) {
      measure("circuit of 42 cells", 10, [&] { repaint(GetDlgItem(AFX_IDW_PANE_FIRST)->m_hWnd); });
      CRect area;
      GetDlgItem(IDC_PICKER_GRID)->GetWindowRect(area);
      ScreenToClient(area);
      measure("picker's page of 36 symbols", 10, [&] {
        InvalidateRect(area);
        UpdateWindow();
      });
    }
    EndDialog(IDCANCEL);
  }

  std::chrono::steady_clock::time_point start_;
};

void measureDialog() {
  std::vector<double> opening;
  for (int i = 0; i < kRounds; ++i) {
    MeasuredDialog dialog;
    dialog.repaints = i + 1 == kRounds;
    dialog.show();
    opening.push_back(dialog.opened);
  }
  report("editing dialog, from call to drawn", 100, opening);
}

}  // namespace

int main() {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                       ("vornik_window_bench" + std::to_string(GetTickCount64()));
  std::filesystem::create_directories(folder);
  _wputenv_s(L"VORNIK_INFORMATION", (folder / "information.txt").c_str());
  if (!samples::makeInstall(folder / "install", [](std::string_view) {}).ok()) return 2;
  if (!samples::useInstall(folder / "install").ok()) return 2;
  {
    drafting::Session session;
    session.line.output = [](std::string_view) {};
    AfxUseSystemWindows();
    setModuleInstance(::GetModuleHandleW(nullptr));
    if (!makeLargeAuxiliary(folder / "install" / "Datcom" / "zhllib").ok()) return 2;
    auto* frame = new CZhlkMainWnd;
    setLibraryWindow(&frame->Door());
    fillPage(frame->store);
    ShowLibraryWindow();
    AfxPumpWaitingMessages();
    measureLibrary(*frame);
    measureFilling(*frame);
    measureBar(*frame);
    measureDialog();
    libraryWindow()->DestroyWindow();
  }
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
  return passed ? 0 : 1;
}

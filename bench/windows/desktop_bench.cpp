// How fast the desktop answers: a click on a slide, and a frame of panning, zooming and of the
// crosshair over 1,000 circuits. Prints the median and the longest time and ends with status 1 when
// a bound is passed.
#include <algorithm>
#include <chrono>
#include <cstdio>

#include "host/module_entry.h"
#include "library_window/library_window.h"
#include "module/module_state.h"
#include "platform/framework_app.h"
#include "programs/desktop/start.h"
#include "programs/desktop/windows/dialogs.h"
#include "programs/desktop/windows/main_frame.h"
#include "programs/vornik/captured_slide.h"
#include "samples/generator/install.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kCircuits = 1000;
constexpr int kFrames = 60;

class Times {
 public:
  void add(double milliseconds) { times_.push_back(milliseconds); }
  // False when the median is above the bound.
  bool report(const char* what, double bound) {
    std::sort(times_.begin(), times_.end());
    std::printf("%-44s %8.2f ms   longest %8.2f ms   bound %4.0f ms\n", what,
                times_[times_.size() / 2], times_.back(), bound);
    return times_[times_.size() / 2] < bound;
  }

 private:
  std::vector<double> times_;
};

double now() {
  return std::chrono::duration<double, std::milli>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

class Bench {
 public:
  bool run() {
    if (!frame_->CreateMain()) return false;
    session_.mainWindow = frame_->m_hWnd;
    frame_->MoveWindow(0, 0, 1280, 1000);
    frame_->ShowWindow(SW_SHOWNORMAL);
    frame_->InitialUpdateFrame();
    setModuleInstance(::GetModuleHandleW(nullptr));
    if (!session_.modules.attach("Vornikplan10", acrxEntryPoint).ok()) return false;
    ShowLibraryWindow();
    AfxPumpWaitingMessages();
    const bool clicked = clickSlides();
    const bool placed = placeCircuits();
    const bool frames = placed && showFrames();
    session_.modules.unloadAll();
    frame_->DestroyWindow();
    return clicked && frames;
  }

 private:
  // The grid of slides in the window that stands above the frame.
  HWND grid() const {
    HWND library = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM found) -> BOOL {
          const bool owned = ::GetWindow(window, GW_OWNER) && ::IsWindowVisible(window);
          if (owned) *reinterpret_cast<HWND*>(found) = window;
          return !owned;
        },
        reinterpret_cast<LPARAM>(&library));
    return ::GetDlgItem(::GetDlgItem(library, AFX_IDW_PANE_FIRST), AFX_IDW_PANE_FIRST);
  }

  // From the button's message until the circuit is on the screen and the next prompt waits.
  bool clickSlides() {
    constexpr int kClicks = 31;
    const HWND slides = grid();
    if (!slides) return false;
    const auto entities = [this] { return session_.database().modelSpace().count; };
    Times times;
    int clicks = 0;
    std::size_t before = 0;
    double start = 0;
    session_.line.wait = [&] {
      if (clicks > kClicks) return false;  // at the prompts that the command leaves behind, too
      if (clicks > 0 && entities() > before) {
        frame_->ShowState();
        ::GdiFlush();
        times.add(now() - start);
      }
      if (clicks == 0 || entities() > before) {
        if (clicks++ == kClicks) return false;
        before = entities();
        start = now();
        ::PostMessageW(slides, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(8, 8));
        ::PostMessageW(slides, WM_LBUTTONUP, 0, MAKELPARAM(8, 8));
      }
      return frame_->WaitForInput();
    };
    session_.line.type("ZOOM\nW\n-20,-300\n700,100\n(zhlmsgmk 1)\n(yczhlhz)\n0,0\n");
    session_.line.run();
    if (clicks <= kClicks) return false;
    return times.report("click on a slide to its circuit on screen", 100) &&
           session_.newDrawing().ok();
  }

  bool placeCircuits() {
    std::string script = "(zhlmsgmk 1)\n(yczhlhz)\n0,0\n";
    for (std::size_t i = 0; i < kCircuits; ++i) script += "S\n";
    session_.line.wait = [] { return false; };
    session_.line.type(script + "\n\n");
    session_.line.run();
    return session_.database().modelSpace().count > kCircuits;
  }

  template <class Change>
  bool frames(const char* what, Change change) {
    Times times;
    for (int i = 0; i < kFrames; ++i) {
      const double start = now();
      change(i);
      frame_->ShowState();
      times.add(now() - start);
    }
    return times.report(what, 30);
  }

  bool showFrames() {
    session_.view.showBox(session_.index().extents(), 1.02);
    frame_->ShowState();
    desktop::Pointer& pointer = desktop_.pointer;
    bool good = frames("crosshair over 1,000 circuits", [&](int i) {
      pointer.moveTo({100 + 7 * i, 100 + 5 * i});
    });
    pointer.startPan({400, 400});
    good &= frames("panning, all of them in sight", [&](int i) {
      pointer.moveTo({400 + i, 400 + i});
    });
    pointer.endPan();
    good &= frames("zooming in, a turn of the wheel a frame", [&](int i) {
      pointer.wheel({640, 400}, i < kFrames / 2 ? 1 : -1);
    });
    session_.view.show(session_.view.centre(), session_.view.height() / 40);
    pointer.startPan({400, 400});
    good &= frames("panning, a few of them in sight", [&](int i) {
      pointer.moveTo({400 + 5 * i, 400});
    });
    return good;
  }

  drafting::Session session_;
  WindowDialogs dialogs_{session_};
  desktop::Desktop desktop_{session_, dialogs_, fs::temp_directory_path() / "vornik_bench_data"};
  MainFrame* frame_ = new MainFrame(desktop_);
};

}  // namespace

int main() {
  const fs::path folder =
      fs::temp_directory_path() / ("vornik_desktop_bench" + std::to_string(::GetTickCount64()));
  if (!samples::makeInstall(folder, [](std::string_view) {}).ok()) return 2;
  desktop::StartOptions options;
  options.install = folder.string();
  bool good = false;
  {
    drafting::Session session;  // captures print on its command line
    session.line.output = [](std::string_view) {};
    if (!desktop::enterLibrary(options, {}).ok()) return 2;
    if (!vornik::captureLibrary([](std::string_view) {}).ok()) return 2;
  }
  AfxUseSystemWindows();
  {
    Bench bench;
    good = bench.run();
  }
  std::error_code ignored;
  fs::remove_all(folder, ignored);
  return good ? 0 : 1;
}

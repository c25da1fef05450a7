// The whole road on the screen, by real mouse and keys on the real program: show the library, pick
// a point, click three slides and an auxiliary symbol, change a circuit in the editor, place it,
// save, plot; and the parts list. Checks what comes of it against the headless program.
//   desktop_road BIN_FOLDER OUT_FOLDER [ROUNDS]
// leaves drawing, plot, parts list and a picture of each step in the folder.
#include <windows.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <stdexcept>

#include "embedded/base/files.h"
#include "embedded/base/numbers.h"
#include "embedded/base/paths.h"
#include "embedded/base/text.h"
#include "embedded/drafting/documents/drawing_files.h"
#include "programs/desktop/road/hand.h"

namespace {

namespace fs = std::filesystem;

// Child windows by their numbers: the desktop's area and command strip, the library's parts, the
// editor's.
constexpr int kPane = 0xE900, kStrip = 0xE808, kHistory = 1, kPrompt = 2, kInput = 3;
constexpr int kDockBar = 0xE81E, kToolBar = 0xE800, kDrawMode = 21622, kEditMode = 21627;
constexpr int kPicker = 21632, kPlotFile = 1011;
constexpr int kColumns = 6, kRows = 3;  // of the library's grid

std::wstring quoted(const fs::path& path) { return L"\"" + path.wstring() + L"\""; }

void check(bool good, const std::string& what) {
  if (!good) throw std::runtime_error(what);
}

class Road {
 public:
  Road(const fs::path& bin, const fs::path& out) : bin_(bin), out_(out), hand_(out / "screens") {
    fs::remove_all(out_ / "screens");
    fs::create_directories(out_ / "screens");
  }

  void makeInstall() {
    fs::remove_all(install());
    const DWORD status =
        road::runProgram(quoted(bin_ / "vornik.exe") + L" sample " + quoted(install()));
    check(status == 0, "the sample install can't be made");
  }

  void walk() {
    const auto before = base::readFile(store());
    guarded(hand_, [this] {
      for (const char* name : {"desktop.dwg", "desktop.pdf", "parts.csv", "reference.dwg"}) {
        fs::remove(out_ / name);
      }
      startDesktop(L"");
      placeThree();
      changeCircuit();
      placeChanged();
      save();
      plot();
      leave();
    });
    // Looked at only now: a file that is open here couldn't be replaced there.
    const auto after = base::readFile(store());
    check(before.ok() && after.ok() && *before != *after, "the changed circuit isn't stored");
    makePartsList();
    compareWithHeadless();
  }

  // What was done before a kill is offered at the next start, and is there again.
  void recover() {
    guarded(hand_, [this] {
      startDesktop(L"");
      for (const char* key : {"l", "Return"}) hand_.keys(key);
      waitForPrompt(L"第一点");
      hand_.click(area(), 300, 300);
      hand_.click(area(), 500, 400);
      waitForPrompt(L"下一点");
      hand_.keys("Return");
      waitForPrompt(L"命令");
      hand_.kill();
      hand_.start(desktopCommand());
      main_ = hand_.wait(L" - Vornikplan10");
      hand_.waitForDialog();
      hand_.picture("recovery");
      hand_.keys("Return");
      hand_.waitForNoDialog();
      waitForPrompt(L"命令");
      hand_.wait(L"*");
      check(history().find(L"已恢复图形") != std::wstring::npos, "nothing was recovered");
      check(road::Hand::lit(area()) > 200, "the recovered line isn't shown");
      hand_.keys("alt+F4");
      hand_.waitForDialog();
      hand_.keys("n");
      check(hand_.waitForEnd() == 0, "the desktop ended with a failure");
    });
  }

  // Two programs work on one library; the second one opens the same drawing for reading only.
  void shareLibrary() {
    road::Hand other(out_ / "screens");
    guarded(hand_, [&] {
      startDesktop(L" " + quoted(drawing()));
      hand_.wait(L"desktop.dwg - ");
      guarded(other, [&] {
        other.start(desktopCommand() + L" " + quoted(drawing()));
        other.waitForDialog();
        hand_.picture("second-program");
        other.keys("Return");
        other.waitForNoDialog();
        other.wait(L"(只读)");
        other.keys("alt+F4");
        check(other.waitForEnd() == 0, "the second program ended with a failure");
      });
      hand_.clickMiddle(area());
      hand_.keys("alt+F4");
      check(hand_.waitForEnd() == 0, "the first program ended with a failure");
    });
  }

 private:
  fs::path install() const { return out_ / "install"; }
  fs::path store() const { return install() / "Datcom" / "zhllib" / "zhllib.qdp"; }
  fs::path drawing() const { return out_ / "desktop.dwg"; }
  HWND area() const { return road::Hand::child(main_, {kPane}); }
  HWND grid() const { return road::Hand::child(library_, {kPane, kPane}); }
  std::wstring prompt() const {
    return road::Hand::text(road::Hand::child(main_, {kStrip, kPrompt}));
  }
  std::wstring history() const {
    return road::Hand::text(road::Hand::child(main_, {kStrip, kHistory}));
  }
  void waitForPrompt(const std::wstring& part) {
    hand_.waitFor("the prompt \"" + base::utf8FromWide(part) + "\"",
                  [&] { return prompt().find(part) != std::wstring::npos; });
  }

  // A failure leaves a picture, and no program behind.
  static void guarded(road::Hand& hand, const std::function<void()>& steps) {
    try {
      steps();
    } catch (const std::exception&) {
      hand.picture("failure");
      hand.kill();
      throw;
    }
  }

  std::wstring desktopCommand() const {
    return quoted(bin_ / "drafting.exe") + L" --install " + quoted(install());
  }

  void startDesktop(const std::wstring& arguments) {
    library_ = nullptr;
    hand_.start(desktopCommand() + arguments);
    main_ = hand_.wait(L" - Vornikplan10");
    hand_.move(area(), 400, 400);
    waitForPrompt(L"命令");
    hand_.picture("desktop");
  }

  // By the menu's keys, as shown beside its texts.
  void startPlacing() {
    hand_.keys("alt+k");
    hand_.waitFor("the menu", [] {
      const HWND menu = FindWindowW(L"#32768", nullptr);
      return menu && IsWindowVisible(menu);
    });
    hand_.picture("menu");
    hand_.keys("p");
    library_ = hand_.wait(L"主回路");
    waitForPrompt(kPointPrompt);
  }

  // By the key for the same, typed while the library has the focus.
  void startAgain() {
    hand_.keys("F6");
    waitForPrompt(kPointPrompt);
  }

  void pickPoint(int x, int y) {
    hand_.click(area(), x, y);
    waitForPrompt(kKeyPrompt);
  }

  // How often the placing command has come back to its second prompt.
  std::size_t answers() const {
    const std::wstring text = history();
    std::size_t count = 0;
    for (std::size_t at = text.find(kKeyPrompt); at != std::wstring::npos;
         at = text.find(kKeyPrompt, at + 1)) {
      ++count;
    }
    return count;
  }
  void waitForAnswer(std::size_t before) {
    hand_.waitFor("the symbols", [&] { return answers() > before; });
    waitForPrompt(kKeyPrompt);
  }

  void clickSlide(int slot) {
    const std::size_t before = answers();
    RECT room{};
    GetClientRect(grid(), &room);
    hand_.click(grid(), room.right / kColumns * (slot % kColumns) + 8,
                room.bottom / kRows * (slot / kColumns) + 8);
    waitForAnswer(before);
  }

  void clickAuxiliary(int item) {
    constexpr int kHeader = 21, kStep = 26;
    const std::size_t before = answers();
    hand_.click(road::Hand::child(library_, {kPane, kPane + 1}), 20,
                kHeader + kStep * item + kStep / 2);
    waitForAnswer(before);
  }

  void endPlacing() {
    hand_.keys("Return");
    waitForPrompt(kPointPrompt);
    hand_.keys("Return");
    waitForPrompt(L"命令");
  }

  void placeThree() {
    startPlacing();
    hand_.picture("library");
    const int dark = road::Hand::lit(area());
    pickPoint(700, 200);
    for (const int slot : {0, 2, 4}) {
      clickSlide(slot);
      hand_.picture("slide-" + std::to_string(slot + 1));
    }
    clickAuxiliary(1);
    hand_.picture("auxiliary");
    check(road::Hand::lit(area()) > dark + 1000, "nothing of the circuits is on the screen");
    endPlacing();
  }

  void changeCircuit() {
    const HWND bar = road::Hand::child(library_, {kDockBar, kToolBar});
    hand_.clickMiddle(road::Hand::child(bar, {kEditMode}));
    RECT room{};
    GetClientRect(grid(), &room);
    hand_.click(grid(), room.right / kColumns * 1 + 8, room.bottom / kRows + 8);
    const HWND dialog = hand_.waitForDialog();
    const HWND view = road::Hand::child(dialog, {kPane});
    hand_.picture("editor");
    clickPicker(dialog, 7);
    RECT cells{};
    GetClientRect(view, &cells);
    hand_.click(view, cells.right / 2, cells.bottom / 3);
    hand_.picture("changed");
    hand_.clickMiddle(road::Hand::child(dialog, {IDOK}));
    hand_.waitForNoDialog();
    hand_.clickMiddle(road::Hand::child(bar, {kDrawMode}));
  }

  void clickPicker(HWND dialog, int cell) {
    constexpr int kSide = 6;
    const HWND picker = road::Hand::child(dialog, {kPicker});
    RECT room{};
    GetWindowRect(picker, &room);
    POINT corner = {room.left, room.top};
    ScreenToClient(dialog, &corner);
    const int width = (room.right - room.left) / kSide;
    const int height = (room.bottom - room.top) / kSide;
    hand_.click(dialog, corner.x + cell % kSide * width + width / 2,
                corner.y + cell / kSide * height + height / 2);
  }

  void placeChanged() {
    startAgain();
    pickPoint(200, 450);
    clickSlide(kColumns + 1);
    hand_.picture("placed");
    endPlacing();
  }

  void save() {
    hand_.keys("ctrl+s");
    const HWND dialog = hand_.waitForDialog();
    hand_.setText(road::Hand::child(dialog, {kFileName}), drawing().wstring());
    hand_.picture("save");
    hand_.clickMiddle(road::Hand::child(dialog, {IDOK}));
    hand_.waitFor("the drawing", [&] { return fs::exists(drawing()); });
    hand_.wait(L"desktop.dwg - ");
  }

  void plot() {
    const fs::path file = out_ / "desktop.pdf";
    hand_.keys("ctrl+p");
    const HWND dialog = hand_.waitForDialog();
    hand_.setText(road::Hand::child(dialog, {kPlotFile}), file.wstring());
    hand_.picture("plot");
    hand_.keys("Return");
    hand_.waitFor("the plot", [&] { return fs::exists(file); });
    waitForPrompt(L"命令");
    const auto bytes = base::readFile(file);
    check(bytes.ok() && bytes->starts_with("%PDF-"), "the plot is no PDF");
  }

  void leave() {
    for (const char* key : {"q", "u", "i", "t", "Return"}) hand_.keys(key);
    check(hand_.waitForEnd() == 0, "the desktop ended with a failure");
    library_ = main_ = nullptr;
  }

  void makePartsList() {
    const fs::path file = out_ / "parts.csv";
    const DWORD status = road::runProgram(quoted(bin_ / "vornik.exe") + L" bom " +
                                          quoted(drawing()) + L" --output " + quoted(file));
    check(status == 0 && fs::file_size(file) > 20, "the parts list is empty");
  }

  // What the headless program draws at the same answers, from the same library.
  void compareWithHeadless() {
    const fs::path script = out_ / "reference.scr";
    std::ofstream(script) << "(zhlmsgmk 1)\n(yczhlhz)\n0,0\n(zhlselect 0)\nS\n(zhlselect 2)\nS\n"
                             "(zhlselect 4)\nS\n(zhlitem 0 1)\nF\n\n\n(yczhlhz)\n0,-500\n"
                             "(zhlselect "
                          << kColumns + 1 << ")\nS\n\n\n";
    const DWORD status =
        road::runProgram(quoted(bin_ / "vornik.exe") + L" run --install " + quoted(install()) +
                         L" --output " + quoted(out_ / "reference.dwg") + L" --transcript " +
                         quoted(out_ / "reference.txt") + L" " + quoted(script));
    check(status == 0, "the reference can't be made");
    const auto drawn = kindsOf(drawing());
    check(drawn.size() > 1, "the drawing is empty");
    check(drawn == kindsOf(out_ / "reference.dwg"), "the drawing isn't the headless program's");
  }

  static std::map<int, int> kindsOf(const fs::path& file) {
    const auto database = drafting::readDrawing(base::utf8FromPath(file));
    check(database.ok(), database.message());
    std::map<int, int> kinds;
    for (const auto* entity = (*database)->modelSpace().first; entity; entity = entity->next) {
      ++kinds[static_cast<int>(entity->kind)];
    }
    return kinds;
  }

  static constexpr const wchar_t* kPointPrompt = L"插入点";
  static constexpr const wchar_t* kKeyPrompt = L"绘制回路S";
  static constexpr int kFileName = 0x47C;  // the box of the system's file dialogs

  fs::path bin_, out_;
  road::Hand hand_;
  HWND main_ = nullptr, library_ = nullptr;
};

int walkRounds(const fs::path& bin, const fs::path& out, int rounds) {
  const fs::path kept = out / "kept";
  for (int round = 1; round <= rounds; ++round) {
    try {
      Road road(bin, out);
      if (round == 1) {
        road.makeInstall();
        fs::remove_all(kept);
        fs::copy(out / "install", kept, fs::copy_options::recursive);
      } else {
        fs::remove_all(out / "install");
        fs::copy(kept, out / "install", fs::copy_options::recursive);
      }
      road.walk();
      road.recover();
      road.shareLibrary();
    } catch (const std::exception& failure) {
      std::printf("round %d of %d: %s\n", round, rounds, failure.what());
      return 1;
    }
  }
  fs::remove_all(kept);
  std::printf("%d of %d rounds passed\n", rounds, rounds);
  return 0;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  if (count < 3) {
    std::fprintf(stderr, "usage: desktop_road BIN_FOLDER OUT_FOLDER [ROUNDS]\n");
    return 2;
  }
  _wputenv_s(L"LANG", L"zh_CN.UTF-8");
  const int rounds = count > 3 ? base::wtoi(words[3]) : 1;
  // File dialogs take no slashes.
  return walkRounds(fs::path(words[1]).make_preferred(), fs::path(words[2]).make_preferred(),
                    rounds);
}

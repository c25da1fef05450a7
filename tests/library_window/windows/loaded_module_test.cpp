// The module as the host loads it from its file, with its real window: the library's commands act
// on the window, and a click on a slide answers the placing command.
#include <gtest/gtest.h>
#include <process.h>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>

#include "embedded/base/text.h"
#include "platform/common_funcs.h"
#include "platform/framework_app.h"
#include "support/session_fixture.h"
#include "windows/picture.h"
#include "windows/window_script.h"

namespace {

constexpr int kPane = 0xE900;

class LoadedModule : public test::SessionFixture {
 protected:
  // The sample install is made by a program of its own, which has its own copy of the module.
  static void SetUpTestSuite() {
    folder_ = std::make_unique<test::TempFolder>();
    const std::wstring place = install().wstring();
    const intptr_t status = _wspawnl(_P_WAIT, base::wideFromUtf8(VORNIK_PROGRAM_FILE).c_str(),
                                     L"vornik", L"sample", place.c_str(), nullptr);
    ASSERT_EQ(status, 0);
    const std::wstring information = (folder_->path() / "information.txt").wstring();
    _wputenv_s(L"VORNIK_INFORMATION", information.c_str());
    WriteInformation(L"ZEMMain", L"ZemSys", place.c_str(), 1);
    WriteInformation(L"ZEMMain", L"ZemUse", (install() / "User").wstring().c_str(), 1);
    WriteInformation(L"Dwglib", L"DwgDir", (install() / "Dwglib").wstring().c_str(), 1);
  }
  static void TearDownTestSuite() { folder_.reset(); }
  static std::filesystem::path install() { return folder_->path() / "install"; }

  void SetUp() override {
    host_ = ::CreateWindowExW(0, L"STATIC", L"host", WS_POPUP | WS_VISIBLE, 900, 700, 100, 100,
                              nullptr, nullptr, ::GetModuleHandleW(nullptr), nullptr);
    session.mainWindow = host_;
    const base::Status status = session.modules.load(VORNIK_MODULE_FILE);
    ASSERT_TRUE(status.ok()) << status.message();
    ASSERT_NE(library(), nullptr);
  }
  void TearDown() override {
    session.modules.unloadAll();
    ::DestroyWindow(host_);
  }

  // The library window: the one window that the host's owns.
  HWND library() const {
    struct Search {
      HWND owner;
      HWND found;
    } search = {host_, nullptr};
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM parameter) -> BOOL {
          auto& looking = *reinterpret_cast<Search*>(parameter);
          wchar_t text[32] = L"";
          ::GetWindowTextW(window, text, 32);
          const bool owned = ::GetWindow(window, GW_OWNER) == looking.owner;
          if (owned && std::wstring(text).rfind(L"主回路", 0) == 0) looking.found = window;
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
  }
  HWND grid() const { return ::GetDlgItem(::GetDlgItem(library(), kPane), kPane); }
  void show() {
    evaluate("(showzhlk)");
    ::MoveWindow(library(), 20, 20, 620, 460, TRUE);
    AfxPumpWaitingMessages();
  }
  HWND bar() const { return ::GetDlgItem(::GetDlgItem(library(), kPane), kPane + 1); }
  // Clicks the icon of an item of the first folder, which are small.
  void clickIcon(int item) {
    constexpr int kHeader = 21;
    constexpr int kStep = 26;
    window_kit::WindowScript script;
    script.click(bar(), 20, kHeader + kStep * item + kStep / 2);
    EXPECT_EQ(script.then([] {}).run(), "");
  }
  // Something is drawn at the place of an item's icon.
  bool isIcon(int item) const {
    const auto picture = window_kit::pictureOf(bar());
    const std::uint32_t background = picture.at(2, 60);
    int dots = 0;
    for (int y = 0; y < 16; ++y) {
      for (int x = 8; x < 38; ++x) dots += picture.at(x, 26 + 26 * item + y) != background ? 1 : 0;
    }
    return dots > 10;
  }
  // Chooses the last entry of the menu beside the items.
  void chooseNew() {
    RECT area{};
    ::GetClientRect(bar(), &area);
    const auto menu = [] {
      const HWND window = ::FindWindowW(L"#32768", nullptr);
      return window && ::IsWindowVisible(window);
    };
    window_kit::WindowScript script;
    script.rightClick(bar(), area.right - 5, area.bottom / 2).waitFor("the menu", menu);
    script.key(VK_UP).key(VK_RETURN).waitFor("its end", [&menu] { return !menu(); });
    EXPECT_EQ(script.then([] {}).run(), "");
  }
  void clickSlide(int column) {
    RECT area{};
    ::GetClientRect(grid(), &area);
    window_kit::WindowScript script;
    // The fresh grid has six columns and three rows.
    script.click(grid(), area.right / 6 * column + 5, 5);
    EXPECT_EQ(script.then([] {}).run(), "");
  }
  std::wstring title() const {
    wchar_t text[32] = L"";
    ::GetWindowTextW(library(), text, 32);
    return text;
  }

  HWND host_ = nullptr;
  static inline std::unique_ptr<test::TempFolder> folder_;
};

TEST_F(LoadedModule, LispShowsAndHidesTheWindow) {
  EXPECT_FALSE(::IsWindowVisible(library()));
  evaluate("(showzhlk)");
  EXPECT_TRUE(::IsWindowVisible(library()));
  evaluate("(hidezhlk)");
  EXPECT_FALSE(::IsWindowVisible(library()));
}

TEST_F(LoadedModule, ItsEndTakesTheWindowAway) {
  session.modules.unloadAll();
  EXPECT_EQ(library(), nullptr);
}

TEST_F(LoadedModule, TheToolBarComesFromTheModulesResources) {
  const HWND bar = ::GetDlgItem(::GetDlgItem(library(), 0xE81E), 0xE800);
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(::SendMessageW(bar, TB_BUTTONCOUNT, 0, 0), 6);
}

TEST_F(LoadedModule, AClickOnASlidePlacesItsCircuit) {
  evaluate("(zhlmsgmk 1)");
  evaluate("(showzhlk)");
  AfxPumpWaitingMessages();
  // What the user types comes first, the window's answer behind it.
  session.line.type("(yczhlhz)\n10,20\n");
  clickSlide(2);
  EXPECT_EQ(title(), L"主回路&03");
  EXPECT_TRUE(entities().empty());
  session.line.run();
  const std::vector<std::string> drawn = entities();
  EXPECT_GT(drawn.size(), 5U) << takePrinted();
}

// A prompt waits while the window is worked.
TEST_F(LoadedModule, ASymbolOfTheDrawingIsAddedAndPlacedByTheBar) {
  evaluate("(zhlmsgmk 1)");
  show();
  std::deque<std::function<void()>> hand = {
      [this] { chooseNew(); },                   // at the prompt for a point
      [this] { session.line.type("Last\n"); },   // at the prompt for a block
      [this] { session.line.type("10,20\n"); },  // a point again
      [this] { clickSlide(2); },                 // at the prompt for a keyword
      [this] { clickIcon(4); },                  // the new one
      [this] { session.line.type("\n\n"); },
  };
  session.line.wait = [&hand] {
    if (hand.empty()) return false;
    const auto next = std::move(hand.front());
    hand.pop_front();
    next();
    return true;
  };
  const std::string symbol = (install() / "Dwglib" / "Dqbl0012" / "ZHL1003.dwg").string();
  session.line.type("INSERT " + symbol + " 300,300 1 1 0\n(yczhlhz)\n");
  session.line.run();
  EXPECT_TRUE(hand.empty());
  const std::vector<std::string> drawn = entities();
  const auto placed = [](const std::string& entity) {
    return entity.find("INSERT FG001005 ") != std::string::npos;
  };
  EXPECT_EQ(std::count_if(drawn.begin(), drawn.end(), placed), 1) << takePrinted();
  const std::filesystem::path group = install() / "Datcom" / "zhllib" / "fzgn0001";
  EXPECT_TRUE(std::filesystem::exists(group / "FG001005.dwg"));
  // What was added is there when the module comes again.
  session.modules.unloadAll();
  ASSERT_TRUE(session.modules.load(VORNIK_MODULE_FILE).ok());
  show();
  EXPECT_TRUE(isIcon(4)) << "its slide is there";
  EXPECT_FALSE(isIcon(5));
}

TEST_F(LoadedModule, WithoutTheMarkAClickLeavesTheCommandLineAlone) {
  evaluate("(zhlmsgmk 0)");
  evaluate("(showzhlk)");
  AfxPumpWaitingMessages();
  session.line.type("(yczhlhz)\n10,20\n");
  window_kit::WindowScript script;
  script.click(grid(), 5, 5);
  script.waitFor("the selection", [this] { return title() == L"主回路&01"; });
  EXPECT_EQ(script.run(), "");
  session.line.run();
  EXPECT_TRUE(entities().empty());
}

}  // namespace

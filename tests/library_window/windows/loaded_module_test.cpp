// The module as the host loads it from its file, with its real window: the library's commands act
// on the window, and a click on a slide answers the placing command.
#include <gtest/gtest.h>
#include <process.h>

#include <filesystem>
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
  RECT area{};
  ::GetClientRect(grid(), &area);
  window_kit::WindowScript script;
  // The fresh grid has six columns and three rows.
  script.click(grid(), area.right / 6 * 2 + 5, 5);
  script.waitFor("the selection", [this] { return title() == L"主回路&03"; });
  EXPECT_EQ(script.run(), "");
  EXPECT_TRUE(entities().empty());
  session.line.run();
  const std::vector<std::string> drawn = entities();
  EXPECT_GT(drawn.size(), 5U) << takePrinted();
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

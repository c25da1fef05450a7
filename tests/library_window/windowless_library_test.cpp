// The library without windows, and showing and hiding of any library window.
#include "library_window/windowless_library.h"

#include <gtest/gtest.h>

#include "auxiliary/auxiliary_library.h"
#include "module/module_state.h"
#include "platform/framework_exceptions.h"
#include "platform/framework_messages.h"
#include "support/install.h"

namespace {

class Windowless : public testing::Test {
 protected:
  Windowless() {
    setMessageBoxHandler([this](const MessageBoxCall& call) {
      boxes_.push_back(call.text);
      return kMessageAnswerOk;
    });
    setLibraryWindow(makeLibraryWindow(nullptr));
  }
  ~Windowless() override {
    if (libraryWindow()) libraryWindow()->DestroyWindow();
    setMessageBoxHandler({});
  }
  static void set(CQuillDpData& tree, const std::wstring& key, const std::wstring& text) {
    tree.SetSubValueW(key.c_str(), static_cast<std::int16_t>(text.size() + 1), text.c_str(), 0);
  }
  std::wstring path(const char* name) { return test::Install::wide(install_.library() / name); }
  std::wstring inFile(const char* file, const wchar_t* key) {
    CQuillDpData tree;
    tree.ReadDataFromQdpFile(path(file).c_str());
    const CQuillDpNode* node = tree.GetSubValueFromPathW(0, key);
    return node ? node->text() : L"(none)";
  }
  // A library with two folders, made anew.
  void openWithFolders() {
    libraryWindow()->DestroyWindow();
    CQuillDpData tree;
    tree.ReadDataFromQdpFile(path("zhlFzgn.qdp").c_str());
    set(tree, L"索引", L"a&b&c&");
    for (const wchar_t* title : {L"a", L"c"}) {
      const std::wstring group = std::wstring(L"数据\\") + title;
      set(tree, group, L"fzgn0001");
      set(tree, group + L"\\类型", L"0");
      set(tree, group + L"\\索引", L"one&");
      set(tree, group + L"\\数据\\one", L"FG001001");
    }
    set(tree, L"数据\\b\\类型", L"1");
    tree.WriteDataToQdpFile(path("zhlFzgn.qdp").c_str());
    setLibraryWindow(makeLibraryWindow(nullptr));
  }

  test::Install install_;
  std::vector<std::wstring> boxes_;  // texts of message boxes
};

TEST_F(Windowless, StartsHiddenAndIsShown) {
  EXPECT_FALSE(libraryWindow()->IsVisible());
  ShowLibraryWindow();
  EXPECT_TRUE(libraryWindow()->IsVisible());
  HideLibraryWindow();
  EXPECT_FALSE(libraryWindow()->IsVisible());
}

TEST_F(Windowless, DestroyingClearsThePointerAndSavesBothFiles) {
  libraryWindow()->SelectSlot(3);
  libraryWindow()->DestroyWindow();
  EXPECT_EQ(libraryWindow(), nullptr);
  EXPECT_EQ(inFile("zhllib.qdp", L"ZhlViewDate\\当前选择"), L"3");
  EXPECT_EQ(inFile("zhlFzgn.qdp", L"图标状态"), L"0");
}

TEST_F(Windowless, LeavesTheStoredGeometryAlone) {
  libraryWindow()->SelectSlot(3);
  libraryWindow()->DestroyWindow();
  EXPECT_EQ(inFile("zhllib.qdp", L"ZhlViewDate\\x"), L"(none)");
  EXPECT_EQ(inFile("zhllib.qdp", L"ZhlViewDate\\宽度"), L"(none)");
}

TEST_F(Windowless, KeepsTheIconState) {
  libraryWindow()->DestroyWindow();
  CQuillDpData tree;
  tree.ReadDataFromQdpFile(path("zhlFzgn.qdp").c_str());
  set(tree, L"图标状态", L"2");
  tree.WriteDataToQdpFile(path("zhlFzgn.qdp").c_str());
  makeLibraryWindow(nullptr)->DestroyWindow();
  EXPECT_EQ(inFile("zhlFzgn.qdp", L"图标状态"), L"1");
}

TEST_F(Windowless, CountsTheFoldersThatAreShown) {
  EXPECT_EQ(libraryWindow()->GetFolderCount(), 0);
  openWithFolders();
  EXPECT_EQ(libraryWindow()->GetFolderCount(), 2);
}

TEST_F(Windowless, ChoosesItems) {
  openWithFolders();
  EXPECT_TRUE(libraryWindow()->ChooseItem(2, 0));
  EXPECT_EQ(inFile("zhlFzgn.qdp", L"当前选择\\类型"), L"2");
  for (const auto& [folder, item] : {std::pair(0, 1), {0, -1}, {3, 0}, {-1, 0}, {1, 0}}) {
    EXPECT_FALSE(libraryWindow()->ChooseItem(folder, item)) << folder << ", " << item;
  }
  EXPECT_EQ(inFile("zhlFzgn.qdp", L"当前选择\\类型"), L"2");
}

TEST_F(Windowless, OpensAFolderThatStandsAlone) {
  libraryWindow()->DestroyWindow();
  CQuillDpData tree;
  tree.ReadDataFromQdpFile(path("zhlFzgn.qdp").c_str());
  set(tree, L"索引", L"a&");
  set(tree, L"数据\\a\\类型", L"0");
  tree.WriteDataToQdpFile(path("zhlFzgn.qdp").c_str());
  setLibraryWindow(makeLibraryWindow(nullptr));
  EXPECT_EQ(libraryWindow()->GetFolderCount(), 1);
  EXPECT_EQ(libraryWindow()->Auxiliary()->bar().openFolder(), 0);
  EXPECT_TRUE(boxes_.empty());
}

// What the bar's folders and the list of titles disagree on.
TEST_F(Windowless, StoreThatMisleadsTheBarIsToldOnce) {
  openWithFolders();
  EXPECT_EQ(boxes_, std::vector{CInvalidArgException().Message()});
}

TEST_F(Windowless, GroupsAndItemsReachTheFileAtItsEnd) {
  openWithFolders();
  libraryWindow()->Auxiliary()->NewGroup();
  EXPECT_EQ(libraryWindow()->GetFolderCount(), 3);
  libraryWindow()->DestroyWindow();
  EXPECT_EQ(inFile("zhlFzgn.qdp", L"索引"), L"a&b&c&新建图库组&");
}

// A window that records the calls made on it.
class WindowDouble : public LibraryWindow {
 public:
  WindowDouble(bool visible, bool minimised) : visible_(visible), minimised_(minimised) {}
  ~WindowDouble() override = default;
  CZhlkLibStore& Store() override { return store_; }
  int GetFolderCount() override { return 0; }
  bool IsVisible() const override { return visible_; }
  bool IsMinimised() const override { return minimised_; }
  void ShowWindow(int command) override { calls_.push_back("show " + std::to_string(command)); }
  void UpdateWindow() override { calls_.push_back("update"); }
  bool DestroyWindow() override { return false; }
  void SelectSlot(int) override {}
  bool ChooseItem(int, int) override { return false; }

  std::vector<std::string> calls_;

 private:
  CZhlkLibStore store_;
  bool visible_;
  bool minimised_;
};

using Calls = std::vector<std::string>;

Calls callsOf(bool visible, bool minimised, void (*action)()) {
  WindowDouble window(visible, minimised);
  LibraryWindow* const real = libraryWindow();
  setLibraryWindow(&window);
  action();
  setLibraryWindow(real);
  return window.calls_;
}

TEST_F(Windowless, ShowingDependsOnTheWindowsState) {
  EXPECT_EQ(callsOf(false, false, ShowLibraryWindow), (Calls{"show 8", "update"}));
  EXPECT_EQ(callsOf(false, true, ShowLibraryWindow), (Calls{"show 8", "update"}));
  EXPECT_EQ(callsOf(true, true, ShowLibraryWindow), (Calls{"show 1", "update"}));
  EXPECT_EQ(callsOf(true, false, ShowLibraryWindow), Calls{"update"});
}

TEST_F(Windowless, HidingDependsOnTheWindowsState) {
  EXPECT_EQ(callsOf(true, false, HideLibraryWindow), (Calls{"show 0", "update"}));
  EXPECT_EQ(callsOf(false, false, HideLibraryWindow), Calls{"update"});
}

TEST_F(Windowless, WithoutAWindowNothingIsShown) {
  libraryWindow()->DestroyWindow();
  ShowLibraryWindow();
  HideLibraryWindow();
  EXPECT_EQ(libraryWindow(), nullptr);
}

}  // namespace

// The library window's bar over stores and folders that aren't as they should be: the window comes
// up and goes on, what is wrong is said once, and nothing outside of the library's folder changes.
#include "library_window/windows/bar_fixture.h"

namespace {

using namespace library_window_test;

class DamagedBar : public BarInFrame {
 protected:
  // Everything that a hand can do with the bar as it stands.
  void workIt() {
    const int folders = control().GetFolderCount();
    for (int folder = 0; folder < folders; ++folder) clickBar(header(folder));
    WindowScript script;
    run(script.click(bar(), 40, 200).move(bar(), 20, 150).move(bar(), 60, 90));
    offered(background());
    for (const unsigned view : {ID_BAR_LARGE_ICONS, ID_BAR_SMALL_ICONS}) {
      ::SendMessageW(bar(), WM_COMMAND, view, 0);
      window_kit::pictureOf(bar());
    }
    resize(300, 200);
    resize(620, 460);
  }
  std::size_t boxesOf(const std::wstring& text) const {
    return static_cast<std::size_t>(std::count(boxes_.begin(), boxes_.end(), text));
  }
};

TEST_F(DamagedBar, AMissingStoreIsAnEmptyBar) {
  showStore();
  EXPECT_EQ(control().GetFolderCount(), 0);
  EXPECT_TRUE(control().IsSmallIconView());
  workIt();
  EXPECT_EQ(offered({30, 100}),
            (std::vector<UINT>{ID_BAR_SMALL_ICONS, ID_BAR_LARGE_ICONS, 0, ID_BAR_NEW}));
  EXPECT_TRUE(boxes_.empty());
  restart();
  EXPECT_EQ(control().GetFolderCount(), 0);
}

TEST_F(DamagedBar, AStoreThatIsNoTreeIsAnEmptyBarAndIsKept) {
  for (const std::string bytes : {"no tree", "qdp 1\n索引\t仪表&\nend 7\n", ""}) {
    test::writeBytes(file("zhlFzgn.qdp"), bytes);
    showStore();
    EXPECT_EQ(control().GetFolderCount(), 0);
    workIt();
    EXPECT_TRUE(boxes_.empty());
    close();
  }
  for (const char* kept : {"zhlFzgn.qdp.damaged-1", "zhlFzgn.qdp.damaged-2"}) {
    EXPECT_TRUE(exists(kept)) << kept;
  }
}

TEST_F(DamagedBar, WithOneGroupTheMessageComesOnceAndTheWindowGoesOn) {
  groups_.resize(1);
  showGroups();
  EXPECT_EQ(boxes_, Names{kBadIndex});
  EXPECT_EQ(titles(), Names{L"仪表"});
  window_kit::pictureOf(bar());
  offered(background());
  EXPECT_EQ(boxes_.size(), 1U) << "painting and the menu take the open folder for an empty one";
}

// The framework tells of it, as of every bad index in a handler; with a second group it is well.
TEST_F(DamagedBar, TheOneGroupOpensOnceThereIsASecond) {
  groups_.resize(1);
  showGroups();
  clickBar(header(0));
  EXPECT_EQ(boxes_, (Names{kBadIndex, kBadIndex}));
  choose(leftOf(header(0), 30), ID_BAR_ADD);
  EXPECT_EQ(titles(), (Names{L"仪表", L"新建图库组"}));
  clickBar(header(0));
  EXPECT_EQ(control().GetCurrentFolder(), 0);
  EXPECT_EQ(labels(0).size(), 3U);
  EXPECT_EQ(boxes_.size(), 2U);
  restart();
  EXPECT_EQ(boxes_.size(), 2U);
  EXPECT_EQ(titles().size(), 2U);
}

TEST_F(DamagedBar, AGroupOfAnotherTypeBeforeTheOthersIsReportedOnce) {
  writeGroups();
  put(L"数据\\仪表\\类型", L"1");
  showStore();
  EXPECT_EQ(boxes_, Names{kBadIndex});
  workIt();
}

TEST_F(DamagedBar, ATitleWithASeparatorFallsApart) {
  writeGroups();
  put(L"索引", L"仪表&接&地&备注&");
  showStore();
  EXPECT_EQ(titles()[0], L"仪表");
  EXPECT_LE(boxesOf(kBadIndex), 1U);
  workIt();
}

TEST_F(DamagedBar, NamesOfEveryKindAreShownAndWorked) {
  const std::wstring longName(300, L'长');
  groups_ = {{L"  ", L"fzgn0001", {{L"   ", L"FG001001"}, {longName, L"FG001002"}}},
             {L"a\nb\tc", L"fzgn0002", {{L"line\r\nbreak", L"FG002001"}, {L"x", L"FG002002"}}},
             {longName, L"fzgn0003", {{L"Case", L"FG003001"}, {L"cASE", L"FG003002"}}}};
  showGroups();
  EXPECT_EQ(titles(), (Names{L"  ", L"a\nb\tc", longName}));
  for (int folder = 2; folder >= 0; --folder) {
    clickBar(header(folder));
    EXPECT_EQ(control().GetCurrentFolder(), folder);
    EXPECT_GT(litDots(iconRect(1)), 20);
    clickBar(icon(1));
  }
  EXPECT_EQ(onDisk(L"当前选择\\块名"), libraryFolder() + L"fzgn0001\\FG001002.dwg");
  workIt();
  EXPECT_TRUE(boxes_.empty());
  restart();
  EXPECT_EQ(titles(), (Names{L"  ", L"a\nb\tc", longName}));
  EXPECT_EQ(labels(0), (Names{L"   ", longName}));
}

TEST_F(DamagedBar, TypedNamesOfEveryKindAreTakenAndCostNoFile) {
  showGroups();
  for (const wchar_t* name : {L"a&b", L"a\\b", L"  "}) {
    choose(icon(0), ID_BAR_RENAME);
    type(name);
    EXPECT_EQ(labels(0)[0], name);
    choose(leftOf(icon(0), 5), ID_BAR_RENAME);
    type(L"电流表");
  }
  choose(icon(0), ID_BAR_RENAME);
  type(std::wstring(300, L'长'));
  restart();
  EXPECT_EQ(labels(0)[0].size(), 300U);
  EXPECT_TRUE(exists("fzgn0001/FG001001.dwg"));
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(DamagedBar, AGroupWhoseFolderIsGoneShowsItsItemsWithoutIcons) {
  writeGroups();
  std::filesystem::remove_all(file("fzgn0001"));
  setMessageMark(1);
  showStore();
  EXPECT_EQ(labels(0).size(), 3U);
  EXPECT_EQ(litDots(iconRect(0)), 0);
  clickBar(middle(cellRect(1)));
  EXPECT_EQ(test::host().messages.size(), 1U);
  EXPECT_EQ(onDisk(L"当前选择\\块名"), libraryFolder() + L"fzgn0001\\FG001002.dwg");
  choose(header(2), ID_BAR_DELETE);
  workIt();
  EXPECT_EQ(boxes_.size(), 1U) << "the question alone";
}

TEST_F(DamagedBar, ASlideThatCantBeDrawnLeavesItsIconOut) {
  writeGroups();
  CSlbMan slides;
  slides.OnOpenDocument(test::Install::wide(file("fzgn0002/fzgn0002.slb")).c_str());
  slides.AddSlideW(L"FG002001", "no slide", 8);
  slides.SaveModified();
  showStore();
  clickBar(header(1));
  EXPECT_EQ(litDots(iconRect(0)), 0);
  EXPECT_EQ(labels(1), Names{L"避雷器"});
}

TEST_F(DamagedBar, AFolderThatCantBeMadeIsToldAndTheGroupStays) {
  showGroups();
  // A file stands where the directory belongs.
  test::writeBytes(file("fzgn0004"), "");
  choose(header(0), ID_BAR_ADD);
  EXPECT_EQ(boxes_, Names{L"创建路径失败,请检查磁盘是否写保护!\n驱动器是否关闭!"});
  restart();
  EXPECT_EQ(titles().back(), L"新建图库组");
  clickBar(header(3));
  offered(background());
  EXPECT_EQ(boxes_.size(), 1U);
}

// What the menu was opened on may be gone when its command comes.
TEST_F(DamagedBar, StaleIndicesAreReportedAndTheWindowGoesOn) {
  showGroups();
  offered(icon(2));
  AuxiliaryLibrary& library = *libraryWindow()->Auxiliary();
  library.RemoveItem(2);
  boxes_.clear();
  for (const unsigned command : {ID_BAR_DELETE, ID_BAR_RENAME}) {
    ::SendMessageW(bar(), WM_COMMAND, command, 0);
  }
  EXPECT_EQ(boxes_, (Names{kBadIndex, kBadIndex}));
  choose(header(2), ID_BAR_RENAME);
  library.RemoveGroup(2);
  boxes_.clear();
  type(L"late");
  EXPECT_EQ(boxes_, Names{kBadIndex});
  workIt();
  EXPECT_EQ(titles(), (Names{L"仪表", L"接地"}));
}

// --- nothing outside is touched ---

TEST_F(DamagedBar, NamesThatLeadOutOfTheLibraryAreRefused) {
  const std::filesystem::path outsideFolder = install_.folder() / "outside";
  const std::filesystem::path drawing = outsideFolder / "FG003001.dwg";
  std::filesystem::create_directories(outsideFolder);
  groups_[2].items = {{L"箭头", L"FG003001"}};
  setMessageMark(0);
  for (const std::wstring& value :
       {std::wstring(L"..\\..\\..\\outside"), std::wstring(L"../../../outside"),
        test::Install::wide(outsideFolder), std::wstring(L".."), std::wstring(L"."),
        std::wstring(L"fzgn0001\\..\\..\\..\\..\\outside"), std::wstring(L"fzgn0003 "),
        std::wstring(L"C:"), std::wstring(L"\\\\server\\share")}) {
    test::writeBytes(outsideFolder / "outside.slb", "precious");
    test::writeBytes(drawing, "precious");
    writeGroups();
    put(L"数据\\备注", value);
    showStore();
    clickBar(header(2));
    EXPECT_EQ(labels(2), Names{L"箭头"});
    ::SendMessageW(bar(), BARM_NOTIFY, BARN_ITEMCLICK, 0);
    EXPECT_EQ(onDisk(L"当前选择\\块名"), L"-");
    libraryWindow()->Auxiliary()->RemoveItem(0);
    choose(header(2), ID_BAR_DELETE);
    EXPECT_EQ(titles().size(), 2U);
    close();
    EXPECT_TRUE(std::filesystem::exists(drawing));
    EXPECT_TRUE(std::filesystem::exists(outsideFolder / "outside.slb"));
    EXPECT_TRUE(exists("zhlFzgn.qdp"));
    EXPECT_TRUE(exists("fzgn0001/FG001001.dwg"));
    EXPECT_TRUE(exists("fzgn0003/FG003001.dwg"));
  }
}

TEST_F(DamagedBar, TitlesThatLeadIntoOtherKeysAreNoGroups) {
  writeGroups();
  put(L"索引", L"仪表&接地&仪表\\数据&");
  put(L"数据\\仪表\\数据\\类型", L"0");
  showStore();
  EXPECT_EQ(titles(), (Names{L"仪表", L"接地"}));
  workIt();
  EXPECT_EQ(labels(0).size(), 3U);
}

}  // namespace

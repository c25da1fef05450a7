// The auxiliary library in the library window, worked with mouse and keyboard: what the bar shows,
// what reaches the disk and the command line, and what is there after a restart.
#include "controls/folder_slide.h"
#include "library_window/windows/bar_fixture.h"

namespace {

using namespace library_window_test;

class LibraryBarTest : public BarInFrame {
 protected:
  void SetUp() override { showGroups(); }
  std::vector<std::wstring>& sent() { return test::host().messages; }
  std::vector<int> steps(int from, int to) {
    const auto slide = folderSlide(control().layout(), from, to);
    return std::vector<int>(slide.size(), 20);
  }
};

const std::wstring kChosen(L"F \0\0", 4);
const std::wstring kNew(L"N \0\0", 4);

// --- what is shown ---

TEST_F(LibraryBarTest, GroupsAreFoldersAndTheFirstIsOpen) {
  EXPECT_EQ(titles(), (Names{L"仪表", L"接地", L"备注"}));
  EXPECT_EQ(labels(0), (Names{L"电流表", L"电压表", L"信号灯"}));
  EXPECT_EQ(labels(1), Names{L"避雷器"});
  EXPECT_TRUE(labels(2).empty());
  EXPECT_EQ(control().GetCurrentFolder(), 0);
  EXPECT_EQ(libraryWindow()->GetFolderCount(), 3);
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(LibraryBarTest, IconsAreTheSlidesInBothSizes) {
  EXPECT_TRUE(control().IsSmallIconView());
  const int small = litDots(iconRect(1));
  EXPECT_GT(small, 20);
  choose(background(), ID_BAR_LARGE_ICONS);
  EXPECT_FALSE(control().IsSmallIconView());
  EXPECT_GT(litDots(iconRect(1)), small);
  EXPECT_EQ(iconRect(1).Width(), 64);
}

TEST_F(LibraryBarTest, TheMenuOffersWhatFitsThePlace) {
  using Commands = std::vector<UINT>;
  EXPECT_EQ(offered(icon(0)),
            (Commands{ID_BAR_SMALL_ICONS, ID_BAR_LARGE_ICONS, 0, ID_BAR_DELETE, ID_BAR_RENAME}));
  EXPECT_EQ(offered(header(0)),
            (Commands{ID_BAR_SMALL_ICONS, ID_BAR_LARGE_ICONS, 0, ID_BAR_ADD, ID_BAR_RENAME}));
  EXPECT_EQ(offered(header(1)),
            (Commands{ID_BAR_SMALL_ICONS, ID_BAR_LARGE_ICONS, 0, ID_BAR_ADD, ID_BAR_RENAME}));
  EXPECT_EQ(offered(header(2)), (Commands{ID_BAR_SMALL_ICONS, ID_BAR_LARGE_ICONS, 0, ID_BAR_ADD,
                                          ID_BAR_DELETE, ID_BAR_RENAME}));
  EXPECT_EQ(offered(background()),
            (Commands{ID_BAR_SMALL_ICONS, ID_BAR_LARGE_ICONS, 0, ID_BAR_NEW}));
}

TEST_F(LibraryBarTest, TheViewIsThereAfterARestart) {
  choose(background(), ID_BAR_LARGE_ICONS);
  restart();
  EXPECT_FALSE(control().IsSmallIconView());
  choose(background(), ID_BAR_SMALL_ICONS);
  restart();
  EXPECT_TRUE(control().IsSmallIconView());
}

// --- folders ---

TEST_F(LibraryBarTest, AClickedHeaderSlidesItsFolderOpen) {
  const std::vector<int> down = steps(0, 1);
  EXPECT_GT(down.size(), 5U);
  clickBar(header(1));
  EXPECT_EQ(control().GetCurrentFolder(), 1);
  EXPECT_EQ(pauses_, down);
  pauses_.clear();
  const std::vector<int> up = steps(1, 0);
  EXPECT_GT(up.size(), 5U);
  clickBar(header(0));
  EXPECT_EQ(control().GetCurrentFolder(), 0);
  EXPECT_EQ(pauses_, up);
}

TEST_F(LibraryBarTest, AFolderIsAddedBehindTheOthersWithItsDirectory) {
  choose(header(0), ID_BAR_ADD);
  EXPECT_EQ(titles().back(), L"新建图库组");
  EXPECT_TRUE(exists("fzgn0004/fzgn0004.slb"));
  choose(header(1), ID_BAR_ADD);
  restart();
  EXPECT_EQ(titles(), (Names{L"仪表", L"接地", L"备注", L"新建图库组", L"新建图库组1"}));
  EXPECT_EQ(onDisk(L"数据\\新建图库组1"), L"fzgn0005");
}

TEST_F(LibraryBarTest, AFolderIsDeletedWithItsFilesOnceThatIsConfirmed) {
  answer_ = kMessageAnswerCancel;
  choose(header(2), ID_BAR_DELETE);
  EXPECT_EQ(boxes_, Names{L"确定要删除\"备注\"图库组吗?"});
  EXPECT_EQ(titles().size(), 3U);
  EXPECT_TRUE(exists("fzgn0003"));
  answer_ = kMessageAnswerOk;
  // Elsewhere on the header, or it would be a double click.
  choose(leftOf(header(2), 30), ID_BAR_DELETE);
  EXPECT_FALSE(exists("fzgn0003"));
  restart();
  EXPECT_EQ(titles(), (Names{L"仪表", L"接地"}));
}

TEST_F(LibraryBarTest, DeletingTheOpenFolderOpensTheOneBeforeIt) {
  clickBar(header(2));
  choose(header(2), ID_BAR_DELETE);
  EXPECT_EQ(control().GetCurrentFolder(), 1);
  EXPECT_GT(litDots(iconRect(0)), 20);
}

TEST_F(LibraryBarTest, AFolderIsRenamedAndKeepsItsFiles) {
  choose(header(1), ID_BAR_RENAME);
  type(L"保护 接地");
  EXPECT_EQ(titles()[1], L"保护 接地");
  restart();
  EXPECT_EQ(titles(), (Names{L"仪表", L"保护 接地", L"备注"}));
  EXPECT_EQ(labels(1), Names{L"避雷器"});
  EXPECT_EQ(onDisk(L"数据\\保护 接地"), L"fzgn0002");
}

TEST_F(LibraryBarTest, ATitleOfAnotherFolderIsRefused) {
  choose(header(1), ID_BAR_RENAME);
  type(L"备注");
  EXPECT_EQ(boxes_, Names{L"已有此名的标题!"});
  EXPECT_EQ(titles()[1], L"接地");
}

// --- items ---

TEST_F(LibraryBarTest, AClickedIconIsTheChoiceAndAnswersThePrompt) {
  setMessageMark(1);
  clickBar(icon(1));
  EXPECT_EQ(sent(), std::vector{kChosen});
  EXPECT_EQ(onDisk(L"当前选择\\块名"), libraryFolder() + L"fzgn0001\\FG001002.dwg");
  EXPECT_EQ(onDisk(L"当前选择\\类型"), L"0");
  EXPECT_EQ(control().selectedItem(), 1);
}

TEST_F(LibraryBarTest, WithoutTheMarkAClickIsOnlyWritten) {
  setMessageMark(0);
  clickBar(header(1));
  clickBar(icon(0));
  EXPECT_TRUE(sent().empty());
  EXPECT_EQ(onDisk(L"当前选择\\块名"), libraryFolder() + L"fzgn0002\\FG002001.dwg");
  EXPECT_EQ(onDisk(L"当前选择\\类型"), L"1");
}

TEST_F(LibraryBarTest, TheNewEntryAnswersThePromptAlsoWithoutTheMark) {
  setMessageMark(0);
  choose(background(), ID_BAR_NEW);
  EXPECT_EQ(sent(), std::vector{kNew});
}

TEST_F(LibraryBarTest, TheClickedIconJumps) {
  setMessageMark(0);
  clickBar(icon(1));
  const CRect rect = iconRect(1);
  const auto look = [&] {
    const auto picture = window_kit::pictureOf(bar());
    std::vector<std::uint32_t> dots;
    for (int y = rect.top; y < rect.bottom; ++y) {
      for (int x = rect.left; x < rect.right; ++x) dots.push_back(picture.at(x, y));
    }
    return dots;
  };
  outside();
  const auto atRest = look();
  WindowScript script;
  script.patience(4000);
  script.waitFor("the jump", [&] { return look() != atRest; });
  script.waitFor("its end", [&] { return look() == atRest; });
  run(script);
}

TEST_F(LibraryBarTest, ADraggedItemStandsWhereItWasDroppedAfterARestart) {
  drag(icon(0), icon(2));
  EXPECT_EQ(labels(0), (Names{L"电压表", L"电流表", L"信号灯"}));
  drag(leftOf(icon(0), 6), background());
  EXPECT_EQ(labels(0), (Names{L"电流表", L"信号灯", L"电压表"}));
  restart();
  EXPECT_EQ(labels(0), (Names{L"电流表", L"信号灯", L"电压表"}));
  EXPECT_EQ(onDisk(L"数据\\仪表\\数据\\电流表"), L"FG001001");
}

TEST_F(LibraryBarTest, AnItemIsRenamedInBothViews) {
  choose(icon(1), ID_BAR_RENAME);
  type(L"电压表 V");
  choose(background(), ID_BAR_LARGE_ICONS);
  choose(icon(2), ID_BAR_RENAME);
  type(L"红灯");
  EXPECT_EQ(labels(0), (Names{L"电流表", L"电压表 V", L"红灯"}));
  restart();
  EXPECT_EQ(labels(0), (Names{L"电流表", L"电压表 V", L"红灯"}));
  EXPECT_GT(litDots(iconRect(2)), 20) << "its slide goes by the block's name, which stays";
}

TEST_F(LibraryBarTest, ALabelOfAnotherItemIsRefusedButNotInAnotherCase) {
  choose(icon(0), ID_BAR_RENAME);
  type(L"信号灯");
  EXPECT_EQ(boxes_, Names{L"已有此名的符号!"});
  EXPECT_EQ(labels(0)[0], L"电流表");
  choose(leftOf(icon(0), 5), ID_BAR_RENAME);
  type(L"lamp");
  choose(icon(1), ID_BAR_RENAME);
  type(L"LAMP");
  restart();
  EXPECT_EQ(labels(0), (Names{L"lamp", L"LAMP", L"信号灯"}));
}

TEST_F(LibraryBarTest, EscAndAnEmptyTextKeepTheLabel) {
  choose(icon(0), ID_BAR_RENAME);
  type(L"other", VK_ESCAPE);
  choose(leftOf(icon(0), 5), ID_BAR_RENAME);
  type(L"");
  EXPECT_EQ(labels(0)[0], L"电流表");
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(LibraryBarTest, AnItemIsDeletedWithItsFilesOnceThatIsConfirmed) {
  answer_ = kMessageAnswerCancel;
  choose(icon(1), ID_BAR_DELETE);
  EXPECT_EQ(boxes_, Names{L"确定要删除\"电压表\"图库项吗?"});
  EXPECT_EQ(labels(0).size(), 3U);
  answer_ = kMessageAnswerOk;
  choose(leftOf(icon(1), 5), ID_BAR_DELETE);
  EXPECT_FALSE(exists("fzgn0001/FG001002.dwg"));
  EXPECT_TRUE(exists("fzgn0001/FG001001.dwg"));
  EXPECT_EQ(labels(0), (Names{L"电流表", L"信号灯"}));
  restart();
  EXPECT_EQ(labels(0), (Names{L"电流表", L"信号灯"}));
  EXPECT_GT(litDots(iconRect(1)), 20);
}

// --- painting ---

LRESULT CALLBACK countPaints(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                             DWORD_PTR count) {
  if (message == WM_PAINT) ++*reinterpret_cast<int*>(count);
  return ::DefSubclassProc(window, message, w, l);
}

TEST_F(LibraryBarTest, HoveringPaintsNothingAnew) {
  window_kit::pictureOf(bar());
  int paints = 0;
  ::SetWindowSubclass(bar(), countPaints, 1, reinterpret_cast<DWORD_PTR>(&paints));
  WindowScript script;
  for (const CPoint at : {header(0), icon(0), icon(1), icon(2), background(), header(2)}) {
    script.move(bar(), at.x, at.y);
  }
  run(script.then([] {}));
  EXPECT_EQ(control().hover().folder, 2);
  EXPECT_EQ(paints, 0);
  ::RemoveWindowSubclass(bar(), countPaints, 1);
}

}  // namespace

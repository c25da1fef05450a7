// Clicks on items and the "new" entry: what is written, and what is sent to the command line.
#include "auxiliary/library_fixture.h"
#include "controls/auxiliary_bar_library.h"
#include "embedded/base/files.h"
#include "module/information.h"

namespace {

using namespace auxiliary_test;

// Two characters, a terminating one, and one more for the length.
const std::wstring kChosen(L"F \0\0", 4);
const std::wstring kNew(L"N \0\0", 4);

class Clicks : public LibraryFixture {
 protected:
  Clicks() { setMessageMark(1); }
  std::vector<std::wstring>& sent() { return test::host().messages; }
};

TEST_F(Clicks, ItemIsWrittenToTheFileBeforeTheCommandIsTold) {
  loaded();
  bar_.selectFolder(1);
  library().itemClicked(0);
  EXPECT_EQ(inFile(L"当前选择\\块名"), libraryFolder() + L"fzgn0002\\FG002001.dwg");
  EXPECT_EQ(inFile(L"当前选择\\类型"), L"1");
  EXPECT_EQ(sent(), std::vector{kChosen});
}

TEST_F(Clicks, RestartShowsWhatWasThereAtTheLastClick) {
  loaded().NewGroup();
  library().folderRenamed(1, L"灯具");
  EXPECT_TRUE(library().itemMoved(0, 3));
  library().itemRenamed(1, L"表");
  library().RemoveGroup(2);
  library().itemClicked(0);
  library().folderRenamed(0, L"too late");
  NotingBar again;
  AuxiliaryLibrary(again).LoadStore();
  EXPECT_EQ(again.titles(), (Names{L"仪表", L"灯具", L"新建图库组"}));
  EXPECT_EQ(again.labels(0), (Names{L"仪表-2", L"表", L"仪表-1"}));
  EXPECT_EQ(again.labels(1), Names{L"灯"});
  EXPECT_EQ(again.iconCount(0), 3);
}

TEST_F(Clicks, NothingIsSentWithoutTheMark) {
  setMessageMark(0);
  loaded().itemClicked(2);
  EXPECT_EQ(inFile(L"当前选择\\块名"), libraryFolder() + L"fzgn0001\\FG001003.dwg");
  EXPECT_TRUE(sent().empty());
}

TEST_F(Clicks, ItemWithoutBlockNameKeepsTheChoiceAndIsSentAllTheSame) {
  put(L"数据\\仪表\\数据\\仪表-2", L"");
  loaded().itemClicked(0);
  library().NewGroup();
  library().itemClicked(1);
  EXPECT_EQ(inFile(L"当前选择\\块名"), libraryFolder() + L"fzgn0001\\FG001001.dwg");
  EXPECT_EQ(inFile(L"索引"), L"仪表&信号&接地&新建图库组&");  // the file was written
  EXPECT_EQ(sent(), (std::vector{kChosen, kChosen}));
}

TEST_F(Clicks, GroupWithoutDirectoryIsNoChoiceAndIsSentAllTheSame) {
  put(L"数据\\仪表", L"");
  loaded().itemClicked(0);
  EXPECT_EQ(inFile(L"当前选择\\块名"), L"(none)");
  EXPECT_EQ(sent(), std::vector{kChosen});
}

TEST_F(Clicks, WithoutAnyTitleTheFileIsWrittenAllTheSame) {
  put(L"索引", L"");
  loaded();
  bar_.addFolder(L"a", 0);
  bar_.insertItem(0, 0, L"b", -1);
  library().store().tree().SetSubValueW(L"图标状态", 2, L"1", 0);
  library().itemClicked(0);
  EXPECT_EQ(inFile(L"图标状态"), L"1");
  EXPECT_EQ(inFile(L"当前选择\\类型"), L"(none)");
  EXPECT_EQ(sent(), std::vector{kChosen});
}

TEST_F(Clicks, FullDiskKeepsTheFileAndTheChoiceGoesWithTheNextClick) {
  loaded();
  base::setSaveHook([](base::SaveStep) { return base::Status::failure("no space left"); });
  library().itemClicked(0);
  base::setSaveHook(nullptr);
  EXPECT_EQ(inFile(L"当前选择\\块名"), L"(none)");
  EXPECT_EQ(inFile(L"索引"), L"仪表&信号&接地&");
  EXPECT_EQ(sent(), std::vector{kChosen});
  library().itemClicked(0);
  EXPECT_EQ(inFile(L"当前选择\\块名"), libraryFolder() + L"fzgn0001\\FG001001.dwg");
}

TEST_F(Clicks, FolderBehindTheListRaisesAndSendsNothing) {
  loaded();
  bar_.addFolder(L"nowhere", 3);
  bar_.selectFolder(3);
  bar_.insertItem(3, 0, L"b", -1);
  test::expectInvalidArgument([&] { library().itemClicked(0); });
  EXPECT_TRUE(sent().empty());
}

TEST_F(Clicks, StaleItemChoosesNothing) {
  loaded().itemClicked(9);
  EXPECT_EQ(inFile(L"当前选择\\块名"), L"(none)");
}

TEST_F(Clicks, ValuesThatLeadElsewhereAreNoChoice) {
  put(L"数据\\仪表", L"..\\..");
  loaded().itemClicked(0);
  EXPECT_EQ(inFile(L"当前选择\\块名"), L"(none)");
}

TEST_F(Clicks, NewIsSentWithoutALookAtTheMark) {
  setMessageMark(0);
  loaded().askForNewItem();
  EXPECT_EQ(sent(), std::vector{kNew});
}

TEST_F(Clicks, ClosingStoresTheIconState) {
  loaded();
  bar_.setSmallIcons(false);
  library().close();
  EXPECT_EQ(inFile(L"图标状态"), L"1");
}

// Each of the bar's questions reaches the operation behind it.
TEST_F(Clicks, BarIsServedByTheLibrary) {
  loaded();
  AuxiliaryBarLibrary served(library());
  served.renameFolder(1, L"灯具");
  EXPECT_EQ(bar_.titles().at(1), L"灯具");
  served.renameItem(0, L"表");
  EXPECT_EQ(bar_.labels(0).at(0), L"表");
  EXPECT_TRUE(served.moveItem(0, 3));
  EXPECT_FALSE(served.moveItem(0, 1));
  served.addGroup();
  EXPECT_EQ(bar_.folderCount(), 4);
  served.removeGroup(3);
  EXPECT_EQ(bar_.folderCount(), 3);
  served.removeItem(0);
  EXPECT_EQ(bar_.itemCount(0), 2);
  served.itemClicked(0);
  served.addItem();
  EXPECT_EQ(sent(), (std::vector{kChosen, kNew}));
}

}  // namespace

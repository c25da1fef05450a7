// Adding, renaming, moving and deleting items of the open folder.
#include "auxiliary/library_fixture.h"
#include "embedded/base/files.h"

namespace {

using namespace auxiliary_test;
namespace fs = std::filesystem;

class Items : public LibraryFixture {
 protected:
  std::wstring list() { return value(L"数据\\仪表\\索引"); }
};

// --- keys of a new item ---

TEST_F(Items, NewOneIsNamedAfterItsGroupAndDirectory) {
  const NewItem item = loaded().NewItemKeys();
  EXPECT_EQ(item.label, L"仪表-4");
  EXPECT_EQ(item.block, L"FG001004");
  EXPECT_EQ(item.directory, L"fzgn0001");
  EXPECT_EQ(item.folderPath, libraryFolder() + L"fzgn0001");
  EXPECT_EQ(list(), L"仪表-1&仪表-2&仪表-3&仪表-4&");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-4"), L"FG001004");
  EXPECT_EQ(bar_.itemCount(0), 3);  // it enters the bar with its icon
}

TEST_F(Items, NewBlockNameFillsAGapWithoutCase) {
  put(L"数据\\仪表\\数据\\仪表-1", L"fg001002");
  put(L"数据\\仪表\\数据\\仪表-2", L"fg001001");
  put(L"数据\\仪表\\数据\\仪表-3", L"");
  EXPECT_EQ(loaded().NewItemKeys().block, L"FG001003");
}

TEST_F(Items, FirstOneOfAGroup) {
  loaded();
  bar_.selectFolder(2);
  EXPECT_EQ(library().NewItemKeys().label, L"接地-1");
  EXPECT_EQ(value(L"数据\\接地\\索引"), L"接地-1&");
}

TEST_F(Items, NewOneOfAGroupWithoutDirectoryLiesInTheLibrarysOwnFolder) {
  put(L"数据\\仪表", L"");
  const NewItem item = loaded().NewItemKeys();
  EXPECT_EQ(item.folderPath, libraryFolder());
  EXPECT_EQ(item.directory, L"");
  EXPECT_EQ(item.block, L"FG001");
}

TEST_F(Items, NewOneIsNeverPutWhereADamagedDirectoryLeads) {
  put(L"数据\\仪表", L"..\\..");
  EXPECT_EQ(loaded().NewItemKeys().folderPath, libraryFolder());
}

// The tree can't hold that group's keys, so that nothing would find the item again.
TEST_F(Items, GroupWhoseTitleHasABackslashTakesNone) {
  loaded().folderRenamed(0, L"a\\b");
  EXPECT_EQ(library().NewItemKeys().block, L"");
  EXPECT_EQ(value(L"数据\\a"), L"(none)");
}

TEST_F(Items, GroupWhoseListIsFullTakesNone) {
  const std::wstring longLabel(32755, L'a');
  loaded().itemRenamed(0, longLabel);
  EXPECT_EQ(library().NewItemKeys().block, L"");
  EXPECT_TRUE(list() == longLabel + L"&仪表-2&仪表-3&");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-4"), L"(none)");
}

TEST_F(Items, RemovingKeysUndoesNewOnes) {
  const NewItem item = loaded().NewItemKeys();
  library().RemoveItemKeys(item.label);
  EXPECT_EQ(list(), L"仪表-1&仪表-2&仪表-3&");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-4"), L"(none)");
}

TEST_F(Items, RemovingKeysOfAnUnknownLabelKeepsTheList) {
  loaded().RemoveItemKeys(L"仪表-9");
  EXPECT_EQ(list(), L"仪表-1&仪表-2&仪表-3&");
  library().RemoveItemKeys(L"");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-1"), L"FG001001");
}

TEST_F(Items, RemovingKeysTakesTheFirstMatchWithCase) {
  put(L"数据\\仪表\\索引", L"a&A&b&A&");
  put(L"数据\\仪表\\数据\\a", L"FG001001");
  put(L"数据\\仪表\\数据\\A", L"FG001002");
  loaded().RemoveItemKeys(L"A");
  EXPECT_EQ(list(), L"a&b&A&");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\a"), L"FG001001");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\A"), L"(none)");
}

TEST_F(Items, RemovingKeysTakesTheKeyOfALabelThatIsNotListed) {
  put(L"数据\\仪表\\数据\\x", L"FG001009");
  loaded().RemoveItemKeys(L"x");
  EXPECT_EQ(list(), L"仪表-1&仪表-2&仪表-3&");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\x"), L"(none)");
}

TEST_F(Items, RemovingKeysInAGroupWithoutListChangesNothing) {
  put(L"数据\\接地\\数据\\x", L"FG003001");
  loaded();
  bar_.selectFolder(2);
  library().RemoveItemKeys(L"x");
  EXPECT_EQ(lengthOf(L"数据\\接地\\索引"), -1);
  EXPECT_EQ(value(L"数据\\接地\\数据\\x"), L"FG003001");
}

TEST_F(Items, RemovingTheLastKeysLeavesAnEmptyText) {
  loaded();
  bar_.selectFolder(2);
  library().RemoveItemKeys(library().NewItemKeys().label);
  EXPECT_EQ(lengthOf(L"数据\\接地\\索引"), 1);
  EXPECT_TRUE(library().store().labels(2).IsEmpty());
}

// --- the new item in the bar ---

TEST_F(Items, ImageOfANewItemIsItsPlaceInTheLargeList) {
  loaded().RemoveItem(0);  // its image stays in the list
  bar_.log.clear();
  addSlide(libraryFolder() + L"fzgn0001\\fzgn0001.slb", L"FG001009");
  library().AddItemImage(libraryFolder() + L"fzgn0001\\fzgn0001.slb", L"FG001009", L"new");
  EXPECT_EQ(bar_.labels(0), (Names{L"仪表-2", L"仪表-3", L"new"}));
  EXPECT_EQ(bar_.image(0, 2), 3);
  EXPECT_EQ(bar_.iconCount(0), 4);
  EXPECT_EQ(bar_.log, (Log{L"drop icon lists", L"all"}));
}

TEST_F(Items, FirstOneMakesTheIconListsAndTheSecondFindsThem) {
  loaded();
  bar_.selectFolder(2);
  const std::wstring slides = libraryFolder() + L"fzgn0003\\fzgn0003.slb";
  for (const wchar_t* block : {L"FG003001", L"FG003002"}) {
    addSlide(slides, block);
    library().AddItemImage(slides, block, block);
  }
  EXPECT_EQ(bar_.image(2, 0), 0);
  EXPECT_EQ(bar_.image(2, 1), 1);
  EXPECT_EQ(bar_.iconCount(2), 2);
}

TEST_F(Items, FirstOneAfterAllWereDeletedMakesNewIconLists) {
  loaded();
  bar_.selectFolder(1);
  library().RemoveItem(0);
  const std::wstring slides = libraryFolder() + L"fzgn0002\\fzgn0002.slb";
  addSlide(slides, L"FG002001");
  bar_.iconListsMade.clear();
  library().AddItemImage(slides, L"FG002001", L"new");
  EXPECT_EQ(bar_.iconListsMade, std::vector{1});
  EXPECT_EQ(bar_.image(1, 0), 0);
}

TEST_F(Items, SlideThatIsMissingGivesAnItemWithoutImage) {
  loaded().AddItemImage(libraryFolder() + L"fzgn0001\\fzgn0001.slb", L"no such", L"new");
  EXPECT_EQ(bar_.image(0, 3), -1);
}

// --- deleting ---

TEST_F(Items, DeletingAsksAndTakesKeysDrawingAndSlide) {
  loaded().RemoveItem(1);
  EXPECT_EQ(bar_.log,
            (Log{L"辅助功能删除|确定要删除\"仪表-2\"图库项吗?|33", L"remove item 1", L"items"}));
  EXPECT_EQ(bar_.labels(0), (Names{L"仪表-1", L"仪表-3"}));
  EXPECT_EQ(list(), L"仪表-1&仪表-3&");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-2"), L"(none)");
  EXPECT_FALSE(exists("fzgn0001/FG001002.dwg"));
  EXPECT_FALSE(hasSlide(L"fzgn0001", L"FG001002"));
  EXPECT_TRUE(hasSlide(L"fzgn0001", L"FG001003"));
  EXPECT_TRUE(exists("fzgn0001/FG001003.dwg"));
  EXPECT_EQ(bar_.image(0, 1), 2);  // as before
}

TEST_F(Items, CancelledDeletingLeavesAll) {
  bar_.answer = kMessageAnswerCancel;
  loaded().RemoveItem(1);
  EXPECT_EQ(bar_.itemCount(0), 3);
  EXPECT_TRUE(exists("fzgn0001/FG001002.dwg"));
}

TEST_F(Items, DeletingOneWithoutDrawingGoesOn) {
  fs::remove(file("fzgn0001/FG001002.dwg"));
  loaded().RemoveItem(1);
  EXPECT_EQ(list(), L"仪表-1&仪表-3&");
  EXPECT_FALSE(hasSlide(L"fzgn0001", L"FG001002"));
}

TEST_F(Items, DeletingOneWhoseFolderIsGoneTakesItsKeys) {
  fs::remove_all(file("fzgn0001"));
  loaded().RemoveItem(1);
  EXPECT_EQ(list(), L"仪表-1&仪表-3&");
  EXPECT_FALSE(exists("fzgn0001"));
}

TEST_F(Items, DeletingInAGroupWithoutDirectoryTakesItFromTheBarAlone) {
  put(L"数据\\仪表", L"");
  loaded().RemoveItem(1);
  EXPECT_TRUE(exists("fzgn0001/FG001002.dwg"));
  EXPECT_EQ(bar_.itemCount(0), 2);
  EXPECT_EQ(list(), L"仪表-1&仪表-2&仪表-3&");
}

TEST_F(Items, DeletingOneWithAnEmptyBlockNameTakesItsKeysAlone) {
  put(L"数据\\仪表\\数据\\仪表-2", L"");
  test::writeBytes(file("fzgn0001/.dwg"), "what an empty name would lead to");
  loaded().RemoveItem(1);
  EXPECT_EQ(list(), L"仪表-1&仪表-3&");
  EXPECT_EQ(lengthOf(L"数据\\仪表\\数据\\仪表-2"), -1);
  EXPECT_TRUE(exists("fzgn0001/.dwg"));
  EXPECT_TRUE(exists("fzgn0001/FG001002.dwg"));
}

TEST_F(Items, DeletingOneWithoutBlockNameTakesItFromTheListAlone) {
  loaded();
  CQuillDpData& tree = library().store().tree();
  tree.DeleteSubKeyW(L"数据\\仪表\\数据\\仪表-2");
  tree.SetSubValueW(L"数据\\仪表\\数据\\仪表-2\\below", 2, L"x", 0);
  library().RemoveItem(1);
  EXPECT_EQ(list(), L"仪表-1&仪表-3&");
  EXPECT_EQ(lengthOf(L"数据\\仪表\\数据\\仪表-2"), 0);
}

// Its key would be that of all items.
TEST_F(Items, DeletingAnEmptyLabelLeavesTheOthers) {
  put(L"数据\\仪表\\索引", L"仪表-1&&仪表-3&");
  put(L"数据\\仪表\\数据", L"FG001003");
  loaded().RemoveItem(1);
  EXPECT_EQ(list(), L"仪表-1&仪表-3&");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-1"), L"FG001001");
  EXPECT_TRUE(exists("fzgn0001/FG001003.dwg"));
}

TEST_F(Items, DeletingFilesBehindTheListChangesNothing) {
  loaded().RemoveItemFiles(3);
  library().RemoveItemFiles(-1);
  EXPECT_EQ(list(), L"仪表-1&仪表-2&仪表-3&");
}

TEST_F(Items, BlockNamesThatLeadElsewhereDeleteNothing) {
  for (const wchar_t* block : {L"..\\fzgn0002\\FG002001", L"..", L"../fzgn0002/FG002001", L"C:FG",
                               L"\\FG002001", L"NUL", L"*"}) {
    put(L"数据\\仪表\\数据\\仪表-2", block);
    put(L"数据\\仪表\\索引", L"仪表-1&仪表-2&仪表-3&");
    NotingBar bar;
    AuxiliaryLibrary library(bar);
    library.LoadStore();
    library.RemoveItem(1);
    EXPECT_EQ(bar.itemCount(0), 2);
    EXPECT_EQ(library.store().tree().GetSubValueFromPathW(0, L"数据\\仪表\\数据\\仪表-2"), nullptr);
  }
  EXPECT_TRUE(exists("fzgn0002/FG002001.dwg"));
  for (const char* name : {"1", "2", "3"}) {
    EXPECT_TRUE(exists(std::string("fzgn0001/FG00100") + name + ".dwg"));
  }
}

TEST_F(Items, DeletingOneWithoutSlideLibraryGoesOn) {
  fs::remove(file("fzgn0001/fzgn0001.slb"));
  loaded().RemoveItem(1);
  EXPECT_EQ(list(), L"仪表-1&仪表-3&");
  EXPECT_FALSE(exists("fzgn0001/FG001002.dwg"));
}

#ifndef _WIN32
TEST_F(Items, SlideLibraryThatIsALinkIsLeftAlone) {
  const fs::path elsewhere = install_.folder() / "elsewhere.slb";
  fs::rename(file("fzgn0001/fzgn0001.slb"), elsewhere);
  fs::create_symlink(elsewhere, file("fzgn0001/fzgn0001.slb"));
  const std::string before = test::bytesOf(elsewhere);
  loaded().RemoveItem(1);
  EXPECT_EQ(list(), L"仪表-1&仪表-3&");
  EXPECT_EQ(test::bytesOf(elsewhere), before);
}

TEST_F(Items, DrawingThatIsALinkIsDeletedAndNotItsTarget) {
  const fs::path elsewhere = install_.folder() / "elsewhere.dwg";
  fs::rename(file("fzgn0001/FG001002.dwg"), elsewhere);
  fs::create_symlink(elsewhere, file("fzgn0001/FG001002.dwg"));
  loaded().RemoveItem(1);
  EXPECT_FALSE(fs::exists(fs::symlink_status(file("fzgn0001/FG001002.dwg"))));
  EXPECT_EQ(test::bytesOf(elsewhere), "a drawing");
}
#endif

TEST_F(Items, DamagedSlideLibraryIsKeptAside) {
  test::writeBytes(file("fzgn0001/fzgn0001.slb"), "nothing of that kind");
  loaded().RemoveItem(1);
  EXPECT_EQ(test::bytesOf(file("fzgn0001/fzgn0001.slb.damaged-1")), "nothing of that kind");
}

TEST_F(Items, DeletingOneWhoseDrawingStaysTakesItsKeys) {
  fs::remove(file("fzgn0001/FG001002.dwg"));
  fs::create_directories(file("fzgn0001/FG001002.dwg/in the way"));
  loaded().RemoveItem(1);
  EXPECT_EQ(list(), L"仪表-1&仪表-3&");
  EXPECT_TRUE(exists("fzgn0001/FG001002.dwg/in the way"));
}

TEST_F(Items, DeletingOnAFullDiskTakesKeysAndDrawing) {
  loaded();
  base::setSaveHook([](base::SaveStep) { return base::Status::failure("no space left"); });
  library().RemoveItem(1);
  base::setSaveHook(nullptr);
  EXPECT_EQ(list(), L"仪表-1&仪表-3&");
  EXPECT_FALSE(exists("fzgn0001/FG001002.dwg"));
  EXPECT_TRUE(hasSlide(L"fzgn0001", L"FG001002"));
}

TEST_F(Items, StaleIndexRaisesBeforeAnyQuestion) {
  loaded();
  test::expectInvalidArgument([&] { library().RemoveItem(3); });
  test::expectInvalidArgument([&] { library().RemoveItem(-1); });
  EXPECT_EQ(bar_.log, Log{});
}

// --- renaming ---

TEST_F(Items, RenamingKeepsTheBlockName) {
  loaded().itemRenamed(1, L"Lamp");
  EXPECT_EQ(bar_.labels(0), (Names{L"仪表-1", L"Lamp", L"仪表-3"}));
  EXPECT_EQ(list(), L"仪表-1&Lamp&仪表-3&");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\Lamp"), L"FG001002");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-2"), L"(none)");
  EXPECT_EQ(bar_.log, Log{L"items"});
}

TEST_F(Items, LabelOfAnotherItemIsRefused) {
  loaded().itemRenamed(1, L"仪表-3");
  EXPECT_EQ(bar_.log, (Log{L"已有此名的符号!", L"items"}));
  EXPECT_EQ(list(), L"仪表-1&仪表-2&仪表-3&");
}

TEST_F(Items, RenamingToItsOwnLabelChangesNothing) {
  loaded().itemRenamed(1, L"仪表-2");
  EXPECT_EQ(list(), L"仪表-1&仪表-2&仪表-3&");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-2"), L"FG001002");
}

TEST_F(Items, LabelsMayDifferInCaseAlone) {
  loaded().itemRenamed(0, L"Lamp");
  library().itemRenamed(1, L"LAMP");
  EXPECT_EQ(list(), L"Lamp&LAMP&仪表-3&");
  library().RemoveItem(0);
  EXPECT_EQ(value(L"数据\\仪表\\数据\\Lamp"), L"(none)");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\LAMP"), L"FG001002");
}

TEST_F(Items, LabelThatMakesTheListTooLongIsRefused) {
  loaded().itemRenamed(0, std::wstring(20000, L'a'));
  bar_.log.clear();
  library().itemRenamed(1, std::wstring(13000, L'b'));
  EXPECT_EQ(bar_.log, (Log{L"数据过长,辅助功能库未修改!\n请缩短名称或删除不用的项。", L"items"}));
  EXPECT_EQ(bar_.labels(0).at(1), L"仪表-2");
  EXPECT_TRUE(list() == std::wstring(20000, L'a') + L"&仪表-2&仪表-3&");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-2"), L"FG001002");
}

// Its key would be that of all items.
TEST_F(Items, RenamingAnEmptyLabelLeavesTheOthers) {
  put(L"数据\\仪表\\索引", L"仪表-1&&仪表-3&");
  loaded().itemRenamed(1, L"x");
  EXPECT_EQ(list(), L"仪表-1&x&仪表-3&");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-1"), L"FG001001");
  EXPECT_EQ(value(L"数据\\仪表\\x"), L"(none)");
}

TEST_F(Items, RenamingInAGroupWithoutListChangesNothing) {
  loaded();
  bar_.selectFolder(2);
  bar_.log.clear();
  library().itemRenamed(0, L"x");
  EXPECT_EQ(bar_.log, Log{L"items"});
}

TEST_F(Items, RenamingWithoutAnyTitleChangesNothing) {
  put(L"索引", L"");
  loaded();
  bar_.addFolder(L"a", 0);
  bar_.insertItem(0, 0, L"b", -1);
  library().itemRenamed(0, L"x");
  EXPECT_EQ(bar_.log, Log{L"items"});
  EXPECT_EQ(bar_.labels(0), Names{L"b"});
}

TEST_F(Items, RenamingAStaleIndexRaises) {
  loaded();
  test::expectInvalidArgument([&] { library().itemRenamed(3, L"x"); });
  bar_.addFolder(L"nowhere", 3);
  bar_.selectFolder(3);
  test::expectInvalidArgument([&] { library().itemRenamed(0, L"x"); });
  EXPECT_EQ(list(), L"仪表-1&仪表-2&仪表-3&");
}

// The tree can't hold such a name and keeps the old one; a click finds no block any more.
TEST_F(Items, LabelWithABackslashLosesItsBlockButNoFile) {
  loaded().itemRenamed(1, L"a\\b");
  EXPECT_EQ(list(), L"仪表-1&a\\b&仪表-3&");
  library().itemClicked(1);
  EXPECT_EQ(inFile(L"当前选择\\块名"), L"(none)");
  library().RemoveItem(1);
  EXPECT_EQ(list(), L"仪表-1&仪表-3&");
  EXPECT_TRUE(exists("fzgn0001/FG001002.dwg"));
}

TEST_F(Items, LabelWithABackslashIsShownAgainWithoutIcon) {
  loaded().itemRenamed(2, L"a\\b");
  library().close();
  NotingBar again;
  AuxiliaryLibrary(again).LoadStore();
  EXPECT_EQ(again.labels(0), (Names{L"仪表-1", L"仪表-2", L"a\\b"}));
  EXPECT_EQ(again.iconCount(0), 2);
}

TEST_F(Items, LabelWithASeparatorIsSplitAtTheNextReading) {
  loaded().itemRenamed(2, L"a&b");
  library().close();
  NotingBar again;
  AuxiliaryLibrary(again).LoadStore();
  EXPECT_EQ(again.labels(0), (Names{L"仪表-1", L"仪表-2", L"a", L"b"}));
}

TEST_F(Items, LongAndBlankLabelsAndLineBreaksSurvive) {
  const std::wstring longLabel(300, L'长');
  loaded().itemRenamed(0, longLabel);
  library().itemRenamed(1, L"  ");
  library().itemRenamed(2, L"two\r\nlines");
  library().close();
  NotingBar again;
  AuxiliaryLibrary(again).LoadStore();
  EXPECT_EQ(again.labels(0), (Names{longLabel, L"  ", L"two\r\nlines"}));
  EXPECT_EQ(again.iconCount(0), 3);
}

// --- moving ---

TEST_F(Items, MovingToItsOwnGapsIsRefused) {
  EXPECT_FALSE(loaded().itemMoved(1, 1));
  EXPECT_FALSE(library().itemMoved(1, 2));
  EXPECT_EQ(list(), L"仪表-1&仪表-2&仪表-3&");
}

TEST_F(Items, MovingDownStandsBeforeTheTarget) {
  EXPECT_TRUE(loaded().itemMoved(0, 2));
  EXPECT_EQ(list(), L"仪表-2&仪表-1&仪表-3&");
}

TEST_F(Items, MovingToTheCountStandsLast) {
  EXPECT_TRUE(loaded().itemMoved(0, 3));
  EXPECT_EQ(list(), L"仪表-2&仪表-3&仪表-1&");
}

TEST_F(Items, MovingUp) {
  EXPECT_TRUE(loaded().itemMoved(2, 0));
  EXPECT_EQ(list(), L"仪表-3&仪表-1&仪表-2&");
}

TEST_F(Items, MovingInAnEmptyGroupIsRefused) {
  loaded();
  bar_.selectFolder(2);
  EXPECT_FALSE(library().itemMoved(2, 0));
}

TEST_F(Items, ListWithoutFinalSeparatorIsWrittenBackWithOne) {
  put(L"数据\\仪表\\索引", L"仪表-1&仪表-2");
  EXPECT_TRUE(loaded().itemMoved(1, 0));
  EXPECT_EQ(list(), L"仪表-2&仪表-1&");
}

TEST_F(Items, MovingAStaleIndexRaises) {
  loaded();
  test::expectInvalidArgument([&] { library().itemMoved(7, 0); });
  test::expectInvalidArgument([&] { library().itemMoved(0, 4); });
  test::expectInvalidArgument([&] { library().itemMoved(2, -1); });
  EXPECT_EQ(list(), L"仪表-1&仪表-2&仪表-3&");
}

}  // namespace

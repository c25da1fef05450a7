// Adding, renaming and deleting groups.
#include "auxiliary/library_fixture.h"
#include "support/folder_link.h"

namespace {

using namespace auxiliary_test;
using test::bytesOf;
using test::writeBytes;
namespace fs = std::filesystem;

constexpr const wchar_t* kNoFolder = L"创建路径失败,请检查磁盘是否写保护!\n驱动器是否关闭!";
constexpr const wchar_t* kTooLong = L"数据过长,辅助功能库未修改!\n请缩短名称或删除不用的项。";

class Groups : public LibraryFixture {};

TEST_F(Groups, NewOneHasTitleTypeDirectoryAndAnEmptySlideLibrary) {
  loaded().NewGroup();
  EXPECT_EQ(bar_.titles().back(), L"新建图库组");
  EXPECT_EQ(bar_.folders().folder(3).data, 3);
  EXPECT_EQ(bar_.log, Log{L"all"});
  EXPECT_EQ(value(L"索引"), L"仪表&信号&接地&新建图库组&");
  EXPECT_EQ(value(L"数据\\新建图库组\\类型"), L"0");
  EXPECT_EQ(value(L"数据\\新建图库组"), L"fzgn0004");
  EXPECT_EQ(bytesOf(file("fzgn0004/fzgn0004.slb")).size(), 68u);
  EXPECT_EQ(inFile(L"索引"), L"仪表&信号&接地&");  // until the next click
}

TEST_F(Groups, LengthsOfValuesCountTheTerminator) {
  loaded().NewGroup();
  EXPECT_EQ(lengthOf(L"数据\\新建图库组\\类型"), 2);
  EXPECT_EQ(lengthOf(L"数据\\新建图库组"), 9);
  EXPECT_EQ(lengthOf(L"索引"), 16);
  for (int i = 0; i < 4; ++i) library().RemoveGroup(0);
  EXPECT_EQ(lengthOf(L"索引"), 1);
}

TEST_F(Groups, NewOnesAreNumbered) {
  for (int i = 0; i < 3; ++i) loaded().NewGroup();
  EXPECT_EQ(bar_.titles(),
            (Names{L"仪表", L"信号", L"接地", L"新建图库组", L"新建图库组1", L"新建图库组2"}));
  EXPECT_EQ(value(L"数据\\新建图库组2"), L"fzgn0006");
}

TEST_F(Groups, DirectoryTakesTheFirstGapAlsoBeforeOthers) {
  fs::remove_all(file("fzgn0001"));
  loaded().NewGroup();
  EXPECT_EQ(value(L"数据\\新建图库组"), L"fzgn0001");
}

TEST_F(Groups, EmptyDirectoryCountsAsTaken) {
  fs::create_directory(file("fzgn0004"));
  loaded().NewGroup();
  EXPECT_EQ(value(L"数据\\新建图库组"), L"fzgn0005");
}

TEST_F(Groups, DirectoryThatCantBeMadeLeavesTheGroupWithoutOne) {
  writeBytes(file("fzgn0004"), "a file");  // a name that no search in a folder finds
  loaded().NewGroup();
  EXPECT_EQ(bar_.log, (Log{L"all", kNoFolder}));
  EXPECT_EQ(bar_.folderCount(), 4);
  EXPECT_EQ(value(L"索引"), L"仪表&信号&接地&新建图库组&");
  EXPECT_EQ(value(L"数据\\新建图库组"), L"(none)");
  EXPECT_EQ(bytesOf(file("fzgn0004")), "a file");
}

TEST_F(Groups, LibraryWhoseFolderIsGoneTakesAGroupWithoutDirectory) {
  loaded();
  fs::remove_all(install_.library());
  library().NewGroup();
  EXPECT_EQ(bar_.log, (Log{L"all", kNoFolder}));
  EXPECT_EQ(value(L"数据\\新建图库组\\类型"), L"0");
  EXPECT_FALSE(fs::exists(install_.library()));
}

TEST_F(Groups, ListWithoutFinalSeparatorIsWrittenBackWithOne) {
  put(L"索引", L"仪表&信号");
  loaded().NewGroup();
  EXPECT_EQ(value(L"索引"), L"仪表&信号&新建图库组&");
}

// --- deleting ---

TEST_F(Groups, DeletingAsksAndTakesKeysAndFiles) {
  loaded().RemoveGroup(1);
  EXPECT_EQ(bar_.log, (Log{L"辅助功能删除|确定要删除\"信号\"图库组吗?|33", L"all"}));
  EXPECT_EQ(bar_.titles(), (Names{L"仪表", L"接地"}));
  EXPECT_EQ(value(L"索引"), L"仪表&接地&");
  EXPECT_EQ(value(L"数据\\信号\\类型"), L"(none)");
  EXPECT_FALSE(exists("fzgn0002"));
  EXPECT_TRUE(exists("fzgn0001/FG001001.dwg"));
}

TEST_F(Groups, CancelledDeletingLeavesAll) {
  bar_.answer = kMessageAnswerCancel;
  loaded().RemoveGroup(1);
  EXPECT_EQ(bar_.folderCount(), 3);
  EXPECT_TRUE(exists("fzgn0002/FG002001.dwg"));
}

TEST_F(Groups, DeletingBehindTheOpenFolderLeavesItOpen) {
  loaded();
  bar_.selectFolder(1);
  library().RemoveGroup(2);
  EXPECT_EQ(bar_.openFolder(), 1);
}

TEST_F(Groups, DeletingBeforeTheOpenFolderOpensTheOneBefore) {
  for (int i = 0; i < 3; ++i) loaded().NewGroup();
  bar_.selectFolder(5);
  library().RemoveGroup(3);
  EXPECT_EQ(bar_.openFolder(), 2);
  library().RemoveGroup(0);
  EXPECT_EQ(bar_.openFolder(), 0);
}

TEST_F(Groups, DeletingTheLastOneLeavesAnEmptyList) {
  loaded();
  for (int i = 0; i < 3; ++i) library().RemoveGroup(0);
  EXPECT_EQ(value(L"索引"), L"");
  library().close();
  NotingBar again;
  AuxiliaryLibrary(again).LoadStore();
  EXPECT_EQ(again.folderCount(), 0);
}

TEST_F(Groups, StaleIndexRaisesBeforeAnyQuestion) {
  loaded();
  test::expectInvalidArgument([&] { library().RemoveGroup(3); });
  test::expectInvalidArgument([&] { library().RemoveGroup(-1); });
  EXPECT_EQ(bar_.log, Log{});
}

TEST_F(Groups, FolderWithoutEntryInTheListIsGoneFromTheBarBeforeItRaises) {
  loaded();
  bar_.addFolder(L"nowhere", 3);
  test::expectInvalidArgument([&] { library().RemoveGroup(3); });
  EXPECT_EQ(bar_.folderCount(), 3);
  EXPECT_EQ(bar_.log.back(), L"all");
  EXPECT_EQ(value(L"索引"), L"仪表&信号&接地&");
}

TEST_F(Groups, DeletingOneWhoseFolderIsGoneTakesItsKeys) {
  fs::remove_all(file("fzgn0002"));
  loaded().RemoveGroup(1);
  EXPECT_EQ(value(L"数据\\信号"), L"(none)");
}

TEST_F(Groups, DeletingTakesTreesBelowTheFolder) {
  fs::create_directories(file("fzgn0002/a/b"));
  writeBytes(file("fzgn0002/a/b/c.txt"), "x");
  loaded().RemoveGroup(1);
  EXPECT_FALSE(exists("fzgn0002"));
}

// --- nothing outside of the library's own folder is touched ---

TEST_F(Groups, DirectoryValuesThatLeadElsewhereAreRefused) {
  fs::create_directories(install_.root() / "Datcom" / "other");
  writeBytes(install_.root() / "Datcom" / "other" / "keep.txt", "x");
  const std::wstring other = test::Install::wide(install_.root() / "Datcom" / "other");
  for (const std::wstring& value : Names{L"..",
                                         L"..\\other",
                                         L"../other",
                                         L".",
                                         L"",
                                         L".. ",
                                         L"...",
                                         L"C:\\",
                                         L"C:",
                                         L"C:fzgn0002",
                                         other,
                                         L"fzgn0002\\..\\..\\other",
                                         L"fzgn0002/../../other",
                                         L"\\\\server\\share",
                                         L"fzgn0002.",
                                         L"fzgn0002 ",
                                         L"fzgn0002::$DATA",
                                         L"NUL",
                                         L"COM1",
                                         L"zhlFzgn.qdp",
                                         L"zhlFzgn.qdp.bak"}) {
    put(L"数据\\信号", value);
    put(L"数据\\信号\\类型", L"0");
    put(L"索引", L"仪表&信号&接地&");
    NotingBar bar;
    AuxiliaryLibrary library(bar);
    library.LoadStore();
    library.RemoveGroup(1);
    EXPECT_EQ(bar.folderCount(), 2);
  }
  EXPECT_TRUE(fs::exists(install_.root() / "Datcom" / "other" / "keep.txt"));
  EXPECT_TRUE(exists("fzgn0001/FG001001.dwg"));
  EXPECT_TRUE(exists("fzgn0002/FG002001.dwg"));
  EXPECT_TRUE(exists("zhlFzgn.qdp"));
  EXPECT_TRUE(exists("zhlFzgn.qdp.bak"));
}

TEST_F(Groups, TitleThatLeadsIntoAnotherGroupsKeysDeletesNothing) {
  put(L"索引", L"仪表\\数据\\仪表-1&\\&&");
  library();
  for (const wchar_t* folder : {L"a", L"b", L"c"}) bar_.addFolder(folder, 0);
  for (int i = 0; i < 3; ++i) library().RemoveGroup(0);
  EXPECT_EQ(value(L"索引"), L"");
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-1"), L"FG001001");
  EXPECT_TRUE(exists("fzgn0001/FG001001.dwg"));
}

#ifndef _WIN32
TEST_F(Groups, LinksAreDeletedAndNotFollowed) {
  const fs::path elsewhere = install_.folder() / "elsewhere";
  fs::create_directory(elsewhere);
  writeBytes(elsewhere / "keep.txt", "x");
  fs::create_directory_symlink(elsewhere, file("fzgn0002/link"));
  fs::create_symlink(elsewhere / "keep.txt", file("fzgn0002/file"));
  fs::create_symlink(elsewhere / "gone", file("fzgn0002/dangling"));
  loaded().RemoveGroup(1);
  EXPECT_FALSE(exists("fzgn0002"));
  EXPECT_TRUE(fs::exists(elsewhere / "keep.txt"));
}
#endif

TEST_F(Groups, DirectoryThatIsALinkIsLeftAlone) {
  const fs::path elsewhere = install_.folder() / "elsewhere";
  fs::rename(file("fzgn0002"), elsewhere);
  const test::FolderLink link(elsewhere, file("fzgn0002"));
  loaded();
  bar_.selectFolder(1);
  library().RemoveItem(0);
  library().RemoveGroup(1);
  EXPECT_TRUE(fs::exists(elsewhere / "FG002001.dwg"));
  EXPECT_TRUE(exists("fzgn0002"));
}

// --- renaming ---

TEST_F(Groups, RenamingMovesTheKeysAndLeavesTheDisk) {
  loaded().folderRenamed(1, L"Lamps");
  EXPECT_EQ(bar_.titles(), (Names{L"仪表", L"Lamps", L"接地"}));
  EXPECT_EQ(value(L"索引"), L"仪表&Lamps&接地&");
  EXPECT_EQ(value(L"数据\\Lamps"), L"fzgn0002");
  EXPECT_EQ(value(L"数据\\Lamps\\数据\\灯"), L"FG002001");
  EXPECT_EQ(value(L"数据\\信号"), L"(none)");
  EXPECT_EQ(bar_.log, Log{L"header 1"});
  EXPECT_TRUE(exists("fzgn0002/FG002001.dwg"));
}

TEST_F(Groups, TitleOfAnotherGroupIsRefused) {
  loaded().folderRenamed(1, L"仪表");
  EXPECT_EQ(bar_.log, (Log{L"已有此名的标题!", L"header 1"}));
  EXPECT_EQ(bar_.titles().at(1), L"信号");
  EXPECT_EQ(value(L"索引"), L"仪表&信号&接地&");
}

TEST_F(Groups, RenamingToItsOwnTitleChangesNothing) {
  loaded().folderRenamed(1, L"信号");
  EXPECT_EQ(value(L"索引"), L"仪表&信号&接地&");
  EXPECT_EQ(value(L"数据\\信号"), L"fzgn0002");
  EXPECT_EQ(bar_.log, Log{L"header 1"});
}

TEST_F(Groups, TitlesMayDifferInCaseAlone) {
  loaded().folderRenamed(1, L"Lamps");
  library().folderRenamed(2, L"LAMPS");
  EXPECT_EQ(value(L"索引"), L"仪表&Lamps&LAMPS&");
  library().RemoveGroup(1);
  EXPECT_EQ(value(L"数据\\Lamps"), L"(none)");
  EXPECT_EQ(value(L"数据\\LAMPS"), L"fzgn0003");
}

TEST_F(Groups, TitleThatMakesTheListTooLongIsRefused) {
  loaded().folderRenamed(0, std::wstring(20000, L'a'));
  bar_.log.clear();
  library().folderRenamed(1, std::wstring(13000, L'b'));
  EXPECT_EQ(bar_.log, (Log{kTooLong, L"header 1"}));
  EXPECT_EQ(bar_.titles().at(1), L"信号");
  EXPECT_EQ(value(L"数据\\信号"), L"fzgn0002");
  EXPECT_TRUE(value(L"索引") == std::wstring(20000, L'a') + L"&信号&接地&");
}

TEST_F(Groups, NewOneIsRefusedWhereTheListHasNoRoom) {
  loaded().folderRenamed(0, std::wstring(32758, L'a'));
  bar_.log.clear();
  library().NewGroup();
  EXPECT_EQ(bar_.log, Log{kTooLong});
  EXPECT_EQ(bar_.folderCount(), 3);
  EXPECT_FALSE(exists("fzgn0004"));
}

// Its key would be that of all groups.
TEST_F(Groups, RenamingAnEmptyTitleLeavesTheOthers) {
  put(L"索引", L"&仪表&");
  library();
  bar_.addFolder(L"", 0);
  library().folderRenamed(0, L"x");
  EXPECT_EQ(value(L"索引"), L"x&仪表&");
  EXPECT_EQ(value(L"数据\\仪表"), L"fzgn0001");
}

TEST_F(Groups, RenamingWithAnEmptyListChangesNothing) {
  put(L"索引", L"");
  library();
  bar_.addFolder(L"a", 0);
  library().folderRenamed(0, L"b");
  EXPECT_EQ(bar_.titles(), Names{L"a"});
  EXPECT_EQ(bar_.log, Log{L"header 0"});
}

TEST_F(Groups, RenamingAStaleIndexRaises) {
  loaded();
  test::expectInvalidArgument([&] { library().folderRenamed(3, L"x"); });
  test::expectInvalidArgument([&] { library().folderRenamed(-1, L"x"); });
  EXPECT_EQ(value(L"索引"), L"仪表&信号&接地&");
}

TEST_F(Groups, LongAndBlankTitlesAndLineBreaksSurvive) {
  const std::wstring longTitle(300, L'长');
  loaded().folderRenamed(0, longTitle);
  library().folderRenamed(1, L"   ");
  library().folderRenamed(2, L"two\r\nlines");
  library().close();
  NotingBar again;
  AuxiliaryLibrary(again).LoadStore();
  EXPECT_EQ(again.titles(), (Names{longTitle, L"   ", L"two\r\nlines"}));
  EXPECT_EQ(again.labels(1), Names{L"灯"});
}

// The tree can't hold such a name and keeps the old one; the group is no longer found.
TEST_F(Groups, TitleWithABackslashLosesItsGroupButNoFile) {
  loaded().folderRenamed(1, L"仪表\\数据");
  EXPECT_EQ(bar_.titles().at(1), L"仪表\\数据");
  EXPECT_EQ(value(L"数据\\信号"), L"fzgn0002");
  library().RemoveGroup(1);
  EXPECT_TRUE(exists("fzgn0002/FG002001.dwg"));
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-1"), L"FG001001");
}

TEST_F(Groups, NewOneTakesOverWhatItsTitleLeftInTheTree) {
  loaded().folderRenamed(1, L"新建图库组");
  const std::wstring labels = value(L"数据\\新建图库组\\索引");
  ASSERT_FALSE(labels.empty());
  library().folderRenamed(1, L"a\\b");
  library().NewGroup();
  EXPECT_EQ(value(L"数据\\新建图库组"), L"fzgn0004");
  EXPECT_EQ(value(L"数据\\新建图库组\\索引"), labels);
  EXPECT_TRUE(exists("fzgn0002/FG002001.dwg"));
}

TEST_F(Groups, TitleWithABackslashIsNotShownAgain) {
  loaded().folderRenamed(2, L"a\\b");
  library().close();
  NotingBar again;
  AuxiliaryLibrary(again).LoadStore();
  EXPECT_EQ(again.titles(), (Names{L"仪表", L"信号"}));
  EXPECT_EQ(inFile(L"索引"), L"仪表&信号&a\\b&");
}

// The list then has one title more than the bar has folders.
TEST_F(Groups, TitleWithASeparatorIsSplitAtTheNextReading) {
  loaded().folderRenamed(2, L"a&b");
  EXPECT_EQ(value(L"索引"), L"仪表&信号&a&b&");
  EXPECT_EQ(value(L"数据\\a&b"), L"fzgn0003");
  library().close();
  NotingBar again;
  AuxiliaryLibrary(again).LoadStore();
  EXPECT_EQ(again.titles(), (Names{L"仪表", L"信号"}));
}

}  // namespace

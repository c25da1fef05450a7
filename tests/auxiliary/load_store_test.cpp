// The bar filled from the store.
#include "auxiliary/library_fixture.h"

namespace {

using namespace auxiliary_test;

class LoadStore : public LibraryFixture {};

TEST_F(LoadStore, ShowsGroupsAsFoldersAndSymbolsAsItems) {
  library().LoadStore();
  EXPECT_EQ(bar_.titles(), (Names{L"仪表", L"信号", L"接地"}));
  EXPECT_EQ(bar_.labels(0), (Names{L"仪表-1", L"仪表-2", L"仪表-3"}));
  EXPECT_EQ(bar_.labels(1), Names{L"灯"});
  EXPECT_EQ(bar_.folders().folder(2).data, 2);
  EXPECT_EQ(bar_.image(0, 2), 2);
  EXPECT_EQ(bar_.iconCount(0), 3);
  EXPECT_EQ(bar_.log, (Log{L"animation 20 200", L"select 0"}));
}

TEST_F(LoadStore, MissingFileLeavesTheBarEmptyWithSmallIcons) {
  std::filesystem::remove(file("zhlFzgn.qdp"));
  library().LoadStore();
  EXPECT_EQ(bar_.folderCount(), 0);
  EXPECT_TRUE(bar_.smallIcons());
  EXPECT_EQ(bar_.log, Log{L"animation 20 200"});
}

TEST_F(LoadStore, DamagedFileLeavesTheBarEmptyAndIsKept) {
  test::writeBytes(file("zhlFzgn.qdp"), "qdp 1\nhalf a");
  library().LoadStore();
  EXPECT_EQ(bar_.folderCount(), 0);
  library().close();
  EXPECT_EQ(test::bytesOf(file("zhlFzgn.qdp.damaged-1")), "qdp 1\nhalf a");
}

TEST_F(LoadStore, IconStateChoosesTheView) {
  put(L"图标状态", L"2");
  library().LoadStore();
  EXPECT_FALSE(bar_.smallIcons());
}

TEST_F(LoadStore, GroupWithoutItemListHasNeitherItemsNorIcons) {
  library().LoadStore();
  EXPECT_EQ(bar_.itemCount(2), 0);
  EXPECT_EQ(bar_.iconCount(2), 0);
  EXPECT_EQ(bar_.iconListsMade, (std::vector{3, 1}));  // of the two before
}

// The position counts, so that a missing slide shifts the pictures of those behind it.
TEST_F(LoadStore, ItemsImageIsItsPositionAlsoBehindAMissingSlide) {
  put(L"数据\\仪表\\数据\\仪表-2", L"FG001009");
  library().LoadStore();
  EXPECT_EQ(bar_.iconCount(0), 2);
  EXPECT_EQ(bar_.image(0, 1), 1);
  EXPECT_EQ(bar_.image(0, 2), 2);
}

TEST_F(LoadStore, SlidesThatCantBeReadLeaveItemsWithoutIcons) {
  test::writeBytes(file("fzgn0001/fzgn0001.slb"), "nothing of that kind");
  library().LoadStore();
  EXPECT_EQ(bar_.itemCount(0), 3);
  EXPECT_EQ(bar_.iconCount(0), 0);
}

TEST_F(LoadStore, LastGroupOfAnotherTypeIsPassedOver) {
  put(L"数据\\接地\\类型", L"1");
  library().LoadStore();
  EXPECT_EQ(bar_.titles(), (Names{L"仪表", L"信号"}));
}

// Folder and position in the list must agree.
TEST_F(LoadStore, GroupOfAnotherTypeBeforeAShownOneIsABadIndex) {
  put(L"数据\\仪表\\类型", L"1");
  test::expectInvalidArgument([&] { library().LoadStore(); });
  EXPECT_EQ(bar_.titles(), Names{L"信号"});
  EXPECT_EQ(bar_.folders().folder(0).data, 1);
}

TEST_F(LoadStore, FillingShowsWhatStopsItOnceAndGoesOn) {
  put(L"数据\\仪表\\类型", L"1");
  library().fillBar();
  EXPECT_EQ(bar_.log.size(), 1u);
  library().close();
  EXPECT_EQ(inFile(L"索引"), L"仪表&信号&接地&");
}

TEST_F(LoadStore, TitleWithASeparatorIsTwoTitlesWithoutGroups) {
  put(L"索引", L"a&b&仪表&");
  test::expectInvalidArgument([&] { library().LoadStore(); });
}

TEST_F(LoadStore, TitlesThatAreNoLevelOfAKeyAreNoGroups) {
  put(L"数据\\类型", L"0");  // what an empty title would read
  put(L"索引", L"&\\&");
  test::expectInvalidArgument([&] { library().LoadStore(); });  // there is no folder to open
  EXPECT_EQ(bar_.folderCount(), 0);
}

}  // namespace

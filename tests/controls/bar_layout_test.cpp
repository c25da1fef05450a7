// The bar's arithmetic, with icons of 16 or 32 pixels and letters of 8 by 12.
#include "controls/bar_layout.h"

#include <gtest/gtest.h>

#include "controls/bar_fixture.h"
#include "support/raises.h"

namespace {

using controls_test::Bar;
using controls_test::edges;
using controls_test::Place;

TEST_F(Bar, HeadersStandAboveAndBelowTheOpenFolder) {
  fill(3, 0);
  EXPECT_EQ(folderRect(0), (Place{0, -1, 100, 21}));
  EXPECT_EQ(folderRect(1), (Place{0, 21, 100, 43}));
  EXPECT_EQ(folderRect(2), (Place{0, 278, 100, 300}));
  EXPECT_EQ(inside(), (Place{0, 43, 100, 278}));
  EXPECT_EQ(folderRect(3), Place{});
  EXPECT_EQ(folderRect(-1), Place{});
}

TEST_F(Bar, WithoutFoldersTheInsideIsTheClient) {
  EXPECT_EQ(inside(), (Place{0, 0, 100, 300}));
  EXPECT_EQ(hit(5, 5), std::pair(BarHit::Nothing, 0));
}

TEST_F(Bar, LargeItemsFillTheWidth) {
  fill(3, 3);
  // 32 and 12 pixels, the gap and the spacing: 55, and the spacing again to the next.
  EXPECT_EQ(cell(0), (Place{0, 48, 100, 103}));
  EXPECT_EQ(cell(1), (Place{0, 111, 100, 166}));
  EXPECT_EQ(icon(0), (Place{34, 48, 66, 81}));  // a pixel taller than the icon
  EXPECT_EQ(label(0), (Place{30, 84, 70, 96}));
}

TEST_F(Bar, SmallCellsAreNarrowerByTheMargin) {
  view_.small = true;
  fill(3, 3);
  EXPECT_EQ(cell(0), (Place{5, 48, 60, 64}));  // 16, 40 and 4 wide
  EXPECT_EQ(cell(1), (Place{5, 74, 60, 90}));
  EXPECT_EQ(icon(0), (Place{7, 48, 23, 64}));
  EXPECT_EQ(label(0), (Place{7, 53, 67, 69}));
}

TEST_F(Bar, ScrollingIsByWholeItems) {
  fill(3, 5);
  view_.firstItem = 2;
  EXPECT_EQ(cell(2), (Place{0, 48, 100, 103}));
  EXPECT_EQ(icon(2), (Place{34, 48, 66, 81}));
}

TEST_F(Bar, SmallLabelsDontScroll) {
  view_.small = true;
  fill(3, 5);
  view_.firstItem = 2;
  EXPECT_EQ(label(2)[1], 43 + 2 * 26 + 10);
}

TEST_F(Bar, LabelsWrapAtTheInsidesWidth) {
  fill(3, 0);
  folders_.InsertItem(1, -1, {0, L"fifteen letters", 0});
  EXPECT_EQ(label(0), (Place{2, 84, 98, 108}));
  EXPECT_EQ(cell(0)[3] - cell(0)[1], 67);
}

TEST_F(Bar, PartsThatAnItemLacksTakeNoRoom) {
  fill(3, 0);
  folders_.InsertItem(1, -1, {-1, L"label", 0});
  folders_.InsertItem(1, -1, {0, std::nullopt, 0});
  EXPECT_EQ(layout().iconSize(1, 0).cx, 0);
  EXPECT_EQ(layout().labelSize(1, 1).cy, 0);
  EXPECT_EQ(layout().wholeSize(1, 1).cy, 32 + 3 + 8);
}

TEST_F(Bar, PartlyHiddenItemsDontCountAsVisible) {
  fill(3, 5);  // cells end at 103, 166, 229, 292; the inside ends at 278
  EXPECT_EQ(layout().GetVisibleItems(1).first, 0);
  EXPECT_EQ(layout().GetVisibleItems(1).last, 2);
  view_.firstItem = 3;
  EXPECT_EQ(layout().GetVisibleItems(1).last, 4);
}

TEST_F(Bar, NothingIsVisibleBehindTheEndAndInAnEmptyFolder) {
  fill(3, 2);
  view_.firstItem = 2;
  EXPECT_EQ(layout().GetVisibleItems(1).first, 2);
  EXPECT_EQ(layout().GetVisibleItems(1).last, 1);
  EXPECT_EQ(layout().GetVisibleItems(0).last, 0);
  EXPECT_EQ(layout().GetVisibleItems(7).last, 0);
}

TEST_F(Bar, LargeItemsAreHitOnIconLabelAndTheGapBetween) {
  fill(3, 3);
  EXPECT_EQ(hit(50, 50), std::pair(BarHit::Item, 0));
  EXPECT_EQ(hit(50, 82), std::pair(BarHit::Item, 0));
  EXPECT_EQ(hit(31, 90), std::pair(BarHit::Item, 0));
  EXPECT_EQ(hit(31, 60), std::pair(BarHit::Nothing, 3));  // left of the icon
  EXPECT_EQ(hit(50, 112), std::pair(BarHit::Item, 1));
}

TEST_F(Bar, SmallItemsAreHitOnTheWholeCell) {
  view_.small = true;
  fill(3, 3);
  EXPECT_EQ(hit(59, 63), std::pair(BarHit::Item, 0));
  EXPECT_EQ(hit(60, 63), std::pair(BarHit::Nothing, 3));
  EXPECT_EQ(hit(59, 64), std::pair(BarHit::Nothing, 3));
}

TEST_F(Bar, ALayoutMeasuresEachItemOnce) {
  fill(3, 100);
  view_.small = true;
  view_.firstItem = 60;
  const BarLayout now = layout();
  now.GetVisibleItems(1);
  for (int i = 0; i < 100; ++i) now.GetItemCellRect(1, i);
  EXPECT_EQ(letters_.lines, 100);
}

TEST_F(Bar, TopMarginHitsNothing) {
  fill(3, 3);
  EXPECT_EQ(hit(50, 45), std::pair(BarHit::Nothing, 3));
}

TEST_F(Bar, HeadersAreHitFirst) {
  fill(3, 3);
  EXPECT_EQ(hit(50, 20), std::pair(BarHit::Folder, 0));
  EXPECT_EQ(hit(50, 42), std::pair(BarHit::Folder, 1));
  EXPECT_EQ(hit(50, 299), std::pair(BarHit::Folder, 2));
}

TEST_F(Bar, ShownArrowsAreHitBeforeAllElse) {
  fill(3, 5);
  view_.up = layout().upArrow(16);
  view_.down = layout().downArrow(16);
  EXPECT_EQ(edges(view_.up), (Place{79, 48, 95, 64}));
  EXPECT_EQ(edges(view_.down), (Place{79, 257, 95, 273}));
  EXPECT_EQ(hit(80, 50).first, BarHit::Nothing);
  view_.upShown = view_.downShown = true;
  EXPECT_EQ(hit(80, 50), std::pair(BarHit::UpArrow, -7));
  EXPECT_EQ(hit(80, 260), std::pair(BarHit::DownArrow, -7));
}

// The last folder is open, so that no header stands below its list. What stops the search is hit
// itself, if the point is on it.
TEST_F(Bar, TheSearchStopsBelowTheList) {
  view_.currentFolder = 2;
  fill(3, 20);
  EXPECT_EQ(hit(50, 330), std::pair(BarHit::Item, 4)) << "an icon whose top is below the list";
  EXPECT_EQ(hit(50, 365), std::pair(BarHit::Nothing, 20)) << "its label comes too late";
  view_.client.bottom = 290;
  EXPECT_EQ(hit(50, 300), std::pair(BarHit::Item, 3)) << "a label whose top is below the list";
  EXPECT_EQ(hit(50, 330), std::pair(BarHit::Nothing, 20));
  view_.client.bottom = 300;
  view_.small = true;
  EXPECT_EQ(hit(10, 310), std::pair(BarHit::Item, 9));
  EXPECT_EQ(hit(10, 335), std::pair(BarHit::Nothing, 20));
}

TEST_F(Bar, ItemsThatAreScrolledAwayAreNotHit) {
  fill(3, 5);
  view_.firstItem = 2;
  EXPECT_EQ(hit(50, 60), std::pair(BarHit::Item, 2));
  EXPECT_EQ(hit(50, 130), std::pair(BarHit::Item, 3));
}

TEST_F(Bar, CurrentFolderBeyondTheCountReadsAsEmpty) {
  fill(1, 0);
  EXPECT_EQ(hit(50, 200), std::pair(BarHit::Nothing, 0));
  test::expectInvalidArgument([&] { layout().GetItemCellRect(1, 0); });
}

TEST(BarFolders, InsertingOutsideAppends) {
  BarFolders folders;
  folders.AddFolder(L"a", 0);
  EXPECT_EQ(folders.InsertItem(0, -1, {0, L"x", 0}), 0);
  EXPECT_EQ(folders.InsertItem(0, 7, {1, L"y", 0}), 1);
  EXPECT_EQ(folders.InsertItem(0, 0, {2, L"z", 0}), 0);
  EXPECT_EQ(folders.folder(0).item(0).text, L"z");
  EXPECT_EQ(folders.folder(0).item(2).text, L"y");
}

TEST(BarFolders, MovedItemStandsBeforeItsTarget) {
  CBarFolder folder(L"a", 0);
  for (const wchar_t* text : {L"0", L"1", L"2", L"3"}) folder.InsertItem(-1, {0, text, 0});
  folder.moveItem(0, 3);  // 1 2 0 3
  folder.moveItem(3, 0);  // 3 1 2 0
  folder.moveItem(1, 4);  // 3 2 0 1
  std::wstring order;
  for (int i = 0; i < folder.GetItemCount(); ++i) order += *folder.item(i).text;
  EXPECT_EQ(order, L"3201");
}

TEST(BarFolders, WorkingListsStandInForMissingOnes) {
  BarFolders folders;
  folders.AddFolder(L"a", 0);
  int images[3];
  const auto list = [&](int i) { return reinterpret_cast<CImageList*>(&images[i]); };
  folders.workingSmall = list(0);
  EXPECT_EQ(folders.GetFolderImageList(0, true), list(0));
  EXPECT_EQ(folders.GetFolderImageList(0, false), nullptr);
  EXPECT_EQ(folders.SetFolderImageList(0, list(1), kSmallImages), nullptr);
  EXPECT_EQ(folders.SetFolderImageList(0, list(2), kSmallImages), list(1));
  EXPECT_EQ(folders.SetFolderImageList(0, list(1), 3), nullptr);
  EXPECT_EQ(folders.GetFolderImageList(0, true), list(2));
}

TEST(BarFolders, BadIndexesAreRefused) {
  BarFolders folders;
  test::expectInvalidArgument([&] { folders.folder(0); });
  test::expectInvalidArgument([&] { folders.removeFolder(-1); });
  test::expectInvalidArgument([&] { folders.InsertItem(0, 0, {}); });
  folders.AddFolder(L"a", 0);
  test::expectInvalidArgument([&] { folders.folder(0).item(0); });
  EXPECT_EQ(folders.find(1), nullptr);
}

}  // namespace

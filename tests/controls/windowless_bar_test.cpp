// The bar that keeps folders and items without showing them.
#include "controls/windowless_bar.h"

#include <gtest/gtest.h>

#include "platform/framework_messages.h"
#include "platform/slide_store.h"
#include "support/raises.h"

namespace {

class WindowlessBarTest : public testing::Test {
 protected:
  WindowlessBarTest() {
    for (const wchar_t* name : {L"a", L"b", L"c"}) bar_.addFolder(name, 0);
  }
  ~WindowlessBarTest() override { setMessageBoxHandler(nullptr); }

  WindowlessBar bar_;
};

TEST_F(WindowlessBarTest, FolderIsOpenOnlyIfItIsThere) {
  bar_.selectFolder(2);
  EXPECT_EQ(bar_.openFolder(), 2);
  test::expectInvalidArgument([&] { bar_.selectFolder(3); });
  EXPECT_EQ(bar_.openFolder(), 2);
}

TEST_F(WindowlessBarTest, RemovingMovesTheOpenFolderOnlyFromItsPlaceOn) {
  bar_.selectFolder(1);
  bar_.removeFolder(2);
  EXPECT_EQ(bar_.openFolder(), 1);
  bar_.removeFolder(1);
  EXPECT_EQ(bar_.openFolder(), 0);
  bar_.removeFolder(0);
  EXPECT_EQ(bar_.openFolder(), -1);
  EXPECT_EQ(bar_.folderCount(), 0);
}

TEST_F(WindowlessBarTest, ItemsAreKeptByFolder) {
  bar_.insertItem(1, 0, L"x", 4);
  bar_.insertItem(1, 1, L"y", 5);
  bar_.setItemLabel(1, 0, L"z");
  EXPECT_EQ(bar_.itemLabel(1, 0), L"z");
  bar_.removeItem(1, 0);
  EXPECT_EQ(bar_.itemLabel(1, 0), L"y");
  EXPECT_EQ(bar_.itemCount(0), 0);
  test::expectInvalidArgument([&] { bar_.insertItem(3, 0, L"x", 0); });
  test::expectInvalidArgument([&] { bar_.itemLabel(1, 1); });
}

TEST_F(WindowlessBarTest, IconsOfMissingSlidesAreNotCounted) {
  CSlideLibraryData slides;
  bar_.makeIconLists(1);
  EXPECT_EQ(bar_.addIcon(slides, L"no such"), -1);
  bar_.giveIconLists(1);
  EXPECT_EQ(bar_.iconCount(1), 0);
  test::expectInvalidArgument([&] { bar_.giveIconLists(3); });
}

TEST_F(WindowlessBarTest, BoxesGoWhereAllBoxesGo) {
  std::vector<MessageBoxCall> shown;
  setMessageBoxHandler([&](const MessageBoxCall& call) {
    shown.push_back(call);
    return kMessageAnswerOk;
  });
  EXPECT_EQ(bar_.ask(L"really?", L"delete", 33), kMessageAnswerOk);
  bar_.notice(L"taken");
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_EQ(shown[0].caption, L"delete");
  EXPECT_EQ(shown[0].style, 33u);
  EXPECT_EQ(shown[1].text, L"taken");
  EXPECT_EQ(shown[1].style, kMessageOk);
}

}  // namespace

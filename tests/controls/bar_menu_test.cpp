// The bar's menu by what was clicked and by the bar's flags.
#include "controls/bar_menu.h"

#include <gtest/gtest.h>

#include <string>

#include "controls/bar_commands.h"

namespace {

// The entries' texts with a blank between them; "-" is a separator.
std::wstring menu(BarHit hit, int index, unsigned flags) {
  std::wstring text;
  for (const BarMenuEntry& entry : barMenuEntries(hit, index, flags)) {
    EXPECT_EQ(entry.text == nullptr, entry.command == 0);
    text += entry.text ? std::wstring(L" ") + entry.text : L" -";
  }
  return text;
}

TEST(BarMenu, ItemsCanBeDeletedAndRenamed) {
  EXPECT_EQ(menu(BarHit::Item, 0, kLibraryBarFlags), L" 小图标 大图标 - 删除 重命名");
}

TEST(BarMenu, TheFirstTwoFoldersAreNeverDeleted) {
  EXPECT_EQ(menu(BarHit::Folder, 0, kLibraryBarFlags), L" 小图标 大图标 - 添加... 重命名");
  EXPECT_EQ(menu(BarHit::Folder, 1, kLibraryBarFlags), L" 小图标 大图标 - 添加... 重命名");
  EXPECT_EQ(menu(BarHit::Folder, 2, kLibraryBarFlags), L" 小图标 大图标 - 添加... 删除 重命名");
}

TEST(BarMenu, TheBackgroundAndTheArrowsOfferANewItem) {
  for (const BarHit hit : {BarHit::Nothing, BarHit::UpArrow, BarHit::DownArrow}) {
    EXPECT_EQ(menu(hit, 0, kLibraryBarFlags), L" 小图标 大图标 - 新建...");
  }
}

TEST(BarMenu, WithoutFlagsOnlyTheViewsAreOffered) {
  EXPECT_EQ(menu(BarHit::Item, 0, 0), L" 小图标 大图标");
  EXPECT_EQ(menu(BarHit::Folder, 5, 0), L" 小图标 大图标");
  EXPECT_EQ(menu(BarHit::Nothing, 0, 0), L" 小图标 大图标 -");
}

TEST(BarMenu, ClipboardEntriesNeedAllThreeFlags) {
  EXPECT_EQ(menu(BarHit::Item, 0, BARF_CUT | BARF_COPY), L" 小图标 大图标");
  EXPECT_EQ(menu(BarHit::Item, 0, BARF_CUT | BARF_COPY | BARF_PASTE),
            L" 小图标 大图标 - 剪切 拷贝 粘贴");
}

TEST(BarMenu, EveryFlagOffersItsEntry) {
  const unsigned all = 0xFFFF;
  EXPECT_EQ(menu(BarHit::Item, 0, all), L" 小图标 大图标 放大 缩小 - 删除 重命名 - 剪切 拷贝 粘贴");
  EXPECT_EQ(menu(BarHit::Nothing, 0, all), L" 小图标 大图标 放大 缩小 - 新建...");
  EXPECT_EQ(menu(BarHit::Item, 0, BARF_RENAMEITEM), L" 小图标 大图标 - 重命名");
  EXPECT_EQ(menu(BarHit::Folder, 2, BARF_DELETEFOLDER), L" 小图标 大图标 - 删除");
  EXPECT_EQ(menu(BarHit::Folder, 0, BARF_DELETEFOLDER), L" 小图标 大图标 -");
}

TEST(BarMenu, CommandsGoWithTheirTexts) {
  const auto entries = barMenuEntries(BarHit::Folder, 2, kLibraryBarFlags);
  ASSERT_EQ(entries.size(), 6u);
  EXPECT_EQ(entries[0].command, 21634u);
  EXPECT_EQ(entries[1].command, 21635u);
  EXPECT_EQ(entries[3].command, 21644u);
  EXPECT_EQ(entries[4].command, 21637u);
  EXPECT_EQ(entries[5].command, 21636u);
}

}  // namespace

// Trees of folders deleted, and nothing else; the first free directory.
#include "auxiliary/directory_tree.h"

#include <gtest/gtest.h>

#include "support/folder_link.h"
#include "support/install.h"

namespace {

namespace fs = std::filesystem;

class DirectoryTree : public testing::Test {
 protected:
  std::wstring path(const char* name) const { return test::Install::wide(folder_ / name); }
  bool exists(const char* name) const { return fs::exists(folder_ / name); }

  test::TempFolder folder_;
};

TEST_F(DirectoryTree, GoesWithAllThatIsInIt) {
  fs::create_directories(folder_ / "a" / "b" / "c");
  test::writeBytes(folder_ / "a" / "b" / "file", "x");
  test::writeBytes(folder_ / "a" / ".hidden", "x");
  test::writeBytes(folder_ / "ab", "x");
  DeleteDirectoryTree(path("a"));
  EXPECT_FALSE(exists("a"));
  EXPECT_TRUE(exists("ab"));
}

TEST_F(DirectoryTree, FileInItsPlaceStays) {
  test::writeBytes(folder_ / "a", "x");
  DeleteDirectoryTree(path("a"));
  EXPECT_TRUE(exists("a"));
  DeleteDirectoryTree(path("gone"));
}

TEST_F(DirectoryTree, LinksAreNotFollowed) {
  fs::create_directories(folder_ / "target" / "inner");
  fs::create_directory(folder_ / "a");
  const test::FolderLink link(folder_ / "target", folder_ / "link");
  const test::FolderLink within(folder_ / "target", folder_ / "a" / "link");
  DeleteDirectoryTree(path("a"));
  DeleteDirectoryTree(path("link"));
  EXPECT_TRUE(exists("target/inner"));
  EXPECT_EQ(exists("a"), !test::FolderLink::canBeRemoved());
  EXPECT_EQ(exists("link"), !test::FolderLink::canBeRemoved());
}

#ifndef _WIN32
TEST_F(DirectoryTree, NameWithABackslashLeadsNowhereElse) {
  fs::create_directory(folder_ / "a");
  test::writeBytes(folder_ / "keep", "x");
  test::writeBytes(folder_ / "a" / "..\\keep", "x");
  test::writeBytes(folder_ / "a" / "file", "x");
  DeleteDirectoryTree(path("a"));
  EXPECT_TRUE(exists("keep"));
  EXPECT_FALSE(exists("a/file"));
}
#endif

TEST_F(DirectoryTree, LinkToAFolderCountsAsTaken) {
  fs::create_directory(folder_ / "target");
  const test::FolderLink link(folder_ / "target", folder_ / "fzgn0001");
  EXPECT_EQ(newGroupDirectory(path("") + L"\\"), L"fzgn0002");
}

TEST_F(DirectoryTree, FirstFreeDirectoryIsNoFolder) {
  const std::wstring library = path("") + L"\\";
  EXPECT_EQ(newGroupDirectory(library), L"fzgn0001");
  fs::create_directory(folder_ / "fzgn0002");
  EXPECT_EQ(newGroupDirectory(library), L"fzgn0001");
  fs::create_directory(folder_ / "fzgn0001");
  EXPECT_EQ(newGroupDirectory(library), L"fzgn0003");
  test::writeBytes(folder_ / "fzgn0003", "x");
  EXPECT_EQ(newGroupDirectory(library), L"fzgn0003");
}

}  // namespace

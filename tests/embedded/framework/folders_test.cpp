// Folders listed, made and removed; links are entries of their own.
#include <gtest/gtest.h>

#include <algorithm>

#include "embedded/base/paths.h"
#include "platform/framework_files.h"
#include "support/folder_link.h"
#include "support/temp_folder.h"

namespace {

namespace fs = std::filesystem;

class Folders : public testing::Test {
 protected:
  std::wstring path(const std::string& name) const { return base::wideFromPath(folder_ / name); }
  // "a/ b" for a folder a and a file b.
  std::wstring listed(const std::string& name) const {
    std::vector<std::wstring> names;
    for (const FolderEntry& entry : folderEntries(path(name))) {
      names.push_back(entry.name + (entry.folder ? L"/" : L""));
    }
    std::sort(names.begin(), names.end());
    std::wstring all;
    for (const std::wstring& each : names) all.append(all.empty() ? L"" : L" ").append(each);
    return all;
  }

  test::TempFolder folder_;
};

TEST_F(Folders, ListingHasFoldersAndFilesAlone) {
  fs::create_directories(folder_ / "a" / "sub");
  test::writeBytes(folder_ / "a" / "file.txt", "x");
  EXPECT_EQ(listed("a"), L"file.txt sub/");
  EXPECT_EQ(listed("a/sub"), L"");
}

TEST_F(Folders, ListingOfWhatIsNoFolderIsEmpty) {
  test::writeBytes(folder_ / "file", "x");
  EXPECT_EQ(listed("file"), L"");
  EXPECT_EQ(listed("gone"), L"");
}

TEST_F(Folders, MadeOnceAndOnlyWhereThereIsAPlace) {
  EXPECT_TRUE(makeFolder(path("new")));
  EXPECT_TRUE(isFolder(path("new")));
  EXPECT_FALSE(makeFolder(path("new")));
  EXPECT_FALSE(makeFolder(path("no/such/place")));
}

TEST_F(Folders, FilesAndEmptyFoldersAreRemoved) {
  fs::create_directories(folder_ / "full" / "empty");
  test::writeBytes(folder_ / "file", "x");
  EXPECT_TRUE(removeEntry(path("file")));
  EXPECT_FALSE(removeEntry(path("full")));
  EXPECT_TRUE(removeEntry(path("full\\empty")));
  EXPECT_TRUE(removeEntry(path("full")));
  EXPECT_FALSE(removeEntry(path("gone")));
}

TEST_F(Folders, PlainEntriesAreNoLinks) {
  EXPECT_FALSE(isLink(path("")));
  EXPECT_FALSE(isLink(path("gone")));
}

TEST_F(Folders, LinkIsNeitherListedAsAFolderNorFollowed) {
  fs::create_directories(folder_ / "a" / "target" / "inner");
  const test::FolderLink link(folder_ / "a" / "target", folder_ / "a" / "link");
  EXPECT_TRUE(isLink(path("a/link")));
  EXPECT_TRUE(isFolder(path("a/link")));
  EXPECT_EQ(listed("a"), L"link target/");
  EXPECT_EQ(removeEntry(path("a/link")), test::FolderLink::canBeRemoved());
  EXPECT_TRUE(fs::exists(folder_ / "a" / "target" / "inner"));
}

#ifndef _WIN32
TEST_F(Folders, LinkWithoutTargetIsOneAllTheSame) {
  fs::create_symlink(folder_ / "gone", folder_ / "link");
  EXPECT_TRUE(isLink(path("link")));
  EXPECT_TRUE(removeEntry(path("link")));
}
#endif

}  // namespace

#include "embedded/base/paths.h"

#include <gtest/gtest.h>

#include "embedded/base/text.h"
#include "support/temp_folder.h"

namespace {

namespace fs = std::filesystem;

class Resolver : public testing::Test {
 protected:
  Resolver() {
    fs::create_directories(folder_ / "System");
    test::writeBytes(folder_ / "System" / "Fah.dwg", "x");
    fs::create_directory(folder_ / base::pathFromWide(L"图库"));
    test::writeBytes(folder_ / base::pathFromWide(L"图库") / base::pathFromWide(L"Ä.dwg"), "y");
  }

  fs::path resolve(std::wstring_view relative) const {
    return base::resolvePath(base::joinPath(base::wideFromPath(folder_.path()), relative));
  }

  test::TempFolder folder_;
};

TEST_F(Resolver, FindsWhatIsWrittenInAnotherCaseWithBackslashes) {
  EXPECT_EQ(test::bytesOf(resolve(L"system\\fAH.DWG")), "x");
  EXPECT_EQ(test::bytesOf(resolve(L"SYSTEM/Fah.dwg")), "x");
}

TEST_F(Resolver, FindsChineseAndAccentedNames) {
  EXPECT_EQ(test::bytesOf(resolve(L"图库\\ä.DWG")), "y");
}

TEST_F(Resolver, LeadsUpwardsAndDownAgain) {
  EXPECT_EQ(test::bytesOf(resolve(L"图库\\..\\system\\fah.dwg")), "x");
}

TEST_F(Resolver, AnEmptyPathStaysEmpty) { EXPECT_TRUE(base::resolvePath(L"").empty()); }

#ifndef _WIN32
TEST_F(Resolver, AnExactNameWinsOverOneThatDiffersInCase) {
  test::writeBytes(folder_ / "System" / "FAH.dwg", "other");
  EXPECT_EQ(resolve(L"System\\Fah.dwg").filename(), "Fah.dwg");
  EXPECT_EQ(resolve(L"System\\FAH.dwg").filename(), "FAH.dwg");
}

TEST_F(Resolver, OfSeveralNamesTheFirstInByteOrderIsTaken) {
  test::writeBytes(folder_ / "System" / "FAH.dwg", "other");
  EXPECT_EQ(resolve(L"system\\fah.DWG").filename(), "FAH.dwg");
}

TEST_F(Resolver, KeepsTheNamesThatDoNotExist) {
  EXPECT_EQ(resolve(L"SYSTEM\\New\\Deep.dwg"), folder_ / "System" / "New" / "Deep.dwg");
}

TEST_F(Resolver, FollowsWhatComesGoesAndIsRenamed) {
  EXPECT_EQ(resolve(L"System\\fah.DWG").filename(), "Fah.dwg");
  EXPECT_EQ(resolve(L"System\\fah.DWG").filename(), "Fah.dwg");
  fs::rename(folder_ / "System" / "Fah.dwg", folder_ / "System" / "FAH.dwg");
  EXPECT_EQ(resolve(L"System\\fah.DWG").filename(), "FAH.dwg");
  test::writeBytes(folder_ / "System" / "fah.DWG", "exact");
  EXPECT_EQ(resolve(L"System\\fah.DWG").filename(), "fah.DWG");
  fs::remove_all(folder_ / "System");
  EXPECT_EQ(resolve(L"System\\fah.DWG"), folder_ / "System" / "fah.DWG");
}

TEST_F(Resolver, FinalSlashesStay) {
  EXPECT_EQ(resolve(L"system\\").native(), (folder_ / "System").native() + "/");
  EXPECT_EQ(base::resolvePath(L"//").native(), "//");
  EXPECT_EQ(resolve(L"none\\\\deep\\").native(), folder_.path().native() + "/none//deep/");
}

TEST_F(Resolver, ARelativePathIsLookedUpInTheCurrentFolder) {
  const fs::path before = fs::current_path();
  fs::current_path(folder_.path());
  EXPECT_EQ(base::resolvePath(L"system\\FAH.dwg"), fs::path("System/Fah.dwg"));
  fs::current_path(before);
}
#endif

TEST(Path, JoinsWithOneSeparator) {
  EXPECT_EQ(base::joinPath(L"a", L"b"), L"a\\b");
  EXPECT_EQ(base::joinPath(L"a\\", L"b"), L"a\\b");
  EXPECT_EQ(base::joinPath(L"a/", L"b"), L"a/b");
  EXPECT_EQ(base::joinPath(L"", L"b"), L"b");
}

TEST(Path, SplitsAtTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(base::folderOf(L"a\\b/c.dwg"), L"a\\b");
  EXPECT_EQ(base::fileNameOf(L"a/b\\c.dwg"), L"c.dwg");
  EXPECT_EQ(base::folderOf(L"c.dwg"), L"");
  EXPECT_EQ(base::fileNameOf(L"a\\"), L"");
}

TEST(Path, TheExtensionIsThatOfTheLastName) {
  EXPECT_EQ(base::extensionOf(L"a.b\\c"), L"");
  EXPECT_EQ(base::extensionOf(L"a\\zhllib.qdp.bak"), L".bak");
  EXPECT_EQ(base::stemOf(L"a\\zhllib.qdp.bak"), L"zhllib.qdp");
  EXPECT_EQ(base::stemOf(L"a.b\\c"), L"c");
}

TEST(Path, ConversionsRoundTrip) {
  const std::wstring name = L"图库\U0001F600.dwg";
  EXPECT_EQ(base::wideFromPath(base::pathFromWide(name)), name);
  EXPECT_EQ(base::utf8FromPath(base::pathFromUtf8(base::utf8FromWide(name))),
            base::utf8FromWide(name));
}

}  // namespace

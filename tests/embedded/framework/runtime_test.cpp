// The runtime's calls.
#include <gtest/gtest.h>

#include <set>

#include "embedded/base/paths.h"
#include "platform/framework_runtime.h"
#include "support/temp_folder.h"

namespace {

TEST(Runtime, IntegersSaturate) {
  EXPECT_EQ(wideToInt(L"  -12x"), -12);
  EXPECT_EQ(wideToInt(L"x"), 0);
  EXPECT_EQ(wideToInt(L""), 0);
  EXPECT_EQ(wideToInt(nullptr), 0);
  EXPECT_EQ(wideToInt(L"99999999999999999999"), 2147483647);
  EXPECT_EQ(wideToInt(L"-99999999999999999999"), -2147483647 - 1);
}

TEST(Runtime, DoublesReadAsC99) {
  EXPECT_EQ(wideToDouble(L" 1e+06 "), 1e6);
  EXPECT_EQ(wideToDouble(L"0x1p4"), 16);
  EXPECT_EQ(wideToDouble(L"1,5"), 1);
  EXPECT_EQ(wideToDouble(L"x"), 0);
  EXPECT_EQ(wideToDouble(nullptr), 0);
}

TEST(Runtime, AnsiIsCodePage936) {
  EXPECT_EQ(ansiFromWide(L"主回路&05"), "\xD6\xF7\xBB\xD8\xC2\xB7&05");
  EXPECT_EQ(wideFromAnsi("\xBF\xD5"), L"空");
  EXPECT_EQ(ansiFromWide(L"a\u0E01b"), "a?b");
}

TEST(Runtime, ComparingIgnoresTheCaseOfAsciiLetters) {
  EXPECT_TRUE(equalWithoutCase(std::string_view("aB "), "Ab "));
  EXPECT_FALSE(equalWithoutCase(std::string_view("ab"), "ab "));
  EXPECT_TRUE(equalWithoutCase(std::wstring_view(L"DWG"), L"dwg"));
  EXPECT_FALSE(equalWithoutCase(std::wstring_view(L"É"), L"é"));
  EXPECT_FALSE(equalWithoutCase(std::string_view("["), "{"));
}

TEST(Runtime, TemporaryNamesDiffer) {
  std::set<std::wstring> names;
  for (int i = 0; i < 1000; ++i) names.insert(temporaryName());
  EXPECT_EQ(names.size(), 1000u);
  for (const std::wstring& name : names) {
    EXPECT_EQ(name.find_last_of(L"\\/"), 0u);
  }
}

TEST(Runtime, FilesAreFoundByAnySpelling) {
  const test::TempFolder folder;
  test::writeBytes(folder / "Dwgdir.dab", "x");
  const std::wstring root = base::wideFromPath(folder.path());
  EXPECT_TRUE(fileExists(root + L"\\dwgDIR.dab"));
  std::FILE* file = openFile(root + L"\\DWGDIR.DAB", L"r+b");
  ASSERT_NE(file, nullptr);
  std::fclose(file);
  EXPECT_TRUE(removeFile(root + L"/dwgdir.dab"));
  EXPECT_FALSE(removeFile(root + L"/dwgdir.dab"));
  EXPECT_FALSE(fileExists(root + L"/dwgdir.dab"));
  EXPECT_EQ(openFile(root, L"rb"), nullptr);
}

}  // namespace

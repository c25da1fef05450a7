// Name lists: splitting and joining.
#include "module/name_list.h"

#include <gtest/gtest.h>

namespace {

std::vector<std::wstring> split(const std::wstring& text, int expected = 1) {
  CStringArray names;
  EXPECT_EQ(splitNames(text, L'&', names), expected);
  std::vector<std::wstring> all;
  for (const CString& name : names) all.push_back(name.wide());
  return all;
}

using Names = std::vector<std::wstring>;

TEST(NameList, SplitsAtEverySeparator) {
  EXPECT_EQ(split(L"a&b&"), (Names{L"a", L"b"}));
  EXPECT_EQ(split(L"a&b"), (Names{L"a", L"b"}));
  EXPECT_EQ(split(L"a&"), Names{L"a"});
  EXPECT_EQ(split(L"&&a&"), (Names{L"", L"", L"a"}));
  EXPECT_EQ(split(L"&"), Names{L""});
}

TEST(NameList, TextWithoutSeparatorIsNoList) {
  EXPECT_EQ(split(L"a", 0), Names{});
  EXPECT_EQ(split(L"", 0), Names{});
}

TEST(NameList, AppendsToTheArrayAndLeavesItAloneOnFailure) {
  CStringArray names;
  names.Add(L"x");
  EXPECT_EQ(splitNames(L"a&b", L'&', names), 1);
  EXPECT_EQ(names.GetSize(), 3);
  EXPECT_EQ(splitNames(L"c", L'&', names), 0);
  EXPECT_EQ(names.GetSize(), 3);
}

TEST(NameList, JoinsWithASeparatorBehindEachName) {
  CStringArray names;
  EXPECT_EQ(joinNames(names, L'&'), L"");
  names.Add(L"a");
  names.Add(L"");
  EXPECT_EQ(joinNames(names, L'&'), L"a&&");
}

}  // namespace

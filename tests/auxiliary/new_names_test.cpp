// Names that the library gives by itself, and which names of others it trusts.
#include "auxiliary/new_names.h"

#include <gtest/gtest.h>

#include "platform/framework_text.h"

namespace {

TEST(NewNames, GroupTitleGetsANumberOnlyWhenItIsTaken) {
  EXPECT_EQ(newGroupTitle({}), L"新建图库组");
  EXPECT_EQ(newGroupTitle({L"仪表"}), L"新建图库组");
  EXPECT_EQ(newGroupTitle({L"新建图库组"}), L"新建图库组1");
  EXPECT_EQ(newGroupTitle({L"新建图库组1", L"新建图库组"}), L"新建图库组2");
}

TEST(NewNames, DirectoryNumbersHaveFourDigits) {
  EXPECT_EQ(groupDirectory(1), L"fzgn0001");
  EXPECT_EQ(groupDirectory(12345), L"fzgn12345");
}

TEST(NewNames, LabelTakesTheSmallestFreeNumberWithoutCase) {
  EXPECT_EQ(newItemLabel(L"Meter", {}), L"Meter-1");
  EXPECT_EQ(newItemLabel(L"Meter", {L"METER-1", L"Meter-3"}), L"Meter-2");
}

TEST(NewNames, BlockNameHasTheDirectorysLastThreeCharacters) {
  EXPECT_EQ(newBlockName(L"fzgn0001", {}), L"FG001001");
  EXPECT_EQ(newBlockName(L"fzgn1012", {L"fg012001", L"FG012003"}), L"FG012002");
  EXPECT_EQ(newBlockName(L"fzgn0001", {L"", L""}), L"FG001001");
}

TEST(NewNames, BlockNameOfAGroupWithoutDirectory) {
  EXPECT_EQ(newBlockName(L"", {}), L"FG001");
  EXPECT_EQ(newBlockName(L"ab", {L"FGab001"}), L"FGab002");
}

TEST(NewNames, BlockNumbersGoBeyondThreeDigits) {
  NameList taken;
  for (int i = 1; i < 1000; ++i) {
    CString name;
    name.Format(L"FG001%03d", i);
    taken.push_back(name.wide());
  }
  EXPECT_EQ(newBlockName(L"fzgn0001", taken), L"FG0011000");
}

TEST(PlainNames, StandForAnEntryOfTheirFolder) {
  for (const wchar_t* name : {L"fzgn0001", L"图库", L".hidden", L"a.b", L"a b", L"CONSOLE", L"COM",
                              L"COM10", L"COMA", L"a.NUL", L"LPT"}) {
    EXPECT_TRUE(isPlainName(name)) << std::wstring(name).size();
  }
}

TEST(PlainNames, LeadNowhereElse) {
  for (const wchar_t* name : {L"", L".", L"..", L"...", L".. ", L" ", L"a.", L"a ", L"..\\a",
                              L"a/b", L"/etc", L"C:", L"C:a", L"a:stream", L"*", L"a?"}) {
    EXPECT_FALSE(isPlainName(name)) << testing::PrintToString(std::wstring(name));
  }
  EXPECT_FALSE(isPlainName(std::wstring(L"a\0b", 3)));
}

TEST(PlainNames, AreNoDevices) {
  for (const wchar_t* name : {L"NUL", L"con", L"Prn", L"AUX", L"COM1", L"lpt9", L"COM0",
                              L"COM\u00B9", L"conin$", L"CONOUT$", L"NUL.dwg", L"con .a.b"}) {
    EXPECT_FALSE(isPlainName(name)) << testing::PrintToString(std::wstring(name));
  }
}

}  // namespace

// Lines of the group table and of a group's symbols.
#include "editor/symbol_tables.h"

#include <gtest/gtest.h>

#include "platform/framework_runtime.h"
#include "support/install.h"

namespace {

TEST(SymbolTables, GroupLineHasFourFields) {
  const auto group = parseGroupLine(L"常用主回路符号 dqbl0001 6 2");
  ASSERT_TRUE(group);
  EXPECT_EQ(group->name, L"常用主回路符号");
  EXPECT_EQ(group->code, L"dqbl0001");
  EXPECT_EQ(group->side, 6);
  EXPECT_EQ(group->page, 2);
}

TEST(SymbolTables, AnyWhiteSpaceSeparatesAndWhatFollowsIsIgnored) {
  const auto group = parseGroupLine(L"\t a  b\t-7 +3 more");
  ASSERT_TRUE(group);
  EXPECT_EQ(group->side, -7);
  EXPECT_EQ(group->page, 3);
}

TEST(SymbolTables, NumbersEndWhereTheirDigitsDo) {
  EXPECT_FALSE(parseGroupLine(L"a b 6x 1"));
  const auto group = parseGroupLine(L"a b 6-1");
  ASSERT_TRUE(group);
  EXPECT_EQ(group->page, -1);
  EXPECT_FALSE(parseGroupLine(L"a b - 1"));
  EXPECT_EQ(parseGroupLine(L"a b 99999999999 1")->side, 2147483647);
}

TEST(SymbolTables, LineThatLacksAFieldIsNone) {
  for (const wchar_t* line : {L"", L"   ", L"a", L"a b", L"a b 6", L"a 6 1", L"a b c 1"}) {
    EXPECT_FALSE(parseGroupLine(line)) << testing::PrintToString(line);
  }
}

TEST(SymbolTables, SymbolLineHasFourWordsAndFiveNumbers) {
  const auto symbol = parseSymbolLine(L"ZHL1003 隔离开关 QS model 1 0 0 24 20");
  ASSERT_TRUE(symbol);
  EXPECT_EQ(*symbol, (SymbolLine{L"ZHL1003", L"隔离开关", L"QS", L"model"}));
  EXPECT_FALSE(parseSymbolLine(L"ZHL1003 隔离开关 QS model 1 0 0 24"));
  EXPECT_FALSE(parseSymbolLine(L"ZHL1003 隔离开关 QS 1 0 0 24 20"));
}

TEST(SymbolTables, ShortLinesShiftNoOther) {
  test::Install install;
  const std::wstring path = test::Install::wide(install.symbols()) + L"\\t-sywj.dat";
  test::writeBytes(install.symbols() / "t-sywj.dat",
                   ansiFromWide(L"甲 dqbl0001 6 0\r\n乙 dqbl0002 6\r\n\r\n丙 dqbl0003 4 1"));
  const auto groups = readSymbolGroups(path);
  ASSERT_TRUE(groups);
  ASSERT_EQ(groups->size(), 2U);
  EXPECT_EQ((*groups)[0].name, L"甲");
  EXPECT_EQ((*groups)[1].code, L"dqbl0003");
}

TEST(SymbolTables, MissingFileIsTold) {
  test::Install install;
  EXPECT_FALSE(readSymbolGroups(test::Install::wide(install.symbols()) + L"\\no.dat"));
  EXPECT_FALSE(readSymbolLines(test::Install::wide(install.symbols()) + L"\\no.idx"));
}

}  // namespace

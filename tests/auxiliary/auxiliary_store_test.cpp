// The auxiliary library's tree and files.
#include "auxiliary/auxiliary_store.h"

#include <gtest/gtest.h>

#include "support/install.h"
#include "support/transcript.h"

namespace {

using Names = std::vector<std::wstring>;

Names namesOf(const CStringArray& array) {
  Names all;
  for (const CString& name : array) all.push_back(name.wide());
  return all;
}

class Auxiliary : public testing::Test {
 protected:
  std::wstring path() const { return test::Install::wide(install_.library() / "zhlFzgn.qdp"); }

  void put(const std::vector<std::pair<std::wstring, std::wstring>>& values) {
    CQuillDpData tree;
    tree.ReadDataFromQdpFile(path().c_str());
    for (const auto& [key, text] : values) {
      tree.SetSubValueW(key.c_str(), static_cast<std::int16_t>(text.size() + 1), text.c_str(), 0);
    }
    tree.WriteDataToQdpFile(path().c_str());
  }
  void putTwoGroups() {
    put({{L"索引", L"仪表&信号&"},
         {L"数据\\仪表\\类型", L"0"},
         {L"数据\\仪表", L"fzgn0001"},
         {L"数据\\仪表\\索引", L"仪表-1&仪表-2&"},
         {L"数据\\仪表\\数据\\仪表-1", L"FG001001"},
         {L"数据\\仪表\\数据\\仪表-2", L"FG001002"},
         {L"数据\\信号\\类型", L"0"},
         {L"数据\\信号", L"fzgn0002"},
         {L"数据\\信号\\索引", L"灯&"},
         {L"数据\\信号\\数据\\灯", L"FG002001"}});
  }
  std::wstring inFile(const wchar_t* key) {
    CQuillDpData tree;
    tree.ReadDataFromQdpFile(path().c_str());
    const CQuillDpNode* node = tree.GetSubValueFromPathW(0, key);
    return node && node->length > 0 ? node->text() : L"(none)";
  }
  Names titles() { return AuxiliaryStore().shownTitles(); }

  test::Install install_;
};

TEST_F(Auxiliary, MissingFileIsAnEmptyLibraryWithSmallIcons) {
  const AuxiliaryStore store;
  EXPECT_TRUE(store.shownTitles().empty());
  EXPECT_FALSE(store.largeIcons());
}

TEST_F(Auxiliary, ShowsGroupsOfTypeZeroInTheirOrder) {
  putTwoGroups();
  EXPECT_EQ(titles(), (Names{L"仪表", L"信号"}));
  put({{L"数据\\仪表\\类型", L"1"}});
  EXPECT_EQ(titles(), Names{L"信号"});
}

TEST_F(Auxiliary, TitleWithoutGroupIsPassedOver) {
  putTwoGroups();
  put({{L"索引", L"无&仪表&"}});
  EXPECT_EQ(titles(), Names{L"仪表"});
}

TEST_F(Auxiliary, IndexNeedsASeparator) {
  putTwoGroups();
  put({{L"索引", L"仪表"}});
  EXPECT_EQ(titles(), Names{});
  put({{L"索引", L"仪表&"}});
  EXPECT_EQ(titles(), Names{L"仪表"});
  put({{L"索引", L"仪表&信号"}});
  EXPECT_EQ(titles(), (Names{L"仪表", L"信号"}));
  put({{L"索引", L""}});
  EXPECT_EQ(titles(), Names{});
}

TEST_F(Auxiliary, IconStateIsSmallOnlyForZeroOrNothing) {
  const auto largeFor = [&](const wchar_t* state) {
    put({{L"图标状态", state}});
    return AuxiliaryStore().largeIcons();
  };
  EXPECT_TRUE(largeFor(L"1"));
  EXPECT_TRUE(largeFor(L"2"));
  EXPECT_TRUE(largeFor(L""));
  EXPECT_FALSE(largeFor(L"0"));
}

TEST_F(Auxiliary, LabelsOfAGroup) {
  putTwoGroups();
  const AuxiliaryStore store;
  EXPECT_EQ(namesOf(store.labels(0)), (Names{L"仪表-1", L"仪表-2"}));
  EXPECT_EQ(namesOf(store.labels(2)), Names{});
  EXPECT_EQ(namesOf(store.labels(-1)), Names{});
}

TEST_F(Auxiliary, TitleOfSeveralLevelsHasNoValues) {
  putTwoGroups();
  put({{L"索引", L"仪表\\x&"},
       {L"数据\\仪表\\x", L"fzgn0002"},
       {L"数据\\仪表\\x\\类型", L"0"},
       {L"数据\\仪表\\x\\索引", L"a&"},
       {L"数据\\仪表\\x\\数据\\a", L"FG002001"}});
  AuxiliaryStore store;
  EXPECT_EQ(namesOf(store.labels(0)), Names{});
  EXPECT_EQ(store.directoryOf(L"仪表\\x"), L"");
  EXPECT_EQ(store.blockOf(L"仪表\\x", L"a"), L"");
  EXPECT_EQ(store.shownTitles(), Names{});
}

TEST_F(Auxiliary, ChoiceIsWrittenToTheFileAtOnce) {
  putTwoGroups();
  AuxiliaryStore store;
  EXPECT_TRUE(store.chooseItem(1, L"灯"));
  // Written with a doubled backslash, read with a single one.
  EXPECT_EQ(inFile(L"当前选择\\块名"),
            test::Install::wide(install_.root()) + L"\\Datcom\\zhllib\\fzgn0002\\FG002001.dwg");
  EXPECT_EQ(inFile(L"当前选择\\类型"), L"1");
}

TEST_F(Auxiliary, SameChoiceIsWrittenAgainOverAnotherPrograms) {
  putTwoGroups();
  AuxiliaryStore mine;
  mine.chooseItem(1, L"灯");
  AuxiliaryStore().chooseItem(0, L"仪表-2");
  EXPECT_EQ(inFile(L"当前选择\\类型"), L"0");
  mine.chooseItem(1, L"灯");
  EXPECT_EQ(inFile(L"当前选择\\类型"), L"1");
  std::filesystem::remove(install_.library() / "zhlFzgn.qdp");
  mine.chooseItem(1, L"灯");
  EXPECT_EQ(titles(), (Names{L"仪表", L"信号"}));
}

TEST_F(Auxiliary, ItemWithoutBlockNameWritesNoChoiceButTheFile) {
  putTwoGroups();
  AuxiliaryStore store;
  store.chooseItem(0, L"仪表-1");
  store.tree().SetSubValueW(L"图标状态", 2, L"1", 0);
  EXPECT_FALSE(store.chooseItem(1, L"no such"));
  EXPECT_EQ(inFile(L"当前选择\\类型"), L"0");
  EXPECT_EQ(inFile(L"图标状态"), L"1");
}

TEST_F(Auxiliary, ClosingWritesTheIconStateAndKeepsTheRest) {
  putTwoGroups();
  AuxiliaryStore().close(false);
  EXPECT_EQ(inFile(L"图标状态"), L"0");
  AuxiliaryStore().close(true);
  EXPECT_EQ(inFile(L"图标状态"), L"1");
  EXPECT_EQ(inFile(L"索引"), L"仪表&信号&");
}

TEST(NameLists, SplitTellsWhetherThereWasASeparator) {
  CStringArray names;
  EXPECT_EQ(SplitNameList(L"a&b", L"&", names), 1);
  EXPECT_EQ(namesOf(names), (Names{L"a", L"b"}));
  names.RemoveAll();
  EXPECT_EQ(SplitNameList(L"&&a&", L"&", names), 1);
  EXPECT_EQ(namesOf(names), (Names{L"", L"", L"a"}));
  EXPECT_EQ(SplitNameList(L"a", L"&", names), 0);
  EXPECT_EQ(SplitNameList(L"a", L"", names), 0);
}

TEST(NameLists, JoinOfNothingIsAnEmptyText) {
  std::wstring text = L"left over";
  EXPECT_EQ(JoinNameList(text, L"&", {}), 1);
  EXPECT_EQ(text, L"");
  CStringArray names;
  names.Add(L"a");
  names.Add(L"b");
  EXPECT_EQ(JoinNameList(text, L"&", names), 1);
  EXPECT_EQ(text, L"a&b&");
}

TEST(EmptySlideLibrary, Has68BytesOfItsOwn) {
  const test::TempFolder folder;
  const auto path = folder / "fzgn0001.slb";
  test::writeBytes(path, std::string(200, 'x'));
  EXPECT_EQ(CreateEmptySlideLibrary(test::Install::wide(path).c_str()), 1);
  std::string expected = "AutoCAD Slide Library 1.0\x0B\x08\x16";
  expected.resize(68, '\0');
  EXPECT_EQ(test::bytesOf(path), expected);
}

TEST(EmptySlideLibrary, FailsWhereNoFileCanBeMade) {
  const test::TempFolder folder;
  EXPECT_EQ(CreateEmptySlideLibrary(test::Install::wide(folder / "no" / "x.slb").c_str()), 0);
#ifdef __linux__
  EXPECT_EQ(CreateEmptySlideLibrary(L"/dev/full"), 0);
#endif
}

}  // namespace

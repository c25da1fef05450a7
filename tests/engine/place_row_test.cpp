// Placing a row: the commands in their order, the data put onto the blocks, and each failure.
#include "engine/place_row.h"

#include "engine/engine_fixture.h"

namespace {

using test::host;
using test::Link;
using test::takeTranscript;
using test::Thing;
using Commands = std::vector<std::wstring>;

const std::wstring kRow =
    LR"(("05" "A01" "3P 16A" 10 5 0 "B12" "" 0 -20 90 "&&&&" 0 10 30 10 30 10 30 -20 )"
    LR"("TEXT" "QF1" 1 3 5 2 0 "KM1" 3 2.5 35 -18 90))";

class PlaceRowTest : public test::EngineFixture {
 protected:
  int place(const std::wstring& row) {
    const ads_point point = {1000, 2000, 0};
    return PlaceRow(point, row);
  }
  void expectFailure(const std::wstring& row, const std::wstring& message) {
    EXPECT_EQ(place(row), RTERROR);
    EXPECT_EQ(takeTranscript(), message);
  }
  std::vector<Link> data(std::size_t insert, const wchar_t* application) {
    return host().present(L"INSERT").at(insert)->xdata[application];
  }
};

TEST_F(PlaceRowTest, IssuesTheCommandsInOrder) {
  host().printScale = 100;
  EXPECT_EQ(place(kRow), RTNORM);
  EXPECT_EQ(host().commands,
            (Commands{
                L"insert " + markerPath() + L" 1000,2000 (empty) (empty) (empty) 100",
                L"PLINE 4600,3000 W 30 (empty) 4600,0 (empty)",
                L"PLINE 1000,3000 W 30 (empty) 4600,3000 (empty)",
                L"insert " + symbolPath(L"A01") + L" 2200,2500 100 100 0",
                L"insert " + symbolPath(L"B12") + L" 1000,0 100 100 90",
                L"COLOR 1",
                L"TEXT 1600,2200 300 0 QF1",
                L"COLOR 3",
                L"TEXT 5200,200 250 90 KM1",
            }));
  EXPECT_EQ(takeTranscript(), L"");
}

TEST_F(PlaceRowTest, MarkerStandsOnItsLayerAndTheRestOnTheElements) {
  place(kRow);
  EXPECT_EQ(host().space.front()->layer, L"DISTRIBUTION-ATTPOINT");
  for (std::size_t i = 1; i < host().space.size(); ++i) {
    EXPECT_EQ(host().space[i]->layer, L"SCHEMATIC-ELEMENT");
  }
}

TEST_F(PlaceRowTest, LinesTakeTheColourOfTheirLayerAsAFixedIndex) {
  place(kRow);
  EXPECT_EQ(host().present(L"LWPOLYLINE").at(0)->colour, 3);
}

TEST_F(PlaceRowTest, BlocksCarryIndexTextAndSpecification) {
  place(kRow);
  EXPECT_EQ(data(1, L"TKSY"), (std::vector<Link>{{RTSTR, L"breaker&QF"}}));
  EXPECT_EQ(data(1, L"XHGG"), (std::vector<Link>{{RTSTR, L"3P 16A"}}));
  EXPECT_EQ(data(2, L"TKSY"), (std::vector<Link>{{RTSTR, L"fuse&FU"}}));
  EXPECT_FALSE(host().present(L"INSERT").at(2)->xdata.count(L"XHGG"));
}

TEST_F(PlaceRowTest, FiguresOfBlocksGoByBlock) {
  Thing* const block = host().blocks[L"A01"] = host().add(test::Kind::record, L"A01");
  Thing* const figure = host().add(test::Kind::entity, L"LINE");
  figure->colour = 3;
  block->contents.push_back(figure);
  EXPECT_EQ(place(LR"(("05" "A01" "" 0 0 0 "&&&&"))"), RTNORM);
  EXPECT_EQ(figure->colour, 0);
}

TEST_F(PlaceRowTest, WithoutIndexFileTheIndexTextIsEmpty) {
  std::filesystem::remove(install_.symbols() / "Dqbl0001" / "Dqbl0001.idx");
  EXPECT_EQ(place(LR"(("05" "A01" "" 0 0 0 "&&&&"))"), RTNORM);
  EXPECT_EQ(data(1, L"TKSY"), (std::vector<Link>{{RTSTR, L""}}));
  EXPECT_EQ(takeTranscript(), L"\n打开文件失败!");
}

TEST_F(PlaceRowTest, NameWithExtensionIsFound) {
  EXPECT_EQ(place(LR"(("05" "A01.dwg" "" 0 0 0 "&&&&"))"), RTNORM);
  EXPECT_EQ(host().commands.back(), L"insert " + symbolPath(L"A01") + L" 1000,2000 1 1 0");
}

TEST_F(PlaceRowTest, TextStyleIsSetAndSetBackWithoutTexts) {
  EXPECT_EQ(place(LR"(("05" "A01" "" 0 0 0 "&&&&"))"), RTNORM);
  EXPECT_EQ(host().commands.size(), 2u);
  EXPECT_EQ(host().settings, (Commands{L"TEXTSTYLE=Standard", L"TEXTSTYLE=SONG"}));
}

TEST_F(PlaceRowTest, EmptyTextIsSkippedAndTheNextOneKeepsItsFields) {
  place(LR"(("05" "A01" "" 0 0 0 "&&&&" "TEXT" "" 1 3 5 2 0 "KM1" 3 2 10 0 0))");
  EXPECT_EQ(host().commands.at(2), L"COLOR 3");
  EXPECT_EQ(host().commands.at(3), L"TEXT 1012,2000 2 0 KM1");
}

TEST_F(PlaceRowTest, FieldsThatAreMissingInTheLastTextCountAsZero) {
  EXPECT_EQ(place(LR"(("05" "A01" "" 0 0 0 "&&&&" "TEXT" "QF1" 4))"), RTNORM);
  EXPECT_EQ(host().commands.at(2), L"COLOR 4");
  EXPECT_EQ(host().commands.at(3), L"TEXT 1000,2000 0 0 QF1");
}

TEST_F(PlaceRowTest, ScaleOfZeroPasses) {
  host().printScale = 0;
  EXPECT_EQ(place(LR"(("05" "A01" "" 7 7 0 "&&&&"))"), RTNORM);
  EXPECT_EQ(host().commands.back(), L"insert " + symbolPath(L"A01") + L" 1000,2000 0 0 0");
}

TEST_F(PlaceRowTest, ScaleHasThePrecisionOfItsText) {
  host().printScale = 1234567.0;
  place(LR"(("05" "A01" "" 0 0 0 "&&&&"))");
  EXPECT_EQ(host().commands.front(),
            L"insert " + markerPath() + L" 1000,2000 (empty) (empty) (empty) 1.23457e+06");
}

TEST_F(PlaceRowTest, UnknownBlockEndsPlacingAndKeepsWhatWasDrawn) {
  expectFailure(LR"(("05" "A01" "" 0 0 0 "C99" "" 0 0 0 "&&&&" 0 0 1 1 "TEXT" "QF1" 1 3 5 2 0))",
                L"\n数据文件中的块C99不在DWG搜索目录下.\n无法顺利完成插入工作!");
  EXPECT_EQ(host().present(L"LWPOLYLINE").size(), 1u);
  EXPECT_EQ(host().present(L"INSERT").size(), 2u);
  EXPECT_TRUE(host().present(L"TEXT").empty());
  EXPECT_TRUE(host().settings.empty());  // the text style wasn't touched
}

TEST_F(PlaceRowTest, BadRowDrawsNothing) {
  expectFailure(L"", L"\n数据文件中该数据行无数据!");
  EXPECT_TRUE(host().commands.empty());
}

TEST_F(PlaceRowTest, MissingMarkerFileIsNamed) {
  std::filesystem::remove(install_.root() / "system" / "Fah.dwg");
  expectFailure(kRow, L"\n文件" + markerPath() + L"不存在.");
}

TEST_F(PlaceRowTest, EmptySystemFolder) {
  WriteInformation(L"ZEMMain", L"ZemSys", L"", 1);
  expectFailure(kRow, L"\n注册表项ZemSys数据无效.");
  std::filesystem::remove(install_.folder() / "information.txt");
  expectFailure(kRow, L"\n注册表项ZemSys数据无效.");
}

TEST_F(PlaceRowTest, SystemFolderWithFinalBackslashIsTheSame) {
  WriteInformation(L"ZEMMain", L"ZemSys", (test::Install::wide(install_.root()) + L"\\").c_str(),
                   1);
  EXPECT_EQ(place(kRow), RTNORM);
  EXPECT_EQ(host().commands.front(),
            L"insert " + markerPath() + L" 1000,2000 (empty) (empty) (empty) 1");
}

TEST_F(PlaceRowTest, MarkerFileIsLookedForBeforeTheScaleAndTheScaleBeforeTheRow) {
  host().printScale = -1;
  expectFailure(L"bad", L"\nTabScale数据无效.");
  std::filesystem::remove(install_.root() / "system" / "Fah.dwg");
  expectFailure(L"bad", L"\n文件" + markerPath() + L"不存在.");
}

TEST_F(PlaceRowTest, UnreadableInformationStore) {
  test::writeBytes(install_.folder() / "information.txt", "\xFF");
  expectFailure(kRow, L"\n读取注册表项ZemSys错误.");
}

TEST_F(PlaceRowTest, NegativeOrUnreadableScale) {
  host().printScale = -1;
  expectFailure(kRow, L"\nTabScale数据无效.");
  host().printScale = 1;
  host().fail(L"acdbDisToF");
  expectFailure(kRow, L"\nTabScale数据无效.");
}

TEST_F(PlaceRowTest, LastEntityThatCannotBeHad) {
  const std::wstring row = LR"(("05" "A01" "" 0 0 0 "&&&&" 0 0 1 1))";
  host().fail(L"acdbEntLast", 1);
  EXPECT_EQ(place(row), RTNORM);  // a line's failure is only told
  EXPECT_EQ(takeTranscript(), L"\n获取插入的线实体失败!");
  host().fail(L"acdbEntLast", 2);
  expectFailure(row, L"\n获取插入的块实体失败!");
}

TEST_F(PlaceRowTest, EntityIdThatCannotBeHad) {
  const std::wstring row = LR"(("05" "A01" "" 0 0 0 "&&&&" 0 0 1 1))";
  host().fail(L"acdbGetObjectId", 1);
  EXPECT_EQ(place(row), RTNORM);
  EXPECT_EQ(takeTranscript(), L"\n获取实体Id失败");
  host().fail(L"acdbGetObjectId", 2);
  expectFailure(row, L"\n获取实体Id失败");
}

TEST_F(PlaceRowTest, BlockThatCannotBeOpenedIsPassedOver) {
  host().fail(L"open for write");
  EXPECT_EQ(place(LR"(("05" "A01" "" 0 0 0 "&&&&" 0 0 1 1))"), RTNORM);
  EXPECT_EQ(takeTranscript(), L"");
}

TEST_F(PlaceRowTest, RefusedInsertTagsWhatIsThere) {
  host().fail(L"acedCommand insert", 2);
  EXPECT_EQ(place(LR"(("05" "A01" "3P" 0 0 0 "&&&&"))"), RTNORM);
  EXPECT_EQ(data(0, L"XHGG"), (std::vector<Link>{{RTSTR, L"3P"}}));  // the marker block
}

TEST_F(PlaceRowTest, TextStyleThatCannotBeReadIsLeftStandard) {
  host().fail(L"acedGetVar");
  EXPECT_EQ(place(LR"(("05" "A01" "" 0 0 0 "&&&&"))"), RTNORM);
  EXPECT_EQ(std::get<std::wstring>(host().variables[L"TEXTSTYLE"]), L"Standard");
}

}  // namespace

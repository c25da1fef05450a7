// A block of the drawing becomes an item of the open folder.
#include "auxiliary/add_symbol.h"

#include "auxiliary/library_fixture.h"
#include "embedded/base/files.h"

namespace {

using namespace auxiliary_test;
using test::host;

constexpr const wchar_t* kPrompt = L"5020=INSERT\n请选择要增加的图块<回车返回>:";

class AddSymbol : public LibraryFixture {
 protected:
  AddSymbol() {
    test::Thing* block = host().add(test::Kind::record, L"SOURCE");
    reference_ = host().add(test::Kind::reference, L"INSERT");
    reference_->block = block;
    test::takeTranscript();
  }
  void answer(int result, std::int16_t error = 0) {
    host().picks.push_back({result, reference_, error});
  }
  int add() {
    loaded();
    return AddSymbolFromDrawing(library());
  }
  // As if nothing had been asked for.
  void expectNothingLeft() {
    EXPECT_EQ(value(L"数据\\仪表\\索引"), L"仪表-1&仪表-2&仪表-3&");
    EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-4"), L"(none)");
    EXPECT_FALSE(exists("fzgn0001/FG001004.dwg"));
    EXPECT_FALSE(hasSlide(L"fzgn0001", L"FG001004"));
    EXPECT_EQ(bar_.itemCount(0), 3);
    EXPECT_TRUE(host().everythingClosed());
  }

  test::Thing* reference_ = nullptr;
};

TEST_F(AddSymbol, EnterGoesBackAtOnce) {
  answer(RTERROR, 52);
  EXPECT_EQ(add(), RTERROR);
  EXPECT_EQ(host().prompts, std::vector<std::wstring>{kPrompt});
  EXPECT_EQ(test::takeTranscript(), L"");
  expectNothingLeft();
}

TEST_F(AddSymbol, EscapeCancels) {
  answer(RTCAN);
  EXPECT_EQ(add(), RTCAN);
  EXPECT_EQ(test::takeTranscript(), L"");
}

TEST_F(AddSymbol, PickThatMissesAsksAgain) {
  answer(RTERROR, 7);
  answer(RTKWORD);
  answer(RTCAN);
  EXPECT_EQ(add(), RTCAN);
  EXPECT_EQ(host().prompts.size(), 3u);
}

TEST_F(AddSymbol, BlockBecomesDrawingSlideKeysAndItem) {
  answer(RTNORM);
  EXPECT_EQ(add(), RTNORM);
  const std::wstring drawing = libraryFolder() + L"fzgn0001\\FG001004.dwg";
  const std::wstring fonts = test::Install::wide(install_.root()) + L"\\datcom\\";
  EXPECT_EQ(host().drawings,
            (Log{L"dimblk .", L"dimblk1 .", L"dimblk2 .", L"wblock SOURCE",
                 L"save " + drawing + L" 23", L"read " + drawing + L" 32",
                 L"Chinese " + fonts + L"chinese.wzk", L"English " + fonts + L"english.wzk"}));
  EXPECT_TRUE(exists("fzgn0001/FG001004.dwg"));
  EXPECT_TRUE(hasSlide(L"fzgn0001", L"FG001004"));
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-4"), L"FG001004");
  EXPECT_EQ(bar_.labels(0).back(), L"仪表-4");
  EXPECT_EQ(bar_.image(0, 3), 3);
  EXPECT_TRUE(host().everythingClosed());
  EXPECT_EQ(inFile(L"数据\\仪表\\索引"), L"仪表-1&仪表-2&仪表-3&");  // until the next click
}

TEST_F(AddSymbol, FirstAndSecondOfAGroup) {
  loaded();
  bar_.selectFolder(2);
  for (int i = 0; i < 2; ++i) {
    answer(RTNORM);
    EXPECT_EQ(AddSymbolFromDrawing(library()), RTNORM);
  }
  EXPECT_EQ(bar_.labels(2), (Names{L"接地-1", L"接地-2"}));
  EXPECT_EQ(bar_.iconCount(2), 2);
  EXPECT_EQ(value(L"数据\\接地\\数据\\接地-2"), L"FG003002");
}

TEST_F(AddSymbol, GroupWithoutDirectoryKeepsTheDrawingInTheLibrarysOwnFolder) {
  put(L"数据\\仪表", L"");
  answer(RTNORM);
  EXPECT_EQ(add(), RTNORM);
  EXPECT_EQ(host().drawings.at(4), L"save " + libraryFolder() + L"FG001.dwg 23");
  EXPECT_TRUE(exists("FG001.dwg"));
  CSlideLibraryData slides;
  slides.ReadDataFromFileW(libraryFolder() + L".slb");
  EXPECT_NE(slides.GetIndexFromName(L"FG001"), kNoSlide);
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-4"), L"FG001");
}

TEST_F(AddSymbol, GroupThatTakesNoItemIsToldBeforeAnythingIsWritten) {
  answer(RTNORM);
  loaded().folderRenamed(0, L"a\\b");
  EXPECT_EQ(AddSymbolFromDrawing(library()), RTERROR);
  EXPECT_EQ(test::takeTranscript(), L"\n当前图库组无法增加图库项,请修改其标题或删除不用的图库项!");
  EXPECT_EQ(host().drawings.back(), L"wblock SOURCE");
  EXPECT_EQ(bar_.itemCount(0), 3);
}

#ifndef _WIN32
TEST_F(AddSymbol, LinksInTheGroupsFolderAreNotFollowed) {
  const std::filesystem::path elsewhere = install_.folder() / "elsewhere";
  const std::string slides = test::bytesOf(file("fzgn0001/fzgn0001.slb"));
  test::writeBytes(elsewhere, "precious");
  std::filesystem::create_symlink(elsewhere, file("fzgn0001/FG001004.dwg"));
  std::filesystem::rename(file("fzgn0001/fzgn0001.slb"), install_.folder() / "slides");
  std::filesystem::create_symlink(install_.folder() / "slides", file("fzgn0001/fzgn0001.slb"));
  answer(RTNORM);
  EXPECT_EQ(add(), RTNORM);
  EXPECT_EQ(test::bytesOf(elsewhere), "precious");
  EXPECT_EQ(test::bytesOf(install_.folder() / "slides"), slides);
  EXPECT_EQ(bar_.image(0, 3), -1);
}
#endif

TEST_F(AddSymbol, EntityWithoutAnIdIsReported) {
  answer(RTNORM);
  host().fail(L"acdbGetObjectId");
  EXPECT_EQ(add(), RTERROR);
  EXPECT_EQ(test::takeTranscript(), L"\n获取实体Id失败");
  expectNothingLeft();
}

TEST_F(AddSymbol, EntityThatCantBeOpenedFailsWithoutAWord) {
  answer(RTNORM);
  host().fail(L"open for read");
  EXPECT_EQ(add(), RTERROR);
  EXPECT_EQ(test::takeTranscript(), L"");
  expectNothingLeft();
}

TEST_F(AddSymbol, EntityOfAnotherKindFailsWithoutAWord) {
  reference_ = host().addEntity(L"TEXT");
  answer(RTNORM);
  EXPECT_EQ(add(), RTERROR);
  EXPECT_EQ(test::takeTranscript(), L"");
  expectNothingLeft();
}

TEST_F(AddSymbol, BlockThatCantBeWrittenOutIsReported) {
  answer(RTNORM);
  host().fail(L"wblock");
  EXPECT_EQ(add(), RTERROR);
  EXPECT_EQ(test::takeTranscript(), L"\n生成新图失败!");
  EXPECT_EQ(host().drawings, (Log{L"dimblk .", L"dimblk1 .", L"dimblk2 ."}));  // and never back
  expectNothingLeft();
}

TEST_F(AddSymbol, DrawingThatCantBeSavedFailsAtReading) {
  answer(RTNORM);
  host().fail(L"saveAs");
  EXPECT_EQ(add(), RTERROR);
  EXPECT_EQ(bar_.log, Log{L"读取文件失败!"});
  expectNothingLeft();
}

TEST_F(AddSymbol, DrawingThatCantBeReadIsDeletedAgain) {
  answer(RTNORM);
  host().fail(L"readDwgFile");
  EXPECT_EQ(add(), RTERROR);
  EXPECT_EQ(bar_.log, Log{L"读取文件失败!"});
  expectNothingLeft();
}

TEST_F(AddSymbol, DrawingWithoutPictureIsDeletedAgain) {
  answer(RTNORM);
  host().fail(L"GetSldData");
  EXPECT_EQ(add(), RTERROR);
  EXPECT_EQ(test::takeTranscript(), L"\n生成Sld失败!");
  expectNothingLeft();
}

TEST_F(AddSymbol, SlideThatCantBeStoredLeavesAnItemWithoutImage) {
  answer(RTNORM);
  loaded();
  base::setSaveHook([](base::SaveStep) { return base::Status::failure("no space left"); });
  const int result = AddSymbolFromDrawing(library());
  base::setSaveHook(nullptr);
  EXPECT_EQ(result, RTNORM);
  EXPECT_EQ(bar_.labels(0).back(), L"仪表-4");
  EXPECT_EQ(bar_.image(0, 3), -1);
  EXPECT_TRUE(exists("fzgn0001/FG001004.dwg"));
  EXPECT_EQ(value(L"数据\\仪表\\数据\\仪表-4"), L"FG001004");
}

TEST_F(AddSymbol, SlideWithoutBytesLeavesAnItemWithoutImage) {
  answer(RTNORM);
  host().fail(L"slide bytes");
  EXPECT_EQ(add(), RTNORM);
  EXPECT_EQ(bar_.image(0, 3), -1);
  EXPECT_EQ(value(L"数据\\仪表\\索引"), L"仪表-1&仪表-2&仪表-3&仪表-4&");
}

TEST_F(AddSymbol, WithoutAnyFolderItRaisesAndWritesNothing) {
  std::filesystem::remove(file("zhlFzgn.qdp"));
  answer(RTNORM);
  loaded();
  test::expectInvalidArgument([&] { AddSymbolFromDrawing(library()); });
  EXPECT_EQ(host().drawings.back(), L"wblock SOURCE");
}

}  // namespace

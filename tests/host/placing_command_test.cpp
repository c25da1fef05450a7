// The placing command: its prompts, keywords, messages and ends.
#include "host/placing_command.h"

#include "host/host_fixture.h"
#include "module/tree_values.h"
#include "platform/framework_exceptions.h"
#include "support/raises.h"

namespace {

using test::Answer;
using test::host;
using test::takeTranscript;
using test::Thing;
using Texts = std::vector<std::wstring>;

const wchar_t* const kNoCircuit = L"\n没有绘制主回路,无法使用辅助功能。";
const wchar_t* const kPoint = L"[F N] \n请输入回路插入点<回车结束>: (blips)";
const wchar_t* const kFirst = L"[S F N] \n绘制回路S<回车返回>:";
const wchar_t* const kPick = L"5020=INSERT\n请选择要增加的图块<回车返回>:";
const wchar_t* const kNext = L"[S F N] \n连续绘制回路S<回车返回>:";

Answer point(double x, double y) { return {RTNORM, L"", {x, y}}; }
Answer key(const wchar_t* keyword) { return {RTNORM, keyword, {}}; }
Answer keyAtPoint(const wchar_t* keyword) { return {RTKWORD, keyword, {}}; }
Answer enterAtPoint() { return {RTNONE, L"", {}}; }
Answer enterAtKeyword() { return {RTNONE, L"", {}}; }
Answer cancel() { return {RTCAN, L"", {}}; }

class PlacingCommandTest : public test::HostFixture {
 protected:
  PlacingCommandTest() {
    std::filesystem::create_directories(install_.root() / "system");
    test::writeBytes(install_.root() / "system" / "Fah.dwg", "x");
    std::filesystem::create_directories(install_.symbols() / "Dqbl0001");
    test::writeBytes(install_.symbols() / "dwgdir.dab", "A01     0001");
    test::writeBytes(install_.symbols() / "Dqbl0001" / "Dqbl0001.idx", "A01 a b c 0 0 0 0 0");
    makeLibrary();
    send(AcRx::kInitAppMsg);
    host().printScale = 10;
    takeTranscript();
  }

  // Slot 0 a circuit, slot 1 free, slot 2 a bad row; a bar of two folders with a chosen symbol.
  void makeLibrary() {
    CQuillDpData tree;
    storeText(tree, L"ZHLSY", L"主回路&01\x03\x03主回路&03\x03");
    storeText(tree, L"ZHLSY\\长度", L"3");
    storeText(tree, L"ZHLLIB\\主回路&01", LR"(("01" "A01" "" 0 0 0 "&&&&"))");
    storeText(tree, L"ZHLLIB\\主回路&03", L"bad");
    tree.WriteDataToQdpFile(test::Install::wide(install_.library() / "zhllib.qdp").c_str());
    CQuillDpData bar;
    storeText(bar, L"索引", L"a&b&");
    storeText(bar, L"数据\\a\\类型", L"0");
    storeText(bar, L"数据\\b\\类型", L"0");
    storeText(bar, L"当前选择\\块名", L"aux.dwg");
    storeText(bar, L"当前选择\\类型", L"1");
    bar.WriteDataToQdpFile(test::Install::wide(install_.library() / "zhlFzgn.qdp").c_str());
  }

  int run(std::deque<Answer> answers) {
    host().answers = std::move(answers);
    const int result = PlacingCommand().run();
    EXPECT_EQ(host().undoDepth, 0);
    EXPECT_FALSE(host().blips);
    EXPECT_TRUE(host().everythingClosed());
    return result;
  }
  void select(int slot) { libraryWindow()->SelectSlot(slot); }
  std::size_t inserts(const wchar_t* what) const {
    std::size_t count = 0;
    for (const std::wstring& command : host().commands) {
      count += command.starts_with(L"insert ") && command.find(what) != command.npos ? 1 : 0;
    }
    return count;
  }
  // Where the symbol was inserted for the n-th time: "x,y".
  std::wstring insertedAt(const wchar_t* what, std::size_t n) const {
    for (const std::wstring& command : host().commands) {
      if (!command.starts_with(L"insert ") || command.find(what) == command.npos) continue;
      if (n-- > 0) continue;
      const std::size_t from = command.find(L".dwg ") + 5;
      return command.substr(from, command.find(L' ', from) - from);
    }
    return L"never";
  }
  Thing* marker() const {
    const auto found = host().present(L"POINT");
    return found.size() == 1 ? found.front() : nullptr;
  }
  // A marker in the drawing with this many empty slots.
  void putMarker(double x, double y, std::int16_t slots) {
    SetToCurrentLayer(L"SCHEMATIC", L"ELEMENT", nullptr, nullptr);
    Thing* point = host().addEntity(L"POINT");
    std::vector<test::Link> data = {{1001, std::wstring(L"ZHLKFZGN")}, {1070, slots}};
    for (int i = 0; i < slots; ++i) data.push_back({1000, std::wstring(L"空")});
    data.push_back({1011, AcGePoint3d{x, y, 0}});
    point->xdata[L"ZHLKFZGN"] = data;
  }
};

TEST_F(PlacingCommandTest, EnterAtTheFirstPromptEnds) {
  EXPECT_EQ(run({enterAtPoint()}), 1);
  EXPECT_EQ(host().prompts, Texts{kPoint});
  EXPECT_TRUE(host().commands.empty());
  EXPECT_EQ(std::get<std::int16_t>(host().variables[L"ATTREQ"]), 1);
}

TEST_F(PlacingCommandTest, CancelEndsAtEitherPrompt) {
  EXPECT_EQ(run({cancel()}), RTCAN);
  EXPECT_EQ(run({point(0, 0), cancel()}), RTCAN);
}

TEST_F(PlacingCommandTest, ShowsTheWindowAndNeverHidesIt) {
  run({enterAtPoint()});
  EXPECT_TRUE(libraryWindow()->IsVisible());
}

TEST_F(PlacingCommandTest, AttributeRequestsThatCannotBeReadOrSetAreTold) {
  host().fail(L"acedGetVar");
  host().fail(L"acedSetVar");
  EXPECT_EQ(run({enterAtPoint()}), 1);
  EXPECT_EQ(takeTranscript(), L"\n获取ATTREQ失败\n设置ATTREQ失败");
}

TEST_F(PlacingCommandTest, BadPrintScaleEnds) {
  host().printScale = -0.5;
  EXPECT_EQ(run({point(0, 0)}), RTERROR);
  host().printScale = 1;
  host().fail(L"acdbDisToF");
  EXPECT_EQ(run({point(0, 0)}), RTERROR);
  EXPECT_EQ(takeTranscript(), L"\tabScale数据无效.\tabScale数据无效.");
  EXPECT_TRUE(host().prompts.empty());
  // What comes before the scale is done all the same.
  EXPECT_TRUE(libraryWindow()->IsVisible());
  EXPECT_EQ(host().settings, (Texts{L"ATTREQ=1", L"ATTREQ=1"}));
}

TEST_F(PlacingCommandTest, CircuitsStandInAChainToTheRight) {
  EXPECT_EQ(run({point(5, 7), key(L"S"), key(L"s"), enterAtKeyword(), enterAtPoint()}), 1);
  EXPECT_EQ(inserts(L"A01"), 2u);
  EXPECT_EQ(insertedAt(L"A01", 0), L"5,7");
  EXPECT_EQ(insertedAt(L"A01", 1), L"1005,7");
  EXPECT_EQ(host().undoGroups, 2);
  EXPECT_EQ(host().prompts, (Texts{kPoint, kFirst, kNext, kNext, kPoint}));
}

TEST_F(PlacingCommandTest, CircuitMarkerAndTheirUndoGroupComeInOrder) {
  const std::wstring fah = test::Install::wide(install_.root()) + L"\\system\\Fah.dwg";
  const std::wstring a01 = test::Install::wide(install_.symbols()) + L"\\Dqbl0001\\A01.dwg";
  run({point(5, 7), key(L"S"), key(L"S"), cancel()});
  EXPECT_EQ(host().commands,
            (Texts{L"undo begin", L"insert " + fah + L" 5,7 (empty) (empty) (empty) 10",
                   L"insert " + a01 + L" 5,7 10 10 0", L"POINT 5,-1317.79", L"undo end",
                   L"undo begin", L"insert " + fah + L" 1005,7 (empty) (empty) (empty) 10",
                   L"insert " + a01 + L" 1005,7 10 10 0", L"ERASE (set) (empty)",
                   L"POINT 1005,-1317.79", L"undo end"}));
}

TEST_F(PlacingCommandTest, MarkerLiesBelowTheCircuitDrawnLast) {
  run({point(5, 7), key(L"S"), cancel()});
  ASSERT_NE(marker(), nullptr);
  EXPECT_NEAR(marker()->position.x, 5, 1e-9);
  EXPECT_NEAR(marker()->position.y, 7 - 1324.788, 1e-9);
  const auto& data = marker()->xdata[L"ZHLKFZGN"];
  EXPECT_EQ(data.at(1), (test::Link{1070, std::int16_t{2}}));  // a slot for each folder
}

TEST_F(PlacingCommandTest, NewPointStartsTheNextChain) {
  run({point(0, 0), key(L"S"), enterAtKeyword(), point(1, 1), enterAtKeyword(), enterAtPoint()});
  EXPECT_EQ(host().prompts, (Texts{kPoint, kFirst, kNext, kPoint, kFirst, kPoint}));
}

TEST_F(PlacingCommandTest, EmptyDrawingCountsAsNothingDrawn) {
  run({point(0, 0), cancel()});
  EXPECT_EQ(host().prompts.back(), kFirst);
}

TEST_F(PlacingCommandTest, ScaleOfZeroStaysWhereItIs) {
  host().printScale = 0;
  run({point(5, 7), key(L"S"), key(L"S"), cancel()});
  EXPECT_EQ(insertedAt(L"A01", 1), L"5,7");
  EXPECT_EQ(marker()->position.y, 7);
}

TEST_F(PlacingCommandTest, FreeSlotDrawsNothingAndRewritesTheMarker) {
  select(1);
  run({point(5, 7), key(L"S"), key(L"S"), cancel()});
  EXPECT_EQ(inserts(L"Fah"), 0u);
  ASSERT_NE(marker(), nullptr);
  EXPECT_NEAR(marker()->position.x, 5 - 1000, 1e-9);  // the point wasn't moved on
  const auto& data = marker()->xdata[L"ZHLKFZGN"];
  EXPECT_EQ(data.at(2), (test::Link{1000, std::wstring(L"空")}));
  EXPECT_EQ(data.at(3), (test::Link{1000, std::wstring(L"空")}));
  EXPECT_EQ(host().prompts.back(), kFirst);
}

TEST_F(PlacingCommandTest, SlotOutsideTheListIsFree) {
  select(99);
  run({point(5, 7), key(L"S"), cancel()});
  EXPECT_EQ(inserts(L"Fah"), 0u);
  EXPECT_NE(marker(), nullptr);
}

TEST_F(PlacingCommandTest, RowThatFailsStillMovesThePointOn) {
  select(2);
  run({point(5, 7), key(L"S"), cancel()});
  EXPECT_EQ(takeTranscript(), L"\n数据文件中该数据行无数据!");
  EXPECT_NEAR(marker()->position.x, 5, 1e-9);
  EXPECT_EQ(host().prompts.back(), kFirst);  // the chain has no circuit yet
}

TEST_F(PlacingCommandTest, AuxiliarySymbolStandsAtTheMarkerOfTheChain) {
  run({point(5, 7), key(L"S"), key(L"F"), cancel()});
  EXPECT_EQ(insertedAt(L"aux", 0), L"5,-1317.79");
  ASSERT_NE(marker(), nullptr);
  Thing* symbol = host().present(L"INSERT").back();
  wchar_t handle[AcDbHandle::kAsciiSize];
  AcDbHandle(symbol->handle).getIntoAsciiBuffer(handle);
  EXPECT_EQ(marker()->xdata[L"ZHLKFZGN"].at(3), (test::Link{1000, std::wstring(handle)}));
}

TEST_F(PlacingCommandTest, SecondSymbolOfAFolderReplacesTheFirst) {
  run({point(5, 7), key(L"S"), key(L"f"), key(L"F"), cancel()});
  std::size_t present = 0;
  for (const Thing* entity : host().present(L"INSERT")) present += entity->block->type == L"aux";
  EXPECT_EQ(present, 1u);
}

TEST_F(PlacingCommandTest, NextCircuitForgetsTheSymbols) {
  run({point(5, 7), key(L"S"), key(L"F"), key(L"S"), key(L"F"), cancel()});
  std::size_t present = 0;
  for (const Thing* entity : host().present(L"INSERT")) present += entity->block->type == L"aux";
  EXPECT_EQ(present, 2u);
}

TEST_F(PlacingCommandTest, SymbolWithoutCircuitOrMarkerIsRefusedWithinItsUndoGroup) {
  run({point(5, 7), key(L"F"), cancel()});
  EXPECT_EQ(takeTranscript(), kNoCircuit);
  EXPECT_EQ(host().commands, (Texts{L"undo begin", L"undo end"}));
}

TEST_F(PlacingCommandTest, SymbolGoesToTheMarkerOfAnEarlierRun) {
  putMarker(30, 40, 2);
  run({point(5, 7), key(L"F"), cancel()});
  EXPECT_EQ(insertedAt(L"aux", 0), L"30,40");
  EXPECT_EQ(marker()->position.x, 30);
  // The marker and symbol count as nothing drawn: both ids are taken anew.
  EXPECT_EQ(host().prompts.back(), kFirst);
}

TEST_F(PlacingCommandTest, SymbolAtAnEarlierMarkerIsNoCircuitOfTheChain) {
  putMarker(30, 40, 2);
  select(2);  // a row that draws nothing
  run({point(5, 7), key(L"F"), key(L"S"), cancel()});
  EXPECT_EQ(host().prompts, (Texts{kPoint, kFirst, kFirst, kFirst}));
}

TEST_F(PlacingCommandTest, MarkerAtTheOriginCountsOnlyWithSlots) {
  putMarker(0, 0, 0);
  run({point(5, 7), key(L"F"), cancel()});
  EXPECT_EQ(takeTranscript(), kNoCircuit);
  host().present(L"POINT").front()->erased = true;
  putMarker(0, 0, 1);
  run({point(5, 7), key(L"F"), cancel()});
  EXPECT_EQ(inserts(L"aux"), 1u);
  EXPECT_EQ(takeTranscript(), L"");
}

TEST_F(PlacingCommandTest, MarkerElsewhereCountsWithoutSlots) {
  putMarker(1, 0, 0);
  run({point(5, 7), key(L"F"), cancel()});
  EXPECT_EQ(inserts(L"aux"), 1u);
}

TEST_F(PlacingCommandTest, SymbolAtThePointPromptNeedsAMarker) {
  EXPECT_EQ(run({keyAtPoint(L"F"), enterAtPoint()}), 1);
  EXPECT_EQ(takeTranscript(), kNoCircuit);
  EXPECT_TRUE(host().commands.empty());
  putMarker(30, 40, 2);
  run({keyAtPoint(L"f"), enterAtPoint()});
  // The empty slot that was read back stood for the marker, which is gone with it.
  EXPECT_EQ(host().commands,
            (Texts{L"undo begin", L"insert aux.dwg 30,40 10 10 0", L"POINT 30,40", L"undo end"}));
}

TEST_F(PlacingCommandTest, OtherAnswersAtThePointPromptAskAgain) {
  EXPECT_EQ(run({keyAtPoint(L"X"), {RTERROR, L"", {}}, enterAtPoint()}), 1);
  EXPECT_EQ(host().prompts, (Texts{kPoint, kPoint, kPoint}));
}

TEST_F(PlacingCommandTest, OtherKeywordsStayAtTheKeywordPrompt) {
  run({point(0, 0), key(L"X"), key(L""), cancel()});
  EXPECT_EQ(host().prompts, (Texts{kPoint, kFirst, kFirst, kFirst}));
}

TEST_F(PlacingCommandTest, OddAnswerAtTheKeywordPromptGoesBackToThePoint) {
  run({point(0, 0), {RTERROR, L"", {}}, enterAtPoint()});
  EXPECT_EQ(host().prompts, (Texts{kPoint, kFirst, kPoint}));
}

TEST_F(PlacingCommandTest, KeywordNAsksForABlockAndStaysWithoutOne) {
  host().picks = {{RTERROR, nullptr, 52}, {RTERROR, nullptr, 52}, {RTERROR, nullptr, 52}};
  run({keyAtPoint(L"N"), keyAtPoint(L"n"), point(0, 0), key(L"n"), enterAtKeyword(),
       enterAtPoint()});
  EXPECT_EQ(host().prompts,
            (Texts{kPoint, kPick, kPoint, kPick, kPoint, kFirst, kPick, kFirst, kPoint}));
}

TEST_F(PlacingCommandTest, CancelledPickEndsTheCommand) {
  EXPECT_EQ(run({point(0, 0), key(L"N"), enterAtKeyword()}), RTCAN);
  EXPECT_EQ(host().prompts, (Texts{kPoint, kFirst, kPick}));
  EXPECT_EQ(run({keyAtPoint(L"N"), enterAtPoint()}), RTCAN);
  EXPECT_EQ(host().prompts, (Texts{kPoint, kFirst, kPick, kPoint, kPick}));
}

// A library window that shows nothing and takes no symbols.
class BareWindow : public LibraryWindow {
 public:
  ~BareWindow() override = default;
  CZhlkLibStore& Store() override { return store_; }
  int GetFolderCount() override { return 0; }
  bool IsVisible() const override { return true; }
  bool IsMinimised() const override { return false; }
  void ShowWindow(int) override {}
  void UpdateWindow() override {}
  bool DestroyWindow() override { return false; }
  void SelectSlot(int) override {}
  bool ChooseItem(int, int) override { return false; }

 private:
  CZhlkLibStore store_;
};

TEST_F(PlacingCommandTest, KeywordNReportsALibraryThatTakesNoSymbols) {
  LibraryWindow* const real = libraryWindow();
  BareWindow bare;
  setLibraryWindow(&bare);
  run({keyAtPoint(L"N"), enterAtPoint()});
  setLibraryWindow(real);
  EXPECT_EQ(host().prompts, (Texts{kPoint, kPoint}));
  EXPECT_EQ(takeTranscript(), L"\n尚不能从图中增加辅助图块.");
}

TEST_F(PlacingCommandTest, CommandRunsThroughTheLispFunction) {
  host().answers = {point(5, 7), key(L"S"), cancel()};
  EXPECT_EQ(call(3), L"void");
  EXPECT_EQ(inserts(L"A01"), 1u);
}

TEST_F(PlacingCommandTest, BadIndexLeavesNoUndoGroupOpen) {
  CZhlkLibStore& store = libraryWindow()->Store();
  store.InsertCircuit(3, L"row", L"x");
  store.Save();
  CQuillDpData tree;
  const std::wstring path = test::Install::wide(install_.library() / "zhllib.qdp");
  tree.ReadDataFromQdpFile(path.c_str());
  storeText(tree, L"ZHLSY\\长度", L"9");
  tree.WriteDataToQdpFile(path.c_str());
  send(AcRx::kUnloadAppMsg);
  send(AcRx::kInitAppMsg);
  select(8);
  host().answers = {point(0, 0), key(L"S")};
  test::expectRaised<CException>([] { PlacingCommand().run(); });
  EXPECT_EQ(host().undoDepth, 0);
}

}  // namespace

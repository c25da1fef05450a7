// The marker of auxiliary symbols, and placing them.
#include "engine/aux_marker.h"

#include "engine/engine_fixture.h"
#include "platform/quill_data.h"

namespace {

using test::host;
using test::Link;
using test::takeTranscript;
using test::Thing;

AcDbObjectId idOf(Thing* thing) { return AcDbObjectId(static_cast<AcDbStub*>(thing)); }

std::wstring handleOf(const Thing* thing) {
  wchar_t text[AcDbHandle::kAsciiSize];
  AcDbHandle(thing->handle).getIntoAsciiBuffer(text);
  return text;
}

class AuxMarker : public test::EngineFixture {
 protected:
  using Links = std::vector<Link>;

  Links markerData() { return host().present(L"POINT").at(0)->xdata[L"ZHLKFZGN"]; }

  Thing* makeMarker(const Links& links) {
    SetToCurrentLayer(L"SCHEMATIC", L"ELEMENT", nullptr, nullptr);
    Thing* marker = host().addEntity(L"POINT");
    marker->xdata[L"ZHLKFZGN"] = links;
    return marker;
  }

  // Reading must fail with this message and leave nothing.
  void expectUnreadable(const std::wstring& message) {
    AcGePoint2d point{1, 2};
    AcDbObjectIdArray slots(3);
    EXPECT_EQ(ReadAuxMarker(point, slots), RTERROR);
    EXPECT_EQ(point.x, 0);
    EXPECT_EQ(point.y, 0);
    EXPECT_TRUE(slots.empty());
    EXPECT_EQ(takeTranscript(), message);
  }

  static Link count(std::int16_t value) { return {1070, value}; }
  static Link text(const std::wstring& value) { return {1000, value}; }
  static Link at(double x, double y) { return {1011, AcGePoint3d{x, y, 0}}; }
  const Link name_{1001, std::wstring(L"ZHLKFZGN")};
};

TEST_F(AuxMarker, HoldsCountHandlesAndPosition) {
  Thing* symbol = host().addEntity(L"INSERT");
  EXPECT_EQ(WriteAuxMarker({10, -20}, {idOf(symbol), AcDbObjectId()}), RTNORM);
  EXPECT_EQ(markerData(),
            (Links{name_, count(2), text(handleOf(symbol)), text(L"空"), at(10, -20)}));
}

TEST_F(AuxMarker, ReadsBackWhatWasWritten) {
  Thing* first = host().addEntity(L"INSERT");
  Thing* second = host().addEntity(L"INSERT");
  WriteAuxMarker({10, -20}, {idOf(first), idOf(second)});
  AcGePoint2d point;
  AcDbObjectIdArray slots;
  EXPECT_EQ(ReadAuxMarker(point, slots), RTNORM);
  EXPECT_EQ(point.x, 10);
  EXPECT_EQ(point.y, -20);
  EXPECT_EQ(slots, (AcDbObjectIdArray{idOf(first), idOf(second)}));
}

TEST_F(AuxMarker, WritingErasesAllOthers) {
  makeMarker({name_, count(0), at(1, 1)});
  makeMarker({name_, count(0), at(2, 2)});
  WriteAuxMarker({3, 3}, {});
  EXPECT_EQ(host().commands, (std::vector<std::wstring>{L"ERASE (set) (empty)", L"POINT 3,3"}));
  EXPECT_EQ(host().present(L"POINT").size(), 1u);
  EXPECT_EQ(markerData(), (Links{name_, count(0), at(3, 3)}));
}

TEST_F(AuxMarker, OtherPointsStay) {
  SetToCurrentLayer(L"SCHEMATIC", L"ELEMENT", nullptr, nullptr);
  host().addEntity(L"POINT");
  WriteAuxMarker({3, 3}, {});
  EXPECT_EQ(host().present(L"POINT").size(), 2u);
}

TEST_F(AuxMarker, FirstOfSeveralMarkersIsRead) {
  makeMarker({name_, count(0), at(1, 1)});
  makeMarker({name_, count(0), at(2, 2)});
  AcGePoint2d point;
  AcDbObjectIdArray slots;
  EXPECT_EQ(ReadAuxMarker(point, slots), RTNORM);
  EXPECT_EQ(point.x, 1);
}

TEST_F(AuxMarker, StandsOnItsLayerWhateverLayerIsCurrent) {
  host().variables[L"CLAYER"] = std::wstring(L"0");
  WriteAuxMarker({1, 1}, {});
  EXPECT_EQ(host().present(L"POINT").at(0)->layer, L"SCHEMATIC-ELEMENT");
}

TEST_F(AuxMarker, ErasedSymbolBecomesAnEmptySlot) {
  Thing* symbol = host().addEntity(L"INSERT");
  symbol->erased = true;
  WriteAuxMarker({1, 1}, {idOf(symbol)});
  EXPECT_EQ(markerData().at(2), text(L"空"));
}

TEST_F(AuxMarker, SlotOfSomethingThatIsNoEntityIsEmpty) {
  EXPECT_EQ(WriteAuxMarker({1, 1}, {idOf(host().add(test::Kind::layer, L"A"))}), RTNORM);
  EXPECT_EQ(markerData().at(2), text(L"空"));
}

TEST_F(AuxMarker, EmptySlotReadsAsTheSlotBeforeAndFirstAsTheMarker) {
  Thing* symbol = host().addEntity(L"INSERT");
  Thing* marker =
      makeMarker({name_, count(3), text(L"空"), text(handleOf(symbol)), text(L"空"), at(1, 1)});
  AcGePoint2d point;
  AcDbObjectIdArray slots;
  EXPECT_EQ(ReadAuxMarker(point, slots), RTNORM);
  EXPECT_EQ(slots, (AcDbObjectIdArray{idOf(marker), idOf(symbol), idOf(symbol)}));
}

TEST_F(AuxMarker, WithoutAMarkerThereIsNoMessage) { expectUnreadable(L""); }

TEST_F(AuxMarker, UndoneMarkerIsGone) {
  makeMarker({name_, count(0), at(1, 1)})->erased = true;
  expectUnreadable(L"");
}

TEST_F(AuxMarker, PointOnAnotherLayerIsNoMarker) {
  Thing* stray = makeMarker({name_, count(0), at(1, 1)});
  stray->layer = L"0";
  expectUnreadable(L"");
  WriteAuxMarker({3, 3}, {});
  EXPECT_FALSE(stray->erased);
}

TEST_F(AuxMarker, SecondLinkMustBeTheCount) {
  Thing* marker = makeMarker({name_, text(L"0"), at(1, 1)});
  expectUnreadable(L"\n扩展实体数据不正确");
  marker->erased = true;
  makeMarker({name_, Link{1071, std::int16_t{1}}, text(L"空"), at(1, 1)});
  expectUnreadable(L"\n扩展实体数据不正确");
}

TEST_F(AuxMarker, ChainOfTheNameAloneIsWrong) {
  makeMarker({name_});
  expectUnreadable(L"\n扩展实体数据不正确");
}

TEST_F(AuxMarker, CountMustFitTheChain) {
  for (const int slots : {-1, 2, 32767}) {
    Thing* marker =
        makeMarker({name_, count(static_cast<std::int16_t>(slots)), text(L"空"), at(1, 1)});
    expectUnreadable(L"\n扩展实体数据不正确");
    marker->erased = true;
  }
}

TEST_F(AuxMarker, WrongLinksBehindTheCountAreNotNoticed) {
  makeMarker({name_, count(1), count(7), text(L"no point")});
  AcGePoint2d point{5, 5};
  AcDbObjectIdArray slots;
  EXPECT_EQ(ReadAuxMarker(point, slots), RTNORM);
  EXPECT_EQ(point.x, 0);
  EXPECT_EQ(slots.size(), 1u);
}

TEST_F(AuxMarker, ReadingFailsWithAMessageForEachService) {
  Thing* marker = makeMarker({name_, count(0), at(1, 1)});
  host().fail(L"acdbGetObjectId", 1);
  expectUnreadable(L"\n获取实体Id失败");
  host().fail(L"open for read", 1);
  expectUnreadable(L"\nOpen实体Id失败");
  host().fail(L"xData", 1);
  expectUnreadable(L"\n没有得到扩展实体数据");
  EXPECT_FALSE(marker->erased);
}

TEST_F(AuxMarker, WritingFailsWithAMessageForEachService) {
  host().fail(L"acdbEntLast", 1);
  EXPECT_EQ(WriteAuxMarker({1, 1}, {}), RTERROR);
  EXPECT_EQ(takeTranscript(), L"\n获取实体Id失败");
  host().fail(L"acdbGetObjectId", 1);
  EXPECT_EQ(WriteAuxMarker({1, 1}, {}), RTERROR);
  EXPECT_EQ(takeTranscript(), L"\n获取实体Id失败");
  host().fail(L"open for read", 1);
  EXPECT_EQ(WriteAuxMarker({1, 1}, {}), RTERROR);
  EXPECT_EQ(takeTranscript(), L"\nOpen实体Id失败");
}

TEST_F(AuxMarker, MarkerThatCannotBeUpgradedStaysWithoutData) {
  host().fail(L"upgradeOpen");
  EXPECT_EQ(WriteAuxMarker({1, 1}, {}), RTNORM);
  EXPECT_TRUE(host().present(L"POINT").at(0)->xdata.empty());
}

class AuxSymbol : public AuxMarker {
 protected:
  void choose(const std::wstring& path, const std::wstring& folder) {
    CQuillDpData store;
    const auto set = [&](const wchar_t* key, const std::wstring& text) {
      store.SetSubValueW(key, static_cast<std::int16_t>(text.size() + 1), text.c_str(), 0);
    };
    set(L"当前选择\\块名", path);
    set(L"当前选择\\类型", folder);
    store.WriteDataToQdpFile(test::Install::wide(install_.library() / "zhlFzgn.qdp").c_str());
  }
  // The drawing's block of that name, with one figure of a colour of its own.
  Thing* blockWithFigure(const wchar_t* name) {
    Thing* const block = host().blocks[name] = host().add(test::Kind::record, name);
    Thing* const figure = host().add(test::Kind::entity, L"LINE");
    figure->colour = 3;
    block->contents.push_back(figure);
    return figure;
  }
  int place(AcDbObjectIdArray& slots) {
    const ads_point point = {7, 8, 0};
    return PlaceAuxSymbol(point, 50, slots);
  }
};

TEST_F(AuxSymbol, IsInsertedAndRemembered) {
  choose(L"C:\\x\\FG001001.dwg", L"1");
  AcDbObjectIdArray slots(2);
  EXPECT_EQ(place(slots), 0);
  EXPECT_EQ(host().commands, std::vector<std::wstring>{L"insert C:\\x\\FG001001.dwg 7,8 50 50 0"});
  EXPECT_TRUE(slots[0].isNull());
  EXPECT_EQ(slots[1], idOf(host().lastEntity()));
  EXPECT_EQ(host().lastEntity()->layer, L"SCHEMATIC-ELEMENT");
}

TEST_F(AuxSymbol, FiguresOfItsBlockGoByBlock) {
  choose(L"a.dwg", L"0");
  const Thing* figure = blockWithFigure(L"a");
  AcDbObjectIdArray slots(1);
  EXPECT_EQ(place(slots), 0);
  EXPECT_EQ(figure->colour, 0);
}

TEST_F(AuxSymbol, SymbolThatCannotBeOpenedKeepsItsColoursAndIsRemembered) {
  choose(L"a.dwg", L"0");
  const Thing* figure = blockWithFigure(L"a");
  AcDbObjectIdArray slots(1);
  host().fail(L"open for write");
  EXPECT_EQ(place(slots), 0);
  EXPECT_EQ(takeTranscript(), L"");
  EXPECT_EQ(figure->colour, 3);
  EXPECT_EQ(slots[0], idOf(host().lastEntity()));
}

TEST_F(AuxSymbol, TakesThePlaceOfTheFoldersEarlierOne) {
  choose(L"a.dwg", L"0");
  Thing* earlier = host().addEntity(L"INSERT");
  AcDbObjectIdArray slots{idOf(earlier)};
  EXPECT_EQ(place(slots), 0);
  EXPECT_TRUE(earlier->erased);
  EXPECT_EQ(slots[0], idOf(host().lastEntity()));
}

TEST_F(AuxSymbol, EarlierOneThatIsGoneDoesNoHarm) {
  choose(L"a.dwg", L"0");
  Thing* earlier = host().addEntity(L"INSERT");
  earlier->erased = true;
  AcDbObjectIdArray slots{idOf(earlier)};
  EXPECT_EQ(place(slots), 0);
  EXPECT_EQ(slots[0], idOf(host().lastEntity()));
}

TEST_F(AuxSymbol, FolderWithoutSlotPlacesAllTheSame) {
  for (const wchar_t* folder : {L"2", L"-1"}) {
    choose(L"a.dwg", folder);
    AcDbObjectIdArray slots(2);
    EXPECT_EQ(place(slots), 0);
    EXPECT_EQ(slots, AcDbObjectIdArray(2));
  }
  EXPECT_EQ(host().present(L"INSERT").size(), 2u);
}

TEST_F(AuxSymbol, NothingChosenDoesNothing) {
  AcDbObjectIdArray slots(2);
  EXPECT_EQ(place(slots), 0);
  choose(L"", L"0");
  EXPECT_EQ(place(slots), 0);
  EXPECT_TRUE(host().commands.empty());
}

TEST_F(AuxSymbol, MissingFolderCountsAsTheFirst) {
  choose(L"a.dwg", L"");
  AcDbObjectIdArray slots(1);
  EXPECT_EQ(place(slots), 0);
  EXPECT_FALSE(slots[0].isNull());
}

TEST_F(AuxSymbol, NewSymbolThatCannotBeHad) {
  choose(L"a.dwg", L"0");
  AcDbObjectIdArray slots(1);
  host().fail(L"acdbEntLast", 1);
  EXPECT_EQ(place(slots), RTERROR);
  EXPECT_EQ(takeTranscript(), L"\n获取实体Id失败");
  host().fail(L"acdbGetObjectId", 1);
  EXPECT_EQ(place(slots), RTERROR);
  EXPECT_EQ(takeTranscript(), L"\n获取实体Id失败");
  EXPECT_TRUE(slots[0].isNull());
}

TEST_F(AuxSymbol, EmptySlotReadBackMakesTheMarkerGoAndAnotherCome) {
  choose(L"a.dwg", L"0");
  WriteAuxMarker({1, 1}, {AcDbObjectId()});
  Thing* first = host().present(L"POINT").at(0);
  AcGePoint2d point;
  AcDbObjectIdArray slots;
  ReadAuxMarker(point, slots);
  place(slots);
  EXPECT_TRUE(first->erased);
  WriteAuxMarker(point, slots);
  EXPECT_EQ(host().present(L"POINT").size(), 1u);
}

}  // namespace

// Slides of circuits: from the row, and from the tree.
#include "embedded/drafting/host/host_state.h"
#include "store/capture_fixture.h"

namespace {

using test::Messages;
using Capture = test::CaptureFixture;

const std::wstring kWireRow = LR"(("05" "F002" "" 0 0 0 "&&&&"))";

TEST_F(Capture, SlideIsThreeByEight) {
  record_->CaptureRow(kWireRow, L"主回路&05");
  const auto header = slide_store::readSlideHeader(slide());
  ASSERT_TRUE(header.ok()) << header.message();
  EXPECT_EQ(header->level, 2);
  EXPECT_EQ(header->highX, 239);
  EXPECT_EQ(header->highY, 639);
  EXPECT_EQ(messages_, Messages());
  EXPECT_EQ(cursor_, "BR");
}

// The extents, which are the frame's, fill 0.95 of the width and stand in the middle.
TEST_F(Capture, FrameFillsThePicture) {
  const std::string listing = drawn(kWireRow);
  EXPECT_TRUE(holds(listing, 3, 6, 622, 233, 622)) << listing;
  EXPECT_TRUE(holds(listing, 3, 6, 17, 233, 17)) << listing;
  EXPECT_TRUE(holds(listing, 3, 6, 17, 6, 622)) << listing;
}

TEST_F(Capture, EmptyCellIsAStrokeOfWire) {
  const std::string listing = drawn(kWireRow);
  EXPECT_TRUE(holds(listing, 3, 120, 598, 120, 562)) << listing;  // from y 0.5 to -8
}

TEST_F(Capture, SymbolsStandAtTheirInsertionPoints) {
  const std::string listing = drawn(LR"(("05" "A01" "x" 6.25 -40 0 "&&&&"))");
  EXPECT_TRUE(holds(listing, 3, 147, 423, 147, 389)) << listing;
}

TEST_F(Capture, SymbolsBasePointGoesToTheInsertionPoint) {
  const auto moved = samples::makeFigureDrawing({{'L', {10, 20, 10, 12}, ""}});
  moved->setVariable("INSBASE", drafting::Point3{10, 20, 0});
  const std::string row = drawn(LR"(("05" "A01" "" 6.25 -40 0 "&&&&"))");
  save(*moved, symbolPath("A01"));
  EXPECT_EQ(drawn(LR"(("05" "A01" "" 6.25 -40 0 "&&&&"))"), row);
}

TEST_F(Capture, BlocksAngleDoesNotShow) {
  const std::string upright = drawn(LR"(("05" "A01" "" 0 -40 0 "&&&&"))");
  EXPECT_EQ(drawn(LR"(("05" "A01" "" 0 -40 90 "&&&&"))"), upright);
}

TEST_F(Capture, LinesAreGreen) {
  const std::string listing = drawn(LR"(("05" "A01" "" 0 0 0 "&&&&" -6.25 -58 6.25 -60))");
  EXPECT_TRUE(holds(listing, 3, 92, 345, 147, 337)) << listing;
}

TEST_F(Capture, TextsHaveTheirColourAndTurnWithTheirAngle) {
  const std::string without = drawn(kWireRow);
  const std::string level = drawn(LR"(("05" "F002" "" 0 0 0 "&&&&" "TEXT" "I" 2 5 0 -60 0))");
  const std::string upright = drawn(LR"(("05" "F002" "" 0 0 0 "&&&&" "TEXT" "I" 2 5 0 -60 90))");
  EXPECT_GT(vectors(level), vectors(without));
  EXPECT_NE(level.find("2 line"), std::string::npos) << level;
  EXPECT_NE(level, upright);
}

TEST_F(Capture, ChineseTextsAreDrawn) {
  const std::string listing =
      drawn(LR"(("05" "F002" "" 0 0 0 "&&&&" "TEXT" "备用" 4 3 4 -125.5 0))");
  EXPECT_GT(vectors(listing), vectors(drawn(kWireRow)) + 10) << listing;
  EXPECT_NE(listing.find("4 line"), std::string::npos) << listing;
}

TEST_F(Capture, RowThatEndsInsideATextIsDrawnAllTheSame) {
  EXPECT_FALSE(drawn(LR"(("05" "F002" "" 0 0 0 "&&&&" 0 0 0 1 "TEXT" "QF1" 2))").empty());
  EXPECT_EQ(messages_, Messages());
}

TEST_F(Capture, ColourThatThereIsNotIsTheLayers) {
  const std::string listing = drawn(LR"(("05" "F002" "" 0 0 0 "&&&&" "TEXT" "I" 999 5 0 -60 0))");
  EXPECT_NE(listing.find("7 line"), std::string::npos) << listing;
}

// The number stands 4 to the right of and 10 below the upper left corner of all the rest, and is
// the one thing in colour 7 (its layer's).
TEST_F(Capture, NumberStandsInTheUpperLeftCorner) {
  const auto numberOf = [this](const wchar_t* row) {
    std::string lines;
    std::string listing = drawn(row);
    for (std::size_t at = 0; at < listing.size();) {
      const std::size_t end = listing.find('\n', at) + 1;
      if (listing[at] == '7') lines += listing.substr(at, end - at);
      at = end;
    }
    return lines;
  };
  const std::string five = numberOf(LR"(("05" "F002" "" 0 0 0 "&&&&"))");
  const std::string seven = numberOf(LR"(("7" "F002" "" 0 0 0 "&&&&"))");
  EXPECT_FALSE(five.empty());
  EXPECT_FALSE(seven.empty());
  EXPECT_NE(five, seven);
  for (const std::string& number : {five, seven}) {
    // The label's box begins at (-22.25, -4): dots 23, 579.
    for (std::size_t at = number.find(' ', 2); at != std::string::npos;
         at = number.find(' ', at + 1)) {
      int x = 0;
      int y = 0;
      if (std::sscanf(number.c_str() + at, " %d,%d", &x, &y) != 2) continue;
      EXPECT_GE(x, 23);
      EXPECT_LE(x, 80);
      EXPECT_GE(y, 578);
      EXPECT_LE(y, 602);
    }
  }
}

TEST_F(Capture, RowsCaptureLeavesTheRecordsOwnCircuitAlone) {
  record_->row = L"row";
  record_->name = L"name";
  record_->number = L"17";
  drawn(kWireRow);
  EXPECT_EQ(record_->row.wide(), L"row");
  EXPECT_EQ(record_->name.wide(), L"name");
  EXPECT_EQ(record_->number.wide(), L"17");
  EXPECT_EQ(record_->GetBlockCount(), 0);
}

TEST_F(Capture, TreesSlideIsTheOneOfItsRow) {
  const std::wstring row =
      LR"(("05" "A01" "x" 0 0 0 "B12" "" 6.25 -40 0 "&&&&" 0 -8 6.25 -40 "TEXT" "QF1" 2 3 5 -6 0))";
  record_->Load(row, L"主回路&05");
  record_->CaptureTree();
  const std::string ofTree = test::listed(slide());
  EXPECT_EQ(record_->row.wide().substr(0, 21), LR"(("05" "A01" "x" 0.000)");
  record_->slide.clear();
  EXPECT_EQ(drawn(row), ofTree);
  EXPECT_EQ(cursor_, "BRBR");
}

TEST_F(Capture, TreesNumberIsTheRecords) {
  record_->Load(kWireRow + L" ", L"主回路&05");
  record_->number = L"";
  record_->CaptureTree();
  EXPECT_EQ(test::listed(slide()).find("7 line"), std::string::npos);
}

TEST_F(Capture, UnknownSymbolIsAStrokeAndKeepsItsName) {
  record_->Load(LR"(("05" "C99" "" 0 0 0 "&&&&" 0 -8 0 -9))", L"主回路&05");
  record_->CaptureTree();
  EXPECT_EQ(messages_, Messages());
  EXPECT_TRUE(holds(test::listed(slide()), 3, 120, 598, 120, 562));
  EXPECT_NE(record_->row.wide().find(L"\"C99\""), std::wstring::npos);
}

// The empty cell's own drawing isn't looked at; another spelling of its name finds a drawing.
TEST_F(Capture, EmptyCellComparesExactly) {
  drawn(LR"(("05" "f002" "" 0 0 0 "&&&&"))");
  EXPECT_EQ(messages_, Messages{L"\n读取文件失败!"});
}

TEST_F(Capture, WithoutASymbolLibraryEverySymbolIsAStroke) {
  std::filesystem::remove(install_.symbols() / "dwgdir.dab");
  record_.emplace();
  EXPECT_TRUE(holds(drawn(LR"(("05" "A01" "" 0 0 0 "&&&&"))"), 3, 120, 598, 120, 562));
}

// --- what goes wrong

TEST_F(Capture, RowThatCannotBeReadGivesItsMessage) {
  const struct {
    const wchar_t* row;
    const wchar_t* message;
  } cases[] = {
      {L"", L"\n 行内容错误!"},
      {L"(\"05\"", L"\n 行内容错误!"},
      {LR"(("05" "&&&&"))", L"\n数据文件中该数据行无数据!"},
      {LR"(("05" "A01" "" 0 0 0))", L"\n数据文件中该数据行无数据!"},
      {LR"(("05" "A01" "" 0 0 "&&&&"))", L"\n数据格式错误2"},
  };
  for (const auto& one : cases) {
    messages_.clear();
    cursor_.clear();
    record_->CaptureRow(one.row, L"主回路&05");
    EXPECT_EQ(messages_, Messages{one.message});
    EXPECT_EQ(cursor_, "BR");
    EXPECT_TRUE(record_->slide.empty());
  }
}

TEST_F(Capture, TreeWithoutLinesChangesTheRowAndHasNoSlide) {
  record_->number = L"05";
  record_->tree.SetSubValueW(L"块", 2, L"1", 0);
  record_->CaptureTree();
  EXPECT_EQ(messages_, Messages{L"\n数据文件中该数据行无数据!"});
  EXPECT_EQ(record_->row.wide(), LR"(("05" "F002" "" 0 0 0))");
  EXPECT_TRUE(record_->slide.empty());
}

TEST_F(Capture, MissingSymbolDrawing) {
  std::filesystem::remove(symbolPath("A01"));
  drawn(LR"(("05" "A01" "" 0 0 0 "&&&&"))");
  EXPECT_EQ(messages_, Messages{L"\n读取文件失败!"});
  EXPECT_TRUE(record_->slide.empty());
}

TEST_F(Capture, MissingFrame) {
  std::filesystem::remove(framePath());
  drawn(kWireRow);
  EXPECT_EQ(messages_, Messages{L"读取文件失败!"});
  EXPECT_TRUE(record_->slide.empty());
}

// A row of a symbol, an empty cell, a line and a text; each service fails at each of its calls.
TEST_F(Capture, EveryHostServiceMayFail) {
  const std::wstring row =
      LR"(("05" "A01" "" 0 0 0 "F002" "" 0 -10 0 "&&&&" 0 -8 0 -9 "TEXT" "Q" 2 3 5 -6 0))";
  const struct {
    const char* service;
    int call;
    const wchar_t* message;
  } cases[] = {
      {"readDwgFile", 1, L"\n读取文件失败!"},   // the symbol
      {"readDwgFile", 2, L"读取文件失败!"},     // the frame
      {"insert", 1, L"\n插入失败!"},            // the symbol
      {"insert", 2, L"\n插入失败!"},            // the frame
      {"getSymbolTable", 1, L"打开块表失败!"},  // the empty cell
      {"getSymbolTable", 2, L"打开块表失败!"},  // the line
      {"getSymbolTable", 3, L"打开块表失败!"},  // the text
      {"getSymbolTable", 4, L"打开块表失败!"},  // the number
      {"getAt", 1, L"打开块表记录失败!"},      {"getAt", 2, L"打开块表记录失败!"},
      {"getAt", 3, L"打开块表记录失败1"},      {"getAt", 4, L"打开块表记录失败!"},
  };
  for (const auto& one : cases) {
    messages_.clear();
    cursor_.clear();
    session_.faults.clear();
    session_.faults.failAt(one.service, one.call);
    record_->CaptureRow(row, L"主回路&05");
    EXPECT_EQ(messages_, Messages{one.message}) << one.service << " " << one.call;
    EXPECT_EQ(cursor_, "BR");
    EXPECT_TRUE(record_->slide.empty());
  }
}

// The result isn't asked for: the record holds whatever there is.
TEST_F(Capture, PictureThatCannotBeMadeLeavesNoSlideAndNoMessageBox) {
  record_->slide = {1, 2, 3};
  session_.faults.failAt("GetSldData", 1);
  record_->CaptureRow(kWireRow, L"主回路&05");
  EXPECT_EQ(messages_, Messages());
  EXPECT_TRUE(record_->slide.empty());
}

TEST_F(Capture, FailedCaptureKeepsTheSlideBefore) {
  drawn(kWireRow);
  const std::string before = slide();
  record_->CaptureRow(L"bad", L"主回路&05");
  EXPECT_EQ(slide(), before);
}

TEST_F(Capture, DrawingOfTheDocumentIsNotTouched) {
  const auto next = session_.database().nextHandle();
  drawn(kWireRow);
  EXPECT_EQ(session_.database().nextHandle(), next);
}

}  // namespace

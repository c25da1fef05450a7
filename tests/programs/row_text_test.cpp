// Rows as text: tokens, what their form forbids, models put in; and directory files.
#include "programs/vornik/row_text.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "programs/vornik/library_check.h"

namespace vornik {
namespace {

const std::wstring kRow =
    LR"(("05" "A01" "x y" -6.25 0 0 "B12" "" 0 -17.5 90 "&&&&" 0 -8 0 -10 "TEXT" "QF1" 2 3 5 -6 0))";

std::vector<std::wstring> textsOf(const std::vector<RowToken>& tokens) {
  std::vector<std::wstring> out(tokens.size());
  std::transform(tokens.begin(), tokens.end(), out.begin(),
                 [](const RowToken& token) { return token.text; });
  return out;
}
using Texts = std::vector<std::wstring>;

std::vector<std::string> problems(std::wstring_view row) {
  std::vector<std::string> out;
  for (const RowProblem& problem : problemsOfForm(row)) {
    out.push_back(std::to_string(problem.column) + " " + problem.what);
  }
  return out;
}
using Lines = std::vector<std::string>;

std::vector<std::string> findings(std::wstring_view row, const std::string& circuit = "主回路&05") {
  std::vector<std::string> out;
  for (const Finding& finding : checkRow(circuit, row)) out.push_back(textOf(finding));
  return out;
}

TEST(RowTokens, KnowTheirPartAndPlace) {
  const RowTokens tokens = tokensOf(kRow);
  EXPECT_EQ(textsOf(tokens.number), Texts{L"\"05\""});
  EXPECT_EQ(tokens.blocks.size(), 10u);
  EXPECT_EQ(tokens.blocks[1].text, L"\"x y\"");
  EXPECT_EQ(tokens.blocks[1].value(), L"x y");
  EXPECT_EQ(kRow.substr(tokens.blocks[1].at, 5), L"\"x y\"");
  EXPECT_EQ(textsOf(tokens.lines), (Texts{L"0", L"-8", L"0", L"-10"}));
  EXPECT_EQ(textsOf(tokens.texts), (Texts{L"\"QF1\"", L"2", L"3", L"5", L"-6", L"0"}));
}

TEST(RowTokens, OfNothingAreNone) {
  for (const wchar_t* row : {L"", L"(", L")", L"   ", L"()"}) {
    EXPECT_TRUE(tokensOf(row).number.empty());
  }
}

TEST(RowForm, GoodRowHasNoProblem) { EXPECT_EQ(problems(kRow), Lines()); }

TEST(RowForm, ProblemsNameTheirColumn) {
  EXPECT_EQ(problems(LR"(("05" "A01" "" 0 x 0 "&&&&" 0 0 1 1))"), (Lines{"18 x is no number"}));
  EXPECT_EQ(problems(LR"(("05" A01 "" 0 0 0 "&&&&" 0 0 1 1))"),
            (Lines{"7 A01 has no quotes around it"}));
  EXPECT_EQ(problems(LR"(("05" "A01" "" 0 0 "&&&&" 0 0 1))"),
            (Lines{"7 a block of 4 fields for 5", "27 a line of 3 fields for 4"}));
  EXPECT_EQ(problems(LR"(("05" "A01" "" 0 0 0 "&&&&" 0 0 1 1 "TEXT" "a b" 1 2 3 4 5))"),
            (Lines{"44 the text a b has a blank, at which it is cut"}));
  EXPECT_EQ(problems(LR"(("05" "A01" "TEXT" 0 0 0 "&&&&" 0 0 1 1))"),
            (Lines{"13 the model TEXT holds TEXT, which marks a part of the row"}));
  EXPECT_EQ(problems(LR"-(("05" "A01" "(3P)" 0 0 0 "&&&&" 0 0 1 1))-"),
            (Lines{"13 the model (3P) has a closing parenthesis, which hides the row's texts"}));
}

TEST(RowModels, SomeCannotStandInARow) {
  for (const wchar_t* model : {L"a\"b", L"a)", L"a\tb", L"x&&&&", L"TEXT", L" a", L"a "}) {
    EXPECT_FALSE(problemOfModel(model).empty());
  }
  for (const wchar_t* model : {L"", L"CM1-100/3300 63A", L"塑壳(", L"&&&"}) {
    EXPECT_EQ(problemOfModel(model), "");
  }
}

TEST(RowModels, ReplacingOneLeavesTheRestUntouched) {
  EXPECT_EQ(withModel(LR"(("05"  "A01" "x y"  1.0 0 0 "&&&&"))", 0, L"63A"),
            LR"(("05"  "A01" "63A"  1.0 0 0 "&&&&"))");
  EXPECT_EQ(withModel(kRow, 2, L"63A"), std::nullopt);
  EXPECT_EQ(withModel(L"", 0, L"63A"), std::nullopt);
}

TEST(RowCells, GoByPlaceInTheRowOrOnTheLattice) {
  EXPECT_EQ(blockAt(kRow, "1"), 0u);
  EXPECT_EQ(blockAt(kRow, "2"), 1u);
  EXPECT_EQ(blockAt(kRow, "L1"), 0u);
  EXPECT_EQ(blockAt(kRow, "C3"), 1u);
  for (const char* cell : {"", "0", "3", "C1", "R3", "C0", "C15", "X1", "C", "1x", "-1", "01"}) {
    EXPECT_EQ(blockAt(kRow, cell), std::nullopt) << cell;
  }
}

TEST(RowCheck, GoodRowIsGood) { EXPECT_EQ(findings(kRow), Lines()); }

TEST(RowCheck, BothReadersAreAsked) {
  EXPECT_EQ(findings(LR"(("05" "&&&&" 0 0 1 1))"),
            (Lines{"Datcom/zhllib/zhllib.qdp: 主回路&05: column 1: placing can't read the row: "
                   "数据文件中该数据行无数据!",
                   "Datcom/zhllib/zhllib.qdp: 主回路&05: column 1: the library can't read the row: "
                   "数据文件中该数据行无数据!"}));
}

TEST(RowCheck, ModelsOnEmptyCellsAndBlocksInOnePlaceAreTold) {
  EXPECT_EQ(findings(LR"(("05" "F002" "63A" 0 0 0 "A01" "" 0 0 0 "&&&&" 0 0 1 1))"),
            (Lines{"Datcom/zhllib/zhllib.qdp: 主回路&05: column 14: the empty cell F002 has the "
                   "model 63A",
                   "Datcom/zhllib/zhllib.qdp: 主回路&05: column 26: A01 stands where the block of "
                   "column 7 does"}));
}

TEST(RowCheck, NumberIsTheCircuits) {
  EXPECT_EQ(findings(kRow, "主回路&07"),
            (Lines{"Datcom/zhllib/zhllib.qdp: 主回路&07: column 3: the row's number is 05"}));
  EXPECT_EQ(findings(kRow, "空"), Lines());
}

TEST(DirectoryCheck, NamesRecordedTwiceAndPartsOfRecordsAreTold) {
  const auto told = [](std::string_view bytes) {
    std::vector<std::string> out;
    for (const Finding& finding : checkDirectory("d.dab", bytes)) out.push_back(textOf(finding));
    return out;
  };
  EXPECT_EQ(told("A01     0001B12     0001"), Lines());
  EXPECT_EQ(told("A01     0001a01     0002B1"),
            (Lines{"d.dab: a01: is recorded twice; the first record counts",
                   "d.dab: ends inside a record"}));
}

}  // namespace
}  // namespace vornik

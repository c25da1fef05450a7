// A data row as text: its tokens with their places, what in it no reader would take as it is meant,
// and models put into it. Blanks inside quotes belong to a token, as they do for the readers.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vornik {

struct RowToken {
  std::size_t at = 0;  // of its first character in the row
  std::wstring text;   // with its quotes
  bool isQuoted() const { return text.size() >= 2 && text.front() == L'"' && text.back() == L'"'; }
  // Without quotes.
  std::wstring value() const { return isQuoted() ? text.substr(1, text.size() - 2) : text; }
};

// Fields of a block: name, model, x, y, angle.
inline constexpr std::size_t kBlockFields = 5;

// The parts of a row, by tokens: number, blocks, lines (fours), texts (sixes).
struct RowTokens {
  std::vector<RowToken> number, blocks, lines, texts;
};
RowTokens tokensOf(std::wstring_view row);

// What is wrong at a place of a row. Columns count characters from 1.
struct RowProblem {
  std::size_t column = 1;
  std::string what;
};

// What the form of a row forbids: parts that are cut short, what is no number where one must be,
// texts and models that the readers would take apart.
std::vector<RowProblem> problemsOfForm(std::wstring_view row);

// Why a model can't stand in a row; empty when it can.
std::string problemOfModel(std::wstring_view model);

// The row with the model of its n-th block (from 0) replaced, all else untouched; nothing when
// there is no such block.
std::optional<std::wstring> withModel(std::wstring_view row, std::size_t block,
                                      std::wstring_view model);

// The block that a cell names: "7", its place in the row from 1, or "C3", column L, C or R and line
// of the lattice. Nothing when none stands there.
std::optional<std::size_t> blockAt(std::wstring_view row, std::string_view cell);

}  // namespace vornik

#include "programs/vornik/row_text.h"

#include <array>
#include <cmath>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"

namespace vornik {
namespace {

constexpr std::size_t kLineFields = 4, kTextFields = 6;
constexpr const wchar_t* kLinesMark = L"\"&&&&\"";
constexpr const wchar_t* kTextsMark = L"\"TEXT\"";

// Of the lattice on which the editor sets symbols.
constexpr std::array<double, 14> kLatticeY = {0,   -10,   -17.5, -25, -32.5, -42.5, -50,
                                              -60, -67.5, -77.5, -85, -92.5, -100,  -120.28};
constexpr double kLatticeX = 6.25;
constexpr double kNear = 0.01;

bool isNumber(std::wstring_view text) {
  const std::string ascii = base::utf8FromWide(std::wstring(text));
  const auto number = base::parseDouble(ascii);
  return number.length > 0 && number.length == ascii.size() && std::isfinite(number.value);
}

std::string shown(const std::wstring& text) { return base::utf8FromWide(text); }

// Tokens between blanks outside of quotes, up to the row's closing parenthesis.
std::vector<RowToken> split(std::wstring_view row) {
  std::vector<RowToken> tokens;
  bool quoted = false;
  RowToken token;
  const auto close = [&] {
    if (!token.text.empty()) tokens.push_back(token);
    token.text.clear();
  };
  std::size_t i = !row.empty() && row.front() == L'(' ? 1 : 0;
  for (; i < row.size(); ++i) {
    const wchar_t c = row[i];
    if (!quoted && c == L')') break;
    if (c == L'"') quoted = !quoted;
    if (c == L' ' && !quoted) {
      close();
      continue;
    }
    if (token.text.empty()) token.at = i;
    token.text += c;
  }
  close();
  return tokens;
}

class FormCheck {
 public:
  std::vector<RowProblem> run(std::wstring_view row) {
    const RowTokens tokens = tokensOf(row);
    checkBlocks(tokens.blocks);
    checkWhole(tokens.lines, kLineFields, "line");
    for (const RowToken& token : tokens.lines) checkNumber(token);
    checkTexts(tokens.texts);
    return std::move(problems_);
  }

 private:
  void add(const RowToken& token, const std::string& what) {
    problems_.push_back({token.at + 1, what});
  }
  void checkNumber(const RowToken& token) {
    if (!isNumber(token.text)) add(token, shown(token.text) + " is no number");
  }
  void checkWhole(const std::vector<RowToken>& tokens, std::size_t fields, const char* kind) {
    const std::size_t extra = tokens.size() % fields;
    if (extra == 0) return;
    add(tokens[tokens.size() - extra], std::string("a ") + kind + " of " + std::to_string(extra) +
                                           " fields for " + std::to_string(fields));
  }

  void checkBlocks(const std::vector<RowToken>& blocks) {
    checkWhole(blocks, kBlockFields, "block");
    for (std::size_t i = 0; i < blocks.size(); ++i) {
      const RowToken& token = blocks[i];
      if (i % kBlockFields > 1) {
        checkNumber(token);
      } else if (!token.isQuoted()) {
        add(token, shown(token.text) + " has no quotes around it");
      } else if (i % kBlockFields == 1) {
        const std::string problem = problemOfModel(token.value());
        if (!problem.empty()) add(token, "the model " + shown(token.value()) + " " + problem);
      }
    }
  }

  void checkTexts(const std::vector<RowToken>& texts) {
    checkWhole(texts, kTextFields, "text");
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const RowToken& token = texts[i];
      if (i % kTextFields > 0) {
        checkNumber(token);
      } else if (!token.isQuoted()) {
        add(token, shown(token.text) + " has no quotes around it");
      } else if (token.text.find(L' ') != std::wstring::npos) {
        add(token, "the text " + shown(token.value()) + " has a blank, at which it is cut");
      }
    }
  }

  std::vector<RowProblem> problems_;
};

}  // namespace

RowTokens tokensOf(std::wstring_view row) {
  RowTokens out;
  std::vector<RowToken>* part = &out.number;
  for (RowToken& token : split(row)) {
    if (token.text == kLinesMark) {
      part = &out.lines;
    } else if (token.text == kTextsMark && part == &out.lines) {
      part = &out.texts;
    } else {
      part->push_back(std::move(token));
      if (part == &out.number) part = &out.blocks;
    }
  }
  return out;
}

std::vector<RowProblem> problemsOfForm(std::wstring_view row) { return FormCheck().run(row); }

std::string problemOfModel(std::wstring_view model) {
  for (const wchar_t c : model) {
    if (c == L'"') return "has a quote";
    if (c == L')') return "has a closing parenthesis, which hides the row's texts";
    if (c < L' ') return "has a control character";
  }
  for (const wchar_t* mark : {L"&&&&", L"TEXT"}) {
    if (model.find(mark) != std::wstring_view::npos) {
      return "holds " + shown(mark) + ", which marks a part of the row";
    }
  }
  return base::trim(model) == model ? "" : "has blanks at its ends";
}

std::optional<std::wstring> withModel(std::wstring_view row, std::size_t block,
                                      std::wstring_view model) {
  const RowTokens tokens = tokensOf(row);
  const std::size_t field = block * kBlockFields + 1;
  if (field >= tokens.blocks.size()) return std::nullopt;
  const RowToken& token = tokens.blocks[field];
  std::wstring out(row);
  return out.replace(token.at, token.text.size(), L"\"" + std::wstring(model) + L"\"");
}

std::optional<std::size_t> blockAt(std::wstring_view row, std::string_view cell) {
  const std::vector<RowToken> blocks = tokensOf(row).blocks;
  const std::size_t count = blocks.size() / kBlockFields;
  const std::size_t column = std::string_view("LCR").find(cell.empty() ? ' ' : cell.front());
  const bool isLattice = column != std::string_view::npos;
  const std::string digits(isLattice ? cell.substr(1) : cell);
  const auto number = static_cast<std::size_t>(std::max(0, base::atoi(digits)));
  if (number == 0 || std::to_string(number) != digits) return std::nullopt;
  if (!isLattice) return number <= count ? std::optional(number - 1) : std::nullopt;
  if (number > kLatticeY.size()) return std::nullopt;
  const double x = (static_cast<double>(column) - 1) * kLatticeX;
  for (std::size_t block = 0; block < count; ++block) {
    const auto at = [&](std::size_t field) {
      return base::parseDouble(shown(blocks[block * kBlockFields + field].text)).value;
    };
    if (std::abs(at(2) - x) < kNear && std::abs(at(3) - kLatticeY[number - 1]) < kNear) {
      return block;
    }
  }
  return std::nullopt;
}

}  // namespace vornik

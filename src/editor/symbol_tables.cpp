// Reads the tables line by line, as formatted input does: words up to white space, decimal numbers.
#include "editor/symbol_tables.h"

#include <algorithm>
#include <utility>

#include "platform/framework_exceptions.h"
#include "platform/framework_files.h"
#include "platform/framework_runtime.h"

namespace {

constexpr const wchar_t* kWhiteSpace = L" \t\r\n\v\f";
constexpr const wchar_t* kDigits = L"0123456789";

class LineFields {
 public:
  explicit LineFields(const std::wstring& line) : line_(line) {}

  bool word(std::wstring& out) {
    if (!skipWhiteSpace()) return false;
    out = take(std::min(line_.find_first_of(kWhiteSpace, at_), line_.size()));
    return true;
  }
  // Digits end at the first other character, from which the next field goes on.
  bool number(std::int32_t& out) {
    if (!skipWhiteSpace()) return false;
    const std::size_t first = line_[at_] == L'-' || line_[at_] == L'+' ? at_ + 1 : at_;
    const std::size_t end = std::min(line_.find_first_not_of(kDigits, first), line_.size());
    if (end == first) return false;
    out = wideToInt(take(end).c_str());
    return true;
  }

 private:
  bool skipWhiteSpace() {
    at_ = line_.find_first_not_of(kWhiteSpace, at_);
    return at_ != std::wstring::npos;
  }
  std::wstring take(std::size_t end) {
    const std::size_t start = at_;
    at_ = end;
    return line_.substr(start, end - start);
  }

  const std::wstring& line_;
  std::size_t at_ = 0;
};

template <typename Entry>
std::optional<std::vector<Entry>> readLines(
    const std::wstring& path, std::optional<Entry> (*parse)(const std::wstring& line)) {
  CStdioFile file;
  if (!file.Open(path.c_str(), CFile::modeRead | CFile::typeText)) return std::nullopt;
  std::vector<Entry> entries;
  try {
    CString line;
    while (file.ReadString(line)) {
      if (std::optional<Entry> entry = parse(line.wide())) entries.push_back(std::move(*entry));
    }
  } catch (CFileException* exception) {
    exception->Delete();
    return std::nullopt;
  }
  return entries;
}

}  // namespace

std::optional<SymbolGroup> parseGroupLine(const std::wstring& line) {
  LineFields fields(line);
  SymbolGroup group;
  const bool whole = fields.word(group.name) && fields.word(group.code) &&
                     fields.number(group.side) && fields.number(group.page);
  return whole ? std::optional(group) : std::nullopt;
}

std::optional<SymbolLine> parseSymbolLine(const std::wstring& line) {
  LineFields fields(line);
  SymbolLine symbol;
  for (std::wstring& word : symbol) {
    if (!fields.word(word)) return std::nullopt;
  }
  std::int32_t unused = 0;
  for (int i = 0; i < 5; ++i) {
    if (!fields.number(unused)) return std::nullopt;
  }
  return symbol;
}

std::optional<std::vector<SymbolGroup>> readSymbolGroups(const std::wstring& path) {
  return readLines<SymbolGroup>(path, parseGroupLine);
}

std::optional<std::vector<SymbolLine>> readSymbolLines(const std::wstring& path) {
  return readLines<SymbolLine>(path, parseSymbolLine);
}

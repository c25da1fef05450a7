// Three passes over the row: blocks, lines, texts, each up to the marker of the next. The markers
// are the first "&&&&" and the first "TEXT" wherever they stand, also inside a model specification.
#include "engine/row_reader.h"

#include <cstddef>

#include "platform/framework_runtime.h"
#include "platform/framework_text.h"

namespace {

using Message = const wchar_t*;  // null: go on

constexpr Message kWrongContent = L"\n行内容错误";
constexpr Message kWrongLibraryRow = L"\n 行内容错误!";  // the library's own wording
constexpr Message kNameCount = L"\n块名个数不匹配";
constexpr Message kPointCount = L"\n插入点个数不匹配";
constexpr Message kAngleCount = L"\n块角度个数不匹配";
constexpr Message kStartCount = L"\n起点个数不匹配";
constexpr Message kEndCount = L"\n终点个数不匹配";
constexpr Message kFormat1 = L"\n数据格式错误1";
constexpr Message kFormat2 = L"\n数据格式错误2";
constexpr Message kFormat3 = L"\n数据格式错误3";
constexpr Message kNoData = L"\n数据文件中该数据行无数据!";

constexpr std::size_t kNumberBegin = 2;  // behind (" in a row
constexpr int kMarkerTail = 5;           // the four characters of a marker and its closing quote

// Where the parts of a row meet; -1 for what isn't there.
struct Markers {
  std::ptrdiff_t separator;
  std::ptrdiff_t text;
};

Markers findMarkers(const std::wstring& row) {
  // npos becomes -1.
  Markers markers{static_cast<std::ptrdiff_t>(row.find(L"&&&&")),
                  static_cast<std::ptrdiff_t>(row.find(L"TEXT"))};
  // A "TEXT" behind the first ")" is no marker; nor is one in a row that is never closed.
  if (static_cast<std::ptrdiff_t>(row.find(L')')) <= markers.text) markers.text = -1;
  return markers;
}

std::wstring trimmed(const std::wstring& token) { return CString(token).Trim().wide(); }
double number(const std::wstring& token) { return wideToDouble(token.c_str()); }

// Text from begin on; a negative length is an empty token.
std::wstring tokenAt(const std::wstring& row, std::ptrdiff_t begin, std::ptrdiff_t length) {
  if (length <= 0) return {};
  return row.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(length));
}

// Appends, and tells whether the new element stands at the index that the field count asks for.
template <typename Element>
bool appendAt(std::vector<Element>& list, Element element, std::size_t index) {
  list.push_back(std::move(element));
  return list.size() - 1 == index;
}

// The pass over the blocks: the only one that knows quotes, since model specifications hold blanks.
class BlockPass {
 public:
  BlockPass(const std::wstring& row, CircuitRow& out) : row_(row), out_(out) {}

  // Reads up to, not including, the blank in front of the separator's opening quote.
  Message run(std::ptrdiff_t end) {
    for (std::ptrdiff_t i = 0; i < end; ++i) {
      if (Message message = step(i)) return message;
    }
    return nullptr;
  }

 private:
  Message step(std::ptrdiff_t i) {
    const wchar_t c = row_[static_cast<std::size_t>(i)];
    if (!inList_) return enterList(c);
    if (!numberDone_) {
      skipNumber(c, i);
    } else if (c == L'"') {
      inQuote_ = !inQuote_;
      if (inQuote_) quoted_ = true;
      separatorSeen_ = false;
    } else if (c != L' ') {
      if (inQuote_) return nullptr;
      bare_ = true;
      separatorSeen_ = false;
    } else if (!inQuote_ && !separatorSeen_) {
      return endToken(i);
    }
    return nullptr;
  }

  Message enterList(wchar_t c) {
    if (c == L'(') inList_ = true;
    return inList_ || c == L' ' ? nullptr : kWrongContent;
  }

  void skipNumber(wchar_t c, std::ptrdiff_t i) {
    if (c == L'"') inQuote_ = !inQuote_;
    if (c != L' ' || inQuote_) return;
    numberDone_ = true;
    start_ = i;
  }

  Message endToken(std::ptrdiff_t i) {
    separatorSeen_ = true;
    if (quoted_) {
      end_ = i - 2;
      ++start_;
    }
    if (bare_) end_ = i - 1;
    // Without any character since the last blank the end lies before the start: an empty token,
    // which counts as a field.
    const std::wstring token = tokenAt(row_, start_ + 1, end_ - start_);
    start_ = i;
    if (Message message = take(token)) return message;
    ++field_;
    quoted_ = bare_ = false;
    return nullptr;
  }

  // A list that grows once in five fields always has the length asked for; the checks say so.
  Message take(const std::wstring& token) {
    const std::size_t block = field_ / 5;
    switch (field_ % 5) {
      case 0: return appendAt(out_.names, token, block) ? nullptr : kNameCount;
      case 1: out_.specifications.push_back(trimmed(token)); return nullptr;
      case 2: x_ = number(token); return nullptr;
      case 3: return appendAt(out_.points, {x_, number(token)}, block) ? nullptr : kPointCount;
      default:
        out_.angleTexts.push_back(token);
        return appendAt(out_.angles, number(token), block) ? nullptr : kAngleCount;
    }
  }

  const std::wstring& row_;
  CircuitRow& out_;
  bool inList_ = false;
  bool numberDone_ = false;
  bool inQuote_ = false;
  bool quoted_ = false;
  bool bare_ = false;
  bool separatorSeen_ = false;
  std::ptrdiff_t start_ = 0;
  std::ptrdiff_t end_ = 0;
  std::size_t field_ = 0;
  double x_ = 0;
};

// Hands the tokens between blanks to take, up to end or the first ")", which ends a token too.
template <typename Take>
Message takeTokens(const std::wstring& row, std::ptrdiff_t begin, std::ptrdiff_t end, Take take) {
  bool inList = false;
  bool separatorSeen = false;
  bool closed = false;
  std::ptrdiff_t start = 0;
  for (std::ptrdiff_t i = begin; i < end && !closed; ++i) {
    const wchar_t c = row[static_cast<std::size_t>(i)];
    if (!inList) {
      if (c == L' ') continue;
      inList = true;
      start = i - 1;
    }
    closed = c == L')';
    if (!closed && c != L' ') separatorSeen = false;
    if ((!closed && c != L' ') || separatorSeen) continue;
    separatorSeen = true;
    if (Message message = take(tokenAt(row, start + 1, i - 1 - start))) return message;
    start = i;
  }
  return nullptr;
}

Message readLines(const std::wstring& row, std::ptrdiff_t begin, std::ptrdiff_t end,
                  CircuitRow& out) {
  std::size_t field = 0;
  double x = 0;
  return takeTokens(row, begin, end, [&](const std::wstring& token) -> Message {
    const std::size_t line = field / 4;
    switch (field++ % 4) {
      case 1: return appendAt(out.starts, {x, number(token)}, line) ? nullptr : kStartCount;
      case 3: return appendAt(out.ends, {x, number(token)}, line) ? nullptr : kEndCount;
      default: x = number(token); return nullptr;
    }
  });
}

void readTexts(const std::wstring& row, std::ptrdiff_t begin, CircuitRow& out) {
  std::size_t field = 0;
  double x = 0;
  takeTokens(row, begin, std::ssize(row), [&](const std::wstring& raw) -> Message {
    const std::wstring token = trimmed(raw);
    switch (field++ % 6) {
      // The first and last character go whatever they are; a token of one gives an empty text.
      case 0: out.texts.push_back(tokenAt(token, 1, std::ssize(token) - 2)); break;
      case 1: out.colours.push_back(wideToInt(token.c_str())); break;
      case 2: out.heights.push_back(number(token)); break;
      case 3: x = number(token); break;
      case 4: out.textPoints.push_back({x, number(token)}); break;
      default: out.textAngles.push_back(number(token)); break;
    }
    return nullptr;
  });
}

Message checkCounts(const CircuitRow& row) {
  if (row.names.size() != row.points.size()) return kFormat1;
  if (row.names.size() != row.angles.size()) return kFormat2;
  if (row.ends.size() != row.starts.size()) return kFormat3;
  if (row.names.empty()) return kNoData;
  return nullptr;
}

Message readInto(const std::wstring& row, CircuitRow& out) {
  const Markers markers = findMarkers(row);
  if (Message message = BlockPass(row, out).run(markers.separator - 1)) return message;
  const std::ptrdiff_t linesEnd = markers.text == -1 ? std::ssize(row) : markers.text;
  // Without a separator this starts at 4 and reads the row's beginning as numbers.
  const std::ptrdiff_t linesBegin = markers.separator + kMarkerTail;
  if (Message message = readLines(row, linesBegin, linesEnd, out)) return message;
  if (markers.text != -1) readTexts(row, markers.text + kMarkerTail, out);
  return checkCounts(out);
}

}  // namespace

RowReading readRow(const std::wstring& row) {
  RowReading reading;
  if (Message message = readInto(row, reading.row)) reading.message = message;
  return reading;
}

LibraryRowReading readLibraryRow(const std::wstring& row) {
  LibraryRowReading reading;
  const std::size_t blank = row.find(L' ');
  if (blank == std::wstring::npos) {
    reading.message = kWrongLibraryRow;
    return reading;
  }
  // Without the closing quote; empty when the blank comes too early.
  reading.number = blank > kNumberBegin + 1 ? row.substr(kNumberBegin, blank - kNumberBegin - 1)
                                            : std::wstring();
  if (Message message = readInto(L"(" + row.substr(blank), reading.row)) reading.message = message;
  return reading;
}

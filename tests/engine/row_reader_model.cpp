// The slow reader. Written as the row's rules read, step by step.
#include "engine/row_reader_model.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cwchar>

namespace test {

namespace {

long long firstOf(const std::wstring& row, const std::wstring& what) {
  for (std::size_t i = 0; i + what.size() <= row.size(); ++i) {
    bool same = true;
    for (std::size_t j = 0; j < what.size(); ++j) same = same && row[i + j] == what[j];
    if (same) return static_cast<long long>(i);
  }
  return -1;
}

std::wstring between(const std::wstring& row, long long first, long long last) {
  std::wstring part;
  for (long long i = first; i <= last; ++i) part += row[static_cast<std::size_t>(i)];
  return part;
}

bool isWhite(wchar_t c) { return c == 32 || c == 9 || c == 10 || c == 11 || c == 12 || c == 13; }

std::wstring bothEndsTrimmed(std::wstring text) {
  while (!text.empty() && isWhite(text.front())) text.erase(text.begin());
  while (!text.empty() && isWhite(text.back())) text.pop_back();
  return text;
}

// The C library's own reading; tests run in the "C" locale. The Windows library reads less than C99
// asks for, the compiler's all of it.
double asNumber(const std::wstring& text) {
#ifdef _WIN32
  return __mingw_wcstod(text.c_str(), nullptr);
#else
  return std::wcstod(text.c_str(), nullptr);
#endif
}

int asInteger(const std::wstring& text) {
  const long long value = std::wcstoll(text.c_str(), nullptr, 10);
  if (value > INT_MAX) return INT_MAX;
  if (value < INT_MIN) return INT_MIN;
  return static_cast<int>(value);
}

// False when the row must be refused for its beginning.
bool readBlocks(const std::wstring& row, long long a, CircuitRow& r) {
  bool inList = false, numberDone = false, inQuote = false, tokenQuoted = false;
  bool tokenBare = false, separatorSeen = false;
  long long tokenStart = 0, tokenEnd = 0, field = 0;
  double x = 0;
  for (long long i = 0; i < a - 1; ++i) {
    const wchar_t ch = row[static_cast<std::size_t>(i)];
    if (!inList) {
      if (ch == L' ') continue;
      if (ch == L'(') {
        inList = true;
        continue;
      }
      return false;
    }
    if (!numberDone) {
      if (ch == L'"') inQuote = !inQuote;
      if (ch == L' ' && !inQuote) {
        numberDone = true;
        tokenStart = i;
      }
      continue;
    }
    if (ch == L'"') {
      inQuote = !inQuote;
      if (inQuote) tokenQuoted = true;
      separatorSeen = false;
      continue;
    }
    if (ch != L' ') {
      if (!inQuote) {
        tokenBare = true;
        separatorSeen = false;
      }
      continue;
    }
    if (inQuote || separatorSeen) continue;
    separatorSeen = true;
    if (tokenQuoted) {
      tokenEnd = i - 2;
      tokenStart = tokenStart + 1;
    }
    if (tokenBare) tokenEnd = i - 1;
    const std::wstring token = between(row, tokenStart + 1, tokenEnd);
    tokenStart = i;
    if (field % 5 == 0) r.names.push_back(token);
    if (field % 5 == 1) r.specifications.push_back(bothEndsTrimmed(token));
    if (field % 5 == 2) x = asNumber(token);
    if (field % 5 == 3) r.points.push_back({x, asNumber(token)});
    if (field % 5 == 4) r.angles.push_back(asNumber(token));
    field = field + 1;
    tokenQuoted = false;
    tokenBare = false;
  }
  return true;
}

void readLines(const std::wstring& row, long long a, long long e, CircuitRow& r) {
  bool inList = false, separatorSeen = false, closed = false;
  long long tokenStart = 0, field = 0;
  double x = 0;
  for (long long i = a + 5; i < e && !closed; ++i) {
    const wchar_t ch = row[static_cast<std::size_t>(i)];
    if (!inList) {
      if (ch == L' ') continue;
      inList = true;
      tokenStart = i - 1;
    }
    if (ch == L')') {
      closed = true;
      if (separatorSeen) continue;
    } else if (ch == L' ') {
      if (separatorSeen) continue;
    } else {
      separatorSeen = false;
      continue;
    }
    const std::wstring token = between(row, tokenStart + 1, i - 1);
    separatorSeen = true;
    tokenStart = i;
    if (field % 4 == 0 || field % 4 == 2) x = asNumber(token);
    if (field % 4 == 1) r.starts.push_back({x, asNumber(token)});
    if (field % 4 == 3) r.ends.push_back({x, asNumber(token)});
    field = field + 1;
  }
}

void readTexts(const std::wstring& row, long long t, CircuitRow& r) {
  const long long length = static_cast<long long>(row.size());
  bool inList = false, separatorSeen = false, closed = false;
  long long tokenStart = 0, field = 0;
  double x = 0;
  for (long long i = t + 5; i < length && !closed; ++i) {
    const wchar_t ch = row[static_cast<std::size_t>(i)];
    if (!inList) {
      if (ch == L' ') continue;
      inList = true;
      tokenStart = i - 1;
    }
    if (ch == L')') {
      closed = true;
      if (separatorSeen) continue;
    } else if (ch == L' ') {
      if (separatorSeen) continue;
    } else {
      separatorSeen = false;
      continue;
    }
    const std::wstring token = bothEndsTrimmed(between(row, tokenStart + 1, i - 1));
    separatorSeen = true;
    tokenStart = i;
    if (field % 6 == 0) {
      r.texts.push_back(between(token, 1, static_cast<long long>(token.size()) - 2));
    }
    if (field % 6 == 1) r.colours.push_back(asInteger(token));
    if (field % 6 == 2) r.heights.push_back(asNumber(token));
    if (field % 6 == 3) x = asNumber(token);
    if (field % 6 == 4) r.textPoints.push_back({x, asNumber(token)});
    if (field % 6 == 5) r.textAngles.push_back(asNumber(token));
    field = field + 1;
  }
}

}  // namespace

RowReading modelReadRow(const std::wstring& row) {
  RowReading result;
  CircuitRow& r = result.row;
  const long long length = static_cast<long long>(row.size());
  const long long a = firstOf(row, L"&&&&");
  long long t = firstOf(row, L"TEXT");
  const long long c = firstOf(row, L")");
  if (c <= t) t = -1;
  if (!readBlocks(row, a, r)) {
    result.message = L"\n行内容错误";
    return result;
  }
  readLines(row, a, t == -1 ? length : t, r);
  if (t != -1) readTexts(row, t, r);

  if (r.names.size() != r.points.size()) {
    result.message = L"\n数据格式错误1";
  } else if (r.names.size() != r.angles.size()) {
    result.message = L"\n数据格式错误2";
  } else if (r.starts.size() != r.ends.size()) {
    result.message = L"\n数据格式错误3";
  } else if (r.names.empty()) {
    result.message = L"\n数据文件中该数据行无数据!";
  }
  return result;
}

namespace {

bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }
bool same(const RowPoint& a, const RowPoint& b) { return same(a.x, b.x) && same(a.y, b.y); }

template <typename Element>
bool same(const std::vector<Element>& a, const std::vector<Element>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const Element& x, const Element& y) { return same(x, y); });
}

bool sameBlocks(const CircuitRow& a, const CircuitRow& b) {
  return a.names == b.names && a.specifications == b.specifications && same(a.points, b.points) &&
         same(a.angles, b.angles) && a.angleTexts.size() == b.angles.size();
}

bool sameLines(const CircuitRow& a, const CircuitRow& b) {
  return same(a.starts, b.starts) && same(a.ends, b.ends);
}

bool sameTexts(const CircuitRow& a, const CircuitRow& b) {
  return a.texts == b.texts && a.colours == b.colours && same(a.heights, b.heights) &&
         same(a.textPoints, b.textPoints) && same(a.textAngles, b.textAngles);
}

}  // namespace

bool sameReading(const RowReading& real, const RowReading& model) {
  return real.message == model.message && sameBlocks(real.row, model.row) &&
         sameLines(real.row, model.row) && sameTexts(real.row, model.row);
}

}  // namespace test

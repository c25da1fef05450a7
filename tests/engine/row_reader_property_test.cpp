// The reader and the slow model agree on rows made at random: proper ones, damaged ones, and mere
// heaps of the characters that mean something in a row.
#include <gtest/gtest.h>

#include <random>

#include "engine/row_reader.h"
#include "engine/row_reader_model.h"

namespace {

class RandomRows {
 public:
  explicit RandomRows(unsigned seed) : random_(seed) {}

  std::wstring properRow() {
    std::wstring row = L"(\"" + std::to_wstring(below(100)) + L"\"";
    for (unsigned i = below(5); i > 0; --i) row += block();
    row += L" \"&&&&\"";
    for (unsigned i = below(5); i > 0; --i) row += numbers(4);
    if (below(2)) row += L" \"TEXT\"";
    for (unsigned i = below(4); i > 0; --i) row += text();
    return row + L")";
  }

  // A proper row with a few characters changed, inserted or taken out.
  std::wstring damagedRow() {
    std::wstring row = properRow();
    for (unsigned i = 1 + below(4); i > 0; --i) {
      const std::size_t at = below(static_cast<unsigned>(row.size()));
      switch (below(3)) {
        case 0: row[at] = character(); break;
        case 1: row.insert(at, 1, character()); break;
        default: row.erase(at, 1); break;
      }
      if (row.empty()) row = L" ";
    }
    return row;
  }

  std::wstring heap() {
    std::wstring row;
    for (unsigned i = below(60); i > 0; --i) row += piece();
    return row;
  }

 private:
  unsigned below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }
  wchar_t character() { return L" \"()&TEX01.-eA空\t"[below(16)]; }

  std::wstring piece() {
    static const wchar_t* const kPieces[] = {L" ",    L"  ", L"\"",   L"(",   L")",    L"&&&&",
                                             L"TEXT", L"12", L"-3.5", L"A01", L"\"\"", L"\"x y\"",
                                             L"空",   L"\t", L"1e3",  L"("};
    return kPieces[below(16)];
  }

  std::wstring number() {
    return std::to_wstring(static_cast<int>(below(2000)) - 1000) + (below(2) ? L".25" : L"");
  }

  std::wstring numbers(unsigned count) {
    std::wstring all;
    for (; count > 0; --count) all += L" " + number();
    return all;
  }

  std::wstring block() {
    static const wchar_t* const kSpecifications[] = {L"", L"DW15-1600 3P", L" 空 ", L"(a"};
    return L" \"A" + std::to_wstring(below(100)) + L"\" \"" + kSpecifications[below(4)] + L"\"" +
           numbers(3);
  }

  std::wstring text() {
    return L" \"QF" + std::to_wstring(below(9)) + L"\" " + std::to_wstring(below(256)) + numbers(4);
  }

  std::mt19937 random_;
};

// "nan" agrees with itself.
void expectAgreement(const std::wstring& text) {
  const RowReading real = readRow(text);
  const RowReading model = test::modelReadRow(text);
  EXPECT_TRUE(test::sameReading(real, model))
      << testing::PrintToString(text) << "\nreal: " << testing::PrintToString(real.message)
      << "\nmodel: " << testing::PrintToString(model.message);
}

constexpr int kRounds = 3000;

TEST(RowReaderProperty, AgreesOnProperRows) {
  RandomRows rows(1);
  for (int i = 0; i < kRounds; ++i) expectAgreement(rows.properRow());
}

TEST(RowReaderProperty, AgreesOnDamagedRows) {
  RandomRows rows(2);
  for (int i = 0; i < kRounds; ++i) expectAgreement(rows.damagedRow());
}

TEST(RowReaderProperty, AgreesOnHeapsOfPieces) {
  RandomRows rows(3);
  for (int i = 0; i < kRounds; ++i) expectAgreement(rows.heap());
}

TEST(RowReaderProperty, AgreesOnEveryBeginningOfARow) {
  RandomRows rows(4);
  const std::wstring row = rows.properRow();
  for (std::size_t length = 0; length <= row.size(); ++length) {
    expectAgreement(row.substr(0, length));
  }
}

}  // namespace

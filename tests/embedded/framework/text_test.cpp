// CString.
#include <gtest/gtest.h>

#include "platform/framework.h"
#include "support/raises.h"

namespace {

using test::expectInvalidArgument;

TEST(Text, GoesToAndFromWideText) {
  const CString fromPointer = L"主回路";
  const CString fromText = std::wstring(L"主回路");
  EXPECT_EQ(fromPointer, fromText);
  const std::wstring back(fromText);
  EXPECT_EQ(back, L"主回路");
  EXPECT_EQ(CString(static_cast<const wchar_t*>(nullptr)).GetLength(), 0);
}

TEST(Text, Joins) {
  CString text = L"a";
  text += L'b';
  text += L"c";
  EXPECT_EQ(L"<" + text + L">" + CString(L"!"), L"<abc>!");
}

TEST(Text, Finds) {
  const CString text = L"abcabc";
  EXPECT_EQ(text.Find(L"bc"), 1);
  EXPECT_EQ(text.Find(L"bc", 2), 4);
  EXPECT_EQ(text.Find(L'x'), -1);
  EXPECT_EQ(text.Find(L'a', 7), -1);
  EXPECT_EQ(text.Find(L"a", -1), -1);
  EXPECT_EQ(text.ReverseFind(L'b'), 4);
  EXPECT_EQ(text.FindOneOf(L"xc"), 2);
}

TEST(Text, PartsAreCutToTheText) {
  const CString text = L"abc";
  EXPECT_EQ(text.Mid(1), L"bc");
  EXPECT_EQ(text.Mid(1, 1), L"b");
  EXPECT_EQ(text.Mid(-2, 2), L"ab");
  EXPECT_EQ(text.Mid(5, 2), L"");
  EXPECT_EQ(text.Mid(1, -1), L"");
  EXPECT_EQ(text.Left(9), L"abc");
  EXPECT_EQ(text.Right(2), L"bc");
  EXPECT_EQ(text.Right(-1), L"");
}

TEST(Text, TrimsAsciiWhiteSpaceOnly) {
  EXPECT_EQ(CString(L" \t\r\n a b \v").Trim(), L"a b");
  EXPECT_EQ(CString(L"\u3000a\u00A0").Trim(), L"\u3000a\u00A0");
  EXPECT_EQ(CString(L"  ").Trim(), L"");
}

TEST(Text, ChangesCaseOfAsciiLetters) {
  EXPECT_EQ(CString(L"aZé空").MakeUpper(), L"AZé空");
  EXPECT_EQ(CString(L"aZÉ空").MakeLower(), L"azÉ空");
  EXPECT_EQ(CString(L"ABC").CompareNoCase(L"abc"), 0);
  EXPECT_LT(CString(L"ab").CompareNoCase(L"ABC"), 0);
  EXPECT_GT(CString(L"b").CompareNoCase(L"A"), 0);
  EXPECT_NE(CString(L"a").Compare(L"A"), 0);
}

TEST(Text, ReplacesInsertsAndDeletes) {
  CString text = L"a-b-c";
  EXPECT_EQ(text.Replace(L"-", L"--"), 2);
  EXPECT_EQ(text, L"a--b--c");
  EXPECT_EQ(text.Replace(L"", L"x"), 0);
  EXPECT_EQ(text.Insert(99, L"!"), 8);
  EXPECT_EQ(text.Delete(1, 2), 6);
  EXPECT_EQ(text, L"ab--c!");
  EXPECT_EQ(text.Delete(4, 99), 4);
}

TEST(Text, IndexOutsideRaises) {
  CString text = L"ab";
  EXPECT_EQ(text.GetAt(2), L'\0');
  expectInvalidArgument([&] { text.GetAt(3); });
  expectInvalidArgument([&] { text.GetAt(-1); });
  expectInvalidArgument([&] { text.SetAt(2, L'x'); });
  text.SetAt(1, L'x');
  EXPECT_EQ(text, L"ax");
}

}  // namespace

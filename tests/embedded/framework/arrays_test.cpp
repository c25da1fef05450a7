// The checked arrays.
#include <gtest/gtest.h>

#include "platform/framework.h"

namespace {

template <typename Call>
void expectInvalidArgument(Call call) {
  try {
    call();
    FAIL() << "no exception";
  } catch (CException* exception) {
    EXPECT_EQ(exception->Message(), L"遇到不适当的参数。");
    exception->Delete();
  }
}

std::wstring contents(const CStringArray& array) {
  std::wstring all;
  for (const CString& element : array) all += element.wide() + L",";
  return all;
}

CStringArray letters(const std::wstring& all) {
  CStringArray array;
  for (const wchar_t c : all) array.Add(CString(c));
  return array;
}

TEST(Arrays, GrowAtTheEnd) {
  CStringArray array;
  EXPECT_TRUE(array.IsEmpty());
  EXPECT_EQ(array.GetUpperBound(), -1);
  EXPECT_EQ(array.Add(L"a"), 0);
  EXPECT_EQ(array.Add(L"b"), 1);
  EXPECT_EQ(array.GetSize(), 2);
  EXPECT_EQ(array[1], L"b");
}

TEST(Arrays, BadIndexRaisesAndChangesNothing) {
  CStringArray array = letters(L"ab");
  expectInvalidArgument([&] { array.GetAt(2); });
  expectInvalidArgument([&] { array.GetAt(-1); });
  expectInvalidArgument([&] { array[2] = L"x"; });
  expectInvalidArgument([&] { array.SetAt(-1, L"x"); });
  expectInvalidArgument([&] { array.SetAtGrow(-1, L"x"); });
  expectInvalidArgument([&] { array.InsertAt(-1, L"x"); });
  expectInvalidArgument([&] { array.RemoveAt(2); });
  expectInvalidArgument([&] { array.RemoveAt(1, 2); });
  expectInvalidArgument([&] { array.RemoveAt(0, -1); });
  expectInvalidArgument([&] { array.SetSize(-1); });
  EXPECT_EQ(contents(array), L"a,b,");
}

TEST(Arrays, InsertAndRemove) {
  CStringArray array = letters(L"ad");
  array.InsertAt(1, L"x", 2);
  EXPECT_EQ(contents(array), L"a,x,x,d,");
  array.RemoveAt(1, 2);
  EXPECT_EQ(contents(array), L"a,d,");
  array.InsertAt(3, L"z");
  EXPECT_EQ(contents(array), L"a,d,,z,");
  array.SetAtGrow(5, L"y");
  EXPECT_EQ(contents(array), L"a,d,,z,,y,");
}

TEST(Arrays, TakeTheirOwnElements) {
  CStringArray array = letters(L"ab");
  array.InsertAt(0, array[1], 3);
  EXPECT_EQ(contents(array), L"b,b,b,a,b,");
  EXPECT_EQ(array.Append(array), 5);
  EXPECT_EQ(array.GetSize(), 10);
}

TEST(Arrays, CopyAndEmpty) {
  CStringArray copy;
  copy.Copy(letters(L"ab"));
  EXPECT_EQ(contents(copy), L"a,b,");
  copy.SetSize(1);
  EXPECT_EQ(contents(copy), L"a,");
  copy.RemoveAll();
  EXPECT_TRUE(copy.IsEmpty());
}

TEST(Arrays, OfPointersOwnNothing) {
  int value = 7;
  CPtrArray array;
  array.Add(&value);
  EXPECT_EQ(array.GetAt(0), &value);
  array.RemoveAll();
  EXPECT_EQ(value, 7);
}

}  // namespace

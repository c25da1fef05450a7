#include "embedded/drafting/database/xdata.h"

#include <gtest/gtest.h>

namespace drafting {
namespace {

using namespace std::string_literals;

TEST(XData, EveryItemKindHasItsBytes) {
  const std::vector<XDataItem> items{{1000, "图"s},           {1002, "{"s},  {1002, "}"s},
                                     {1003, Handle{0x102}},   {1004, "ab"s}, {1005, Handle{0x304}},
                                     {1010, Point3{1, 0, 0}}, {1040, 1.0},   {1070, -2},
                                     {1071, 100000}};
  const auto coded = encodeXData(items, 936);
  ASSERT_TRUE(coded.has_value());
  EXPECT_EQ(*coded,
            "\0\2\0\x27\xCD\xBC"
            "\2\0"
            "\2\1"
            "\3\0\0\0\0\0\0\1\2"
            "\4\2ab"
            "\5\0\0\0\0\0\0\3\4"
            "\x0A\0\0\0\0\0\0\xF0\x3F\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
            "\x28\0\0\0\0\0\0\xF0\x3F"
            "\x46\xFE\xFF"
            "\x47\xA0\x86\1\0"s);
  EXPECT_EQ(decodeXData(*coded), items);
}

TEST(XData, ATextNamesItsOwnCodePage) {
  const std::string latin = "\0\2\0\x1E\xE9\0"s;  // 30 = 1252, with a closing zero
  const auto items = decodeXData(latin);
  ASSERT_TRUE(items.has_value());
  EXPECT_EQ(std::get<std::string>(items->at(0).value), "é");
}

TEST(XData, WhatDoesNotFitIsRefused) {
  EXPECT_FALSE(encodeXData({{1000, std::string(256, 'a')}}, 936).has_value());
  EXPECT_TRUE(encodeXData({{1000, std::string(255, 'a')}}, 936).has_value());
  EXPECT_FALSE(encodeXData({{1070, 40000}}, 936).has_value());
  EXPECT_FALSE(encodeXData({{1070, "1"s}}, 936).has_value());
  EXPECT_FALSE(encodeXData({{1040, 1}}, 936).has_value());
  EXPECT_FALSE(encodeXData({{1001, "APP"s}}, 936).has_value());
}

TEST(XData, CutAndUnknownItemsAreRecognised) {
  const std::string whole = *encodeXData({{1000, "abc"s}, {1010, Point3{}}, {1071, 5}}, 936);
  std::size_t readable = 0;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    readable += decodeXData(std::string_view(whole).substr(0, length)).has_value();
  }
  EXPECT_EQ(readable, 4u);  // empty, and after each of the three items
  EXPECT_FALSE(decodeXData("\x01\x00"s).has_value());
  EXPECT_FALSE(decodeXData("\x50\x00"s).has_value());
}

TEST(XData, HandlesAreReplacedInPlace) {
  std::string coded = *encodeXData({{1003, Handle{1}}, {1070, 5}, {1005, Handle{2}}}, 936);
  EXPECT_TRUE(mapXDataHandles(
      coded, [](int code, Handle h) { return code == 1003 ? h + 0x100 : h + 0x200; }));
  EXPECT_EQ(decodeXData(coded),
            (std::vector<XDataItem>{{1003, Handle{0x101}}, {1070, 5}, {1005, Handle{0x202}}}));
  coded.pop_back();
  EXPECT_FALSE(mapXDataHandles(coded, [](int, Handle h) { return h; }));
}

TEST(XData, CodePageNumbersOfDrawings) {
  EXPECT_EQ(drawingCodePage(936), 39);
  EXPECT_EQ(windowsCodePage(39), 936);
  EXPECT_EQ(windowsCodePage(31), 936);
  EXPECT_EQ(windowsCodePage(28), 1250);
  EXPECT_EQ(windowsCodePage(99), 1252);
}

}  // namespace
}  // namespace drafting

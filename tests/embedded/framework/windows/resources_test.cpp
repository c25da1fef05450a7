// The module's resources as they stand in its file: types, sizes, depths, hot spots, language.
#include <cstring>

#include "embedded/framework/windows/kit.h"
#include "platform/framework_resources.h"
#include "resources/resource_ids.h"

namespace {

constexpr WORD kChinese = 2052;

class Resources : public testing::Test {
 protected:
  // The bytes of a Chinese resource; empty when there is none.
  std::vector<std::uint8_t> bytes(UINT id, const wchar_t* type) {
    const wchar_t* name = MAKEINTRESOURCEW(id);
    const HINSTANCE module = AfxFindResourceHandle(name, type);
    const HRSRC found = ::FindResourceExW(module, type, name, kChinese);
    if (!found) return {};
    const void* start = ::LockResource(::LoadResource(module, found));
    std::vector<std::uint8_t> result(::SizeofResource(module, found));
    std::memcpy(result.data(), start, result.size());
    return result;
  }

  template <typename Number>
  static Number at(const std::vector<std::uint8_t>& data, std::size_t offset) {
    Number result = 0;
    if (offset + sizeof result <= data.size()) {
      std::memcpy(&result, data.data() + offset, sizeof result);
    }
    return result;
  }

  framework_test::ModuleResources resources_;
};

TEST_F(Resources, TheToolBarListsItsSixItems) {
  const std::vector<std::uint8_t> data = bytes(21373, MAKEINTRESOURCEW(241));
  const std::uint16_t expected[] = {1, 25, 15, 6, 21622, 21627, 21625, 21623, 21624, 21626};
  ASSERT_EQ(data.size(), sizeof expected);
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_EQ(at<std::uint16_t>(data, 2 * i), expected[i]) << i;
  }
}

TEST_F(Resources, BitmapsHaveTheirSizeAndDepth) {
  const struct {
    UINT id;
    std::int32_t width, height;
    std::uint16_t depth;
  } bitmaps[] = {{21373, 150, 15, 4}, {21620, 32, 15, 8}};
  for (const auto& expected : bitmaps) {
    const std::vector<std::uint8_t> data = bytes(expected.id, RT_BITMAP);
    EXPECT_EQ(at<std::int32_t>(data, 4), expected.width) << expected.id;
    EXPECT_EQ(at<std::int32_t>(data, 8), expected.height) << expected.id;
    EXPECT_EQ(at<std::uint16_t>(data, 14), expected.depth) << expected.id;
  }
}

TEST_F(Resources, TheFirstThreeToolBarCellsAreEmptyAndTheOthersBlackOnGrey) {
  const std::vector<std::uint8_t> data = bytes(21373, RT_BITMAP);
  constexpr std::size_t kPixels = 40 + 16 * 4;
  constexpr std::size_t kStride = 76;  // 150 pixels of 4 bits, filled to four bytes
  ASSERT_EQ(data.size(), kPixels + kStride * 15);
  const auto colour = [&](std::size_t x, std::size_t y) {
    const std::uint8_t pair = data[kPixels + (14 - y) * kStride + x / 2];
    const std::size_t index = x % 2 == 0 ? pair >> 4 : pair & 15;
    return at<std::uint32_t>(data, 40 + 4 * index);
  };
  int black[6] = {};
  for (std::size_t y = 0; y < 15; ++y) {
    for (std::size_t x = 0; x < 150; ++x) {
      if (colour(x, y) == 0) {
        ++black[x / 25];
      } else {
        EXPECT_EQ(colour(x, y), 0xC0C0C0U);
      }
    }
  }
  for (int cell = 0; cell < 3; ++cell) EXPECT_EQ(black[cell], 0);
  for (int cell = 3; cell < 6; ++cell) EXPECT_GT(black[cell], 40);
}

TEST_F(Resources, CursorsAreMonochromeWithTheirHotSpots) {
  const struct {
    UINT id;
    DWORD x, y;
  } cursors[] = {{21617, 11, 8}, {21618, 6, 0}, {21619, 17, 15}};
  for (const auto& expected : cursors) {
    const wchar_t* name = MAKEINTRESOURCEW(expected.id);
    ASSERT_FALSE(bytes(expected.id, RT_GROUP_CURSOR).empty()) << expected.id;
    const HCURSOR cursor = ::LoadCursorW(AfxFindResourceHandle(name, RT_GROUP_CURSOR), name);
    ICONINFO info{};
    ASSERT_TRUE(::GetIconInfo(cursor, &info)) << expected.id;
    EXPECT_EQ(info.xHotspot, expected.x) << expected.id;
    EXPECT_EQ(info.yHotspot, expected.y) << expected.id;
    EXPECT_EQ(info.hbmColor, nullptr) << "two colours: mask above picture in one bitmap";
    BITMAP mask{};
    ::GetObjectW(info.hbmMask, sizeof mask, &mask);
    EXPECT_EQ(mask.bmWidth, 32) << expected.id;
    EXPECT_EQ(mask.bmHeight, 64) << expected.id;
    ::DeleteObject(info.hbmMask);
  }
}

TEST_F(Resources, TheDialogIsAPlainTemplateOfTenControls) {
  const std::vector<std::uint8_t> data = bytes(21372, RT_DIALOG);
  EXPECT_EQ(at<std::uint32_t>(data, 0), 0x80CA00C0U);  // the old form begins with the style
  EXPECT_EQ(at<std::uint32_t>(data, 4), 0U);
  EXPECT_EQ(at<std::uint16_t>(data, 8), 10);
  EXPECT_EQ(at<std::uint16_t>(data, 10), 0);
  EXPECT_EQ(at<std::uint16_t>(data, 12), 0);
  EXPECT_EQ(at<std::uint16_t>(data, 14), 245);
  EXPECT_EQ(at<std::uint16_t>(data, 16), 235);
  // No menu, no class, the title, 9 point, the face.
  EXPECT_EQ(at<std::uint32_t>(data, 18), 0U);
  const std::u16string texts = u"主回路构造";
  EXPECT_EQ(std::memcmp(data.data() + 22, texts.data(), texts.size() * 2 + 2), 0);
  EXPECT_EQ(at<std::uint16_t>(data, 34), 9);
  EXPECT_EQ(std::memcmp(data.data() + 36, u"宋体", 6), 0);
}

}  // namespace

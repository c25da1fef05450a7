// Device contexts, graphics objects and image lists: selection, ownership, pixels.
#include "embedded/framework/windows/kit.h"
#include "platform/framework_image_list.h"
#include "platform/framework_window_dc.h"
#include "resources/resource_ids.h"

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kWhite = RGB(255, 255, 255);

// A white picture of 20 x 20 pixels in memory.
class Drawing : public testing::Test {
 protected:
  void SetUp() override {
    CClientDC screen(nullptr);
    ASSERT_TRUE(dc_.CreateCompatibleDC(&screen));
    ASSERT_TRUE(bitmap_.CreateCompatibleBitmap(&screen, 20, 20));
    before_ = dc_.SelectObject(&bitmap_);
    dc_.FillSolidRect(0, 0, 20, 20, kWhite);
  }
  void TearDown() override { dc_.SelectObject(before_); }

  CDC dc_;
  CBitmap bitmap_;
  CBitmap* before_ = nullptr;
};

TEST_F(Drawing, SelectingGivesTheOldObjectBack) {
  CPen red(PS_SOLID, 1, kRed);
  CPen blue(PS_SOLID, 1, kBlue);
  CPen* stock = dc_.SelectObject(&red);
  ASSERT_NE(stock, nullptr);
  EXPECT_EQ(dc_.SelectObject(&blue), &red) << "a permanent object is found again";
  EXPECT_EQ(dc_.SelectObject(stock), &blue);
}

TEST_F(Drawing, ObjectsDeleteTheirHandlesAndTemporariesDont) {
  HGDIOBJ handle = nullptr;
  {
    CBrush brush(kRed);
    handle = brush.m_hObject;
    EXPECT_EQ(::GetObjectType(handle), static_cast<DWORD>(OBJ_BRUSH));
  }
  EXPECT_EQ(::GetObjectType(handle), 0U);

  const HBRUSH own = ::CreateSolidBrush(kBlue);
  EXPECT_EQ(CBrush::FromHandle(own)->m_hObject, own);
  AfxOnIdle();
  EXPECT_EQ(::GetObjectType(own), static_cast<DWORD>(OBJ_BRUSH));
  ::DeleteObject(own);
}

TEST_F(Drawing, AnObjectHoldsOneHandle) {
  CBrush brush(kRed);
  const HBRUSH second = ::CreateSolidBrush(kBlue);
  EXPECT_FALSE(brush.Attach(second));
  EXPECT_FALSE(brush.Attach(nullptr));
  const HGDIOBJ first = brush.Detach();
  EXPECT_TRUE(brush.Attach(second));
  ::DeleteObject(first);
}

TEST_F(Drawing, ARaisedRectangleGivesTheSharedCornersToTheSecondColour) {
  dc_.Draw3dRect(2, 3, 10, 8, kRed, kBlue);
  EXPECT_EQ(dc_.GetPixel(2, 3), kRed);
  EXPECT_EQ(dc_.GetPixel(10, 3), kRed);
  EXPECT_EQ(dc_.GetPixel(11, 3), kBlue);
  EXPECT_EQ(dc_.GetPixel(2, 10), kBlue);
  EXPECT_EQ(dc_.GetPixel(11, 10), kBlue);
  EXPECT_EQ(dc_.GetPixel(3, 4), kWhite);
  EXPECT_EQ(dc_.GetPixel(12, 3), kWhite);
}

TEST_F(Drawing, SolidRectanglesLeaveTheBackgroundColour) {
  dc_.SetBkColor(kBlue);
  dc_.FillSolidRect(0, 0, 3, 3, kRed);
  EXPECT_EQ(dc_.GetBkColor(), kBlue);
  EXPECT_EQ(dc_.GetPixel(2, 2), kRed);
  EXPECT_EQ(dc_.GetPixel(3, 3), kWhite);
}

TEST_F(Drawing, ClippingIsSavedAndRestored) {
  const int saved = dc_.SaveDC();
  CRgn region;
  region.CreateRectRgn(5, 5, 10, 10);
  dc_.SelectClipRgn(&region);
  dc_.FillSolidRect(0, 0, 20, 20, kRed);
  EXPECT_EQ(dc_.GetPixel(5, 5), kRed);
  dc_.RestoreDC(saved);
  EXPECT_EQ(dc_.GetPixel(4, 4), kWhite);
  dc_.SetPixel(4, 4, kBlue);
  EXPECT_EQ(dc_.GetPixel(4, 4), kBlue);
}

TEST_F(Drawing, TheModulesMenuImagesLoadWithTheirMask) {
  const framework_test::ModuleResources resources;
  CImageList images;
  ASSERT_TRUE(images.Create(IDB_MENU_IMAGES, 16, 0, RGB(0xC0, 0xC0, 0xC0)));
  EXPECT_EQ(images.GetImageCount(), 2);
  IMAGEINFO info{};
  ASSERT_TRUE(images.GetImageInfo(1, &info));
  EXPECT_EQ(info.rcImage.right - info.rcImage.left, 16);
  EXPECT_EQ(info.rcImage.bottom - info.rcImage.top, 15);
  images.Draw(dc_, 1, {0, 0}, ILD_TRANSPARENT);
  EXPECT_EQ(dc_.GetPixel(1, 1), RGB(0, 0, 0x80));
  EXPECT_EQ(dc_.GetPixel(15, 0), kWhite) << "the mask colour is transparent";
}

TEST_F(Drawing, AMissingBitmapLoadsNothing) {
  const framework_test::ModuleResources resources;
  CImageList images;
  EXPECT_FALSE(images.Create(4711, 16, 0, 0));
  CBitmap bitmap;
  EXPECT_FALSE(bitmap.LoadBitmap(4711));
  EXPECT_TRUE(bitmap.LoadBitmap(IDB_MENU_IMAGES));
  BITMAP header{};
  bitmap.GetBitmap(&header);
  EXPECT_EQ(header.bmWidth, 32);
  EXPECT_EQ(header.bmHeight, 15);
}

}  // namespace

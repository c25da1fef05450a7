// Renderers on real bitmaps: pixels in, pixels out.
#include <gtest/gtest.h>
#include <windows.h>

#include <map>
#include <memory>

#include "embedded/base/paths.h"
#include "embedded/slide_store/slide_listing.h"
#include "embedded/slide_store/slide_writer.h"
#include "platform/framework_dc.h"
#include "platform/slide_store.h"
#include "support/temp_folder.h"

namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0), kGreen = RGB(0, 255, 0), kRed = RGB(255, 0, 0);

// A bitmap of 32 bits a pixel, black at first, whose pixels can be read.
class Picture {
 public:
  Picture(int width, int height) : width_(width), height_(height) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    bitmap_ = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    pixels_ = static_cast<std::uint32_t*>(bits);
    dc.CreateCompatibleDC(nullptr);
    old_ = ::SelectObject(dc.GetSafeHdc(), bitmap_);
  }
  ~Picture() {
    ::SelectObject(dc.GetSafeHdc(), old_);
    ::DeleteObject(bitmap_);
  }
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  COLORREF at(int x, int y) const {
    ::GdiFlush();
    const std::uint32_t pixel = pixels_[y * width_ + x];
    return RGB(pixel >> 16 & 255, pixel >> 8 & 255, pixel & 255);
  }
  std::vector<std::uint32_t> all() const {
    ::GdiFlush();
    return {pixels_, pixels_ + width_ * height_};
  }
  int count(COLORREF colour) const {
    int found = 0;
    for (int y = 0; y < height_; ++y) {
      for (int x = 0; x < width_; ++x) found += at(x, y) == colour;
    }
    return found;
  }

  CDC dc;

 private:
  int width_, height_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ old_ = nullptr;
  std::uint32_t* pixels_ = nullptr;
};

template <class Renderer>
void drawOn(Picture& picture, const std::string& slide, int width, int height, int x, int y) {
  Renderer renderer;
  renderer.dc = &picture.dc;
  renderer.Draw(slide.data(), static_cast<std::uint32_t>(slide.size()), width, height, x, y, 0, 0);
}

// A cross through the middle of a symbol's cell.
std::string cross() {
  slide_store::SlideWriter writer(240, 320);
  writer.line({120, 0}, {120, 320}, 3);
  writer.line({0, 160}, {240, 160}, 1);
  return writer.finish();
}

TEST(Renderers, SlideFillsTheBoxAndItsMiddleIsThePixelBehindTheHalf) {
  Picture picture(60, 50);
  drawOn<CGraph>(picture, cross(), 24, 20, 10, 5);
  EXPECT_EQ(picture.at(22, 5), kGreen);   // 10 + 12
  EXPECT_EQ(picture.at(22, 24), kGreen);  // the last pixel of the box
  EXPECT_EQ(picture.at(22, 4), kBlack);
  EXPECT_EQ(picture.at(22, 25), kBlack);
  EXPECT_EQ(picture.at(10, 15), kRed);
  EXPECT_EQ(picture.at(33, 15), kRed);
  EXPECT_EQ(picture.at(9, 15), kBlack);
  EXPECT_EQ(picture.at(34, 15), kBlack);
  EXPECT_EQ(picture.count(kGreen), 19);  // 20 less the crossing
  EXPECT_EQ(picture.count(kRed), 24);
}

TEST(Renderers, BothDrawAlike) {
  Picture one(60, 50);
  Picture other(60, 50);
  drawOn<CGraph>(one, cross(), 31, 27, 3, 2);
  drawOn<CGraphnored>(other, cross(), 31, 27, 3, 2);
  EXPECT_EQ(one.all(), other.all());
}

TEST(Renderers, WiresOfNeighbouringCellsMeet) {
  Picture picture(60, 80);
  drawOn<CGraphnored>(picture, cross(), 24, 20, 10, 5);
  slide_store::SlideWriter wide(720, 320);
  wide.line({360, 0}, {360, 320}, 3);
  drawOn<CGraphnored>(picture, wide.finish(), 72, 20, 10 - 24, 25);
  for (int y = 5; y < 45; ++y) EXPECT_NE(picture.at(22, y), kBlack) << y;
}

TEST(Renderers, FillsAreSolid) {
  slide_store::SlideWriter writer(100, 100);
  const slide_store::SlidePoint corners[] = {{20, 20}, {80, 20}, {80, 80}, {20, 80}};
  writer.fill(corners, 1);
  Picture picture(101, 101);
  drawOn<CGraph>(picture, writer.finish(), 101, 101, 0, 0);
  EXPECT_EQ(picture.count(kRed), 61 * 61);
  EXPECT_EQ(picture.at(50, 50), kRed);
}

TEST(Renderers, NothingIsDrawnOutsideOfTheBox) {
  // A vector that leaves the slide, as no writer of ours makes it.
  const std::string slide = test::slideWith("03 ff 00 00 00 00 00 7f 00 7f 00 fc");
  Picture picture(100, 100);
  drawOn<CGraph>(picture, slide, 20, 20, 40, 40);
  for (int y = 0; y < 100; ++y) {
    for (int x = 0; x < 100; ++x) {
      const bool inside = x >= 40 && x < 60 && y >= 40 && y < 60;
      if (!inside) {
        ASSERT_EQ(picture.at(x, y), kBlack) << x << "," << y;
      }
    }
  }
  EXPECT_GT(picture.count(kGreen), 0);
}

TEST(Renderers, WhatCannotBeDrawnDrawsNothing) {
  Picture picture(50, 50);
  drawOn<CGraph>(picture, "no slide", 20, 20, 0, 0);
  drawOn<CGraph>(picture, "", 20, 20, 0, 0);
  drawOn<CGraph>(picture, cross(), 0, 20, 0, 0);
  drawOn<CGraph>(picture, cross(), 20, -5, 0, 0);
  EXPECT_EQ(picture.count(kBlack), 2500);
  CGraph graph;
  graph.Draw(nullptr, 0, 20, 20, 0, 0, 0, 0);
  graph.DrawGrid({0, 0, 50, 50}, 2, 2, 0, 0);
  graph.HighLightBlock({0, 0, 50, 50}, 2, 2, 0, 0, 0);
}

TEST(Renderers, ContextIsAsBefore) {
  Picture picture(50, 50);
  const HGDIOBJ pen = ::GetCurrentObject(picture.dc.GetSafeHdc(), OBJ_PEN);
  RECT before{};
  picture.dc.GetClipBox(&before);
  drawOn<CGraph>(picture, cross(), 20, 20, 5, 5);
  RECT after{};
  picture.dc.GetClipBox(&after);
  EXPECT_EQ(::GetCurrentObject(picture.dc.GetSafeHdc(), OBJ_PEN), pen);
  EXPECT_EQ(before.right, after.right);
  EXPECT_EQ(before.left, after.left);
}

TEST(Renderers, GridStandsAroundTheCells) {
  Picture picture(100, 50);
  CGraph graph;
  graph.dc = &picture.dc;
  graph.DrawGrid({0, 0, 100, 50}, 4, 2, 0, 0);
  for (const int x : {0, 25, 50, 75, 99}) EXPECT_NE(picture.at(x, 10), kBlack) << x;
  for (const int y : {0, 25, 49}) EXPECT_NE(picture.at(10, y), kBlack) << y;
  EXPECT_EQ(picture.count(kBlack), 100 * 50 - 5 * 50 - 3 * 100 + 15);
}

TEST(Renderers, MarkDrawnTwiceRestoresThePicture) {
  Picture picture(100, 60);
  CGraph graph;
  graph.dc = &picture.dc;
  graph.DrawGrid({0, 0, 100, 60}, 4, 2, 0, 0);
  drawOn<CGraph>(picture, cross(), 25, 30, 25, 0);
  const auto before = picture.all();
  graph.HighLightBlock({0, 0, 100, 60}, 4, 2, 0, 1, 0);
  EXPECT_NE(picture.all(), before);
  EXPECT_EQ(picture.at(27, 2), RGB(255, 255, 255));
  graph.HighLightBlock({0, 0, 100, 60}, 4, 2, 0, 1, 0);
  EXPECT_EQ(picture.all(), before);
}

TEST(Renderers, CellOfAnotherPageIsNotMarked) {
  Picture picture(100, 60);
  CGraph graph;
  graph.dc = &picture.dc;
  const auto before = picture.all();
  for (const int cell : {-1, 8, 100}) graph.HighLightBlock({0, 0, 100, 60}, 4, 2, 0, cell, 0);
  graph.HighLightBlock({0, 0, 100, 60}, 4, 2, 1, 7, 0);
  EXPECT_EQ(picture.all(), before);
  graph.HighLightBlock({0, 0, 100, 60}, 4, 2, 1, 8, 0);
  EXPECT_NE(picture.all(), before);
}

class SlideBitmaps : public testing::Test {
 protected:
  SlideBitmaps() {
    const std::wstring path = base::wideFromPath(folder_ / "group.slb");
    CSlbMan library;
    library.OnOpenDocument(path.c_str());
    const std::string slide = cross();
    library.AddSlideW(L"FG001001", slide.data(), static_cast<std::uint32_t>(slide.size()));
    library.AddSlideW(L"BROKEN", "no slide", 8);
    library.SaveModified();
    data_.ReadDataFromFileW(path);
  }

  test::TempFolder folder_;
  CSlideLibraryData data_;
};

TEST_F(SlideBitmaps, SlideIsDrawnOnTheBackground) {
  const COLORREF background = RGB(0, 64, 128);
  const std::unique_ptr<CBitmap> bitmap(data_.MakeBitMapFromIndex(0, 32, 16, background));
  ASSERT_NE(bitmap, nullptr);
  BITMAP size{};
  bitmap->GetBitmap(&size);
  EXPECT_EQ(size.bmWidth, 32);
  EXPECT_EQ(size.bmHeight, 16);
  CDC memory;
  memory.CreateCompatibleDC(nullptr);
  CBitmap* const old = memory.SelectObject(bitmap.get());
  EXPECT_EQ(memory.GetPixel(0, 0), background);
  EXPECT_EQ(memory.GetPixel(16, 0), kGreen);
  EXPECT_EQ(memory.GetPixel(0, 8), kRed);
  memory.SelectObject(old);
}

TEST_F(SlideBitmaps, WhatCannotBeRenderedIsNull) {
  EXPECT_EQ(data_.MakeBitMapFromIndex(data_.GetIndexFromName(L"no such slide"), 32, 16, 0),
            nullptr);
  EXPECT_EQ(data_.MakeBitMapFromIndex(data_.GetIndexFromName(L"BROKEN"), 32, 16, 0), nullptr);
  EXPECT_EQ(data_.MakeBitMapFromIndex(7, 32, 16, 0), nullptr);
  EXPECT_EQ(data_.MakeBitMapFromIndex(0, 0, 16, 0), nullptr);
  EXPECT_EQ(data_.MakeBitMapFromIndex(0, 32, -1, 0), nullptr);
  CSlideLibraryData empty;
  EXPECT_EQ(empty.MakeBitMapFromIndex(0, 32, 16, 0), nullptr);
}

}  // namespace

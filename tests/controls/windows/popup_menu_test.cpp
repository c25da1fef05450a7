// Owner-drawn menus by themselves: what is remapped, measured and drawn.
#include <algorithm>

#include "controls/windows/bar_kit.h"
#include "controls/windows/gdi_scope.h"
#include "controls/windows/gfx_popup_menu.h"
#include "resources/resource_ids.h"

namespace {

using namespace controls_test;

// --- remapping ---

ULONG_PTR dataOf(HMENU menu, UINT position) {
  MENUITEMINFOW info{};
  info.cbSize = sizeof(info);
  info.fMask = MIIM_DATA;
  ::GetMenuItemInfoW(menu, position, TRUE, &info);
  return info.dwItemData;
}
const GfxMenuItem& itemOf(HMENU menu, UINT position) {
  return *reinterpret_cast<const GfxMenuItem*>(dataOf(menu, position));
}

TEST(PopupMenu, OwnerDrawnEntriesAreLeftAlone) {
  CGfxPopupMenu menu;
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_OWNERDRAW, 7, reinterpret_cast<const wchar_t*>(0x1234));
  menu.AppendMenu(MF_STRING, 8, L"text");
  menu.RemapMenu(&menu);
  EXPECT_EQ(dataOf(menu, 0), 0x1234u);
  EXPECT_STREQ(itemOf(menu, 1).text, L"text");
  const auto before = dataOf(menu, 1);
  menu.RemapMenu(&menu);
  EXPECT_EQ(dataOf(menu, 1), before);
}

TEST(PopupMenu, BitmapsAreLeftAlone) {
  const HBITMAP bitmap = ::CreateBitmap(8, 8, 1, 1, nullptr);
  {
    CGfxPopupMenu menu;
    menu.CreatePopupMenu();
    ::AppendMenuW(menu, MF_BITMAP, 7, reinterpret_cast<const wchar_t*>(bitmap));
    menu.RemapMenu(&menu);
    EXPECT_EQ(menu.GetMenuState(0, MF_BYPOSITION) & MF_OWNERDRAW, 0u);
    EXPECT_EQ(dataOf(menu, 0), 0u);
  }
  ::DeleteObject(bitmap);
}

TEST(PopupMenu, EntriesKeepTheirStatesAndSeparatorsGetTheirMark) {
  CGfxPopupMenu menu;
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_STRING | MF_CHECKED, 8, L"text\tF2");
  menu.AppendMenu(MF_SEPARATOR);
  menu.RemapMenu(&menu);
  EXPECT_EQ(menu.GetMenuState(0, MF_BYPOSITION) & (MF_OWNERDRAW | MF_CHECKED),
            static_cast<UINT>(MF_OWNERDRAW | MF_CHECKED));
  EXPECT_EQ(menu.GetMenuItemID(0), 8u);
  EXPECT_EQ(itemOf(menu, 0).command, 8);
  EXPECT_EQ(itemOf(menu, 0).image, kNoMenuImage);
  EXPECT_STREQ(itemOf(menu, 0).text, L"text\tF2");
  EXPECT_EQ(menu.GetMenuState(1, MF_BYPOSITION) & (MF_OWNERDRAW | MF_SEPARATOR),
            static_cast<UINT>(MF_OWNERDRAW | MF_SEPARATOR));
  EXPECT_EQ(itemOf(menu, 1).command, kMenuSeparator);
  EXPECT_STREQ(itemOf(menu, 1).text, L"--");
}

// The depth is counted on the way in and out, so the second menu begins at the first level again.
TEST(PopupMenu, SubMenusAreMarkedByTheirDepth) {
  for (int round = 0; round < 2; ++round) {
    CGfxPopupMenu menu;
    menu.CreatePopupMenu();
    const HMENU first = ::CreatePopupMenu();
    const HMENU second = ::CreatePopupMenu();
    ::AppendMenuW(second, MF_STRING, 9, L"leaf");
    ::AppendMenuW(first, MF_POPUP, reinterpret_cast<UINT_PTR>(second), L"deep");
    menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(first), L"more");
    menu.RemapMenu(CMenu::FromHandle(first));
    EXPECT_EQ(itemOf(first, 0).command, kMenuSubMenu)
        << "asked for by itself it is the first level";
    menu.RemapMenu(&menu);
    EXPECT_EQ(itemOf(menu, 0).command, kMenuSubMenu);
    EXPECT_EQ(itemOf(menu, 0).image, kMenuSubMenu);
    EXPECT_STREQ(itemOf(menu, 0).text, L"more");
  }
}

// --- drawing ---

// An entry of 120 by 20 in a picture of its own.
class DrawnEntry {
 public:
  DrawnEntry() : like_(nullptr), picture_(like_, 120, 20) {}

  DrawnEntry& draw(CGfxPopupMenu& menu, GfxMenuItem& item, UINT state) {
    DRAWITEMSTRUCT drawn{};
    drawn.CtlType = ODT_MENU;
    drawn.itemState = state;
    drawn.hDC = picture_.dc.GetSafeHdc();
    drawn.rcItem = {0, 0, 120, 20};
    drawn.itemData = reinterpret_cast<ULONG_PTR>(&item);
    menu.DrawItem(&drawn);
    return *this;
  }
  std::uint32_t at(int x, int y) const { return rgb(picture_.dc.GetPixel(x, y)); }
  int count(int left, int right, std::uint32_t colour) const {
    int found = 0;
    for (int y = 0; y < 20; ++y) {
      for (int x = left; x < right; ++x) found += at(x, y) == colour ? 1 : 0;
    }
    return found;
  }
  std::uint32_t darkest(int left, int right) const {
    std::uint32_t least = 0xFF;
    for (int y = 0; y < 20; ++y) {
      for (int x = left; x < right; ++x) least = std::min(least, at(x, y) & 0xFF);
    }
    return least;
  }
  // Pixels of the text's place that aren't the background at its right end.
  int ink() const { return 100 * 20 - count(20, 120, at(119, 0)); }
  const CDC& dc() const { return picture_.dc; }

 private:
  CClientDC like_;
  MemoryPicture picture_;
};

TEST(PopupMenu, TheDefaultEntryIsDrawnBold) {
  CGfxPopupMenu menu;
  GfxMenuItem item{-1, 8, L"entry"};
  const int plain = DrawnEntry().draw(menu, item, 0).ink();
  EXPECT_GT(plain, 20);
  EXPECT_GT(DrawnEntry().draw(menu, item, ODS_DEFAULT).ink(), plain);
}

TEST(PopupMenu, DrawingLeavesTheContextAsItWas) {
  CGfxPopupMenu menu;
  GfxMenuItem item{-1, 8, L"entry"};
  DrawnEntry entry;
  const HGDIOBJ font = ::GetCurrentObject(entry.dc(), OBJ_FONT);
  const HGDIOBJ pen = ::GetCurrentObject(entry.dc(), OBJ_PEN);
  const COLORREF colour = entry.dc().GetTextColor();
  const int mode = entry.dc().GetBkMode();
  entry.draw(menu, item, ODS_SELECTED).draw(menu, item, ODS_DISABLED);
  GfxMenuItem separator{kMenuSeparator, kMenuSeparator, L"--"};
  entry.draw(menu, separator, 0);
  EXPECT_EQ(::GetCurrentObject(entry.dc(), OBJ_FONT), font);
  EXPECT_EQ(::GetCurrentObject(entry.dc(), OBJ_PEN), pen);
  EXPECT_EQ(entry.dc().GetTextColor(), colour);
  EXPECT_EQ(entry.dc().GetBkMode(), mode);
}

TEST(PopupMenu, ASeparatorsLinesLeaveTwoPixelsAtEachEnd) {
  CGfxPopupMenu menu;
  GfxMenuItem item{kMenuSeparator, kMenuSeparator, L"--"};
  DrawnEntry entry;
  entry.draw(menu, item, 0);
  const std::uint32_t shadow = systemColour(COLOR_BTNSHADOW);
  const std::uint32_t light = systemColour(COLOR_BTNHIGHLIGHT);
  for (const int x : {2, 60, 117}) {
    EXPECT_EQ(entry.at(x, 2), shadow) << x;
    EXPECT_EQ(entry.at(x, 3), light) << x;
  }
  for (const int x : {1, 118}) {
    EXPECT_NE(entry.at(x, 2), shadow) << x;
    EXPECT_NE(entry.at(x, 3), light) << x;
  }
}

// The images come from the module; their pictures are dark on the mask's grey, which shows the
// buttons' face.
TEST(PopupMenu, ADisabledViewEntryHasAnEtchedImageAndText) {
  const framework_test::ModuleResources resources;
  CGfxPopupMenu menu;
  ASSERT_TRUE(menu.LoadMenuImages(IDB_MENU_IMAGES));
  GfxMenuItem item{kNoMenuImage, 8, L"大图标"};
  DrawnEntry enabled;
  enabled.draw(menu, item, 0);
  EXPECT_EQ(item.image, 0);
  DrawnEntry disabled;
  disabled.draw(menu, item, ODS_DISABLED);
  const std::uint32_t gray = systemColour(COLOR_GRAYTEXT) & 0xFF;
  EXPECT_LT(enabled.darkest(21, 120), gray / 2);
  EXPECT_GE(disabled.darkest(21, 120), gray);
  EXPECT_LT(disabled.darkest(21, 120), gray + 40) << "smoothed letters are lighter";
  int changed = 0;
  for (int y = 2; y < 17; ++y) {
    for (int x = 2; x < 18; ++x) changed += enabled.at(x, y) != disabled.at(x, y) ? 1 : 0;
  }
  EXPECT_GT(changed, 20);
  EXPECT_GT(disabled.count(2, 18, systemColour(COLOR_BTNSHADOW)), 10);
}

TEST(PopupMenu, WithoutImagesAViewEntryStillShowsItsText) {
  CGfxPopupMenu menu;
  EXPECT_FALSE(menu.LoadMenuImages(4711));
  GfxMenuItem item{kNoMenuImage, 8, L"小图标"};
  EXPECT_GT(DrawnEntry().draw(menu, item, 0).ink(), 20);
  EXPECT_EQ(item.image, 1);
}

// Another colour for a while.
class OtherColour {
 public:
  OtherColour(int index, COLORREF colour) : index_(index), before_(::GetSysColor(index)) {
    ::SetSysColors(1, &index_, &colour);
  }
  ~OtherColour() { ::SetSysColors(1, &index_, &before_); }
  OtherColour(const OtherColour&) = delete;
  OtherColour& operator=(const OtherColour&) = delete;

 private:
  int index_;
  COLORREF before_;
};

TEST(PopupMenu, ColoursAreThoseOfItsBeginning) {
  CGfxPopupMenu menu;
  GfxMenuItem item{-1, 8, L"entry"};
  const std::uint32_t before = systemColour(COLOR_MENU);
  const OtherColour other(COLOR_MENU, RGB(1, 2, 3));
  ASSERT_EQ(systemColour(COLOR_MENU), 0x010203u);
  EXPECT_EQ(DrawnEntry().draw(menu, item, 0).at(119, 0), before);
}

// --- measuring ---

TEST(PopupMenu, AnEntryIsMeasuredInTheSystemsMenuFont) {
  const framework_test::ModuleResources resources;
  CGfxPopupMenu menu;
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
  const HFONT font = ::CreateFontIndirectW(&metrics.lfMenuFont);
  const HDC screen = ::GetDC(nullptr);
  const HGDIOBJ before = ::SelectObject(screen, font);
  SIZE text{};
  ::GetTextExtentPoint32W(screen, L"重命名", 3, &text);
  ::SelectObject(screen, before);
  ::ReleaseDC(nullptr, screen);
  ::DeleteObject(font);

  GfxMenuItem item{-1, 8, L"重命名"};
  MEASUREITEMSTRUCT measure{};
  measure.CtlType = ODT_MENU;
  measure.itemData = reinterpret_cast<ULONG_PTR>(&item);
  menu.MeasureItem(&measure);
  const LONG tall = std::max<LONG>(25, text.cy);
  EXPECT_EQ(measure.itemHeight, static_cast<UINT>(tall)) << "images are 20 high at first";
  EXPECT_EQ(measure.itemWidth, static_cast<UINT>(text.cx + 17 + tall));
  menu.LoadMenuImages(IDB_MENU_IMAGES);
  menu.MeasureItem(&measure);
  const LONG low = std::max<LONG>(20, text.cy);
  EXPECT_EQ(measure.itemHeight, static_cast<UINT>(low));
  EXPECT_EQ(measure.itemWidth, static_cast<UINT>(text.cx + 17 + low));
}

TEST(PopupMenu, WithoutItemsNothingIsMeasuredOrDrawn) {
  CGfxPopupMenu menu;
  MEASUREITEMSTRUCT measure{};
  measure.CtlType = ODT_MENU;
  measure.itemWidth = 77;
  menu.MeasureItem(&measure);
  EXPECT_EQ(measure.itemWidth, 77u);
  GfxMenuItem item{-3, kMenuSeparator, L"--"};
  measure.itemData = reinterpret_cast<ULONG_PTR>(&item);
  measure.CtlType = ODT_LISTBOX;
  menu.MeasureItem(&measure);
  EXPECT_EQ(measure.itemWidth, 77u);
  measure.CtlType = ODT_MENU;
  menu.MeasureItem(&measure);
  EXPECT_EQ(measure.itemWidth, 10u);
  EXPECT_EQ(measure.itemHeight, 6u);
}

}  // namespace

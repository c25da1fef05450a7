// The bar's menu and its label editor with real input.
#include "controls/windows/bar_kit.h"
#include "controls/windows/gfx_group_edit.h"
#include "controls/windows/gfx_popup_menu.h"

namespace {

using namespace controls_test;

class BarMenu : public BarWindow {
 protected:
  // Opens the menu there and waits until it is drawn.
  WindowScript& open(WindowScript& script, CPoint point) {
    moveTo(script, point).pressRight().releaseRight();
    return script.waitFor("the menu", [this] { return bar_->menu && bar_->menuDrawn; });
  }
  void note() {
    for (int i = 0; i < ::GetMenuItemCount(bar_->menu); ++i) {
      ids_.push_back(::GetMenuItemID(bar_->menu, i));
      states_.push_back(::GetMenuState(bar_->menu, static_cast<UINT>(i), MF_BYPOSITION));
    }
  }
  std::vector<UINT> idsAt(CPoint point) {
    ids_.clear();
    states_.clear();
    WindowScript script;
    open(script, point).then([this] { note(); }).key(VK_ESCAPE);
    script.waitFor("the menu's end", [this] { return !bar_->menu; });
    EXPECT_EQ(script.run(), "");
    return ids_;
  }
  void choose(CPoint point, int downs) {
    WindowScript script;
    open(script, point);
    for (int i = 0; i < downs; ++i) script.key(VK_DOWN);
    script.key(VK_RETURN).waitFor("the menu's end", [this] { return !bar_->menu; });
    script.then([] {});
    EXPECT_EQ(script.run(), "");
    AfxPumpWaitingMessages();
  }

  std::vector<UINT> ids_;
  std::vector<UINT> states_;
};

TEST_F(BarMenu, OffersWhatFitsTheClick) {
  addItems(1);
  using Ids = std::vector<UINT>;
  EXPECT_EQ(idsAt(middle(icon(0))), (Ids{21634, 21635, 0, 21637, 21636}));
  EXPECT_EQ(idsAt(middle(header(1))), (Ids{21634, 21635, 0, 21644, 21636}));
  EXPECT_EQ(idsAt(middle(header(2))), (Ids{21634, 21635, 0, 21644, 21637, 21636}));
  EXPECT_EQ(idsAt({50, 220}), (Ids{21634, 21635, 0, 21638}));
  for (const UINT state : states_) EXPECT_NE(state & MF_OWNERDRAW, 0u);
}

TEST_F(BarMenu, TheViewThatIsShownIsDisabled) {
  addItems(1);
  idsAt({50, 220});
  ASSERT_EQ(states_.size(), 4u);
  EXPECT_EQ(states_[0] & MF_GRAYED, 0u);
  EXPECT_NE(states_[1] & MF_GRAYED, 0u);
  EXPECT_EQ(states_[3] & MF_GRAYED, 0u);
  bar_->SetIconView(true);
  idsAt({20, 200});  // elsewhere, or it would be a double click
  ASSERT_EQ(states_.size(), 4u);
  EXPECT_NE(states_[0] & MF_GRAYED, 0u);
  EXPECT_EQ(states_[1] & MF_GRAYED, 0u);
}

TEST_F(BarMenu, ChosenEntriesActOnWhatWasClicked) {
  addItems(2);
  choose(middle(icon(1)), 3);
  choose(middle(header(3)), 4);
  choose({10, header(3).top + 5}, 3);  // elsewhere, or it would be a double click
  choose({50, 220}, 3);
  EXPECT_EQ(library_.log, (Log{"remove item 1", "remove group 3", "add group", "add item"}));
}

TEST_F(BarMenu, SmallIconsAreChosen) {
  addItems(2);
  choose({50, 220}, 1);
  EXPECT_TRUE(bar_->IsSmallIconView());
}

// The first entry is drawn, selected and left again; its icon cell is as high as the entry.
TEST_F(BarMenu, TheSelectedEntryIsHighlightedBesideItsImage) {
  addItems(1);
  struct Look {
    std::uint32_t cell, bar;
  };
  std::vector<Look> looks;
  const auto look = [&looks] {
    const HWND menu = ::FindWindowW(L"#32768", nullptr);
    const auto picture = pictureOf(menu);
    looks.push_back({picture.at(2, 10), picture.at(picture.width() - 4, 10)});
  };
  WindowScript script;
  open(script, {50, 220}).then(look);
  script.key(VK_DOWN).then(look).key(VK_DOWN).then(look).key(VK_UP).then(look).key(VK_ESCAPE);
  script.waitFor("the menu's end", [this] { return !bar_->menu; });
  EXPECT_EQ(script.run(), "");
  ASSERT_EQ(looks.size(), 4u);
  const std::uint32_t menu = systemColour(COLOR_MENU);
  const std::uint32_t highlight = systemColour(COLOR_HIGHLIGHT);
  EXPECT_EQ(looks[0].bar, menu);
  EXPECT_EQ(looks[1].bar, highlight);
  EXPECT_EQ(looks[1].cell, menu) << "it found its image when it was drawn first";
  EXPECT_EQ(looks[2].bar, menu);
  EXPECT_EQ(looks[3].bar, highlight);
}

// --- remapping ---

TEST(PopupMenu, OwnerDrawnEntriesAreLeftAlone) {
  CGfxPopupMenu menu;
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_OWNERDRAW, 7, reinterpret_cast<const wchar_t*>(0x1234));
  menu.AppendMenu(MF_STRING, 8, L"text");
  menu.RemapMenu(&menu);
  const auto data = [&menu](UINT position) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof(info);
    info.fMask = MIIM_DATA;
    ::GetMenuItemInfoW(menu, position, TRUE, &info);
    return info.dwItemData;
  };
  EXPECT_EQ(data(0), 0x1234u);
  EXPECT_STREQ(reinterpret_cast<const GfxMenuItem*>(data(1))->text, L"text");
  const auto before = data(1);
  menu.RemapMenu(&menu);
  EXPECT_EQ(data(1), before);
}

TEST(PopupMenu, TheDefaultEntryIsDrawnBold) {
  CGfxPopupMenu menu;
  const HDC screen = ::GetDC(nullptr);
  const HDC memory = ::CreateCompatibleDC(screen);
  const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, 120, 20);
  const HGDIOBJ before = ::SelectObject(memory, bitmap);
  const auto inkOf = [&](UINT state) {
    GfxMenuItem item{-1, 8, L"entry"};
    DRAWITEMSTRUCT drawn{};
    drawn.CtlType = ODT_MENU;
    drawn.itemState = state;
    drawn.hDC = memory;
    drawn.rcItem = {0, 0, 120, 20};
    drawn.itemData = reinterpret_cast<ULONG_PTR>(&item);
    menu.DrawItem(&drawn);
    int ink = 0;
    for (int y = 0; y < 20; ++y) {
      for (int x = 20; x < 120; ++x) {
        ink += ::GetPixel(memory, x, y) != ::GetPixel(memory, 119, 0) ? 1 : 0;
      }
    }
    return ink;
  };
  const int plain = inkOf(0);
  EXPECT_GT(plain, 20);
  EXPECT_GT(inkOf(ODS_DEFAULT), plain);
  ::SelectObject(memory, before);
  ::DeleteObject(bitmap);
  ::DeleteDC(memory);
  ::ReleaseDC(nullptr, screen);
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

// --- label editor ---

class LabelEdit : public BarWindow {
 protected:
  bool open() { return ::GetDlgItem(window(), 1) != nullptr; }
  CRect box() { return framework_test::rectInParent(*bar_->GetDlgItem(1)); }
  void type(const std::vector<WORD>& keys) {
    WindowScript script;
    script.translate(AfxPreTranslateMessage);
    for (const WORD key : keys) script.key(key);
    script.then([] {});
    EXPECT_EQ(script.run(), "");
    AfxPumpWaitingMessages();
  }
  std::vector<WORD> many(int count, WORD last = 0) {
    std::vector<WORD> keys(static_cast<std::size_t>(count), 'W');
    if (last != 0) keys.push_back(last);
    return keys;
  }
};

TEST_F(LabelEdit, EnterSendsTheText) {
  addItems(2);
  bar_->BeginItemEdit(1);
  type({VK_END, 'X', VK_RETURN});
  EXPECT_FALSE(open());
  EXPECT_EQ(library_.log, (Log{"rename item 1 bx"}));
}

TEST_F(LabelEdit, EnterSendsAlsoAnUnchangedText) {
  bar_->BeginFolderEdit(2);
  type({VK_RETURN});
  EXPECT_EQ(library_.log, (Log{"rename folder 2 third"}));
}

TEST_F(LabelEdit, EscSendsNothing) {
  addItems(2);
  bar_->BeginItemEdit(1);
  type({VK_END, 'X', VK_ESCAPE});
  EXPECT_FALSE(open());
  EXPECT_TRUE(library_.log.empty());
}

TEST_F(LabelEdit, AnEmptyTextIsDropped) {
  addItems(2);
  bar_->BeginItemEdit(1);
  type({VK_HOME, VK_DELETE, VK_RETURN});
  EXPECT_FALSE(open());
  EXPECT_TRUE(library_.log.empty());
}

TEST_F(LabelEdit, AClickElsewhereSendsTheText) {
  addItems(2);
  bar_->BeginItemEdit(0);
  type({VK_END, 'X'});
  EXPECT_EQ(WindowScript().click(window(), 3, 220).run(), "");
  AfxPumpWaitingMessages();
  EXPECT_FALSE(open());
  EXPECT_EQ(library_.log, (Log{"rename item 0 ax"}));
}

TEST_F(LabelEdit, ALargeIconsBoxGrowsToTheEdgeThenDown) {
  addItems(1);
  bar_->BeginItemEdit(0);
  const CRect before = box();
  EXPECT_EQ(before.left, 5);
  EXPECT_EQ(before.right, 95);
  type(many(12));
  EXPECT_EQ(box().right, 100);
  EXPECT_LE(box().Height(), before.Height());
  type(std::vector<WORD>(9, VK_BACK));
  type({VK_SPACE, 'W', 'W', 'W', VK_SPACE, 'W', 'W', 'W', VK_SPACE, 'W', 'W', 'W'});
  EXPECT_GT(box().bottom, before.bottom);
  type({VK_ESCAPE});
}

TEST_F(LabelEdit, ASmallIconsBoxStopsAPixelBeforeTheEdge) {
  bar_->SetIconView(true);
  addItems(1);
  bar_->BeginItemEdit(0);
  EXPECT_EQ(box().left, cell(0).left + 17);
  type(many(30));
  EXPECT_EQ(box().right, 99);
  type({VK_ESCAPE});
}

TEST_F(LabelEdit, AFoldersBoxKeepsItsSize) {
  bar_->BeginFolderEdit(1);
  const CRect before = box();
  CRect inside = header(1);
  inside.InflateRect(-2, -2);
  EXPECT_TRUE(before == inside);
  type(many(30));
  EXPECT_TRUE(box() == before);
  type({VK_ESCAPE});
}

TEST_F(LabelEdit, HoverFramesStandStillMeanwhile) {
  addItems(2);
  bar_->BeginItemEdit(1);
  WindowScript script;
  moveTo(script, middle(header(0))).then([] {});
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(bar_->hover().folder, -1);
  type({VK_ESCAPE});
}

}  // namespace

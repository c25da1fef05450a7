// The bar's menu with real input.
#include "controls/windows/bar_kit.h"

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

TEST_F(BarMenu, OverAnArrowItOffersWhatTheBackgroundDoes) {
  addItems(6);
  ASSERT_TRUE(bar_->view().downShown);
  EXPECT_EQ(idsAt(middle(bar_->view().down)), (std::vector<UINT>{21634, 21635, 0, 21638}));
}

TEST_F(BarMenu, OpensAtThePointer) {
  CRect place;
  WindowScript script;
  open(script, {50, 220}).then([&] { ::GetWindowRect(::FindWindowW(L"#32768", nullptr), place); });
  script.key(VK_ESCAPE).waitFor("the menu's end", [this] { return !bar_->menu; });
  EXPECT_EQ(script.run(), "");
  CPoint pressed(50, 220);
  bar_->ClientToScreen(&pressed);
  EXPECT_EQ(place.left, pressed.x);
  EXPECT_EQ(place.top, pressed.y);
}

class FullBarMenu : public BarMenu {
 protected:
  FullBarMenu() { flags_ = 0xFFFF & ~BARF_SMALLICON; }
};

// They are enabled and do nothing.
TEST_F(FullBarMenu, SizesAndClipboardAreOfferedWithoutEffect) {
  addItems(1);
  EXPECT_EQ(idsAt(middle(icon(0))), (std::vector<UINT>{21634, 21635, 21639, 21640, 0, 21637, 21636,
                                                       0, 21641, 21642, 21643}));
  for (const std::size_t entry : {2u, 3u, 5u, 6u, 8u, 9u, 10u}) {
    EXPECT_EQ(states_[entry] & MF_GRAYED, 0u) << entry;
  }
  const auto before = pictureOf(window());
  for (const UINT command : {21639u, 21640u, 21641u, 21642u, 21643u}) {
    bar_->SendMessage(WM_COMMAND, command);
  }
  AfxPumpWaitingMessages();
  EXPECT_EQ(changedSince(before), 0);
  EXPECT_TRUE(library_.log.empty());
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

}  // namespace

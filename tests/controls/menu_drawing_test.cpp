// Owner-drawn entries: their table, sizes and strokes; images of 16 by 15, letters of 8 by 12.
#include "controls/menu_drawing.h"

#include <gtest/gtest.h>

#include "controls/bar_fixture.h"

namespace {

using controls_test::edges;
using controls_test::Place;

SIZE sized(int cx, int cy) {
  SIZE size;
  size.cx = cx;
  size.cy = cy;
  return size;
}

SIZE letters(const std::wstring& text) { return sized(8 * static_cast<int>(text.size()), 12); }

const SIZE kImage = sized(16, 15);

// An entry of 200 by 20 at the point (0, 40).
class Entry {
 public:
  explicit Entry(const std::wstring& text, std::int32_t command = 7)
      : item_(items_->AddMenuItem(text, command)) {}

  GfxMenuItem& item() { return *item_; }
  Entry& draw(const MenuItemState& state = {}) {
    strokes_ = menuItemStrokes(*item_, {0, 40, 200, 60}, state, kImage, letters);
    return *this;
  }
  template <typename Stroke>
  std::vector<Stroke> all() const {
    std::vector<Stroke> found;
    for (const MenuStroke& stroke : strokes_) {
      if (const auto* one = std::get_if<Stroke>(&stroke)) found.push_back(*one);
    }
    return found;
  }

 private:
  std::shared_ptr<MenuItems> items_ = std::make_shared<MenuItems>();
  GfxMenuItem* item_;
  std::vector<MenuStroke> strokes_;
};

const MenuItemState kSelected{true, false, false};
const MenuItemState kDisabled{false, true, false};
const MenuItemState kSelectedDisabled{true, true, false};
const MenuItemState kChecked{false, false, true};

Place measured(const std::wstring& text, std::int32_t command = 7) {
  MenuItems items;
  const SIZE size = menuItemSize(*items.AddMenuItem(text, command), kImage, letters);
  return {static_cast<int>(size.cx), static_cast<int>(size.cy)};
}

TEST(MenuItems, TextsAreCutAtTheirRoom) {
  MenuItems items;
  const std::wstring text(300, L'x');
  EXPECT_EQ(items.AddMenuItem(text, 1)->text, std::wstring(127, L'x'));
  EXPECT_EQ(items.count(), 1);
}

TEST(MenuItems, TheTableHasRoomForWholeItems) {
  MenuItems items;
  for (std::size_t count = 1; count <= 5; ++count) {
    items.AddMenuItem(L"a", 1);
    EXPECT_EQ(items.tableBytes(), count * 264);
  }
}

TEST(MenuItems, MarksAreTheirOwnImage) {
  MenuItems items;
  EXPECT_EQ(items.AddMenuItem(L"--", kMenuSeparator)->image, kMenuSeparator);
  EXPECT_EQ(items.AddMenuItem(L"a", 5)->image, kNoMenuImage);
  items.imageIds = {{3, 5}, {4, 5}};
  EXPECT_EQ(items.AddMenuItem(L"a", 5)->image, 3);
}

TEST(MenuMeasure, AnEntryIsAsWideAsItsTextItsCellAndAMargin) {
  EXPECT_EQ(measured(L"label"), (Place{40 + 17 + 20, 20}));
  EXPECT_EQ(measured(L""), (Place{100, 20}));
}

TEST(MenuMeasure, AHighFontMakesHighEntries) {
  MenuItems items;
  const SIZE size = menuItemSize(*items.AddMenuItem(L"a", 7), kImage,
                                 [](const std::wstring&) { return sized(10, 30); });
  EXPECT_EQ(size.cx, 10 + 17 + 30);
  EXPECT_EQ(size.cy, 30);
}

TEST(MenuMeasure, SeparatorsAndFirstLevelSubMenus) {
  EXPECT_EQ(measured(L"--", kMenuSeparator), (Place{10, 6}));
  EXPECT_EQ(measured(L"more", kMenuSubMenu), (Place{32, 12}));
  EXPECT_EQ(measured(L"more", kMenuDeepSubMenu), (Place{32 + 17 + 20, 20}));
}

TEST(MenuDrawing, ASeparatorIsTwoLinesAcross) {
  const auto lines = Entry(L"--", kMenuSeparator).draw().all<MenuLine>();
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].from.x, 2);
  EXPECT_EQ(lines[0].to.x, 198);
  EXPECT_EQ(lines[0].from.y, 42);
  EXPECT_EQ(lines[0].colour, MenuColour::Shadow);
  EXPECT_EQ(lines[1].from.y, 43);
  EXPECT_EQ(lines[1].to.y, 43);
  EXPECT_EQ(lines[1].colour, MenuColour::Light);
}

TEST(MenuDrawing, AViewEntryFindsItsImageWhenFirstDrawnAndKeepsIt) {
  Entry entry(L"大图标");
  entry.draw(kSelected);
  EXPECT_EQ(entry.item().image, 0);
  EXPECT_EQ(edges(entry.all<MenuFill>()[0].rect), (Place{0, 40, 200, 60})) << "the whole entry";
  EXPECT_EQ(entry.all<MenuImage>()[0].index, 0);
  entry.draw(kSelected);
  EXPECT_EQ(edges(entry.all<MenuFill>()[0].rect), (Place{21, 40, 200, 60})) << "beside the cell";
  Entry smaller(L"小图标");
  EXPECT_EQ(smaller.draw().all<MenuImage>()[0].index, 1);
  EXPECT_EQ(smaller.item().image, 1);
}

TEST(MenuDrawing, ATabBehindTheWordsMakesThemOthers) {
  Entry entry(L"大图标\tCtrl+L");
  EXPECT_TRUE(entry.draw().all<MenuImage>().empty());
  EXPECT_EQ(entry.item().image, kNoMenuImage);
}

TEST(MenuDrawing, TheSelectedIconHasARaisedFrame) {
  Entry entry(L"大图标");
  auto frame = entry.draw(kSelected).all<MenuFrame>();
  ASSERT_EQ(frame.size(), 1u);
  EXPECT_EQ(edges(frame[0].rect), (Place{0, 40, 20, 60}));
  EXPECT_EQ(frame[0].topLeft, MenuColour::Light);
  EXPECT_EQ(frame[0].bottomRight, MenuColour::Shadow);
  EXPECT_EQ(entry.all<MenuImage>()[0].at.x, 2);
  EXPECT_EQ(entry.all<MenuImage>()[0].at.y, 42);
  for (const MenuItemState& state : {MenuItemState{}, kSelectedDisabled}) {
    frame = entry.draw(state).all<MenuFrame>();
    EXPECT_EQ(frame[0].topLeft, MenuColour::Menu);
    EXPECT_EQ(frame[0].bottomRight, MenuColour::Menu);
  }
}

TEST(MenuDrawing, ATabSendsTheRestToTheRight) {
  const auto texts = Entry(L"cut\tCtrl+X").draw().all<MenuText>();
  ASSERT_EQ(texts.size(), 2u);
  EXPECT_EQ(texts[0].text, L"cut");
  EXPECT_EQ(texts[0].flags, 4u);
  EXPECT_EQ(texts[1].text, L"Ctrl+X");
  EXPECT_EQ(texts[1].flags, 6u);
  EXPECT_EQ(edges(texts[1].rect), (Place{23, 44, 185, 60}));
}

TEST(MenuDrawing, TheLeftEdgeOfTheEntryCountsTwiceForItsText) {
  MenuItems items;
  GfxMenuItem* item = items.AddMenuItem(L"a", 7);
  const auto strokes = menuItemStrokes(*item, {5, 0, 100, 20}, {}, kImage, letters);
  EXPECT_EQ(std::get<MenuText>(strokes.back()).rect.left, 5 + 25 + 1 + 2);
}

TEST(MenuDrawing, SelectionColoursTextAndBackground) {
  const auto plain = Entry(L"a").draw();
  EXPECT_EQ(plain.all<MenuFill>()[0].colour, MenuColour::Menu);
  EXPECT_EQ(plain.all<MenuText>()[0].colour, MenuColour::Text);
  EXPECT_EQ(plain.all<MenuText>()[0].flags, 68u);
  const auto selected = Entry(L"a").draw(kSelected);
  EXPECT_EQ(selected.all<MenuFill>()[0].colour, MenuColour::Highlight);
  EXPECT_EQ(selected.all<MenuText>()[0].colour, MenuColour::SelectedText);
}

TEST(MenuDrawing, DisabledTextIsEtchedUnlessSelected) {
  const auto etched = Entry(L"大图标").draw(kDisabled);
  const auto texts = etched.all<MenuText>();
  ASSERT_EQ(texts.size(), 2u);
  EXPECT_EQ(texts[0].colour, MenuColour::Light);
  EXPECT_EQ(edges(texts[0].rect), (Place{24, 45, 184, 59}));
  EXPECT_EQ(texts[1].colour, MenuColour::Gray);
  EXPECT_EQ(edges(texts[1].rect), (Place{23, 44, 185, 60}));
  EXPECT_TRUE(etched.all<MenuImage>()[0].disabled);
  const auto selected = Entry(L"a").draw(kSelectedDisabled).all<MenuText>();
  ASSERT_EQ(selected.size(), 1u);
  EXPECT_EQ(selected[0].colour, MenuColour::Menu);
}

TEST(MenuDrawing, AnEtchedEntryWithTabHasFourTexts) {
  EXPECT_EQ(Entry(L"cut\tCtrl+X").draw(kDisabled).all<MenuText>().size(), 4u);
}

TEST(MenuDrawing, ACheckTakesThePlaceOfAnImage) {
  const auto entry = Entry(L"a").draw(kChecked);
  ASSERT_EQ(entry.all<MenuImage>().size(), 1u);
  EXPECT_TRUE(entry.all<MenuImage>()[0].check);
  EXPECT_EQ(entry.all<MenuImage>()[0].at.y, 40);
  EXPECT_EQ(edges(entry.all<MenuFill>()[0].rect), (Place{21, 40, 200, 60}));
  EXPECT_TRUE(entry.all<MenuFrame>().empty());
}

TEST(MenuDrawing, AFirstLevelSubMenuSinksWhenSelected) {
  const auto plain = Entry(L"more", kMenuSubMenu).draw();
  EXPECT_EQ(edges(plain.all<MenuFill>()[0].rect), (Place{0, 40, 200, 60}));
  EXPECT_TRUE(plain.all<MenuFrame>().empty());
  EXPECT_EQ(plain.all<MenuText>()[0].flags, 37u);
  const auto sunken = Entry(L"more", kMenuSubMenu).draw(kSelected);
  EXPECT_EQ(edges(sunken.all<MenuFill>()[0].rect), (Place{2, 41, 200, 60}));
  EXPECT_EQ(edges(sunken.all<MenuText>()[0].rect), (Place{2, 41, 200, 60}));
  ASSERT_EQ(sunken.all<MenuFrame>().size(), 1u);
  const MenuFrame frame = sunken.all<MenuFrame>()[0];
  EXPECT_EQ(edges(frame.rect), (Place{0, 40, 200, 60})) << "around the whole entry";
  EXPECT_EQ(frame.topLeft, MenuColour::Shadow);
  EXPECT_EQ(frame.bottomRight, MenuColour::Light);
  EXPECT_TRUE(Entry(L"more", kMenuSubMenu).draw(kSelectedDisabled).all<MenuFrame>().empty());
}

}  // namespace

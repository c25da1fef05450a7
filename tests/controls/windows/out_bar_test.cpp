// The bar with real mouse input: what it paints, hover, presses, drags, arrows.
#include "controls/windows/bar_kit.h"
#include "platform/framework_controls.h"
#include "support/raises.h"

namespace {

using namespace controls_test;

class OutBar : public BarWindow {};

using HotSpot = std::pair<DWORD, DWORD>;

// The hot spot of the cursor that is shown; the module's cursors differ in it.
HotSpot hotSpot() {
  ICONINFO info{};
  ::GetIconInfo(::GetCursor(), &info);
  ::DeleteObject(info.hbmMask);
  if (info.hbmColor) ::DeleteObject(info.hbmColor);
  return {info.xHotspot, info.yHotspot};
}
const HotSpot kCopy{11, 8};
const HotSpot kHand{6, 0};
const HotSpot kForbidden{17, 15};

TEST_F(OutBar, HeadersAndIconsArePainted) {
  addItems(2);
  const auto picture = pictureOf(window());
  EXPECT_EQ(picture.width(), 100);
  EXPECT_EQ(picture.height(), 300);
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(picture.at(4, header(i).top + 4), systemColour(COLOR_3DFACE)) << i;
  }
  EXPECT_EQ(picture.at(4, 100), systemColour(COLOR_BACKGROUND));
  EXPECT_EQ(picture.count(kRed), 2 * 32 * 32);
}

TEST_F(OutBar, WithoutFoldersItIsEmpty) {
  bar_->folders().clear();
  repaint();
  EXPECT_EQ(pictureOf(window()).at(50, 150), systemColour(COLOR_BACKGROUND));
  EXPECT_EQ(WindowScript().click(window(), 50, 150).run(), "");
  EXPECT_TRUE(library_.log.empty());
}

TEST_F(OutBar, AHeaderUnderThePointerHasAFrameUntilThePointerLeaves) {
  const CRect rect = header(0);
  const auto corner = [&] { return pictureOf(window()).at(rect.right - 1, rect.bottom - 3); };
  WindowScript script;
  moveTo(script, middle(rect));
  script.waitFor("the frame", [this] { return bar_->hover().folder == 0; });
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(corner(), systemColour(COLOR_3DDKSHADOW));
  WindowScript away;
  away.move(frame_->m_hWnd, 250, 350);
  away.waitFor("the frame to go", [this] { return bar_->hover().folder == -1; });
  EXPECT_EQ(away.run(), "");
  EXPECT_EQ(corner(), systemColour(COLOR_BACKGROUND));
}

TEST_F(OutBar, AnItemsFrameIsRaisedUnderThePointerAndSunkenWhilePressed) {
  addItems(2);
  const std::uint32_t face = systemColour(COLOR_3DFACE);
  const std::uint32_t shadow = systemColour(COLOR_3DDKSHADOW);
  WindowScript script;
  bool raised = false;
  bool sunken = false;
  moveTo(script, middle(icon(1))).waitFor("hover", [this] { return bar_->hover().item == 1; });
  script.then([&] { raised = frameAround(icon(1), face, shadow); });
  hold(script, middle(icon(1)));
  script.then([&] { sunken = frameAround(icon(1), shadow, face); });
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_TRUE(raised);
  EXPECT_TRUE(sunken);
}

TEST_F(OutBar, APaintKeepsTheHoverFrame) {
  addItems(1);
  WindowScript script;
  moveTo(script, middle(icon(0))).waitFor("hover", [this] { return bar_->hover().item == 0; });
  EXPECT_EQ(script.run(), "");
  repaint();
  EXPECT_EQ(bar_->hover().item, 0);
  EXPECT_TRUE(frameAround(icon(0), systemColour(COLOR_3DFACE), systemColour(COLOR_3DDKSHADOW)));
}

// --- folders ---

TEST_F(OutBar, AClickedFolderBelowSlidesOpenInCountedSteps) {
  const int inside = CRect(bar_->layout().GetInsideRect()).Height();
  click(middle(header(2)));
  EXPECT_EQ(bar_->GetCurrentFolder(), 2);
  EXPECT_EQ(pauses_, std::vector<int>(static_cast<std::size_t>((inside + 21) / 22 - 1), 20));
  EXPECT_EQ(bar_->folderChanges, 1);
}

TEST_F(OutBar, AClickedFolderAboveSlidesOpenInCountedSteps) {
  const int inside = CRect(bar_->layout().GetInsideRect()).Height();
  click(middle(header(0)));
  EXPECT_EQ(bar_->GetCurrentFolder(), 0);
  EXPECT_EQ(pauses_.size(), static_cast<std::size_t>((inside - 1 + 21) / 22));
}

TEST_F(OutBar, ANegativeDelayOpensAtOnce) {
  bar_->setFolderAnimationDelay(-1);
  click(middle(header(3)));
  EXPECT_EQ(bar_->GetCurrentFolder(), 3);
  EXPECT_TRUE(pauses_.empty());
}

TEST_F(OutBar, TheFolderUnderTheReleaseOpens) {
  WindowScript script;
  hold(script, middle(header(2)));
  moveTo(script, middle(header(4)));
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(bar_->GetCurrentFolder(), 4);
}

TEST_F(OutBar, EscDoesNotEndAPress) {
  WindowScript script;
  hold(script, middle(header(2)));
  script.key(VK_ESCAPE);
  script.then([this] { EXPECT_EQ(::GetCapture(), window()); });
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(bar_->GetCurrentFolder(), 2);
}

TEST_F(OutBar, LosingTheCaptureEndsThePress) {
  WindowScript script;
  hold(script, middle(header(2)));
  script.then([] { ::ReleaseCapture(); });
  moveTo(script, middle(header(2))).release();
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(bar_->GetCurrentFolder(), 1);
}

TEST_F(OutBar, AHandStandsOverTheHeaders) {
  HotSpot over;
  HotSpot off;
  WindowScript script;
  // The cursor follows the message before, so it takes two moves.
  moveTo(script, middle(header(2)));
  moveTo(script, {20, header(2).top + 5}).then([] {}).then([&] { over = hotSpot(); });
  moveTo(script, {50, 150});
  moveTo(script, {50, 160}).then([] {}).then([&] { off = hotSpot(); });
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(over, kHand);
  EXPECT_NE(off, kHand);
}

TEST_F(OutBar, WithASingleFolderNoneCanBeSelected) {
  while (bar_->GetFolderCount() > 1) bar_->folders().removeFolder(1);
  test::expectInvalidArgument([this] { bar_->SelectFolder(0); });
  repaint();
  EXPECT_EQ(pictureOf(window()).at(4, 5), systemColour(COLOR_3DFACE)) << "it paints on";
}

// --- items ---

TEST_F(OutBar, AClickSelectsAndIsReported) {
  addItems(3);
  click(middle(icon(1)));
  EXPECT_EQ(library_.log, (Log{"click 1"}));
  EXPECT_EQ(bar_->selectedItem(), 1);
}

TEST_F(OutBar, ReleaseOnANeighbourDoesNothing) {
  addItems(3);
  WindowScript script;
  hold(script, middle(icon(0)));
  moveTo(script, middle(icon(1)));
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_TRUE(library_.log.empty());
  EXPECT_EQ(order(), L"abc");
}

class OutBarWithFrame : public OutBar {
 protected:
  OutBarWithFrame() { flags_ = BARF_SELECTFRAME; }
};

TEST_F(OutBarWithFrame, TheSelectedItemIsFramedAndTakesNoHoverFrame) {
  addItems(2);
  click(middle(icon(1)));
  EXPECT_EQ(bar_->hover().item, -1);
  AfxPumpWaitingMessages();
  const std::uint32_t face = systemColour(COLOR_3DFACE);
  const std::uint32_t shadow = systemColour(COLOR_3DDKSHADOW);
  EXPECT_TRUE(frameAround(icon(1), shadow, face));
  EXPECT_FALSE(frameAround(icon(0), shadow, face));
}

TEST_F(OutBar, AJumpingItemTakesNoHoverFrame) {
  addItems(2);
  click(middle(icon(1)));
  bar_->SetItemAnimInterval(10000);
  WindowScript script;
  moveTo(script, middle(icon(0))).waitFor("hover", [this] { return bar_->hover().item == 0; });
  moveTo(script, middle(icon(1))).waitFor("no hover", [this] { return bar_->hover().item == -1; });
  EXPECT_EQ(script.run(), "");
}

class OutBarDrag : public OutBar {
 protected:
  void SetUp() override {
    OutBar::SetUp();
    addItems(2);
  }
  // Leaves the items to the side, then goes there.
  void drag(int item, CPoint to) {
    WindowScript script;
    hold(script, middle(icon(item)));
    moveTo(script, {3, icon(item).top + 5});
    moveTo(script, to);
    script.then([this] { marked_ = pictureOf(window()).count(kBlack); });
    drop(script);
    EXPECT_EQ(script.run(), "");
    AfxPumpWaitingMessages();
    left_ = pictureOf(window()).count(kBlack);
  }
  static constexpr std::uint32_t kBlack = 0;
  int marked_ = 0;  // black pixels before the drop and after it
  int left_ = 0;
};

TEST_F(OutBarDrag, AnItemGoesBeforeTheOneItIsDroppedOn) {
  drag(1, middle(icon(0)));
  EXPECT_EQ(library_.log, (Log{"move 1 to 0"}));
  EXPECT_EQ(order(), L"ba");
  EXPECT_GT(marked_, left_ + 90) << "the mark was drawn and is gone";
}

TEST_F(OutBarDrag, BelowTheLastItemItIsAppended) {
  drag(0, {50, cell(1).bottom + 10});
  EXPECT_EQ(library_.log, (Log{"move 0 to 2"}));
  EXPECT_EQ(order(), L"ba");
  EXPECT_GT(marked_, left_ + 90);
}

TEST_F(OutBarDrag, ItsOwnPlaceIsNoMove) {
  drag(1, middle(icon(1)));
  EXPECT_TRUE(library_.log.empty());
  EXPECT_EQ(order(), L"ab");
  EXPECT_GT(marked_, left_ + 90) << "no mark stays drawn";
}

TEST_F(OutBarDrag, RightBehindItselfIsRefused) {
  drag(0, middle(icon(1)));
  EXPECT_EQ(library_.log, (Log{"move 0 to 1"}));
  EXPECT_EQ(order(), L"ab");
}

TEST_F(OutBarDrag, BelowTheListNothingChanges) {
  drag(0, middle(header(3)));
  EXPECT_TRUE(library_.log.empty());
  EXPECT_EQ(order(), L"ab");
  EXPECT_EQ(marked_, left_) << "there is no mark";
}

TEST_F(OutBarDrag, TheCursorTellsWhereADropCounts) {
  std::vector<HotSpot> cursors;
  const auto note = [&cursors] { cursors.push_back(hotSpot()); };
  WindowScript script;
  hold(script, middle(icon(0)));
  moveTo(script, {3, icon(0).top + 5}).then(note);
  moveTo(script, middle(header(3))).then(note);
  moveTo(script, middle(icon(1))).then(note);
  moveTo(script, middle(header(3)));
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(cursors, (std::vector{kCopy, kForbidden, kCopy}));
}

TEST_F(OutBarDrag, EscDoesNotEndIt) {
  WindowScript script;
  hold(script, middle(icon(1)));
  moveTo(script, {3, icon(1).top + 5}).key(VK_ESCAPE);
  moveTo(script, middle(icon(0)));
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(order(), L"ba");
}

TEST_F(OutBarDrag, CrossingANeighbourFirstIsNoDrag) {
  WindowScript script;
  hold(script, middle(icon(0)));
  moveTo(script, middle(icon(1)));
  moveTo(script, middle(icon(0)));
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(library_.log, (Log{"click 0"})) << "the pointer came back";
}

// --- arrows ---

class OutBarArrows : public OutBar {
 protected:
  // A tick of the arrow's repeat, without its waiting.
  void tick(WindowScript& script) {
    script.then([this] { bar_->PostMessage(WM_TIMER, kArrowTimer); });
    script.then([] {});
  }
  CPoint up() const { return middle(bar_->view().up); }
  CPoint down() const { return middle(bar_->view().down); }
};

TEST_F(OutBarArrows, FewItemsShowNone) {
  addItems(2);
  EXPECT_FALSE(bar_->view().upShown);
  EXPECT_FALSE(bar_->view().downShown);
}

TEST_F(OutBarArrows, AClickScrollsByOneItem) {
  addItems(6);
  ASSERT_TRUE(bar_->view().downShown);
  EXPECT_FALSE(bar_->view().upShown);
  click(down());
  repaint();
  EXPECT_EQ(bar_->firstItem(), 1);
  ASSERT_TRUE(bar_->view().upShown);
  click(up());
  EXPECT_EQ(bar_->firstItem(), 0);
}

TEST_F(OutBarArrows, HoldingScrollsUntilTheLastItemIsSeen) {
  addItems(6);
  WindowScript script;
  hold(script, down());
  for (int i = 0; i < 8; ++i) tick(script);
  script.waitFor("the end of the list", [] { return ::GetCapture() == nullptr; }).release();
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(bar_->firstItem(), 3);
  repaint();
  EXPECT_FALSE(bar_->view().downShown);
}

TEST_F(OutBarArrows, HoldingScrollsBackToTheFirstItem) {
  addItems(6);
  click(down());
  repaint();
  ASSERT_EQ(bar_->firstItem(), 1);
  WindowScript script;
  hold(script, up());
  for (int i = 0; i < 5; ++i) tick(script);
  script.waitFor("the end of the list", [] { return ::GetCapture() == nullptr; }).release();
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(bar_->firstItem(), 0);
}

TEST_F(OutBarArrows, TheRepeatRunsByItsOwnTimer) {
  addItems(6);
  WindowScript script;
  hold(script, down());
  script.waitFor("a step", [this] { return bar_->firstItem() == 1; });
  moveTo(script, {20, 100});
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(bar_->firstItem(), 1) << "released off the arrow";
}

// --- views and the jump ---

TEST_F(OutBar, SmallIconsStartTheListAnew) {
  addItems(6);
  click(middle(bar_->view().down));
  bar_->SetIconView(true);
  EXPECT_EQ(bar_->firstItem(), 0);
  repaint();
  EXPECT_EQ(pictureOf(window()).count(kRed), 6 * 16 * 16);
}

TEST_F(OutBar, TheSelectedItemJumpsByItsTimer) {
  addItems(2);
  click(middle(icon(1)));
  outside();
  repaint();
  bar_->SetItemAnimInterval(10000);  // it ticks when the test says so
  const CRect rest = icon(1);
  std::vector<int> reds;
  for (int i = 0; i < 3; ++i) {
    bar_->SendMessage(WM_TIMER, kJumpTimer);
    const auto picture = pictureOf(window());
    reds.push_back(picture.at(rest.right, rest.bottom - 2) == kRed ? 1 : 0);
  }
  EXPECT_EQ(reds, (std::vector<int>{0, 1, 0})) << "at rest, to the right, at rest";
}

TEST_F(OutBar, AChildStandsInPlaceOfTheItems) {
  addItems(1);
  CStatic child;
  ASSERT_TRUE(child.Create(L"", WS_CHILD, {0, 0, 5, 5}, bar_.get(), 9));
  bar_->folders().folder(2).child = &child;
  bar_->SelectFolder(2);
  EXPECT_TRUE(child.IsWindowVisible());
  EXPECT_TRUE(framework_test::rectInParent(child) == CRect(bar_->layout().GetInsideRect()));
  bar_->SetWindowPos(nullptr, 0, 0, 102, 252, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_TRUE(framework_test::rectInParent(child) == CRect(bar_->layout().GetInsideRect()));
  bar_->SelectFolder(1);
  EXPECT_FALSE(child.IsWindowVisible());
  bar_->folders().folder(2).child = nullptr;
  child.DestroyWindow();
}

TEST_F(OutBar, AfterAFolderIsRemovedTheOneBeforeItIsOpen) {
  bar_->setFolderAnimationDelay(-1);
  bar_->SelectFolder(4);
  bar_->folders().removeFolder(2);
  bar_->folderRemoved(2);
  EXPECT_EQ(bar_->GetCurrentFolder(), 1) << "also from behind it";
  bar_->folders().removeFolder(2);
  bar_->folderRemoved(2);
  EXPECT_EQ(bar_->GetCurrentFolder(), 1);
}

}  // namespace

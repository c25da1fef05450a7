// The bar as it begins, and what its press loops let through: keys, a capture that is lost or that
// another window has, moves off and back, timers.
#include "controls/windows/bar_kit.h"
#include "platform/framework_controls.h"

namespace {

using namespace controls_test;

TEST(NewBar, StandsAtTheSecondFolderWithNothingShownOrSelected) {
  CGfxOutBarCtrl bar;
  EXPECT_EQ(bar.GetFolderCount(), 0);
  EXPECT_EQ(bar.GetCurrentFolder(), 1);
  EXPECT_EQ(bar.firstItem(), 0);
  EXPECT_EQ(bar.selectedItem(), -1);
  EXPECT_EQ(bar.hover().folder, -1);
  EXPECT_EQ(bar.hover().item, -1);
  EXPECT_FALSE(bar.hover().itemPressed);
  EXPECT_FALSE(bar.view().upShown || bar.view().downShown);
  EXPECT_TRUE(::IsRectEmpty(&bar.view().up) && ::IsRectEmpty(&bar.view().down));
  EXPECT_TRUE(bar.IsSmallIconView()) << "all flags are set until it is made";
  EXPECT_TRUE(bar.view().small);
  EXPECT_EQ(bar.GetFolderChild(-1), nullptr);
}

TEST(NewBar, IsMadeByItsRunTimeClass) {
  const std::unique_ptr<CObject> made(RUNTIME_CLASS(CGfxOutBarCtrl)->CreateObject());
  ASSERT_TRUE(made);
  EXPECT_TRUE(made->IsKindOf(RUNTIME_CLASS(CWnd)));
}

class OutBarLoops : public BarWindow {
 protected:
  CPoint up() const { return middle(bar_->view().up); }
  CPoint down() const { return middle(bar_->view().down); }
  LPARAM at(CPoint point) const { return MAKELPARAM(point.x, point.y); }
  // A tick of the arrow's repeat, without its waiting.
  WindowScript& tick(WindowScript& script) {
    script.then([this] { bar_->PostMessage(WM_TIMER, kArrowTimer); });
    return script.then([] {});
  }
};

TEST_F(OutBarLoops, TheWindowHasAStaticEdgeAndErasesNothing) {
  EXPECT_EQ(bar_->GetExStyle() & WS_EX_STATICEDGE, static_cast<DWORD>(WS_EX_STATICEDGE));
  EXPECT_FALSE(bar_->IsSmallIconView());
  const auto before = pictureOf(window());
  CClientDC dc(bar_.get());
  EXPECT_EQ(bar_->SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.GetSafeHdc())), 1);
  EXPECT_EQ(changedSince(before), 0);
}

TEST_F(OutBarLoops, APressTakesTheFocus) {
  ::SetFocus(frame_->m_hWnd);
  click(middle(header(1)));
  EXPECT_EQ(::GetFocus(), window());
}

// --- keys ---

// Only Esc gets through; the press goes on.
TEST_F(OutBarLoops, KeysAreSwallowedWhileAHeaderIsHeld) {
  WindowScript script;
  hold(script, middle(header(2))).key('A').key(VK_ESCAPE).key(VK_RETURN);
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(bar_->keys, std::vector<WPARAM>{VK_ESCAPE});
  EXPECT_EQ(bar_->GetCurrentFolder(), 2);
}

TEST_F(OutBarLoops, KeysAreSwallowedWhileAnArrowIsHeld) {
  addItems(6);
  WindowScript script;
  hold(script, down()).key('A').key(VK_ESCAPE).key(VK_RETURN);
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(bar_->keys, std::vector<WPARAM>{VK_ESCAPE});
  EXPECT_EQ(bar_->firstItem(), 1);
}

TEST_F(OutBarLoops, KeysGetThroughWhileAnItemIsHeld) {
  addItems(2);
  WindowScript script;
  hold(script, middle(icon(0))).key('A').key(VK_ESCAPE);
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(bar_->keys, (std::vector<WPARAM>{'A', VK_ESCAPE}));
  EXPECT_EQ(library_.log, (Log{"click 0"}));
}

// --- the capture ---

TEST_F(OutBarLoops, WithAnotherWindowsCaptureNoPressBegins) {
  addItems(6);
  const auto before = pictureOf(window());
  ::SetCapture(frame_->m_hWnd);
  for (const CPoint point : {middle(header(2)), middle(icon(0)), down()}) {
    bar_->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, at(point));
    EXPECT_EQ(::GetCapture(), frame_->m_hWnd);
  }
  ::ReleaseCapture();
  EXPECT_EQ(changedSince(before), 0);
  EXPECT_TRUE(library_.log.empty());
  EXPECT_EQ(bar_->GetCurrentFolder(), 1);
}

TEST_F(OutBarLoops, ADragThatLosesTheCaptureMovesNothingAndLeavesNoMark) {
  addItems(3);
  const auto before = pictureOf(window());
  WindowScript script;
  hold(script, middle(icon(0)));
  moveTo(script, {3, icon(0).top + 5});
  moveTo(script, middle(icon(2))).then([] { ::ReleaseCapture(); });
  EXPECT_EQ(leave(script.release()).run(), "");
  repaint();
  EXPECT_TRUE(library_.log.empty());
  EXPECT_EQ(order(), L"abc");
  EXPECT_EQ(changedSince(before), 0);
}

TEST_F(OutBarLoops, AnArrowThatLosesTheCaptureScrollsNoFurther) {
  addItems(6);
  const auto before = pictureOf(window());
  WindowScript script;
  hold(script, down()).then([] { ::ReleaseCapture(); });
  EXPECT_EQ(leave(tick(script).release()).run(), "");
  EXPECT_EQ(bar_->firstItem(), 0);
  repaint();
  EXPECT_EQ(changedSince(before), 0);
}

// --- moves off and back ---

TEST_F(OutBarLoops, OffTheHeadersAReleaseOpensNothing) {
  WindowScript script;
  hold(script, middle(header(2)));
  moveTo(script, {50, 150});
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(bar_->GetCurrentFolder(), 1);
}

TEST_F(OutBarLoops, AnArrowScrollsOnlyWhileThePointerIsOnIt) {
  addItems(6);
  std::vector<bool> shown;
  const auto note = [&] { shown.push_back(bar_->view().downShown); };
  WindowScript script;
  hold(script, down());
  moveTo(script, {20, 100}).then(note);
  tick(tick(script)).then([this] { EXPECT_EQ(bar_->firstItem(), 0); });
  moveTo(script, down()).then(note);
  tick(script).then([this] { EXPECT_EQ(bar_->firstItem(), 1); });
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(shown, (std::vector{false, true}));
  EXPECT_EQ(bar_->firstItem(), 2) << "the release counts once more";
}

TEST_F(OutBarLoops, ATimerOfAnotherWindowDoesNotScroll) {
  addItems(6);
  WindowScript script;
  hold(script, down());
  script.then([this] { frame_->PostMessage(WM_TIMER, kArrowTimer); }).then([this] {
    EXPECT_EQ(bar_->firstItem(), 0);
  });
  moveTo(script, {20, 100});
  drop(script);
  EXPECT_EQ(script.run(), "");
}

// --- what a change of folder begins anew ---

TEST_F(OutBarLoops, AFolderOpensAtItsFirstItemWithNothingSelected) {
  addItems(6);
  click(down());
  repaint();
  click(middle(icon(2)));
  EXPECT_EQ(bar_->firstItem(), 1);
  EXPECT_EQ(bar_->selectedItem(), 2);
  bar_->setFolderAnimationDelay(-1);
  click(middle(header(1)));
  EXPECT_EQ(bar_->firstItem(), 1) << "it is open already";
  click(middle(header(0)));
  EXPECT_EQ(bar_->firstItem(), 0);
  EXPECT_EQ(bar_->selectedItem(), -1);
}

TEST_F(OutBarLoops, AChangeOfSizeHidesTheArrowsUntilTheNextPaint) {
  addItems(6);
  ASSERT_TRUE(bar_->view().downShown);
  bar_->SetWindowPos(nullptr, 0, 0, 102, 280, SWP_NOMOVE | SWP_NOZORDER | SWP_NOREDRAW);
  EXPECT_FALSE(bar_->view().downShown);
  repaint();
  EXPECT_TRUE(bar_->view().downShown);
}

// Five folders: the fifth item jumps, the sixth doesn't.
TEST_F(OutBarLoops, OnlyAsManyItemsJumpAsThereAreFolders) {
  bar_->SetIconView(true);
  addItems(6);
  outside();
  repaint();
  const auto before = pictureOf(window());
  for (const int item : {4, 5}) {
    click(middle(cell(item)));
    outside();
    repaint();
    bar_->DrawItemOffset(1, 1, item);
    EXPECT_EQ(changedSince(before) > 0, item == 4) << item;
    repaint();
  }
}

TEST_F(OutBarLoops, ClickingAnotherItemBringsTheJumpingOneToRest) {
  addItems(3);
  const auto before = pictureOf(window());
  click(middle(icon(0)));
  bar_->SetItemAnimInterval(10000);  // it doesn't tick meanwhile
  bar_->DrawItemOffset(1, 1, 0);
  EXPECT_GT(changedSince(before), 0);
  click(middle(icon(1)));
  outside();
  EXPECT_EQ(bar_->selectedItem(), 1);
  EXPECT_EQ(bar_->hover().item, -1);
  EXPECT_EQ(changedSince(before), 0);
}

}  // namespace

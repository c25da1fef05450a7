// The desktop's window: drawing area, command window, menus, status bar, by real mouse and keys.
#include "programs/desktop/command_ids.h"
#include "programs/desktop/settings_text.h"
#include "programs/desktop/windows/frame_fixture.h"

namespace {

using window_kit::WindowScript;

class DesktopFrame : public test::FrameFixture {
 protected:
  int statusHeight() const {
    RECT area{};
    ::GetClientRect(::GetDlgItem(frame_->m_hWnd, AFX_IDW_STATUS_BAR), &area);
    return area.bottom;
  }
  // Pixels of that colour in the drawing area.
  int count(std::uint32_t colour) const { return window_kit::pictureOf(area()).count(colour); }
  static bool menuIsOpen() {
    const HWND menu = ::FindWindowW(L"#32768", nullptr);
    return menu && ::IsWindowVisible(menu);
  }
};

TEST_F(DesktopFrame, TheAreaIsBlackWithACrosshairAcross) {
  WindowScript script;
  script.move(area(), 200, 150);
  run(script);
  const auto picture = window_kit::pictureOf(area());
  EXPECT_EQ(picture.at(50, 150), 0xC0C0C0U);
  EXPECT_EQ(picture.at(picture.width() - 2, 150), 0xC0C0C0U);
  EXPECT_EQ(picture.at(200, 5), 0xC0C0C0U);
  EXPECT_EQ(picture.at(60, 60), 0U);
}

TEST_F(DesktopFrame, ACrosshairThatMovesLeavesNothingBehind) {
  type("LINE 50,50 150,50 \nCIRCLE 200,150 60\n");
  WindowScript script;
  for (int i = 0; i < 20; ++i) script.move(area(), 40 + 17 * i, 30 + 11 * i);
  script.move(area(), 300, 200);
  run(script);
  auto moved = window_kit::pictureOf(area());
  frame_->ShowState();
  ::RedrawWindow(area(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  const auto fresh = window_kit::pictureOf(area());
  int different = 0;
  for (int y = 0; y < fresh.height(); ++y) {
    for (int x = 0; x < fresh.width(); ++x) different += moved.at(x, y) != fresh.at(x, y) ? 1 : 0;
  }
  EXPECT_EQ(different, 0);
}

TEST_F(DesktopFrame, TheCrosshairGoesWhenThePointerLeaves) {
  WindowScript script;
  script.move(area(), 200, 150).then([this] { EXPECT_GT(count(0xC0C0C0), 500); });
  script.move(strip(), 20, 10).waitFor("the crosshair's end", [this] {
    return count(0xC0C0C0) == 0;
  });
  run(script);
}

TEST_F(DesktopFrame, ALineIsDrawnByKeysAndClicks) {
  WindowScript script;
  typeKeys(script, "line");
  script.waitFor("the prompt", [this] { return prompt() == L"First point: "; });
  script.click(area(), 100, 100).click(area(), 300, 200).key(VK_RETURN);
  script.waitFor("the end", [this] { return prompt() == L"Command: "; });
  run(script);
  EXPECT_EQ(entities().size(), 1U);
  EXPECT_GT(count(0xFFFFFF), 150);
}

TEST_F(DesktopFrame, ABlankEndsAnInputAndEscapeCancels) {
  WindowScript script;
  script.key('L').key(VK_SPACE);
  script.waitFor("the prompt", [this] { return prompt() == L"First point: "; });
  script.key(VK_ESCAPE);
  script.waitFor("the end", [this] { return prompt() == L"Command: "; });
  run(script);
  EXPECT_NE(history().find(L"*Cancel*"), std::wstring::npos);
  EXPECT_TRUE(entities().empty());
}

TEST_F(DesktopFrame, UpBringsTheFormerInputAndTabCompletes) {
  WindowScript script;
  typeKeys(script, "redraw");
  script.key(VK_UP).then([this] { EXPECT_EQ(textOf(input()), L"redraw"); });
  script.key(VK_ESCAPE).then([this] { EXPECT_EQ(textOf(input()), L""); });
  script.key('C').key('I').key(VK_TAB);
  script.then([this] { EXPECT_EQ(textOf(input()), L"CIRCLE"); });
  run(script);
}

TEST_F(DesktopFrame, TheWheelZoomsAboutThePointer) {
  const desktop::Point2 before = desk.screen.drawingPoint({200, 150});
  const double height = session.view.height();
  WindowScript script;
  script.move(area(), 200, 150).then([] {
    INPUT wheel{};
    wheel.type = INPUT_MOUSE;
    wheel.mi.dwFlags = MOUSEEVENTF_WHEEL;
    wheel.mi.mouseData = 2 * WHEEL_DELTA;
    ::SendInput(1, &wheel, sizeof wheel);
  });
  script.waitFor("the zoom", [=, this] { return session.view.height() < height; });
  run(script);
  const desktop::Point2 after = desk.screen.drawingPoint({200, 150});
  EXPECT_NEAR(before.x, after.x, session.view.unitsPerPixel());
  EXPECT_NEAR(before.y, after.y, session.view.unitsPerPixel());
}

TEST_F(DesktopFrame, DeleteErasesWhatWasClicked) {
  type("LINE 50,150 350,150 \n");
  frame_->ShowState();
  const desktop::Point2 on = desk.screen.pixelPoint({200, 150});
  WindowScript script;
  script.click(area(), static_cast<int>(on.x + 0.5), static_cast<int>(on.y + 0.5));
  script.waitFor("the selection", [this] { return desk.pointer.selected().size() == 1; });
  script.key(VK_DELETE);
  script.waitFor("its end", [this] { return entities().empty(); });
  run(script);
}

TEST_F(DesktopFrame, TheRightButtonIsEnter) {
  WindowScript script;
  typeKeys(script, "line");
  script.click(area(), 100, 100).click(area(), 200, 200).rightClick(area(), 250, 250);
  script.waitFor("the end", [this] { return prompt() == L"Command: "; });
  run(script);
  EXPECT_EQ(entities().size(), 1U);
}

TEST_F(DesktopFrame, KeysSwitchOrthoAndSnaps) {
  WindowScript script;
  script.key(VK_F8).key(VK_F3);
  script.waitFor("both", [this] { return desktop::orthoOn(session) && desktop::snapsOn(session); });
  script.key(VK_F8);
  script.waitFor("one", [this] { return !desktop::orthoOn(session); });
  run(script);
}

TEST_F(DesktopFrame, AMenusEntryRunsItsCommand) {
  WindowScript script;
  script.then([this] { frame_->PostMessage(WM_COMMAND, CMD_CIRCLE); });
  script.waitFor("the prompt", [this] { return prompt().find(L"entre") != std::wstring::npos; });
  script.then([this] { frame_->PostMessage(WM_COMMAND, CMD_LINE); });
  script.waitFor("the other", [this] { return prompt() == L"First point: "; });
  script.key(VK_ESCAPE);
  run(script);
}

TEST_F(DesktopFrame, AClickWhileAMenuIsOpenOnlyClosesIt) {
  WindowScript script;
  script.then([this] { frame_->PostMessage(WM_SYSCOMMAND, SC_KEYMENU, 'd'); });
  script.waitFor("the menu", [] { return menuIsOpen(); });
  script.click(area(), 600, 400).waitFor("its end", [] { return !menuIsOpen(); });
  run(script);
  EXPECT_TRUE(entities().empty());
  EXPECT_TRUE(desk.pointer.selected().empty());
}

TEST_F(DesktopFrame, ClosingAtAWaitingPromptEndsTheSession) {
  WindowScript script;
  typeKeys(script, "line");
  script.click(area(), 100, 100);
  script.then([this] { frame_->SendMessage(WM_CLOSE); });
  run(script);
  EXPECT_TRUE(session.quit);
  EXPECT_TRUE(boxes.empty());
}

TEST_F(DesktopFrame, ClosingAChangedDrawingAsksAndMayBeGivenUp) {
  type("LINE 50,50 150,50 \n");
  WindowScript script;
  script.then([this] { frame_->PostMessage(WM_CLOSE); });
  script.waitFor("the question", [this] { return boxes.size() == 1; });
  run(script);
  EXPECT_FALSE(session.quit);
  EXPECT_TRUE(::IsWindow(frame_->m_hWnd));
}

TEST_F(DesktopFrame, ResizingKeepsThePartsInTheirPlaces) {
  for (const POINT size : {POINT{500, 400}, POINT{1100, 900}, POINT{160, 120}, POINT{900, 700}}) {
    frame_->MoveWindow(10, 10, size.x, size.y);
    AfxPumpWaitingMessages();
    frame_->ShowState();
  }
  RECT picture{}, whole{};
  ::GetClientRect(area(), &picture);
  ::GetClientRect(frame_->m_hWnd, &whole);
  EXPECT_EQ(picture.right, whole.right);
  EXPECT_EQ(desk.screen.bitmap().width(), picture.right);
  EXPECT_EQ(desk.screen.bitmap().height(), picture.bottom);
  EXPECT_GT(statusHeight(), 10);
}

TEST_F(DesktopFrame, TheTextWindowIsHalfOfTheFrame) {
  RECT before{}, after{};
  ::GetClientRect(strip(), &before);
  WindowScript script;
  script.key(VK_F2);
  run(script);
  ::GetClientRect(strip(), &after);
  EXPECT_GT(after.bottom, 2 * before.bottom);
}

TEST_F(DesktopFrame, EveryWindowGoesWithTheFrame) {
  for (int i = 0; i < 20; ++i) {
    auto* other = new MainFrame(desk);
    ASSERT_TRUE(other->CreateMain());
    other->DestroyWindow();
  }
  AfxSetMainWnd(frame_);
  session.mainWindow = frame_->m_hWnd;
  EXPECT_TRUE(::IsWindow(frame_->m_hWnd));
}

}  // namespace

// The library window's frame and tool bar.
#include <filesystem>

#include "library_window/windows/window_fixture.h"

namespace {

using library_window_test::LibraryFrame;
using window_kit::WindowScript;

CRect rectOf(HWND window) {
  CRect rect;
  ::GetWindowRect(window, rect);
  return rect;
}
CRect rectOf(const CWnd& window) { return rectOf(window.m_hWnd); }

std::string text(const CRect& rect) {
  return std::to_string(rect.left) + " " + std::to_string(rect.top) + " " +
         std::to_string(rect.right) + " " + std::to_string(rect.bottom);
}

TEST_F(LibraryFrame, AFreshLibraryGivesItsPlaceAndState) {
  open();
  const CRect window = rectOf(*frame_);
  EXPECT_EQ(window.left, 300);
  EXPECT_EQ(window.top, 40);
  // 240 by 200 is asked for; the client area holds at least the tool bar's strip.
  EXPECT_GE(window.Width(), 252);
  EXPECT_GE(window.Height(), 250);
  EXPECT_FALSE(frame_->IsWindowVisible());
  EXPECT_EQ(title(), L"主回路库");
  EXPECT_EQ(::SendMessageW(control(ID_DRAW_MODE), BM_GETCHECK, 0, 0), BST_CHECKED);
  EXPECT_EQ(::SendMessageW(control(ID_EDIT_MODE), BM_GETCHECK, 0, 0), BST_UNCHECKED);
  EXPECT_EQ(::SendMessageW(control(ID_GRID), CB_GETCURSEL, 0, 0), 2);
  EXPECT_TRUE(::SendMessageW(toolBar(), TB_ISBUTTONCHECKED, ID_AUXILIARY_BAR, 0));
  const Grid grid = usableGrid(store());
  EXPECT_EQ(grid.rows, 3);
  EXPECT_EQ(grid.columns, 6);
  EXPECT_EQ(store().GetPage(), 1);
}

TEST_F(LibraryFrame, ItIsACaptionedFrameOwnedByTheHostWithoutAMaximiseBox) {
  open();
  EXPECT_EQ(frame_->GetStyle() & (WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX),
            static_cast<DWORD>(WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX));
  EXPECT_EQ(frame_->GetStyle() & WS_MAXIMIZEBOX, 0U);
  EXPECT_EQ(::GetWindow(frame_->m_hWnd, GW_OWNER), host_);
}

TEST_F(LibraryFrame, TheToolBarKeepsToTheRightEndOfItsStrip) {
  show();
  for (const int width : {300, 600, 1200}) {
    resize(width, 400);
    const HWND dockBar = ::GetParent(toolBar());
    const CRect strip = rectOf(dockBar);
    EXPECT_EQ(text(rectOf(toolBar())),
              text({strip.right - 252, strip.top - 2, strip.right, strip.bottom + 2}));
  }
}

TEST_F(LibraryFrame, ItIsNeverNarrowerThanTheStrip) {
  show();
  resize(10, 10);
  EXPECT_EQ(client(frame_->m_hWnd).Width(), 252);
  EXPECT_EQ(client(frame_->m_hWnd).Height(), 250);
}

TEST_F(LibraryFrame, ExactlyOnePageHasNoNext) {
  show(18);
  EXPECT_FALSE(isEnabled(ID_PREVIOUS_PAGE));
  EXPECT_FALSE(isEnabled(ID_NEXT_PAGE));
}

TEST_F(LibraryFrame, PagesTurnByTheButtons) {
  show(19);
  EXPECT_FALSE(isEnabled(ID_PREVIOUS_PAGE));
  EXPECT_TRUE(isEnabled(ID_NEXT_PAGE));
  command(ID_NEXT_PAGE);
  EXPECT_EQ(store().GetPage(), 2);
  EXPECT_TRUE(isEnabled(ID_PREVIOUS_PAGE));
  EXPECT_FALSE(isEnabled(ID_NEXT_PAGE));
  command(ID_PREVIOUS_PAGE);
  EXPECT_EQ(store().GetPage(), 1);
}

TEST_F(LibraryFrame, AButtonIsReachedByARealClick) {
  show(40);
  resize(500, 400);
  CRect button;
  ::SendMessageW(toolBar(), TB_GETITEMRECT, 4, reinterpret_cast<LPARAM>(&button));
  WindowScript script;
  script.click(toolBar(), button.left + 12, button.top + 10);
  script.waitFor("the next page", [this] { return store().GetPage() == 2; });
  EXPECT_EQ(script.run(), "");
}

TEST_F(LibraryFrame, AChosenGridFollowsTheSelection) {
  show(40);
  store().SetSelection(20);
  choose(0);
  EXPECT_EQ(usableGrid(store()), (Grid{1, 3}));
  EXPECT_EQ(store().GetPage(), 7);
  choose(3);
  EXPECT_EQ(usableGrid(store()), (Grid{4, 12}));
  EXPECT_EQ(store().GetPage(), 1);
}

TEST_F(LibraryFrame, ThreeRowsOfNineCantBeChosenWhileThereAreThreeOfSix) {
  show(40);
  choose(2);
  EXPECT_EQ(usableGrid(store()), (Grid{3, 6}));
  choose(1);
  EXPECT_EQ(usableGrid(store()), (Grid{2, 6}));
  choose(2);
  EXPECT_EQ(usableGrid(store()), (Grid{3, 9}));
}

TEST_F(LibraryFrame, TheModeFollowsTheRadioButtons) {
  show();
  ::SendMessageW(control(ID_EDIT_MODE), BM_CLICK, 0, 0);
  EXPECT_EQ(store().GetMode(), 1);
  ::SendMessageW(control(ID_DRAW_MODE), BM_CLICK, 0, 0);
  EXPECT_EQ(store().GetMode(), 0);
  command(ID_EDIT_MODE);
  EXPECT_EQ(store().GetMode(), 1);
}

TEST_F(LibraryFrame, HidingTheBarKeepsTheGridsWidth) {
  show();
  resize(700, 400);
  const CRect before = rectOf(*frame_);
  const int width = client(grid()).Width();
  command(ID_AUXILIARY_BAR);
  EXPECT_EQ(store().GetAuxFlag(), 1);
  EXPECT_EQ(rectOf(*frame_).right, before.right - 120);
  AfxPumpWaitingMessages();
  EXPECT_EQ(client(grid()).Width(), width - 2) << "two pixels stay where the bar's edge was";
  EXPECT_EQ(widthOf(bar()), 0);
  command(ID_AUXILIARY_BAR);
  AfxPumpWaitingMessages();
  EXPECT_EQ(text(rectOf(*frame_)), text(before));
  EXPECT_EQ(client(grid()).Width(), width);
  EXPECT_EQ(widthOf(bar()), 116);
}

TEST_F(LibraryFrame, ClosingHidesAndShowingBringsItBackAsItWas) {
  show(40);
  resize(700, 400);
  command(ID_NEXT_PAGE);
  command(ID_EDIT_MODE);
  const CRect before = rectOf(*frame_);
  frame_->SendMessage(WM_CLOSE);
  EXPECT_FALSE(frame_->IsWindowVisible());
  ASSERT_EQ(libraryWindow(), &frame_->Door());
  ShowLibraryWindow();
  EXPECT_TRUE(frame_->IsWindowVisible());
  EXPECT_EQ(text(rectOf(*frame_)), text(before));
  EXPECT_EQ(store().GetPage(), 2);
  EXPECT_EQ(store().GetMode(), 1);
}

TEST_F(LibraryFrame, HidingAndShowingGoThroughTheModulesCommands) {
  show();
  HideLibraryWindow();
  EXPECT_FALSE(frame_->IsWindowVisible());
  ShowLibraryWindow();
  EXPECT_TRUE(frame_->IsWindowVisible());
}

TEST_F(LibraryFrame, RestoringReturnsExactlyToTheOldPlace) {
  show();
  resize(612, 413);
  const CRect before = rectOf(*frame_);
  frame_->SendMessage(WM_SYSCOMMAND, SC_MINIMIZE);
  EXPECT_TRUE(frame_->IsIconic());
  frame_->SendMessage(WM_SYSCOMMAND, SC_RESTORE);
  EXPECT_FALSE(frame_->IsIconic());
  EXPECT_EQ(text(rectOf(*frame_)), text(before));
}

TEST_F(LibraryFrame, ShowingAMinimisedWindowRestoresIt) {
  show();
  frame_->SendMessage(WM_SYSCOMMAND, SC_MINIMIZE);
  ShowLibraryWindow();
  EXPECT_FALSE(frame_->IsIconic());
}

TEST_F(LibraryFrame, ItsRectangleIsStoredAtItsEnd) {
  show();
  resize(640, 420);
  close();
  CZhlkLibStore stored;
  EXPECT_EQ(stored.GetViewX(), 60);
  EXPECT_EQ(stored.GetViewY(), 40);
  EXPECT_EQ(stored.GetViewWidth(), 640);
  EXPECT_EQ(stored.GetViewHeight(), 420);
}

TEST_F(LibraryFrame, AnIconsRectangleIsStoredAsItIs) {
  show();
  frame_->SendMessage(WM_SYSCOMMAND, SC_MINIMIZE);
  const CRect icon = rectOf(*frame_);
  close();
  CZhlkLibStore stored;
  EXPECT_EQ(stored.GetViewX(), icon.left);
  EXPECT_EQ(stored.GetViewY(), icon.top);
}

TEST_F(LibraryFrame, ItsEndClearsTheModulesPointer) {
  show();
  close();
  EXPECT_EQ(libraryWindow(), nullptr);
}

TEST_F(LibraryFrame, TheToolBarsRimTakesNoClicks) {
  show(40);
  resize(500, 400);
  CRect button;
  ::SendMessageW(toolBar(), TB_GETITEMRECT, 5, reinterpret_cast<LPARAM>(&button));
  const CRect area = client(toolBar());
  const int x = button.left + 12;
  const auto pressedBy = [&](int y) {
    ::SendMessageW(toolBar(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    const LRESULT pressed = ::SendMessageW(toolBar(), TB_ISBUTTONPRESSED, ID_AUXILIARY_BAR, 0);
    ::ReleaseCapture();
    return pressed != 0;
  };
  ASSERT_LT(area.bottom - 2, button.bottom) << "the button must reach into the rim";
  EXPECT_FALSE(pressedBy(area.bottom - 1));
  EXPECT_FALSE(pressedBy(area.bottom - 2));
  EXPECT_TRUE(pressedBy(area.bottom - 3));
}

TEST_F(LibraryFrame, ADoubleClickOnTheToolBarDoesNothing) {
  show();
  resize(600, 400);
  const CRect before = rectOf(toolBar());
  const HWND parent = ::GetParent(toolBar());
  ::SendMessageW(toolBar(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 3));
  EXPECT_EQ(text(rectOf(toolBar())), text(before));
  EXPECT_EQ(::GetParent(toolBar()), parent);
}

// --- what is stored may be nonsense ---

TEST_F(LibraryFrame, AWindowOffEveryScreenComesUpReachable) {
  {
    CZhlkLibStore store;
    store.SetViewX(-32000);
    store.SetViewY(-32000);
    store.SetViewWidth(400);
    store.SetViewHeight(300);
  }
  open();
  const CRect window = rectOf(*frame_);
  EXPECT_GE(window.left, 0);
  EXPECT_GE(window.top, 0);
  EXPECT_EQ(window.Width(), 400);
}

TEST_F(LibraryFrame, AGridOfNothingOrNonsenseIsShownAllTheSame) {
  for (const wchar_t* stored : {L"0&0", L"-3&5", L"7&", L"&", L"abc", L"2000000000&2000000000"}) {
    fill(5);
    {
      const std::wstring path = test::Install::wide(install_.library() / "zhllib.qdp");
      CQuillDpData tree;
      tree.ReadDataFromQdpFile(path.c_str());
      const std::wstring text = stored;
      tree.SetSubValueW(L"ZhlViewDate\\当前格数", static_cast<std::int16_t>(text.size() + 1),
                        text.c_str(), 0);
      tree.WriteDataToQdpFile(path.c_str());
    }
    open();
    ShowLibraryWindow();
    click({3, 3});
    choose(0);
    choose(3);
    EXPECT_EQ(usableGrid(store()), (Grid{4, 12}));
    close();
  }
}

TEST_F(LibraryFrame, AMissingLibraryIsAnEmptyPage) {
  open();
  ShowLibraryWindow();
  click({3, 3});
  EXPECT_EQ(title(), L"主回路");
  EXPECT_FALSE(isEnabled(ID_NEXT_PAGE));
}

TEST_F(LibraryFrame, DamagedFilesAreAnEmptyPageAndAreKept) {
  fill(5);
  for (const char* name : {"zhllib.qdp", "zhllib.slb"}) {
    test::writeBytes(install_.library() / name, "neither tree nor slides");
  }
  open();
  ShowLibraryWindow();
  click({3, 3});
  EXPECT_EQ(title(), L"主回路");
  EXPECT_EQ(store().GetCount(), -1);
  close();
  EXPECT_TRUE(std::filesystem::exists(install_.library() / "zhllib.qdp.damaged-1"));
}

TEST_F(LibraryFrame, SlideThatCantBeDrawnLeavesItsCellEmpty) {
  fill(3);
  open();
  store().Slides().AddSlideW(CZhlkLibStore::CircuitName(1), "no slide", 8);
  ShowLibraryWindow();
  resize(747, 400);
  const window_kit::Picture page = window_kit::pictureOf(grid());
  const auto isLit = [&](int cell) {
    const CPoint middle = cellCentre(cell);
    int lit = 0;
    for (int y = middle.y - 40; y < middle.y + 40; ++y) {
      for (int x = middle.x - 20; x < middle.x + 20; ++x) lit += page.at(x, y) != 0 ? 1 : 0;
    }
    return lit > 0;
  };
  EXPECT_TRUE(isLit(0));
  EXPECT_FALSE(isLit(1));
  EXPECT_TRUE(isLit(2));
}

TEST_F(LibraryFrame, ManyRoundsLeaveNoWindowBehind) {
  fill(20);
  const auto windows = [] {
    int count = 0;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND, LPARAM counter) -> BOOL {
          ++*reinterpret_cast<int*>(counter);
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
  };
  open();
  close();
  const int before = windows();
  for (int round = 0; round < 20; ++round) {
    open();
    close();
  }
  EXPECT_EQ(windows(), before);
}

}  // namespace

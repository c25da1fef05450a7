// The page of slides: selecting, answering the host, the menu's commands, the preview, the
// splitter.
#include "library_window/windows/window_fixture.h"

namespace {

using library_window_test::LibraryFrame;
using window_kit::Picture;
using window_kit::pictureOf;
using window_kit::WindowScript;

using Strings = std::vector<std::wstring>;

class SlideView : public LibraryFrame {
 protected:
  void SetUp() override {
    show(40);
    resize(747, 400);
  }
  static int differences(const Picture& a, const Picture& b) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
      for (int x = 0; x < a.width(); ++x) count += a.at(x, y) != b.at(x, y) ? 1 : 0;
    }
    return count;
  }
  // Pixels of a page's cell that aren't black, without its lines.
  int drawnIn(int cell) {
    const Picture picture = pictureOf(grid());
    const CPoint middle = cellCentre(cell);
    const Grid size = usableGrid(store());
    const int halfWidth = client(grid()).Width() / size.columns / 2 - 6;
    const int halfHeight = client(grid()).Height() / size.rows / 2 - 6;
    int count = 0;
    for (int y = middle.y - halfHeight; y < middle.y + halfHeight; ++y) {
      for (int x = middle.x - halfWidth; x < middle.x + halfWidth; ++x) {
        count += picture.at(x, y) != 0 ? 1 : 0;
      }
    }
    return count;
  }
  void deleteAt(int cell) {
    click(cellCentre(cell));
    ::SendMessageW(grid(), WM_COMMAND, ID_SLIDE_DELETE, 0);
    frame_->UpdateWindow();
  }
  HWND preview() {
    HWND found = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
          const CWnd* object = CWnd::FromHandlePermanent(window);
          const bool isPreview = object && ::GetWindow(window, GW_OWNER) &&
                                 dynamic_cast<const CFrameWnd*>(object) && object != libraryFrame();
          if (isPreview) *reinterpret_cast<HWND*>(result) = window;
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
  }
  static HWND openMenu() {
    const HWND window = ::FindWindowW(L"#32768", nullptr);
    return window && ::IsWindowVisible(window) ? window : nullptr;
  }
  // The entries of the menu over a cell; grey ones with a minus, separators as 0.
  std::vector<int> offered(int cell) {
    std::vector<int> commands;
    const CPoint at = cellCentre(cell);
    WindowScript script;
    script.rightClick(grid(), at.x, at.y);
    script.waitFor("the menu", [] { return openMenu() != nullptr; });
    script.then([&commands] {
      constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
      const auto menu = reinterpret_cast<HMENU>(::SendMessageW(openMenu(), kGetMenu, 0, 0));
      for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
        const int id = static_cast<int>(::GetMenuItemID(menu, i));
        const bool grey =
            (::GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_GRAYED) != 0;
        commands.push_back(grey ? -id : id);
      }
    });
    script.key(VK_ESCAPE).waitFor("the menu's end", [] { return openMenu() == nullptr; });
    EXPECT_EQ(script.run(), "");
    return commands;
  }
  static const CWnd* libraryFrame() { return current_; }
  static inline const CWnd* current_ = nullptr;
};

TEST_F(SlideView, AClickSelectsTheSlotOfItsCellOnItsPage) {
  store().SetPage(2);
  click(cellCentre(6));
  EXPECT_EQ(store().GetSelection(), 24);
  EXPECT_EQ(title(), L"主回路&25");
}

TEST_F(SlideView, TheLeftoverStripSelectsTheFirstCellOfTheNextRow) {
  const CRect area = client(grid());
  ASSERT_NE(area.Width() % 6, 0) << "the page must leave a strip";
  click({area.right - 1, 5});
  EXPECT_EQ(store().GetSelection(), 6);
}

TEST_F(SlideView, WithoutTheMarkNothingGoesToTheHost) {
  setMessageMark(0);
  click(cellCentre(3));
  EXPECT_EQ(store().GetSelection(), 3);
  EXPECT_EQ(title(), L"主回路&04");
  EXPECT_TRUE(test::host().messages.empty());
}

TEST_F(SlideView, WithTheMarkAClickAnswersTheHostsPrompt) {
  setMessageMark(1);
  WindowScript script;
  const CPoint at = cellCentre(7);
  script.click(grid(), at.x, at.y);
  script.waitFor("the answer", [this] { return !test::host().messages.empty(); });
  EXPECT_EQ(script.run(), "");
  ASSERT_EQ(test::host().messages.size(), 1U);
  EXPECT_EQ(test::host().messages[0].substr(0, 2), L"S ");
  EXPECT_EQ(store().GetSelection(), 7);
}

TEST_F(SlideView, AFreeSlotSendsNothing) {
  setMessageMark(1);
  store().SetPage(3);
  click(cellCentre(10));
  EXPECT_EQ(store().GetSelection(), 46);
  EXPECT_EQ(title(), L"主回路");
  EXPECT_TRUE(test::host().messages.empty());
}

TEST_F(SlideView, EditModeSendsNothing) {
  setMessageMark(1);
  store().SetMode(1);
  const auto dialog = [] { return ::FindWindowW(L"#32770", nullptr); };
  WindowScript script;
  script.onFailure([&] { ::PostMessageW(dialog(), WM_COMMAND, IDCANCEL, 0); });
  script.then([this] { click(cellCentre(3)); });
  script.waitFor("the editing dialog", [&] { return ::IsWindowVisible(dialog()) != 0; });
  script.then([&] { ::PostMessageW(dialog(), WM_COMMAND, IDCANCEL, 0); });
  script.waitFor("its end", [&] { return dialog() == nullptr; });
  EXPECT_EQ(script.run(), "");
  EXPECT_TRUE(test::host().messages.empty());
}

TEST_F(SlideView, ClickingACellTwiceLeavesItMarked) {
  click(cellCentre(8));
  const Picture once = pictureOf(grid());
  click(cellCentre(8));
  EXPECT_EQ(differences(once, pictureOf(grid())), 0);
  ::InvalidateRect(grid(), nullptr, TRUE);
  EXPECT_EQ(differences(once, pictureOf(grid())), 0) << "a repaint shows the same";
  click(cellCentre(9));
  EXPECT_GT(differences(once, pictureOf(grid())), 0);
}

TEST_F(SlideView, ADeletedCellIsBlackAndTheOthersStay) {
  EXPECT_GT(drawnIn(2), 0);
  const int neighbour = drawnIn(3);
  // The context rectangle is that of the last right click.
  store().SetMode(1);
  WindowScript script;
  const CPoint at = cellCentre(2);
  script.rightClick(grid(), at.x, at.y).waitFor("the menu", [] {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return ::GetGUIThreadInfo(::GetCurrentThreadId(), &info) && (info.flags & GUI_INMENUMODE) != 0;
  });
  // Copy, (paste is grey), delete: the arrow keys stop at grey entries, too.
  script.key(VK_DOWN).key(VK_DOWN).key(VK_DOWN).key(VK_RETURN);
  script.waitFor("the slide to go", [this] { return !store().HasCircuit(2); });
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(drawnIn(2), 0);
  EXPECT_EQ(drawnIn(3), neighbour);
  EXPECT_EQ(store().GetCount(), 40);
}

TEST_F(SlideView, TheMenuOffersWhatTheSlotAllows) {
  using Commands = std::vector<int>;
  constexpr int kCopy = ID_SLIDE_COPY, kPaste = ID_SLIDE_PASTE, kDelete = ID_SLIDE_DELETE,
                kEnlarge = ID_SLIDE_ENLARGE;
  deleteAt(4);
  store().SetMode(1);
  EXPECT_EQ(offered(4), (Commands{-kCopy, -kPaste, -kDelete, 0, -kEnlarge})) << "nothing copied";
  EXPECT_EQ(offered(2), (Commands{kCopy, -kPaste, kDelete, 0, kEnlarge}));
  EXPECT_EQ(store().GetSelection(), 2) << "the right click selects";
  ::SendMessageW(grid(), WM_COMMAND, ID_SLIDE_COPY, 0);
  EXPECT_EQ(offered(4), (Commands{-kCopy, kPaste, -kDelete, 0, -kEnlarge}));
  EXPECT_EQ(offered(3), (Commands{kCopy, -kPaste, kDelete, 0, kEnlarge})) << "the slot is taken";
}

TEST_F(SlideView, CopyKeepsTheNumberAndPasteMakesTheRowAnew) {
  deleteAt(11);
  click(cellCentre(2));
  ::SendMessageW(grid(), WM_COMMAND, ID_SLIDE_COPY, 0);
  click(cellCentre(11));
  ::SendMessageW(grid(), WM_COMMAND, ID_SLIDE_PASTE, 0);
  CString row;
  CString name;
  store().GetRowAt(11, row);
  store().GetNameAt(11, name);
  EXPECT_EQ(row.wide(), L"(\"12\" rest)");
  EXPECT_EQ(name.wide(), L"主回路&12");
  store().GetRowAt(2, row);
  EXPECT_EQ(row, rowOf(2));
  EXPECT_EQ(test::host().documentLocks, 0) << "every lock is given back";
  EXPECT_EQ(boxes_.size(), 1U) << "the test's rows can't be drawn, and that is told";
}

TEST_F(SlideView, PastingBehindTheLastSlotGrowsTheList) {
  click(cellCentre(2));
  ::SendMessageW(grid(), WM_COMMAND, ID_SLIDE_COPY, 0);
  store().SetPage(3);
  click(cellCentre(8));
  ::SendMessageW(grid(), WM_COMMAND, ID_SLIDE_PASTE, 0);
  EXPECT_EQ(store().GetCount(), 45);
  EXPECT_TRUE(store().HasCircuit(44));
  EXPECT_FALSE(store().HasCircuit(43));
}

TEST_F(SlideView, ADeletedSourcePastesTheTemplate) {
  CString before;
  store().GetRowAt(4711, before);  // the template's
  click(cellCentre(2));
  ::SendMessageW(grid(), WM_COMMAND, ID_SLIDE_COPY, 0);
  deleteAt(2);
  deleteAt(11);
  ::SendMessageW(grid(), WM_COMMAND, ID_SLIDE_PASTE, 0);
  CString row;
  EXPECT_EQ(store().GetRowAt(11, row), before.IsEmpty() ? 0 : 1);
  const bool hasBlank = before.Find(L' ') >= 0;
  EXPECT_EQ(store().HasCircuit(11), hasBlank ? 1 : 0) << "a row without a blank ends the paste";
}

// --- the preview ---

TEST_F(SlideView, TheEnlargedSlideLastsAsLongAsTheRightButton) {
  current_ = frame_;
  const CPoint at = cellCentre(5);
  WindowScript script;
  script.move(grid(), at.x, at.y).pressRight();
  script.waitFor("the preview", [this] { return preview() != nullptr; });
  script.then([this] {
    CRect over;
    ::GetWindowRect(preview(), over);
    CRect frame;
    frame_->GetWindowRect(frame);
    EXPECT_EQ(over, frame) << "exactly over the library window";
    wchar_t text[64] = L"";
    ::GetWindowTextW(preview(), text, 64);
    EXPECT_EQ(std::wstring(text), L"主回路&06");
    const Picture picture = pictureOf(preview());
    EXPECT_LT(picture.count(0), picture.width() * picture.height()) << "something is drawn";
  });
  script.releaseRight();
  script.waitFor("its end", [this] { return preview() == nullptr; });
  EXPECT_EQ(script.run(), "");
}

TEST_F(SlideView, AnyButtonEndsThePreview) {
  current_ = frame_;
  for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN, WM_RBUTTONUP,
                             WM_NCLBUTTONDOWN, WM_NCLBUTTONUP, WM_NCRBUTTONDOWN, WM_NCRBUTTONUP}) {
    click(cellCentre(1));
    ::SendMessageW(grid(), WM_COMMAND, ID_SLIDE_ENLARGE, 0);
    ASSERT_NE(preview(), nullptr) << message;
    ::SendMessageW(preview(), message, HTCAPTION, MAKELPARAM(5, 5));
    EXPECT_EQ(preview(), nullptr) << message;
  }
}

TEST_F(SlideView, AFreeSlotIsNotEnlarged) {
  current_ = frame_;
  deleteAt(4);
  ::SendMessageW(grid(), WM_COMMAND, ID_SLIDE_ENLARGE, 0);
  EXPECT_EQ(preview(), nullptr);
}

TEST_F(SlideView, ThePreviewShowsTheSlideUprightInItsMiddle) {
  current_ = frame_;
  click(cellCentre(1));
  ::SendMessageW(grid(), WM_COMMAND, ID_SLIDE_ENLARGE, 0);
  ASSERT_NE(preview(), nullptr);
  const Picture picture = pictureOf(preview());
  // The slide's upright line stands in the middle of the client area.
  int found = 0;
  for (int x = picture.width() / 2 - 2; x <= picture.width() / 2 + 2; ++x) {
    found += picture.at(x, picture.height() / 2) != 0 ? 1 : 0;
  }
  EXPECT_GT(found, 0);
  EXPECT_EQ(picture.at(5, picture.height() / 2), 0U);
  ::SendMessageW(preview(), WM_LBUTTONDOWN, 0, 0);
}

// --- the splitter ---

TEST_F(SlideView, TheColumnsShareTheInside) {
  const int width = client(splitter()).Width();
  EXPECT_EQ(client(grid()).Width(), width - 120);
  EXPECT_EQ(widthOf(bar()), 116);
  EXPECT_EQ(client(grid()).Height(), client(splitter()).Height() - 8);
}

TEST_F(SlideView, AnEtchedLineRunsAlongTheTop) {
  const Picture picture = pictureOf(splitter());
  const auto pixel = [](int systemColour) {
    const COLORREF colour = ::GetSysColor(systemColour);
    return static_cast<std::uint32_t>(GetRValue(colour) << 16 | GetGValue(colour) << 8 |
                                      GetBValue(colour));
  };
  for (const int x : {0, 100, picture.width() - 1}) {
    EXPECT_EQ(picture.at(x, 0), pixel(COLOR_BTNSHADOW));
    EXPECT_EQ(picture.at(x, 1), pixel(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(picture.at(x, 2), pixel(COLOR_BTNFACE));
    EXPECT_EQ(picture.at(x, 7), pixel(COLOR_BTNFACE));
  }
}

TEST_F(SlideView, ASecondColumnLargerThanTheRoomIsCut) {
  auto* window = static_cast<CSplitterWndEx*>(CWnd::FromHandlePermanent(splitter()));
  const int width = client(splitter()).Width();
  window->SetColumnWidths(100, 5000);
  EXPECT_EQ(client(grid()).Width(), 100);
  EXPECT_EQ(widthOf(bar()), width - 104);
}

TEST_F(SlideView, ADraggedBarMovesUntilTheFramePaints) {
  const CRect before = client(grid());
  const int x = before.right + 2;
  WindowScript script;
  script.move(splitter(), x, 100).press();
  script.waitFor("the capture", [this] { return ::GetCapture() == splitter(); });
  script.move(splitter(), x - 60, 100).release();
  script.waitFor("the panes", [&] { return client(grid()).right == before.right - 60; });
  EXPECT_EQ(script.run(), "");
  frame_->Invalidate();
  frame_->UpdateWindow();
  EXPECT_EQ(client(grid()).right, before.right) << "the bar's column is always 120 wide";
}

}  // namespace

// What the bar draws, pixel by pixel: headers, hover frames, the mark of a drag, the arrows, the
// steps of a slide; and that nothing of them stays.
#include "controls/windows/bar_kit.h"
#include "controls/windows/gdi_scope.h"
#include "platform/framework_controls.h"

namespace {

using namespace controls_test;
using Rows = std::vector<std::string>;

class OutBarDrawing : public BarWindow {
 protected:
  // One letter for each colour that the bar draws with; a dot for any other.
  static char letter(std::uint32_t colour) {
    if (colour == systemColour(COLOR_BACKGROUND)) return 'b';
    if (colour == systemColour(COLOR_3DHILIGHT)) return 'h';
    if (colour == systemColour(COLOR_3DDKSHADOW)) return 'd';
    if (colour == systemColour(COLOR_3DFACE)) return 'f';
    return '.';
  }
  std::string column(int x, int top, int bottom) const {
    const auto picture = pictureOf(window());
    std::string letters;
    for (int y = top; y < bottom; ++y) letters += letter(picture.at(x, y));
    return letters;
  }
  std::string row(int y, int left, int right) const {
    const auto picture = pictureOf(window());
    std::string letters;
    for (int x = left; x < right; ++x) letters += letter(picture.at(x, y));
    return letters;
  }
  // A header without a title, 12 by 9 pixels, drawn on red.
  Rows drawnHeader(bool pressed) {
    bar_->folders().folder(2).name.clear();
    CClientDC like(bar_.get());
    MemoryPicture memory(like, 12, 9);
    memory.dc.FillSolidRect(0, 0, 12, 9, RGB(255, 0, 0));
    bar_->DrawFolderHeader(memory.dc, 2, {0, 0, 12, 9}, pressed);
    Rows rows;
    for (int y = 0; y < 9; ++y) {
      std::string letters;
      for (int x = 0; x < 12; ++x) letters += letter(rgb(memory.dc.GetPixel(x, y)));
      rows.push_back(letters);
    }
    return rows;
  }
};

// --- headers ---

TEST_F(OutBarDrawing, AHeaderIsRaised) {
  EXPECT_EQ(drawnHeader(false), (Rows{"bbbbbbbbbbbb",  //
                                      "hhhhhhhhhhhb",  //
                                      "hffffffffffb",  //
                                      "hffffffffffb",  //
                                      "hffffffffffb",  //
                                      "hffffffffffb",  //
                                      "hffffffffffb",  //
                                      "hffffffffffb",  //
                                      "bbbbbbbbbbbb"}));
}

TEST_F(OutBarDrawing, APressedHeaderIsSunkenAndLeavesOutItsFirstPixel) {
  EXPECT_EQ(drawnHeader(true), (Rows{".bbbbbbbbbbb",  //
                                     "dddddddddddh",  //
                                     "dbbbbbbbbbfh",  //
                                     "dbfffffffffh",  //
                                     "dbfffffffffh",  //
                                     "dbfffffffffh",  //
                                     "dbfffffffffh",  //
                                     "dffffffffffh",  //
                                     "hhhhhhhhhhhh"}));
}

TEST_F(OutBarDrawing, AHeldHeaderRisesWhileThePointerIsOffIt) {
  const CRect rect = header(2);
  const auto edge = [&] { return column(4, rect.top, rect.top + 4); };
  const auto before = pictureOf(window());
  Rows seen;
  WindowScript script;
  hold(script, middle(rect)).then([&] { seen.push_back(edge()); });
  moveTo(script, {50, 150}).then([&] { seen.push_back(edge()); });
  moveTo(script, middle(rect)).then([&] { seen.push_back(edge()); });
  moveTo(script, {50, 160}).then([&] { seen.push_back(edge()); });
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(seen, (Rows{"bdbf", "bhff", "bdbf", "bhff"}));
  outside();
  repaint();
  EXPECT_EQ(changedSince(before), 0);
}

TEST_F(OutBarDrawing, AHeadersHoverFrameIsTwoLinesAndLeavesNothing) {
  const CRect rect = header(3);
  const auto before = pictureOf(window());
  WindowScript script;
  moveTo(script, middle(rect));
  script.waitFor("the frame", [this] { return bar_->hover().folder == 3; });
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(column(4, rect.bottom - 3, rect.bottom), "fbd");
  EXPECT_EQ(row(rect.top + 4, rect.right - 3, rect.right), "fbd");
  EXPECT_EQ(column(rect.right - 1, rect.top, rect.top + 2), "bd") << "up to the top line";
  EXPECT_EQ(column(rect.right - 2, rect.top, rect.top + 3), "bhb") << "up to the light edge";
  EXPECT_EQ(row(rect.bottom - 2, 0, 3), "hbb");
  repaint();
  EXPECT_EQ(column(4, rect.bottom - 3, rect.bottom), "fbd") << "a paint draws it again";
  outside();
  EXPECT_EQ(changedSince(before), 0);
}

// --- items ---

TEST_F(OutBarDrawing, AnItemsHoverFrameIsARingAroundTheIconAndLeavesNothing) {
  addItems(2);
  const CRect rect = icon(1);
  const auto before = pictureOf(window());
  WindowScript script;
  moveTo(script, middle(rect)).waitFor("hover", [this] { return bar_->hover().item == 1; });
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(changedSince(before), 2 * (rect.Width() + 2) + 2 * rect.Height());
  EXPECT_EQ(row(rect.top - 1, rect.left - 2, rect.left + 1), "bff");
  EXPECT_EQ(row(rect.top - 1, rect.right - 1, rect.right + 2), "fdb");
  EXPECT_EQ(row(rect.bottom, rect.left - 2, rect.left + 1), "bdd");
  EXPECT_EQ(row(rect.bottom, rect.right - 1, rect.right + 2), "ddb");
  WindowScript away;
  moveTo(away, {3, 220}).waitFor("no hover", [this] { return bar_->hover().item == -1; });
  EXPECT_EQ(away.run(), "");
  EXPECT_EQ(changedSince(before), 0);
}

TEST_F(OutBarDrawing, LabelsAreMeasuredInTheSystemsWindowFont) {
  const std::wstring text = L"a label of several words";
  addItems(1);
  bar_->folders().folder(1).item(0).text = text;
  const HDC screen = ::GetDC(nullptr);
  const HGDIOBJ before = ::SelectObject(screen, ::GetStockObject(DEFAULT_GUI_FONT));
  CRect wrapped(0, 0, 100, 0);
  ::DrawTextW(screen, text.c_str(), -1, wrapped, DT_CALCRECT | DT_WORDBREAK | DT_CENTER);
  SIZE line{};
  ::GetTextExtentPoint32W(screen, text.c_str(), static_cast<int>(text.size()), &line);
  ::SelectObject(screen, before);
  ::ReleaseDC(nullptr, screen);
  ASSERT_GT(wrapped.Height(), line.cy);
  const SIZE large = bar_->layout().labelSize(1, 0);
  EXPECT_EQ(large.cx, wrapped.Width());
  EXPECT_EQ(large.cy, wrapped.Height());
  bar_->SetIconView(true);
  const SIZE small = bar_->layout().labelSize(1, 0);
  EXPECT_EQ(small.cx, line.cx);
  EXPECT_EQ(small.cy, line.cy);
  bar_->folders().folder(1).item(0).image = 9;
  EXPECT_EQ(bar_->layout().iconSize(1, 0).cx, 0) << "the list has no such image";
}

TEST_F(OutBarDrawing, WithoutImageListsItemsAreNotDrawn) {
  const int folder = bar_->folders().AddFolder(L"bare", 0);
  bar_->folders().InsertItem(folder, -1, {0, L"label", 0});
  bar_->setFolderAnimationDelay(-1);
  bar_->SelectFolder(folder);
  outside();
  repaint();
  const auto picture = pictureOf(window());
  const CRect inside = bar_->layout().GetInsideRect();
  for (int y = inside.top; y < inside.bottom; ++y) {
    for (int x = 0; x < 100; ++x) {
      ASSERT_EQ(picture.at(x, y), systemColour(COLOR_BACKGROUND)) << x << ", " << y;
    }
  }
}

// --- arrows ---

TEST_F(OutBarDrawing, AHeldArrowIsPushedWhileThePointerIsOnIt) {
  addItems(6);
  ASSERT_TRUE(bar_->view().downShown);
  const CRect rect = bar_->view().down;
  const int side = ::GetSystemMetrics(SM_CXVSCROLL);
  const CRect inside = bar_->layout().GetInsideRect();
  EXPECT_TRUE(rect == CRect(inside.right - 5 - side, inside.bottom - 5 - side, inside.right - 5,
                            inside.bottom - 5));
  const auto before = pictureOf(window());
  std::vector<bool> pushed;
  const auto note = [&] { pushed.push_back(changedSince(before) > 0); };
  WindowScript script;
  hold(script, middle(rect)).then(note);
  moveTo(script, {20, rect.top}).then(note);
  moveTo(script, middle(rect)).then(note);
  moveTo(script, {20, rect.top}).then(note);
  drop(script);
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(pushed, (std::vector{true, false, true, false}));
  outside();
  repaint();
  EXPECT_EQ(changedSince(before), 0);
}

TEST_F(OutBarDrawing, ItemsAreNotDrawnOverAnArrow) {
  addItems(6);
  repaint();
  const CRect rect = bar_->view().down;
  const auto before = pictureOf(window());
  for (int i = 0; i < 6; ++i) bar_->folders().folder(1).item(i).text = std::wstring(60, L'W');
  repaint();
  ASSERT_TRUE(bar_->view().downShown);
  const auto after = pictureOf(window());
  for (int y = rect.top; y < rect.bottom; ++y) {
    for (int x = rect.left; x < rect.right; ++x) EXPECT_EQ(after.at(x, y), before.at(x, y));
  }
}

// --- the mark of a drag ---

class OutBarMark : public OutBarDrawing {
 protected:
  void SetUp() override {
    OutBarDrawing::SetUp();
    addItems(2);
  }
  // The first and the last ten columns around that row while the item is dragged there; # is black.
  Rows markAround(int item, CPoint to, int row) {
    const auto before = pictureOf(window());
    Rows rows;
    WindowScript script;
    hold(script, middle(icon(item)));
    moveTo(script, {3, icon(item).top + 5});
    moveTo(script, to).then([&] {
      const auto picture = pictureOf(window());
      const auto part = [&](int y, int left) {
        std::string letters;
        for (int x = left; x < left + 10; ++x) letters += picture.at(x, y) == 0 ? '#' : '.';
        return letters;
      };
      for (int y = row - 5; y <= row + 5; ++y) rows.push_back(part(y, 0) + " " + part(y, 90));
    });
    moveTo(script, middle(header(0))).then([&] {
      EXPECT_EQ(changedSince(before), 2 * (icon(item).Width() + 2) + 2 * icon(item).Height())
          << "the item's own frame alone is left of the drag";
    });
    EXPECT_EQ(leave(drop(script)).run(), "");
    repaint();
    EXPECT_EQ(changedSince(before), 0) << "nothing is left behind the drop";
    return rows;
  }
};

TEST_F(OutBarMark, BeforeTheFirstItemTheWedgesPointDown) {
  EXPECT_EQ(markAround(1, middle(icon(0)), cell(0).top - 2), (Rows{".......... ..........",  //
                                                                   ".......... ..........",  //
                                                                   ".......... ..........",  //
                                                                   ".......... ..........",  //
                                                                   ".......... ..........",  //
                                                                   "..######## ########..",  //
                                                                   "..#######. ..######..",  //
                                                                   "..#####... ....####..",  //
                                                                   "..###..... ......##..",  //
                                                                   "..#....... ..........",  //
                                                                   ".......... .........."}));
}

TEST_F(OutBarMark, BetweenItemsTheWedgesPointBothWays) {
  EXPECT_EQ(markAround(0, middle(icon(1)), cell(1).top - 13), (Rows{".......... ..........",  //
                                                                    "..#....... ..........",  //
                                                                    "..###..... ......##..",  //
                                                                    "..#####... ....####..",  //
                                                                    "..#######. ..######..",  //
                                                                    "..######## ########..",  //
                                                                    "..#######. ..######..",  //
                                                                    "..#####... ....####..",  //
                                                                    "..###..... ......##..",  //
                                                                    "..#....... ..........",  //
                                                                    ".......... .........."}));
}

TEST_F(OutBarMark, BehindTheLastItemTheWedgesPointUp) {
  EXPECT_EQ(markAround(0, {50, cell(1).bottom + 10}, cell(1).bottom + 6),
            (Rows{".......... ..........",  //
                  "..#....... ..........",  //
                  "..###..... ......##..",  //
                  "..#####... ....####..",  //
                  "..#######. ..######..",  //
                  "..######## ########..",  //
                  ".......... ..........",  //
                  ".......... ..........",  //
                  ".......... ..........",  //
                  ".......... ..........",  //
                  ".......... .........."}));
}

// --- the slide ---

// The rows where a header's face begins in the list, at each step.
class OutBarSlide : public OutBarDrawing {
 protected:
  std::vector<int> slide(int to) {
    std::vector<int> tops;
    const CRect from = header(bar_->GetCurrentFolder());
    const bool down = to > bar_->GetCurrentFolder();
    const CRect inside = bar_->layout().GetInsideRect();
    setPause([&](int) {
      const auto picture = pictureOf(window());
      // Downwards the header comes below the closing folder's own one.
      for (int y = down ? inside.top : from.top; y < inside.bottom; ++y) {
        if (picture.at(4, y) != systemColour(COLOR_3DFACE)) continue;
        tops.push_back(y);
        break;
      }
    });
    click(middle(header(to)));
    return tops;
  }
};

TEST_F(OutBarSlide, DownwardsTheNextFolderComesFromTheBottom) {
  const int bottom = CRect(bar_->layout().GetInsideRect()).bottom;
  const std::vector<int> tops = slide(2);
  ASSERT_GE(tops.size(), 2u);
  for (std::size_t i = 0; i < tops.size(); ++i) {
    EXPECT_EQ(tops[i], bottom - 22 + 2 - 22 * static_cast<int>(i));
  }
}

TEST_F(OutBarSlide, UpwardsTheOpenFolderGoesFromTheTop) {
  const int top = header(1).top;
  const std::vector<int> tops = slide(0);
  ASSERT_GE(tops.size(), 2u);
  for (std::size_t i = 0; i < tops.size(); ++i) {
    EXPECT_EQ(tops[i], top + 1 + 2 + 22 * static_cast<int>(i));
  }
}

TEST_F(OutBarSlide, AfterwardsTheBarLooksAsIfItHadOpenedAtOnce) {
  addItems(4);
  const auto before = pictureOf(window());
  for (const int there : {2, 4, 0}) {
    bar_->SelectFolder(there);
    AfxPumpWaitingMessages();
    bar_->SelectFolder(1);
    AfxPumpWaitingMessages();
    EXPECT_EQ(changedSince(before), 0) << there;
  }
}

// A folder's child window paints itself into the pictures and is hidden again.
class PaintedChild : public CWnd {
 public:
  int paintings = 0;
  bool shownMeanwhile = true;

 protected:
  LRESULT WindowProc(UINT message, WPARAM w, LPARAM l) override {
    if (message == WM_PAINT && w != 0) {
      ++paintings;
      shownMeanwhile = shownMeanwhile && IsWindowVisible();
      const RECT all{0, 0, 500, 500};
      ::FillRect(reinterpret_cast<HDC>(w), &all,
                 static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)));
      return 0;
    }
    return CWnd::WindowProc(message, w, l);
  }
};

TEST_F(OutBarSlide, AChildWindowPaintsItselfIntoTheSlideBelowItsHeader) {
  PaintedChild child;
  ASSERT_TRUE(child.Create(nullptr, L"", WS_CHILD, {0, 0, 5, 5}, bar_.get(), 9));
  bar_->folders().folder(2).child = &child;
  const CRect inside = bar_->layout().GetInsideRect();
  std::vector<std::uint32_t> firstStep;
  setPause([&](int) {
    if (!firstStep.empty()) return;
    EXPECT_FALSE(child.IsWindowVisible());
    const auto picture = pictureOf(window());
    for (const int y : {inside.bottom - 23, inside.bottom - 20, inside.bottom + 2}) {
      firstStep.push_back(picture.at(50, y));
    }
  });
  bar_->SelectFolder(2);
  EXPECT_EQ(child.paintings, 1);
  EXPECT_TRUE(child.shownMeanwhile);
  EXPECT_TRUE(child.IsWindowVisible()) << "the folder is open";
  EXPECT_EQ(firstStep, (std::vector{systemColour(COLOR_BACKGROUND), systemColour(COLOR_3DFACE),
                                    std::uint32_t{0xFFFFFF}}));
  bar_->folders().folder(2).child = nullptr;
  child.DestroyWindow();
}

}  // namespace

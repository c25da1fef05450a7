// The label editor with real keys: how it ends, what it sends, how it grows.
#include "controls/windows/bar_kit.h"
#include "controls/windows/gfx_group_edit.h"

namespace {

using namespace controls_test;

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

// --- what it looks at ---

class LabelEditBox : public LabelEdit {
 protected:
  void SetUp() override {
    LabelEdit::SetUp();
    addItems(2);
  }
  CGfxGroupEdit& edit() { return *dynamic_cast<CGfxGroupEdit*>(bar_->GetDlgItem(1)); }
};

// Whatever message carries the number of Enter or Esc closes the box.
TEST_F(LabelEditBox, AnyMessageWithTheNumberOfEnterOrEscEndsIt) {
  for (const UINT kind : {static_cast<UINT>(WM_MOUSEMOVE), static_cast<UINT>(WM_TIMER)}) {
    bar_->BeginItemEdit(0);
    MSG other{window(), kind, 14, 0, 0, {}};
    EXPECT_FALSE(edit().PreTranslateMessage(&other));
    AfxPumpWaitingMessages();
    EXPECT_TRUE(open());
    MSG esc{window(), kind, VK_ESCAPE, 0, 0, {}};
    EXPECT_TRUE(edit().PreTranslateMessage(&esc));
    AfxPumpWaitingMessages();
    EXPECT_FALSE(open());
    EXPECT_TRUE(library_.log.empty());
    bar_->BeginItemEdit(0);
    MSG enter{window(), kind, VK_RETURN, 0, 0, {}};
    EXPECT_TRUE(edit().PreTranslateMessage(&enter));
    EXPECT_TRUE(open()) << "it closes when its message comes";
    AfxPumpWaitingMessages();
    EXPECT_FALSE(open());
    EXPECT_EQ(library_.log, (Log{"rename item 0 a"}));
    library_.log.clear();
  }
}

// Where nobody translates messages, the characters themselves end an item's edit.
TEST_F(LabelEditBox, AnItemsEnterAndEscEndItAlsoAsCharacters) {
  bar_->BeginItemEdit(0);
  edit().SendMessage(WM_CHAR, VK_ESCAPE);
  EXPECT_EQ(::GetFocus(), window());
  AfxPumpWaitingMessages();
  EXPECT_FALSE(open());
  EXPECT_TRUE(library_.log.empty());
  bar_->BeginItemEdit(0);
  edit().SendMessage(WM_CHAR, VK_RETURN);
  AfxPumpWaitingMessages();
  EXPECT_FALSE(open());
  EXPECT_EQ(library_.log, (Log{"rename item 0 a"}));
}

TEST_F(LabelEditBox, AFoldersBoxTakesEscAsACharacterLikeAnyOther) {
  bar_->BeginFolderEdit(1);
  edit().SendMessage(WM_CHAR, VK_ESCAPE);
  AfxPumpWaitingMessages();
  EXPECT_TRUE(open());
  type({VK_ESCAPE});
}

TEST_F(LabelEditBox, StylesPlacesAndFont) {
  bar_->BeginFolderEdit(2);
  EXPECT_EQ(edit().GetStyle() & 0x5FFFFFFF, 0x50000005u);
  EXPECT_EQ(edit().GetExStyle() & WS_EX_CLIENTEDGE, static_cast<DWORD>(WS_EX_CLIENTEDGE));
  EXPECT_EQ(edit().SendMessage(WM_GETFONT),
            reinterpret_cast<LRESULT>(::GetStockObject(DEFAULT_GUI_FONT)));
  EXPECT_EQ(::GetFocus(), edit().m_hWnd);
  type({VK_ESCAPE});

  bar_->BeginItemEdit(1);
  const CRect label = bar_->layout().GetItemLabelRect(1, 1);
  EXPECT_TRUE(box() == CRect(5, label.top, 95, label.bottom + 5));
  EXPECT_EQ(edit().GetStyle() & 0xFF, 5u);
  type({VK_ESCAPE});

  bar_->SetIconView(true);
  repaint();
  bar_->BeginItemEdit(1);
  CRect place = cell(1);
  place.OffsetRect(17, 0);
  EXPECT_TRUE(box() == place);
  EXPECT_EQ(edit().GetStyle() & 0xFF, 0x80u);
  type({VK_ESCAPE});
}

// A paint forgets them meanwhile, since they can't be drawn again.
TEST_F(LabelEditBox, AnItemsHoverFrameStandsUntilThePaint) {
  WindowScript script;
  moveTo(script, middle(icon(0))).waitFor("hover", [this] { return bar_->hover().item == 0; });
  script.then([this] { bar_->BeginItemEdit(1); });
  moveTo(script, middle(icon(1))).then([] {});
  EXPECT_EQ(script.run(), "");
  EXPECT_EQ(bar_->hover().item, 0);
  repaint();
  EXPECT_EQ(bar_->hover().item, -1);
  type({VK_ESCAPE});
}

// --- growing ---

TEST_F(LabelEditBox, OnOneLineOnlyTheRightEdgeMoves) {
  bar_->SetIconView(true);
  repaint();
  bar_->BeginItemEdit(1);
  const CRect before = box();
  for (const int letters : {4, 8}) {
    type(many(4));
    EXPECT_EQ(box().left, before.left) << letters;
    EXPECT_EQ(box().top, before.top) << letters;
    EXPECT_EQ(box().bottom, before.bottom) << letters;
  }
  const int wide = box().Width();
  type(std::vector<WORD>(4, VK_BACK));
  EXPECT_LT(box().Width(), wide) << "it follows a text that gets narrower";
  type({VK_ESCAPE});
}

TEST_F(LabelEditBox, GrowingToTheEdgeKeepsTheOtherEdges) {
  bar_->BeginItemEdit(0);
  const CRect before = box();
  type(many(12));
  EXPECT_TRUE(box() == CRect(before.left, before.top, 100, before.bottom));
  type({VK_SPACE, 'W', 'W', VK_SPACE, 'W', 'W'});
  EXPECT_EQ(box().left, before.left);
  EXPECT_EQ(box().right, 100);
  type({VK_ESCAPE});
}

// Near the lower end the box takes all the room that there is.
TEST_F(LabelEditBox, GrowingDownEndsAtTheBarsEdge) {
  bar_->BeginItemEdit(1);
  edit().MoveWindow(CRect(5, 255, 95, 285));
  std::vector<WORD> words;
  for (int i = 0; i < 8; ++i) words.insert(words.end(), {'W', 'W', 'W', 'W', 'W', VK_SPACE});
  type(words);
  EXPECT_EQ(box().bottom, 300);
  type({VK_ESCAPE});
}

// --- its end ---

class CountedEdit : public CGfxGroupEdit {
 public:
  explicit CountedEdit(int& alive) : CGfxGroupEdit(0, false), alive_(alive) { ++alive_; }
  ~CountedEdit() override { --alive_; }

 private:
  int& alive_;
};

TEST_F(LabelEditBox, TheObjectEndsWithItsWindow) {
  int alive = 0;
  auto* counted = new CountedEdit(alive);
  ASSERT_TRUE(counted->Create(WS_CHILD | WS_VISIBLE, {5, 100, 95, 120}, bar_.get(), 1));
  counted->notification = BARN_ITEMRENAME;
  counted->SetFocus();
  EXPECT_EQ(alive, 1);
  ::SetFocus(window());
  EXPECT_EQ(alive, 1) << "until its message comes";
  AfxPumpWaitingMessages();
  EXPECT_EQ(alive, 0);
  EXPECT_TRUE(library_.log.empty()) << "it had no text";
}

}  // namespace

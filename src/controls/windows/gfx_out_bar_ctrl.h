// The icon bar's window: a stack of folder headers with the open folder's items between them. It
// paints, follows the mouse and reports to itself by BARM_NOTIFY; what its commands and
// notifications do is the library's. All arithmetic and decisions stand in the portable files.
#pragma once

#include "controls/bar_commands.h"
#include "controls/bar_hover.h"
#include "controls/bar_library.h"
#include "controls/insert_mark.h"
#include "controls/item_jump.h"
#include "controls/press_state.h"
#include "controls/windows/screen_measure.h"
#include "platform/framework_menu.h"
#include "platform/framework_window.h"

class MouseLoop;

class CGfxOutBarCtrl : public CWnd {
  DECLARE_DYNCREATE(CGfxOutBarCtrl)

 public:
  CGfxOutBarCtrl();

  using CWnd::Create;
  BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id, unsigned flags);
  // Without one, clicks and commands have no effect. It outlives the bar or is taken away before.
  void setLibrary(BarLibrary* library) { library_ = library; }

  // --- folders and items; a bad index throws CInvalidArgException* ---
  BarFolders& folders() { return folders_; }
  int GetFolderCount() const { return folders_.GetFolderCount(); }
  int GetCurrentFolder() const { return view_.currentFolder; }
  int GetCurrentItemCount() const { return folders_.folder(view_.currentFolder).GetItemCount(); }
  CWnd* GetFolderChild(int folder) const;  // below 0 the open folder's; null without folders
  bool IsValidItem(int item) const;
  CString GetItemText(int item) const;
  void SetItemText(int item, const wchar_t* text);
  void SetFolderText(int folder, const wchar_t* text);
  // After a folder was taken out: what is open stays as it is only if it stood before that one.
  void folderRemoved(int folder);

  // --- what is shown ---
  bool IsSmallIconView() const { return (flags_ & BARF_SMALLICON) != 0; }
  void SetIconView(bool smallIcons);
  void SelectFolder(int index);
  int firstItem() const { return view_.firstItem; }
  int selectedItem() const { return selectedItem_; }
  void forgetSelection() { selectedItem_ = -1; }
  // Milliseconds of each step; below 0 folders open at once.
  void setFolderAnimationDelay(int milliseconds) { folderDelay_ = milliseconds; }
  void SetItemAnimInterval(int milliseconds);  // of the selected item's jump; 0 and below: none
  BarLayout layout();                          // of the client area as it is now; don't keep it
  const BarView& view() const { return view_; }
  const BarHover& hover() const { return hover_; }

  // --- label editors; they delete themselves ---
  void BeginFolderEdit(int index);
  void BeginItemEdit(int index);

  // --- drawing ---
  void DrawFolderHeader(CDC& dc, int folder, RECT rect, bool pressed);
  void DrawBarItem(CDC& dc, int folder, RECT rect, int item, bool iconOnly);
  void DrawFolderItems(CDC& dc, int folder, const RECT& rect);
  // These draw at once on the window. -1 takes the frame away.
  void HighlightFolder(int folder);
  void HighlightItem(int item, bool pressed);
  void DrawItemOffset(int dx, int dy, int item);
  void AnimateFolderChange(int from, int to);
  void DrawInsertMark(CDC& dc, int target);

 protected:
  BOOL PreCreateWindow(CREATESTRUCTW& create) override;
  void OnPaint();
  BOOL OnEraseBkgnd(CDC*) { return TRUE; }
  void OnSize(UINT type, int width, int height);
  void OnTimer(UINT_PTR id);
  void OnMouseMove(UINT flags, CPoint point);
  void OnLButtonDown(UINT flags, CPoint point);
  void OnRButtonDown(UINT flags, CPoint point);
  BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);
  LRESULT OnBarNotify(WPARAM code, LPARAM value);

  void onSmallIcons();
  void onLargeIcons();
  void onRename();
  void onDelete();
  void onNew();
  void onAdd();
  void onNoAction(UINT) {}  // enlarge, reduce, cut, copy, paste: kept without behaviour
  void onUpdateSmallIcons(CCmdUI* item) { item->Enable(!IsSmallIconView()); }
  void onUpdateLargeIcons(CCmdUI* item) { item->Enable(IsSmallIconView()); }
  void onUpdateEnabled(CCmdUI*) {}  // having a handler keeps the entry enabled
  DECLARE_MESSAGE_MAP()

 private:
  struct Colours {
    COLORREF background, frame, text, face, highlight, darkShadow;
  };
  struct Hit {
    BarHit code;
    int index;
  };
  // One of the two scroll arrows: which members it has and how it is drawn.
  struct Arrow {
    BarHit code;
    bool& shown;
    bool& pressed;
    RECT& rect;
    UINT normal;
    UINT pushed;
  };

  Hit hitTest(const POINT& point);
  bool focusIsInside() const;  // on a child, such as a label editor
  const CBarFolder* openFolder() const { return folders_.find(view_.currentFolder); }
  CRect inside() { return layout().GetInsideRect(); }
  LRESULT notify(UINT code, LPARAM value) { return SendMessage(BARM_NOTIFY, code, value); }

  void paintInto(CDC& dc);
  void drawItems(CDC& dc, const BarLayout& layout, int folder, const RECT& rect);
  void paintArrow(CDC& dc, Arrow arrow, bool show);
  void paintContents(CDC& dc, int folder, const RECT& inside, int top);
  void folderLines(CDC& dc, const RECT& header, COLORREF outer, COLORREF inner);
  void iconFrame(CDC& dc, int folder, int item, COLORREF topLeft, COLORREF bottomRight);
  bool plain(int item) const;  // the selected item shows it otherwise than by a hover frame

  void pressFolder(int index);
  void pressItem(int index);
  void itemMoved(ItemPress& press, CPoint point, HCURSOR& cursor);
  void itemReleased(ItemPress& press, CPoint point);
  void dropItem(const ItemPress& press, const DragPoint& point);
  void clickItem(int index);
  void invalidateSelection();
  DragPoint dragPoint(CPoint point);
  void pressArrow(BarHit code);
  Arrow arrow(BarHit code);
  bool trackArrow(MouseLoop& loop, const Arrow& arrow, HeldButton& held);
  void arrowMoved(const Arrow& arrow, HeldButton& held, CPoint point);
  bool arrowTick(const Arrow& arrow, CPoint screen);
  void drawArrow(const Arrow& arrow, bool pushed);
  bool scroll(BarHit code);
  void refreshView() { GetClientRect(&view_.client); }

  BarFolders folders_;
  BarView view_;
  ScreenMeasure measure_{*this, folders_};
  BarHover hover_;
  ItemJump jump_;
  Colours colours_;
  BarLibrary* library_ = nullptr;
  unsigned flags_ = 0xFFFF;
  bool upPressed_ = false;
  bool downPressed_ = false;
  int folderDelay_ = 10;
  int itemInterval_ = 0;
  int selectedItem_ = -1;
  int insertMark_ = -1;
  Hit context_{BarHit::Nothing, 0};  // under the last right click
  HCURSOR hand_;
  HCURSOR drag_;
  HCURSOR noDrop_;
};

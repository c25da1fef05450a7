// Control bars: tool bars and the strips at a frame's edges in which they are docked. A bar takes
// its place when its frame lays itself out; notifications that it doesn't handle go to its owner.
#pragma once

#include <vector>

#include "platform/framework_window.h"

// Styles of a bar: where it lies and which borders it draws.
constexpr DWORD CBRS_SIZE_FIXED = 0x0002;
constexpr DWORD CBRS_BORDER_3D = 0x0080;
constexpr DWORD CBRS_BORDER_LEFT = 0x0100;
constexpr DWORD CBRS_BORDER_TOP = 0x0200;
constexpr DWORD CBRS_BORDER_RIGHT = 0x0400;
constexpr DWORD CBRS_BORDER_BOTTOM = 0x0800;
constexpr DWORD CBRS_BORDER_ANY = 0x0F00;
constexpr DWORD CBRS_ALIGN_LEFT = 0x1000;
constexpr DWORD CBRS_ALIGN_TOP = 0x2000;
constexpr DWORD CBRS_ALIGN_RIGHT = 0x4000;
constexpr DWORD CBRS_ALIGN_BOTTOM = 0x8000;
constexpr DWORD CBRS_ALIGN_ANY = 0xF000;
constexpr DWORD CBRS_ALL = 0xFFFF;

class CDockBar;

class CControlBar : public CWnd {
  DECLARE_DYNAMIC(CControlBar)

 public:
  DWORD GetBarStyle() const { return m_dwStyle; }
  void SetBarStyle(DWORD style) { m_dwStyle = style; }
  void EnableDocking(DWORD sides) { m_dwDockStyle = sides; }  // CBRS_ALIGN_…: where it may lie
  DWORD DockSides() const { return m_dwDockStyle; }
  // The whole size that the bar wants, borders included.
  virtual CSize CalcFixedLayout(BOOL stretch, BOOL horizontal);
  // Brings the bar's items up to date at idle time.
  virtual void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) = 0;

  CDockBar* m_pDockBar = nullptr;  // the strip that holds the bar

 protected:
  CControlBar() = default;
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  BOOL PreCreateWindow(CREATESTRUCTW& create) override;
  // The part inside of borders and margins of a bar of that size.
  void CalcInsideRect(CRect& rect, bool horizontal) const;
  void OnLButtonDown(UINT flags, CPoint point);  // a bar doesn't float: the click ends here
  LRESULT OnSizeParent(WPARAM, LPARAM lParam);
  LRESULT OnIdleUpdateCmdUI(WPARAM disableIfNoHandler, LPARAM);
  DECLARE_MESSAGE_MAP()

  DWORD m_dwStyle = 0;
  DWORD m_dwDockStyle = 0;
  // Margins inside of the borders, pixels.
  int m_cxLeftBorder = 6;
  int m_cxRightBorder = 6;
  int m_cyTopBorder = 1;
  int m_cyBottomBorder = 1;
};

// The strip along one edge of a frame. Its bars lie side by side, each two pixels beyond the strip
// at every edge, so that neighbouring borders coincide.
class CDockBar : public CControlBar {
  DECLARE_DYNAMIC(CDockBar)

 public:
  CDockBar() = default;
  BOOL Create(CWnd* frame, DWORD style, UINT id);
  void DockControlBar(CControlBar* bar);  // becomes the bar's parent; the bar stays its maker's
  void RemoveControlBar(CControlBar* bar);
  CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
  void OnUpdateCmdUI(CFrameWnd*, BOOL) override {}

 protected:
  LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
  void OnDestroy();
  DECLARE_MESSAGE_MAP()

 private:
  void placeBars();
  std::vector<CControlBar*> m_bars;
};

// Styles of a tool button: the control's styles below, its states in the upper half.
constexpr UINT TBBS_BUTTON = TBSTYLE_BUTTON;
constexpr UINT TBBS_SEPARATOR = TBSTYLE_SEP;
constexpr UINT TBBS_CHECKBOX = TBSTYLE_CHECK;
constexpr UINT TBBS_CHECKED = static_cast<UINT>(TBSTATE_CHECKED) << 16;

class CToolBar : public CControlBar {
  DECLARE_DYNAMIC(CToolBar)

 public:
  CToolBar();
  ~CToolBar() override;
  BOOL Create(CWnd* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_ALIGN_TOP,
              UINT id = AFX_IDW_TOOLBAR);
  // A tool bar resource and the bitmap of the same id. False when either is missing or damaged.
  BOOL LoadToolBar(UINT id);
  void SetSizes(SIZE button, SIZE image);
  BOOL SetButtons(const UINT* ids, int count);  // id 0: a separator
  int CommandToIndex(UINT id) const;            // -1: none
  UINT GetItemID(int index) const;
  void GetItemRect(int index, RECT* rect) const;
  UINT GetButtonStyle(int index) const;
  void SetButtonStyle(int index, UINT style);
  // The image of a button, the width in pixels of a separator.
  void SetButtonInfo(int index, UINT id, UINT style, int image);
  int GetButtonCount() const;

  CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
  void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) override;

 protected:
  void OnNcCalcSize(BOOL valid, NCCALCSIZE_PARAMS* sizes);
  void OnNcPaint();
  LRESULT OnNcHitTest(CPoint point);
  DECLARE_MESSAGE_MAP()

 private:
  bool button(int index, TBBUTTON& result) const;
  void setButton(int index, const TBBUTTON& changed);
  int contentWidth() const;
  int builtInMargin() const;
  bool addBitmap(UINT id, int images);

  CSize m_sizeButton{23, 22};
  CSize m_sizeImage{16, 15};
  HBITMAP m_hbmImages = nullptr;  // owned
};

// Status bars: a row of panes along the lower edge of a frame. The first pane takes the room that
// the others leave.
#pragma once

#include <vector>

#include "platform/framework_control_bar.h"

constexpr UINT AFX_IDW_STATUS_BAR = 0xE801;

class CStatusBar : public CControlBar {
  DECLARE_DYNAMIC(CStatusBar)

 public:
  CStatusBar() = default;
  ~CStatusBar() override;
  BOOL Create(CWnd* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_ALIGN_BOTTOM,
              UINT id = AFX_IDW_STATUS_BAR);
  // One pane for each id. The clicks of a pane with an id other than 0 are commands of that id for
  // the bar's owner.
  BOOL SetIndicators(const UINT* ids, int count);
  // The width in pixels of all but the first pane.
  void SetPaneWidth(int index, int width);
  // Nothing is drawn when the text is the one that is shown already.
  BOOL SetPaneText(int index, const wchar_t* text);
  CString GetPaneText(int index) const;
  void GetItemRect(int index, RECT* rect) const;

  CSize CalcFixedLayout(BOOL stretch, BOOL horizontal) override;
  void OnUpdateCmdUI(CFrameWnd*, BOOL) override {}

 protected:
  void OnSize(UINT type, int width, int height);
  void OnLButtonDown(UINT flags, CPoint point);
  DECLARE_MESSAGE_MAP()

 private:
  struct Pane {
    UINT id = 0;
    int width = 100;
    CString text;
  };
  void placePanes();
  std::vector<Pane> m_panes;
};

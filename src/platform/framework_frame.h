// Frames: top-level windows with a client made through a context, docked bars and commands that go
// to the active view first. A frame deletes itself when its window is gone.
#pragma once

#include <array>
#include <memory>

#include "platform/framework_control_bar.h"
#include "platform/framework_window.h"

class CView;

// What a new frame is told about its client.
struct CCreateContext {
  CRuntimeClass* m_pNewViewClass = nullptr;  // the view that fills the frame, or null
};

class CFrameWnd : public CWnd {
  DECLARE_DYNCREATE(CFrameWnd)

 public:
  CFrameWnd() = default;

  static const RECT rectDefault;
  // A null class name gives the framework's frame class. A null parent makes a free window. False
  // on failure, and the object has then deleted itself.
  BOOL Create(const wchar_t* className, const wchar_t* title, DWORD style = WS_OVERLAPPEDWINDOW,
              const RECT& rect = rectDefault, CWnd* parent = nullptr, HMENU menu = nullptr,
              DWORD exStyle = 0, CCreateContext* context = nullptr);
  BOOL LoadAccelTable(UINT id);

  // --- bars ---
  void EnableDocking(DWORD sides);
  // Docks a bar that allows it at an edge of the frame; 0 means the bar's own side.
  void DockControlBar(CControlBar* bar, UINT dockBarId = 0);
  CControlBar* GetControlBar(UINT id) const;  // null when the frame has none of that id
  virtual void RecalcLayout(BOOL notify = TRUE);

  // --- views ---
  CView* GetActiveView() const { return m_pViewActive; }
  void SetActiveView(CView* view, BOOL notify = TRUE);
  void InitialUpdateFrame();  // tells all views below that they are complete

  BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;
  BOOL PreTranslateMessage(MSG* message) override;
  BOOL PreCreateWindow(CREATESTRUCTW& create) override;
  void PostNcDestroy() override;

 protected:
  // Makes what fills the frame. The base makes the context's view.
  virtual BOOL OnCreateClient(CREATESTRUCTW* create, CCreateContext* context);
  int OnCreate(CREATESTRUCTW* create);
  void OnDestroy();
  void OnSize(UINT type, int width, int height);
  void OnSetFocus(CWnd* old);
  void OnActivate(UINT state, CWnd* other, BOOL minimised);
  BOOL OnEraseBkgnd(CDC* dc);  // leaves out what children cover
  void OnInitMenuPopup(CMenu* menu, UINT index, BOOL system);
  LRESULT OnIdleUpdateCmdUI(WPARAM, LPARAM);
  DECLARE_MESSAGE_MAP()

 private:
  CView* m_pViewActive = nullptr;
  HACCEL m_hAccelTable = nullptr;
  bool m_bInRecalcLayout = false;
  std::array<std::unique_ptr<CDockBar>, 4> m_dockBars;  // top, left, right, bottom
};

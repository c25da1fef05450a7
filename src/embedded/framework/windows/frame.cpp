// Frames: making, commands, views, bars.
#include <algorithm>

#include "platform/framework_frame.h"
#include "platform/framework_menu.h"
#include "platform/framework_resources.h"
#include "platform/framework_view.h"

namespace {

// In the order of the frame's dock bars.
constexpr struct {
  DWORD side;
  UINT id;
} kDockBars[] = {{CBRS_ALIGN_TOP, AFX_IDW_DOCKBAR_TOP},
                 {CBRS_ALIGN_LEFT, AFX_IDW_DOCKBAR_LEFT},
                 {CBRS_ALIGN_RIGHT, AFX_IDW_DOCKBAR_RIGHT},
                 {CBRS_ALIGN_BOTTOM, AFX_IDW_DOCKBAR_BOTTOM}};

}  // namespace

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_WM_ACTIVATE()
ON_WM_ERASEBKGND()
ON_WM_INITMENUPOPUP()
ON_MESSAGE(WM_IDLEUPDATECMDUI, OnIdleUpdateCmdUI)
END_MESSAGE_MAP()

const RECT CFrameWnd::rectDefault = {CW_USEDEFAULT, CW_USEDEFAULT, 0, 0};

BOOL CFrameWnd::Create(const wchar_t* className, const wchar_t* title, DWORD style,
                       const RECT& rect, CWnd* parent, HMENU menu, DWORD exStyle,
                       CCreateContext* context) {
  const HWND owner = parent ? parent->m_hWnd : nullptr;
  if (rect.left == CW_USEDEFAULT) {  // the system's choice, which is no number to reckon with
    return CreateEx(exStyle, className, title, style, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                    CW_USEDEFAULT, owner, menu, context);
  }
  return CreateEx(exStyle, className, title, style, rect.left, rect.top, rect.right - rect.left,
                  rect.bottom - rect.top, owner, menu, context);
}

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCTW& create) {
  if (!create.lpszClass) {
    create.lpszClass =
        AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW, ::LoadCursorW(nullptr, IDC_ARROW),
                            ::GetSysColorBrush(COLOR_WINDOW));
  }
  return CWnd::PreCreateWindow(create);
}

int CFrameWnd::OnCreate(CREATESTRUCTW* create) {
  if (CWnd::OnCreate(create) == -1) return -1;
  if (!OnCreateClient(create, static_cast<CCreateContext*>(create->lpCreateParams))) return -1;
  RecalcLayout();
  return 0;
}

BOOL CFrameWnd::OnCreateClient(CREATESTRUCTW*, CCreateContext* context) {
  if (!context || !context->m_pNewViewClass) return TRUE;
  CObject* made = context->m_pNewViewClass->CreateObject();
  auto* view = dynamic_cast<CView*>(made);
  if (!view) {
    delete made;
    return FALSE;
  }
  return view->Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE | WS_BORDER, {0, 0, 0, 0}, this,
                      AFX_IDW_PANE_FIRST, context);
}

void CFrameWnd::OnDestroy() {
  m_pViewActive = nullptr;
  if (m_hAccelTable) ::DestroyAcceleratorTable(m_hAccelTable);
  m_hAccelTable = nullptr;
  Default();
}

void CFrameWnd::PostNcDestroy() { delete this; }

// --- commands ---

BOOL CFrameWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) {
  if (m_pViewActive && m_pViewActive->OnCmdMsg(id, code, extra, info)) return TRUE;
  return CWnd::OnCmdMsg(id, code, extra, info);
}

BOOL CFrameWnd::LoadAccelTable(UINT id) {
  const wchar_t* name = MAKEINTRESOURCEW(id);
  m_hAccelTable = ::LoadAcceleratorsW(AfxFindResourceHandle(name, RT_ACCELERATOR), name);
  return m_hAccelTable != nullptr;
}

BOOL CFrameWnd::PreTranslateMessage(MSG* message) {
  return m_hAccelTable && ::TranslateAcceleratorW(m_hWnd, m_hAccelTable, message);
}

void CFrameWnd::OnInitMenuPopup(CMenu* menu, UINT, BOOL system) {
  if (system || !menu) return;
  CCmdUI item;
  item.m_pMenu = menu;
  item.m_nIndexMax = menu->GetMenuItemCount();
  for (item.m_nIndex = 0; item.m_nIndex < item.m_nIndexMax; ++item.m_nIndex) {
    item.m_nID = menu->GetMenuItemID(static_cast<int>(item.m_nIndex));
    const bool isCommand = item.m_nID != 0 && item.m_nID != static_cast<UINT>(-1);
    if (isCommand) item.DoUpdate(this, item.m_nID < 0xF000);
  }
}

LRESULT CFrameWnd::OnIdleUpdateCmdUI(WPARAM, LPARAM) { return 0; }

// --- views ---

void CFrameWnd::SetActiveView(CView* view, BOOL notify) {
  CView* old = m_pViewActive;
  if (old == view) return;
  m_pViewActive = nullptr;  // commands on the way find no view
  if (old && notify) old->OnActivateView(FALSE, view, old);
  m_pViewActive = view;
  if (view && notify) view->OnActivateView(TRUE, view, old);
}

void CFrameWnd::InitialUpdateFrame() {
  SendMessageToDescendants(WM_INITIALUPDATE);
  RecalcLayout();
}

void CFrameWnd::OnSetFocus(CWnd*) {
  if (m_pViewActive) {
    m_pViewActive->SetFocus();
  } else {
    Default();
  }
}

void CFrameWnd::OnActivate(UINT state, CWnd*, BOOL minimised) {
  Default();
  if (state != WA_INACTIVE && !minimised && m_pViewActive) {
    m_pViewActive->OnActivateView(TRUE, m_pViewActive, m_pViewActive);
  }
}

// --- bars and lay-out ---

void CFrameWnd::EnableDocking(DWORD sides) {
  for (std::size_t i = 0; i < m_dockBars.size(); ++i) {
    if (!(sides & kDockBars[i].side) || m_dockBars[i]) continue;
    m_dockBars[i] = std::make_unique<CDockBar>();
    m_dockBars[i]->Create(this, kDockBars[i].side, kDockBars[i].id);
  }
}

void CFrameWnd::DockControlBar(CControlBar* bar, UINT dockBarId) {
  for (std::size_t i = 0; i < m_dockBars.size(); ++i) {
    const bool wanted =
        dockBarId ? kDockBars[i].id == dockBarId : (bar->GetBarStyle() & kDockBars[i].side) != 0;
    if (!wanted || !m_dockBars[i] || !(bar->DockSides() & kDockBars[i].side)) continue;
    m_dockBars[i]->DockControlBar(bar);
    RecalcLayout();
    return;
  }
}

CControlBar* CFrameWnd::GetControlBar(UINT id) const {
  const auto barOf = [id](HWND parent) {
    const HWND child = ::GetDlgItem(parent, static_cast<int>(id));
    return dynamic_cast<CControlBar*>(CWnd::FromHandlePermanent(child));
  };
  if (CControlBar* bar = barOf(m_hWnd)) return bar;
  for (const auto& dockBar : m_dockBars) {
    CControlBar* bar = dockBar ? barOf(dockBar->m_hWnd) : nullptr;
    if (bar) return bar;
  }
  return nullptr;
}

void CFrameWnd::RecalcLayout(BOOL) {
  if (m_bInRecalcLayout || IsIconic()) return;
  m_bInRecalcLayout = true;
  RepositionBars(0, 0xFFFF, AFX_IDW_PANE_FIRST);
  m_bInRecalcLayout = false;
}

void CFrameWnd::OnSize(UINT type, int, int) {
  Default();
  if (type != SIZE_MINIMIZED) RecalcLayout();
}

BOOL CFrameWnd::OnEraseBkgnd(CDC* dc) {
  for (HWND child = ::GetTopWindow(m_hWnd); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
    if (!::IsWindowVisible(child)) continue;
    CRect covered;
    ::GetWindowRect(child, covered);
    ScreenToClient(covered);
    dc->ExcludeClipRect(covered);
  }
  return static_cast<BOOL>(Default());
}

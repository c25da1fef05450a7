#include "library_window/windows/main_window.h"

#include <algorithm>
#include <cwchar>

#include "library_window/windows/slide_view.h"
#include "module/module_state.h"
#include "platform/framework_app.h"
#include "platform/framework_exceptions.h"
#include "platform/framework_resources.h"
#include "platform/framework_window_dc.h"
#include "resources/resource_ids.h"

namespace {

constexpr const wchar_t* kTitle = L"主回路库";
constexpr const wchar_t* kClassName = L"Zhlklibclass";
constexpr Grid kFreshGrid = {3, 6};
constexpr int kMostCells = 1000;  // in a direction; more than a screen has room for

bool registerWindowClass() {
  WNDCLASSW made{};
  made.style = CS_VREDRAW | CS_HREDRAW | CS_PARENTDC;
  made.lpfnWndProc = AfxGetAfxWndProc();
  made.hInstance = moduleInstance();
  made.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  made.hbrBackground = static_cast<HBRUSH>(::GetStockObject(LTGRAY_BRUSH));
  made.lpszClassName = kClassName;
  return AfxRegisterClass(&made) != FALSE;
}

RECT wholeScreen() {
  const int left = ::GetSystemMetrics(SM_XVIRTUALSCREEN);
  const int top = ::GetSystemMetrics(SM_YVIRTUALSCREEN);
  return {left, top, left + ::GetSystemMetrics(SM_CXVIRTUALSCREEN),
          top + ::GetSystemMetrics(SM_CYVIRTUALSCREEN)};
}

}  // namespace

IMPLEMENT_DYNAMIC(CZhlkMainWnd, CFrameWnd)

BEGIN_MESSAGE_MAP(CZhlkMainWnd, CFrameWnd)
ON_WM_CREATE()
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_WM_GETMINMAXINFO()
ON_COMMAND(ID_DRAW_MODE, OnDrawMode)
ON_COMMAND(ID_EDIT_MODE, OnEditMode)
ON_COMMAND(ID_PREVIOUS_PAGE, OnPrevPage)
ON_COMMAND(ID_NEXT_PAGE, OnNextPage)
ON_COMMAND(ID_AUXILIARY_BAR, OnToggleAuxBar)
END_MESSAGE_MAP()

CZhlkLibStore& storeOf(const CWnd& child) {
  return static_cast<CZhlkMainWnd*>(child.GetParentFrame())->store;
}

Grid usableGrid(CZhlkLibStore& store) {
  Grid grid = kFreshGrid;
  try {
    store.GetGridSize(grid.rows, grid.columns);
  } catch (CException* exception) {
    exception->Delete();
    return kFreshGrid;
  }
  return {std::clamp(grid.rows, 1, kMostCells), std::clamp(grid.columns, 1, kMostCells)};
}

// --- making ---

CZhlkMainWnd::CZhlkMainWnd() {
  if (createWindow()) createFont();
  m_constructing = false;
}

// Without a bar there is no icon state to store.
CZhlkMainWnd::~CZhlkMainWnd() {
  if (m_clientReady) m_auxiliary.close();
}

bool CZhlkMainWnd::createWindow() {
  if (!registerWindowClass()) {
    MessageBox(L"Error registering toolbox class", L"错误提示", 0);
    return false;
  }
  const RECT stored =
      storedWindow(store.GetViewX(), store.GetViewY(), store.GetViewWidth(), store.GetViewHeight());
  m_restoreRect = reachableWindow(stored, wholeScreen());
  // No class name is meant: the frame takes the framework's class, and the registered one stays
  // without a window.
  Create(nullptr, kTitle, WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX, m_restoreRect,
         CWnd::FromHandle(hostWindow()));
  return true;
}

void CZhlkMainWnd::createFont() {
  LOGFONTW font{};
  const HGDIOBJ usual = ::GetStockObject(DEFAULT_GUI_FONT);
  ::GetObjectW(usual ? usual : ::GetStockObject(SYSTEM_FONT), sizeof font, &font);
  if (!usual) {
    font.lfWeight = FW_NORMAL;
    std::wcscpy(font.lfFaceName, L"MS Sans Serif");
  }
  font.lfHeight = 13;
  font.lfWidth = 0;
  m_font.CreateFontIndirect(&font);
}

int CZhlkMainWnd::OnCreate(CREATESTRUCTW* create) {
  if (CFrameWnd::OnCreate(create) == -1) return -1;
  constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | CBRS_ALIGN_BOTTOM | CBRS_BORDER_TOP |
                           CBRS_BORDER_3D | CBRS_SIZE_FIXED;
  m_toolBar.Create(this, kStyle);
  m_toolBar.LoadToolBar(IDR_TOOL_BAR);
  m_toolBar.EnableDocking(CBRS_ALIGN_BOTTOM);
  EnableDocking(CBRS_ALIGN_BOTTOM);
  DockControlBar(&m_toolBar, AFX_IDW_DOCKBAR_BOTTOM);
  if (m_toolBar.CreateControls()) {
    m_toolBar.SelectGridItem(shownGridItem(usableGrid(store).rows));
    m_toolBar.Update(store);
  } else {
    AfxMessageBox(L"Create My Combo ToolBar Failure");
  }
  return 0;
}

BOOL CZhlkMainWnd::OnCreateClient(CREATESTRUCTW*, CCreateContext* context) {
  const PaneSizes sizes = calcPaneSizes();
  if (!m_splitter.CreateSplit(this, 1, 2)) return FALSE;
  if (!m_splitter.CreateView(0, 0, RUNTIME_CLASS(CSlbView), sizes.grid, context)) return FALSE;
  m_view = static_cast<CSlbView*>(m_splitter.GetPane(0, 0));
  m_bar.Create(WS_CHILD | WS_VISIBLE, {0, 0, 0, 0}, &m_splitter,
               static_cast<UINT>(m_splitter.IdFromRowCol(0, 1)), kLibraryBarFlags);
  m_bar.SetOwner(this);
  m_bar.setLibrary(&m_barLibrary);
  m_auxiliary.fillBar();
  m_splitter.SetColumnInfo(0, sizes.grid.cx, 0);
  m_splitter.SetColumnInfo(1, sizes.bar.cx, 0);
  RecalcLayout();
  m_clientReady = true;
  return TRUE;
}

// --- lay-out ---

PaneSizes CZhlkMainWnd::calcPaneSizes() {
  CRect client;
  GetClientRect(client);
  return CalcPaneSizes({client.Width(), client.Height()}, store.GetAuxFlag() != 0);
}

void CZhlkMainWnd::applyPaneSizes() {
  const PaneSizes sizes = calcPaneSizes();
  m_splitter.SetColumnWidths(sizes.grid.cx, sizes.bar.cx);
}

// Painting, not sizing, is what puts the strip and the panes into their places.
void CZhlkMainWnd::OnPaint() {
  { CPaintDC dc(this); }
  if (!m_toolBar.m_hWnd) return;
  m_toolBar.SetControlFont(&m_font);
  CRect dockBar;
  m_toolBar.GetParent()->GetClientRect(dockBar);
  const RECT strip = toolBarStrip(dockBar);
  m_toolBar.MoveWindow(&strip);
  if (m_clientReady) applyPaneSizes();
}

void CZhlkMainWnd::OnGetMinMaxInfo(MINMAXINFO* info) {
  CRect window;
  GetWindowRect(window);
  CRect client;
  GetClientRect(client);
  const SIZE least = leastWindowSize(window, client);
  info->ptMinTrackSize = {least.cx, least.cy};
  Default();
}

LRESULT CZhlkMainWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SYSCOMMAND && wParam == SC_MINIMIZE) {
    GetWindowRect(&m_restoreRect);
  } else if (message == WM_SYSCOMMAND && wParam == SC_RESTORE) {
    ShowWindow(SW_RESTORE);
    MoveWindow(&m_restoreRect);
    return 0;
  }
  return CFrameWnd::DefWindowProc(message, wParam, lParam);
}

// --- commands ---

BOOL CZhlkMainWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) {
  if (code == CBN_SELCHANGE && id == ID_GRID) chooseGrid();
  return CFrameWnd::OnCmdMsg(id, code, extra, info);
}

// The page follows the selected slot.
void CZhlkMainWnd::chooseGrid() {
  const int item = m_toolBar.GridItem();
  if (item == comparedGridItem(usableGrid(store).rows)) return;
  const Grid grid = gridOfItem(item);
  store.SetGridSize(grid.rows, grid.columns);
  store.SetPage(pageOfSlot(store.GetSelection(), grid.rows, grid.columns));
  showPage();
}

void CZhlkMainWnd::turnPage(int by) {
  store.SetPage(pageAfter(store.GetPage(), by));
  showPage();
}

void CZhlkMainWnd::showPage() {
  m_view->Invalidate();
  m_view->UpdateWindow();
  m_toolBar.Update(store);
}

// The grid keeps its width: the window grows or shrinks at its right.
void CZhlkMainWnd::OnToggleAuxBar() {
  CRect window;
  GetWindowRect(window);
  const bool hide = store.GetAuxFlag() == 0;
  store.SetAuxFlag(hide ? 1 : 0);
  const RECT changed = withBarToggled(window, hide);
  MoveWindow(&changed);
  applyPaneSizes();
}

// --- end ---

void CZhlkMainWnd::OnClose() {
  ShowWindow(SW_HIDE);
  ::SetActiveWindow(hostWindow());
}

// The rectangle is the window's own at this moment, also that of an icon.
void CZhlkMainWnd::OnDestroy() {
  CRect window;
  GetWindowRect(window);
  store.SetViewX(window.left);
  store.SetViewY(window.top);
  store.SetViewWidth(window.Width());
  store.SetViewHeight(window.Height());
  CFrameWnd::OnDestroy();
}

void CZhlkMainWnd::PostNcDestroy() {
  if (m_constructing) return;  // the constructor still works on the object
  if (libraryWindow() == &m_door) setLibraryWindow(nullptr);
  CFrameWnd::PostNcDestroy();
}

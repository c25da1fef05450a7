#include "programs/desktop/windows/main_frame.h"

#include <shellapi.h>

#include "embedded/base/text.h"
#include "platform/framework_app.h"
#include "platform/framework_messages.h"
#include "platform/framework_resources.h"
#include "platform/framework_window_dc.h"
#include "programs/desktop/boxes.h"
#include "programs/desktop/command_ids.h"
#include "programs/desktop/menus.h"
#include "programs/desktop/settings_text.h"
#include "programs/desktop/windows/dialogs.h"

namespace {

std::wstring wide(std::string_view utf8) { return base::wideFromUtf8(utf8); }

constexpr UINT kRaiseOwned = WM_APP;  // to itself, once it has become active

// The panes of the status bar and what a click on each is.
enum Pane { kMessagePane, kPointPane, kLayerPane, kColourPane, kSnapPane, kOrthoPane, kScalePane };
constexpr UINT kLayerClick = CMD_LAST + 1, kColourClick = CMD_LAST + 2;
constexpr UINT kPanes[] = {0, 0, kLayerClick, kColourClick, CMD_SNAPS, CMD_ORTHO, CMD_PRINT_SCALE};
constexpr int kPaneWidths[] = {0, 190, 150, 90, 60, 60, 90};  // at 96 pixels an inch

}  // namespace

BEGIN_MESSAGE_MAP(MainFrame, CFrameWnd)
ON_WM_CREATE()
ON_WM_CLOSE()
ON_WM_SETFOCUS()
ON_WM_ACTIVATE()
ON_WM_MOUSEACTIVATE()
ON_MESSAGE(kRaiseOwned, OnRaiseOwned)
ON_WM_DESTROY()
ON_WM_INITMENUPOPUP()
ON_MESSAGE(WM_DROPFILES, OnDropFiles)
ON_UPDATE_COMMAND_UI(CMD_UNDO, OnUpdateUndo)
ON_UPDATE_COMMAND_UI(CMD_REDO, OnUpdateRedo)
ON_UPDATE_COMMAND_UI(CMD_SNAPS, OnUpdateSnaps)
ON_UPDATE_COMMAND_UI(CMD_ORTHO, OnUpdateOrtho)
ON_UPDATE_COMMAND_UI(CMD_TEXT_WINDOW, OnUpdateTextWindow)
ON_UPDATE_COMMAND_UI_RANGE(CMD_PLACE, CMD_HIDE_LIBRARY, OnUpdateLibrary)
ON_COMMAND_RANGE(CMD_NEW, CMD_LAST, OnEntry)
ON_COMMAND_RANGE(CMD_FIRST_RECENT, CMD_LAST_RECENT, OnRecent)
ON_COMMAND(kLayerClick, OnLayerPane)
ON_COMMAND(kColourClick, OnColourPane)
END_MESSAGE_MAP()

MainFrame::MainFrame(desktop::Desktop& desktop) : desktop_(desktop), command_(desktop) {}

// --- making

bool MainFrame::CreateMain() {
  const HICON icon = ::LoadIconW(AfxGetInstanceHandle(), MAKEINTRESOURCEW(IDR_DESKTOP_ICON));
  const wchar_t* frameClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorW(nullptr, IDC_ARROW),
                                                  ::GetSysColorBrush(COLOR_BTNFACE), icon);
  if (!Create(frameClass, std::wstring(desktop::kProgramTitle).c_str())) return false;
  AfxSetMainWnd(this);
  LoadAccelTable(IDR_DESKTOP_BAR);
  ::DragAcceptFiles(m_hWnd, TRUE);
  return true;
}

BOOL MainFrame::OnCreateClient(CREATESTRUCTW*, CCreateContext*) {
  view_ = new DrawingView(desktop_);
  return view_->Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, {0, 0, 0, 0},
                       this, AFX_IDW_PANE_FIRST);
}

int MainFrame::OnCreate(CREATESTRUCTW* create) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
  font_.CreateFontIndirect(&metrics.lfMessageFont);
  if (CFrameWnd::OnCreate(create) == -1) return -1;
  CreateMenus();
  if (!CreateBars()) return -1;
  RecalcLayout();
  return 0;
}

// Those made first lie further out.
bool MainFrame::CreateBars() {
  if (!bar_.Create(this) || !bar_.LoadToolBar(IDR_DESKTOP_BAR)) return false;
  bar_.SetBarStyle(bar_.GetBarStyle() | CBRS_BORDER_BOTTOM);
  const HWND tips = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, TTS_ALWAYSTIP, 0, 0,
                                      0, 0, m_hWnd, nullptr, AfxGetInstanceHandle(), nullptr);
  bar_.SendMessage(TB_SETTOOLTIPS, reinterpret_cast<WPARAM>(tips));
  if (!status_.Create(this)) return false;
  status_.SetFont(&font_);
  const int count = static_cast<int>(std::size(kPanes));
  status_.SetIndicators(kPanes, count);
  CClientDC dc(this);
  const int dots = dc.GetDeviceCaps(LOGPIXELSX);
  for (int i = 1; i < count; ++i) {
    status_.SetPaneWidth(i, ::MulDiv(kPaneWidths[i], dots, USER_DEFAULT_SCREEN_DPI));
  }
  return command_.Create(this, &font_) != FALSE;
}

void MainFrame::CreateMenus() {
  const drafting::Session& session = desktop_.session;
  menu_.CreateMenu();
  for (const desktop::Menu& menu : desktop::menus()) {
    const HMENU popup = ::CreatePopupMenu();
    for (const desktop::MenuEntry& entry : menu.entries) {
      if (entry.id == 0) {
        ::AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
        continue;
      }
      std::string text(session.say(entry.chinese, entry.english));
      if (!entry.keys.empty()) text += "\t" + std::string(entry.keys);
      ::AppendMenuW(popup, MF_STRING, static_cast<UINT_PTR>(entry.id), wide(text).c_str());
    }
    menu_.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(popup),
                     wide(session.say(menu.chinese, menu.english)).c_str());
  }
  ::SetMenu(m_hWnd, menu_);
}

void MainFrame::OnDestroy() {
  ::SetMenu(m_hWnd, nullptr);  // the menu is the object's
  desktop_.session.mainWindow = nullptr;
  AfxSetMainWnd(nullptr);
  CFrameWnd::OnDestroy();
}

// --- waiting

bool MainFrame::WaitForInput() {
  if (desktop_.settle()) return true;
  ShowState();
  MSG next{};
  if (!::PeekMessageW(&next, nullptr, 0, 0, PM_NOREMOVE)) AfxOnIdle();
  return AfxPumpMessage();
}

void MainFrame::ShowState() {
  view_->Refresh();
  command_.Refresh();
  ShowStatus();
  const std::wstring title = wide(desktop_.title());
  if (title == shownTitle_) return;
  shownTitle_ = title;
  SetWindowText(title.c_str());
}

void MainFrame::ShowStatus() {
  const drafting::Session& session = desktop_.session;
  const auto show = [this](int pane, std::string_view text) {
    status_.SetPaneText(pane, wide(text).c_str());
  };
  if (const auto at = desktop_.pointer.at()) {
    show(kPointPane, desktop::coordinatesText(desktop_.screen.drawingPoint(*at)));
  }
  show(kLayerPane, std::string(session.say("图层 ", "Layer ")) + desktop::layerText(session));
  show(kColourPane, desktop::colourText(session));
  show(kSnapPane, desktop::snapsOn(session) ? session.say("捕捉", "SNAP") : "");
  show(kOrthoPane, desktop::orthoOn(session) ? session.say("正交", "ORTHO") : "");
  show(kScalePane, std::string(session.say("比例 ", "Scale ")) + desktop::scaleText(session));
}

// --- keys

// Other boxes in which one types keep their keys, and so do dialogs.
bool MainFrame::TakesKeysFrom(HWND window) const {
  if (!::IsWindowEnabled(m_hWnd)) return false;
  if (command_.OwnsInput(window)) return true;
  wchar_t name[16] = L"";
  for (HWND above = window; above && above != m_hWnd; above = ::GetParent(above)) {
    ::GetClassNameW(above, name, 16);
    const std::wstring_view kind = name;
    if (kind == L"Edit" || kind == L"ComboBox" || kind == L"#32770") return false;
  }
  return true;
}

bool MainFrame::TakeKey(UINT virtualKey) {
  if (virtualKey == VK_ESCAPE) {
    command_.Clear();
    desktop_.escape();
    return true;
  }
  if (virtualKey == VK_DELETE && command_.IsEmpty()) {
    desktop_.eraseSelected();
    return true;
  }
  return command_.TakeKey(virtualKey);
}

bool MainFrame::TakeCharacter(HWND window, wchar_t character) {
  if (character == L' ') return command_.TakeBlank();
  if (character < L' ' || command_.OwnsInput(window)) return false;
  command_.Type(character);
  return true;
}

BOOL MainFrame::PreTranslateMessage(MSG* message) {
  if (message->message < WM_KEYFIRST || message->message > WM_KEYLAST) return FALSE;
  if (!TakesKeysFrom(message->hwnd)) return FALSE;
  const bool control = ::GetKeyState(VK_CONTROL) < 0;
  if (message->message == WM_KEYDOWN && !control && TakeKey(static_cast<UINT>(message->wParam))) {
    return TRUE;
  }
  if (message->message == WM_CHAR &&
      TakeCharacter(message->hwnd, static_cast<wchar_t>(message->wParam))) {
    return TRUE;
  }
  return CFrameWnd::PreTranslateMessage(message);
}

// --- the windows above it

// Some screens without a window manager let the active window cover those that it owns, whether a
// click makes it active or a key that is typed above them.
void MainFrame::OnActivate(UINT state, CWnd* other, BOOL minimised) {
  CFrameWnd::OnActivate(state, other, minimised);
  if (state != WA_INACTIVE) PostMessage(kRaiseOwned);
}

int MainFrame::OnMouseActivate(CWnd* top, UINT hit, UINT message) {
  PostMessage(kRaiseOwned);
  return CFrameWnd::OnMouseActivate(top, hit, message);
}

LRESULT MainFrame::OnRaiseOwned(WPARAM, LPARAM) {
  ::EnumThreadWindows(
      ::GetCurrentThreadId(),
      [](HWND window, LPARAM owner) -> BOOL {
        const bool owned = ::GetWindow(window, GW_OWNER) == reinterpret_cast<HWND>(owner);
        if (owned && ::IsWindowVisible(window)) {
          ::SetWindowPos(window, HWND_TOP, 0, 0, 0, 0,
                         SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOSIZE | SWP_NOOWNERZORDER);
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(m_hWnd));
  return 0;
}

// --- commands

void MainFrame::OnClose() { desktop_.close(); }

void MainFrame::OnEntry(UINT id) {
  drafting::Session& session = desktop_.session;
  switch (id) {
    case CMD_SNAPS: desktop::toggleSnaps(session); return;
    case CMD_ORTHO: desktop::toggleOrtho(session); return;
    case CMD_PRINT_SCALE: ScaleDialog(session).DoModal(); return;
    case CMD_SELECT_ALL: desktop_.selectAll(); return;
    case CMD_TEXT_WINDOW: command_.ToggleHeight(); return;
    case CMD_ABOUT: About(); return;
    default: desktop_.run(static_cast<int>(id));
  }
}

void MainFrame::About() {
  const std::string text(desktop_.session.say(
      "Vornikplan10\n\n低压配电主回路图的绘制与主回路库。",
      "Vornikplan10\n\nMain-circuit diagrams of low-voltage boards, and their circuit library."));
  showMessageBox({m_hWnd, wide(text), std::wstring(desktop::kProgramTitle), MB_ICONINFORMATION});
}

void MainFrame::OnRecent(UINT id) {
  const std::vector<std::string>& paths = desktop_.recent.paths();
  const std::size_t index = id - CMD_FIRST_RECENT;
  if (index >= paths.size()) return;
  const std::string path = paths[index];
  desktop_.open(path);
}

LRESULT MainFrame::OnDropFiles(WPARAM wParam, LPARAM) {
  const auto drop = reinterpret_cast<HDROP>(wParam);
  wchar_t path[MAX_PATH * 4] = L"";
  const UINT length = ::DragQueryFileW(drop, 0, path, static_cast<UINT>(std::size(path)));
  ::DragFinish(drop);
  if (length != 0 && ::IsWindowEnabled(m_hWnd)) desktop_.open(base::utf8FromWide(path));
  return 0;
}

void MainFrame::OnInitMenuPopup(CMenu* menu, UINT index, BOOL system) {
  if (!system && index == 0 && menu && menu->GetMenuItemID(0) == CMD_NEW) FillRecent(*menu);
  CFrameWnd::OnInitMenuPopup(menu, index, system);
}

// The recent files stand between the entries of the files and the end of the program.
void MainFrame::FillRecent(CMenu& menu) {
  for (UINT id = CMD_FIRST_RECENT; id <= CMD_LAST_RECENT; ++id) {
    ::DeleteMenu(menu, id, MF_BYCOMMAND);
  }
  if (const base::Status status = desktop_.recent.load(); !status) {
    desktop_.session.printProblem(status);
  }
  UINT id = CMD_FIRST_RECENT;
  UINT place = desktop::kEntriesBeforeRecent;
  for (const std::string& path : desktop_.recent.paths()) {
    std::wstring text = L"&" + std::to_wstring(id - CMD_FIRST_RECENT + 1) + L" ";
    for (const wchar_t c : wide(path)) text.append(c == L'&' ? 2 : 1, c);
    ::InsertMenuW(menu, place++, MF_BYPOSITION | MF_STRING, id++, text.c_str());
  }
}

// --- what entries and panes show

void MainFrame::OnUpdateUndo(CCmdUI* item) {
  item->Enable(desktop_.session.database().journal().undoSteps() != 0);
}
void MainFrame::OnUpdateRedo(CCmdUI* item) {
  item->Enable(desktop_.session.database().journal().redoSteps() != 0);
}
void MainFrame::OnUpdateSnaps(CCmdUI* item) { item->SetCheck(desktop::snapsOn(desktop_.session)); }
void MainFrame::OnUpdateOrtho(CCmdUI* item) { item->SetCheck(desktop::orthoOn(desktop_.session)); }
void MainFrame::OnUpdateTextWindow(CCmdUI* item) { item->SetCheck(command_.IsTall()); }
void MainFrame::OnUpdateLibrary(CCmdUI* item) {
  item->Enable(!desktop_.session.modules.names().empty());
}

// The tips of the tool bar's buttons are the menus' texts.
BOOL MainFrame::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
  auto* header = reinterpret_cast<NMHDR*>(lParam);
  if (header->code != TTN_GETDISPINFOW) return CFrameWnd::OnNotify(wParam, lParam, result);
  auto* tip = reinterpret_cast<NMTTDISPINFOW*>(lParam);
  const auto* entry = desktop::findEntry(static_cast<int>(header->idFrom));
  if (!entry) return FALSE;
  std::wstring text;
  for (const wchar_t c : wide(desktop_.session.say(entry->chinese, entry->english))) {
    if (c == L'(') break;  // of the key
    if (c != L'&' && c != L'.') text += c;
  }
  text.copy(tip->szText, std::size(tip->szText) - 1);
  tip->szText[std::min(text.size(), std::size(tip->szText) - 1)] = 0;
  *result = 0;
  return TRUE;
}

// The index of the text that was chosen from a menu above the pane, or -1.
int MainFrame::ChooseFrom(const std::vector<std::string>& texts, const std::string& current,
                          int pane) {
  CMenu menu;
  menu.CreatePopupMenu();
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const UINT checked = texts[i] == current ? MF_CHECKED : MF_UNCHECKED;
    menu.AppendMenu(MF_STRING | checked, i + 1, wide(texts[i]).c_str());
  }
  CRect place;
  status_.GetItemRect(pane, place);
  status_.ClientToScreen(place);
  const int chosen = ::TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_BOTTOMALIGN,
                                      place.left, place.top, 0, m_hWnd, nullptr);
  return chosen - 1;
}

void MainFrame::OnLayerPane() {
  drafting::Session& session = desktop_.session;
  const std::vector<std::string> layers = desktop::layerNames(session);
  const int chosen = ChooseFrom(layers, desktop::layerText(session), kLayerPane);
  if (chosen < 0) return;
  const auto status = session.variables.set("CLAYER", layers[static_cast<std::size_t>(chosen)]);
  if (!status) session.printProblem(status);
}

void MainFrame::OnColourPane() {
  drafting::Session& session = desktop_.session;
  std::vector<std::string> colours = {"BYLAYER", "BYBLOCK"};
  for (int colour = 1; colour <= 9; ++colour) colours.push_back(drafting::colourName(colour));
  const int chosen = ChooseFrom(colours, desktop::colourText(session), kColourPane);
  if (chosen < 0) return;
  const auto status = session.variables.set("CECOLOR", colours[static_cast<std::size_t>(chosen)]);
  if (!status) session.printProblem(status);
}

#include "programs/desktop/windows/command_window.h"

#include <algorithm>

#include "embedded/base/text.h"
#include "platform/framework_frame.h"
#include "platform/framework_window_dc.h"

BEGIN_MESSAGE_MAP(CommandWindow, CControlBar)
ON_WM_SIZE()
END_MESSAGE_MAP()

namespace {

constexpr UINT kHistory = 1, kPrompt = 2, kInput = 3;
constexpr int kShortRows = 4, kGap = 3;
constexpr int kMostHistory = 200'000;  // characters

}  // namespace

CommandWindow::~CommandWindow() { DestroyWindow(); }

BOOL CommandWindow::Create(CWnd* frame, CFont* font) {
  m_dwStyle = CBRS_ALIGN_BOTTOM;
  if (!CWnd::Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, {0, 0, 0, 0}, frame,
                    AFX_IDW_TOOLBAR + 8)) {
    return FALSE;
  }
  SetOwner(frame);
  constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;
  const bool made =
      history_.Create(kChild | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                      {0, 0, 0, 0}, this, kHistory) &&
      prompt_.Create(L"", kChild | SS_NOPREFIX | SS_LEFTNOWORDWRAP, {0, 0, 0, 0}, this, kPrompt) &&
      input_.Create(kChild | ES_AUTOHSCROLL, {0, 0, 0, 0}, this, kInput);
  if (!made) return FALSE;
  for (CWnd* child :
       {static_cast<CWnd*>(&history_), static_cast<CWnd*>(&prompt_), static_cast<CWnd*>(&input_)}) {
    child->SetFont(font);
  }
  history_.LimitText(0);  // as much as there may be
  CClientDC dc(this);
  const int saved = dc.SaveDC();
  dc.SelectObject(font);
  TEXTMETRICW metrics{};
  dc.GetTextMetrics(&metrics);
  dc.RestoreDC(saved);
  row_ = metrics.tmHeight;
  return TRUE;
}

// --- lay-out

CSize CommandWindow::CalcFixedLayout(BOOL stretch, BOOL horizontal) {
  CSize size = CControlBar::CalcFixedLayout(stretch, horizontal);
  size.cy = (kShortRows + 1) * row_ + 3 * kGap;
  if (tall_) {
    CRect frame;
    ::GetClientRect(::GetParent(m_hWnd), frame);
    size.cy = std::max<LONG>(size.cy, frame.Height() / 2);
  }
  return size;
}

void CommandWindow::ToggleHeight() {
  tall_ = !tall_;
  GetParentFrame()->RecalcLayout();
}

void CommandWindow::OnSize(UINT, int, int) { PlaceChildren(); }

int CommandWindow::TextWidth(const std::wstring& text) const {
  const HDC dc = ::GetDC(m_hWnd);
  const HGDIOBJ old = ::SelectObject(dc, reinterpret_cast<HFONT>(prompt_.SendMessage(WM_GETFONT)));
  SIZE size{};
  ::GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
  ::SelectObject(dc, old);
  ::ReleaseDC(m_hWnd, dc);
  return size.cx;
}

// The prompt takes what it needs of the last row; the box at least a quarter.
void CommandWindow::PlaceChildren() {
  CRect area;
  GetClientRect(area);
  const int top = area.bottom - row_ - kGap;
  const int prompt = std::min<int>(TextWidth(shownPrompt_) + kGap, area.right * 3 / 4);
  history_.MoveWindow(0, kGap, area.right, std::max(top - 2 * kGap, 0));
  prompt_.MoveWindow(kGap, top, prompt, row_);
  input_.MoveWindow(kGap + prompt, top, std::max<int>(area.right - prompt - kGap, 0), row_);
}

// --- what is shown

void CommandWindow::Refresh() {
  const std::string lines = desktop_.transcript.takeLines();
  if (!lines.empty()) AppendHistory(lines);
  const std::wstring prompt = base::wideFromUtf8(desktop_.transcript.current());
  if (prompt == shownPrompt_) return;
  shownPrompt_ = prompt;
  prompt_.SetWindowText(prompt.c_str());
  PlaceChildren();
}

void CommandWindow::AppendHistory(const std::string& lines) {
  std::wstring text;
  for (const wchar_t c : base::wideFromUtf8(lines))
    text += c == L'\n' ? L"\r\n" : std::wstring(1, c);
  const int length = ::GetWindowTextLengthW(history_.m_hWnd);
  if (length > kMostHistory) {
    history_.SetSel(0, length / 2);
    history_.SendMessage(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
  }
  const int end = ::GetWindowTextLengthW(history_.m_hWnd);
  history_.SetSel(end, end);
  history_.SendMessage(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
}

// --- input

std::string CommandWindow::Typed() const {
  CString text;
  input_.GetWindowText(text);
  return base::utf8FromWide(text.wide());
}

void CommandWindow::Show(const std::string& text) {
  const std::wstring wide = base::wideFromUtf8(text);
  input_.SetWindowText(wide.c_str());
  const int end = static_cast<int>(wide.size());
  input_.SetSel(end, end);
}

void CommandWindow::Submit() {
  const std::string typed = Typed();
  Clear();
  completedFrom_.clear();
  desktop_.submit(typed);
}

bool CommandWindow::TakeBlank() {
  if (!desktop::blankEnds(Typed(), desktop_.session.line.waitingPrompt())) return false;
  Submit();
  return true;
}

bool CommandWindow::TakeKey(UINT virtualKey) {
  const std::string* former = nullptr;
  switch (virtualKey) {
    case VK_RETURN: Submit(); return true;
    case VK_TAB: Complete(); return true;
    case VK_UP: former = desktop_.history.older(Typed()); break;
    case VK_DOWN: former = desktop_.history.newer(); break;
    default: completedFrom_.clear(); return false;
  }
  if (former) Show(*former);
  return true;
}

void CommandWindow::Complete() {
  const std::string typed = Typed();
  if (completedFrom_.empty()) completedFrom_ = typed;
  if (completedFrom_.empty()) return;
  const std::string found =
      desktop::complete(desktop_.session.commands.names(), completedFrom_, typed);
  if (!found.empty()) Show(found);
}

void CommandWindow::Type(wchar_t character) {
  FocusInput();
  const int end = ::GetWindowTextLengthW(input_.m_hWnd);
  input_.SetSel(end, end);
  input_.SendMessage(WM_CHAR, character);
}

#include "editor/windows/circuit_dialog.h"

#include "platform/acad_documents.h"
#include "platform/common_funcs.h"
#include "platform/framework_app.h"
#include "platform/framework_exceptions.h"
#include "platform/framework_menu.h"
#include "platform/framework_window_dc.h"
#include "resources/resource_ids.h"
#include "store/library_store.h"

namespace {

constexpr DWORD kViewStyle = WS_CHILD | WS_VISIBLE | WS_BORDER;
static_assert(kViewStyle == 0x50800000);
constexpr UINT kGreyedSystemItem = 4;  // by position

std::wstring symbolFolder() {
  wchar_t folder[kInformationLimit] = L"";
  GetInformation(L"Dwglib", L"DwgDir", L"C:\\Zem40\\DwgLib2D", folder, 1);
  return folder;
}

}  // namespace

BEGIN_MESSAGE_MAP(CZHlkhlbjDlg, CDialog)
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
ON_COMMAND(IDC_PICKER_PREVIOUS_PAGE, OnPreviousPage)
ON_COMMAND(IDC_PICKER_NEXT_PAGE, OnNextPage)
ON_COMMAND(IDC_PICKER_REFRESH, OnRefresh)
END_MESSAGE_MAP()

CZHlkhlbjDlg::CZHlkhlbjDlg(CWnd* parent) : CDialog(IDD_CIRCUIT, parent), picker_(symbolFolder()) {}

void CZHlkhlbjDlg::DoDataExchange(CDataExchange* exchange) {
  CDialog::DoDataExchange(exchange);
  DDX_Control(exchange, IDC_CIRCUIT_FRAME, frame_);
  DDX_Control(exchange, IDC_PICKER_REFRESH, refresh_);
  DDX_Control(exchange, IDC_PICKER_NEXT_PAGE, next_);
  DDX_Control(exchange, IDC_PICKER_PREVIOUS_PAGE, previous_);
}

BOOL CZHlkhlbjDlg::OnInitDialog() {
  const CWaitCursor wait;
  CDialog::OnInitDialog();
  if (CMenu* menu = GetSystemMenu(FALSE)) {
    menu->EnableMenuItem(kGreyedSystemItem, MF_BYPOSITION | MF_GRAYED);
  }
  area_ = clientRectOf(IDC_PICKER_GRID);
  loadPicker();
  if (name.IsEmpty()) nameFreeSlot();
  SetWindowText(name);
  record.frame = clientRectOf(IDC_CIRCUIT_FRAME);
  record.Load(row, name);
  openView();
  UpdateData(FALSE);
  return TRUE;
}

// Without symbols the picker's start ends in an exception; it is told, and the circuit can be
// edited all the same.
void CZHlkhlbjDlg::loadPicker() {
  try {
    tell(picker_.load(position_.page(), position_.selection()));
  } catch (CInvalidArgException* exception) {
    tell(exception->Message());
    exception->Delete();
  }
}

void CZHlkhlbjDlg::nameFreeSlot() {
  name = CZhlkLibStore::CircuitName(slot);
  record.number = CZhlkLibStore::NumberText(slot);
}

void CZHlkhlbjDlg::openView() {
  view_.SetScrollSizes(MM_TEXT, {0, 0});
  view_.Create(nullptr, nullptr, kViewStyle, record.frame, this, AFX_IDW_PANE_FIRST);
}

CRect CZHlkhlbjDlg::clientRectOf(int id) const {
  CRect rect;
  GetDlgItem(id)->GetWindowRect(rect);
  ScreenToClient(rect);
  return rect;
}

void CZHlkhlbjDlg::tell(const std::wstring& message) {
  if (!message.empty()) MessageBox(message.c_str(), kPickerCaption);
}

// --- the picker ---

void CZHlkhlbjDlg::OnPaint() {
  CPaintDC dc(this);
  // The grid's own control paints the black that the slides stand on.
  GetDlgItem(IDC_PICKER_GRID)->UpdateWindow();
  drawPicker(dc);
  enablePageButtons();
  if (picker_.isMarkShown()) mark(dc, picker_.selection());
}

void CZHlkhlbjDlg::drawPicker(CDC& dc) {
  graph_.dc = &dc;
  graph_.DrawGrid(area_, picker_.side(), picker_.side(), area_.left, area_.top);
  if (picker_.hasSymbols()) drawSymbols();
}

void CZHlkhlbjDlg::drawSymbols() {
  CSlbMan library;
  if (!library.OnOpenDocument(picker_.slidePath().c_str())) return;
  std::vector<char> slide;
  for (std::int64_t n = picker_.firstOnPage(); n < picker_.endOnPage(); ++n) {
    const wchar_t* symbol = picker_.symbolAt(n).c_str();
    const std::uint32_t size = library.GetSlideSize(symbol);
    if (size == 0) continue;
    slide.resize(std::max<std::size_t>(slide.size(), size));
    if (!library.GetSlideData(symbol, slide.data())) continue;
    const CRect box(picker_.boxOf(n, area_));
    graph_.Draw(slide.data(), size, box.Width(), box.Height(), box.left, box.top, 0, 0);
  }
}

// A disabled button that has the focus would keep the keyboard from the dialog.
void CZHlkhlbjDlg::enablePageButtons() {
  const auto enable = [this](CButton& button, bool on) {
    if (!on && GetFocus() == &button) refresh_.SetFocus();
    button.EnableWindow(on);
  };
  enable(previous_, picker_.canGoBack());
  enable(next_, picker_.canGoOn());
}

void CZHlkhlbjDlg::mark(CDC& dc, std::int32_t symbol) {
  graph_.dc = &dc;
  graph_.HighLightBlock(area_, picker_.side(), picker_.side(), picker_.page(), symbol, 0);
}

void CZHlkhlbjDlg::OnLButtonDown(UINT flags, CPoint point) {
  const std::int32_t before = picker_.selection();
  if (flags == MK_LBUTTON && picker_.pick(point, area_)) {
    CClientDC dc(this);
    if (before >= 0) mark(dc, before);
    mark(dc, picker_.selection());
  }
  Default();
}

void CZHlkhlbjDlg::repaintPicker(BOOL erase) {
  InvalidateRect(area_, erase);
  UpdateWindow();
}

void CZHlkhlbjDlg::turnPage(int by) {
  if (picker_.turnPage(by)) repaintPicker(TRUE);
}

void CZHlkhlbjDlg::OnPreviousPage() { turnPage(-1); }
void CZHlkhlbjDlg::OnNextPage() { turnPage(+1); }

void CZHlkhlbjDlg::OnRefresh() {
  UpdateData(TRUE);
  bool painted = false;
  tell(picker_.refresh(painted));
  if (painted) repaintPicker(TRUE);
}

// --- the end ---

// Where the drawing can't be locked there is no slide; the edit counts all the same.
void CZHlkhlbjDlg::OnOK() {
  position_.save(picker_.page(), picker_.selection());
  AcApDocManager* documents = acDocManagerPtr();
  AcApDocument* document = documents->curDocument();
  if (document && document->database() &&
      documents->lockDocument(document, AcAp::kWrite, nullptr, nullptr, true) == 0) {
    record.CaptureTree();
    documents->unlockDocument(document);
  }
  CDialog::OnOK();
}

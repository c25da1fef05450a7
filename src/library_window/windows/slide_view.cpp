#include "library_window/windows/slide_view.h"

#include <algorithm>
#include <vector>

#include "editor/windows/circuit_dialog.h"
#include "library_window/circuit_actions.h"
#include "library_window/windows/main_window.h"
#include "library_window/windows/slide_preview.h"
#include "module/information.h"
#include "platform/common_funcs.h"
#include "platform/framework_menu.h"
#include "platform/framework_window_dc.h"
#include "resources/resource_ids.h"

namespace {

constexpr std::size_t kFirstSlideRoom = 4096;  // bytes
constexpr const wchar_t* kPlainTitle = L"主回路";

}  // namespace

IMPLEMENT_DYNCREATE(CSlbView, CView)

BEGIN_MESSAGE_MAP(CSlbView, CView)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_LBUTTONDOWN()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_COMMAND(ID_SLIDE_COPY, OnCopy)
ON_COMMAND(ID_SLIDE_PASTE, OnPaste)
ON_COMMAND(ID_SLIDE_DELETE, OnDelete)
ON_COMMAND(ID_SLIDE_ENLARGE, OnEnlarge)
END_MESSAGE_MAP()

GridLayout CSlbView::layout() {
  CZhlkLibStore& store = storeOf(*this);
  const Grid grid = usableGrid(store);
  CRect client;
  GetClientRect(client);
  return {SIZE{client.Width(), client.Height()}, grid.rows, grid.columns, store.GetPage()};
}

// --- painting ---

// Through a picture in memory, so that nothing flickers.
void CSlbView::OnPaint() {
  CPaintDC dc(this);
  CRect client;
  GetClientRect(client);
  CDC memory;
  CBitmap picture;
  if (!memory.CreateCompatibleDC(&dc)) return;
  if (!picture.CreateCompatibleBitmap(&dc, std::max(client.Width(), 1),
                                      std::max(client.Height(), 1))) {
    return;
  }
  CBitmap* before = memory.SelectObject(&picture);
  ::FillRect(memory, client, static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
  drawSlides(memory, client);
  drawHighlight(memory, storeOf(*this).GetSelection());
  dc.BitBlt(0, 0, client.Width(), client.Height(), &memory, 0, 0, SRCCOPY);
  memory.SelectObject(before);
}

// One buffer serves the whole page and only grows. A slide that the library lacks leaves its cell
// empty.
void CSlbView::drawSlides(CDC& dc, const CRect& client) {
  CZhlkLibStore& store = storeOf(*this);
  const Grid grid = usableGrid(store);
  const GridLayout cells = layout();
  m_graph.dc = &dc;
  m_graph.DrawGrid(client, grid.columns, grid.rows, 0, 0);
  std::vector<char> bytes(kFirstSlideRoom);
  const std::int64_t first = cells.firstSlot();
  const std::int64_t end = std::min<std::int64_t>(first + cells.cellsPerPage(), store.GetCount());
  for (std::int64_t slot = first; slot < end; ++slot) {
    CString name;
    store.GetNameAt(static_cast<int>(slot), name);
    const std::uint32_t size = store.Slides().GetSlideSize(name);
    if (size == 0) continue;
    if (size > bytes.size()) bytes.resize(size);
    if (!store.Slides().GetSlideData(name, bytes.data())) continue;
    const POINT box = cells.boxOf(slot);
    m_graph.Draw(bytes.data(), size, cells.cell().cx, cells.cell().cy, box.x, box.y, 0, 0);
  }
  m_graph.dc = nullptr;
}

// Done twice it removes the mark again.
void CSlbView::drawHighlight(CDC& dc, int slot) {
  CZhlkLibStore& store = storeOf(*this);
  const Grid grid = usableGrid(store);
  CRect client;
  GetClientRect(client);
  m_graph.dc = &dc;
  m_graph.HighLightBlock(client, grid.columns, grid.rows, pageAfter(store.GetPage(), -1), slot, 0);
  m_graph.dc = nullptr;
  showTitle(slot);
}

void CSlbView::showTitle(int slot) {
  CZhlkLibStore& store = storeOf(*this);
  CString name;
  if (slot < store.GetCount()) store.GetNameAt(slot, name);
  GetParentFrame()->SetWindowText(name.IsEmpty() ? kPlainTitle : name.GetString());
}

// --- clicks ---

// The old mark goes, the slot under the point is selected and marked.
void CSlbView::selectAt(CPoint point) {
  CZhlkLibStore& store = storeOf(*this);
  CClientDC dc(this);
  drawHighlight(dc, store.GetSelection());
  store.SetSelection(layout().slotAt(point));
  drawHighlight(dc, store.GetSelection());
}

void CSlbView::OnLButtonDown(UINT, CPoint point) {
  CZhlkLibStore& store = storeOf(*this);
  selectAt(point);
  if (store.GetMode() == 0) {
    placeCell(store.GetSelection());
  } else {
    editCell(point);
  }
}

// A free slot opens with the template's circuit.
void CSlbView::editCell(CPoint point) {
  CZhlkLibStore& store = storeOf(*this);
  const int slot = store.GetSelection();
  CZHlkhlbjDlg dialog;
  dialog.slot = static_cast<std::uint16_t>(slot);
  store.GetRowAt(slot, dialog.row);
  store.GetNameAt(slot, dialog.name);
  if (dialog.DoModal() != IDOK) return;
  storeEdit(store, slot, dialog.name, dialog.record);
  const RECT cell = layout().insideOf(point);
  InvalidateRect(&cell, FALSE);
}

// The blank ends the input on the command line. Which circuit is meant stands in the selection.
void CSlbView::placeCell(int slot) {
  if (GetMessageMark() != 1) return;
  CString name;
  if (!storeOf(*this).GetNameAt(slot, name) || name.IsEmpty()) return;
  constexpr wchar_t kAnswer[] = L"S \0";
  SendMsgToAcad(kAnswer, 4);  // two characters, a terminating one, and one more for the length
}

void CSlbView::OnRButtonDown(UINT, CPoint point) {
  selectAt(point);
  m_contextRect = layout().insideOf(point);
  if (storeOf(*this).GetMode() == 0) {
    OnEnlarge();
  } else {
    showMenu(point);
  }
}

void CSlbView::showMenu(CPoint point) {
  CZhlkLibStore& store = storeOf(*this);
  const int slot = store.GetSelection();
  CMenu menu;
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_STRING, ID_SLIDE_COPY, L"复制");
  menu.AppendMenu(MF_STRING, ID_SLIDE_PASTE, L"粘贴");
  menu.AppendMenu(MF_STRING, ID_SLIDE_DELETE, L"删除");
  menu.AppendMenu(MF_SEPARATOR);
  menu.AppendMenu(MF_STRING, ID_SLIDE_ENLARGE, L"放大");
  const auto enable = [&menu](UINT id, int on) {
    menu.EnableMenuItem(id, on ? MF_ENABLED : MF_GRAYED);
  };
  enable(ID_SLIDE_PASTE, store.CanPaste(slot));
  enable(ID_SLIDE_COPY, store.HasCircuit(slot));
  enable(ID_SLIDE_DELETE, store.HasCircuit(slot));
  enable(ID_SLIDE_ENLARGE, store.HasCircuit(slot));
  ClientToScreen(&point);
  menu.TrackPopupMenu(TPM_RIGHTBUTTON, point.x, point.y, this);
}

// --- commands ---

// The number of the slot alone is kept: it means whatever the slot holds when it is pasted.
void CSlbView::OnCopy() {
  CZhlkLibStore& store = storeOf(*this);
  store.CopyToClipboard(store.GetSelection());
}

void CSlbView::OnDelete() {
  CZhlkLibStore& store = storeOf(*this);
  deleteCircuit(store, store.GetSelection());
  InvalidateRect(&m_contextRect, FALSE);
}

void CSlbView::OnEnlarge() {
  CZhlkLibStore& store = storeOf(*this);
  CString name;
  store.GetNameAt(store.GetSelection(), name);
  if (name.IsEmpty()) return;
  m_preview = new CZhlkSldWnd;
  m_preview->slideName = name;
  m_preview->libraryPath = CString(store.SlidePath());
  m_preview->CreatePreview(GetParentFrame()->GetStyle(), this);
}

void CSlbView::OnPaste() {
  CZhlkLibStore& store = storeOf(*this);
  if (pasteCircuit(store, store.GetSelection())) InvalidateRect(&m_contextRect, FALSE);
}

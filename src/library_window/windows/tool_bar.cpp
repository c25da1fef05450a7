#include "library_window/windows/tool_bar.h"

#include "library_window/frame_layout.h"
#include "library_window/windows/main_window.h"
#include "resources/resource_ids.h"
#include "store/library_store.h"

namespace {

constexpr int kRadioWidth = 45;
constexpr int kGridWidth = 50;
constexpr int kListHeight = 100;  // of the grid's list when it is open, beyond the item

}  // namespace

BEGIN_MESSAGE_MAP(CZhlkToolBar, CToolBar)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEMOVE()
ON_COMMAND(ID_DRAW_MODE, OnDrawMode)
ON_COMMAND(ID_EDIT_MODE, OnEditMode)
END_MESSAGE_MAP()

// The item becomes a gap of that width, in which a control is made.
CRect CZhlkToolBar::placeOf(int index, UINT id, int width) {
  SetButtonInfo(index, id, TBBS_SEPARATOR, width);
  CRect place;
  GetItemRect(index, place);
  return place;
}

bool CZhlkToolBar::CreateControls() {
  constexpr DWORD kRadio = WS_CHILD | WS_VISIBLE | BS_AUTORADIOBUTTON;
  constexpr DWORD kList =
      WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_AUTOHSCROLL | CBS_HASSTRINGS;
  const CRect draw = placeOf(0, ID_DRAW_MODE, kRadioWidth);
  if (!m_draw.Create(L"绘制", kRadio, draw, this, ID_DRAW_MODE)) return false;
  const CRect edit = placeOf(1, ID_EDIT_MODE, kRadioWidth);
  if (!m_edit.Create(L"编辑", kRadio, edit, this, ID_EDIT_MODE)) return false;
  CRect grid = placeOf(2, ID_GRID, kGridWidth);
  grid.bottom += kListHeight;
  if (!m_grid.Create(kList, grid, this, ID_GRID)) return false;
  for (const wchar_t* text : kGridTexts) m_grid.AddString(text);
  SetButtonStyle(CommandToIndex(ID_AUXILIARY_BAR), TBBS_CHECKBOX);
  return true;
}

void CZhlkToolBar::Update(CZhlkLibStore& store) {
  const bool edits = store.GetMode() != 0;
  m_draw.SetCheck(edits ? 0 : 1);
  m_edit.SetCheck(edits ? 1 : 0);
  const Grid grid = usableGrid(store);
  const std::int32_t page = store.GetPage();
  const bool next = hasNextPage(page, grid.rows, grid.columns, store.GetCount());
  SendMessage(TB_ENABLEBUTTON, ID_PREVIOUS_PAGE, MAKELPARAM(hasPreviousPage(page), 0));
  SendMessage(TB_ENABLEBUTTON, ID_NEXT_PAGE, MAKELPARAM(next, 0));
  SendMessage(TB_CHECKBUTTON, ID_AUXILIARY_BAR, MAKELPARAM(store.GetAuxFlag() == 0, 0));
}

void CZhlkToolBar::SetControlFont(CFont* font) {
  m_draw.SetFont(font);
  m_edit.SetFont(font);
  m_grid.SetFont(font);
}

// The rim of two pixels is dead.
void CZhlkToolBar::OnLButtonDown(UINT flags, CPoint point) {
  CRect inner;
  GetClientRect(inner);
  inner.DeflateRect(2, 2);
  if (inner.PtInRect(point)) CControlBar::OnLButtonDown(flags, point);
}

void CZhlkToolBar::OnDrawMode() { storeOf(*this).SetMode(0); }
void CZhlkToolBar::OnEditMode() { storeOf(*this).SetMode(1); }

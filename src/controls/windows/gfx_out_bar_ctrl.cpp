// The bar as a window: making it, its folders and items, its commands and notifications.
#include "controls/windows/gfx_out_bar_ctrl.h"

#include "controls/windows/gfx_group_edit.h"
#include "platform/framework_image_list.h"
#include "platform/framework_resources.h"
#include "platform/framework_window_dc.h"
#include "resources/resource_ids.h"

namespace {

HCURSOR cursor(UINT id) {
  const wchar_t* name = MAKEINTRESOURCEW(id);
  return ::LoadCursorW(AfxFindResourceHandle(name, RT_GROUP_CURSOR), name);
}

}  // namespace

IMPLEMENT_DYNCREATE(CGfxOutBarCtrl, CWnd)

BEGIN_MESSAGE_MAP(CGfxOutBarCtrl, CWnd)
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SIZE()
ON_WM_TIMER()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_RBUTTONDOWN()
ON_WM_SETCURSOR()
ON_MESSAGE(BARM_NOTIFY, OnBarNotify)
ON_COMMAND(ID_BAR_SMALL_ICONS, onSmallIcons)
ON_COMMAND(ID_BAR_LARGE_ICONS, onLargeIcons)
ON_COMMAND(ID_BAR_RENAME, onRename)
ON_COMMAND(ID_BAR_DELETE, onDelete)
ON_COMMAND(ID_BAR_NEW, onNew)
ON_COMMAND_RANGE(ID_BAR_ENLARGE, ID_BAR_PASTE, onNoAction)
ON_COMMAND(ID_BAR_ADD, onAdd)
ON_UPDATE_COMMAND_UI(ID_BAR_SMALL_ICONS, onUpdateSmallIcons)
ON_UPDATE_COMMAND_UI(ID_BAR_LARGE_ICONS, onUpdateLargeIcons)
ON_UPDATE_COMMAND_UI_RANGE(ID_BAR_RENAME, ID_BAR_ADD, onUpdateEnabled)
END_MESSAGE_MAP()

CGfxOutBarCtrl::CGfxOutBarCtrl()
    : colours_{::GetSysColor(COLOR_BACKGROUND), ::GetSysColor(COLOR_BACKGROUND),
               ::GetSysColor(COLOR_WINDOW),     ::GetSysColor(COLOR_3DFACE),
               ::GetSysColor(COLOR_3DHILIGHT),  ::GetSysColor(COLOR_3DDKSHADOW)},
      hand_(cursor(IDC_CURSOR_HAND)),
      drag_(cursor(IDC_CURSOR_COPY)),
      noDrop_(cursor(IDC_CURSOR_FORBIDDEN)) {
  view_.small = IsSmallIconView();
}

BOOL CGfxOutBarCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id, unsigned flags) {
  flags_ = flags;
  view_.small = IsSmallIconView();
  return CWnd::Create(nullptr, nullptr, style | WS_CHILD, rect, parent, id);
}

BOOL CGfxOutBarCtrl::PreCreateWindow(CREATESTRUCTW& create) {
  create.dwExStyle |= WS_EX_STATICEDGE;
  return CWnd::PreCreateWindow(create);
}

// --- folders and items ---

CWnd* CGfxOutBarCtrl::GetFolderChild(int folder) const {
  if (GetFolderCount() == 0) return nullptr;
  return folders_.folder(folder < 0 ? view_.currentFolder : folder).child;
}

bool CGfxOutBarCtrl::IsValidItem(int item) const {
  return item >= 0 && item < GetCurrentItemCount();
}

CString CGfxOutBarCtrl::GetItemText(int item) const {
  if (!IsValidItem(item)) return {};
  return CString(folders_.folder(view_.currentFolder).item(item).text.value_or(L""));
}

void CGfxOutBarCtrl::SetItemText(int item, const wchar_t* text) {
  folders_.folder(view_.currentFolder).item(item).text = text;
}

void CGfxOutBarCtrl::SetFolderText(int folder, const wchar_t* text) {
  folders_.folder(folder).name = text;
}

// The first item stays.
void CGfxOutBarCtrl::folderRemoved(int folder) {
  if (view_.currentFolder < folder) return;
  view_.currentFolder = folder - 1;
  if (view_.currentFolder < 0 && GetFolderCount() > 0) view_.currentFolder = 0;
}

// --- what is shown ---

BarLayout CGfxOutBarCtrl::layout() {
  refreshView();
  return {folders_, view_, measure_};
}

void CGfxOutBarCtrl::SetIconView(bool smallIcons) {
  view_.firstItem = 0;
  if (smallIcons == IsSmallIconView()) return;
  flags_ ^= BARF_SMALLICON;
  view_.small = smallIcons;
  InvalidateRect(inside(), FALSE);
}

void CGfxOutBarCtrl::SetItemAnimInterval(int milliseconds) {
  if (milliseconds > 0) {
    SetTimer(kJumpTimer, static_cast<UINT>(milliseconds));
  } else {
    KillTimer(kJumpTimer);
  }
  itemInterval_ = milliseconds;
}

void CGfxOutBarCtrl::SelectFolder(int index) {
  if (CWnd* child = GetFolderChild(-1)) child->ShowWindow(SW_HIDE);
  const bool slides = (flags_ & BARF_ANIMATE) != 0 && folderDelay_ >= 0;
  if (index != view_.currentFolder && slides) AnimateFolderChange(view_.currentFolder, index);
  view_.currentFolder = index;
  view_.firstItem = 0;
  selectedItem_ = -1;
  if (CWnd* child = GetFolderChild(-1)) {
    child->MoveWindow(inside());
    child->ShowWindow(SW_SHOW);
  }
  notify(BARN_FOLDERCHANGED, index);
  Invalidate();
}

void CGfxOutBarCtrl::OnSize(UINT type, int width, int height) {
  view_.upShown = view_.downShown = false;
  CWnd::OnSize(type, width, height);
  const CRect place = inside();
  for (int i = 0; i < GetFolderCount(); ++i) {
    if (CWnd* child = GetFolderChild(i)) {
      child->SetWindowPos(nullptr, place.left, place.top, place.Width(), place.Height(),
                          SWP_NOZORDER);
    }
  }
}

// --- commands ---

void CGfxOutBarCtrl::onSmallIcons() {
  SetIconView(true);
  Invalidate();
}

void CGfxOutBarCtrl::onLargeIcons() {
  SetIconView(false);
  Invalidate();
}

void CGfxOutBarCtrl::onRename() {
  if (context_.code == BarHit::Folder) BeginFolderEdit(context_.index);
  if (context_.code == BarHit::Item) BeginItemEdit(context_.index);
}

void CGfxOutBarCtrl::onDelete() {
  if (!library_) return;
  if (context_.code == BarHit::Folder) library_->removeGroup(context_.index);
  if (context_.code == BarHit::Item) library_->removeItem(context_.index);
}

void CGfxOutBarCtrl::onNew() {
  if (library_) library_->addItem();
}

void CGfxOutBarCtrl::onAdd() {
  if (library_) library_->addGroup();
}

LRESULT CGfxOutBarCtrl::OnBarNotify(WPARAM code, LPARAM value) {
  if (!library_) return 0;
  const auto* edit = reinterpret_cast<const CGfxGroupEdit*>(value);
  switch (code) {
    case BARN_ITEMCLICK: library_->itemClicked(static_cast<int>(value)); return 0;
    case BARN_ITEMRENAME: library_->renameItem(edit->index, edit->text.GetString()); return 0;
    case BARN_FOLDERRENAME: library_->renameFolder(edit->index, edit->text.GetString()); return 0;
    case BARN_ITEMMOVE: {
      const auto* move = reinterpret_cast<const BarMoveInfo*>(value);
      return library_->moveItem(move->source, move->target) ? 1 : 0;
    }
    default: return 0;
  }
}

// --- label editors ---

namespace {

// Shows the label to be edited.
void begin(CGfxGroupEdit* edit, unsigned code, const std::wstring& text) {
  edit->notification = code;
  edit->SetWindowText(text.c_str());
  edit->SetFocus();
}

constexpr UINT kEditId = 1;

}  // namespace

void CGfxOutBarCtrl::BeginFolderEdit(int index) {
  CRect rect;
  const std::wstring name = folders_.folder(index).name;
  layout().GetFolderRect(index, *rect);
  rect.InflateRect(-2, -2);
  auto* edit = new CGfxGroupEdit(index, false);
  const DWORD style = WS_CHILD | WS_VISIBLE | ES_CENTER | ES_MULTILINE;
  if (!edit->Create(style, rect, this, kEditId)) return;  // it has deleted itself
  ::SetWindowLongPtrW(edit->m_hWnd, GWL_EXSTYLE,
                      static_cast<LONG_PTR>(edit->GetExStyle() | WS_EX_CLIENTEDGE));
  edit->SetWindowPos(nullptr, 0, 0, 0, 0,
                     SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  begin(edit, BARN_FOLDERRENAME, name);
}

void CGfxOutBarCtrl::BeginItemEdit(int index) {
  const BarLayout layout = this->layout();
  const int folder = view_.currentFolder;
  const std::wstring text = folders_.folder(folder).item(index).text.value_or(L"");
  DWORD style = WS_CHILD | WS_VISIBLE | WS_BORDER;
  CRect rect;
  if (IsSmallIconView()) {
    const CRect icon = layout.GetItemIconRect(folder, index);
    rect = layout.GetItemCellRect(folder, index);
    rect.OffsetRect(icon.Width() + 1, 0);
    style |= ES_AUTOHSCROLL;
  } else {
    const CRect within = layout.GetInsideRect();
    rect = layout.GetItemLabelRect(folder, index);
    rect.left = within.left + 5;
    rect.right = within.right - 5;
    rect.bottom += 5;
    style |= ES_CENTER | ES_MULTILINE;
  }
  auto* edit = new CGfxGroupEdit(index, IsSmallIconView());
  if (!edit->Create(style, rect, this, kEditId)) return;  // it has deleted itself
  begin(edit, BARN_ITEMRENAME, text);
}

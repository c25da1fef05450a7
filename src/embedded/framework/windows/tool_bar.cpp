// Tool bars over the system's control: resource, buttons, size, borders.
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/framework_control_bar.h"
#include "platform/framework_frame.h"
#include "platform/framework_resources.h"
#include "platform/framework_window_dc.h"

namespace {

const wchar_t* toolBarType() { return MAKEINTRESOURCEW(241); }

// A tool bar resource: version (1), width and height of a button's image, count, the ids.
struct ToolBarResource {
  CSize image;
  std::vector<UINT> ids;
};

// False for a resource that is missing, cut or of another version.
bool readResource(UINT id, ToolBarResource& result) {
  const wchar_t* name = MAKEINTRESOURCEW(id);
  const HINSTANCE module = AfxFindResourceHandle(name, toolBarType());
  const HRSRC found = ::FindResourceW(module, name, toolBarType());
  if (!found) return false;
  const void* bytes = ::LockResource(::LoadResource(module, found));
  std::vector<std::uint16_t> words(::SizeofResource(module, found) / sizeof(std::uint16_t));
  if (!bytes || words.size() < 4) return false;
  std::memcpy(words.data(), bytes, words.size() * sizeof(std::uint16_t));
  if (words[0] != 1 || words.size() < 4U + words[3]) return false;
  result.image = CSize(words[1], words[2]);
  result.ids.assign(words.begin() + 4, words.begin() + 4 + words[3]);
  return true;
}

// A button while its command's target is asked about it.
class ToolButton : public CCmdUI {
 public:
  void Enable(BOOL on) override {
    m_bEnableChanged = TRUE;
    m_pOther->SendMessage(TB_ENABLEBUTTON, m_nID, MAKELPARAM(on != FALSE, 0));
  }
  void SetCheck(int check) override {
    m_pOther->SendMessage(TB_CHECKBUTTON, m_nID, MAKELPARAM(check == 1, 0));
    m_pOther->SendMessage(TB_INDETERMINATE, m_nID, MAKELPARAM(check == 2, 0));
  }
  void SetText(const wchar_t*) override {}
};

}  // namespace

IMPLEMENT_DYNAMIC(CToolBar, CControlBar)

BEGIN_MESSAGE_MAP(CToolBar, CControlBar)
ON_WM_NCCALCSIZE()
ON_WM_NCPAINT()
ON_WM_NCHITTEST()
END_MESSAGE_MAP()

CToolBar::CToolBar() {
  m_cyTopBorder = 3;
  m_cyBottomBorder = 3;
}

CToolBar::~CToolBar() {
  DestroyWindow();  // while the images of its buttons are there
  if (m_hbmImages) ::DeleteObject(m_hbmImages);
}

BOOL CToolBar::Create(CWnd* parent, DWORD style, UINT id) {
  m_dwStyle = style & CBRS_ALL;
  const DWORD control =
      (style & ~CBRS_ALL) | CCS_NOPARENTALIGN | CCS_NOMOVEY | CCS_NODIVIDER | CCS_NORESIZE;
  if (!CWnd::Create(TOOLBARCLASSNAMEW, nullptr, control, {0, 0, 0, 0}, parent, id)) return FALSE;
  SetOwner(parent);
  SendMessage(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
  SetSizes(m_sizeButton, m_sizeImage);
  return TRUE;
}

BOOL CToolBar::LoadToolBar(UINT id) {
  ToolBarResource resource;
  if (!readResource(id, resource)) return FALSE;
  // Around the image lie the button's edges and what a pressed image moves by.
  SetSizes({resource.image.cx + 7, resource.image.cy + 7}, resource.image);
  const int count = static_cast<int>(resource.ids.size());
  return addBitmap(id, count) && SetButtons(resource.ids.data(), count);
}

// The four greys of the bitmap take the system's colours.
bool CToolBar::addBitmap(UINT id, int images) {
  const HINSTANCE module = AfxFindResourceHandle(MAKEINTRESOURCEW(id), RT_BITMAP);
  if (!::FindResourceW(module, MAKEINTRESOURCEW(id), RT_BITMAP)) return false;
  const HBITMAP bitmap = ::CreateMappedBitmap(module, static_cast<INT_PTR>(id), 0, nullptr, 0);
  if (!bitmap) return false;
  const TBADDBITMAP added = {nullptr, reinterpret_cast<UINT_PTR>(bitmap)};
  SendMessage(TB_ADDBITMAP, static_cast<WPARAM>(images), reinterpret_cast<LPARAM>(&added));
  if (m_hbmImages) ::DeleteObject(m_hbmImages);
  m_hbmImages = bitmap;
  return true;
}

void CToolBar::SetSizes(SIZE button, SIZE image) {
  m_sizeButton = button;
  m_sizeImage = image;
  SendMessage(TB_SETBITMAPSIZE, 0, MAKELPARAM(image.cx, image.cy));
  SendMessage(TB_SETBUTTONSIZE, 0, MAKELPARAM(button.cx, button.cy));
}

BOOL CToolBar::SetButtons(const UINT* ids, int count) {
  while (SendMessage(TB_DELETEBUTTON, 0)) {
  }
  constexpr int kSeparatorWidth = 8;
  int image = 0;
  for (int i = 0; i < count; ++i) {
    TBBUTTON made{};
    made.fsState = TBSTATE_ENABLED;
    made.idCommand = static_cast<int>(ids[i]);
    made.fsStyle = ids[i] == 0 ? BTNS_SEP : BTNS_BUTTON;
    made.iBitmap = ids[i] == 0 ? kSeparatorWidth : image++;
    if (!SendMessage(TB_INSERTBUTTON, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&made))) {
      return FALSE;
    }
  }
  return TRUE;
}

// --- buttons ---

bool CToolBar::button(int index, TBBUTTON& result) const {
  return SendMessage(TB_GETBUTTON, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&result)) !=
         0;
}

void CToolBar::setButton(int index, const TBBUTTON& changed) {
  SendMessage(TB_DELETEBUTTON, static_cast<WPARAM>(index));
  SendMessage(TB_INSERTBUTTON, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&changed));
  Invalidate();
}

int CToolBar::GetButtonCount() const { return static_cast<int>(SendMessage(TB_BUTTONCOUNT)); }
int CToolBar::CommandToIndex(UINT id) const {
  return static_cast<int>(SendMessage(TB_COMMANDTOINDEX, id));
}
UINT CToolBar::GetItemID(int index) const {
  TBBUTTON one{};
  return button(index, one) ? static_cast<UINT>(one.idCommand) : 0;
}
void CToolBar::GetItemRect(int index, RECT* rect) const {
  const auto position = static_cast<WPARAM>(index);
  if (!SendMessage(TB_GETITEMRECT, position, reinterpret_cast<LPARAM>(rect))) *rect = {};
}
UINT CToolBar::GetButtonStyle(int index) const {
  TBBUTTON one{};
  button(index, one);
  return one.fsStyle | static_cast<UINT>(one.fsState & ~TBSTATE_ENABLED) << 16;
}
void CToolBar::SetButtonStyle(int index, UINT style) {
  TBBUTTON one{};
  if (!button(index, one)) return;
  one.fsStyle = static_cast<BYTE>(style & 0xFF);
  one.fsState = static_cast<BYTE>((style >> 16 & 0xFF) | (one.fsState & TBSTATE_ENABLED));
  setButton(index, one);
}
void CToolBar::SetButtonInfo(int index, UINT id, UINT style, int image) {
  TBBUTTON one{};
  if (!button(index, one)) return;
  one.idCommand = static_cast<int>(id);
  one.iBitmap = image;
  one.fsStyle = static_cast<BYTE>(style & 0xFF);
  one.fsState = static_cast<BYTE>((style >> 16 & 0xFF) | TBSTATE_ENABLED);
  setButton(index, one);
}

void CToolBar::OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) {
  ToolButton item;
  item.m_pOther = this;
  item.m_nIndexMax = static_cast<UINT>(GetButtonCount());
  for (item.m_nIndex = 0; item.m_nIndex < item.m_nIndexMax; ++item.m_nIndex) {
    TBBUTTON one{};
    if (!button(static_cast<int>(item.m_nIndex), one) || one.fsStyle & BTNS_SEP) continue;
    item.m_nID = static_cast<UINT>(one.idCommand);
    item.DoUpdate(target, disableIfNoHandler);
  }
}

// --- size and borders ---

int CToolBar::contentWidth() const {
  int width = 0;
  for (int i = 0, count = GetButtonCount(); i < count; ++i) {
    TBBUTTON one{};
    button(i, one);
    width += one.fsStyle & BTNS_SEP ? one.iBitmap : m_sizeButton.cx;
  }
  return width;
}

CSize CToolBar::CalcFixedLayout(BOOL, BOOL horizontal) {
  CRect margins;
  CalcInsideRect(margins, horizontal);
  return {contentWidth() - margins.Width(), m_sizeButton.cy - margins.Height()};
}

// Above raised buttons the control keeps some pixels of its own, which count as margin.
int CToolBar::builtInMargin() const {
  RECT first{};
  GetItemRect(0, &first);
  return first.top;
}

void CToolBar::OnNcCalcSize(BOOL, NCCALCSIZE_PARAMS* sizes) {
  const bool horizontal = (m_dwStyle & (CBRS_ALIGN_LEFT | CBRS_ALIGN_RIGHT)) == 0;
  CRect inside = sizes->rgrc[0];
  CalcInsideRect(inside, horizontal);
  inside.top -= builtInMargin();
  sizes->rgrc[0] = inside;
}

void CToolBar::OnNcPaint() {
  CWindowDC dc(this);
  CRect client;
  GetClientRect(client);
  ClientToScreen(client);
  CRect window;
  GetWindowRect(window);
  client.OffsetRect(-window.left, -window.top);
  window.OffsetRect(-window.left, -window.top);
  dc.ExcludeClipRect(client);
  dc.FillSolidRect(window, ::GetSysColor(COLOR_BTNFACE));
  if ((m_dwStyle & CBRS_BORDER_ANY) == 0) return;
  dc.Draw3dRect(window, ::GetSysColor(COLOR_BTNSHADOW), ::GetSysColor(COLOR_BTNHIGHLIGHT));
  if (m_dwStyle & CBRS_BORDER_3D) {
    window.DeflateRect(1, 1);
    dc.Draw3dRect(window, ::GetSysColor(COLOR_BTNHIGHLIGHT), ::GetSysColor(COLOR_BTNSHADOW));
  }
}

// The borders are a part of the bar that takes clicks.
LRESULT CToolBar::OnNcHitTest(CPoint) { return HTCLIENT; }

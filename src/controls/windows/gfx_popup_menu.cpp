#include "controls/windows/gfx_popup_menu.h"

#include "controls/windows/gdi_scope.h"
#include "platform/framework_app.h"
#include "platform/framework_window_dc.h"

namespace {

constexpr COLORREF kMask = 0xC0C0C0;
constexpr int kImageWidth = 16;
constexpr int kImageHeight = 15;
constexpr UINT kMetricsSize = 500;  // without the last member, which old systems don't know

// Menus within menus while they are remapped, one for all menus of the process.
int& depth() {
  static int level = 0;
  return level;
}

const wchar_t* asData(GfxMenuItem* item) { return reinterpret_cast<const wchar_t*>(item); }

}  // namespace

CGfxPopupMenu::CGfxPopupMenu()
    : colours_{0,
               ::GetSysColor(COLOR_MENUTEXT),
               ::GetSysColor(COLOR_HIGHLIGHTTEXT),
               ::GetSysColor(COLOR_MENU),
               ::GetSysColor(COLOR_HIGHLIGHT),
               ::GetSysColor(COLOR_BTNHIGHLIGHT),
               ::GetSysColor(COLOR_BTNSHADOW),
               ::GetSysColor(COLOR_GRAYTEXT)},
      face_(::GetSysColor(COLOR_BTNFACE)) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = kMetricsSize;
  ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, kMetricsSize, &metrics, 0);
  menuFont_.CreateFontIndirect(&metrics.lfMenuFont);
  CreateBoldFont();
}

BOOL CGfxPopupMenu::CreateBoldFont() {
  boldFont_.DeleteObject();
  LOGFONTW font{};
  ::GetObjectW(menuFont_.GetSafeHandle(), sizeof(font), &font);
  font.lfWeight = FW_BOLD;
  return boldFont_.CreateFontIndirect(&font);
}

// The menu goes before the items that its entries point to.
CGfxPopupMenu::~CGfxPopupMenu() { DestroyMenu(); }

BOOL CGfxPopupMenu::LoadMenuImages(UINT bitmapId) {
  if (!images_.Create(bitmapId, kImageWidth, 0, kMask)) return FALSE;
  images_.SetBkColor(face_);
  imageSize_ = {kImageWidth, kImageHeight};
  return TRUE;
}

void CGfxPopupMenu::RemapMenu(CMenu* menu) {
  ++depth();
  for (int position = static_cast<int>(menu->GetMenuItemCount()) - 1; position >= 0; --position) {
    const UINT id = menu->GetMenuItemID(position);
    if (id == static_cast<UINT>(-1)) {
      remapSubMenu(*menu, position);
    } else {
      remapEntry(*menu, position, id);
    }
  }
  --depth();
}

// Remapped again by a second call: it is meant.
void CGfxPopupMenu::remapSubMenu(CMenu& menu, int position) {
  CMenu* subMenu = menu.GetSubMenu(position);
  if (subMenu) RemapMenu(subMenu);
  CString text;
  const auto at = static_cast<UINT>(position);
  menu.GetMenuString(at, text, MF_BYPOSITION);
  if (text.IsEmpty()) return;
  GfxMenuItem* item =
      items_.AddMenuItem(text.GetString(), depth() == 1 ? kMenuSubMenu : kMenuDeepSubMenu);
  menu.ModifyMenu(at, MF_BYPOSITION | MF_OWNERDRAW, static_cast<UINT_PTR>(-1), asData(item));
}

void CGfxPopupMenu::remapEntry(CMenu& menu, int position, UINT id) {
  const auto at = static_cast<UINT>(position);
  const UINT state = menu.GetMenuState(at, MF_BYPOSITION);
  if ((state & (MF_OWNERDRAW | MF_BITMAP)) != 0) return;
  GfxMenuItem* item = nullptr;
  if (id == 0) {
    item = items_.AddMenuItem(L"--", kMenuSeparator);
  } else {
    CString text;
    menu.GetMenuString(at, text, MF_BYPOSITION);
    item = items_.AddMenuItem(text.GetString(), static_cast<std::int32_t>(id));
  }
  menu.ModifyMenu(at, state | MF_OWNERDRAW | MF_BYPOSITION, id, asData(item));
}

void CGfxPopupMenu::UpdateMenuState(CMenu* menu, CCmdTarget* target) {
  CCmdUI ui;
  ui.m_pMenu = menu;
  ui.m_nIndexMax = menu->GetMenuItemCount();
  for (int position = static_cast<int>(ui.m_nIndexMax) - 1; position >= 0; --position) {
    if (CMenu* subMenu = menu->GetSubMenu(position)) UpdateMenuState(subMenu, target);
    const UINT id = menu->GetMenuItemID(position);
    if (id == 0 || id == static_cast<UINT>(-1)) continue;
    ui.m_nIndex = static_cast<UINT>(position);
    ui.m_nID = id;
    target->OnCmdMsg(id, CN_UPDATE_COMMAND_UI, &ui, nullptr);
    ui.DoUpdate(target, TRUE);
  }
}

void CGfxPopupMenu::MeasureItem(MEASUREITEMSTRUCT* measure) {
  const auto* item = reinterpret_cast<const GfxMenuItem*>(measure->itemData);
  if (measure->CtlType != ODT_MENU || !item) return;
  CClientDC dc(AfxGetMainWnd());
  const SelectedObject font(dc, menuFont_.GetSafeHandle());
  const SIZE size = menuItemSize(*item, imageSize_, [&](const std::wstring& text) -> SIZE {
    if (item->command != kMenuSubMenu) return dc.GetTextExtent(CString(text));
    CRect rect;
    dc.DrawText(CString(text), rect, DT_CALCRECT | DT_SINGLELINE | DT_VCENTER);
    return {rect.Width(), rect.Height()};
  });
  measure->itemWidth = static_cast<UINT>(size.cx);
  measure->itemHeight = static_cast<UINT>(size.cy);
}

void CGfxPopupMenu::DrawItem(DRAWITEMSTRUCT* drawn) {
  auto* item = reinterpret_cast<GfxMenuItem*>(drawn->itemData);
  if (drawn->CtlType != ODT_MENU || !item) return;
  CDC dc;
  dc.Attach(drawn->hDC);
  {
    const bool isDefault = (drawn->itemState & ODS_DEFAULT) != 0;
    const SelectedObject font(dc, (isDefault ? boldFont_ : menuFont_).GetSafeHandle());
    const MenuItemState state{(drawn->itemState & ODS_SELECTED) != 0,
                              (drawn->itemState & ODS_DISABLED) != 0,
                              (drawn->itemState & ODS_CHECKED) != 0};
    const COLORREF before = dc.GetTextColor();
    const int mode = dc.SetBkMode(TRANSPARENT);
    const auto measure = [&dc](const std::wstring& text) {
      return dc.GetTextExtent(CString(text));
    };
    for (const MenuStroke& stroke :
         menuItemStrokes(*item, drawn->rcItem, state, imageSize_, measure)) {
      std::visit([&](const auto& one) { draw(dc, one); }, stroke);
    }
    dc.SetBkMode(mode);
    dc.SetTextColor(before);
  }
  dc.Detach();
}

COLORREF CGfxPopupMenu::colour(MenuColour name, const CDC& dc) const {
  return name == MenuColour::Current ? dc.GetTextColor() : colours_[static_cast<int>(name)];
}

void CGfxPopupMenu::draw(CDC& dc, const MenuFill& fill) const {
  dc.FillSolidRect(&fill.rect, colour(fill.colour, dc));
}

void CGfxPopupMenu::draw(CDC& dc, const MenuLine& line) const {
  CPen pen(PS_SOLID, 1, colour(line.colour, dc));
  const SelectedObject selected(dc, pen.GetSafeHandle());
  dc.MoveTo(line.from.x, line.from.y);
  dc.LineTo(line.to.x, line.to.y);
}

void CGfxPopupMenu::draw(CDC& dc, const MenuFrame& frame) const {
  dc.Draw3dRect(&frame.rect, colour(frame.topLeft, dc), colour(frame.bottomRight, dc));
}

// There are no check images: a check draws nothing.
void CGfxPopupMenu::draw(CDC& dc, const MenuImage& image) const {
  if (image.check || !images_.GetSafeHandle()) return;
  if (!image.disabled) {
    images_.Draw(dc, image.index, image.at, ILD_NORMAL);
    return;
  }
  const HICON icon = images_.ExtractIcon(image.index);
  if (!icon) return;
  ::DrawStateW(dc, nullptr, nullptr, reinterpret_cast<LPARAM>(icon), 0, image.at.x, image.at.y,
               imageSize_.cx, imageSize_.cy, DST_ICON | DSS_DISABLED);
  ::DestroyIcon(icon);
}

void CGfxPopupMenu::draw(CDC& dc, const MenuText& text) const {
  dc.SetTextColor(colour(text.colour, dc));
  RECT rect = text.rect;
  dc.DrawText(CString(text.text), &rect, text.flags);
}

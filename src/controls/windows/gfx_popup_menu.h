// A popup menu in the bar's style: every entry is owner-drawn with an icon cell at its left. It
// lives for one right click: make it, fill it as a plain menu, load the images, remap, update,
// track.
#pragma once

#include "controls/menu_drawing.h"
#include "platform/framework_image_list.h"
#include "platform/framework_menu.h"

class CGfxPopupMenu : public CMenu {
 public:
  CGfxPopupMenu();
  ~CGfxPopupMenu() override;

  BOOL LoadMenuImages(UINT bitmapId);
  // Makes every entry owner-drawn that isn't yet; sub-menus too.
  void RemapMenu(CMenu* menu);
  // Lets the target enable and check the entries.
  void UpdateMenuState(CMenu* menu, CCmdTarget* target);

  void DrawItem(DRAWITEMSTRUCT* item) override;
  void MeasureItem(MEASUREITEMSTRUCT* item) override;

 private:
  BOOL CreateBoldFont();  // the menu's font in bold, in place of the one before
  COLORREF colour(MenuColour name, const CDC& dc) const;
  void remapSubMenu(CMenu& menu, int position);
  void remapEntry(CMenu& menu, int position, UINT id);
  void draw(CDC& dc, const MenuFill& fill) const;
  void draw(CDC& dc, const MenuLine& line) const;
  void draw(CDC& dc, const MenuFrame& frame) const;
  void draw(CDC& dc, const MenuImage& image) const;
  void draw(CDC& dc, const MenuText& text) const;

  CFont menuFont_;
  CFont boldFont_;  // of the default entry
  CImageList images_;
  SIZE imageSize_{20, 20};
  COLORREF colours_[8];
  COLORREF face_;
  MenuItems items_;
};

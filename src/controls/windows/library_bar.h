// The icon bar as the auxiliary library sees it. Makes the icon lists and owns them: the bar's
// folders only point to them, so it outlives the bar's last painting.
#pragma once

#include <memory>
#include <vector>

#include "auxiliary/auxiliary_bar.h"
#include "controls/windows/gfx_out_bar_ctrl.h"
#include "platform/framework_image_list.h"

class LibraryBar : public AuxiliaryBar {
 public:
  explicit LibraryBar(CGfxOutBarCtrl& bar) : bar_(bar) {}

  int folderCount() const override { return bar_.GetFolderCount(); }
  int openFolder() const override { return bar_.GetCurrentFolder(); }
  std::wstring folderName(int folder) const override;
  int itemCount(int folder) const override;
  std::wstring itemLabel(int folder, int item) const override;

  void addFolder(const std::wstring& name, int data) override;
  void setFolderName(int folder, const std::wstring& name) override;
  void removeFolder(int folder) override;
  void selectFolder(int folder) override { bar_.SelectFolder(folder); }
  void insertItem(int folder, int at, const std::wstring& label, int image) override;
  void setItemLabel(int folder, int item, const std::wstring& label) override;
  void removeItem(int folder, int item) override;
  void setSmallIcons(bool smallIcons) override { bar_.SetIconView(smallIcons); }
  bool smallIcons() const override { return bar_.IsSmallIconView(); }
  void setAnimation(int folderStep, int itemInterval) override;

  void makeIconLists(int expected) override;
  void takeIconLists(int folder) override;
  int addIcon(CSlideLibraryData& slides, const std::wstring& name) override;
  void giveIconLists(int folder) override;
  void dropIconLists() override;

  void repaint() override { bar_.Invalidate(); }
  void repaintItems() override;
  void repaintHeader(int folder) override;

  int ask(const std::wstring& text, const std::wstring& caption, unsigned style) override;
  void notice(const std::wstring& text) override;

 private:
  // Icons on their way into a list: a strip of many goes in at once, since each call costs more
  // than the picture.
  struct Waiting {
    int width, height;
    std::vector<std::unique_ptr<CBitmap>> icons;
  };
  CImageList* makeList(const Waiting& icons, int expected);
  // The icon's place in the list, or -1.
  static int add(CImageList* list, Waiting& waiting, std::unique_ptr<CBitmap> icon);
  static void flush(CImageList* list, Waiting& waiting);
  void forgetWaiting();

  CGfxOutBarCtrl& bar_;
  std::vector<std::unique_ptr<CImageList>> lists_;  // all that were made
  bool given_ = true;                               // nothing new is in the working lists
  Waiting small_{32, 16, {}};
  Waiting large_{64, 32, {}};
};

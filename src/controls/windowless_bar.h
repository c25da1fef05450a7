// The auxiliary library's bar where there are no windows: it keeps folders and items, and counts
// icons instead of drawing them.
#pragma once

#include <vector>

#include "auxiliary/auxiliary_bar.h"
#include "controls/bar_folders.h"

class WindowlessBar : public AuxiliaryBar {
 public:
  int folderCount() const override { return folders_.GetFolderCount(); }
  int openFolder() const override { return openFolder_; }
  std::wstring folderName(int folder) const override { return folders_.folder(folder).name; }
  int itemCount(int folder) const override { return folders_.folder(folder).GetItemCount(); }
  std::wstring itemLabel(int folder, int item) const override;

  void addFolder(const std::wstring& name, int data) override;
  void setFolderName(int folder, const std::wstring& name) override;
  void removeFolder(int folder) override;
  // Opens a single folder, too.
  void selectFolder(int folder) override;
  void insertItem(int folder, int at, const std::wstring& label, int image) override;
  void setItemLabel(int folder, int item, const std::wstring& label) override;
  void removeItem(int folder, int item) override { folders_.folder(folder).removeItem(item); }
  void setSmallIcons(bool smallIcons) override { smallIcons_ = smallIcons; }
  bool smallIcons() const override { return smallIcons_; }
  void setAnimation(int, int) override {}

  void makeIconLists(int) override { working_ = 0; }
  void takeIconLists(int folder) override { working_ = icons_.at(indexOf(folder)); }
  int addIcon(CSlideLibraryData& slides, const std::wstring& name) override;
  void giveIconLists(int folder) override;
  void dropIconLists() override { working_ = 0; }

  void repaint() override {}
  void repaintItems() override {}
  void repaintHeader(int) override {}

  // Nobody owns the boxes; a question that nobody answers is cancelled.
  int ask(const std::wstring& text, const std::wstring& caption, unsigned style) override;
  void notice(const std::wstring& text) override;

  const BarFolders& folders() const { return folders_; }
  int iconCount(int folder) const { return icons_.at(indexOf(folder)); }

 private:
  std::size_t indexOf(int folder) const;

  BarFolders folders_;
  std::vector<int> icons_;  // of each folder
  int working_ = 0;
  int openFolder_ = 0;
  bool smallIcons_ = true;
};

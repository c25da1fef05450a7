// What the library needs of the bar that shows it: a folder for each group, an item for each
// symbol. The library decides, and the bar shows at once what it is told.
#pragma once

#include <string>

class CSlideLibraryData;

class AuxiliaryBar {
 public:
  virtual ~AuxiliaryBar() = default;

  // --- what it shows; a bad index throws CInvalidArgException* ---
  virtual int folderCount() const = 0;
  virtual int openFolder() const = 0;  // may be none that exists
  virtual std::wstring folderName(int folder) const = 0;
  virtual int itemCount(int folder) const = 0;
  virtual std::wstring itemLabel(int folder, int item) const = 0;

  // --- changes; a bad index throws ---
  virtual void addFolder(const std::wstring& name, int data) = 0;
  virtual void setFolderName(int folder, const std::wstring& name) = 0;
  // If the open folder stood there or behind, the one before it is open, or else the first.
  virtual void removeFolder(int folder) = 0;
  virtual void selectFolder(int folder) = 0;
  virtual void insertItem(int folder, int at, const std::wstring& label, int image) = 0;
  virtual void setItemLabel(int folder, int item, const std::wstring& label) = 0;
  // No item is selected from then on. Images stay.
  virtual void removeItem(int folder, int item) = 0;
  virtual void setSmallIcons(bool smallIcons) = 0;
  virtual bool smallIcons() const = 0;
  // Milliseconds of a folder's step and between the jumps of the selected item.
  virtual void setAnimation(int folderStep, int itemInterval) = 0;

  // --- icons: a working pair of lists, small and large, is filled and given to a folder ---
  virtual void makeIconLists(int expected) = 0;
  virtual void takeIconLists(int folder) = 0;  // a folder's own, to add to them
  // The slide of that name in both sizes; its place in the large list. A slide that can't be shown
  // adds nothing: -1.
  virtual int addIcon(CSlideLibraryData& slides, const std::wstring& name) = 0;
  // The working lists, if made or taken since they were last given, become the folder's. A bad
  // index throws in any case.
  virtual void giveIconLists(int folder) = 0;
  // The last working lists no longer stand in for those of a folder without any.
  virtual void dropIconLists() = 0;

  // --- painting: all of it, the open folder's items, or one folder's header ---
  virtual void repaint() = 0;
  virtual void repaintItems() = 0;
  virtual void repaintHeader(int folder) = 0;

  // --- message boxes ---
  // The button's number; the bar owns the box.
  virtual int ask(const std::wstring& text, const std::wstring& caption, unsigned style) = 0;
  virtual void notice(const std::wstring& text) = 0;
};

// The auxiliary library behind its bar: what the bar's commands, notifications and clicks do. It
// changes the tree in memory, the group's files at once, and tells the bar what to show. The tree
// reaches the disk at each click on an item and at the end alone.
#pragma once

#include <string>

#include "auxiliary/auxiliary_bar.h"
#include "auxiliary/auxiliary_store.h"

// A new item, as NewItemKeys gives it.
struct NewItem {
  std::wstring folderPath;  // of the group, or the library's own with its final backslash
  std::wstring directory;
  std::wstring block;
  std::wstring label;
};

class AuxiliaryLibrary {
 public:
  // The bar outlives the library, and shows nothing yet.
  explicit AuxiliaryLibrary(AuxiliaryBar& bar) : bar_(bar) {}

  // Fills the bar from the store. A store whose index holds a group that isn't shown before one
  // that is throws CInvalidArgException* on the way; what the bar has got by then stays.
  void LoadStore();
  // The same for a bar that comes up in any case: what stops the filling is shown once.
  void fillBar();

  // --- groups ---
  void NewGroup();
  void RemoveGroup(int folder);  // asks first

  // --- items of the open folder ---
  void RemoveItem(int item);  // asks first
  void RemoveItemFiles(int item);
  // Without a block name where the group can't take an item; nothing has changed then.
  NewItem NewItemKeys();
  void RemoveItemKeys(const std::wstring& label);
  // Shows a new item behind the others, with its slide as icon.
  void AddItemImage(const std::wstring& slidePath, const std::wstring& block,
                    const std::wstring& label);

  // --- notifications ---
  void itemClicked(int item);
  // What a click on an item of any folder writes, without what it sends. False when there is no
  // such folder or item.
  bool chooseItem(int folder, int item);
  void itemRenamed(int item, const std::wstring& text);
  void folderRenamed(int folder, const std::wstring& text);
  // True when the bar shall move its item, too.
  bool itemMoved(int source, int target);
  // "N " to the command line: the placing command then adds a symbol of the drawing.
  void askForNewItem();

  // The bar's end: its icon state is stored, and the file written.
  void close();

  AuxiliaryBar& bar() { return bar_; }
  AuxiliaryStore& store() { return store_; }

 private:
  void loadFolder(int folder, const std::wstring& title);
  std::wstring openTitle() const { return bar_.folderName(bar_.openFolder()); }
  bool confirmed(const std::wstring& name, const wchar_t* kind);

  AuxiliaryBar& bar_;
  AuxiliaryStore store_;
};

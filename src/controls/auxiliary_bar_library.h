// Hands what the bar asks on to the auxiliary library.
#pragma once

#include "auxiliary/auxiliary_library.h"
#include "controls/bar_library.h"

class AuxiliaryBarLibrary : public BarLibrary {
 public:
  explicit AuxiliaryBarLibrary(AuxiliaryLibrary& library) : library_(library) {}

  void itemClicked(int item) override { library_.itemClicked(item); }
  void renameItem(int item, const std::wstring& text) override { library_.itemRenamed(item, text); }
  void renameFolder(int folder, const std::wstring& text) override {
    library_.folderRenamed(folder, text);
  }
  bool moveItem(int source, int target) override { return library_.itemMoved(source, target); }
  void addGroup() override { library_.NewGroup(); }
  void addItem() override { library_.askForNewItem(); }
  void removeGroup(int folder) override { library_.RemoveGroup(folder); }
  void removeItem(int item) override { library_.RemoveItem(item); }

 private:
  AuxiliaryLibrary& library_;
};

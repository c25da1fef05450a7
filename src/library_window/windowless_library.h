// A library window without windows: stores, selection and choice work, and showing changes nothing
// but a flag. It leaves the stored window geometry alone.
#pragma once

#include "auxiliary/auxiliary_library.h"
#include "controls/windowless_bar.h"
#include "library_window/library_window.h"

class WindowlessLibrary : public LibraryWindow {
 public:
  WindowlessLibrary();

  CZhlkLibStore& Store() override { return store_; }
  int GetFolderCount() override { return bar_.folderCount(); }
  AuxiliaryLibrary* Auxiliary() override { return &auxiliary_; }

  bool IsVisible() const override { return visible_; }
  bool IsMinimised() const override { return false; }
  void ShowWindow(int command) override { visible_ = command != kShowHide; }
  void UpdateWindow() override {}
  bool DestroyWindow() override;

  void SelectSlot(int slot) override { store_.SetSelection(slot); }
  bool ChooseItem(int folder, int item) override { return auxiliary_.chooseItem(folder, item); }

 private:
  ~WindowlessLibrary() override;

  CZhlkLibStore store_;
  WindowlessBar bar_;
  AuxiliaryLibrary auxiliary_{bar_};
  bool visible_ = false;
};

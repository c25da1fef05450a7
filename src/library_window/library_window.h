// What the commands need of the library window. The real window implements it, and so does a
// library without windows, so that commands run headless.
#pragma once

#include <string>

#include "platform/acad_module.h"
#include "store/library_store.h"

class AuxiliaryLibrary;

// Made on the heap, it sets the module's pointer when made by makeLibraryWindow. DestroyWindow ends
// it: the stores write their files, the pointer is cleared, the object deletes itself.
class LibraryWindow {
 public:
  LibraryWindow(const LibraryWindow&) = delete;
  LibraryWindow& operator=(const LibraryWindow&) = delete;

  virtual CZhlkLibStore& Store() = 0;
  virtual int GetFolderCount() = 0;  // folders of the auxiliary bar
  // What stands behind the bar; null while no symbol can be added to it.
  virtual AuxiliaryLibrary* Auxiliary() { return nullptr; }

  // The window calls, with the system's meaning; show commands are those below.
  virtual bool IsVisible() const = 0;
  virtual bool IsMinimised() const = 0;
  virtual void ShowWindow(int command) = 0;
  virtual void UpdateWindow() = 0;
  virtual bool DestroyWindow() = 0;

  // What a click on a slide and on an item of the bar write, without the text that they send.
  virtual void SelectSlot(int slot) = 0;
  // False when there is no such folder or item.
  virtual bool ChooseItem(int folder, int item) = 0;

 protected:
  LibraryWindow() = default;
  virtual ~LibraryWindow() = default;
};

constexpr int kShowHide = 0;               // SW_HIDE
constexpr int kShowNormal = 1;             // SW_SHOWNORMAL
constexpr int kShowWithoutActivating = 8;  // SW_SHOWNA

// The module's library window if there is one; nothing otherwise. A hidden window is shown without
// taking the focus, a minimised one restored.
void ShowLibraryWindow();
void HideLibraryWindow();

// Makes the library window, hidden: a real one for a host with windows, else the windowless one.
LibraryWindow* makeLibraryWindow(HWND host);

// What the bar asks of the library behind it. The bar has shown nothing yet when it asks: whoever
// answers changes the bar's folders as well as its own data.
#pragma once

#include <string>

class BarLibrary {
 public:
  virtual ~BarLibrary() = default;

  // Indices are of the open folder's items or of the bar's folders.
  virtual void itemClicked(int item) = 0;
  virtual void renameItem(int item, const std::wstring& text) = 0;
  virtual void renameFolder(int folder, const std::wstring& text) = 0;
  // True when the item may stand before the one at `target`; the bar then moves it.
  virtual bool moveItem(int source, int target) = 0;

  virtual void addGroup() = 0;
  virtual void addItem() = 0;
  virtual void removeGroup(int folder) = 0;
  virtual void removeItem(int item) = 0;
};

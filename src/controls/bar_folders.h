// The icon bar's folders and their items, without windows. A bad index throws
// CInvalidArgException*, unless told otherwise. Image lists and child windows are only pointed to.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class CImageList;
class CWnd;

struct CBarItem {
  int image = -1;                    // place in the folder's image lists; below 0 there is none
  std::optional<std::wstring> text;  // the label
  std::int32_t data = 0;
};

class CBarFolder {
 public:
  CBarFolder(std::wstring folderName, std::int32_t folderData)
      : name(std::move(folderName)), data(folderData) {}

  int GetItemCount() const { return static_cast<int>(items_.size()); }
  const CBarItem& item(int index) const;
  CBarItem& item(int index);
  // An index outside 0 to count appends. The index used.
  int InsertItem(int index, CBarItem item);
  void removeItem(int index);
  // The item stands in front of the one that had that index before; the count is behind the last.
  void moveItem(int from, int to);

  std::wstring name;
  std::int32_t data;
  CImageList* largeImages = nullptr;
  CImageList* smallImages = nullptr;
  CWnd* child = nullptr;  // stands in place of the items

 private:
  std::vector<CBarItem> items_;
};

constexpr int kSmallImages = 1;
constexpr int kLargeImages = 2;

class BarFolders {
 public:
  int GetFolderCount() const { return static_cast<int>(folders_.size()); }
  const CBarFolder& folder(int index) const;
  CBarFolder& folder(int index);
  // Null where the index is none: what paints or tests hits takes the list for empty.
  const CBarFolder* find(int index) const;

  int AddFolder(const std::wstring& name, std::int32_t data);  // the new index
  void removeFolder(int index);
  void clear() { folders_.clear(); }

  int InsertItem(int folderIndex, int index, CBarItem item);
  // The list that was set before; another kind than the two sets nothing and gives null.
  CImageList* SetFolderImageList(int index, CImageList* list, int kind);
  // The bar's working list stands in for a folder's that there isn't.
  CImageList* GetFolderImageList(int index, bool small) const;

  CImageList* workingLarge = nullptr;  // the lists being filled
  CImageList* workingSmall = nullptr;

 private:
  std::vector<std::unique_ptr<CBarFolder>> folders_;
};

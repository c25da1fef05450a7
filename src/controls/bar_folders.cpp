#include "controls/bar_folders.h"

#include <utility>

#include "platform/framework_exceptions.h"

namespace {

template <typename List>
auto& checked(List& list, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= list.size()) throw new CInvalidArgException;
  return list[static_cast<std::size_t>(index)];
}

}  // namespace

const CBarItem& CBarFolder::item(int index) const { return checked(items_, index); }
CBarItem& CBarFolder::item(int index) { return checked(items_, index); }

int CBarFolder::InsertItem(int index, CBarItem item) {
  if (index < 0 || index > GetItemCount()) index = GetItemCount();
  items_.insert(items_.begin() + index, std::move(item));
  return index;
}

void CBarFolder::removeItem(int index) {
  checked(items_, index);
  items_.erase(items_.begin() + index);
}

void CBarFolder::moveItem(int from, int to) {
  CBarItem moving = std::move(item(from));
  removeItem(from);
  InsertItem(to > from ? to - 1 : to, std::move(moving));
}

const CBarFolder& BarFolders::folder(int index) const { return *checked(folders_, index); }
CBarFolder& BarFolders::folder(int index) { return *checked(folders_, index); }

const CBarFolder* BarFolders::find(int index) const {
  return index >= 0 && index < GetFolderCount() ? &folder(index) : nullptr;
}

int BarFolders::AddFolder(const std::wstring& name, std::int32_t data) {
  folders_.push_back(std::make_unique<CBarFolder>(name, data));
  return GetFolderCount() - 1;
}

void BarFolders::removeFolder(int index) {
  checked(folders_, index);
  folders_.erase(folders_.begin() + index);
}

int BarFolders::InsertItem(int folderIndex, int index, CBarItem item) {
  return folder(folderIndex).InsertItem(index, std::move(item));
}

CImageList* BarFolders::SetFolderImageList(int index, CImageList* list, int kind) {
  CBarFolder& target = folder(index);
  switch (kind) {
    case kSmallImages: return std::exchange(target.smallImages, list);
    case kLargeImages: return std::exchange(target.largeImages, list);
    default: return nullptr;
  }
}

CImageList* BarFolders::GetFolderImageList(int index, bool small) const {
  const CBarFolder& from = folder(index);
  CImageList* const own = small ? from.smallImages : from.largeImages;
  if (own) return own;
  return small ? workingSmall : workingLarge;
}

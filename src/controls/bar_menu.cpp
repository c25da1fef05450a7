#include "controls/bar_menu.h"

#include <utility>

#include "controls/bar_commands.h"

namespace {

constexpr BarMenuEntry kSeparator{0, nullptr};
constexpr BarMenuEntry kEnlarge{ID_BAR_ENLARGE, L"放大"};
constexpr BarMenuEntry kReduce{ID_BAR_REDUCE, L"缩小"};
constexpr BarMenuEntry kDelete{ID_BAR_DELETE, L"删除"};
constexpr BarMenuEntry kRename{ID_BAR_RENAME, L"重命名"};
constexpr unsigned kClipboard = BARF_CUT | BARF_COPY | BARF_PASTE;
constexpr unsigned kChangeItem = BARF_DELETEITEM | BARF_RENAMEITEM;
constexpr unsigned kChangeFolder = BARF_DELETEFOLDER | BARF_RENAMEFOLDER | BARF_ADDFOLDER;
constexpr int kLastKeptFolder = 1;  // the first two folders are never deleted

class Entries {
 public:
  explicit Entries(unsigned flags) : flags_(flags) {}

  void add(const BarMenuEntry& entry) { entries_.push_back(entry); }
  void addIf(unsigned flag, const BarMenuEntry& entry) {
    if (any(flag)) add(entry);
  }
  bool any(unsigned flags) const { return (flags_ & flags) != 0; }
  bool all(unsigned flags) const { return (flags_ & flags) == flags; }

  void addSizes() {
    addIf(BARF_ENLARGE, kEnlarge);
    addIf(BARF_REDUCE, kReduce);
  }
  void addForItem() {
    addSizes();
    if (any(kChangeItem)) {
      add(kSeparator);
      addIf(BARF_DELETEITEM, kDelete);
      addIf(BARF_RENAMEITEM, kRename);
    }
    if (all(kClipboard)) {
      add(kSeparator);
      add({ID_BAR_CUT, L"剪切"});
      add({ID_BAR_COPY, L"拷贝"});
      add({ID_BAR_PASTE, L"粘贴"});
    }
  }
  void addForFolder(int index) {
    if (!any(kChangeFolder)) return;
    add(kSeparator);
    addIf(BARF_ADDFOLDER, {ID_BAR_ADD, L"添加..."});
    if (index > kLastKeptFolder) addIf(BARF_DELETEFOLDER, kDelete);
    addIf(BARF_RENAMEFOLDER, kRename);
  }
  // The separator stands also where nothing follows it.
  void addForBackground() {
    addSizes();
    add(kSeparator);
    addIf(BARF_ADDITEM, {ID_BAR_NEW, L"新建..."});
  }

  std::vector<BarMenuEntry> take() { return std::move(entries_); }

 private:
  unsigned flags_;
  std::vector<BarMenuEntry> entries_;
};

}  // namespace

std::vector<BarMenuEntry> barMenuEntries(BarHit hit, int index, unsigned flags) {
  Entries entries(flags);
  entries.add({ID_BAR_SMALL_ICONS, L"小图标"});
  entries.add({ID_BAR_LARGE_ICONS, L"大图标"});
  switch (hit) {
    case BarHit::Item: entries.addForItem(); break;
    case BarHit::Folder: entries.addForFolder(index); break;
    default: entries.addForBackground(); break;
  }
  return entries.take();
}

// The auxiliary library's tree: groups of symbols, each a folder of the bar, and the symbol chosen
// last. Knows titles, labels and names; icons and windows are the bar's. Keys:
//
//   索引                         titles of the groups in bar order, "&" behind each
//   图标状态                     "0" small icons, anything else large ones
//   数据\<title>                 the group's directory;  \类型 "0" for a group that is shown
//   数据\<title>\索引            labels of its items in bar order, "&" behind each
//   数据\<title>\数据\<label>    the item's block name
//   当前选择\块名, \类型         drawing and folder of the item clicked last
//
// A folder's index in the bar is its title's position in the list of titles; a bad one throws
// CInvalidArgException*. A title or label that is no single level of a key has no values, and a
// directory or block name that would lead out of the library's folder counts as none.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/framework_arrays.h"
#include "platform/quill_data.h"

// Name lists of the auxiliary library. SplitNameList returns 1 if the text held the separator, else
// 0 (the caller then empties the array). JoinNameList always returns 1.
int SplitNameList(const std::wstring& text, const std::wstring& separator, CStringArray& names);
int JoinNameList(std::wstring& text, const std::wstring& separator, const CStringArray& names);

// Writes a slide library without slides, 68 bytes, over whatever stands at the path. 1, or 0 when
// the file can't be opened or written.
int CreateEmptySlideLibrary(const wchar_t* path);

// The name within the folder, without a second backslash between them.
std::wstring inFolder(const std::wstring& folder, const std::wstring& name);

// What became of a new name: nothing can be renamed, another entry has it, the list with it would
// be longer than a value of the tree can be, or it holds.
enum class Renaming { nothing, taken, tooLong, done };

// A symbol by its files: <library>\<directory>\<block>.dwg.
struct SymbolFiles {
  std::wstring directory;
  std::wstring block;
};

class AuxiliaryStore {
 public:
  // Reads the store below the system folder; a missing file is an empty library.
  AuxiliaryStore();

  // --- reading ---
  // Titles of the groups that are shown, in bar order.
  std::vector<std::wstring> shownTitles() const;
  CStringArray titles() const;
  bool isShown(const std::wstring& title) const;
  bool largeIcons() const;
  // Labels of a folder's items; empty for a folder that isn't there.
  CStringArray labels(int folder) const;
  CStringArray labelsOf(const std::wstring& title) const;
  std::wstring directoryOf(const std::wstring& title) const;
  std::wstring blockOf(const std::wstring& title, const std::wstring& label) const;
  // The group's folder: for a group without directory the library's own, with its final backslash.
  // Then the slide library and a drawing in it.
  std::wstring folderPath(const std::wstring& directory) const;
  std::wstring slidePath(const std::wstring& directory) const;
  std::wstring drawingPath(const SymbolFiles& symbol) const;

  // --- groups ---
  bool hasRoomFor(const std::wstring& title) const;  // in the list of titles
  void addGroup(const std::wstring& title);
  void setDirectory(const std::wstring& title, const std::wstring& directory);
  // Takes the group out of list and tree; its directory, empty when it has none.
  std::wstring removeGroup(int folder);
  Renaming renameGroup(int folder, const std::wstring& text);

  // --- items ---
  // Puts the label at the end of the group, with a block name of its own. Without a block name, and
  // with nothing changed, where the list has no room or the title is no single level of a key.
  SymbolFiles addItem(const std::wstring& title, const std::wstring& label);
  // Undoes addItem. An unknown label leaves the list as it is.
  void removeItem(const std::wstring& title, const std::wstring& label);
  // Takes the item out of list and tree; its files, if its block name leads to any.
  std::optional<SymbolFiles> takeItem(const std::wstring& title, int item);
  Renaming renameItem(int folder, int item, const std::wstring& text);
  // The item is to stand before the one at `target`, another than itself and the next; the count is
  // behind the last. False in a group without items.
  bool moveItem(const std::wstring& title, int source, int target);

  // --- the choice, and the file ---
  // What a click on an item writes: the item's drawing and the folder index as the choice, then the
  // whole file. False when the folder or item has no names; the file is written all the same.
  bool chooseItem(int folder, const std::wstring& label);
  // The bar's last act: the icon state, and the whole file.
  void close(bool largeIcons);

  CQuillDpData& tree() { return tree_; }
  const std::wstring& directory() const { return directory_; }  // with its final backslash

 private:
  CStringArray list(const std::wstring& key) const;
  static bool fits(const CStringArray& names);
  void storeList(const std::wstring& key, const CStringArray& names);
  bool hasValue(const std::wstring& key) const;
  std::wstring value(const std::wstring& key) const;
  bool writeChoice(int folder, const std::wstring& label);

  std::wstring directory_;
  std::wstring path_;
  CQuillDpData tree_;
};

// The auxiliary library's tree: groups of symbols, each a folder of the bar, and the symbol chosen
// last. Knows titles, labels and names; icons and windows are the bar's. Keys:
//
//   索引                         titles of the groups in bar order, "&" behind each
//   图标状态                     "0" small icons, anything else large ones
//   数据\<title>                 the group's directory;  \类型 "0" for a group that is shown
//   数据\<title>\索引            labels of its items in bar order, "&" behind each
//   数据\<title>\数据\<label>    the item's block name
//   当前选择\块名, \类型         drawing and folder of the item clicked last
#pragma once

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

class AuxiliaryStore {
 public:
  // Reads the store below the system folder; a missing file is an empty library.
  AuxiliaryStore();

  // Titles of the groups that are shown, in bar order.
  std::vector<std::wstring> shownTitles() const;
  bool largeIcons() const;

  // What a click on an item writes: the item's drawing and the folder index as the choice, then the
  // whole file. False when the folder or item has no names; the file is written all the same.
  bool chooseItem(int folder, const std::wstring& label);
  // Labels of a folder's items; empty for a folder that isn't there.
  CStringArray labels(int folder) const;

  // The bar's last act: the icon state, and the whole file.
  void close(bool largeIcons);

  CQuillDpData& tree() { return tree_; }
  const std::wstring& directory() const { return directory_; }  // with its final backslash

 private:
  CStringArray titles() const;
  CStringArray list(const std::wstring& key) const;
  std::wstring value(const std::wstring& key) const;
  bool writeChoice(int folder, const std::wstring& label);

  std::wstring directory_;
  std::wstring path_;
  CQuillDpData tree_;
};

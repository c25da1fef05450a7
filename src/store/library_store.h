// CZhlkLibStore: the library of main circuits. A tree file holds the list of circuit names and a
// data row a circuit, a slide library their slides under the same names. A circuit's place in the
// list is its slot, counted from 0.
//
// Changes stay in memory until Save, with which every action of the user ends. Nothing here shows a
// message, save that a list or row too long for the tree is refused. An index beyond the stored
// list where an operation doesn't test it throws CInvalidArgException*.
#pragma once

#include <cstdint>
#include <string>

#include "platform/framework_arrays.h"
#include "platform/framework_text.h"
#include "platform/quill_data.h"
#include "platform/slide_store.h"

class CZhlkLibStore {
 public:
  // Reads both files below the system folder; a file that can't be read is an empty library.
  CZhlkLibStore();
  ~CZhlkLibStore();  // saves
  CZhlkLibStore(const CZhlkLibStore&) = delete;
  CZhlkLibStore& operator=(const CZhlkLibStore&) = delete;

  void Save();

  // Slots in the list; -1 when the library doesn't say. The stored length counts, not the list.
  std::int16_t GetCount();
  // Appends the names to the array; 0 when there is no list, and the array stays as it is.
  int ReadNameList(CStringArray& names);
  // 1 with the slot's name, which may be empty; 0 and an empty name outside the list.
  int GetNameAt(int index, CString& name);
  // 1 with the slot's data row, or that of the template for a free slot or an index outside the
  // list. 0 without touching the row when there is none.
  int GetRowAt(int index, CString& row);
  int SetRowAt(int index, const CString& row);  // 0 when the slot has no name
  // Puts a name into the list at the index and stores its row. Beyond the end the gap is filled
  // with free slots. 0, or -1 for a negative index or what doesn't fit.
  int InsertCircuit(int index, const CString& row, const CString& name);
  int RenameAt(int index, const CString& newName);  // 1 or 0; the row moves along
  // Frees the slot and removes its row; free slots at the end go. 0, -1 or -2 (no list).
  int DeleteAt(int index);
  int HasCircuit(int index);

  int CopyToClipboard(int index);  // the slot's number only; a paste reads the row then. 1
  int GetClipboard(CString& number);
  int CanPaste(int index);  // 1 when the slot is free and something was copied

  // View state: what the window remembers, as decimal texts in the tree.
  std::int32_t GetViewX();
  std::int32_t GetViewY();
  std::int32_t GetViewWidth();
  std::int32_t GetViewHeight();
  void SetViewX(std::int32_t value);
  void SetViewY(std::int32_t value);
  void SetViewWidth(std::int32_t value);
  void SetViewHeight(std::int32_t value);
  // Rows and columns of a page. A stored text of one number throws CInvalidArgException*.
  void GetGridSize(int& rows, int& columns);
  void SetGridSize(int rows, int columns);
  std::int32_t GetMode();  // 0 draws, anything else edits
  void SetMode(std::int32_t mode);
  std::int16_t GetSelection();  // the selected slot
  void SetSelection(std::int32_t slot);
  std::int32_t GetPage();  // counted from 1
  void SetPage(std::int32_t page);
  std::int32_t GetAuxFlag();  // 1 hides the auxiliary bar
  void SetAuxFlag(std::int32_t flag);

  // "01" to "09", then "10" and so on.
  static CString NumberText(int index);
  // "主回路&" and the number text.
  static CString CircuitName(int index);

  CSlbMan& Slides() { return slides_; }
  const std::wstring& SlidePath() const { return slidePath_; }

 private:
  std::int32_t getNumber(const wchar_t* key, std::int32_t fallback);
  void setNumber(const wchar_t* key, std::int32_t value);
  const CQuillDpNode* read(const std::wstring& key);
  void writeNames(const CStringArray& names);
  void writeLength(const CStringArray& names);

  std::wstring slidePath_;
  int unused_[3] = {1, 1, 0};  // stored by the library window's earlier forms, read by nothing
  CSlbMan slides_;
  wchar_t separator_ = L'\x03';
  std::wstring treePath_;
  CQuillDpData tree_;
  const CQuillDpNode* lastNode_ = nullptr;  // of the last read
};

// CQuillDpData: a tree of keys with values, in memory and as a file. A key is a path of names
// separated by backslashes; several backslashes in a row count as one, and case counts.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

// A node as callers read it. Length 0: no value. Text: wide characters with the terminator, so 1 is
// the empty text. Bytes: their number.
struct CQuillDpNode {
  std::int16_t length = 0;
  const void* data = nullptr;  // owned by the tree, aligned for wide characters
  bool bytes = false;          // the value is bytes and no text

  // The value as text without its terminator; empty when there is none, and for bytes.
  std::wstring text() const;
};

class CQuillDpData {
 public:
  CQuillDpData();
  ~CQuillDpData();
  CQuillDpData(const CQuillDpData&) = delete;
  CQuillDpData& operator=(const CQuillDpData&) = delete;

  // Replaces the tree by the file's. 1, or 0 when the file is missing, can't be read or is damaged:
  // the tree is then empty. A damaged file is never overwritten (WriteDataToQdpFile).
  std::int16_t ReadDataFromQdpFile(const wchar_t* path);
  // Writes the tree, keeping the old file as .bak. 1, or 0 with a message on the command line and
  // the old file intact. A tree that wasn't changed since it was read or written isn't written
  // again. If the file changed on disk since it was read, this tree's changed keys are put onto it.
  // A file that could not be read is first moved to NAME.damaged-N, with one message.
  std::int16_t WriteDataToQdpFile(const wchar_t* path);

  // Null when there is no such node. Good until the next change of the tree. The first argument is
  // always 0.
  const CQuillDpNode* GetSubValueFromPathW(std::int16_t mode, const wchar_t* path) const;
  // Sets a text value of length wide characters, terminator included, and makes missing levels. 1,
  // or 0 for an empty path or a negative length.
  std::int16_t SetSubValueW(const wchar_t* path, std::int16_t length, const wchar_t* data,
                            std::int32_t flag);
  std::int16_t SetSubValueForByteW(const wchar_t* path, std::int16_t length,
                                   const std::uint8_t* data);
  // Removes the node and all below it. 0 when there is none.
  std::int16_t DeleteSubKeyW(const wchar_t* path);
  // Gives the node another last name; value and children stay. A node that has that name already is
  // replaced. 0 when there is no such node or the name is empty.
  std::int16_t RenameSubKeyW(const wchar_t* path, const wchar_t* newName);

  // Visits every node in order of insertion, parents before children, with its full path.
  void visit(
      const std::function<void(const std::wstring& path, const CQuillDpNode& node)>& visitor) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

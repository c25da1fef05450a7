// The framework's files. Paths may have backslashes and any case; they are found as the library
// wrote them on every system.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/framework_exceptions.h"
#include "platform/framework_text.h"

struct CFileStatus {
  std::uint64_t m_size = 0;  // bytes
  std::int64_t m_mtime = 0;  // seconds since 1970
  bool m_directory = false;
  bool m_readOnly = false;
  std::wstring m_szFullName;
};

class CFile {
 public:
  enum OpenFlags : std::uint32_t {
    modeRead = 0x0,
    modeWrite = 0x1,
    modeReadWrite = 0x2,
    shareDenyNone = 0x40,
    modeCreate = 0x1000,  // truncates, unless modeNoTruncate is given too
    modeNoTruncate = 0x2000,
    typeText = 0x4000,
    typeBinary = 0x8000,
  };
  enum SeekPosition { begin = 0, current = 1, end = 2 };

  CFile() = default;
  virtual ~CFile();
  CFile(const CFile&) = delete;
  CFile& operator=(const CFile&) = delete;

  // False when the file can't be opened. The calls below need an open file and throw
  // CFileException* when reading or writing fails.
  bool Open(const wchar_t* path, std::uint32_t flags);
  std::uint32_t Read(void* buffer, std::uint32_t count);  // bytes read, fewer at the end
  void Write(const void* buffer, std::uint32_t count);
  std::int64_t Seek(std::int64_t offset, SeekPosition from);
  std::uint64_t GetPosition() const;
  std::uint64_t GetLength() const;
  void Flush();
  void Close();  // quiet on a file that isn't open
  const std::wstring& GetFilePath() const { return path_; }

  // False when there is no such file.
  static bool GetStatus(const wchar_t* path, CFileStatus& status);
  // These throw CFileException* on failure.
  static void Remove(const wchar_t* path);
  static void Rename(const wchar_t* from, const wchar_t* to);

 protected:
  std::FILE* stream() const { return stream_; }

 private:
  [[noreturn]] void fail() const;
  std::FILE* stream_ = nullptr;
  bool reading_ = true;  // the last call read, or none was made
  std::wstring path_;
};

// Lines of ANSI text.
class CStdioFile : public CFile {
 public:
  // The next line without its end; false at the end of the file.
  bool ReadString(CString& line);
  void WriteString(const wchar_t* text);  // "\n" is written as CR LF, as the files have it
};

// --- folders; links are told apart and never followed ---
struct FolderEntry {
  std::wstring name;
  bool folder = false;  // false for a link to one
};

// What stands in a folder, without "." and ".."; nothing where it can't be read.
std::vector<FolderEntry> folderEntries(const std::wstring& path);
bool isFolder(const std::wstring& path);  // or a link to one
bool isLink(const std::wstring& path);    // of any kind; its target may be missing
// False when something of that name is there already, or the folder can't be made.
bool makeFolder(const std::wstring& path);
// Removes a file, an empty folder or a link itself. False when it stays.
bool removeEntry(const std::wstring& path);

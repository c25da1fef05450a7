// CFile and CStdioFile over the runtime's streams.
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <chrono>
#include <filesystem>
#include <system_error>

#include "embedded/base/paths.h"
#include "platform/framework_files.h"
#include "platform/framework_runtime.h"

namespace fs = std::filesystem;

namespace {

std::int64_t tell(std::FILE* stream) {
#ifdef _WIN32
  return _ftelli64(stream);
#else
  return ftello(stream);
#endif
}

bool seek(std::FILE* stream, std::int64_t offset, int whence) {
#ifdef _WIN32
  return _fseeki64(stream, offset, whence) == 0;
#else
  return fseeko(stream, offset, whence) == 0;
#endif
}

const wchar_t* modeFor(std::uint32_t flags, bool present) {
  const bool writes = (flags & (CFile::modeWrite | CFile::modeReadWrite)) != 0;
  const bool creates = (flags & CFile::modeCreate) != 0;
  const bool keeps = (flags & CFile::modeNoTruncate) != 0 && present;
  if (creates && !keeps) return L"w+b";
  return writes ? L"r+b" : L"rb";
}

std::int64_t secondsOf(fs::file_time_type time) {
  using namespace std::chrono;
  const auto system = system_clock::now() + duration_cast<system_clock::duration>(
                                                time - fs::file_time_type::clock::now());
  return duration_cast<seconds>(system.time_since_epoch()).count();
}

}  // namespace

CFile::~CFile() {
  if (stream_) std::fclose(stream_);
}

bool CFile::Open(const wchar_t* path, std::uint32_t flags) {
  Close();
  const bool present = (flags & modeNoTruncate) == 0 || fileExists(path);
  stream_ = openFile(path, modeFor(flags, present));
  path_ = path;
  return stream_ != nullptr;
}

std::uint32_t CFile::Read(void* buffer, std::uint32_t count) {
  if (!stream_) fail();
  // Between writing and reading a stream must be positioned.
  if (!reading_ && !seek(stream_, 0, SEEK_CUR)) fail();
  reading_ = true;
  const std::size_t got = std::fread(buffer, 1, count, stream_);
  if (got < count && std::ferror(stream_)) fail();
  return static_cast<std::uint32_t>(got);
}

void CFile::Write(const void* buffer, std::uint32_t count) {
  if (!stream_) fail();
  if (reading_ && !seek(stream_, 0, SEEK_CUR)) fail();
  reading_ = false;
  if (std::fwrite(buffer, 1, count, stream_) != count) fail();
}

std::int64_t CFile::Seek(std::int64_t offset, SeekPosition from) {
  constexpr int kWhence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
  if (!stream_ || !seek(stream_, offset, kWhence[from])) fail();
  return tell(stream_);
}

std::uint64_t CFile::GetPosition() const {
  if (!stream_) fail();
  return static_cast<std::uint64_t>(tell(stream_));
}

std::uint64_t CFile::GetLength() const {
  if (!stream_) fail();
#ifndef _WIN32
  struct stat found {};
  if (reading_ && ::fstat(::fileno(stream_), &found) == 0)
    return static_cast<std::uint64_t>(found.st_size);
#endif
  const std::int64_t here = tell(stream_);
  if (!seek(stream_, 0, SEEK_END)) fail();
  const std::int64_t length = tell(stream_);
  if (!seek(stream_, here, SEEK_SET)) fail();
  return static_cast<std::uint64_t>(length);
}

void CFile::Flush() {
  if (stream_ && std::fflush(stream_) != 0) fail();
}

void CFile::Close() {
  if (!stream_) return;
  const bool closed = std::fclose(stream_) == 0;
  stream_ = nullptr;
  reading_ = true;
  if (!closed) fail();
}

void CFile::fail() const { AfxThrowFileException(path_); }

bool CFile::GetStatus(const wchar_t* path, CFileStatus& status) {
  std::error_code error;
  const fs::path resolved = base::resolvePath(path);
  const fs::file_status found = fs::status(resolved, error);
  if (!fs::exists(found)) return false;
  status.m_directory = fs::is_directory(found);
  status.m_size = status.m_directory ? 0 : fs::file_size(resolved, error);
  status.m_mtime = secondsOf(fs::last_write_time(resolved, error));
  status.m_readOnly = (found.permissions() & fs::perms::owner_write) == fs::perms::none;
  status.m_szFullName = path;
  return true;
}

void CFile::Remove(const wchar_t* path) {
  if (!removeFile(path)) AfxThrowFileException(path);
}

void CFile::Rename(const wchar_t* from, const wchar_t* to) {
  std::error_code error;
  fs::rename(base::resolvePath(from), base::resolvePath(to), error);
  if (error) AfxThrowFileException(from);
}

bool CStdioFile::ReadString(CString& line) {
  if (!stream()) AfxThrowFileException(GetFilePath());
  std::string bytes;
  int c = EOF;
  while ((c = std::fgetc(stream())) != EOF && c != '\n') bytes += static_cast<char>(c);
  if (c == EOF && bytes.empty()) return false;
  if (!bytes.empty() && bytes.back() == '\r') bytes.pop_back();
  line = wideFromAnsi(bytes);
  return true;
}

void CStdioFile::WriteString(const wchar_t* text) {
  std::string bytes;
  for (const char c : ansiFromWide(text)) {
    if (c == '\n') bytes += '\r';
    bytes += c;
  }
  Write(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
}

// The framework's exceptions. They are thrown as pointers, as the framework has it, and caught as
// CException* by the host and the message dispatch; whoever catches one calls Delete on it.
#pragma once

#include <string>
#include <utility>

class CException {
 public:
  virtual ~CException() = default;
  virtual std::wstring Message() const = 0;
  void Delete() { delete this; }
};

// A bad index or argument.
class CInvalidArgException : public CException {
 public:
  std::wstring Message() const override;
};

// Reading or writing an open file failed.
class CFileException : public CException {
 public:
  explicit CFileException(std::wstring path) : path_(std::move(path)) {}
  std::wstring Message() const override;
  const std::wstring& path() const { return path_; }

 private:
  std::wstring path_;
};

[[noreturn]] void AfxThrowInvalidArgException();
[[noreturn]] void AfxThrowFileException(const std::wstring& path);

// Status and Result: how the environment reports failure. A status is either good or carries one
// sentence for the user that names the file, the offset where there is one, and the reason.
#pragma once

#include <string>
#include <utility>

namespace base {

// Result of an operation without a value. Good by default; the message of a bad one is UTF-8.
class [[nodiscard]] Status {
 public:
  Status() = default;

  static Status failure(std::string message) {
    Status status;
    status.message_ = std::move(message);
    status.ok_ = false;
    return status;
  }

  bool ok() const { return ok_; }
  const std::string& message() const { return message_; }
  explicit operator bool() const { return ok_; }

 private:
  bool ok_ = true;
  std::string message_;
};

// A value or the reason why there is none. `value` may be read only when `ok()`.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : value_(std::move(value)) {}
  Result(Status status) : status_(std::move(status)) {}

  bool ok() const { return status_.ok(); }
  explicit operator bool() const { return ok(); }
  const Status& status() const { return status_; }
  const std::string& message() const { return status_.message(); }

  T& value() { return value_; }
  const T& value() const { return value_; }
  T& operator*() { return value_; }
  const T& operator*() const { return value_; }
  T* operator->() { return &value_; }
  const T* operator->() const { return &value_; }

 private:
  Status status_;
  T value_{};
};

}  // namespace base

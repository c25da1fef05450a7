// ValueChain: a chain of host values that is released at the end of its life.
#pragma once

#include <string>

#include "platform/acad_geometry.h"
#include "platform/acad_result.h"

class ValueChain {
 public:
  ValueChain() = default;
  explicit ValueChain(resbuf* chain) : head_(chain) {}  // takes the chain over
  ~ValueChain() { acutRelRb(head_); }
  ValueChain(const ValueChain&) = delete;
  ValueChain& operator=(const ValueChain&) = delete;

  const resbuf* get() const { return head_; }
  resbuf* get() { return head_; }
  explicit operator bool() const { return head_ != nullptr; }

  void appendText(int type, const std::wstring& text);
  void appendShort(int type, std::int16_t value);
  void appendPoint(int type, const AcGePoint3d& point);

 private:
  resbuf* append(int type);
  resbuf* head_ = nullptr;
  resbuf* tail_ = nullptr;
};

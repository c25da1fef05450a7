// Handle to object, in pages. Handles of drawings are dense from 1 on, so a page is found by
// indexing; those of a hostile or strange file may lie anywhere, so that pages beyond the dense
// part are kept in a map: the memory used is bounded by the number of objects either way.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <vector>

#include "embedded/drafting/database/object.h"

namespace drafting {

class HandleTable {
 public:
  Object* find(Handle handle) const {
    const Page* page = pageOf(handle / kPageSize);
    return page ? (*page)[handle % kPageSize].get() : nullptr;
  }
  // False if the handle is 0 or taken; `object` is then left alone.
  bool insert(std::unique_ptr<Object>& object);
  std::unique_ptr<Object> remove(Handle handle);
  std::size_t size() const { return size_; }
  Handle highest() const { return highest_; }  // ever inserted

  // f(Object&) in handle order; f must neither insert nor remove.
  template <class F>
  void forEach(F f) const {
    for (const auto& page : dense_) visitPage(page.get(), f);
    for (const auto& [number, page] : sparse_) visitPage(page.get(), f);
  }

 private:
  static constexpr Handle kPageSize = 64;
  static constexpr Handle kDensePages = Handle{1} << 20;  // handles below 64 Mi
  using Page = std::array<std::unique_ptr<Object>, kPageSize>;

  const Page* pageOf(Handle number) const {
    if (number < dense_.size()) return dense_[number].get();
    if (number < kDensePages) return nullptr;
    const auto found = sparse_.find(number);
    return found == sparse_.end() ? nullptr : found->second.get();
  }
  Page& makePage(Handle number);

  template <class F>
  static void visitPage(const Page* page, F& f) {
    if (!page) return;
    for (const auto& object : *page) {
      if (object) f(*object);
    }
  }

  std::vector<std::unique_ptr<Page>> dense_;
  std::map<Handle, std::unique_ptr<Page>> sparse_;
  std::size_t size_ = 0;
  Handle highest_ = 0;
};

}  // namespace drafting

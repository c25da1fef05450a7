#include "embedded/drafting/database/handle_table.h"

#include <algorithm>

namespace drafting {

HandleTable::Page& HandleTable::makePage(Handle number) {
  if (number >= kDensePages) {
    auto& page = sparse_[number];
    if (!page) page = std::make_unique<Page>();
    return *page;
  }
  if (number >= dense_.size()) dense_.resize(number + 1);
  if (!dense_[number]) dense_[number] = std::make_unique<Page>();
  return *dense_[number];
}

bool HandleTable::insert(std::unique_ptr<Object>& object) {
  const Handle handle = object->handle;
  if (handle == 0) return false;
  auto& slot = makePage(handle / kPageSize)[handle % kPageSize];
  if (slot) return false;
  slot = std::move(object);
  highest_ = std::max(highest_, handle);
  ++size_;
  return true;
}

std::unique_ptr<Object> HandleTable::remove(Handle handle) {
  if (!find(handle)) return nullptr;
  --size_;
  return std::move(makePage(handle / kPageSize)[handle % kPageSize]);
}

}  // namespace drafting

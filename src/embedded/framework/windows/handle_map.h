// Which object stands for a handle of the system. Objects that own their handle are permanent; for
// any other handle a temporary object is made on demand, which lasts until the next idle time.
#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

namespace framework {

// Base is the objects' common class; Handle the system's.
template <typename Base, typename Handle>
class HandleMap {
 public:
  Base* permanent(Handle handle) const {
    const auto found = permanent_.find(handle);
    return found == permanent_.end() ? nullptr : found->second;
  }
  void add(Handle handle, Base* object) { permanent_[handle] = object; }
  void remove(Handle handle) { permanent_.erase(handle); }

  // The permanent object, if it is of that type; else a temporary one, whose handle assign(object,
  // handle) sets. Null for null.
  template <typename Object, typename Assign>
  Object* find(Handle handle, Assign assign) {
    if (!handle) return nullptr;
    if (auto* object = dynamic_cast<Object*>(permanent(handle))) return object;
    auto& temporary = temporary_[handle];
    for (const auto& one : temporary) {
      if (auto* object = dynamic_cast<Object*>(one.get())) return object;
    }
    temporary.push_back(std::make_unique<Object>());
    assign(*temporary.back(), handle);
    return static_cast<Object*>(temporary.back().get());
  }

  // clear(object) takes the handle away first, so that the object's end leaves it alone.
  template <typename Clear>
  void deleteTemporary(Clear clear) {
    const auto gone = std::move(temporary_);
    temporary_.clear();
    for (const auto& [handle, objects] : gone) {
      for (const auto& object : objects) clear(*object);
    }
  }
  std::size_t temporaryCount() const { return temporary_.size(); }

 private:
  std::unordered_map<Handle, Base*> permanent_;
  std::unordered_map<Handle, std::vector<std::unique_ptr<Base>>> temporary_;
};

}  // namespace framework

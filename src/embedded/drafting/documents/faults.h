// Faults: makes a host service fail at its n-th call, so that tests reach every failure path.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace drafting {

class Faults {
 public:
  // The `call`-th call from now on (1 is the next) of the named service fails; `repeat` lets all
  // later ones fail too. Services carry the name of their function ("acdbEntLast").
  void failAt(std::string_view service, int call, bool repeat = false) {
    plans_.insert_or_assign(std::string(service), Plan{call, repeat});
  }
  void clear() { plans_.clear(); }

  // Asked by each service as it starts.
  bool fails(std::string_view service) {
    if (plans_.empty()) return false;
    const auto plan = plans_.find(service);
    if (plan == plans_.end()) return false;
    const int left = --plan->second.callsLeft;
    return left == 0 || (left < 0 && plan->second.repeat);
  }

 private:
  struct Plan {
    int callsLeft;
    bool repeat;
  };
  std::map<std::string, Plan, std::less<>> plans_;
};

}  // namespace drafting

#include "controls/pause.h"

#include <chrono>
#include <thread>
#include <utility>

namespace {

std::function<void(int)>& replacement() {
  static std::function<void(int)> function;
  return function;
}

}  // namespace

void pauseFor(int milliseconds) {
  if (replacement()) return replacement()(milliseconds);
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void setPause(std::function<void(int)> pause) { replacement() = std::move(pause); }

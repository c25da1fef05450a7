// The wait cursor goes to whoever has windows.
#include <utility>

#include "platform/framework_wait_cursor.h"

namespace {

std::function<void(WaitCursor)>& handler() {
  static std::function<void(WaitCursor)> current;
  return current;
}

void tell(WaitCursor change) {
  if (handler()) handler()(change);
}

}  // namespace

void BeginWaitCursor() { tell(WaitCursor::Begin); }
void RestoreWaitCursor() { tell(WaitCursor::Restore); }

void setWaitCursorHandler(std::function<void(WaitCursor)> next) { handler() = std::move(next); }

// Message boxes without windows.
#include <utility>

#include "platform/acad_command.h"
#include "platform/framework_messages.h"

namespace {

constexpr unsigned kButtons = 0xF;  // the style's bits that tell the buttons

std::function<int(const MessageBoxCall&)>& handler() {
  static std::function<int(const MessageBoxCall&)> current;
  return current;
}

int printed(const MessageBoxCall& call) {
  acutPrintf(L"\n%s: %s", call.caption.c_str(), call.text.c_str());
  return (call.style & kButtons) == kMessageOk ? kMessageAnswerOk : kMessageAnswerCancel;
}

}  // namespace

int showMessageBox(const MessageBoxCall& call) {
  // A copy, since the handler may set another one.
  const auto current = handler();
  return current ? current(call) : printed(call);
}

std::function<int(const MessageBoxCall&)> setMessageBoxHandler(
    std::function<int(const MessageBoxCall&)> next) {
  return std::exchange(handler(), std::move(next));
}

#include "programs/desktop/boxes.h"

#include "embedded/base/text.h"
#include "platform/framework_messages.h"

namespace desktop {

namespace {

// Styles and answers as the system numbers them.
constexpr unsigned kYesNoCancel = 3, kYesNo = 4, kQuestionSign = 0x20, kWarningSign = 0x30;
constexpr int kYes = 6, kNo = 7;

int show(const drafting::Session& session, std::string_view text, unsigned style) {
  return showMessageBox(
      {session.mainWindow, base::wideFromUtf8(text), std::wstring(kProgramTitle), style});
}

Reply replyOf(int answer) {
  return answer == kYes ? Reply::Yes : answer == kNo ? Reply::No : Reply::Cancel;
}

}  // namespace

void warn(const drafting::Session& session, std::string_view text) {
  show(session, text, kWarningSign);
}

Reply askYesNo(const drafting::Session& session, std::string_view text) {
  return replyOf(show(session, text, kYesNo | kQuestionSign));
}

Reply askYesNoCancel(const drafting::Session& session, std::string_view text) {
  return replyOf(show(session, text, kYesNoCancel | kQuestionSign));
}

}  // namespace desktop

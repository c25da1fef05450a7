// The command line's output of a test program.
#include "support/transcript.h"

#include <utility>

#include "platform/acad_command.h"
#include "platform/framework_text.h"

namespace {
std::wstring& transcript() {
  static std::wstring text;
  return text;
}
}  // namespace

int acutPrintf(const wchar_t* format, ...) {
  CString line;
  std::va_list arguments;
  va_start(arguments, format);
  line.FormatV(format, arguments);
  va_end(arguments);
  transcript() += line.wide();
  return RTNORM;
}

std::wstring test::takeTranscript() { return std::exchange(transcript(), {}); }

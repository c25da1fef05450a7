#include "embedded/drafting/host/host_state.h"

#include <algorithm>

namespace drafting {

AcDbDatabaseState& currentState(Session& session) {
  Document& document = session.document();
  if (!document.state) document.state = std::make_shared<AcDbDatabaseState>(*document.database);
  return *document.state;
}

Document::~Document() {
  if (state) state->close();
}

void copyText(wchar_t* buffer, std::string_view utf8) {
  const std::wstring wide = base::wideFromUtf8(utf8);
  const std::size_t length = std::min<std::size_t>(wide.size(), kAcadTextLimit - 1);
  std::copy_n(wide.begin(), length, buffer);
  buffer[length] = 0;
}

}  // namespace drafting

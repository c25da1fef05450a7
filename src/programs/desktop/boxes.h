// The desktop's message boxes: all owned by its window and shown through the framework's one
// function, so that tests can answer them.
#pragma once

#include <string_view>

#include "embedded/drafting/documents/session.h"

namespace desktop {

inline constexpr std::wstring_view kProgramTitle = L"Vornikplan10";

enum class Reply { Yes, No, Cancel };

void warn(const drafting::Session& session, std::string_view text);
// Cancel comes also where nobody can answer.
Reply askYesNo(const drafting::Session& session, std::string_view text);
Reply askYesNoCancel(const drafting::Session& session, std::string_view text);

}  // namespace desktop

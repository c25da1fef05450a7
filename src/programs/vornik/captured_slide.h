// Slides of the library's circuits, captured as the module does.
#pragma once

#include <string>

#include "embedded/base/status.h"
#include "platform/slide_store.h"
#include "programs/vornik/parts_list.h"
#include "store/library_store.h"

namespace vornik {

// The slide of the row under that name, or the message that a capture would show.
base::Result<std::string> captureSlide(const std::wstring& row, const std::wstring& name);

// Captures every circuit of the library in use anew and saves; needs a session. What fails is told
// to `note`, and the first of it is the status.
base::Status captureLibrary(const Note& note);

// The stored slide; empty when there is none.
std::string storedSlide(const CSlbMan& library, const std::wstring& name);

}  // namespace vornik

// The fonts of a drawing's texts: by their style, and by what paragraphs say.
#pragma once

#include <filesystem>

#include "embedded/drafting/database/database.h"
#include "embedded/drafting/display/mtext_layout.h"
#include "embedded/drafting/fonts/font_library.h"

namespace drafting {

// Where the files are found.
struct FontSource {
  FontLibrary& library;
  std::filesystem::path drawingFolder;
};

// A font that is missing or damaged is replaced, and said so in `notes`.
TextFont fontOfStyle(const Database& database, Handle style, const FontSource& source,
                     std::vector<std::string>* notes = nullptr);

// What a paragraph of the style looks like. The library must outlive it.
ParagraphStyle paragraphStyle(const Database& database, Handle style, TextFont font,
                              const FontSource& source);

}  // namespace drafting

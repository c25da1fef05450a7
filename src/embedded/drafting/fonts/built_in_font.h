// The fonts that the program carries: Latin letters, digits and signs of drawings as a unifont, the
// common Chinese characters as a big font. They are compiled from the tables below glyphs/, and are
// read like any file, so that what a file of them draws is what the program draws without it.
#pragma once

#include <memory>
#include <string>

#include "embedded/drafting/fonts/shape_font.h"

namespace drafting {

// Made at the first call.
const std::shared_ptr<const ShapeFont>& builtInLatin();
const std::shared_ptr<const ShapeFont>& builtInBigFont();

// The bytes of their files. Whoever gives these away gives the licences along; glyphs/README.md
// tells them.
const std::string& builtInLatinFile();
const std::string& builtInBigFontFile();

}  // namespace drafting

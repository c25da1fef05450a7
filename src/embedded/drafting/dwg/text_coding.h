// Texts between a drawing's bytes and UTF-8: code page, the notations \U+XXXX and \M+nXXXX for
// characters outside it, and the closing zero that some programs count in.
#pragma once

#include <string>
#include <string_view>

namespace drafting {

// "Code page" of texts that are UTF-8 as they stand: images of the journal.
inline constexpr int kPlainUtf8 = 0;

// One closing zero is taken off; escapes become their characters. Half a surrogate pair stays an
// escape, so that it can't be mistaken for a carried byte.
std::string decodeText(std::string_view bytes, int codePage);

// The second half of that, for texts that are UTF-8 already.
std::string decodeEscapes(std::string text);

// Characters outside the code page become \U+XXXX.
std::string encodeText(std::string_view utf8, int codePage);

bool isAscii(std::string_view text);

}  // namespace drafting

// Code pages and numbers on any bytes: nothing is lost, and what is written reads back.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

void checkCodePages(std::string_view bytes) {
  for (const int page : {936, 1250, 1251, 1252}) {
    const std::string text = base::utf8FromCodePage(bytes, page);
    require(base::isUtf8(text));
    require(base::codePageFromUtf8(text, page) == bytes);
  }
}

void checkUtf8(std::string_view bytes) {
  const std::wstring wide = base::wideFromUtf8(bytes);
  require(base::wideFromUtf8(base::utf8FromWide(wide)) == wide);
  if (bytes.find('\xED') == std::string_view::npos && base::isUtf8(bytes))
    require(base::utf8FromWide(wide) == bytes);
  require(base::equalsNoCase(bytes, base::lowerCase(bytes)));
  require(base::wideFromAnsi(base::ansiFromWide(wide)).size() <= wide.size());
}

void checkNumbers(std::string_view bytes) {
  const base::ParsedDouble parsed = base::parseDouble(bytes);
  require(parsed.length <= bytes.size());
  if (parsed.length == 0 || std::isnan(parsed.value)) return;
  require(base::parseDouble(base::formatShortest(parsed.value)).value == parsed.value);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  checkCodePages(bytes);
  checkUtf8(bytes);
  checkNumbers(bytes);
  return 0;
}

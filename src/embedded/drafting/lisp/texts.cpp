// Texts and their conversion to and from numbers. Positions count bytes of UTF-8 by whole
// characters, so that a Chinese text is never cut inside a character.
#include <algorithm>

#include "embedded/base/numbers.h"
#include "embedded/base/text.h"
#include "embedded/drafting/lisp/builtins.h"

namespace drafting::lisp {
namespace {

// Bounds what doubling a text in a loop can take.
constexpr std::size_t kLongestText = std::size_t{16} << 20;

Value strcat(Interpreter& lisp, const Arguments& a) {
  std::string all;
  for (const Value& item : a) {
    const auto* text = textOf(lisp, item);
    if (!text) return {};
    if (all.size() + text->size() > kLongestText) {
      return lisp.fail(std::string(lisp.session().say("字符串太长", "the text is too long")));
    }
    all += *text;
  }
  return all;
}

Value strlen(Interpreter& lisp, const Arguments& a) {
  std::size_t length = 0;
  for (const Value& item : a) {
    const auto* text = textOf(lisp, item);
    if (!text) return {};
    length += base::wideFromUtf8(*text).size();
  }
  return static_cast<int>(length);
}

Value substr(Interpreter& lisp, const Arguments& a) {
  const auto* text = textOf(lisp, a[0]);
  const int* start = integerOf(lisp, a[1]);
  const int* count = a.size() == 3 ? integerOf(lisp, a[2]) : nullptr;
  if (lisp.failed()) return {};
  if (*start < 1 || (count && *count < 0))
    return lisp.failArgument(*start < 1 ? a[1] : a[2], "fixnump");
  const std::wstring wide = base::wideFromUtf8(*text);
  const auto from = std::min(wide.size(), static_cast<std::size_t>(*start - 1));
  return base::utf8FromWide(
      wide.substr(from, count ? static_cast<std::size_t>(*count) : std::wstring::npos));
}

Value strcase(Interpreter& lisp, const Arguments& a) {
  const auto* text = textOf(lisp, a[0]);
  if (!text) return {};
  if (a.size() == 2 && a[1].isTrue()) return base::lowerCase(*text);
  return base::capitals(*text);
}

Value ascii(Interpreter& lisp, const Arguments& a) {
  const auto* text = textOf(lisp, a[0]);
  if (!text || text->empty()) return 0;
  return static_cast<int>(base::wideFromUtf8(*text)[0]);
}

Value chr(Interpreter& lisp, const Arguments& a) {
  const int* code = integerOf(lisp, a[0]);
  if (!code || *code < 1 || *code > 0xFFFF) return lisp.failArgument(a[0], "fixnump");
  return base::utf8FromWide(std::wstring(1, static_cast<wchar_t>(*code)));
}

Value rtos(Interpreter& lisp, const Arguments& a) {
  const double number = numberOf(lisp, a[0]);
  const int mode = a.size() > 1 && a[1].integer() ? *a[1].integer() : 2;
  const int precision = a.size() > 2 && a[2].integer() ? *a[2].integer() : 4;
  if (lisp.failed()) return {};
  if (mode == 1) return base::formatG(number, std::clamp(precision, 1, 16));
  std::string text = base::formatF(number, std::clamp(precision, 0, 16));
  if (text.find('.') != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  return text == "-0" ? "0" : text;
}

}  // namespace

void defineTexts(Interpreter& lisp) {
  defineFunction(lisp, "strcat", 0, kAnyNumber, strcat);
  defineFunction(lisp, "strlen", 0, kAnyNumber, strlen);
  defineFunction(lisp, "substr", 2, 3, substr);
  defineFunction(lisp, "strcase", 1, 2, strcase);
  defineFunction(lisp, "ascii", 1, 1, ascii);
  defineFunction(lisp, "chr", 1, 1, chr);
  defineFunction(lisp, "rtos", 1, 3, rtos);
  defineFunction(lisp, "itoa", 1, 1, [](Interpreter& self, const Arguments& a) -> Value {
    const int* number = integerOf(self, a[0]);
    return number ? Value(std::to_string(*number)) : Value();
  });
  defineFunction(lisp, "atoi", 1, 1, [](Interpreter& self, const Arguments& a) -> Value {
    const auto* text = textOf(self, a[0]);
    return text ? Value(base::atoi(*text)) : Value();
  });
  defineFunction(lisp, "atof", 1, 1, [](Interpreter& self, const Arguments& a) -> Value {
    const auto* text = textOf(self, a[0]);
    return text ? Value(base::parseDouble(*text).value) : Value();
  });
}

}  // namespace drafting::lisp

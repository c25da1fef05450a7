// CString's formatting: printf's directives, with %s and %c wide on every system and numbers that
// don't know the locale. Directives: d i u o x X c s S f F e E g G p %, with flags, width,
// precision and the sizes h l ll I64 z.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

#include "embedded/base/text.h"
#include "platform/framework_text.h"

namespace {

constexpr int kLargestField = 1 << 16;  // bound of widths and precisions, against runaway formats

enum class Size { normal, isLong, longLong };

struct Directive {
  bool left = false;
  bool plus = false;
  bool blank = false;
  bool alternative = false;
  bool zero = false;
  int width = 0;
  int precision = -1;  // -1: none
  Size size = Size::normal;
  wchar_t conversion = 0;
};

// va_list passed on by reference: a wrapper, since the type may be an array.
struct Arguments {
  std::va_list list;
};

class Formatter {
 public:
  Formatter(const wchar_t* format, Arguments& arguments) : next_(format), arguments_(arguments) {}

  std::wstring run() {
    while (*next_) {
      if (*next_ != L'%') {
        out_ += *next_++;
      } else {
        ++next_;
        directive_ = {};
        readDirective();
        write();
      }
    }
    return std::move(out_);
  }

 private:
  void readDirective() {
    while (readFlag()) ++next_;
    directive_.width = readNumber();
    if (directive_.width < 0) {
      directive_.left = true;
      directive_.width = -directive_.width;
    }
    if (*next_ == L'.') {
      ++next_;
      directive_.precision = readNumber();
    }
    readSize();
    if (*next_) directive_.conversion = *next_++;
  }

  bool readFlag() {
    switch (*next_) {
      case L'-': return directive_.left = true;
      case L'+': return directive_.plus = true;
      case L' ': return directive_.blank = true;
      case L'#': return directive_.alternative = true;
      case L'0': return directive_.zero = true;
      default: return false;
    }
  }

  int readNumber() {
    if (*next_ == L'*') {
      ++next_;
      return std::clamp(va_arg(arguments_.list, int), -kLargestField, kLargestField);
    }
    int number = 0;
    for (; *next_ >= L'0' && *next_ <= L'9'; ++next_) {
      number = std::min(number * 10 + static_cast<int>(*next_ - L'0'), kLargestField);
    }
    return number;
  }

  void readSize() {
    if (*next_ == L'I' && next_[1] == L'6' && next_[2] == L'4') {
      directive_.size = Size::longLong;
      next_ += 3;
    } else if (*next_ == L'z') {
      directive_.size = sizeof(std::size_t) > sizeof(int) ? Size::longLong : Size::normal;
      ++next_;
    }
    for (; *next_ == L'h' || *next_ == L'l'; ++next_) {
      if (*next_ == L'l')
        directive_.size = directive_.size == Size::isLong ? Size::longLong : Size::isLong;
    }
  }

  void write() {
    switch (directive_.conversion) {
      case L'd':
      case L'i': return writeSigned();
      case L'u': return writeUnsigned(10);
      case L'o': return writeUnsigned(8);
      case L'x':
      case L'X': return writeUnsigned(16);
      case L'p': directive_.size = Size::longLong; return writeUnsigned(16);
      case L'f':
      case L'F': return writeDouble(std::chars_format::fixed);
      case L'e':
      case L'E': return writeDouble(std::chars_format::scientific);
      case L'g':
      case L'G': return writeDouble(std::chars_format::general);
      case L'c': return writeText({static_cast<wchar_t>(va_arg(arguments_.list, int))});
      case L's': return writeWide(va_arg(arguments_.list, const wchar_t*));
      case L'S': return writeNarrow(va_arg(arguments_.list, const char*));
      case 0: return;
      default: out_ += directive_.conversion;  // also %%
    }
  }

  std::int64_t signedArgument() {
    switch (directive_.size) {
      case Size::longLong: return va_arg(arguments_.list, long long);
      case Size::isLong: return va_arg(arguments_.list, long);
      default: return va_arg(arguments_.list, int);
    }
  }

  std::uint64_t unsignedArgument() {
    switch (directive_.size) {
      case Size::longLong: return va_arg(arguments_.list, unsigned long long);
      case Size::isLong: return va_arg(arguments_.list, unsigned long);
      default: return va_arg(arguments_.list, unsigned);
    }
  }

  void writeSigned() {
    const std::int64_t value = signedArgument();
    const std::uint64_t magnitude =
        value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    writeInteger(sign(value < 0), magnitude, 10);
  }

  void writeUnsigned(int base) {
    const std::uint64_t value = unsignedArgument();
    std::wstring prefix;
    if (directive_.alternative && value != 0 && base == 16) {
      prefix = directive_.conversion == L'X' ? L"0X" : L"0x";
    }
    writeInteger(prefix, value, base);
  }

  void writeInteger(const std::wstring& prefix, std::uint64_t magnitude, int base) {
    char buffer[24];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, magnitude, base).ptr;
    std::wstring digits(buffer, end);
    const std::size_t least = static_cast<std::size_t>(std::max(directive_.precision, 0));
    if (directive_.precision == 0 && magnitude == 0) digits.clear();
    if (directive_.alternative && base == 8) digits.insert(0, L"0");
    if (digits.size() < least) digits.insert(0, least - digits.size(), L'0');
    if (directive_.precision >= 0) directive_.zero = false;
    if (directive_.conversion == L'X') digits = CString(digits).MakeUpper().wide();
    writeNumber(prefix, digits);
  }

  void writeDouble(std::chars_format form) {
    const double value = va_arg(arguments_.list, double);
    const int precision = directive_.precision < 0 ? 6 : directive_.precision;
    std::string buffer(static_cast<std::size_t>(precision) + 340, '\0');
    char* const begin = buffer.data();
    const auto end =
        std::to_chars(begin, begin + buffer.size(), std::fabs(value), form, precision).ptr;
    std::wstring digits(begin, end);
    if (!std::isfinite(value)) directive_.zero = false;
    if (directive_.conversion < L'a') digits = CString(digits).MakeUpper().wide();
    writeNumber(sign(std::signbit(value)), digits);
  }

  std::wstring sign(bool negative) const {
    if (negative) return L"-";
    return directive_.plus ? L"+" : directive_.blank ? L" " : L"";
  }

  void writeNumber(const std::wstring& prefix, const std::wstring& digits) {
    const std::size_t width = static_cast<std::size_t>(directive_.width);
    const std::size_t length = prefix.size() + digits.size();
    if (directive_.zero && !directive_.left && length < width) {
      out_ += prefix + std::wstring(width - length, L'0') + digits;
    } else {
      writeText(prefix + digits);
    }
  }

  void writeWide(const wchar_t* text) {
    std::wstring_view view = text ? text : L"(null)";
    if (directive_.precision >= 0) view = view.substr(0, static_cast<std::size_t>(precision()));
    writeText(std::wstring(view));
  }

  void writeNarrow(const char* text) {
    const std::wstring wide = base::wideFromUtf8(text ? text : "(null)");
    writeWide(wide.c_str());
  }

  int precision() const { return std::max(directive_.precision, 0); }

  void writeText(const std::wstring& text) {
    const std::size_t width = static_cast<std::size_t>(directive_.width);
    const std::wstring fill(text.size() < width ? width - text.size() : 0, L' ');
    out_ += directive_.left ? text + fill : fill + text;
  }

  const wchar_t* next_;
  Arguments& arguments_;
  Directive directive_;
  std::wstring out_;
};

}  // namespace

void CString::FormatV(const wchar_t* format, std::va_list arguments) {
  Arguments copy;
  va_copy(copy.list, arguments);
  text_ = Formatter(format, copy).run();
  va_end(copy.list);
}

void CString::Format(const wchar_t* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  FormatV(format, arguments);
  va_end(arguments);
}

void CString::AppendFormat(const wchar_t* format, ...) {
  CString tail;
  std::va_list arguments;
  va_start(arguments, format);
  tail.FormatV(format, arguments);
  va_end(arguments);
  *this += tail;
}

// Coding of extended data. One item: a byte (group code - 1000), then
//   1000 text     length RC, code page number 2 bytes high first, the characters
//   1002 brace    RC 0 "{", 1 "}"
//   1003, 1005    handle, 8 bytes high first
//   1004 binary   length RC, the bytes
//   1010..1013    3 doubles; 1040..1042 a double; 1070 16 bits; 1071 32 bits: low byte first
#include "embedded/drafting/database/xdata.h"

#include <array>
#include <bit>
#include <utility>

#include "embedded/base/text.h"

namespace drafting {
namespace {

// Frozen: code page numbers as drawings store them.
constexpr std::array<std::pair<int, int>, 16> kCodePages{{{28, 1250},
                                                          {29, 1251},
                                                          {30, 1252},
                                                          {31, 936},
                                                          {32, 1253},
                                                          {33, 1254},
                                                          {34, 1255},
                                                          {35, 1256},
                                                          {36, 1257},
                                                          {37, 874},
                                                          {38, 932},
                                                          {39, 936},
                                                          {40, 949},
                                                          {41, 950},
                                                          {42, 1361},
                                                          {44, 1258}}};

enum class Form { Text, Brace, Handle, Binary, Point, Real, Short, Long, Unknown };

Form formOf(int code) {
  switch (code) {
    case 1000: return Form::Text;
    case 1002: return Form::Brace;
    case 1003:
    case 1005: return Form::Handle;
    case 1004: return Form::Binary;
    case 1010:
    case 1011:
    case 1012:
    case 1013: return Form::Point;
    case 1040:
    case 1041:
    case 1042: return Form::Real;
    case 1070: return Form::Short;
    case 1071: return Form::Long;
    default: return Form::Unknown;
  }
}

std::uint64_t lowFirst(std::string_view bytes) {
  std::uint64_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;)
    value = value << 8 | static_cast<unsigned char>(bytes[i]);
  return value;
}

std::uint64_t highFirst(std::string_view bytes) {
  std::uint64_t value = 0;
  for (const char c : bytes) value = value << 8 | static_cast<unsigned char>(c);
  return value;
}

void putLowFirst(std::string& out, std::uint64_t value, int bytes) {
  for (int i = 0; i < bytes; ++i, value >>= 8) out += static_cast<char>(value);
}

double realAt(std::string_view bytes, std::size_t at) {
  return std::bit_cast<double>(lowFirst(bytes.substr(at, 8)));
}

std::string textOf(std::string_view item) {
  const int page = windowsCodePage(static_cast<int>(highFirst(item.substr(2, 2))));
  std::string_view bytes = item.substr(4);
  if (!bytes.empty() && bytes.back() == '\0') bytes.remove_suffix(1);
  return base::utf8FromCodePage(bytes, page);
}

// Appends the value of an item whose alternative fits its code; false if it is too long.
struct ItemWriter {
  std::string& out;
  Form form;
  int codePage;

  bool operator()(const std::string& text) const {
    if (form == Form::Brace) {
      out += text == "{" ? '\0' : '\1';
      return text == "{" || text == "}";
    }
    const std::string bytes =
        form == Form::Text ? base::codePageFromUtf8(text, codePage, base::Unmappable::unicodeEscape)
                           : text;
    if (bytes.size() > kXDataItemLimit) return false;
    out += static_cast<char>(bytes.size());
    if (form == Form::Text) {
      const int page = drawingCodePage(codePage);
      out += static_cast<char>(page >> 8);
      out += static_cast<char>(page);
    }
    out += bytes;
    return form == Form::Text || form == Form::Binary;
  }
  bool operator()(Handle handle) const {
    for (int shift = 56; shift >= 0; shift -= 8) out += static_cast<char>(handle >> shift);
    return form == Form::Handle;
  }
  bool operator()(const Point3& point) const {
    for (const double value : {point.x, point.y, point.z}) (*this)(value);
    return form == Form::Point;
  }
  bool operator()(double value) const {
    putLowFirst(out, std::bit_cast<std::uint64_t>(value), 8);
    return form == Form::Real;
  }
  bool operator()(int value) const {
    putLowFirst(out, static_cast<std::uint32_t>(value), form == Form::Short ? 2 : 4);
    return form == Form::Short ? value == static_cast<std::int16_t>(value) : form == Form::Long;
  }
};

}  // namespace

XDataItem decodeXDataItem(std::string_view item) {
  const int code = 1000 + static_cast<unsigned char>(item[0]);
  switch (formOf(code)) {
    case Form::Text: return {code, textOf(item)};
    case Form::Brace: return {code, std::string(item[1] == 0 ? "{" : "}")};
    case Form::Binary: return {code, std::string(item.substr(2))};
    case Form::Handle: return {code, Handle{highFirst(item.substr(1))}};
    case Form::Point: return {code, Point3{realAt(item, 1), realAt(item, 9), realAt(item, 17)}};
    case Form::Real: return {code, realAt(item, 1)};
    case Form::Short:
      return {code, static_cast<int>(static_cast<std::int16_t>(lowFirst(item.substr(1))))};
    default: return {code, static_cast<int>(static_cast<std::int32_t>(lowFirst(item.substr(1))))};
  }
}

std::size_t xdataItemLength(std::string_view coded, std::size_t at) {
  const std::size_t left = coded.size() - at;
  if (left < 2) return 0;
  const std::size_t count = static_cast<unsigned char>(coded[at + 1]);
  std::size_t length = 0;
  switch (formOf(1000 + static_cast<unsigned char>(coded[at]))) {
    case Form::Text: length = 4 + count; break;
    case Form::Brace: length = 2; break;
    case Form::Binary: length = 2 + count; break;
    case Form::Handle:
    case Form::Real: length = 9; break;
    case Form::Point: length = 25; break;
    case Form::Short: length = 3; break;
    case Form::Long: length = 5; break;
    case Form::Unknown: return 0;
  }
  return length <= left ? length : 0;
}

std::optional<std::vector<XDataItem>> decodeXData(std::string_view coded) {
  std::vector<XDataItem> items;
  for (std::size_t at = 0; at < coded.size();) {
    const std::size_t length = xdataItemLength(coded, at);
    if (length == 0) return std::nullopt;
    items.push_back(decodeXDataItem(coded.substr(at, length)));
    at += length;
  }
  return items;
}

std::optional<std::string> encodeXData(const std::vector<XDataItem>& items, int codePage) {
  std::string coded;
  for (const XDataItem& item : items) {
    const Form form = formOf(item.code);
    if (form == Form::Unknown) return std::nullopt;
    coded += static_cast<char>(item.code - 1000);
    if (!std::visit(ItemWriter{coded, form, codePage}, item.value)) return std::nullopt;
  }
  return coded;
}

const XData* findXData(const Object& object, Handle app) {
  for (const XData& data : object.xdata) {
    if (data.app == app) return &data;
  }
  return nullptr;
}

std::string firstXDataText(const Object& object, Handle app) {
  const XData* data = findXData(object, app);
  const auto items = data ? decodeXData(data->items) : std::nullopt;
  if (!items) return {};
  for (const XDataItem& item : *items) {
    if (const auto* text = std::get_if<std::string>(&item.value); text && item.code == 1000)
      return *text;
  }
  return {};
}

int drawingCodePage(int windowsPage) {
  if (windowsPage == 936) return 39;  // 31 is an older name of the same page
  for (const auto& [number, page] : kCodePages) {
    if (page == windowsPage) return number;
  }
  return 30;
}

int windowsCodePage(int drawingNumber) {
  for (const auto& [number, page] : kCodePages) {
    if (number == drawingNumber) return page;
  }
  return 1252;
}

}  // namespace drafting

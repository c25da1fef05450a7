// Extended data as a list of items, made from and into the coded bytes that objects keep. Group
// codes are the DXF ones from 1000 on; 1001 (the application) is not an item but stands outside.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "embedded/drafting/database/object.h"

namespace drafting {

// The alternative goes by the code:
//   std::string  1000 text (UTF-8), 1002 brace ("{" or "}"), 1004 binary (the bytes)
//   Handle       1003 layer, 1005 any object
//   Point3       1010, 1011, 1012, 1013
//   double       1040, 1041, 1042
//   int          1070 (16 bits), 1071
struct XDataItem {
  int code = 1000;
  std::variant<std::string, Handle, Point3, double, int> value;
  friend bool operator==(const XDataItem&, const XDataItem&) = default;
};

// Longest text or binary of one item, in bytes, and most bytes of items on one object.
inline constexpr std::size_t kXDataItemLimit = 255;
inline constexpr std::size_t kXDataLimit = 16383;

// The items, or nothing if the bytes are no extended data (they are carried through all the same).
std::optional<std::vector<XDataItem>> decodeXData(std::string_view coded);

// The bytes; texts in `codePage` (a Windows page number). Nothing if a text or binary is too long,
// or an item's value is of another type than its code asks for.
std::optional<std::string> encodeXData(const std::vector<XDataItem>& items, int codePage);

// The object's data of one application; null if it has none.
const XData* findXData(const Object& object, Handle app);

// The first text of the object's data of that application; empty without one.
std::string firstXDataText(const Object& object, Handle app);

// Replaces the handles that 1003 and 1005 items hold, in place: handle = map(code, handle).
// False if the bytes are no extended data.
template <class F>
bool mapXDataHandles(std::string& coded, F map);

// The number that stands for a code page in drawings, and back. Unknown ones are taken for 1252.
int drawingCodePage(int windowsPage);
int windowsCodePage(int drawingNumber);

// Length of the item at `at` with its code byte; 0 if there is no whole item.
std::size_t xdataItemLength(std::string_view coded, std::size_t at);

// The item that these bytes, a whole item, code.
XDataItem decodeXDataItem(std::string_view item);

template <class F>
bool mapXDataHandles(std::string& coded, F map) {
  for (std::size_t at = 0; at < coded.size();) {
    const std::size_t length = xdataItemLength(coded, at);
    if (length == 0) return false;
    const int code = 1000 + static_cast<unsigned char>(coded[at]);
    if (code == 1003 || code == 1005) {
      Handle handle = 0;
      for (std::size_t i = 1; i <= 8; ++i) {
        handle = handle << 8 | static_cast<unsigned char>(coded[at + i]);
      }
      handle = map(code, handle);
      for (std::size_t i = 8; i >= 1; --i, handle >>= 8) coded[at + i] = static_cast<char>(handle);
    }
    at += length;
  }
  return true;
}

}  // namespace drafting

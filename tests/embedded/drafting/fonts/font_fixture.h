// Small complete fonts and fonts made of a few shapes.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "embedded/drafting/fonts/font_writer.h"
#include "embedded/drafting/fonts/shape_drawing.h"

namespace drafting {

// "41 0d" as bytes.
inline std::string bytesOf(std::string_view hex) {
  std::string out;
  int high = -1;
  for (const char c : hex) {
    if (c == ' ' || c == '\n') continue;
    const int digit = c <= '9' ? c - '0' : (c | 32) - 'a' + 10;
    if (high >= 0) out += static_cast<char>(high << 4 | digit);
    high = high >= 0 ? -1 : digit;
  }
  return out;
}

// Above 6, below 2; a line feed and the letter L.
inline std::string tinyUnifont() {
  return bytesOf(
      "41 75 74 6f 43 41 44 2d 38 36 20 75 6e 69 66 6f 6e 74 20 31 2e 30 0d 0a 1a"
      "03 00 00 00 0b 00 54 49 4e 59 00 06 02 00 00 00 00"
      "0a 00 06 00 00 02 08 00 f7 00"
      "4c 00 09 00 00 02 64 01 6c 40 02 20 00");
}

inline std::string tinyShapes() {
  return bytesOf(
      "41 75 74 6f 43 41 44 2d 38 36 20 73 68 61 70 65 73 20 31 2e 30 0d 0a 1a"
      "00 00 4c 00 03 00 00 00 09 00 0a 00 06 00 4c 00 09 00"
      "54 49 4e 59 00 06 02 00 00  00 02 08 00 f7 00  00 02 64 01 6c 40 02 20 00"
      "45 4f 46");
}

// Above 16; one character, a box from (1, 5) to (15, 11) and a stroke from (8, 16) to (8, 0).
constexpr std::uint16_t kMiddle = 0xD6D0;  // 中
inline std::string tinyBigFont() {
  return bytesOf(
      "41 75 74 6f 43 41 44 2d 38 36 20 62 69 67 66 6f 6e 74 20 31 2e 30 0d 0a 1a"
      "08 00 02 00 01 00 81 00 fe 00"
      "00 00 0c 00 33 00 00 00  d0 d6 1e 00 3f 00 00 00"
      "54 49 4e 59 42 49 47 00 10 00 00 00"
      "00 02 08 01 05 01 09 00 06 0e 00 00 fa f2 00 00 00 02 08 07 0b 01 08 00 f0 02 08 0a 00 00");
}

inline std::shared_ptr<const ShapeFont> fontOf(std::string bytes) {
  auto font = ShapeFont::read(std::move(bytes), "test.shx");
  EXPECT_TRUE(font.ok()) << font.message();
  return font.ok() ? *font : nullptr;
}

// A font of the given shapes, each as hexadecimal bytes.
inline std::shared_ptr<const ShapeFont> fontWith(
    FontKind kind, const std::map<std::uint16_t, std::string_view>& shapes,
    FontMetrics metrics = {6, 2, 0, 0, 0, 0, false}) {
  FontParts parts{kind, "MADE", metrics, {}, {}};
  for (const auto& [code, hex] : shapes) parts.shapes[code] = {"", bytesOf(hex)};
  const auto written = writeFont(parts);
  EXPECT_TRUE(written.ok()) << written.message();
  return fontOf(written.ok() ? *written : std::string());
}

}  // namespace drafting

// What a slide draws, as one line of text a record; and slides from hexadecimal.
#pragma once

#include <cstdlib>
#include <string>
#include <string_view>

#include "embedded/slide_store/slide.h"

namespace test {

inline std::string bytesOf(std::string_view hex) {
  std::string bytes;
  std::string digits;
  for (const char c : hex) {
    if (c == ' ') continue;
    digits += c;
    if (digits.size() < 2) continue;
    bytes += static_cast<char>(std::strtol(digits.c_str(), nullptr, 16));
    digits.clear();
  }
  return bytes;
}

class Listing : public slide_store::SlideVisitor {
 public:
  void line(slide_store::SlidePoint from, slide_store::SlidePoint to,
            std::uint8_t colour) override {
    text_ += std::to_string(colour) + " line" + shown(from) + shown(to) + "\n";
  }
  void fill(std::span<const slide_store::SlidePoint> corners, std::uint8_t colour) override {
    text_ += std::to_string(colour) + " fill";
    for (const slide_store::SlidePoint p : corners) text_ += shown(p);
    text_ += "\n";
  }
  const std::string& text() const { return text_; }

 private:
  static std::string shown(slide_store::SlidePoint p) {
    return " " + std::to_string(p.x) + "," + std::to_string(p.y);
  }
  std::string text_;
};

// What is drawn, and the message of what went wrong behind it.
inline std::string listed(std::string_view slide) {
  const auto header = slide_store::readSlideHeader(slide);
  if (!header.ok()) return header.message();
  Listing listing;
  const auto size = readSlideRecords(slide, *header, listing);
  return listing.text() + (size.ok() ? "" : size.message());
}

// A level 2 slide, low byte first, of 240 by 640 dots with these records.
inline const std::string kLowFirstHeader = bytesOf(
    "41 75 74 6f 43 41 44 20 53 6c 69 64 65 0d 0a 1a 00 56 02 ef 00 7f 02 3b 12 39 00 02 00 34 12");
inline std::string slideWith(std::string_view hexRecords) {
  return kLowFirstHeader + bytesOf(hexRecords);
}

inline const std::string kExampleRecords =
    "03 ff 78 00 58 02 78 00 f4 01 00 fe c4 ec fb 0a 14 1e 01 ff 00 fd 03 00 fe ff "
    "00 fd 0a 00 14 00 00 fd 32 00 14 00 00 fd 1e 00 2c 00 00 fd 03 00 fe ff 00 fc";
inline const std::string kExampleListing =
    "3 line 120,600 120,500\n"
    "3 line 120,600 120,540\n"
    "3 line 100,550 140,570\n"
    "1 fill 10,20 50,20 30,44\n";

}  // namespace test

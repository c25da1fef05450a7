#include "support/png_picture.h"

#include <zlib.h>

#include <cstdlib>

namespace test {
namespace {

std::uint32_t number(std::string_view bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i)
    value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  return value;
}

std::uint8_t nearestOf(int left, int above, int corner) {
  const int guess = left + above - corner;
  const int a = std::abs(guess - left), b = std::abs(guess - above), c = std::abs(guess - corner);
  return static_cast<std::uint8_t>(a <= b && a <= c ? left : b <= c ? above : corner);
}

// Undoes a row's filter; `row` and `above` without the byte of the filter's kind.
void restore(int filter, std::uint8_t* row, const std::uint8_t* above, std::size_t size,
             std::size_t channels) {
  for (std::size_t i = 0; i < size; ++i) {
    const int left = i < channels ? 0 : row[i - channels];
    const int corner = i < channels || !above ? 0 : above[i - channels];
    const int up = above ? above[i] : 0;
    const int added[] = {0, left, up, (left + up) / 2, nearestOf(left, up, corner)};
    row[i] = static_cast<std::uint8_t>(row[i] + added[filter]);
  }
}

}  // namespace

PngPicture::PngPicture(std::string_view file) {
  if (file.size() < 33 || file.substr(1, 3) != "PNG" || file[24] != 8) {
    problem = "no PNG of 8 bits";
    return;
  }
  width = static_cast<int>(number(file, 16));
  height = static_cast<int>(number(file, 20));
  const std::size_t channels = file[25] == 6 ? 4 : 3;
  std::string packed;
  for (std::size_t at = 8; at + 12 <= file.size(); at += 12 + number(file, at)) {
    const std::string_view chunk = file.substr(at + 4, 4 + number(file, at));
    const auto* start = reinterpret_cast<const Bytef*>(chunk.data());
    if (crc32_z(0, start, chunk.size()) != number(file, at + 8 + number(file, at))) {
      problem = "a checksum is wrong";
    }
    if (chunk.substr(0, 4) == "IDAT") packed += chunk.substr(4);
  }
  const std::size_t row = static_cast<std::size_t>(width) * channels;
  std::vector<std::uint8_t> bytes((row + 1) * static_cast<std::size_t>(height));
  auto length = static_cast<uLongf>(bytes.size());
  if (uncompress(bytes.data(), &length, reinterpret_cast<const Bytef*>(packed.data()),
                 static_cast<uLong>(packed.size())) != Z_OK ||
      length != bytes.size()) {
    problem = "the rows aren't whole";
    return;
  }
  std::uint8_t* above = nullptr;
  for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
    std::uint8_t* line = bytes.data() + y * (row + 1) + 1;
    restore(line[-1], line, above, row, channels);
    above = line;
    for (std::size_t x = 0; x < row; x += channels) {
      pixels.push_back(std::uint32_t{line[x]} << 16 | std::uint32_t{line[x + 1]} << 8 |
                       line[x + 2]);
    }
  }
}

}  // namespace test

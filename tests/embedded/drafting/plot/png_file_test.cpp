// PNG files of our own, as another reader sees them.
#include "embedded/drafting/plot/png_file.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "support/png_picture.h"

namespace drafting {
namespace {

struct Left {
  const std::string& bytes;
  std::size_t at = 0;
};

cairo_status_t readOn(void* closure, unsigned char* data, unsigned int length) {
  Left& left = *static_cast<Left*>(closure);
  if (left.at + length > left.bytes.size()) return CAIRO_STATUS_READ_ERROR;
  std::memcpy(data, left.bytes.data() + left.at, length);
  left.at += length;
  return CAIRO_STATUS_SUCCESS;
}

std::vector<std::uint32_t> noise(int width, int height) {
  std::mt19937 random(7);
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width * height));
  for (auto& pixel : pixels) pixel = random() & 0xFFFFFF;
  return pixels;
}

TEST(PngFile, AnotherReaderSeesTheSamePixels) {
  for (const auto& [width, height] : {std::pair{1, 1}, {3, 2}, {640, 7}, {2, 300}}) {
    const auto pixels = noise(width, height);
    const std::string file = makePng(width, height, pixels);
    Left left{file};
    cairo_surface_t* image = cairo_image_surface_create_from_png_stream(readOn, &left);
    ASSERT_EQ(cairo_surface_status(image), CAIRO_STATUS_SUCCESS);
    ASSERT_EQ(cairo_image_surface_get_width(image), width);
    ASSERT_EQ(cairo_image_surface_get_height(image), height);
    for (int y = 0; y < height; ++y) {
      const auto* row = reinterpret_cast<const std::uint32_t*>(
          cairo_image_surface_get_data(image) + y * cairo_image_surface_get_stride(image));
      for (int x = 0; x < width; ++x) {
        ASSERT_EQ(row[x] & 0xFFFFFF, pixels[static_cast<std::size_t>(y * width + x)]);
      }
    }
    cairo_surface_destroy(image);
    const test::PngPicture own(file);
    EXPECT_EQ(own.problem, "");
    EXPECT_EQ(own.pixels, pixels);
  }
}

TEST(PngFile, EvenPicturesAreSmall) {
  const std::vector<std::uint32_t> white(1000 * 1000, 0xFFFFFF);
  EXPECT_LT(makePng(1000, 1000, white).size(), 10'000u);
}

}  // namespace
}  // namespace drafting

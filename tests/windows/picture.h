// What a window shows, as pixels that a test can read and compare.
#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

namespace window_kit {

// Rows from the top, pixels as 0xRRGGBB.
class Picture {
 public:
  Picture(int width, int height);

  int width() const { return width_; }
  int height() const { return height_; }
  // Points outside are 0.
  std::uint32_t at(int x, int y) const;
  int count(std::uint32_t colour) const;

  // An uncompressed bitmap file, for looking at what a failed test saw.
  bool save(const std::filesystem::path& path) const;

 private:
  friend Picture pictureOf(HWND window);
  friend Picture pictureOfScreen();
  void draw(const std::function<void(HDC)>& drawing);

  int width_;
  int height_;
  std::vector<std::uint32_t> pixels_;
};

// The client area of a visible window, after all waiting paint messages are done. Parts that lie
// outside of the screen can't be read.
Picture pictureOf(HWND window);
// All visible windows at their places, the topmost in front, and black around them.
Picture pictureOfScreen();

}  // namespace window_kit

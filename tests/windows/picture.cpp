#include "windows/picture.h"

#include <algorithm>
#include <fstream>

namespace window_kit {

namespace {

BITMAPINFO headerFor(int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // rows from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  return info;
}

}  // namespace

Picture::Picture(int width, int height)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

std::uint32_t Picture::at(int x, int y) const {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return 0;
  const auto row = static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
  return pixels_[row + static_cast<std::size_t>(x)] & 0xFFFFFF;
}

int Picture::count(std::uint32_t colour) const {
  return static_cast<int>(
      std::count_if(pixels_.begin(), pixels_.end(),
                    [colour](std::uint32_t pixel) { return (pixel & 0xFFFFFF) == colour; }));
}

bool Picture::save(const std::filesystem::path& path) const {
  const BITMAPINFO info = headerFor(width_, height_);
  const auto pixelBytes = static_cast<DWORD>(pixels_.size() * sizeof(std::uint32_t));
  BITMAPFILEHEADER header{};
  header.bfType = 0x4D42;
  header.bfOffBits = sizeof header + sizeof info.bmiHeader;
  header.bfSize = header.bfOffBits + pixelBytes;
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(&header), sizeof header);
  out.write(reinterpret_cast<const char*>(&info.bmiHeader), sizeof info.bmiHeader);
  out.write(reinterpret_cast<const char*>(pixels_.data()), pixelBytes);
  return out.good();
}

void Picture::draw(const std::function<void(HDC)>& drawing) {
  if (pixels_.empty()) return;
  const HDC memory = CreateCompatibleDC(nullptr);
  const BITMAPINFO info = headerFor(width_, height_);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  drawing(memory);
  GdiFlush();
  std::copy_n(static_cast<const std::uint32_t*>(bits), pixels_.size(), pixels_.begin());
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
}

Picture pictureOf(HWND window) {
  UpdateWindow(window);
  RECT client{};
  GetClientRect(window, &client);
  Picture picture(client.right, client.bottom);
  picture.draw([&](HDC memory) {
    const HDC source = GetDC(window);
    BitBlt(memory, 0, 0, client.right, client.bottom, source, 0, 0, SRCCOPY);
    ReleaseDC(window, source);
  });
  return picture;
}

Picture pictureOfScreen() {
  Picture picture(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
  std::vector<HWND> windows;  // topmost first
  EnumWindows(
      [](HWND window, LPARAM list) -> BOOL {
        if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&windows));
  std::reverse(windows.begin(), windows.end());
  picture.draw([&](HDC memory) {
    for (const HWND window : windows) {
      RECT place{};
      GetWindowRect(window, &place);
      const HDC source = GetWindowDC(window);
      BitBlt(memory, place.left, place.top, place.right - place.left, place.bottom - place.top,
             source, 0, 0, SRCCOPY);
      ReleaseDC(window, source);
    }
  });
  return picture;
}

}  // namespace window_kit

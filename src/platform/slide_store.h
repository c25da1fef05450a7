// The companion module of slides: slide libraries as files of named slides.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/framework_shapes.h"
#include "platform/framework_text.h"

class CBitmap;
class CDC;

// One open slide library. Names compare without case; a name that code page 936 can't hold in 31
// bytes is refused.
class CSlbMan {
 public:
  CSlbMan();
  ~CSlbMan();
  CSlbMan(const CSlbMan&) = delete;
  CSlbMan& operator=(const CSlbMan&) = delete;

  // Reads the library. Nonzero on success. On failure the library is empty; it still remembers the
  // path, so that slides can be added and saved where no file stands yet.
  int OnOpenDocument(const wchar_t* path);
  // Bytes of a slide; 0 when there is none of that name.
  std::uint32_t GetSlideSize(const wchar_t* name) const;
  // Copies the slide into a buffer of at least that size. Nonzero on success.
  int GetSlideData(const wchar_t* name, void* buffer) const;
  // Adds or replaces in memory. Nonzero on success; 0 for a name that can't be stored or no bytes.
  int AddSlideW(const wchar_t* name, const void* bytes, std::uint32_t size);
  int DelSlide(const wchar_t* name);  // nonzero when it was there
  // Writes a changed library, keeping the old file as .bak. Nonzero when nothing is left to write.
  // A file that could not be read as a library is first moved to NAME.damaged-N.
  int SaveModified();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

// --- renderers, where there are windows

// Draws slides as the host shows them, and the grid that they stand in. The caller sets the target
// before each call; without one nothing is drawn. What a slide is damaged at ends its picture.
class CGraph {
 public:
  CDC* dc = nullptr;  // not owned

  // Stretches the slide over the box whose upper left corner is (x, y), and stays within it. The
  // last two numbers are always 0.
  void Draw(const char* data, std::uint32_t size, int width, int height, int x, int y, int, int);
  // Lines around cells of equal size in the rectangle, from (left, top) on; pixels that the
  // division leaves over stay free at the right and below. Counts below 1 count as 1.
  void DrawGrid(const RECT& rectangle, int columns, int rows, int left, int top);
  // Marks the cell, counted from 0 over all pages, if it stands on that page, also counted from 0.
  // Done twice it restores the picture. The mode is always 0.
  void HighLightBlock(const RECT& rectangle, int columns, int rows, int page, int cell, int mode);
};

// For single slides.
class CGraphnored {
 public:
  CDC* dc = nullptr;  // not owned

  void Draw(const char* data, std::uint32_t size, int width, int height, int x, int y, int, int);
};

// A slide library read whole, for icons.
class CSlideLibraryData {
 public:
  CSlideLibraryData();
  ~CSlideLibraryData();
  CSlideLibraryData(const CSlideLibraryData&) = delete;
  CSlideLibraryData& operator=(const CSlideLibraryData&) = delete;

  // Nonzero on success; otherwise the library is empty.
  int ReadDataFromFileW(const CString& path);
  // kNoSlide when there is none of that name.
  std::uint16_t GetIndexFromName(const CString& name) const;
  // The slide stretched over a bitmap of that size, on that background (a colour as the system has
  // them). The caller deletes it. Null when there is no such slide, or it can't be made. Where
  // there are windows only.
  CBitmap* MakeBitMapFromIndex(std::uint16_t index, int width, int height, std::uint32_t colour);
  int DeleteSlideFromSlb(const CString& name);  // nonzero when it was there
  // Writes the whole library, the old file becoming the backup. Nonzero on success. A file there
  // that is no library is first moved to NAME.damaged-N.
  int WriteDataToFile(const CString& path);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

constexpr std::uint16_t kNoSlide = 0xFFFF;

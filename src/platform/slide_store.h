// The companion module of slides: slide libraries as files of named slides.
#pragma once

#include <cstdint>
#include <memory>

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

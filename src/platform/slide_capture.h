// CGetSld, of the companion module of common functions: pictures of drawings as slides.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/acad_database.h"
#include "platform/framework_text.h"

class CGetSld {
 public:
  // The database must outlive the object. The path names the slide in messages; nothing is written
  // there.
  CGetSld(CString path, AcDbDatabase* database);
  explicit CGetSld(AcDbDatabase* database);
  CGetSld(const CGetSld&) = delete;
  CGetSld& operator=(const CGetSld&) = delete;

  // The shape fonts that all texts are drawn with; the built-in one stands for a file that isn't
  // there. When neither is set, each text's style tells its own.
  void SetChineseShxFileName(CString path);
  void SetEnglishShxFileName(CString path);
  // Corners of what model space shows, z 0; both (0, 0, 0) when it shows nothing. 1, or 0 without
  // a drawing.
  int GetDataBaseExtents(AcDbExtents& extents);
  // Makes the slide: bytes and size are good until the next call and the object's end. Nonzero on
  // success; 0 without a drawing, or when the numbers below are no picture's.
  int GetSldData();

  const std::uint8_t* data = nullptr;
  std::int32_t size = 0;
  std::int32_t width = 640;  // dots
  std::int32_t height = 320;
  double part = 0.95;  // of the picture that the extents fill, in the direction that is tighter

 private:
  CString path_;
  AcDbDatabase* database_;
  CString chineseFont_;
  CString englishFont_;
  std::vector<std::uint8_t> bytes_;
};

// Writes a circuit's elements into its tree, below one element's key each. For the row's expansion
// and for the editor's changes; circuit_record.h lists the keys.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "engine/row_reader.h"
#include "platform/acad_geometry.h"
#include "platform/framework_arrays.h"
#include "platform/framework_shapes.h"
#include "platform/quill_data.h"

constexpr std::array<const wchar_t*, 4> kCornerKeys{L"点1", L"点2", L"点3", L"点4"};

class ElementWriter {
 public:
  ElementWriter(CQuillDpData& tree, const wchar_t* list, std::size_t index)
      : tree_(tree), key_(std::wstring(list) + L"\\" + std::to_wstring(index)) {}

  void mark(std::uint16_t kind) const;
  void text(const std::wstring& name, const std::wstring& value) const;
  void number(const std::wstring& name, std::int32_t value) const;
  void real(const std::wstring& name, double value) const;
  void point(const std::wstring& name, RowPoint value) const;
  void pixel(const std::wstring& name, const POINT& value) const;
  void rectangle(const std::wstring& name, const RECT& value) const;
  // Bytes beyond a tree value's length are none: the cell then shows an empty frame.
  void bytes(const std::wstring& name, const CByteArray& value) const;

 private:
  CQuillDpData& tree_;
  std::wstring key_;
};

// The corners of a text's box, counter-clockwise from the insertion point, in drawing units: as
// long as if each of its characters were as wide as high.
std::array<AcGePoint3d, 4> textBox(const AcGePoint3d& insertion, double degrees, double height,
                                   std::size_t characters);

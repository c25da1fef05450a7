// Values of an element as the tree keeps them.
#include "store/element_writer.h"

#include <limits>
#include <numbers>

#include "module/tree_values.h"
#include "platform/common_funcs.h"
#include "platform/framework_text.h"

void ElementWriter::mark(std::uint16_t kind) const { storeNumber(tree_, key_, kind); }

void ElementWriter::text(const std::wstring& name, const std::wstring& value) const {
  storeText(tree_, key_ + L"\\" + name, value);
}

void ElementWriter::number(const std::wstring& name, std::int32_t value) const {
  storeNumber(tree_, key_ + L"\\" + name, value);
}

void ElementWriter::real(const std::wstring& name, double value) const {
  CString printed;
  printed.Format(L"%f", value);
  text(name, printed.wide());
}

void ElementWriter::point(const std::wstring& name, RowPoint value) const {
  real(name + L"\\x", value.x);
  real(name + L"\\y", value.y);
}

void ElementWriter::pixel(const std::wstring& name, const POINT& value) const {
  number(name + L"\\x", value.x);
  number(name + L"\\y", value.y);
}

void ElementWriter::rectangle(const std::wstring& name, const RECT& value) const {
  number(name + L"\\left", value.left);
  number(name + L"\\top", value.top);
  number(name + L"\\right", value.right);
  number(name + L"\\bottom", value.bottom);
}

void ElementWriter::bytes(const std::wstring& name, const CByteArray& value) const {
  const int size = value.GetSize() > std::numeric_limits<std::int16_t>::max() ? 0 : value.GetSize();
  tree_.SetSubValueForByteW((key_ + L"\\" + name).c_str(), static_cast<std::int16_t>(size),
                            value.GetData());
}

std::array<AcGePoint3d, 4> textBox(const AcGePoint3d& insertion, double degrees, double height,
                                   std::size_t characters) {
  const double along = degrees * std::numbers::pi / 180;
  const double up = along + std::numbers::pi / 2;
  const AcGePoint3d end = arx_polar(insertion, along, height * static_cast<double>(characters));
  return {insertion, end, arx_polar(end, up, height), arx_polar(insertion, up, height)};
}

// The row reader on any text: no crash, and the same result as the slow model.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "embedded/base/text.h"
#include "engine/row_reader.h"
#include "engine/row_reader_model.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

// "nan" agrees with itself.
bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }
bool same(const RowPoint& a, const RowPoint& b) { return same(a.x, b.x) && same(a.y, b.y); }

template <typename Element>
bool same(const std::vector<Element>& a, const std::vector<Element>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const Element& x, const Element& y) { return same(x, y); });
}

void requireSame(const RowReading& real, const RowReading& model) {
  const CircuitRow& a = real.row;
  const CircuitRow& b = model.row;
  require(real.message == model.message);
  require(a.names == b.names && a.specifications == b.specifications);
  require(same(a.points, b.points) && same(a.angles, b.angles));
  require(a.angleTexts.size() == a.angles.size());
  require(same(a.starts, b.starts) && same(a.ends, b.ends));
  require(a.texts == b.texts && a.colours == b.colours && same(a.heights, b.heights));
  require(same(a.textPoints, b.textPoints) && same(a.textAngles, b.textAngles));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::wstring text = base::wideFromUtf8({reinterpret_cast<const char*>(data), size});
  std::erase(text, L'\0');  // the model's numbers end there
  requireSame(readRow(text), test::modelReadRow(text));
  // The library reads what stands behind the number as placing reads a row.
  const LibraryRowReading library = readLibraryRow(text);
  const std::size_t blank = text.find(L' ');
  require(library.number.has_value() == (blank != std::wstring::npos));
  if (library.number) requireSame(library, test::modelReadRow(L"(" + text.substr(blank)));
  return 0;
}

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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::wstring text = base::wideFromUtf8({reinterpret_cast<const char*>(data), size});
  std::erase(text, L'\0');  // the model's numbers end there
  const RowReading real = readRow(text);
  const RowReading model = test::modelReadRow(text);
  const CircuitRow& a = real.row;
  const CircuitRow& b = model.row;
  require(real.message == model.message);
  require(a.names == b.names && a.specifications == b.specifications);
  require(same(a.points, b.points) && same(a.angles, b.angles));
  require(same(a.starts, b.starts) && same(a.ends, b.ends));
  require(a.texts == b.texts && a.colours == b.colours && same(a.heights, b.heights));
  require(same(a.textPoints, b.textPoints) && same(a.textAngles, b.textAngles));
  return 0;
}

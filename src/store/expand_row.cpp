// From a circuit's row to its tree: the layout in pixels, then blocks, texts and lines.
#include <algorithm>
#include <array>
#include <limits>

#include "engine/row_reader.h"
#include "module/tree_values.h"
#include "platform/framework_messages.h"
#include "store/cell_lattice.h"
#include "store/circuit_drawing.h"
#include "store/circuit_record.h"
#include "store/element_writer.h"
#include "store/pixels.h"

namespace {

constexpr double kMarginX = 15.0;  // drawing units
constexpr double kMarginY = 10.0;
constexpr double kFirstY = -10.0;  // where the range of y starts, both ends
constexpr int kOriginY = 15;       // pixels, as all below
constexpr int kSpecificationLeft = 24;
constexpr int kSpecificationRight = 65;

struct Range {
  double least;
  double most;
  explicit Range(double start) : least(start), most(start) {}
  void add(double value) {
    least = std::min(least, value);
    most = std::max(most, value);
  }
  double size() const { return most - least; }
};

// The rows of texts may end inside a text: what is missing counts as nothing.
template <typename Element>
Element at(const std::vector<Element>& list, std::size_t index) {
  return index < list.size() ? list[index] : Element();
}

}  // namespace

void CZhlkCircuitRecord::Load(const CString& circuitRow, const CString& circuitName) {
  row = circuitRow;
  name = circuitName;
  ExpandRow();
}

void CZhlkCircuitRecord::ExpandRow() {
  const LibraryRowReading reading = readLibraryRow(row.wide());
  if (number.IsEmpty() && reading.number) number = *reading.number;
  if (!reading.ok()) {
    showMessageBox({.text = reading.message, .caption = kCircuitCaption});
    return;
  }
  layOut(reading.row);
  expandBlocks(reading.row);
  expandTexts(reading.row);
  expandLines(reading.row);
}

// A circuit narrower than the view is centred on x = 0, a wider one on its scroll width, wherever
// it lies. Both ranges hold their start: a circuit to the right of 0 keeps the room on its left.
void CZhlkCircuitRecord::layOut(const CircuitRow& circuit) {
  Range x(0);
  Range y(kFirstY);
  for (const auto* points : {&circuit.points, &circuit.ends, &circuit.starts}) {
    for (const RowPoint& point : *points) {
      x.add(point.x);
      y.add(point.y);
    }
  }
  scrollSize = {toPixels((x.size() + kMarginX) * kPixelsPerUnitX),
                toPixels((y.size() + kMarginY) * kPixelsPerUnitY)};
  origin = {toPixels(0.5 * std::max(scrollSize.cx, frame.right)), kOriginY};
}

void CZhlkCircuitRecord::expandBlocks(const CircuitRow& circuit) {
  storeNumber(tree, L"块", static_cast<std::int32_t>(circuit.names.size()));
  for (std::size_t n = 0; n < circuit.names.size(); ++n) {
    const ElementWriter to(tree, L"块", n);
    to.mark(kBlockElement);
    to.text(L"块名", circuit.names[n]);
    // The tree keeps an unknown symbol's name and shows the empty cell.
    CString shown = circuit.names[n];
    CByteArray bytes;
    LoadSymbolSlide(shown, bytes);
    to.bytes(L"Sld", bytes);
    to.point(L"插入点", circuit.points[n]);
    to.text(L"角度", circuit.angleTexts[n]);
    POINT place{};
    DrawingToScreen(circuit.points[n].x, circuit.points[n].y, place);
    const int half = isWideSymbol(shown) ? kWideHalfWidth : kCellHalfWidth;
    RECT cell{moved(place.x, -half), place.y, moved(place.x, half), moved(place.y, kCellHeight)};
    to.rectangle(L"块名", cell);
    cell.left = moved(cell.left, kSpecificationLeft);
    cell.right = moved(cell.right, kSpecificationRight);
    to.text(L"型号规格", circuit.specifications[n]);
    to.rectangle(L"型号规格", cell);
  }
}

void CZhlkCircuitRecord::expandTexts(const CircuitRow& circuit) {
  storeNumber(tree, L"文字", static_cast<std::int32_t>(circuit.texts.size()));
  for (std::size_t n = 0; n < circuit.texts.size(); ++n) {
    const double height = at(circuit.heights, n);
    const double degrees = at(circuit.textAngles, n);
    const RowPoint insertion = at(circuit.textPoints, n);
    const ElementWriter to(tree, L"文字", n);
    to.mark(kTextElement);
    to.text(L"文字", circuit.texts[n]);
    to.number(L"颜色", at(circuit.colours, n));
    to.real(L"字高", height);
    to.real(L"角度", degrees);
    to.point(L"插入点", insertion);
    const std::array<AcGePoint3d, 4> corners =
        textBox({insertion.x, insertion.y, 0}, degrees, height, circuit.texts[n].size());
    for (std::size_t i = 0; i < corners.size(); ++i) {
      POINT pixel{};
      DrawingToScreen(corners[i].x, corners[i].y, pixel);
      to.pixel(kCornerKeys[i], pixel);
    }
  }
}

void CZhlkCircuitRecord::expandLines(const CircuitRow& circuit) {
  storeNumber(tree, L"线", static_cast<std::int32_t>(circuit.starts.size()));
  for (std::size_t n = 0; n < circuit.starts.size(); ++n) {
    const ElementWriter to(tree, L"线", n);
    to.mark(kLineElement);
    const auto end = [&](const wchar_t* drawing, const wchar_t* screen, RowPoint point) {
      to.point(drawing, point);
      POINT pixel{};
      DrawingToScreen(point.x, point.y, pixel);
      to.pixel(screen, pixel);
    };
    end(L"起点", L"屏幕起点", circuit.starts[n]);
    end(L"终点", L"屏幕终点", circuit.ends[n]);
  }
}

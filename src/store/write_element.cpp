// The editor's view of the circuit's blocks: which one lies under a pixel, and writing one back.
#include "module/tree_values.h"
#include "store/circuit_record.h"
#include "store/element_writer.h"

int CZhlkCircuitRecord::HitBlock(const POINT& point, ZhlkElement& element) const {
  const int count = GetBlockCount();
  for (int n = 0; n < count; ++n) {
    ReadElement(static_cast<std::uint16_t>(n), element, kBlockElement);
    if (holds(element.symbolRect, point)) return 1;
  }
  return 0;
}

int CZhlkCircuitRecord::WriteElement(ZhlkElement& element) {
  switch (element.kind) {
    case kBlockElement: return writeBlock(element);
    case kTextElement: return writeText(element);
    default: return 1;
  }
}

int CZhlkCircuitRecord::writeBlock(ZhlkElement& element) {
  const int count = GetBlockCount();
  if (element.index > count) return 0;
  const ElementWriter to(tree, L"块", element.index);
  if (element.index == count) {
    storeNumber(tree, L"块", count + 1);
    RowPoint place;
    ScreenToCell(element.symbolRect, place.x, place.y);
    to.point(L"插入点", place);
    to.text(L"角度", L"0");
  }
  to.text(L"块名", element.blockName.wide());
  if (element.blockName != kCoveredCell) {
    // The tree keeps an unknown symbol's name and shows the empty cell; the element changes.
    LoadSymbolSlide(element.blockName, element.slide);
    to.bytes(L"Sld", element.slide);
  }
  to.rectangle(L"块名", element.symbolRect);
  to.text(L"型号规格", element.specification.wide());
  return 1;
}

// The corners are drawing units here, where the row's expansion writes pixels; the first one stays.
int CZhlkCircuitRecord::writeText(const ZhlkElement& element) {
  if (element.index >= GetTextCount()) return 0;
  const ElementWriter to(tree, L"文字", element.index);
  to.text(L"文字", element.text.wide());
  const RowPoint insertion = textInsertion(element.index);
  const std::array<AcGePoint3d, 4> box =
      textBox({insertion.x, insertion.y, 0}, element.textAngle, element.textHeight,
              static_cast<std::size_t>(element.text.GetLength()));
  for (std::size_t i = 1; i < box.size(); ++i) to.point(kCornerKeys[i], {box[i].x, box[i].y});
  return 1;
}

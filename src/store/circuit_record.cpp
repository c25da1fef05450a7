// The circuit's tree: its elements, and the way back into a row.
#include "store/circuit_record.h"

#include <algorithm>

#include "engine/row_reader.h"
#include "module/tree_values.h"
#include "platform/framework_runtime.h"
#include "store/element_writer.h"
#include "store/pixels.h"

namespace {

// Reads below one element's key.
class ElementReader {
 public:
  ElementReader(const CQuillDpData& tree, const wchar_t* list, int index)
      : tree_(tree), key_(std::wstring(list) + L"\\" + std::to_wstring(index)) {}

  std::wstring text(const std::wstring& name, const wchar_t* fallback) const {
    return valueOr(node(name), fallback);
  }
  std::int32_t number(const std::wstring& name, const wchar_t* fallback) const {
    return wideToInt(text(name, fallback).c_str());
  }
  double real(const std::wstring& name, const wchar_t* fallback) const {
    return wideToDouble(text(name, fallback).c_str());
  }
  POINT point(const std::wstring& name) const {
    return {number(name + L"\\x", L"0"), number(name + L"\\y", L"0")};
  }
  // 30 by 30 pixels where the tree doesn't say.
  RECT rectangle(const std::wstring& name) const {
    return {number(name + L"\\left", L"0"), number(name + L"\\top", L"0"),
            number(name + L"\\right", L"30"), number(name + L"\\bottom", L"30")};
  }
  void bytes(const std::wstring& name, CByteArray& out) const {
    out.RemoveAll();
    const CQuillDpNode* found = node(name);
    if (!hasValue(found) || !found->bytes) return;
    out.SetSize(found->length);
    std::copy_n(static_cast<const std::uint8_t*>(found->data), found->length, out.GetData());
  }
  // The stored texts of some values, each with a blank in front.
  std::wstring fields(std::initializer_list<const wchar_t*> names) const {
    std::wstring row;
    for (const wchar_t* name : names) row += L" " + text(name, L"0");
    return row;
  }

 private:
  const CQuillDpNode* node(const std::wstring& name) const {
    return tree_.GetSubValueFromPathW(0, (key_ + L"\\" + name).c_str());
  }

  const CQuillDpData& tree_;
  std::wstring key_;
};

std::int16_t countAt(const CQuillDpData& tree, const wchar_t* list) {
  const std::wstring text = valueOr(tree.GetSubValueFromPathW(0, list), L"0");
  return static_cast<std::int16_t>(wideToInt(text.c_str()));
}

void readBlock(const ElementReader& from, ZhlkElement& element) {
  element.blockName = from.text(L"块名", kEmptyCell);
  from.bytes(L"Sld", element.slide);
  element.symbolRect = from.rectangle(L"块名");
  element.specification = from.text(L"型号规格", L"");
  element.specificationRect = from.rectangle(L"型号规格");
}

// False for an empty text: the other fields stay as they were.
bool readText(const ElementReader& from, ZhlkElement& element) {
  const std::wstring text = from.text(L"文字", L"");
  if (text.empty()) return false;
  element.text = text;
  element.colour = from.number(L"颜色", L"1");
  element.textHeight = from.real(L"字高", L"3");
  std::transform(kCornerKeys.begin(), kCornerKeys.end(), element.corners,
                 [&](const wchar_t* corner) { return from.point(corner); });
  element.textAngle = from.real(L"角度", L"0");
  return true;
}

std::wstring quoted(const std::wstring& text) { return L" \"" + text + L"\""; }

}  // namespace

std::int16_t CZhlkCircuitRecord::GetBlockCount() const { return countAt(tree, L"块"); }
std::int16_t CZhlkCircuitRecord::GetLineCount() const { return countAt(tree, L"线"); }
std::int16_t CZhlkCircuitRecord::GetTextCount() const { return countAt(tree, L"文字"); }

int CZhlkCircuitRecord::ReadElement(std::uint16_t index, ZhlkElement& element,
                                    std::uint16_t kind) const {
  const auto begin = [&](std::int16_t count) {
    if (index >= count) return false;
    element.kind = kind;
    element.index = index;
    return true;
  };
  switch (kind) {
    case kBlockElement:
      if (!begin(GetBlockCount())) return 0;
      readBlock({tree, L"块", index}, element);
      return 1;
    case kTextElement:
      return begin(GetTextCount()) && readText({tree, L"文字", index}, element) ? 1 : 0;
    case kLineElement: {
      if (!begin(GetLineCount())) return 0;
      const ElementReader from(tree, L"线", index);
      element.lineStart = from.point(L"屏幕起点");
      element.lineEnd = from.point(L"屏幕终点");
      return 1;
    }
    default: return 1;
  }
}

RowPoint CZhlkCircuitRecord::textInsertion(int index) const {
  const ElementReader from(tree, L"文字", index);
  return {from.real(L"插入点\\x", L"0"), from.real(L"插入点\\y", L"0")};
}

void CZhlkCircuitRecord::BuildRow(CString& out) const {
  std::wstring text = L"(\"" + number.wide() + L"\"";
  for (int n = 0; n < GetBlockCount(); ++n) {
    const ElementReader from(tree, L"块", n);
    const std::wstring block = from.text(L"块名", kEmptyCell);
    if (block == kCoveredCell) continue;
    text += quoted(block) + quoted(from.text(L"型号规格", L"")) +
            from.fields({L"插入点\\x", L"插入点\\y", L"角度"});
  }
  const int lines = GetLineCount();
  if (lines > 0) text += L" \"&&&&\"";
  for (int n = 0; n < lines; ++n) {
    text += ElementReader(tree, L"线", n).fields({L"起点\\x", L"起点\\y", L"终点\\x", L"终点\\y"});
  }
  const int texts = GetTextCount();
  if (texts > 0) text += L" \"TEXT\"";
  for (int n = 0; n < texts; ++n) {
    const ElementReader from(tree, L"文字", n);
    text += quoted(from.text(L"文字", L"")) + L" " + from.text(L"颜色", L"1") + L" " +
            from.text(L"字高", L"3") + from.fields({L"插入点\\x", L"插入点\\y", L"角度"});
  }
  out = text + L")";
}

void CZhlkCircuitRecord::DrawingToScreen(double x, double y, POINT& pixel) const {
  // The sum is truncated, and not the product.
  pixel.x = toPixels(origin.x + kPixelsPerUnitX * x);
  pixel.y = toPixels(origin.y - kPixelsPerUnitY * y);
}

// The library window's view state: decimal texts under ZhlViewDate. Setters change memory only.
#include "module/name_list.h"
#include "module/tree_values.h"
#include "platform/framework_runtime.h"
#include "store/library_store.h"

namespace {

constexpr const wchar_t* kX = L"ZhlViewDate\\x";
constexpr const wchar_t* kY = L"ZhlViewDate\\y";
constexpr const wchar_t* kWidth = L"ZhlViewDate\\宽度";
constexpr const wchar_t* kHeight = L"ZhlViewDate\\高度";
constexpr const wchar_t* kGrid = L"ZhlViewDate\\当前格数";
constexpr const wchar_t* kMode = L"ZhlViewDate\\当前状态";
constexpr const wchar_t* kSelection = L"ZhlViewDate\\当前选择";
constexpr const wchar_t* kPage = L"ZhlViewDate\\当前页号";
constexpr const wchar_t* kAuxFlag = L"ZhlViewDate\\辅助功能标记";

constexpr int kDefaultGrid = 3;  // rows and columns when the stored text is no list

}  // namespace

std::int32_t CZhlkLibStore::getNumber(const wchar_t* key, std::int32_t fallback) {
  return hasValue(read(key)) ? wideToInt(lastNode_->text().c_str()) : fallback;
}

void CZhlkLibStore::setNumber(const wchar_t* key, std::int32_t value) {
  storeNumber(tree_, key, value);
}

std::int32_t CZhlkLibStore::GetViewX() { return getNumber(kX, 300); }
std::int32_t CZhlkLibStore::GetViewY() { return getNumber(kY, 40); }
std::int32_t CZhlkLibStore::GetViewWidth() { return getNumber(kWidth, 240); }
std::int32_t CZhlkLibStore::GetViewHeight() { return getNumber(kHeight, 200); }
void CZhlkLibStore::SetViewX(std::int32_t value) { setNumber(kX, value); }
void CZhlkLibStore::SetViewY(std::int32_t value) { setNumber(kY, value); }
void CZhlkLibStore::SetViewWidth(std::int32_t value) { setNumber(kWidth, value); }
void CZhlkLibStore::SetViewHeight(std::int32_t value) { setNumber(kHeight, value); }

void CZhlkLibStore::GetGridSize(int& rows, int& columns) {
  // Without a value three rows by six columns, which is no entry of the layout box; kept as it is.
  const std::wstring text = valueOr(read(kGrid), L"3&6");
  CStringArray numbers;
  if (!splitNames(text, L'&', numbers)) {
    rows = columns = kDefaultGrid;
    return;
  }
  rows = wideToInt(numbers.GetAt(0));
  columns = wideToInt(numbers.GetAt(1));
}

void CZhlkLibStore::SetGridSize(int rows, int columns) {
  CString text;
  text.Format(L"%d&%d", rows, columns);
  storeText(tree_, kGrid, text.wide());
}

std::int32_t CZhlkLibStore::GetMode() { return getNumber(kMode, 0); }
void CZhlkLibStore::SetMode(std::int32_t mode) {
  setNumber(kMode, mode == 1 || mode == 2 ? mode : 0);
}

std::int16_t CZhlkLibStore::GetSelection() {
  return static_cast<std::int16_t>(getNumber(kSelection, 0));
}
void CZhlkLibStore::SetSelection(std::int32_t slot) { setNumber(kSelection, slot < 0 ? 0 : slot); }

std::int32_t CZhlkLibStore::GetPage() { return getNumber(kPage, 1); }
void CZhlkLibStore::SetPage(std::int32_t page) { setNumber(kPage, page < 1 ? 1 : page); }

std::int32_t CZhlkLibStore::GetAuxFlag() { return getNumber(kAuxFlag, 0); }
void CZhlkLibStore::SetAuxFlag(std::int32_t flag) { setNumber(kAuxFlag, flag == 1 ? 1 : 0); }

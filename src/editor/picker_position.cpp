#include "editor/picker_position.h"

#include "module/tree_values.h"
#include "platform/common_funcs.h"
#include "platform/framework_runtime.h"

namespace {

constexpr const wchar_t* kPageKey = L"Zhldy\\当前页";
constexpr const wchar_t* kSelectionKey = L"Zhldy\\当前块";

// Asked for anew each time: the user's folder may change while a dialog is open.
std::wstring filePath() {
  wchar_t folder[kInformationLimit] = L"";
  GetInformation(L"ZEMMain", L"ZemUse", L"C:\\User", folder, 1);
  std::wstring path = folder;
  if (path.empty() || path.back() != L'\\') path += L'\\';
  return path + L"ZemTemporary.Qdp";
}

std::int32_t numberAt(const CQuillDpData& tree, const wchar_t* key) {
  return wideToInt(valueOr(tree.GetSubValueFromPathW(0, key), L"0").c_str());
}

}  // namespace

PickerPosition::PickerPosition() { tree_.ReadDataFromQdpFile(filePath().c_str()); }

std::int32_t PickerPosition::page() const { return numberAt(tree_, kPageKey); }
std::int32_t PickerPosition::selection() const { return numberAt(tree_, kSelectionKey); }

void PickerPosition::save(std::int32_t page, std::int32_t selection) {
  storeNumber(tree_, kPageKey, page);
  storeNumber(tree_, kSelectionKey, selection);
  tree_.WriteDataToQdpFile(filePath().c_str());
}

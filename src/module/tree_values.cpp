// Writes values into the library's trees.
#include "module/tree_values.h"

void storeText(CQuillDpData& tree, const std::wstring& key, const std::wstring& text) {
  if (text.size() > kLongestTreeText) return;
  tree.SetSubValueW(key.c_str(), static_cast<std::int16_t>(text.size() + 1), text.c_str(), 0);
}

void storeNumber(CQuillDpData& tree, const std::wstring& key, std::int32_t number) {
  storeText(tree, key, std::to_wstring(number));
}

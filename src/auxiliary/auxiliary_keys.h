// Keys of the auxiliary library's tree; auxiliary_store.h tells what they hold. Frozen: they are
// the file format.
#pragma once

#include <string>

namespace auxiliary_keys {

inline constexpr wchar_t kSeparator = L'&';  // behind each name of a list
inline constexpr const wchar_t* kIndex = L"索引";
inline constexpr const wchar_t* kIconState = L"图标状态";
// Two literals joined: the doubled backslash counts as one level.
inline constexpr const wchar_t* kChosenBlock =
    L"当前选择\\"
    L"\\块名";
inline constexpr const wchar_t* kChosenType =
    L"当前选择\\"
    L"\\类型";

inline std::wstring group(const std::wstring& title) { return L"数据\\" + title; }
inline std::wstring type(const std::wstring& title) { return group(title) + L"\\类型"; }
inline std::wstring items(const std::wstring& title) { return group(title) + L"\\索引"; }
inline std::wstring item(const std::wstring& title, const std::wstring& label) {
  return group(title) + L"\\数据\\" + label;
}

}  // namespace auxiliary_keys
